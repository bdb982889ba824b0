#include "bitmap/blend.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

using aurel::Color32;

// The fill rules for one multiplier, byte by byte: 0 leaves, 256 replaces, 128, 64 and 192 add halves and
// quarters of whole words, anything else moves each byte toward the colour's (toward k for alpha).
std::uint32_t ExpectedFill(std::uint32_t p, std::uint32_t c, int k) {
    auto half = [](std::uint32_t w) { return w >> 1 & 0x7F7F7F7Fu; };
    auto quarter = [](std::uint32_t w) { return w >> 2 & 0x3F3F3F3Fu; };
    if (k == 0)
        return p;
    if (k == 256)
        return c;
    if (k == 128)
        return half(p) + half(c);
    if (k == 64)
        return half(p) + quarter(p) + quarter(c);
    if (k == 192)
        return quarter(p) + quarter(c) + half(c);
    std::uint32_t out = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const int old = p >> shift & 0xFF;
        const int target = shift == 24 ? k : static_cast<int>(c >> shift & 0xFF);
        out |= (static_cast<std::uint32_t>((old - target) * (256 - k) / 256 + target) & 0xFF) << shift;
    }
    return out;
}

struct Pair {
    std::uint32_t pixel, colour;
};
const Pair kSamples[] = {{0x00000000, 0xFFFFFFFF}, {0xFFFFFFFF, 0x00000000}, {0x80402010, 0x10204080},
                         {0x12345678, 0x9ABCDEF0}, {0xFF00FF00, 0x00FF00FF}, {0x7F7F7F7F, 0x80808080}};

}  // namespace

TEST(Blend, ColourAlphaGivesItselfAsMultiplierAnd255Gives256) {
    for (int alpha = 0; alpha < 255; ++alpha) {
        EXPECT_EQ(aurel::ColorMultiplier(Color32(0, 0, 0, alpha)), alpha);
    }
    EXPECT_EQ(aurel::ColorMultiplier(0xFF000000), 256);
    EXPECT_EQ(aurel::OpacityMultiplier(0.4f), 102);
    EXPECT_EQ(aurel::OpacityMultiplier(1.5f), 256);
    EXPECT_EQ(aurel::OpacityMultiplier(-0.5f), 0);
}

TEST(Blend, FillAndFillSpanMatchTheRulesForEveryMultiplier) {
    constexpr std::uint32_t kColour = 0xC0A05030;
    for (int k = 0; k <= 256; ++k) {
        std::vector<std::uint32_t> row;
        for (const Pair& s : kSamples) {
            ASSERT_EQ(aurel::BlendColor(s.pixel, s.colour, k), ExpectedFill(s.pixel, s.colour, k))
                << std::hex << s.pixel << " " << s.colour << std::dec << " k=" << k;
            row.push_back(s.pixel);
        }
        aurel::FillSpan(row.data(), static_cast<int>(row.size()), kColour, k);
        for (std::size_t i = 0; i < row.size(); ++i) {
            ASSERT_EQ(row[i], ExpectedFill(kSamples[i].pixel, kColour, k)) << "span, k=" << k << " i=" << i;
        }
    }
}

TEST(Blend, WorkedExamples) {
    struct Case {
        const char* what;
        std::uint32_t got, expected;
    } cases[] = {
        {"three quarters", aurel::BlendColor(0x00000000, 0xFFFFFFFF, 192), 0xBEBEBEBE},
        // The division truncates toward zero; alpha heads for k, not for the colour's alpha.
        {"k 100 up", aurel::BlendColor(0x00000000, 0xFFFFFFFF, 100), 0x28646464},
        {"k 100 down", aurel::BlendColor(0xFFFFFFFF, 0x00000000, 100), 0xC29B9B9B},
        {"keep alpha", aurel::BlendKeepAlpha(0x11FF8000, 0x7F00FF40), 0x117FBF20},
        // A transparent source still moves a brighter destination down by one: the shift is arithmetic.
        {"keep alpha, clear source", aurel::BlendKeepAlpha(0xFF646464, 0x00000000), 0xFF636363},
        {"opacity 1 takes the alpha", aurel::BlendOpacity(0x00000000, 0xFF808080, 256), 0xFF808080},
        {"opacity 0.4", aurel::BlendOpacity(0xFF000000, 0x80FF0000, 102), 0xCC320000},
        {"tint", aurel::BlendTint(0xFF000000, 0x01000000, 0x7FFFFFFF), 0xFF7F7F7F},
        {"tint skips clear source", aurel::BlendTint(0xFF000000, 0x00FFFFFF, 0x7FFFFFFF), 0xFF000000},
        {"mask", aurel::BlendMask(0x12345678, 0x01000000, 7), 7},
        {"mask skips clear source", aurel::BlendMask(0x12345678, 0x00FFFFFF, 7), 0x12345678},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.got, c.expected) << c.what;
    }
}
