#include "bitmap/lines.h"

#include <algorithm>
#include <cmath>

#include "bitmap/blend.h"

namespace aurel {

namespace {

enum Outcode { kLeft = 1, kRight = 2, kAbove = 4, kBelow = 8 };

int Round(double v) {
    return static_cast<int>(std::floor(v + 0.5));
}

// Cohen-Sutherland: cuts the segment to [0, xMax] x [0, yMax]; false when nothing of it is inside. A
// segment that only grazes a corner may come out rejected after rounding, which loses at most a pixel.
bool ClipLine(double& x1, double& y1, double& x2, double& y2, double xMax, double yMax) {
    auto code = [&](double x, double y) {
        return (x < 0 ? kLeft : x > xMax ? kRight : 0) | (y < 0 ? kAbove : y > yMax ? kBelow : 0);
    };
    int c1 = code(x1, y1);
    int c2 = code(x2, y2);
    for (int pass = 0; pass < 8; ++pass) {
        if ((c1 | c2) == 0) {
            return true;
        }
        if (c1 & c2) {
            return false;
        }
        const int c = c1 ? c1 : c2;
        double x = 0, y = 0;
        if (c & (kAbove | kBelow)) {
            y = c & kAbove ? 0 : yMax;
            x = x1 + (x2 - x1) * (y - y1) / (y2 - y1);
        } else {
            x = c & kLeft ? 0 : xMax;
            y = y1 + (y2 - y1) * (x - x1) / (x2 - x1);
        }
        if (c == c1) {
            x1 = x, y1 = y, c1 = code(x, y);
        } else {
            x2 = x, y2 = y, c2 = code(x, y);
        }
    }
    return false;
}

// The target's pixels, fetched once for the whole line.
struct Pixels {
    std::uint32_t* bits;
    int width, height, rowSpan;
};

void Blend(const Pixels& target, int x, int y, std::uint32_t colour, int k) {
    if (k > 0 && x >= 0 && y >= 0 && x < target.width && y < target.height) {
        std::uint32_t& pixel = target.bits[static_cast<std::ptrdiff_t>(y) * target.rowSpan + x];
        pixel = BlendColor(pixel, colour, k);
    }
}

// Far enough outside any bitmap that a step there draws nothing, and near enough to be an int.
constexpr double kFarOff = 1 << 30;

// floor as an int, for values within kFarOff.
int FloorInt(double v) {
    const int t = static_cast<int>(v);
    return static_cast<double>(t) > v ? t - 1 : t;
}

// The steps of a line along its major axis from `from` to `to`, the minor coordinate at each being
// origin + (major - along) * slope: one pixel each, or with anti-aliasing the two pixels around the
// exact line, each with its share of k.
template <bool kXMajor, bool kAntiAlias>
void Steps(const Pixels& target, int from, int to, double origin, double along, double slope,
           std::uint32_t colour, int k) {
    const auto put = [&](int major, int minor, int share) {
        kXMajor ? Blend(target, major, minor, colour, share) : Blend(target, minor, major, colour, share);
    };
    for (int major = from; major <= to; ++major) {
        const double minor = origin + (major - along) * slope;
        if (!(minor > -kFarOff && minor < kFarOff)) {
            continue;
        }
        if constexpr (kAntiAlias) {
            const int base = FloorInt(minor);
            const int cover = static_cast<int>((minor - base) * 256.0 + 0.5);
            put(major, base, k * (256 - cover) >> 8);
            put(major, base + 1, k * cover >> 8);
        } else {
            put(major, FloorInt(minor + 0.5), k);
        }
    }
}

template <bool kXMajor>
void Steps(const Pixels& target, int from, int to, double origin, double along, double slope,
           std::uint32_t colour, int k, bool antiAlias) {
    if (antiAlias) {
        Steps<kXMajor, true>(target, from, to, origin, along, slope, colour, k);
    } else {
        Steps<kXMajor, false>(target, from, to, origin, along, slope, colour, k);
    }
}

void HorizontalRun(const Pixels& target, int y, int from, int to, std::uint32_t colour, int k) {
    if (k > 0 && y >= 0 && y < target.height) {
        FillSpan(target.bits + static_cast<std::ptrdiff_t>(y) * target.rowSpan + from, to - from + 1, colour,
                 k);
    }
}

}  // namespace

void StrokeLine(IBitmap& target, double x1, double y1, double x2, double y2, Color32 colour, int k,
                bool antiAlias) {
    if (k <= 0 || target.IsEmpty() ||
        !(std::isfinite(x1) && std::isfinite(y1) && std::isfinite(x2) && std::isfinite(y2))) {
        return;
    }
    const Pixels pixels{target.getBits(), target.getWidth(), target.getHeight(), target.getRowSpan()};
    const int width = pixels.width;
    const int height = pixels.height;
    if (target.isFlipped()) {
        y1 = height - 1 - y1;
        y2 = height - 1 - y2;
    }
    double cx1 = x1, cy1 = y1, cx2 = x2, cy2 = y2;
    if (!ClipLine(cx1, cy1, cx2, cy2, width - 1, height - 1)) {
        return;
    }
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    const std::uint32_t word = colour.argb;
    if (std::abs(dx) >= std::abs(dy)) {
        const int from = Round(std::min(cx1, cx2));
        const int to = Round(std::max(cx1, cx2));
        if (dy == 0) {
            if (!antiAlias) {
                HorizontalRun(pixels, Round(y1), from, to, word, k);
                return;
            }
            const double base = std::floor(y1);
            const int cover = static_cast<int>((y1 - base) * 256.0 + 0.5);
            HorizontalRun(pixels, static_cast<int>(base), from, to, word, k * (256 - cover) >> 8);
            HorizontalRun(pixels, static_cast<int>(base) + 1, from, to, word, k * cover >> 8);
            return;
        }
        Steps<true>(pixels, from, to, y1, x1, dy / dx, word, k, antiAlias);
    } else {
        const int from = Round(std::min(cy1, cy2));
        const int to = Round(std::max(cy1, cy2));
        Steps<false>(pixels, from, to, x1, y1, dx / dy, word, k, antiAlias);
    }
}

void DrawLine(IBitmap& target, int x1, int y1, int x2, int y2, Color32 colour) {
    StrokeLine(target, x1, y1, x2, y2, colour, ColorMultiplier(colour), true);
}

void DrawLineF(IBitmap& target, float x1, float y1, float x2, float y2, Color32 colour, float opacity,
               bool antiAlias) {
    const int k = OpacityMultiplier(opacity);
    if (antiAlias) {
        StrokeLine(target, x1, y1, x2, y2, colour, k, true);
    } else {
        StrokeLine(target, std::trunc(x1), std::trunc(y1), std::trunc(x2), std::trunc(y2), colour, k, false);
    }
}

}  // namespace aurel
