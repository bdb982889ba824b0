#include "bitmap/shapes.h"

#include <algorithm>

#include "bitmap/blend.h"
#include "bitmap/lines.h"

namespace aurel {

void Clear(IBitmap& target, Color32 colour) {
    if (target.IsEmpty()) {
        return;
    }
    for (int y = 0; y < target.getHeight(); ++y) {
        std::fill_n(target.Row(y), target.getWidth(), colour.argb);
    }
}

void FillRect(IBitmap& target, int left, int top, int right, int bottom, Color32 colour) {
    const int k = ColorMultiplier(colour);
    if (k == 0 || target.IsEmpty()) {
        return;
    }
    left = std::max(left, 0);
    top = std::max(top, 0);
    right = std::min(right, target.getWidth() - 1);
    bottom = std::min(bottom, target.getHeight() - 1);
    for (int y = top; y <= bottom && left <= right; ++y) {
        FillSpan(target.Row(y) + left, right - left + 1, colour.argb, k);
    }
}

void DrawRect(IBitmap& target, int left, int top, int right, int bottom, Color32 colour) {
    const int k = ColorMultiplier(colour);
    const double x1 = left, y1 = top;
    const double x2 = x1 + (right - left + 1.0), y2 = y1 + (bottom - top + 1.0);
    StrokeLine(target, x1, y1, x2, y1, colour, k, false);
    StrokeLine(target, x2, y1, x2, y2, colour, k, false);
    StrokeLine(target, x2, y2, x1, y2, colour, k, false);
    StrokeLine(target, x1, y2, x1, y1, colour, k, false);
}

}  // namespace aurel
