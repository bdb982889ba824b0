#include "bitmap/shapes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bitmap/image_surface.h"

namespace {

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

aurel::ImageSurface Blank(int width, int height) {
    aurel::ImageSurface surface;
    surface.Resize(width, height);
    return surface;
}

}  // namespace

TEST(Shapes, FillRectIncludesAllEdgesAndClipsOnEverySide) {
    aurel::ImageSurface s = Blank(6, 4);
    s.FillRect(-3, 2, 1, 9, kInk);   // left and bottom outside
    s.FillRect(4, -5, 40, 0, kInk);  // top and right outside
    s.FillRect(3, 1, 2, 1, kInk);    // right below left: nothing
    EXPECT_EQ(Picture(s), (std::vector<std::string>{"....##", "......", "##....", "##...."}));
}

TEST(Shapes, DrawRectIsOnePixelLargerThanFillRect) {
    aurel::ImageSurface s = Blank(6, 5);
    s.DrawRect(1, 1, 3, 2, kInk);
    EXPECT_EQ(Picture(s), (std::vector<std::string>{"......", ".####.", ".#..#.", ".####.", "......"}));

    aurel::ImageSurface clipped = Blank(3, 3);
    clipped.DrawRect(-1, -1, 0, 0, kInk);  // only the right and bottom lines show
    EXPECT_EQ(Picture(clipped), (std::vector<std::string>{".#.", "##.", "..."}));
}

TEST(Shapes, ZeroAlphaDrawsNothingAndClearWritesTheWholeWord) {
    aurel::ImageSurface s = Blank(3, 2);
    s.FillRect(0, 0, 2, 1, 0x00FFFFFF);
    s.DrawRect(0, 0, 1, 0, 0x00FFFFFF);
    EXPECT_EQ(Picture(s), (std::vector<std::string>{"...", "..."}));
    s.Clear(0x00123456);
    EXPECT_EQ(s.Row(1)[2], 0x00123456u);
}
