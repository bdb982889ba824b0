#include "anim/skin_grips.h"

#include <cmath>
#include <set>

#include "doc/editor_hub.h"

namespace kovra {
namespace {

// World units to the view's pixels, as the pose step scales the pins, and the screen position of the
// world origin.
struct PixelScale {
    float x = 0.0f;
    float y = 0.0f;
    float originX = 0.0f;
    float originY = 0.0f;

    explicit PixelScale(const ViewTransform& view)
        : x(static_cast<float>(view.clientWidth) / view.viewWidth * view.zoom),
          y(static_cast<float>(view.clientHeight) / view.viewHeight * view.zoom),
          originX(-view.cameraX * (view.zoom * static_cast<float>(view.clientWidth) / view.viewWidth) +
                  static_cast<float>(view.clientWidth) * 0.5f),
          originY(-view.cameraY * (view.zoom * static_cast<float>(view.clientHeight) / view.viewHeight) +
                  static_cast<float>(view.clientHeight) * 0.5f) {}

    SkinGrip Grip(PinPoint world, float radius) const {
        return {std::floor(world.x * x + 0.375f + originX), std::floor(world.y * y + 0.375f + originY),
                radius};
    }
};

PinPoint Middle(PinPoint a, PinPoint b) {
    return {(a.x + b.x) * 0.5f, (a.y + b.y) * 0.5f};
}

// The pins whose grips are shown for the selection.
std::set<int> GripPins(const Pose& pose, const std::set<int>& selected) {
    std::set<int> pins;
    for (int p : selected) {
        if (p < 0 || static_cast<std::size_t>(p) >= pose.size()) {
            continue;
        }
        if (pose[p].Type() != Root) {
            pins.insert(p);
            continue;
        }
        int child = -1;
        int children = 0;
        for (std::size_t i = 0; i < pose.size(); ++i) {
            if (pose[i].parent == p) {
                child = static_cast<int>(i);
                ++children;
            }
        }
        if (children == 1) {
            pins.insert(child);
        }
    }
    return pins;
}

}  // namespace

std::array<PinPoint, 4> QuadCorners(const SkinQuad& q) {
    const PinPoint a{q.axis.x * q.halfWidth, q.axis.y * q.halfWidth};
    const PinPoint n{q.normal.x * q.halfHeight, q.normal.y * q.halfHeight};
    return {{{q.centre.x - a.x - n.x, q.centre.y - a.y - n.y},
             {q.centre.x + a.x - n.x, q.centre.y + a.y - n.y},
             {q.centre.x + a.x + n.x, q.centre.y + a.y + n.y},
             {q.centre.x - a.x + n.x, q.centre.y - a.y + n.y}}};
}

bool PoseSkinQuad(const Wirrel& wirrel, const Pose& pose, const std::vector<WorldPoint>& world, int index,
                  SkinQuad& quad) {
    const WirrelPin& pin = pose[index];
    if (pin.skin < 0 || static_cast<std::size_t>(pin.skin) >= wirrel.skins.size()) {
        return false;
    }
    const WirrelSkin& skin = wirrel.skins[pin.skin];
    if (skin.texture < 0 || static_cast<std::size_t>(skin.texture) >= wirrel.textures.size()) {
        return false;
    }
    const PinPoint at{world[index].x, world[index].y};
    const PinPoint parent = pin.parent >= 0 ? PinPoint{world[pin.parent].x, world[pin.parent].y} : PinPoint{};
    quad = MakeSkinQuad(pin, at, parent, skin, wirrel.textures[skin.texture], wirrel.pixelsPerUnit);
    return true;
}

bool BuildSkinGrips(const Wirrel& wirrel, const Pose& pose, const ViewTransform& view, int editMode,
                    const SelectionTracker& selection, float pinRadius, std::vector<SkinGrip>& grips) {
    grips.assign(pose.size() * kGripsPerPin, SkinGrip{});
    if (editMode != kModeBuild) {
        return false;
    }
    std::vector<WorldPoint> world;
    WorldPositions(pose, world);
    const PixelScale scale(view);
    bool hot = false;
    for (int p : GripPins(pose, selection.selected)) {
        hot = hot || p == selection.hotItem;
        SkinGrip* g = &grips[static_cast<std::size_t>(p) * kGripsPerPin];
        const int parent = pose[p].parent;
        g[kGripPin] = scale.Grip({world[p].x, world[p].y}, pinRadius);
        g[kGripParent] =
            scale.Grip(parent >= 0 ? PinPoint{world[parent].x, world[parent].y} : PinPoint{}, pinRadius);
        SkinQuad quad;
        if (!PoseSkinQuad(wirrel, pose, world, p, quad)) {
            continue;
        }
        const std::array<PinPoint, 4> c = QuadCorners(quad);
        g[kGripBone] = g[kGripPin];
        g[kGripBody] = g[kGripPin];
        g[kGripScaleTop] = scale.Grip(Middle(c[0], c[1]), pinRadius);
        g[kGripScaleBottom] = scale.Grip(Middle(c[2], c[3]), pinRadius);
        g[kGripScaleRight] = scale.Grip(Middle(c[1], c[2]), pinRadius);
        g[kGripScaleLeft] = scale.Grip(Middle(c[3], c[0]), pinRadius);
        const float corner = pinRadius - 1.0f;
        g[kGripRotate0] = scale.Grip(c[0], corner);
        g[kGripRotate0 + 1] = scale.Grip(c[1], corner);
        g[kGripRotate0 + 2] = scale.Grip(c[3], corner);
        g[kGripRotate0 + 3] = scale.Grip(c[2], corner);
    }
    return hot;
}

}  // namespace kovra
