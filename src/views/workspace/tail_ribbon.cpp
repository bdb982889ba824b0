#include "views/workspace/tail_ribbon.h"

#include <algorithm>
#include <cmath>

namespace kovra {
namespace {

PinPoint operator-(PinPoint a, PinPoint b) {
    return {a.x - b.x, a.y - b.y};
}
PinPoint operator+(PinPoint a, PinPoint b) {
    return {a.x + b.x, a.y + b.y};
}
PinPoint operator*(PinPoint a, float k) {
    return {a.x * k, a.y * k};
}
float Cross(PinPoint a, PinPoint b) {
    return a.x * b.y - a.y * b.x;
}

// Normalised, unless too short to have a direction.
PinPoint Unit(PinPoint v) {
    const float squared = v.x * v.x + v.y * v.y;
    return squared > 1e-05f ? v * (1.0f / std::sqrt(squared)) : v;
}

PinPoint Hermite(PinPoint p0, PinPoint p1, PinPoint p2, PinPoint p3, float t) {
    const float t2 = t * t;
    const float t3 = t2 * t;
    const float h00 = 2.0f * t3 - 3.0f * t2 + 1.0f;
    const float h10 = t3 - 2.0f * t2 + t;
    const float h01 = -2.0f * t3 + 3.0f * t2;
    const float h11 = t3 - t2;
    const PinPoint m1 = (p2 - p0) * 0.5f;
    const PinPoint m2 = (p3 - p1) * 0.5f;
    return p1 * h00 + m1 * h10 + p2 * h01 + m2 * h11;
}

// Where segment a0-a1 crosses segment b0-b1, as the fraction along a; -1 when they don't cross or are
// parallel.
float Crossing(PinPoint a0, PinPoint a1, PinPoint b0, PinPoint b1) {
    const PinPoint da = a1 - a0;
    const PinPoint db = b1 - b0;
    const float det = Cross(da, db);
    if (std::fabs(det) < 1e-06f) {
        return -1.0f;
    }
    const float s = Cross(b0 - a0, db) / det;
    const float t = Cross(b0 - a0, da) / det;
    return s >= 0.0f && s <= 1.0f && t >= 0.0f && t <= 1.0f ? s : -1.0f;
}

SkinPiece Piece(const SkinPiece& style, std::array<PinPoint, 4> c, float u0, float u1, float top,
                float bottom, int owner) {
    SkinPiece piece = style;
    piece.corners = {c[0].x, c[0].y, c[1].x, c[1].y, c[2].x, c[2].y, c[3].x, c[3].y};
    piece.source = {u0, top, u1, top, u1, bottom, u0, bottom};
    piece.pickValue = static_cast<std::uint32_t>(owner);
    return piece;
}

}  // namespace

std::vector<PinPoint> TailCurve(const std::vector<PinPoint>& control) {
    std::vector<PinPoint> line;
    const int count = std::min(static_cast<int>(control.size()), kTailMaxControl);
    if (count < 3) {
        line.assign(control.begin(), control.begin() + count);
        return line;
    }
    for (int i = 1; i + 2 < count; ++i) {
        for (int k = 0; k < kTailStepsPerSegment; ++k) {
            const float t = static_cast<float>(k) * 0.14285715f;
            line.push_back(Hermite(control[i - 1], control[i], control[i + 1], control[i + 2], t));
        }
    }
    line.push_back(control[count - 2]);
    if (static_cast<int>(line.size()) > kTailMaxLine) {
        line.resize(kTailMaxLine);
    }
    return line;
}

void AppendTailRibbon(const TailRibbon& tail, const SkinPiece& style, std::vector<SkinPiece>& out) {
    const std::vector<PinPoint> line = TailCurve(tail.control);
    const int n = static_cast<int>(line.size());
    if (n < 2 || tail.owners.empty()) {
        return;
    }
    std::vector<PinPoint> direction(n);
    for (int i = 0; i < n; ++i) {
        direction[i] = Unit(line[std::min(i + 1, n - 1)] - line[std::max(i - 1, 0)]);
    }
    std::vector<PinPoint> left(n);
    std::vector<PinPoint> right(n);
    std::vector<float> u(n);
    const float half = tail.width * 0.5f;
    for (int i = 0; i < n; ++i) {
        const PinPoint d = i + 1 < n ? Unit(direction[i] + direction[i + 1]) : direction[i];
        const PinPoint across{-d.y * half, d.x * half};
        left[i] = line[i] + across;
        right[i] = line[i] - across;
        u[i] = tail.textureX + tail.textureWidth * static_cast<float>(i) / static_cast<float>(n - 1);
    }
    const float top = tail.textureY;
    const float bottom = tail.textureY + tail.textureHeight - 0.01f;
    const int lastOwner = static_cast<int>(tail.owners.size()) - 1;
    for (int i = 0; i + 1 < n; ++i) {
        const int owner = tail.owners[std::min(i / 8, lastOwner)];
        const float s = Crossing(left[i], left[i + 1], right[i], right[i + 1]);
        if (s < 0.0f) {
            out.push_back(Piece(style, {left[i], left[i + 1], right[i + 1], right[i]}, u[i], u[i + 1], top,
                                bottom, owner));
            continue;
        }
        const PinPoint x = left[i] + (left[i + 1] - left[i]) * s;
        const float us = u[i] + (u[i + 1] - u[i]) * s;
        out.push_back(Piece(style, {left[i], x, x, right[i]}, u[i], us, top, bottom, owner));
        out.push_back(Piece(style, {x, left[i + 1], right[i + 1], x}, us, u[i + 1], top, bottom, owner));
    }
}

}  // namespace kovra
