#pragma once
// Where everything of the timeline lies, in client pixels: the control band, the ruler, the lanes of the
// extended view, the strip of cells and the scrollbar. Painting and hit-testing both read the cells from
// here, so what is drawn is what is hit.

#include <vector>

namespace kovra {

struct CellRect {
    int left = 0;
    int top = 0;
    int right = 0;  // inclusive, shared with the next cell's left
    int bottom = 0;
    bool Contains(int x, int y) const { return x >= left && x <= right && y >= top && y <= bottom; }
};

constexpr int kControlBandHeight = 26;
constexpr int kRulerTop = 26;
constexpr int kRulerHeight = 17;
constexpr int kScrollbarHeight = 16;
constexpr int kStripHeightExtended = 61;  // the strip under the lanes of the extended view
constexpr int kNameColumnWidth = 150;     // the lanes' name column; the strip starts after it when extended

class TimelineLayout {
public:
    // `zoom` in percent; `viewLeft` the scroll position in pixels.
    // At least `cellCount` cells, and as many as fill the width.
    void Compute(int width, int height, bool extended, int zoom, int viewLeft, int cellCount);

    int Width() const { return width_; }
    int Height() const { return height_; }
    int StripTop() const { return stripTop_; }
    int StripBottom() const { return height_ - kScrollbarHeight - 1; }
    int LanesTop() const { return kRulerTop + kRulerHeight; }
    int LanesBottom() const { return stripTop_ - 1; }
    int CellWidth() const { return cellWidth_; }
    int Pitch() const { return cellWidth_ - 1; }
    // The x of time 0: the left edge of cell 0 after scrolling.
    int Origin() const { return origin_; }
    // The first pixel column that shows cells (the name column of the lanes is left of it).
    int ClipLeft() const { return clipLeft_; }
    const std::vector<CellRect>& Cells() const { return cells_; }
    // Pixels of the whole strip, for the scrollbar's range.
    int ContentWidth() const { return static_cast<int>(cells_.size()) * Pitch() + 1; }
    // The cell whose rectangle holds the point, -1 if none; with `columnsOnly`, any y will do.
    int CellAt(int x, int y, bool columnsOnly) const;

private:
    int width_ = 0;
    int height_ = 0;
    int stripTop_ = 0;
    int cellWidth_ = 2;
    int origin_ = 0;
    int clipLeft_ = 0;
    std::vector<CellRect> cells_;
};

}  // namespace kovra
