#include <sys/wait.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "images/wirrel_tex_image.h"
#include "support/image_library.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

constexpr std::uint32_t kInk = 0xFF204060u;
// A sheet without alpha as a decoder delivers it: alpha 0 everywhere, a magenta background.
constexpr std::uint32_t kKey = 0x00FF00FFu;
constexpr std::uint32_t kKeyedInk = kInk & 0xFFFFFFu;

// On a background of `background`: a solid 4 x 4 square at (1, 1), a cross of 5 x 5 at (6, 1) whose
// pixels touch only at corners, and a 2 x 2 speck at (1, 6) that is a region but no texture.
WirrelTexImage Sheet(std::uint32_t background, std::uint32_t ink = kInk) {
    WirrelTexImage image;
    image.surface.Resize(12, 9);
    std::fill_n(image.surface.Row(0), 12 * 9, background);
    for (int y = 1; y <= 4; ++y) {
        std::fill_n(image.surface.Row(y) + 1, 4, ink);
    }
    for (int i = 0; i < 5; ++i) {
        image.surface.Row(1 + i)[6 + i] = ink;
        image.surface.Row(1 + i)[10 - i] = ink;
    }
    std::fill_n(image.surface.Row(6) + 1, 2, ink);
    std::fill_n(image.surface.Row(7) + 1, 2, ink);
    return image;
}

constexpr const char* kSheetTextures =
    R"("regions":3,"textures":[{"x":1,"y":1,"w":4,"h":4,"marks":[[0,1]]},{"x":6,"y":1,"w":5,"h":5,"marks":[[0,1]]}]})";

class ImageCliTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::StartImageLibrary(); }

    struct Result {
        int code;
        std::string out;
        std::string err;
    };

    Result Run(const std::string& arguments) {
        const std::string command = "cd '" + dir.Path().string() + "' && '" KOVRA_CLI "' " + arguments +
                                    " >'" + dir.File("out.txt") + "' 2>'" + dir.File("err.txt") + "'";
        const int status = std::system(command.c_str());
        return {WEXITSTATUS(status), Contents("out.txt"), Contents("err.txt")};
    }

    std::string Contents(const std::string& name) const {
        std::ifstream in(dir.File(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(dir.File(name), std::ios::binary) << bytes;
    }

    test::TempDir dir;
};

TEST_F(ImageCliTest, DetectReadsEveryFormat) {
    struct Case {
        const char* file;
        std::uint32_t background;
        std::uint32_t ink;
        const char* options;
        const char* head;  // what the output starts with; the sheet's textures follow unless it ends in ]}
    };
    for (const Case& c : {
             Case{"s.png", 0, kInk, "", R"({"width":12,"height":9,"colorKey":0,)"},
             Case{"s.tga", 0, kInk, "--colorkey yes", R"({"width":12,"height":9,"colorKey":0,)"},
             Case{"s.psd", 0, kInk, "", R"({"width":12,"height":9,"colorKey":0,)"},
             Case{"s.gif", 0, kInk, "", R"({"width":12,"height":9,"colorKey":0,)"},
             // Uniform alpha: the key question decides.
             Case{"k.png", kKey, kKeyedInk, "--colorkey yes",
                  R"({"width":12,"height":9,"colorKey":16711935,)"},
             Case{"k.png", kKey, kKeyedInk, "--colorkey no",
                  R"({"width":12,"height":9,"colorKey":0,"regions":0,"textures":[]})"},
             Case{"k.png", kKey, kKeyedInk, "",
                  R"({"width":12,"height":9,"colorKey":0,"regions":0,"textures":[]})"},
         }) {
        SCOPED_TRACE(std::string(c.file) + " " + c.options);
        ASSERT_TRUE(Sheet(c.background, c.ink).Save(dir.File(c.file)));
        const Result result = Run(std::string("detect ") + c.file + " " + c.options);
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.err, "");
        const std::string head(c.head);
        const std::string expected = head.ends_with("]}") ? head : head + kSheetTextures;
        EXPECT_EQ(result.out, expected + "\n");
    }
}

