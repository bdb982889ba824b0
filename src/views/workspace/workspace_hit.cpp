#include "views/workspace/workspace_hit.h"

#include <algorithm>
#include <cmath>

#include "views/workspace/paint_skins.h"
#include "views/workspace/workspace_frame.h"

namespace kovra {
namespace {

bool NearPin(const WorkspaceState& state, int pin, float radius, float x, float y) {
    const PinPoint p = PinScreen(state, pin);
    const float dx = p.x - x;
    const float dy = p.y - y;
    return dx * dx + dy * dy <= radius * radius;
}

// The rectangle of a skin spanned by its grips: centred between grips 7 and 8, its long axis from 8 to
// 7, its half extents half the distances 8 to 7 and 5 to 6.
bool InSkinBody(const SkinGrip* g, float x, float y) {
    const float cx = (g[7].x + g[8].x) * 0.5f;
    const float cy = (g[7].y + g[8].y) * 0.5f;
    float ux = g[7].x - g[8].x;
    float uy = g[7].y - g[8].y;
    const float length = std::sqrt(ux * ux + uy * uy);
    const float height = std::hypot(g[5].x - g[6].x, g[5].y - g[6].y);
    if (length <= 0.0f) {
        return false;
    }
    ux /= length;
    uy /= length;
    const float along = (x - cx) * ux + (y - cy) * uy;
    const float across = -(x - cx) * uy + (y - cy) * ux;
    return std::fabs(along) <= length * 0.5f && std::fabs(across) <= height * 0.5f;
}

}  // namespace

float SegmentDistance(float x, float y, float ax, float ay, float bx, float by) {
    const float vx = bx - ax;
    const float vy = by - ay;
    const float squared = vx * vx + vy * vy;
    float t = 0.0f;
    if (squared > 1e-07f) {
        t = ((x - ax) * vx + (y - ay) * vy) / squared;
        t = t < 0.0f ? 0.0f : t > 1.0f ? 1.0f : t;
    }
    return std::hypot(x - (ax + vx * t), y - (ay + vy * t));
}

Hit HoverTest(const WirrelDoc& doc, const WorkspaceState& state, const aurel::ImageSurface& pick,
              float pinRadius, int x, int y) {
    const auto fx = static_cast<float>(x);
    const auto fy = static_cast<float>(y);
    const int count = static_cast<int>(std::min(state.pose.size(), state.view.pinPixels.size()));
    for (int pin : state.pinSelection.selected) {
        if (pin < count && !IsPinHidden(doc, state, pin) && NearPin(state, pin, pinRadius, fx, fy)) {
            return {pin, 0};
        }
    }
    for (int pin = 0; pin < count; ++pin) {
        if (!IsPinHidden(doc, state, pin) && NearPin(state, pin, pinRadius, fx, fy)) {
            return {pin, 0};
        }
    }
    aurel::Color32 under;
    if (!pick.GetPixel(x, y, under)) {
        return {};
    }
    if (under.argb != kPickNothing) {
        return {static_cast<int>(under.argb), 4};
    }
    for (int pin = 0; pin < count; ++pin) {
        const WirrelPin& record = state.pose[pin];
        if (record.Type() == Root || record.parent < 0 || record.parent >= count) {
            continue;
        }
        const PinPoint p = PinScreen(state, pin);
        const PinPoint q = PinScreen(state, record.parent);
        if (SegmentDistance(fx, fy, p.x, p.y, q.x, q.y) <= kBoneTolerance) {
            return IsPinHidden(doc, state, pin) ? Hit{} : Hit{pin, 3};
        }
    }
    return {};
}

Hit GripTest(const WorkspaceState& state, float x, float y) {
    const std::vector<SkinGrip>& grips = state.skinHandles;
    for (std::size_t i = 0; i < grips.size(); ++i) {
        const float dx = grips[i].x - x;
        const float dy = grips[i].y - y;
        if (dx * dx + dy * dy <= grips[i].radius * grips[i].radius) {
            return {static_cast<int>(i) / kGripsPerPin, static_cast<int>(i) % kGripsPerPin};
        }
    }
    for (std::size_t pin = 0; pin * kGripsPerPin < grips.size(); ++pin) {
        const SkinGrip* g = &grips[pin * kGripsPerPin];
        if (g[7].radius > 0.0f && InSkinBody(g, x, y)) {
            return {static_cast<int>(pin), 4};
        }
    }
    return {};
}

}  // namespace kovra
