#include "images/wirrel_tex_image.h"

#include <algorithm>
#include <map>

namespace kovra {

void WirrelTexImage::UpdateMarks(std::int32_t index, int x, int y, int width, int height) {
    const int right = x + width - 1;
    const int bottom = y + height - 1;
    // One point per region, at the last start of a run of it in scan order, in the order of the labels.
    std::map<std::uint32_t, TexMark> points;
    if (surface.IsEmpty()) {
        points[0] = {0.0f, 0.0f};
    } else {
        // Cells outside the mask count as empty.
        const int lastRow = std::min(bottom, static_cast<int>(mask.height) - 1);
        const int lastColumn = std::min(right, static_cast<int>(mask.width) - 1);
        for (int row = std::max(y, 0); row <= lastRow; ++row) {
            std::uint32_t previous = 0;
            for (int column = std::max(x, 0); column <= lastColumn; ++column) {
                const std::uint32_t cell = mask.At(column, row);
                if (cell != 0 && cell != previous) {
                    // A rectangle one pixel wide or high divides 0 by 0 here, and keeps the NaN.
                    points[cell] = {static_cast<float>(column - x) / static_cast<float>(right - x),
                                    static_cast<float>(row - y) / static_cast<float>(bottom - y)};
                    previous = cell;
                }
            }
        }
    }
    std::vector<TexMark>& list = marks[index];
    list.clear();
    for (const auto& [cell, point] : points) {
        list.push_back(point);
    }
}

}  // namespace kovra
