#include "bitmap/shapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "bitmap/blend.h"
#include "bitmap/lines.h"

namespace aurel {

namespace {

// Writes the word over a block of pixels: the first row is filled and the others are copied from it, which
// lets the library's block copy use the widest stores the processor has.
void FillBlock(IBitmap& target, int left, int top, int right, int bottom, std::uint32_t word) {
    std::uint32_t* first = target.Row(top) + left;
    const int count = right - left + 1;
    std::fill_n(first, count, word);
    for (int y = top + 1; y <= bottom; ++y) {
        std::memcpy(target.Row(y) + left, first, static_cast<std::size_t>(count) * 4);
    }
}

}  // namespace

void Clear(IBitmap& target, Color32 colour) {
    if (!target.IsEmpty()) {
        FillBlock(target, 0, 0, target.getWidth() - 1, target.getHeight() - 1, colour.argb);
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
    if (left > right || top > bottom) {
        return;
    }
    if (k == 256) {
        FillBlock(target, left, top, right, bottom, colour.argb);
        return;
    }
    for (int y = top; y <= bottom; ++y) {
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

void FillTriangle(IBitmap& target, float x1, float y1, float x2, float y2, float x3, float y3, Color32 colour,
                  float opacity) {
    const int k = OpacityMultiplier(opacity);
    const std::array<double, 3> xs{x1, x2, x3};
    const std::array<double, 3> ys{y1, y2, y3};
    for (int i = 0; i < 3; ++i) {
        if (!std::isfinite(xs[i]) || !std::isfinite(ys[i])) {
            return;
        }
    }
    if (k == 0 || target.IsEmpty()) {
        return;
    }
    const int width = target.getWidth();
    const int height = target.getHeight();
    // The first row and column whose centre is at or past v, held to [0, limit].
    auto firstAt = [](double v, int limit) {
        return static_cast<int>(std::clamp(std::ceil(v - 0.5), 0.0, double(limit)));
    };
    const int top = firstAt(*std::min_element(ys.begin(), ys.end()), height);
    const int bottom = firstAt(*std::max_element(ys.begin(), ys.end()), height);
    for (int y = top; y < bottom; ++y) {
        const double centre = y + 0.5;
        double left = HUGE_VAL, right = -HUGE_VAL;
        for (int i = 0; i < 3; ++i) {
            const int j = (i + 1) % 3;
            if ((ys[i] <= centre && centre < ys[j]) || (ys[j] <= centre && centre < ys[i])) {
                const double x = xs[i] + (centre - ys[i]) * (xs[j] - xs[i]) / (ys[j] - ys[i]);
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
        const int from = firstAt(left, width);
        const int to = firstAt(right, width);
        if (from < to) {
            FillSpan(target.Row(y) + from, to - from, colour.argb, k);
        }
    }
}

}  // namespace aurel
