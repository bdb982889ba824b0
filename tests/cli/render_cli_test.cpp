#include <sys/wait.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "cli/render_options.h"
#include "doc/wirrel_doc.h"
#include "images/wirrel_tex_image.h"
#include "support/image_library.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

constexpr std::uint32_t kInk = 0xFF3050E0u;

// In a temporary folder, a/doc.ske with a 16 x 16 picture of ink in img/, at 8 pixels a unit, and
// the animation "walk": a root moving from the origin to (2, 0) and a bone two units long to its right
// that wears the whole picture as its skin, two units square. At 32 pixels a unit the skin's centre is
// one unit right of the root.
class RenderCliTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::StartImageLibrary(); }

    void SetUp() override {
        std::filesystem::create_directories(dir.Path() / "a");
        std::filesystem::create_directories(dir.Path() / "img");
        WirrelTexImage picture;
        picture.surface.Resize(16, 16);
        picture.surface.Clear(aurel::Color32(kInk));
        // One translucent corner keeps the alpha channel in the file.
        picture.surface.Row(0)[0] = 0x80FFFFFFu;
        ASSERT_TRUE(picture.Save(aurel::DualString(dir.File("img/ink.png"))));

        WirrelDoc doc;
        Wirrel w = doc.Wirrel();
        w.pixelsPerUnit = 8;
        w.pinNames = {MakeName("root"), MakeName("arm")};
        w.textures = {{0, 0, 0, 16, 16}};
        w.skins = {WirrelSkin{.texture = 0}};
        const auto key = [](float rootX) {
            return WirrelKey{
                .pins = {WirrelPin{.length = rootX, .flags = Root, .id = 0},
                         WirrelPin{.length = 2, .flags = Bone, .skin = 0, .parent = 0, .id = 1}}};
        };
        w.anims = {{MakeName("walk"), {key(0), key(2)}}};
        doc.SetWirrel(w);
        doc.SetImage(-1, std::make_shared<WirrelTexImage>(dir.File("img/ink.png")));
        test::ScriptedPrompt prompt;
        ASSERT_TRUE(doc.Save(dir.File("a/doc.ske"), true, prompt));
    }

    struct Result {
        int code;
        std::string err;
    };

    Result Run(const std::string& arguments) {
        const std::string command = "cd '" + dir.Path().string() + "' && '" KOVRA_CLI "' " + arguments +
                                    " >/dev/null 2>'" + dir.File("err.txt") + "'";
        const int status = std::system(command.c_str());
        std::ifstream in(dir.File("err.txt"), std::ios::binary);
        return {WEXITSTATUS(status), {std::istreambuf_iterator<char>(in), {}}};
    }

    // The picture kovra-cli wrote, or an empty one.
    aurel::ImageSurface Picture(const std::string& name) {
        WirrelTexImage picture;
        picture.Load(aurel::DualString(dir.File(name)));
        return picture.surface;
    }

    static std::uint32_t At(const aurel::ImageSurface& surface, int x, int y) { return surface.Row(y)[x]; }

    test::TempDir dir;
};

TEST_F(RenderCliTest, TheSkinStandsWhereThePlayPositionAndTheCameraPutIt) {
    struct Case {
        const char* options;
        int inkX;   // a pixel on row 240 inside the skin
        int bareX;  // one outside it
    };
    // The skin spans 64 pixels about its centre: at 0.5 the root stands at (1, 0), the centre at x 2, on
    // pixel 320.
    for (const Case& c : {
             Case{"walk 0.5 o.png", 340, 280},
             Case{"walk 0 o.png", 270, 340},
             Case{"walk 1.5 o.png", 340, 280},  // half way back from the last key frame to the first
             Case{"walk 0.5 o.png --center 1,0", 300, 340},
             Case{"walk 0.5 o.png --zoom 2", 440, 300},
         }) {
        for (const bool skinsOnly : {false, true}) {
            const std::string arguments =
                std::string("render a/doc.ske ") + c.options + (skinsOnly ? " --skins-only" : "");
            const Result result = Run(arguments);
            ASSERT_EQ(result.code, 0) << arguments << "\n" << result.err;
            const aurel::ImageSurface picture = Picture("o.png");
            ASSERT_EQ(picture.Width(), 512);
            ASSERT_EQ(picture.Height(), 512);
            EXPECT_EQ(At(picture, c.inkX, 240), kInk) << arguments;
            EXPECT_NE(At(picture, c.bareX, 240), kInk) << arguments;
            if (skinsOnly) {
                EXPECT_EQ(At(picture, c.bareX, 240), 0u) << "nothing but the skin: " << arguments;
                EXPECT_EQ(At(picture, c.inkX, 256), kInk) << "no bone over it: " << arguments;
            } else {
                EXPECT_EQ(At(picture, c.bareX, 240) >> 24, 0xFFu) << "the workspace is opaque: " << arguments;
                EXPECT_NE(At(picture, c.inkX, 256), kInk) << "the bone lies over it: " << arguments;
            }
        }
    }
}

