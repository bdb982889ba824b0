// Loading, replacing and deleting images, and the loading of an opened document's images, checked on the
// document as it saves: undo gives back the very bytes of before, redo those of after.

#include "textures/image_commands.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "sheet.h"
#include "support/english.h"
#include "support/image_library.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"
#include "textures/document_images.h"

namespace kovra {
namespace {

using Rows = std::vector<std::string>;

// Two sprites: 4 x 4 at the top left, 5 x 4 at (7, 2).
const Rows kBig = {"####........", "####........", "####...#####", "####...#####",
                   ".......#####", ".......#####", "............", "............"};
// The same sprites on a sheet as wide but two rows less high: everything still fits.
const Rows kFits = {"####........", "####........", "####...#####",
                    "####...#####", ".......#####", ".......#####"};
// Only room for the first sprite.
const Rows kSmall = {"####..", "####..", "####..", "####..", "......", "......"};
// Larger than all, one sprite of 6 x 6.
const Rows kLarger = {"................", ".######.........", ".######.........", ".######.........",
                      ".######.........", ".######.........", ".######.........", "................",
                      "................", "................"};

const WirrelTexture kSpriteA{0, 0, 0, 4, 4};
const WirrelTexture kSpriteB{0, 7, 2, 5, 4};

// The editor as image commands see it, with image files in a temporary folder.
struct Editor {
    Editor() {
        test::StartImageLibrary();
        test::LoadEnglish();
    }

    std::string File(const std::string& name, const Rows& rows) const {
        EXPECT_TRUE(test::Sheet(rows)->Save(dir.File(name)));
        return dir.File(name);
    }

