#include "bitmap/circles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "bitmap/blend.h"
#include "bitmap/lines.h"

namespace aurel {

namespace {

// The quarters of a circle, seen from its centre with y down. A pixel on an axis belongs to the quarter
// clockwise of it, so that each pixel lies in exactly one.
enum Quarter { kUpLeft = 1, kUpRight = 2, kDownRight = 4, kDownLeft = 8, kWhole = 15 };

int QuarterOf(double dx, double dy) {
    if (dy < 0) {
        return dx < 0 ? kUpLeft : kUpRight;
    }
    return dx < 0 ? kDownLeft : kDownRight;
}

// Coverage as a multiplier share from 0 to 256.
int Share(double coverage) {
    return static_cast<int>(std::clamp(coverage, 0.0, 1.0) * 256.0 + 0.5);
}

int RingShare(double distance, double radius) {
    return Share(1.0 - std::abs(distance - radius));
}
int DiscShare(double distance, double radius) {
    return Share(radius + 0.5 - distance);
}

// The pixels of the bitmap within `reach` of (cx, cy), as an inclusive box; empty when none.
struct Box {
    int left, top, right, bottom;
};
Box Around(const IBitmap& target, double cx, double cy, double reach) {
    auto clampTo = [](double v, int limit) { return static_cast<int>(std::clamp(v, -1.0, double(limit))); };
    return {clampTo(std::floor(cx - reach), target.getWidth()),
            clampTo(std::floor(cy - reach), target.getHeight()),
            clampTo(std::ceil(cx + reach), target.getWidth() - 1),
            clampTo(std::ceil(cy + reach), target.getHeight() - 1)};
}

// The target's pixels, fetched once for the whole shape.
struct Pixels {
    std::uint32_t* bits;
    int rowSpan;

