#include "bitmap/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <string>

#include "bitmap/image_surface.h"
#include "pictures.h"

namespace {

constexpr std::uint32_t kBackground = 0xFF000000;

// Where letters were drawn: the box round every pixel whose colour bytes changed, and their sum.
struct Ink {
    int left = INT_MAX, top = INT_MAX, right = INT_MIN, bottom = INT_MIN;
    long long amount = 0;
    bool Any() const { return amount > 0; }
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

Ink Drawn(const std::string& text, const aurel::TextFont& font, const aurel::TextStyle& style = {},
          int boxWidth = 120, int boxHeight = 40) {
    aurel::ImageSurface s = kovra::test::Filled(140, 60, kBackground);
    s.DrawText(text, 10, 10, boxWidth, boxHeight, 0xFFFFFFFF, font, style);
    return InkOf(s);
}

aurel::TextStyle Aligned(aurel::TextAlign horizontal, aurel::TextAlign vertical) {
    aurel::TextStyle style;
    style.horizontal = horizontal;
    style.vertical = vertical;
    return style;
}

aurel::TextFont Font(int size) {
    aurel::TextFont font;
    font.size = size;
    return font;
}

}  // namespace

TEST(Text, DrawsLettersInTheBoxAndSetsTheBoxAlpha) {
    aurel::ImageSurface s = kovra::test::Filled(60, 30, kBackground);
    s.DrawText("Kovra", 5, 5, 40, 20, 0x80FFFFFF, Font(14));
    const Ink ink = InkOf(s);
    ASSERT_TRUE(ink.Any());
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

TEST(Text, FacesTheSystemLacksResolveToItsSans) {
    aurel::TextFont arial = Font(16);
    arial.face = "Arial";
    EXPECT_TRUE(Drawn("Missing", Font(16)).Any());  // "Segoe UI"
    EXPECT_TRUE(Drawn("Missing", arial).Any());
}

TEST(Text, AlignsWithinTheBox) {
    using aurel::TextAlign;
    const aurel::TextFont font = Font(14);
    const Ink nearly = Drawn("Pin", font);
    const Ink far = Drawn("Pin", font, Aligned(TextAlign::Far, TextAlign::Far));
    const Ink centre = Drawn("Pin", font, Aligned(TextAlign::Centre, TextAlign::Centre));
    EXPECT_LE(nearly.left, 12);
    EXPECT_LE(nearly.top, 14);
    EXPECT_GE(far.right, 125);
    EXPECT_GE(far.bottom, 40);
    EXPECT_NEAR((centre.left + centre.right) / 2.0, 70, 2);
    EXPECT_NEAR((centre.top + centre.bottom) / 2.0, 30, 3);
}

TEST(Text, WordBreakWrapsAndLineFeedsAlwaysBreak) {
    const aurel::TextFont font = Font(12);
    aurel::TextStyle wrap;
    wrap.wordBreak = true;
    const std::string sentence = "one two three four five six";
    const Ink single = Drawn(sentence, font, {}, 60, 40);
    const Ink wrapped = Drawn(sentence, font, wrap, 60, 40);
    EXPECT_LE(wrapped.right, 70);
    EXPECT_GT(wrapped.bottom - wrapped.top, 2 * (single.bottom - single.top));
    EXPECT_GT(Drawn("one\ntwo", font).bottom, Drawn("one two", font).bottom + 6);
}

TEST(Text, StylesChangeTheLetters) {
    const aurel::TextFont plain = Font(16);
    aurel::TextFont bold = plain, italic = plain, underline = plain;
    bold.bold = true;
    italic.italic = true;
    underline.underline = true;
    const Ink regular = Drawn("Hello", plain);
    EXPECT_GT(Drawn("Hello", bold).amount, regular.amount * 11 / 10);
    EXPECT_NE(Drawn("Hello", italic).amount, regular.amount);
    const Ink underlined = Drawn("Hello", underline);
    EXPECT_GT(underlined.bottom, regular.bottom);
    EXPECT_GT(underlined.amount, regular.amount);
}

TEST(Text, OutlineBandSurroundsTheLetters) {
    aurel::TextStyle style;
    style.outline = true;
    style.outlineColor = 0xFFFF0000;
    aurel::ImageSurface s = kovra::test::Filled(80, 30, kBackground);
    s.DrawText("Io", 5, 5, 60, 20, 0xFF0000FF, Font(16), style);
    const std::uint32_t* pixels = s.Row(0);
    const std::size_t count = s.ByteSize() / 4;
    auto strong = [&](int shift) {
        return std::count_if(pixels, pixels + count,
                             [shift](std::uint32_t p) { return (p >> shift & 0xFF) > 200; });
    };
    EXPECT_GT(strong(16), 10);  // the red band
    EXPECT_GT(strong(0), 10);   // the blue letters over it
}

TEST(Text, ClipsToTheBoxAndTheSurface) {
    const Ink clipped = Drawn("A long label cut short", Font(20), {}, 30, 12);
    EXPECT_LT(clipped.right, 40);
    EXPECT_LT(clipped.bottom, 22);

    aurel::ImageSurface s = kovra::test::Filled(20, 10, kBackground);
    s.DrawText("Edge", -30, -20, 200, 100, 0x40FFFFFF, Font(40));  // box larger than the surface
    EXPECT_EQ(s.Row(9)[19] >> 24, 0x40u);
    aurel::ImageSurface().DrawText("Nothing", 0, 0, 10, 10, 0xFFFFFFFF, Font(12));
}