    // The document file's bytes.
    std::vector<char> Saved() {
        aurel::SilentPrompt silent;
        EXPECT_TRUE(doc.Save(dir.File("doc.ske"), true, silent));
        std::ifstream in(dir.File("doc.ske"), std::ios::binary);
        return std::vector<char>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

    CommandImgLoad Load(std::vector<aurel::DualString> paths, int mode) {
        return CommandImgLoad(doc, std::move(paths), prompt, textures, images, mode, false);
    }

    // One image from kBig, with its two textures and a skin on the first.
    void WithBigImage(bool skin) {
        ASSERT_TRUE(Load({File("big.png", kBig)}, kImgLoadAdd).succeeded);
        ASSERT_EQ(doc.Wirrel().textures, (std::vector<WirrelTexture>{kSpriteA, kSpriteB}));
        if (skin) {
            doc.Wirrel().skins.push_back({.texture = 0});
        }
    }

    test::TempDir dir;
    WirrelDoc doc;
    SelectionTracker textures;
    SelectionTracker images;
    test::ScriptedPrompt prompt;
};

TEST(CommandImgLoad, AddsSeveralImagesEachScanned) {
    Editor e;
    const std::vector<char> before = e.Saved();
    CommandImgLoad load =
        e.Load({e.File("a.png", kBig), e.File("b.png", kSmall), e.File("c.png", kBig)}, kImgLoadAdd);
    ASSERT_TRUE(load.succeeded);
    EXPECT_EQ(load.GetType(), 28);
    EXPECT_EQ(load.label.Utf8(), "Load Image");
    ASSERT_EQ(e.doc.images.size(), 3u);
    EXPECT_EQ(e.doc.images[1]->path.Utf8(), e.dir.File("b.png"));
    std::vector<int> imageOfTexture;
    for (const WirrelTexture& t : e.doc.Wirrel().textures) {
        imageOfTexture.push_back(t.imageIndex);
    }
    EXPECT_EQ(imageOfTexture, (std::vector<int>{0, 0, 1, 2, 2}));
    EXPECT_EQ(e.images.currentItem, 0);
    EXPECT_EQ(e.images.currentPart, 1);
    EXPECT_TRUE(e.prompt.asked.empty());

    const std::vector<char> after = e.Saved();
    load.Undo();
    EXPECT_EQ(e.Saved(), before);
    EXPECT_TRUE(e.doc.images.empty());
    load.Redo();
    EXPECT_EQ(e.Saved(), after);
}

TEST(CommandImgLoad, AFailureUndoesTheFilesBeforeIt) {
    Editor e;
    const std::string truncated = e.dir.File("truncated.png");
    std::filesystem::copy_file(e.File("whole.png", kBig), truncated);
    std::filesystem::resize_file(truncated, 40);
    for (const std::string& bad : {e.dir.File("missing.png"), truncated, e.dir.Path().string()}) {
        SCOPED_TRACE(bad);
        e.prompt.asked.clear();
        const std::vector<char> before = e.Saved();
        const CommandImgLoad load =
            e.Load({e.File("a.png", kBig), e.File("b.png", kSmall), bad}, kImgLoadAdd);
        EXPECT_FALSE(load.succeeded);
        EXPECT_EQ(e.Saved(), before);
        EXPECT_TRUE(e.doc.images.empty());
        ASSERT_EQ(e.prompt.asked.size(), 1u);
        EXPECT_EQ(e.prompt.asked[0].title.Utf8(), "Error");
        EXPECT_EQ(e.prompt.asked[0].buttons, aurel::PromptButtons::Ok);
        EXPECT_EQ(e.prompt.asked[0].text.Utf8(),
                  "The image \"" + bad +
                      "\" could not be loaded: it is missing, damaged, too large, or not an image of a known "
                      "format.");
    }
}

constexpr const char* kKeepOnly = "- Keep only textures that fit and replace old image?\n";
constexpr const char* kKeepCurrent = "- Keep current textures and replace old image?\n";
constexpr const char* kRemoveWithSkins =
    "- Remove all textures (and skins using them) and replace old image (rescan)?\n";
constexpr const char* kRemove = "- Remove all textures and replace old image (rescan)?\n";

TEST(CommandImgLoad, TheSizeQuestionAndWhatEachAnswerKeeps) {
    const struct {
        const char* name;
        const Rows* replacement;
        bool skin;
        int answer;
        std::string question;  // empty: none asked
        std::vector<WirrelTexture> textures;
        std::size_t skins;
    } cases[] = {
        {"same size, no skin: rescanned", &kBig, false, 0, "", {kSpriteA, kSpriteB}, 0},
        {"same size with a skin: kept", &kBig, true, 0, "", {kSpriteA, kSpriteB}, 1},
        {"smaller, keep what fits",
         &kSmall,
         true,
         kSizeKeep,
         std::string(kKeepOnly) + kRemoveWithSkins,
         {kSpriteA},
         1},
        {"smaller, remove all",
         &kSmall,
         true,
         kSizeRemove,
         std::string(kKeepOnly) + kRemoveWithSkins,
         {kSpriteA},
         0},
        {"smaller, all fit, keep",
         &kFits,
         true,
         kSizeKeep,
         std::string(kKeepCurrent) + kRemoveWithSkins,
         {kSpriteA, kSpriteB},
         1},
        {"larger without skins, keep: rescanned all the same",
         &kLarger,
         false,
         kSizeKeep,
         std::string(kKeepCurrent) + kRemove,
         {{0, 1, 1, 6, 6}},
         0},
        {"larger without skins, remove",
         &kLarger,
         false,
         kSizeRemove,
         std::string(kKeepCurrent) + kRemove,
         {{0, 1, 1, 6, 6}},
         0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Editor e;
        e.WithBigImage(c.skin);
        const std::vector<char> before = e.Saved();
        e.prompt.Answer(c.answer);
        CommandImgLoad replace = e.Load({e.File("new.png", *c.replacement)}, kImgLoadReplace);
        ASSERT_TRUE(replace.succeeded);
        if (c.question.empty()) {
            EXPECT_TRUE(e.prompt.asked.empty());
        } else {
            ASSERT_EQ(e.prompt.asked.size(), 1u);
            const aurel::PromptRequest& asked = e.prompt.asked[0];
            EXPECT_EQ(asked.title.Utf8(), "Warning");
            EXPECT_EQ(asked.text.Utf8(), "The new image is not the same size as the current one.\n\n" +
                                             c.question + "- Cancel replace image?");
            EXPECT_EQ(asked.buttons, aurel::PromptButtons::Custom);
            EXPECT_EQ(asked.labels, (std::vector<aurel::DualString>{"Keep", "Remove", "Cancel"}));
            EXPECT_EQ(asked.width, 340);
            EXPECT_EQ(asked.height, 160);
        }
        EXPECT_EQ(e.doc.Wirrel().textures, c.textures);
        EXPECT_EQ(e.doc.Wirrel().skins.size(), c.skins);
        EXPECT_EQ(e.doc.images.size(), 1u);
        EXPECT_EQ(e.doc.images[0]->path.Utf8(), e.dir.File("new.png"));

        // The answer is kept: Redo asks nothing.
        const std::vector<char> after = e.Saved();
        replace.Undo();
        EXPECT_EQ(e.Saved(), before);
        EXPECT_EQ(e.doc.images[0]->path.Utf8(), e.dir.File("big.png"));
        replace.Redo();
        EXPECT_EQ(e.Saved(), after);
        EXPECT_EQ(e.prompt.asked.size(), c.question.empty() ? 0u : 1u);
    }
}

TEST(CommandImgLoad, CancelLeavesTheOldImageAndItsTextures) {
    Editor e;
    e.WithBigImage(true);
    const std::shared_ptr<WirrelTexImage> old = e.doc.images[0];
    const std::vector<char> before = e.Saved();
    e.prompt.Answer(kSizeCancel);
    const CommandImgLoad replace = e.Load({e.File("small.png", kSmall)}, kImgLoadReplace);
    EXPECT_FALSE(replace.succeeded);
    EXPECT_EQ(e.prompt.asked.size(), 1u);
    EXPECT_EQ(e.doc.images[0], old);
    EXPECT_EQ(e.Saved(), before);
}

TEST(CommandImgDelete, RemovesTheImageWithItsTexturesAndSkins) {
    Editor e;
    e.WithBigImage(true);
    ASSERT_TRUE(e.Load({e.File("small.png", kSmall)}, kImgLoadAdd).succeeded);
    e.doc.Wirrel().skins.push_back({.texture = 2});

    // The last image: undo is exact.
    e.images.SetCurrent(1, 0);
    e.textures.SetCurrent(2, 0);
    const std::vector<char> before = e.Saved();
    const std::shared_ptr<WirrelTexImage> last = e.doc.images[1];
    CommandImgDelete remove(e.doc, e.textures, e.images);
    EXPECT_EQ(remove.GetType(), 29);
    EXPECT_EQ(remove.label.Utf8(), "Delete Image");
    EXPECT_EQ(e.doc.images.size(), 1u);
    EXPECT_EQ(e.doc.Wirrel().textures, (std::vector<WirrelTexture>{kSpriteA, kSpriteB}));
    EXPECT_EQ(e.doc.Wirrel().skins, (std::vector<WirrelSkin>{{.texture = 0}}));
    // The saved current items, capped to what is left.
    EXPECT_EQ(e.textures.currentItem, 1);
    EXPECT_EQ(e.images.currentItem, 0);
    const std::vector<char> after = e.Saved();
    remove.Undo();
    EXPECT_EQ(e.Saved(), before);
    EXPECT_EQ(e.doc.images[1], last);
    EXPECT_EQ(e.textures.currentItem, 2);
    remove.Redo();
    EXPECT_EQ(e.Saved(), after);

    // The first image: its entry is set back over the one that took its place.
    remove.Undo();
    const std::shared_ptr<WirrelTexImage> first = e.doc.images[0];
    e.images.SetCurrent(0, 0);
    CommandImgDelete removeFirst(e.doc, e.textures, e.images);
    EXPECT_EQ(e.doc.Wirrel().textures, (std::vector<WirrelTexture>{{1, 0, 0, 4, 4}}));
    EXPECT_EQ(e.doc.Wirrel().skins, (std::vector<WirrelSkin>{{.texture = 0}}));
    removeFirst.Undo();
    EXPECT_EQ(e.doc.images, (std::vector<std::shared_ptr<WirrelTexImage>>{first}));
    EXPECT_EQ(e.doc.Wirrel().textures.size(), 3u);
}

TEST(LoadDocumentImages, EverySlotKeepsItsPlace) {
    Editor e;
    const std::string keyed = e.dir.File("keyed.bmp");
    ASSERT_TRUE(test::Sheet({"kkkkkk", "krrrrk", "krrrrk", "krrrrk", "krrrrk", "kkkkkk"})->Save(keyed));
    const std::string broken = e.dir.File("broken.png");
    std::ofstream(broken) << "not a picture";
    const std::string missing = e.dir.File("gone.png");
    e.doc.Wirrel().textures = {{1, 0, 0, 2, 2}, {2, 1, 1, 4, 4}, {3, 0, 0, 1, 1}, {2, 0, 0, 6, 6}};
    const std::vector<WirrelImageRecord> records = {
        {"", 0, 0}, {missing, 1, 0}, {keyed, 2, test::kKeyColour}, {broken, 3, 0x123456}};

    LoadDocumentImages(e.doc, records, e.prompt, e.textures, e.images);

    ASSERT_EQ(e.doc.images.size(), 4u);
    EXPECT_EQ(e.doc.images[0], nullptr);
    for (int slot : {1, 3}) {
        EXPECT_TRUE(e.doc.images[slot]->surface.IsEmpty());
        EXPECT_EQ(e.doc.images[slot]->path, records[slot].path);
        EXPECT_EQ(e.doc.images[slot]->colorKey, records[slot].colorKey);
    }
    // Loaded with its colour key converted and no question; the textures of the file are kept.
    const WirrelTexImage& loaded = *e.doc.images[2];
    EXPECT_EQ(loaded.colorKey, test::kKeyColour);
    EXPECT_EQ(loaded.surface.Row(0)[0], test::kKeyColour);
    EXPECT_EQ(loaded.surface.Row(1)[1], 0xFFC02020u);
    EXPECT_EQ(loaded.unkeyed.Row(1)[1], 0x00C02020u);
    EXPECT_EQ(e.doc.Wirrel().textures.size(), 4u);
    EXPECT_EQ(loaded.marks.at(1), (std::vector<TexMark>{{0.0f, 1.0f}}));
    EXPECT_EQ(loaded.marks.at(3), (std::vector<TexMark>{{0.2f, 0.8f}}));
    // A picture without pixels gives each of its textures one mark at the corner.
    EXPECT_EQ(e.doc.images[1]->marks.at(0), (std::vector<TexMark>{{0.0f, 0.0f}}));
    EXPECT_EQ(e.doc.images[3]->marks.at(2), (std::vector<TexMark>{{0.0f, 0.0f}}));

    ASSERT_EQ(e.prompt.asked.size(), 2u);
    EXPECT_EQ(e.prompt.asked[0].title.Utf8(), "File not found");
    EXPECT_EQ(e.prompt.asked[0].text.Utf8(),
              "The image " + missing +
                  " was not found. Its textures and skins are kept and show as "
                  "missing until the image is replaced.");
    EXPECT_EQ(e.prompt.asked[1].title.Utf8(), "Error");
}

}  // namespace
}  // namespace kovra
