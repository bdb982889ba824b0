#include "textures/detection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "sheet.h"
#include "support/scripted_prompt.h"

namespace kovra {
namespace {

using test::Sheet;

struct DetectCase {
    const char* name;
    std::vector<std::string> rows;
    int answer;  // to the colour-key question; 0 when none is to be asked
    std::vector<TexRegion> regions;
    std::vector<std::string> mask;  // labels as digits, '.' for 0
    std::vector<WirrelTexture> textures;
    std::vector<std::vector<TexMark>> marks;  // per texture
};

const std::vector<DetectCase>& Cases() {
    static const std::vector<DetectCase> cases = {
        {"corner-touching sprites are one region",
         {"####....", "####....", "####....", "####....", "....####", "....####", "....####", "....####"},
         0,
         {{1, 0, 0, 8, 8}},
         {"1111....", "1111....", "1111....", "1111....", "....1111", "....1111", "....1111", "....1111"},
         {{0, 0, 0, 8, 8}},
         {{{4.0f / 7, 1.0f}}}},
        {"a sprite inside a ring's box is dropped",
         {"##########", "#........#", "#..####..#", "#..####..#", "#..####..#", "#..####..#", "#........#",
          "##########"},
         0,
         {{1, 0, 0, 10, 8}, {2, 3, 2, 7, 6}},
         {"1111111111", "1........1", "1..2222..1", "1..2222..1", "1..2222..1", "1..2222..1", "1........1",
          "1111111111"},
         {{0, 0, 0, 10, 8}},
         {{{0.0f, 1.0f}, {3.0f / 9, 5.0f / 7}}}},
        {"a 3x3 speck keeps its label and makes no texture",
         {"###.......", "###.......", "###.......", "......####", "......####", "......####", "......####"},
         0,
         {{1, 0, 0, 3, 3}, {2, 6, 3, 10, 7}},
         {"111.......", "111.......", "111.......", "......2222", "......2222", "......2222", "......2222"},
         {{0, 6, 3, 4, 4}},
         {{{0.0f, 1.0f}}}},
        {"uniform alpha above 0 answered no is one region",
         {"hhhhh", "hhhhh", "hhhhh", "hhhhh", "hhhhh"},
         aurel::kAnswerNo,
         {{1, 0, 0, 5, 5}},
         {"11111", "11111", "11111", "11111", "11111"},
         {{0, 0, 0, 5, 5}},
         {{{0.0f, 1.0f}}}},
        {"uniform opaque alpha answered yes turns every pixel opaque",
         {"#####", "#www#", "#####", "#####"},
         aurel::kAnswerYes,
         {{1, 0, 0, 5, 4}},
         {"11111", "11111", "11111", "11111"},
         {{0, 0, 0, 5, 4}},
         {{{0.0f, 1.0f}}}},
        {"no opaque pixel gives nothing",
         {"......", "......", "......", "......"},
         aurel::kAnswerNo,
         {},
         {"......", "......", "......", "......"},
         {},
         {}},
        {"a colour-keyed sheet answered yes",
         {"kkkkkkkkk", "krrrrkkkk", "krrrrkrrk", "krrrrkrrk", "krrrrkkkk", "kkkkkkkkk"},
         aurel::kAnswerYes,
         {{1, 1, 1, 5, 5}, {2, 6, 2, 8, 4}},
         {".........", ".1111....", ".1111.22.", ".1111.22.", ".1111....", "........."},
         {{0, 1, 1, 4, 4}},
         {{{0.0f, 1.0f}}}},
    };
    return cases;
}

std::vector<std::string> MaskRows(const WirrelTexImage& image) {
    std::vector<std::string> rows;
    for (std::uint32_t y = 0; y < image.mask.height; ++y) {
        std::string row;
        for (std::uint32_t x = 0; x < image.mask.width; ++x) {
            const std::uint32_t cell = image.mask.At(static_cast<int>(x), static_cast<int>(y));
            row += cell == 0 ? '.' : static_cast<char>('0' + cell);
        }
        rows.push_back(row);
    }
    return rows;
}

TEST(Detection, RegionsMaskTexturesAndMarks) {
    for (const DetectCase& c : Cases()) {
        SCOPED_TRACE(c.name);
        test::ScriptedPrompt prompt;
        SelectionTracker textures;
        SelectionTracker images;
        int keyChoice = -1;
        auto probe = Sheet(c.rows);
        std::vector<TexRegion> regions;
        prompt.Answer(c.answer);
        DetectRegions(regions, *probe, prompt, keyChoice, images, 0);
        EXPECT_EQ(keyChoice, c.answer == aurel::kAnswerYes ? 1 : 0);
        EXPECT_EQ(prompt.asked.size(), c.answer == 0 ? 0u : 1u);
        EXPECT_EQ(regions, c.regions);
        EXPECT_EQ(MaskRows(*probe), c.mask);

        WirrelDoc doc;
        auto image = Sheet(c.rows);
        doc.SetImage(0, image);
        doc.Wirrel().textures.push_back({1, 0, 0, 2, 2});  // on another image: stays first
        textures.SetCurrent(0, 0);
        keyChoice = -1;
        prompt.Answer(c.answer);
        ASSERT_TRUE(ApplyDetection(false, *image, 0, doc, prompt, textures, keyChoice, images));
        std::vector<WirrelTexture> expected{{1, 0, 0, 2, 2}};
        expected.insert(expected.end(), c.textures.begin(), c.textures.end());
        EXPECT_EQ(doc.Wirrel().textures, expected);
        // The first new texture becomes current; without one the selection stays.
        EXPECT_EQ(textures.currentItem, c.textures.empty() ? -1 : 1);
        ASSERT_EQ(image->marks.size(), c.marks.size());
        for (std::size_t t = 0; t < c.marks.size(); ++t) {
            EXPECT_EQ(image->marks[static_cast<int>(t) + 1], c.marks[t]);
        }
    }
}

TEST(Detection, ColourKeyQuestionAndConversion) {
    const std::vector<std::string> rows{"kkkkkk", "krrrrk", "krrrrk", "krrrrk", "krrrrk", "kkkkkk"};
    WirrelDoc doc;
    auto image = Sheet(rows);
    doc.SetImage(0, Sheet({"...."}));
    doc.SetImage(1, image);
    test::ScriptedPrompt prompt;
    SelectionTracker textures;
    SelectionTracker images;
    int keyChoice = -1;
    prompt.Answer(aurel::kAnswerYes);
    ASSERT_TRUE(ApplyDetection(false, *image, 1, doc, prompt, textures, keyChoice, images));
    ASSERT_EQ(prompt.asked.size(), 1u);
    const aurel::PromptRequest& asked = prompt.asked[0];
    EXPECT_EQ(asked.title.Utf8(), "Color key");
    EXPECT_EQ(asked.text.Utf8(),
              "This image appears to use a color key (red = 255, green = 0, blue = 255) instead of alpha. "
              "Convert color key to alpha?\n\nNote that this will not work correctly for images with "
              "antialiased edges.");
    EXPECT_EQ(asked.buttons, aurel::PromptButtons::YesNo);
    EXPECT_EQ(asked.icon, aurel::PromptIcon::Question);
    EXPECT_EQ(images.currentItem, 1);  // the image asked about is on show
    EXPECT_EQ(image->colorKey, 0xFF00FFu);
    EXPECT_EQ(image->unkeyed.Row(0)[0], test::kKeyColour);
    EXPECT_EQ(image->surface.Row(0)[0], test::kKeyColour);
    EXPECT_EQ(image->surface.Row(1)[1], 0xFFC02020u);
    EXPECT_EQ(doc.Wirrel().textures, (std::vector<WirrelTexture>{{1, 1, 1, 4, 4}}));

    // A second run starts from the file's pixels and asks again; No keeps them.
    keyChoice = -1;
    prompt.Answer(aurel::kAnswerNo);
    ASSERT_TRUE(ApplyDetection(false, *image, 1, doc, prompt, textures, keyChoice, images));
    EXPECT_EQ(prompt.asked.size(), 2u);
    EXPECT_EQ(image->colorKey, 0u);
    EXPECT_TRUE(image->unkeyed.IsEmpty());
    EXPECT_EQ(image->surface.Row(1)[1], 0x00C02020u);
    EXPECT_TRUE(doc.Wirrel().textures.empty());
    EXPECT_EQ(textures.currentItem, -1);
}

TEST(Detection, SkinWarningAndKeepTextures) {
    WirrelDoc doc;
    auto image = Sheet({"####.####", "####.####", "####.####", "####.####"});
    doc.SetImage(0, image);
    doc.Wirrel().textures = {{0, 0, 0, 2, 2}, {0, 5, 0, 4, 4}};
    doc.Wirrel().skins = {{1}};
    test::ScriptedPrompt prompt;
    SelectionTracker textures;
    SelectionTracker images;
    int keyChoice = -1;
    const Wirrel before = doc.Wirrel();
    prompt.Answer(aurel::kAnswerCancel);
    EXPECT_FALSE(ApplyDetection(false, *image, 0, doc, prompt, textures, keyChoice, images));
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "Warning");
    EXPECT_EQ(prompt.asked[0].text.Utf8(), "WARNING! Skins using this texture will be reset.");
    EXPECT_EQ(prompt.asked[0].buttons, aurel::PromptButtons::OkCancel);
    EXPECT_EQ(prompt.asked[0].icon, aurel::PromptIcon::Warning);
    EXPECT_EQ(doc.Wirrel(), before);
    EXPECT_EQ(keyChoice, -1);

