// Random shapes, about half of each outside the bitmap, through every drawing routine. Under the Sanitize
// preset any read or write beyond a pixel block stops the test; the padding at the end of each target row
// catches writes that would wrap into the next row in any build.

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <functional>
#include <iterator>
#include <random>
#include <vector>

#include "bitmap/blit.h"
#include "bitmap/circles.h"
#include "bitmap/lines.h"
#include "bitmap/quad.h"
#include "bitmap/shapes.h"
#include "bitmap/text.h"

TEST(Robustness, RandomShapesHalfOutsideStayInsideTheirBitmaps) {
    constexpr int kWidth = 23, kHeight = 17, kSpan = kWidth + 3;
    constexpr std::uint32_t kGuard = 0xDEADBEEF;
    std::mt19937 random(1234);
    auto integer = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    auto real = [&](float a, float b) { return std::uniform_real_distribution<float>(a, b)(random); };
    auto x = [&] { return real(-kWidth, 2 * kWidth); };
    auto y = [&] { return real(-kHeight, 2 * kHeight); };
    auto corners = [&] { return std::array<float, 8>{x(), y(), x(), y(), x(), y(), x(), y()}; };
    auto u = [&] { return real(-6, 18); };  // a source coordinate, often outside
    auto sourceCorners = [&] { return std::array<float, 8>{u(), u(), u(), u(), u(), u(), u(), u()}; };

    std::vector<std::uint32_t> pixels(kSpan * kHeight);
    for (int i = 0; i < kSpan * kHeight; ++i) {
        pixels[i] = i % kSpan < kWidth ? random() : kGuard;
    }
    std::vector<std::uint32_t> texels(11 * 7), small(5 * 4);
    for (std::uint32_t& t : texels)
        t = random();
    const aurel::WrapperBitmap source(texels.data(), 11, 7, 11), tiny(small.data(), 5, 4, 5);

    using Target = aurel::WrapperBitmap;
    auto colour = [&] { return aurel::Color32(random()); };
    auto n = [&] { return integer(-30, 50); };  // a whole coordinate or size
    auto on = [&] { return integer(0, 1) == 1; };
    const std::function<void(Target&)> draws[] = {
        [&](Target& t) { aurel::FillRect(t, n(), n(), n(), n(), colour()); },
        [&](Target& t) { aurel::DrawRect(t, n(), n(), n(), n(), colour()); },
        [&](Target& t) { aurel::DrawLine(t, n(), n(), n(), n(), colour()); },
        [&](Target& t) { aurel::DrawLineF(t, x(), y(), x(), y(), colour(), real(0, 1), on()); },
        [&](Target& t) { aurel::DrawCircle(t, float(n()), float(n()), 0.5f * integer(0, 20), colour()); },
        [&](Target& t) { aurel::FillCircle(t, x(), y(), real(0, 20), colour()); },
        [&](Target& t) {
            aurel::DrawRoundRect(t, x(), y(), real(-5, 40), real(-5, 40), real(0, 12), colour(), real(0, 1),
                                 on());
        },
        [&](Target& t) { aurel::FillTriangle(t, x(), y(), x(), y(), x(), y(), colour(), real(0, 1)); },
        [&](Target& t) {
            aurel::Blit(source, real(-12, 20), real(-8, 14), real(-16, 16), real(-10, 10), t, n(), n(),
                        integer(-50, 50), integer(-50, 50), real(0, 1.2f), on());
        },
        [&](Target& t) {
            aurel::DrawQuad(source, real(-4, 10), real(-3, 6), real(-4, 16), real(-4, 10), t, corners(),
                            real(0, 1.2f), on() ? colour() : aurel::Color32());
        },
        [&](Target& t) { aurel::DrawQuadMapped(source, sourceCorners(), t, corners(), 1.0f, colour()); },
        [&](Target& t) { aurel::DrawQuadMask(source, 0, 0, 11, 7, t, corners(), colour()); },
        [&](Target& t) { aurel::DrawQuadMappedMask(source, sourceCorners(), t, corners(), colour()); },
        [&](Target& t) { aurel::Halve(t, on() ? source : tiny); },
        [&](Target& t) {
            aurel::DeviceContext context;
            context.Select(t);
            aurel::TextStyle style{
                .wordBreak = on(), .outline = on(), .outlineColor = colour(), .outlineWidth = integer(0, 3)};
            aurel::DrawText(context, "Bone\nIK tail", n(), n(), integer(-5, 60), integer(-5, 40), colour(),
                            aurel::TextFont{.size = integer(1, 30)}, style);
        },
    };
    for (int trial = 0; trial < 6000; ++trial) {
        Target target(pixels.data(), kWidth, kHeight, kSpan, trial % 2 == 1);
        draws[trial % std::size(draws)](target);
        for (int row = 0; row < kHeight; ++row) {
            for (int column = kWidth; column < kSpan; ++column) {
                ASSERT_EQ(pixels[row * kSpan + column], kGuard) << "trial " << trial;
            }
        }
    }
}
