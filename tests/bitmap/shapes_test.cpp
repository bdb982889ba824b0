#include "bitmap/shapes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bitmap/image_surface.h"
#include "bitmap/lines.h"
#include "pictures.h"
#include "support/png_image.h"

namespace {

using kovra::test::Filled;

constexpr std::uint32_t kInk = 0xFF0000FF;

// The surface as rows of text: '.' for the background, '#' for ink, '?' for anything else.
std::vector<std::string> Picture(const aurel::ImageSurface& surface) {
    std::vector<std::string> rows;
    for (int y = 0; y < surface.Height(); ++y) {
        std::string row;
        for (int x = 0; x < surface.Width(); ++x) {
            const std::uint32_t p = surface.Row(y)[x];
            row += p == 0 ? '.' : p == kInk ? '#' : '?';
        }
        rows.push_back(row);
    }
    return rows;
}

}  // namespace

TEST(Shapes, FillRectIncludesAllEdgesAndClipsOnEverySide) {
    aurel::ImageSurface s = Filled(6, 4, 0);
    s.FillRect(-3, 2, 1, 9, kInk);       // left and bottom outside
    s.FillRect(4, -5, 40, 0, kInk);      // top and right outside
    s.FillRect(3, 1, 2, 1, kInk);        // right below left: nothing
    s.FillRect(0, 0, 5, 3, 0x00FFFFFF);  // no alpha: nothing
    EXPECT_EQ(Picture(s), (std::vector<std::string>{"....##", "......", "##....", "##...."}));
    s.Clear(0x00123456);  // unlike the fills, Clear writes whole words
    EXPECT_EQ(s.Row(3)[5], 0x00123456u);
}

TEST(Shapes, DrawRectIsOnePixelLargerThanFillRect) {
    aurel::ImageSurface s = Filled(6, 5, 0);
    s.DrawRect(1, 1, 3, 2, kInk);
    s.DrawRect(0, 0, 2, 2, 0x00FFFFFF);  // no alpha: nothing
    EXPECT_EQ(Picture(s), (std::vector<std::string>{"......", ".####.", ".#..#.", ".####.", "......"}));

    aurel::ImageSurface clipped = Filled(3, 3, 0);
    clipped.DrawRect(-1, -1, 0, 0, kInk);  // only the right and bottom lines show
    EXPECT_EQ(Picture(clipped), (std::vector<std::string>{".#.", "##.", "..."}));
}

TEST(Shapes, Lines) {
    aurel::ImageSurface s = Filled(32, 32, 0xFF000000);
    s.DrawLine(2, 2, 29, 9, 0xFFFFFFFF);
    s.DrawLine(3, 30, 10, 1, 0xC0FF4040);
    s.DrawLine(20, 28, 29, 28, 0x80FFFFFF);  // the packed forms
    s.DrawLine(29, 29, 20, 29, 0x40FFFFFF);
    s.DrawLine(20, 30, 29, 30, 0xC0FFFFFF);
    s.DrawLine(20, 31, 29, 31, 0x64FFFFFF);   // the general form
    s.DrawLine(-10, 20, 40, 25, 0xFF40FF40);  // clipped on the left and the right
    s.DrawLine(15, -5, 18, 40, 0xFF4040FF);   // clipped at the top and the bottom
    s.DrawLineF(1.5f, 12.25f, 20.75f, 17.5f, 0xFFFFFF00, 1.0f, true);
    s.DrawLineF(1.5f, 14.25f, 20.75f, 19.5f, 0xFFFFFF00, 0.75f, false);
    EXPECT_TRUE(kovra::test::MatchesReference(s.Bitmap(), "bitmap/lines"));
}

TEST(Shapes, LinesOnABottomUpBitmapCountRowsFromTheBottom) {
    std::vector<std::uint32_t> pixels(4 * 3, 0);
    aurel::WrapperBitmap flipped(pixels.data(), 4, 3, 4, true);
    aurel::DrawLine(flipped, 0, 0, 3, 0, kInk);
    EXPECT_EQ(pixels[8], kInk);
    EXPECT_EQ(pixels[0], 0u);
}

TEST(Shapes, Circles) {
    aurel::ImageSurface s = Filled(48, 30, 0xFF000000);
    for (int i = 0; i < 6; ++i) {
        s.DrawCircle(5.0f + 8 * i, 8.0f, 1.5f + 0.5f * i, 0xFFFFFFFF);  // the stamped radii
    }
    s.DrawCircle(30.5f, 20.0f, 6.0f, 0xFF40FF40);
    s.FillCircle(12.0f, 21.0f, 5.0f, 0xC0FF4040);
    s.FillCircle(47.0f, 29.0f, 6.0f, 0xFF4040FF);  // clipped right and bottom
    s.DrawCircle(0.0f, 20.0f, 5.0f, 0x80FFFF00);   // clipped left
    s.DrawCircle(25.0f, -1.0f, 3.0f, 0xFFFFFFFF);  // clipped at the top, stamped
    EXPECT_TRUE(kovra::test::MatchesReference(s.Bitmap(), "bitmap/circles"));
}

TEST(Shapes, RoundRectsAndTriangles) {
    aurel::ImageSurface s = Filled(40, 24, 0xFF000000);
    s.DrawRoundRect(2, 2, 16, 10, 4, 0xFFFFFFFF, 1.0f, true);
    s.DrawRoundRect(21, 2, 16, 10, 4, 0xFFFFFFFF, 1.0f, false);
    s.DrawRoundRect(2.6f, 15.2f, 10.9f, 6, 1.5f, 0xFF40FF40, 1.0f, true);  // radius below 2: plain outline
    s.DrawRoundRect(16, 14, 9, 8, 9, 0xFFFF4040, 0.5f, true);              // radius capped to 4
    s.FillTriangle(28, 14, 38, 14, 33, 22, 0xFF4040FF, 1.0f);
    s.FillTriangle(27.5f, 23, 39.5f, 17.5f, 30, 16, 0xFFFFFF00, 0.5f);
    EXPECT_TRUE(kovra::test::MatchesReference(s.Bitmap(), "bitmap/round_rects_triangles"));
}