TEST_F(ImageCliTest, ImportAddsImagesWithTheirTexturesAndPackMovesThemOntoPages) {
    ASSERT_TRUE(Sheet(0).Save(dir.File("s.png")));
    ASSERT_TRUE(Sheet(kKey, kKeyedInk).Save(dir.File("k.tga")));
    std::filesystem::create_directories(dir.Path() / "out");
    ASSERT_EQ(Run("new n.ske").code, 0);
    ASSERT_EQ(Run("import n.ske out/i.ske s.png k.tga --colorkey yes").code, 0);
    EXPECT_NE(Contents("out/i.ske").find("../k.tga"), std::string::npos);
    const std::string dump = Run("dump out/i.ske").out;
    EXPECT_NE(dump.find(R"({"path":")" + dir.File("k.tga") + R"(","colorKey":16711935})"), std::string::npos);
    EXPECT_NE(
        dump.find(R"("textures":[{"image":0,"x":1,"y":1,"w":4,"h":4},{"image":0,"x":6,"y":1,"w":5,"h":5},)"
                  R"({"image":1,"x":1,"y":1,"w":4,"h":4},{"image":1,"x":6,"y":1,"w":5,"h":5}])"),
        std::string::npos)
        << dump;

    // Auto size halves 1024 x 1024 down to where the 5 x 5 and the 4 x 4 still share one page.
    const Result one = Run("pack out/i.ske out/p.ske out/page.png --images 1");
    EXPECT_EQ(one.code, 0);
    EXPECT_EQ(one.out, R"({"pages":1,"width":16,"height":8,"files":["out/page.png"]})"
                       "\n");
    const std::string packed = Run("dump out/p.ske").out;
    EXPECT_NE(packed.find(R"("images":[{"path":")" + dir.File("s.png") + R"(","colorKey":0},{"path":")" +
                          dir.File("out/page.png") + R"(","colorKey":0}])"),
              std::string::npos)
        << packed;
    EXPECT_NE(packed.find(R"({"image":1,"x":6,"y":0,"w":4,"h":4},{"image":1,"x":0,"y":0,"w":5,"h":5}])"),
              std::string::npos);
    WirrelTexImage page;
    ASSERT_EQ(page.Load(dir.File("out/page.png")), 0);
    EXPECT_EQ(page.surface.Row(0)[6], kInk);
    EXPECT_EQ(page.surface.Row(0)[0], kInk);
    EXPECT_EQ(page.surface.Row(0)[1], 0u);

    // On 8 x 8 the two don't share a page; every image by default.
    const Result two = Run("pack out/i.ske out/q.ske out/pg.tga --size 8x8");
    EXPECT_EQ(two.code, 0);
    EXPECT_EQ(two.out,
              R"({"pages":4,"width":8,"height":8,"files":["out/pg0.tga","out/pg1.tga","out/pg2.tga",)"
              R"("out/pg3.tga"]})"
              "\n");
    for (const char* file : {"out/pg0.tga", "out/pg3.tga"}) {
        EXPECT_EQ(page.Load(dir.File(file)), 0) << file;
        EXPECT_EQ(page.surface.Width(), 8);
    }
}

// The same 40 x 1 PNG with its header declaring 100000 x 100000 pixels, its checksum made good again.
std::string Bomb(std::string png) {
    const auto put = [&png](std::size_t at, std::uint32_t value) {
        for (int i = 0; i < 4; ++i) {
            png[at + i] = static_cast<char>(value >> (24 - 8 * i));
        }
    };
    put(16, 100000);
    put(20, 100000);
    std::uint32_t crc = 0xFFFFFFFFu;
    for (std::size_t i = 12; i < 29; ++i) {
        crc ^= static_cast<std::uint8_t>(png[i]);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
        }
    }
    put(29, ~crc);
    return png;
}

