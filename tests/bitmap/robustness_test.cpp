// Random shapes, about half of each outside the bitmap, through every drawing routine. Under the Sanitize
// preset any read or write beyond a pixel block stops the test; the padding at the end of each target row
// catches writes that would wrap into the next row in any build.

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <random>
#include <vector>

#include "bitmap/blit.h"
#include "bitmap/circles.h"
#include "bitmap/lines.h"
#include "bitmap/quad.h"
#include "bitmap/shapes.h"
#include "bitmap/text.h"

namespace {

constexpr int kWidth = 23, kHeight = 17, kPadding = 3;
constexpr std::uint32_t kGuard = 0xDEADBEEF;

class RandomShapes {
public:
    explicit RandomShapes(unsigned seed) : random_(seed) {}

    std::uint32_t Word() { return random_(); }
    int Int(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
    float Float(float low, float high) { return std::uniform_real_distribution<float>(low, high)(random_); }
    float X() { return Float(-kWidth, 2 * kWidth); }
    float Y() { return Float(-kHeight, 2 * kHeight); }
    std::array<float, 8> Corners() { return {X(), Y(), X(), Y(), X(), Y(), X(), Y()}; }
    std::array<float, 8> SourceCorners() {
        std::array<float, 8> c;
        for (float& v : c)
            v = Float(-6, 18);
        return c;
    }

private:
    std::mt19937 random_;
};

}  // namespace

TEST(Robustness, RandomShapesHalfOutsideStayInsideTheirBitmaps) {
    RandomShapes r(1234);
    std::vector<std::uint32_t> pixels((kWidth + kPadding) * kHeight);
    for (int i = 0; i < static_cast<int>(pixels.size()); ++i) {
        pixels[i] = i % (kWidth + kPadding) < kWidth ? r.Word() : kGuard;
    }
    std::vector<std::uint32_t> texels(11 * 7);
    for (std::uint32_t& t : texels)
        t = r.Word();
    const aurel::WrapperBitmap source(texels.data(), 11, 7, 11);
    std::vector<std::uint32_t> small(5 * 4);
    const aurel::WrapperBitmap tiny(small.data(), 5, 4, 5);

    for (int trial = 0; trial < 6000; ++trial) {
        aurel::WrapperBitmap target(pixels.data(), kWidth, kHeight, kWidth + kPadding, trial % 2 == 1);
        const aurel::Color32 colour = r.Word();
        switch (trial % 15) {
            case 0:
                aurel::FillRect(target, r.Int(-30, 50), r.Int(-30, 50), r.Int(-30, 50), r.Int(-30, 50),
                                colour);
                break;
            case 1:
                aurel::DrawRect(target, r.Int(-30, 50), r.Int(-30, 50), r.Int(-30, 50), r.Int(-30, 50),
                                colour);
                break;
            case 2:
                aurel::DrawLine(target, r.Int(-40, 60), r.Int(-40, 60), r.Int(-40, 60), r.Int(-40, 60),
                                colour);
                break;
            case 3:
                aurel::DrawLineF(target, r.X(), r.Y(), r.X(), r.Y(), colour, r.Float(0, 1), r.Int(0, 1));
                break;
            case 4:
                aurel::DrawCircle(target, static_cast<float>(r.Int(-10, 30)),
                                  static_cast<float>(r.Int(-10, 30)), 0.5f * r.Int(0, 20), colour);
                break;
            case 5:
                aurel::FillCircle(target, r.X(), r.Y(), r.Float(0, 20), colour);
                break;
            case 6:
                aurel::DrawRoundRect(target, r.X(), r.Y(), r.Float(-5, 40), r.Float(-5, 40), r.Float(0, 12),
                                     colour, r.Float(0, 1), r.Int(0, 1));
                break;
            case 7:
                aurel::FillTriangle(target, r.X(), r.Y(), r.X(), r.Y(), r.X(), r.Y(), colour, r.Float(0, 1));
                break;
            case 8:
                aurel::Blit(source, r.Float(-12, 20), r.Float(-8, 14), r.Float(-16, 16), r.Float(-10, 10),
                            target, r.Int(-30, 50), r.Int(-30, 50), r.Int(-50, 50), r.Int(-50, 50),
                            r.Float(0, 1.2f), r.Int(0, 1));
                break;
            case 9:
                aurel::DrawQuad(source, r.Float(-4, 10), r.Float(-3, 6), r.Float(-4, 16), r.Float(-4, 10),
                                target, r.Corners(), r.Float(0, 1.2f),
                                r.Int(0, 1) ? colour : aurel::Color32());
                break;
            case 10:
                aurel::DrawQuadMapped(source, r.SourceCorners(), target, r.Corners(), 1.0f, colour);
                break;
            case 11:
                aurel::DrawQuadMask(source, 0, 0, 11, 7, target, r.Corners(), colour);
                break;
            case 12:
                aurel::DrawQuadMappedMask(source, r.SourceCorners(), target, r.Corners(), colour);
                break;
            case 13:
                aurel::Halve(target, trial % 2 ? source : tiny);
                break;
            case 14: {
                aurel::DeviceContext context;
                context.Select(target);
                aurel::TextStyle style;
                style.outline = r.Int(0, 1);
                style.outlineColor = colour;
                style.outlineWidth = r.Int(0, 3);
                style.wordBreak = r.Int(0, 1);
                aurel::TextFont font;
                font.size = r.Int(1, 30);
                aurel::DrawText(context, "Bone\nIK tail", r.Int(-30, 30), r.Int(-30, 30), r.Int(-5, 60),
                                r.Int(-5, 40), colour, font, style);
                break;
            }
        }
        for (int y = 0; y < kHeight; ++y) {
            for (int x = kWidth; x < kWidth + kPadding; ++x) {
                ASSERT_EQ(pixels[y * (kWidth + kPadding) + x], kGuard) << "trial " << trial;
            }
        }
    }
}