    // Keeping textures only labels the mask and marks what lies on the image.
    EXPECT_TRUE(ApplyDetection(true, *image, 0, doc, prompt, textures, keyChoice, images));
    EXPECT_EQ(doc.Wirrel(), before);
    EXPECT_EQ(image->marks.size(), 2u);
    EXPECT_EQ(image->marks[1], (std::vector<TexMark>{{0.0f, 1.0f}}));

    prompt.Answer(aurel::kAnswerOk);
    keyChoice = -1;
    EXPECT_TRUE(ApplyDetection(false, *image, 0, doc, prompt, textures, keyChoice, images));
    EXPECT_TRUE(doc.Wirrel().skins.empty());
    EXPECT_EQ(doc.Wirrel().textures, (std::vector<WirrelTexture>{{0, 0, 0, 4, 4}, {0, 5, 0, 4, 4}}));
    EXPECT_EQ(textures.currentItem, -1);  // as many textures as before: left at -1
}

TEST(Detection, FilterRegions) {
    struct Case {
        const char* name;
        std::vector<TexRegion> in;
        std::vector<int> kept;  // labels
    };
    const Case cases[] = {
        {"equal boxes leave the later", {{1, 0, 0, 5, 5}, {2, 0, 0, 5, 5}}, {2}},
        {"overlapping boxes both stay", {{1, 0, 0, 5, 5}, {2, 3, 3, 8, 8}}, {1, 2}},
        {"a later box inside goes", {{1, 0, 0, 10, 10}, {2, 2, 2, 6, 6}, {3, 12, 0, 16, 4}}, {1, 3}},
        {"a covered box is replaced by the next", {{1, 2, 2, 6, 6}, {2, 3, 3, 7, 7}, {3, 0, 0, 10, 10}}, {3}},
        {"4 by 4 stays, 3 by 100 goes", {{1, 0, 0, 3, 100}, {2, 10, 0, 14, 4}, {3, 20, 0, 120, 3}}, {2}},
        {"small boxes go before containment", {{1, 0, 0, 30, 3}, {2, 1, 0, 5, 4}}, {2}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<TexRegion> regions = c.in;
        FilterRegions(regions);
        std::vector<int> labels;
        for (const TexRegion& r : regions) {
            labels.push_back(r.label);
        }
        EXPECT_EQ(labels, c.kept);
    }
}

TEST(Detection, FloodModesAndBounds) {
    auto image = Sheet({"##..", "##..", "..##", "..##"});
    auto cells = [&] {
        std::vector<std::uint32_t> out;
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 4; ++x) {
                out.push_back((image->surface.Row(y)[x] >> 24) != 0 ? kCellUnfilled : 0);
            }
        }
        return out;
    };
    struct Case {
        int mode;
        int maxX;
        TexRegion rect;
        std::uint32_t farCorner;
    };
    const Case cases[] = {
        {kFloodEdges, 3, {0, 0, 0, 1, 1}, kCellUnfilled},
        {kFloodDiagonals, 3, {0, 0, 0, 3, 3}, 7},
        {kFloodDiagonals, 2, {0, 0, 0, 2, 3}, kCellUnfilled},
    };
    for (const Case& c : cases) {
        std::vector<std::uint32_t> raster = cells();
        TexRegion rect;
        FloodRegion(raster.data(), 16, 0, 0, 0, 0, c.maxX, 3, 7, &rect, c.mode);
        EXPECT_EQ(rect, c.rect);
        EXPECT_EQ(raster[15], c.farCorner);
        EXPECT_EQ(raster[5], 7u);
    }
}

