#include "textures/packing.h"

#include <gtest/gtest.h>

#include "sheet.h"
#include "support/scripted_prompt.h"
#include "textures/detection.h"
#include "textures/pack_command.h"
#include "textures/pack_trial.h"

namespace kovra {
namespace {

// A w x h input rectangle at the origin for texture `texture`.
PackRect Box(int w, int h, int texture) {
    return {0, 0, w - 1, h - 1, texture, 0};
}

TEST(Packing, PlacementsFollowTheSplits) {
    struct Case {
        const char* name;
        int width;
        int height;
        std::vector<PackRect> input;
        int pages;
        std::vector<PackRect> output;
    };
    const Case cases[] = {
        {"equal squares side by side, then a new page",
         10,
         10,
         {Box(4, 4, 0), Box(4, 4, 1), Box(4, 4, 2), Box(4, 4, 3), Box(4, 4, 4)},
         2,
         {{0, 0, 3, 3, 0, 0},
          {5, 0, 8, 3, 1, 0},
          {0, 5, 3, 8, 2, 0},
          {5, 5, 8, 8, 3, 0},
          {0, 0, 3, 3, 4, 1}}},
        {"a wide strip cuts across the height first",
         10,
         10,
         {Box(6, 2, 7), Box(3, 1, 8)},
         1,
         {{0, 0, 5, 1, 7, 0}, {0, 3, 2, 3, 8, 0}}},
        {"1023 fits a 1024 page", 1024, 1024, {Box(1023, 1023, 0)}, 1, {{0, 0, 1022, 1022, 0, 0}}},
        {"1024 wide would add pages without end", 1024, 1024, {Box(1024, 10, 0)}, 0, {}},
        {"1024 high likewise, after a placed one",
         1024,
         1024,
         {Box(10, 10, 0), Box(10, 1024, 1)},
         0,
         {{0, 0, 9, 9, 0, 0}}},
        {"1025 wide stops the placing",
         1024,
         1024,
         {Box(4, 4, 0), Box(1025, 4, 1), Box(4, 4, 2)},
         1,
         {{0, 0, 3, 3, 0, 0}}},
        {"nothing to place is one empty page", 64, 64, {}, 1, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<PackRect> output;
        EXPECT_EQ(PackRects(c.input, output, c.width, c.height, 1), c.pages);
        EXPECT_EQ(output, c.output);
    }
}

TEST(Packing, SortByAreaKeepsTiesInOrder) {
    std::vector<PackRect> rects{Box(2, 3, 0), Box(1, 1, 1), Box(3, 2, 2), Box(4, 4, 3), Box(6, 1, 4)};
    SortPackRects(rects);
    std::vector<int> order;
    for (const PackRect& r : rects) {
        order.push_back(r.texture);
    }
    EXPECT_EQ(order, (std::vector<int>{3, 0, 2, 4, 1}));
}

// Image 0 holds a 1023 square, image 1 a 1024 wide strip, image 2 a 1025 wide one, image 3 nothing,
// image 4 two 100 squares.
struct PackDoc {
    PackDoc() {
        for (int i = 0; i < 5; ++i) {
            doc.SetImage(i, test::Plain(8, 8, 0xFF000000u));
        }
        doc.Wirrel().textures = {{0, 0, 0, 1023, 1023},
                                 {1, 0, 0, 1024, 5},
                                 {2, 0, 0, 1025, 5},
                                 {4, 0, 0, 100, 100},
                                 {4, 100, 0, 100, 100}};
    }
    WirrelDoc doc;
};

TEST(Packing, TrialMessages) {
    PackDoc p;
    struct Case {
        std::vector<int> images;
        const char* message;
        int pages;
    };
    const Case cases[] = {
        {{0}, "", 1},
        {{1}, "Packing failure. Unknown error.", 0},
        {{2}, "Packing failure. Texture(s) larger than 1024x1024.", 0},
        {{}, "No images selected to pack.", 0},
        {{3}, "No images selected to pack.", 0},
        {{0, 4}, "", 2},
    };
    for (const Case& c : cases) {
        const PackTrial trial = RunPackTrial(p.doc.Wirrel(), c.images, 1024, 1024);
        EXPECT_EQ(trial.message, c.message);
        EXPECT_EQ(trial.pages, c.pages);
        EXPECT_EQ(trial.Stands(), c.pages != 0);
    }
}

TEST(Packing, AutoSizeHalvesHeightThenWidth) {
    PackDoc p;
    struct Case {
        std::vector<int> images;
        int width;
        int height;
        int trials;
    };
    const Case cases[] = {
        {{4}, 256, 128, 12},   // two 100 squares side by side
        {{0}, 1024, 1024, 5},  // the 1023 square needs the whole page
        {{0, 4}, 1024, 1024, 1},
        {{}, 1024, 1024, 1},
    };
    for (const Case& c : cases) {
        const PackSize size = AutoPackSize(p.doc, c.images, 300, 200);
        EXPECT_EQ(size.width, c.width);
        EXPECT_EQ(size.height, c.height);
        EXPECT_EQ(size.trials, c.trials);
    }
    WirrelDoc empty;
    const PackSize size = AutoPackSize(empty, {}, 300, 200);
    EXPECT_EQ(size.width, 300);
    EXPECT_EQ(size.trials, 1);
    EXPECT_EQ(size.trial.message, "No images selected to pack.");
}

TEST(Packing, PagesDarkenByAlpha) {
    WirrelDoc doc;
    doc.SetImage(0, test::Plain(3, 1, 0x80FF8040u));
    doc.Image(0)->surface.Row(0)[1] = 0x00FFFFFFu;
    doc.Image(0)->surface.Row(0)[2] = 0xFF102030u;
    doc.Wirrel().textures = {{0, 0, 0, 3, 1}};
    const PackTrial trial = RunPackTrial(doc.Wirrel(), {0}, 8, 4);
    const auto pages = ComposePages(doc, trial, 8, 4);
    ASSERT_EQ(pages.size(), 1u);
    const std::uint32_t* row = pages[0].Row(0);
    EXPECT_EQ(row[0], 0x80804020u);
    EXPECT_EQ(row[1], 0x00000000u);
    EXPECT_EQ(row[2], 0xFF102030u);
    EXPECT_EQ(row[3], 0u);
}

TEST(Packing, CommandReplacesCheckedImagesByPages) {
    WirrelDoc doc;
    doc.SetImage(0, test::Sheet({"####.", "####.", "####.", "####."}));
    doc.SetImage(1, test::Sheet({"##..", "##.."}));
    doc.SetImage(2, test::Sheet({"hh.", "hh."}));
    doc.SetImage(3, test::Sheet({"....", "...."}));
    doc.Wirrel().textures = {{2, 0, 0, 2, 2}, {0, 0, 0, 4, 4}, {1, 0, 0, 2, 2}, {3, 1, 1, 2, 1}};
    doc.Wirrel().skins = {{0}, {2}};
    const auto before = test::Saved(doc);
    const auto imagesBefore = doc.images;
    SelectionTracker images;
    images.SetCurrent(1, 1);
    CommandTexPack command({0, 2}, {"/out/page.png"}, images, doc, 8, 8);
    EXPECT_EQ(command.label.Utf8(), "Pack Textures");
    ASSERT_EQ(doc.images.size(), 3u);
    EXPECT_EQ(doc.images[0], imagesBefore[1]);
    EXPECT_EQ(doc.images[1], imagesBefore[3]);
    EXPECT_EQ(doc.images[2]->path.Utf8(), "/out/page.png");
    EXPECT_EQ(
        doc.Wirrel().textures,
        (std::vector<WirrelTexture>{{2, 5, 0, 2, 2}, {2, 0, 0, 4, 4}, {0, 0, 0, 2, 2}, {1, 1, 1, 2, 1}}));
    EXPECT_EQ(doc.Wirrel().skins, (std::vector<WirrelSkin>{{0}, {2}}));
    EXPECT_EQ(images.currentItem, 2);
    const aurel::ImageSurface& page = doc.images[2]->surface;
    EXPECT_EQ(page.Row(0)[5], 0x80081119u);
    EXPECT_EQ(page.Row(3)[3], test::PixelOf('#'));
    EXPECT_EQ(doc.images[2]->marks.size(), 2u);
    EXPECT_EQ(doc.images[2]->marks[0], (std::vector<TexMark>{{0.0f, 1.0f}}));

    const auto after = test::Saved(doc);
    for (int round = 0; round < 2; ++round) {
        command.Undo();
        EXPECT_EQ(test::Saved(doc), before);
        EXPECT_EQ(doc.images, imagesBefore);
        EXPECT_EQ(images.currentItem, 1);
        command.Redo();
        EXPECT_EQ(test::Saved(doc), after);
    }
}

}  // namespace
}  // namespace kovra
