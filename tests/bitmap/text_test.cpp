#include "bitmap/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <string>

#include "bitmap/image_surface.h"
#include "pictures.h"

namespace {

using aurel::TextAlign;
using aurel::TextFont;
using aurel::TextStyle;

constexpr std::uint32_t kBackground = 0xFF000000;

// Where letters were drawn: the box round every pixel whose colour bytes changed, and their sum.
struct Ink {
    int left = INT_MAX, top = INT_MAX, right = INT_MIN, bottom = INT_MIN;
    long long amount = 0;
};

Ink InkOf(const aurel::ImageSurface& s) {
    Ink ink;
    for (int y = 0; y < s.Height(); ++y) {
        for (int x = 0; x < s.Width(); ++x) {
            const std::uint32_t colour = s.Row(y)[x] & 0xFFFFFF;
            if (colour != (kBackground & 0xFFFFFF)) {
                ink.left = std::min(ink.left, x), ink.right = std::max(ink.right, x);
                ink.top = std::min(ink.top, y), ink.bottom = std::max(ink.bottom, y);
                ink.amount += (colour & 0xFF) + (colour >> 8 & 0xFF) + (colour >> 16);
            }
        }
    }
    return ink;
}

// White text in the box from (10, 10) of a black surface of 140 x 60, aligned alike both ways.
Ink Drawn(const std::string& text, const TextFont& font, TextAlign align = TextAlign::Near,
          bool wordBreak = false, int boxWidth = 120, int boxHeight = 40) {
    TextStyle style;
    style.horizontal = style.vertical = align;
    style.wordBreak = wordBreak;
    aurel::ImageSurface s = kovra::test::Filled(140, 60, kBackground);
    s.DrawText(text, 10, 10, boxWidth, boxHeight, 0xFFFFFFFF, font, style);
    return InkOf(s);
}

}  // namespace

// "Arial", like the default "Segoe UI" of the other tests, is a face the system lacks: its sans stands in.
// The label is longer and taller than its box.
TEST(Text, DrawsLettersClippedToTheBoxAndSetsTheBoxAlpha) {
    aurel::ImageSurface s = kovra::test::Filled(60, 30, kBackground);
    s.DrawText("Kovra bones", 5, 5, 40, 20, 0x80FFFFFF, TextFont{.face = "Arial", .size = 28});
    const Ink ink = InkOf(s);
    ASSERT_GT(ink.amount, 0);
    EXPECT_GE(ink.left, 5);
    EXPECT_GE(ink.top, 5);
    EXPECT_LT(ink.right, 45);
    EXPECT_LT(ink.bottom, 25);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 60; ++x) {
            const bool inBox = x >= 5 && x < 45 && y >= 5 && y < 25;
            ASSERT_EQ(s.Row(y)[x] >> 24, inBox ? 0x80u : 0xFFu) << x << "," << y;
        }
    }
}

TEST(Text, AlignsWithinTheBox) {
    const TextFont font{.size = 14};
    const Ink nearly = Drawn("Pin", font);
    const Ink far = Drawn("Pin", font, TextAlign::Far);
    const Ink centre = Drawn("Pin", font, TextAlign::Centre);
    EXPECT_LE(nearly.left, 12);
    EXPECT_LE(nearly.top, 14);
    EXPECT_GE(far.right, 125);
    EXPECT_GE(far.bottom, 40);
    EXPECT_NEAR((centre.left + centre.right) / 2.0, 70, 2);
    EXPECT_NEAR((centre.top + centre.bottom) / 2.0, 30, 3);
}

TEST(Text, WordBreakWrapsAndLineFeedsAlwaysBreak) {
    const TextFont font{.size = 12};
    const std::string sentence = "one two three four five six";
    const Ink single = Drawn(sentence, font, TextAlign::Near, false, 60, 40);
    const Ink wrapped = Drawn(sentence, font, TextAlign::Near, true, 60, 40);
    EXPECT_LE(wrapped.right, 70);
    EXPECT_GT(wrapped.bottom - wrapped.top, 2 * (single.bottom - single.top));
    EXPECT_GT(Drawn("one\ntwo", font).bottom, Drawn("one two", font).bottom + 6);
}

TEST(Text, StylesChangeTheLetters) {
    const Ink regular = Drawn("Hello", {.size = 16});
    EXPECT_GT(Drawn("Hello", {.size = 16, .bold = true}).amount, regular.amount * 11 / 10);
    EXPECT_NE(Drawn("Hello", {.size = 16, .italic = true}).amount, regular.amount);
    const Ink underlined = Drawn("Hello", {.size = 16, .underline = true});
    EXPECT_GT(underlined.bottom, regular.bottom);
    EXPECT_GT(underlined.amount, regular.amount);
}

TEST(Text, OutlineBandSurroundsTheLetters) {
    aurel::ImageSurface s = kovra::test::Filled(80, 30, kBackground);
    s.DrawText("Io", 5, 5, 60, 20, 0xFF0000FF, TextFont{.size = 16},
               {.outline = true, .outlineColor = 0xFFFF0000});
    const std::uint32_t* pixels = s.Row(0);
    auto strong = [&](int shift) {
        return std::count_if(pixels, pixels + s.ByteSize() / 4,
                             [shift](std::uint32_t p) { return (p >> shift & 0xFF) > 200; });
    };
    EXPECT_GT(strong(16), 10);  // the red band
    EXPECT_GT(strong(0), 10);   // the blue letters over it
}

TEST(Text, ClipsABoxLargerThanTheSurface) {
    aurel::ImageSurface s = kovra::test::Filled(20, 10, kBackground);
    s.DrawText("Edge", -30, -20, 200, 100, 0x40FFFFFF, TextFont{.size = 40});  // box larger than the surface
    EXPECT_EQ(s.Row(9)[19] >> 24, 0x40u);
    aurel::ImageSurface().DrawText("Nothing", 0, 0, 10, 10, 0xFFFFFFFF, TextFont{.size = 12});
}