TEST_F(ImageCliTest, FailuresSayWhyInOneLineAndWriteNothing) {
    ASSERT_TRUE(Sheet(0).Save(dir.File("s.png")));
    const std::string png = Contents("s.png");
    Write("cut.png", png.substr(0, png.size() / 2));
    Write("text.png", "not a picture\n");
    Write("bomb.png", Bomb(png));
    ASSERT_EQ(Run("new n.ske").code, 0);
    ASSERT_EQ(Run("import n.ske i.ske s.png").code, 0);
    ASSERT_EQ(Run("import n.ske gone.ske cut.png s.png").code, 1);
    Write("out.ske", "kept");
    struct Case {
        const char* arguments;
        const char* says;
    };
    for (const Case& c : {
             Case{"detect missing.png", "missing.png\" could not be loaded"},
             Case{"detect cut.png", "cut.png\" could not be loaded"},
             Case{"detect text.png", "text.png\" could not be loaded"},
             Case{"detect bomb.png", "bomb.png\" could not be loaded"},
             Case{"import missing.ske out.ske s.png", "cannot open missing.ske"},
             Case{"import n.ske out.ske s.png bomb.png", "bomb.png\" could not be loaded"},
             Case{"pack i.ske out.ske p.png --images 1", "image 1 is not one of the 1 images"},
             Case{"pack i.ske out.ske p.png --size 4x4", "Packing failure. Texture(s) larger than 4x4."},
             Case{"pack n.ske out.ske p.png", "No images selected to pack."},
             Case{"pack gone.ske out.ske p.png", "cannot open gone.ske"},
         }) {
        SCOPED_TRACE(c.arguments);
        const Result result = Run(c.arguments);
        EXPECT_EQ(result.code, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
        EXPECT_NE(result.err.find(c.says), std::string::npos) << result.err;
        EXPECT_EQ(Contents("out.ske"), "kept");
    }
    std::filesystem::remove(dir.Path() / "s.png");
    const Result missing = Run("pack i.ske out.ske p.png");
    EXPECT_EQ(missing.code, 1);
    EXPECT_NE(missing.err.find("cannot read image 0"), std::string::npos) << missing.err;
    EXPECT_FALSE(std::filesystem::exists(dir.Path() / "p.png"));
    EXPECT_FALSE(std::filesystem::exists(dir.Path() / "gone.ske"));
}

TEST_F(ImageCliTest, WrongCommandLinesGiveTheUsage) {
    struct Case {
        const char* arguments;
        const char* says;
        const char* usage;
    };
    for (const Case& c : {
             Case{"detect", "IMAGE is required", "usage: kovra-cli detect [OPTIONS] IMAGE\n"},
             Case{"detect s.png --colorkey maybe", "maybe not in {yes,no}", "usage: kovra-cli detect"},
             Case{"detect s.png --colorkey", "--colorkey", "usage: kovra-cli detect"},
             Case{"import a.ske b.ske", "IMAGE is required",
                  "usage: kovra-cli import [OPTIONS] IN OUT IMAGE...\n"},
             Case{"pack a.ske b.ske", "PAGEFILE is required",
                  "usage: kovra-cli pack [OPTIONS] IN OUT PAGEFILE\n"},
             Case{"pack a.ske b.ske p.png --size 12", "12 is not a page size", "usage: kovra-cli pack"},
             Case{"pack a.ske b.ske p.png --size 0x5", "0x5 is not a page size", "usage: kovra-cli pack"},
             Case{"pack a.ske b.ske p.png --size 8x8x", "8x8x is not a page size", "usage: kovra-cli pack"},
             Case{"pack a.ske b.ske p.png --size 16385x1", "16385x1 is not", "usage: kovra-cli pack"},
             Case{"pack a.ske b.ske p.png --images 0,x", "x is not an index", "usage: kovra-cli pack"},
             Case{"pack a.ske b.ske p.txt", "p.txt does not end in an image extension",
                  "usage: kovra-cli pack"},
         }) {
        SCOPED_TRACE(c.arguments);
        const Result result = Run(c.arguments);
        EXPECT_EQ(result.code, 2);
        EXPECT_EQ(result.out, "");
        const std::size_t end = result.err.find('\n');
        ASSERT_NE(end, std::string::npos);
        EXPECT_NE(result.err.substr(0, end).find(c.says), std::string::npos) << result.err;
        EXPECT_EQ(result.err.substr(end + 1).rfind(c.usage, 0), 0u) << result.err;
    }
}

}  // namespace
}  // namespace kovra
