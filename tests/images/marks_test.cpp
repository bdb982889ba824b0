// The marks of a texture: one for each labelled region reaching into its rectangle, at the last run start
// of that region in scan order, relative to the rectangle.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "images/wirrel_tex_image.h"

namespace kovra {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

WirrelTexImage WithMask(int width, const std::vector<std::uint32_t>& cells) {
    WirrelTexImage image;
    const int height = static_cast<int>(cells.size()) / width;
    image.surface.Resize(width, height);
    image.mask.width = static_cast<std::uint32_t>(width);
    image.mask.height = static_cast<std::uint32_t>(height);
    image.mask.stride = image.mask.width * 4;
    image.mask.cells = cells;
    return image;
}

bool SameFloat(float a, float b) {
    return (std::isnan(a) && std::isnan(b)) || a == b;
}

TEST(UpdateMarks, OneMarkPerRegionAtItsLastRunStart) {
    // Regions 1, 2 and 3; a zero cell doesn't end a run, so "1 0 1" on a row starts region 1 once.
    const std::vector<std::uint32_t> regions = {0, 1, 1, 0,  //
                                                2, 1, 0, 3,  //
                                                2, 2, 1, 3};
    const struct {
        const char* name;
        std::vector<std::uint32_t> cells;
        int width;
        int x, y, w, h;
        std::vector<TexMark> marks;
    } cases[] = {
        {"whole picture", regions, 4, 0, 0, 4, 3, {{2.0f / 3.0f, 1.0f}, {0.0f, 1.0f}, {1.0f, 1.0f}}},
        {"part of it", regions, 4, 1, 1, 3, 2, {{0.5f, 1.0f}, {0.0f, 1.0f}, {1.0f, 1.0f}}},
        {"no region", regions, 4, 0, 0, 1, 1, {}},
        {"one pixel wide", regions, 4, 1, 0, 1, 3, {{kNaN, 0.5f}, {kNaN, 1.0f}}},
        {"one pixel high", {1, 0, 1}, 3, 0, 0, 3, 1, {{0.0f, kNaN}}},
        {"a run of a region after another", {1, 2, 1, 2}, 4, 0, 0, 4, 1, {{2.0f / 3.0f, kNaN}, {1.0f, kNaN}}},
        {"beyond the mask", {5}, 1, 0, 0, 2, 2, {{0.0f, 0.0f}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        WirrelTexImage image = WithMask(c.width, c.cells);
        image.marks[7] = {{9.0f, 9.0f}};
        image.UpdateMarks(7, c.x, c.y, c.w, c.h);
        const std::vector<TexMark>& marks = image.marks.at(7);
        ASSERT_EQ(marks.size(), c.marks.size());
        for (std::size_t i = 0; i < marks.size(); ++i) {
            EXPECT_TRUE(SameFloat(marks[i].first, c.marks[i].first)) << i << ": " << marks[i].first;
            EXPECT_TRUE(SameFloat(marks[i].second, c.marks[i].second)) << i << ": " << marks[i].second;
        }
    }
}

TEST(UpdateMarks, AnImageWithoutPixelsGivesOneMarkAtTheCorner) {
    WirrelTexImage image;
    image.UpdateMarks(3, 5, 5, 10, 10);
    EXPECT_EQ(image.marks.at(3), std::vector<TexMark>{TexMark(0.0f, 0.0f)});

    // Each texture keeps its own entry until it is erased.
    image.UpdateMarks(4, 0, 0, 1, 1);
    image.EraseMarks(3);
    EXPECT_FALSE(image.marks.contains(3));
    EXPECT_TRUE(image.marks.contains(4));
    image.ClearMarks();
    EXPECT_TRUE(image.marks.empty());
}

}  // namespace
}  // namespace kovra