// Random sheets against a plain breadth-first labelling of 8-connected pixels in scan order.
TEST(Detection, LabelsAreTheEightConnectedRegionsInScanOrder) {
    std::mt19937 rng(5);
    for (int sheet = 0; sheet < 30; ++sheet) {
        const int width = 8 + static_cast<int>(rng() % 40);
        const int height = 8 + static_cast<int>(rng() % 40);
        const unsigned density = 30 + rng() % 40;
        std::vector<std::string> rows(height, std::string(width, '.'));
        for (auto& row : rows) {
            for (char& c : row) {
                c = rng() % 100 < density ? '#' : '.';
            }
        }
        std::vector<std::uint32_t> labels(static_cast<std::size_t>(width) * height, 0);
        std::vector<TexRegion> expected;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (rows[y][x] != '#' || labels[y * width + x] != 0) {
                    continue;
                }
                const auto label = static_cast<std::uint32_t>(expected.size() + 1);
                TexRegion box{static_cast<std::int32_t>(label), x, y, x + 1, y + 1};
                std::vector<std::pair<int, int>> open{{x, y}};
                labels[y * width + x] = label;
                while (!open.empty()) {
                    const auto [px, py] = open.back();
                    open.pop_back();
                    box = {box.label, std::min(box.left, px), std::min(box.top, py),
                           std::max(box.right, px + 1), std::max(box.bottom, py + 1)};
                    for (int ny = py - 1; ny <= py + 1; ++ny) {
                        for (int nx = px - 1; nx <= px + 1; ++nx) {
                            if (nx >= 0 && ny >= 0 && nx < width && ny < height && rows[ny][nx] == '#' &&
                                labels[ny * width + nx] == 0) {
                                labels[ny * width + nx] = label;
                                open.emplace_back(nx, ny);
                            }
                        }
                    }
                }
                expected.push_back(box);
            }
        }
        auto image = Sheet(rows);
        test::ScriptedPrompt prompt;
        SelectionTracker images;
        int keyChoice = -1;
        std::vector<TexRegion> regions;
        DetectRegions(regions, *image, prompt, keyChoice, images, 0);
        EXPECT_EQ(regions, expected) << "sheet " << sheet;
        EXPECT_EQ(image->mask.cells, labels) << "sheet " << sheet;
    }
}