TEST_F(RenderCliTest, SizeIsTakenAsGivenAlphaIsKeptAndAMissingPictureDrawsTheMissingTexture) {
    ASSERT_EQ(Run("render a/doc.ske walk 0 o.png --size 96x40 --skins-only").code, 0);
    const aurel::ImageSurface small = Picture("o.png");
    ASSERT_EQ(small.Width(), 96);
    ASSERT_EQ(small.Height(), 40);
    EXPECT_EQ(At(small, 60, 10), kInk) << "the skin spans x 48 to 112 about the centre at 80";

    // The translucent corner of the picture keeps its own alpha in the sprite, not the background's.
    ASSERT_EQ(Run("render a/doc.ske walk 0 o.png --skins-only").code, 0);
    const aurel::ImageSurface sprite = Picture("o.png");
    int corner = 0;
    for (int y = 224; y < 288; ++y) {
        for (int x = 256; x < 320; ++x) {
            const std::uint32_t pixel = At(sprite, x, y);
            corner += pixel >> 24 >= 0x7F && pixel >> 24 <= 0x81 && (pixel & 0xFFFFFFu) == 0xFFFFFFu;
        }
    }
    // One texel of the picture covers four by four pixels, and the edges of the quad round outward.
    EXPECT_GE(corner, 16);
    EXPECT_LE(corner, 25);

    std::filesystem::remove(dir.File("img/ink.png"));
    const Result missing = Run("render a/doc.ske walk 0 o.png --skins-only");
    ASSERT_EQ(missing.code, 0) << missing.err;
    EXPECT_NE(missing.err, "") << "the missing picture is told about";
    const aurel::ImageSurface picture = Picture("o.png");
    int drawn = 0;
    for (int y = 224; y < 288; ++y) {
        for (int x = 256; x < 320; ++x) {
            drawn += At(picture, x, y) != 0 && At(picture, x, y) != kInk;
        }
    }
    EXPECT_GT(drawn, 64 * 64 / 2) << "the skin's square shows the missing-texture picture";
    EXPECT_EQ(At(picture, 340, 240), 0u);
}

TEST_F(RenderCliTest, WhatCantBeRenderedIsRefusedWithOneLineAndNoFile) {
    const struct {
        const char* arguments;
        int code;
        const char* says;
    } cases[] = {
        {"a/doc.ske run 0 o.png", 1, "kovra-cli: no animation named \"run\"\n"},
        {"a/doc.ske walk 2 o.png", 1,
         "kovra-cli: play position 2 is not within the 2 key frames of \"walk\"\n"},
        {"a/doc.ske walk 0 o.png --size 0x10", 1, "kovra-cli: size 0x10 is not WxH"},
        {"a/doc.ske walk 0 o.png --size 64", 1, "kovra-cli: size 64 is not WxH"},
        {"a/doc.ske walk 0 o.png --size 20000x1", 1, "kovra-cli: size 20000x1 is not WxH"},
        {"a/doc.ske walk 0 o.png --zoom 0", 1, "kovra-cli: zoom 0 is not a positive number\n"},
        {"a/doc.ske walk 0 o.png --center 1:2", 1, "kovra-cli: center 1:2 is not X,Y\n"},
        {"a/gone.ske walk 0 o.png", 1, "kovra-cli: "},
        {"a/doc.ske walk 0 o.png --theme Nowhere", 1, "kovra-cli: cannot read the theme file"},
        {"a/doc.ske walk soon o.png", 2, "kovra-cli: "},
    };
    for (const auto& c : cases) {
        const Result result = Run(std::string("render ") + c.arguments);
        EXPECT_EQ(result.code, c.code) << c.arguments;
        EXPECT_EQ(result.err.rfind(c.says, 0), 0u) << c.arguments << "\n" << result.err;
        EXPECT_FALSE(std::filesystem::exists(dir.File("o.png"))) << c.arguments;
    }
}

TEST(RenderOptions, ReadsTheViewAndLeavesItAloneOnAFailure) {
    cli::RenderView view;
    ASSERT_TRUE(cli::ParseRenderView("640x360", "0.25", "-1.5,2", view));
    EXPECT_EQ(view.width, 640);
    EXPECT_EQ(view.height, 360);
    EXPECT_EQ(view.zoom, 0.25f);
    EXPECT_EQ(view.centerX, -1.5f);
    EXPECT_EQ(view.centerY, 2.0f);
    for (const auto& [size, zoom, center] : {
             std::tuple{"640x", "1", "0,0"},
             std::tuple{"x360", "1", "0,0"},
             std::tuple{"640x360x2", "1", "0,0"},
             std::tuple{"-640x360", "1", "0,0"},
             std::tuple{"640x360", "-1", "0,0"},
             std::tuple{"640x360", "1", "0"},
             std::tuple{"640x360", "1", "0,inf"},
         }) {
        cli::RenderView refused;
        EXPECT_FALSE(cli::ParseRenderView(size, zoom, center, refused))
            << size << " " << zoom << " " << center;
    }
}

}  // namespace
}  // namespace kovra