    explicit Pixels(const IBitmap& target) : bits(target.getBits()), rowSpan(target.getRowSpan()) {}
};

void Put(const Pixels& target, int x, int y, std::uint32_t colour, int k) {
    if (k > 0) {
        std::uint32_t& pixel = target.bits[static_cast<std::ptrdiff_t>(y) * target.rowSpan + x];
        pixel = BlendColor(pixel, colour, k);
    }
}

// Coverage of every pixel of a ring or disc drawn through one function of the distance from the centre.
template <class ShareOf>
void Shade(IBitmap& target, double cx, double cy, double reach, int quarters, std::uint32_t colour, int k,
           ShareOf shareOf) {
    const Box box = Around(target, cx, cy, reach);
    const Pixels pixels(target);
    for (int y = std::max(box.top, 0); y <= box.bottom; ++y) {
        for (int x = std::max(box.left, 0); x <= box.right; ++x) {
            const double dx = x - cx, dy = y - cy;
            if (QuarterOf(dx, dy) & quarters) {
                Put(pixels, x, y, colour, k * shareOf(std::sqrt(dx * dx + dy * dy)) >> 8);
            }
        }
    }
}

void Ring(IBitmap& target, double cx, double cy, double radius, int quarters, std::uint32_t colour, int k,
          bool antiAlias) {
    Shade(target, cx, cy, radius + 1, quarters, colour, k, [&](double d) {
        const int share = RingShare(d, radius);
        return antiAlias ? share : (share >= 128 ? 256 : 0);
    });
}

// A ring's coverage about a pixel centre, worked out once for a small radius.
struct Stamp {
    int reach = 0;
    std::vector<int> shares;  // (2 * reach + 1) squared, row by row
};

const Stamp* StampFor(float radius) {
    static const std::array<Stamp, 6> stamps = [] {
        std::array<Stamp, 6> made;
        for (int i = 0; i < 6; ++i) {
            const double r = 1.5 + 0.5 * i;
            Stamp& s = made[i];
            s.reach = static_cast<int>(std::ceil(r + 1));
            for (int y = -s.reach; y <= s.reach; ++y) {
                for (int x = -s.reach; x <= s.reach; ++x) {
                    s.shares.push_back(RingShare(std::sqrt(double(x * x + y * y)), r));
                }
            }
        }
        return made;
    }();
    const float index = (radius - 1.5f) * 2.0f;
    if (index < 0 || index > 5 || index != std::floor(index)) {
        return nullptr;
    }
    return &stamps[static_cast<int>(index)];
}

void DrawStamp(IBitmap& target, int cx, int cy, const Stamp& stamp, std::uint32_t colour, int k) {
    const Box box = Around(target, cx, cy, stamp.reach);
    const int side = 2 * stamp.reach + 1;
    const Pixels pixels(target);
    for (int y = std::max(box.top, 0); y <= box.bottom; ++y) {
        const int row = (y - cy + stamp.reach) * side;
        for (int x = std::max(box.left, 0); x <= box.right; ++x) {
            Put(pixels, x, y, colour, k * stamp.shares[row + x - cx + stamp.reach] >> 8);
        }
    }
}

bool Whole(float v) {
    return v == std::floor(v) && std::fabs(v) < (1 << 24);
}

}  // namespace

void DrawCircle(IBitmap& target, float cx, float cy, float radius, Color32 colour) {
    const int k = ColorMultiplier(colour);
    if (k == 0 || target.IsEmpty() || !(radius >= 0) || !std::isfinite(cx) || !std::isfinite(cy)) {
        return;
    }
    const Stamp* stamp = StampFor(radius);
    if (stamp && Whole(cx) && Whole(cy)) {
        DrawStamp(target, static_cast<int>(cx), static_cast<int>(cy), *stamp, colour.argb, k);
    } else {
        Ring(target, cx, cy, radius, kWhole, colour.argb, k, true);
    }
}

void FillCircle(IBitmap& target, float cx, float cy, float radius, Color32 colour) {
    const int k = ColorMultiplier(colour);
    if (k == 0 || target.IsEmpty() || !(radius >= 0) || !std::isfinite(cx) || !std::isfinite(cy)) {
        return;
    }
    Shade(target, cx, cy, radius + 1, kWhole, colour.argb, k, [&](double d) { return DiscShare(d, radius); });
}

void DrawRoundRect(IBitmap& target, float x, float y, float w, float h, float radius, Color32 colour,
                   float opacity, bool antiAlias) {
    const int k = OpacityMultiplier(opacity);
    if (k == 0 || target.IsEmpty()) {
        return;
    }
    const double r = std::floor(std::min({double(radius), w / 2.0, h / 2.0}));
    if (!(r >= 2)) {
        const double left = std::trunc(x), top = std::trunc(y);
        const double right = left + std::trunc(w), bottom = top + std::trunc(h);
        StrokeLine(target, left, top, right, top, colour, k, false);
        StrokeLine(target, right, top, right, bottom, colour, k, false);
        StrokeLine(target, right, bottom, left, bottom, colour, k, false);
        StrokeLine(target, left, bottom, left, top, colour, k, false);
        return;
    }
    const double right = double(x) + w, bottom = double(y) + h;
    StrokeLine(target, x + r, y, right - r, y, colour, k, antiAlias);
    StrokeLine(target, x + r - 1, bottom, right - r, bottom, colour, k, antiAlias);
    StrokeLine(target, right, y + r, right, bottom - r, colour, k, antiAlias);
    StrokeLine(target, x, y + r - 1, x, bottom - r, colour, k, antiAlias);
    Ring(target, x + r, y + r, r, kUpLeft, colour.argb, k, antiAlias);
    Ring(target, right - r, y + r, r, kUpRight, colour.argb, k, antiAlias);
    Ring(target, right - r, bottom - r, r, kDownRight, colour.argb, k, antiAlias);
    Ring(target, x + r, bottom - r, r, kDownLeft, colour.argb, k, antiAlias);
}

}  // namespace aurel
