#include "views/timeline/thumbnail.h"

#include <algorithm>

#include "doc/pin_tree.h"

namespace kovra {

PoseBounds BoundsOfFrames(const std::vector<WirrelKey>& frames) {
    PoseBounds b{1e30f, 1e30f, -1e30f, -1e30f};
    std::vector<WorldPoint> points;
    for (const WirrelKey& key : frames) {
        WorldPositions(key.pins, points);
        for (const WorldPoint& p : points) {
            b.left = std::min(b.left, p.x);
            b.top = std::min(b.top, p.y);
            b.right = std::max(b.right, p.x);
            b.bottom = std::max(b.bottom, p.y);
        }
    }
    if (b.left > b.right) {
        return PoseBounds{};
    }
    return b;
}

void DrawThumbnail(aurel::ImageSurface& target, const std::vector<WirrelPin>& pins, const PoseBounds& bounds,
                   int left, int top, int right, int bottom, aurel::Color32 colour) {
    std::vector<WorldPoint> points;
    WorldPositions(pins, points);
    const float boxW = static_cast<float>(right - left - 6);
    const float boxH = static_cast<float>(bottom - top - 6);
    const float w = std::max(bounds.right - bounds.left, 1e-3f);
    const float h = std::max(bounds.bottom - bounds.top, 1e-3f);
    const float scale = std::min(boxW / w, boxH / h);
    // Centre the bounds in the box.
    const float ox = static_cast<float>(left) + 3.0f + (boxW - w * scale) * 0.5f - bounds.left * scale;
    const float oy = static_cast<float>(top) + 3.0f + (boxH - h * scale) * 0.5f - bounds.top * scale;
    for (std::size_t i = 0; i < pins.size(); ++i) {
        const WirrelPin& pin = pins[i];
        if (pin.parent < 0 || pin.parent >= static_cast<int>(pins.size()) || (pin.flags & kPinHidden) != 0) {
            continue;
        }
        const WorldPoint& a = points[pin.parent];
        const WorldPoint& b = points[i];
        target.DrawLineF(ox + a.x * scale, oy + a.y * scale, ox + b.x * scale, oy + b.y * scale, colour, 1.0f,
                         true);
    }
}

}  // namespace kovra
