#include "bitmap/quad.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "bitmap/blend.h"
#include "bitmap/span_shaders.h"

namespace aurel {

namespace {

struct Corner {
    float x, y, u, v;
};
using Corners = std::array<Corner, 4>;

// Rows and columns far beyond any bitmap are held here before they become ints.
constexpr float kFar = 1 << 28;

int Truncate(float value) {
    return static_cast<int>(std::clamp(value, -kFar, kFar));
}

// One side of the quad between two corners: its values at the row it has reached, and per row.
struct Edge {
    int to = 0;
    int row = 0;
    float x = 0, u = 0, v = 0;
    float dx = 0, du = 0, dv = 0;

    Edge() = default;
    Edge(const Corners& c, int from, int next) : to(next), row(Truncate(c[from].y)) {
        const Corner& a = c[from];
        const Corner& b = c[next];
        const float dy = b.y - a.y;
        const float perRow = dy != 0 ? 1.0f / dy : 0.0f;
        x = a.x, u = a.u, v = a.v;
        dx = (b.x - a.x) * perRow, du = (b.u - a.u) * perRow, dv = (b.v - a.v) * perRow;
    }
    // Steps down to row `y`: one row at a time as the scan goes, in one jump over rows above the bitmap.
    Corner At(int y) {
        const int rows = y - row;
        if (rows == 1) {
            x += dx, u += du, v += dv;
        } else if (rows != 0) {
            const auto n = static_cast<float>(rows);
            x += dx * n, u += du * n, v += dv * n;
        }
        row = y;
        return {x, 0, u, v};
    }
};

// Where a scan writes: the target's rows, and those of the mask drawn in the same pass when there is one.
struct ScanTarget {
    std::uint32_t* bits;
    int width, height, rowSpan;
    std::uint32_t* maskBits;
    int maskRowSpan;
    std::uint32_t flag;
};

void DrawRow(const SpanSource& source, const ScanTarget& target, int y, const Corner& left,
             const Corner& right, const ShadeArgs& args) {
    const int width = target.width;
    if (!(right.x >= 0 && left.x < static_cast<float>(width) && right.x >= left.x)) {
        return;
    }
    const int x0 = Truncate(left.x);
    const int x1 = Truncate(right.x);
    const auto span = static_cast<float>(x1 - x0 + 1);
    const float du = (right.u - left.u) / span;
    const float dv = (right.v - left.v) / span;
    float u = left.u, v = left.v;
    int first = x0;
    if (x0 < 0) {
        u += du * static_cast<float>(-x0);
        v += dv * static_cast<float>(-x0);
        first = 0;
    }
    const int last = std::min(x1, width - 1);
    MaskRow mask;
    if (target.maskBits != nullptr) {
        mask = {target.maskBits + static_cast<std::ptrdiff_t>(y) * target.maskRowSpan, target.flag};
    }
    DrawSpan(target.bits + static_cast<std::ptrdiff_t>(y) * target.rowSpan, first, last - first + 1, source,
             u, v, du, dv, args, mask);
}

void ScanQuad(const SpanSource& source, const Corners& c, const ScanTarget& target, const ShadeArgs& args) {
    for (const Corner& corner : c) {
        if (!(std::isfinite(corner.x) && std::isfinite(corner.y) && std::isfinite(corner.u) &&
              std::isfinite(corner.v))) {
            return;
        }
    }
    // Sort the corners by y with a network of five exchanges; neighbours stay those of the walk round.
    constexpr std::array<std::pair<int, int>, 5> kNetwork{{{0, 1}, {2, 3}, {0, 2}, {1, 3}, {1, 2}}};
    std::array<int, 4> order{0, 1, 2, 3};
    for (auto [i, j] : kNetwork) {
        if (c[order[j]].y < c[order[i]].y) {
            std::swap(order[i], order[j]);
        }
    }
    // From the top corner the left edge goes one way round and the right edge the other: the way with the
    // smaller slope, or, along a level top side, the way toward the smaller x.
    const int top = order[0];
    const int next = (top + 1) % 4;
    const int prev = (top + 3) % 4;
    const Corner& t = c[top];
    int leftStep = 0;
    if (c[next].y == t.y) {
        leftStep = c[next].x < t.x ? 1 : 3;
    } else if (c[prev].y == t.y) {
        leftStep = c[prev].x < t.x ? 3 : 1;
    } else {
        const float slopeNext = (c[next].x - t.x) / (c[next].y - t.y);
        const float slopePrev = (c[prev].x - t.x) / (c[prev].y - t.y);
        leftStep = slopeNext < slopePrev ? 1 : 3;
    }
    const int rightStep = 4 - leftStep;
    Edge left(c, top, (top + leftStep) % 4);
    Edge right(c, top, (top + rightStep) % 4);

    const int height = target.height;
    for (int band = 0; band < 3; ++band) {
        const int start = order[band];
        if (left.to == start) {
            left = Edge(c, start, (start + leftStep) % 4);
        }
        if (right.to == start) {
            right = Edge(c, start, (start + rightStep) % 4);
        }
        const int end = std::min(Truncate(c[order[band + 1]].y), height);
        for (int y = std::max(Truncate(c[start].y), 0); y < end; ++y) {
            DrawRow(source, target, y, left.At(y), right.At(y), args);
        }
    }
}

ScanTarget TargetOf(IBitmap& target) {
    return {target.getBits(), target.getWidth(), target.getHeight(), target.getRowSpan(), nullptr, 0, 0};
}

Corners MakeCorners(QuadCorners sourceCorners, QuadCorners corners) {
    Corners c;
    for (int i = 0; i < 4; ++i) {
        c[i] = {corners[2 * i], corners[2 * i + 1], sourceCorners[2 * i], sourceCorners[2 * i + 1]};
    }
    return c;
}

std::array<float, 8> RectCorners(float sx, float sy, float sw, float sh) {
    const float right = sx + sw - 0.01f;
    const float bottom = sy + sh - 0.01f;
    return {sx, sy, right, sy, right, bottom, sx, bottom};
}

}  // namespace

void DrawQuadMapped(const IBitmap& source, QuadCorners sourceCorners, IBitmap& target, QuadCorners corners,
                    float opacity, Color32 tint) {
    const int mul = OpacityMultiplier(opacity);
    if (mul == 0 || source.IsEmpty() || target.IsEmpty()) {
        return;
    }
    const Corners c = MakeCorners(sourceCorners, corners);
    const SpanSource from = SpanSource::Of(source);
    const ScanTarget to = TargetOf(target);
    ScanQuad(from, c, to, {opacity == 1.0f ? SpanShader::Plain : SpanShader::Opacity, mul, 0});
    if (tint.A() > 0) {
        ScanQuad(from, c, to, {SpanShader::Tint, 256, tint.argb});
    }
}

void DrawQuadMappedWithMask(const IBitmap& source, QuadCorners sourceCorners, IBitmap& target, IBitmap& mask,
                            QuadCorners corners, float opacity, Color32 flag) {
    const int mul = OpacityMultiplier(opacity);
    if (mul == 0 || target.IsEmpty() || mask.IsEmpty() || mask.getWidth() != target.getWidth() ||
        mask.getHeight() != target.getHeight()) {
        DrawQuadMapped(source, sourceCorners, target, corners, opacity, Color32());
        DrawQuadMappedMask(source, sourceCorners, mask, corners, flag);
        return;
    }
    if (source.IsEmpty()) {
        return;
    }
    ScanTarget to = TargetOf(target);
    to.maskBits = mask.getBits();
    to.maskRowSpan = mask.getRowSpan();
    to.flag = flag.argb;
    ScanQuad(SpanSource::Of(source), MakeCorners(sourceCorners, corners), to,
             {opacity == 1.0f ? SpanShader::Plain : SpanShader::Opacity, mul, 0});
}

void DrawQuad(const IBitmap& source, float sx, float sy, float sw, float sh, IBitmap& target,
              QuadCorners corners, float opacity, Color32 tint) {
    DrawQuadMapped(source, RectCorners(sx, sy, sw, sh), target, corners, opacity, tint);
}

void DrawQuadMappedMask(const IBitmap& source, QuadCorners sourceCorners, IBitmap& target,
                        QuadCorners corners, Color32 flag) {
    if (!source.IsEmpty() && !target.IsEmpty()) {
        ScanQuad(SpanSource::Of(source), MakeCorners(sourceCorners, corners), TargetOf(target),
                 {SpanShader::Mask, 256, flag.argb});
    }
}

void DrawQuadMask(const IBitmap& source, float sx, float sy, float sw, float sh, IBitmap& target,
                  QuadCorners corners, Color32 flag) {
    DrawQuadMappedMask(source, RectCorners(sx, sy, sw, sh), target, corners, flag);
}

}  // namespace aurel
