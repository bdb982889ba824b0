#include "views/timeline/timeline_layout.h"

#include <algorithm>
#include <cmath>

namespace kovra {

void TimelineLayout::Compute(int width, int height, bool extended, int zoom, int viewLeft, int cellCount) {
    width_ = width;
    height_ = height;
    const int stripBottom = StripBottom();
    const int minTop = kRulerTop + kRulerHeight;
    stripTop_ = extended ? std::max(minTop, stripBottom + 1 - kStripHeightExtended) : minTop;
    const int h = std::max(1, stripBottom - stripTop_ + 1);
    cellWidth_ = std::max(3, static_cast<int>(std::floor(h * 1.33 * zoom / 100.0)));
    clipLeft_ = extended ? kNameColumnWidth : 0;
    origin_ = clipLeft_ - viewLeft;
    // Empty cells fill the rest of the width, for drops and the end marker past the animation's end.
    cellCount = std::max(cellCount, (width - origin_) / Pitch() + 1);
    cells_.resize(static_cast<std::size_t>(std::max(0, cellCount)));
    for (int c = 0; c < cellCount; ++c) {
        const int left = origin_ + c * Pitch();
        cells_[c] = CellRect{left, stripTop_, left + Pitch(), stripBottom};
    }
}

int TimelineLayout::CellAt(int x, int y, bool columnsOnly) const {
    if (x < clipLeft_ || cells_.empty()) {
        return -1;
    }
    const int c = std::clamp((x - origin_) / Pitch(), 0, static_cast<int>(cells_.size()) - 1);
    const CellRect& r = cells_[c];
    const bool inColumns = x >= r.left && x <= r.right;
    if (!inColumns) {
        return -1;
    }
    return columnsOnly || (y >= r.top && y <= r.bottom) ? c : -1;
}

}  // namespace kovra