TEST(Detection, BorderKeyCensus) {
    struct Case {
        const char* name;
        std::vector<std::string> rows;
        std::uint32_t key;
    };
    const Case cases[] = {
        {"most frequent border word", {"aaab", "b##b", "bbbb"}, test::PixelOf('b')},
        {"a tie takes the lowest word", {"ab", "ba"}, test::PixelOf('a')},
        {"the inside doesn't count", {"aaaa", "bbbb", "bbbb", "aaaa"}, test::PixelOf('a')},
        {"one row counts twice", {"cba"}, test::PixelOf('a')},
        {"empty", {}, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(BorderKey(Sheet(c.rows)->surface), c.key);
    }
}

TEST(Detection, OnePixelWideTextureHasNanMarks) {
    auto image = Sheet({"#...", "#...", "#...", "#..."});
    test::ScriptedPrompt prompt;
    SelectionTracker images;
    int keyChoice = -1;
    std::vector<TexRegion> regions;
    DetectRegions(regions, *image, prompt, keyChoice, images, 0);
    image->UpdateMarks(0, 0, 0, 1, 4);
    ASSERT_EQ(image->marks[0].size(), 1u);
    EXPECT_TRUE(std::isnan(image->marks[0][0].first));
    EXPECT_EQ(image->marks[0][0].second, 1.0f);
}

}  // namespace
}  // namespace kovra
