#include "views/workspace/workspace_frame.h"

#include <cmath>

#include "anim/interpolate.h"
#include "commands/pin_commands.h"
#include "doc/skins.h"

namespace kovra {
namespace {

bool HasSkin(const WorkspaceState& state, int pin) {
    return pin >= 0 && static_cast<std::size_t>(pin) < state.skins.size() && state.skins[pin].texture >= 0;
}

bool IsAttachmentWithSkin(const WorkspaceState& state, int pin) {
    return state.pose[pin].Type() == Attachment && HasSkin(state, pin);
}

template <class Test>
bool AllChildren(const Pose& pose, int pin, Test test) {
    for (int i = 0; i < static_cast<int>(pose.size()); ++i) {
        if (pose[i].parent == pin && !test(i)) {
            return false;
        }
    }
    return true;
}

// The pins that carry grips in Build: a selected root stands for its only child, other pins for
// themselves.
void CollectGripPins(WorkspaceState& state) {
    state.gripPins.clear();
    state.gripHot = false;
    const SelectionTracker& sel = state.pinSelection;
    for (int pin : sel.selected) {
        if (pin < 0 || pin >= static_cast<int>(state.pose.size())) {
            continue;
        }
        int carrier = pin;
        if (state.pose[pin].Type() == Root) {
            carrier = -1;
            int children = 0;
            for (int i = 0; i < static_cast<int>(state.pose.size()); ++i) {
                if (state.pose[i].parent == pin) {
                    carrier = i;
                    ++children;
                }
            }
            if (children != 1) {
                continue;
            }
        }
        state.gripHot = state.gripHot || sel.hotItem == carrier;
        state.gripPins.push_back(carrier);
    }
}

SkinHandle Floor(float x, float y, float radius) {
    return {std::floor(x), std::floor(y), radius};
}

void FillGrips(const WirrelDoc& doc, WorkspaceState& state, float radius) {
    for (int pin : state.gripPins) {
        SkinHandle* grips = &state.skinHandles[static_cast<std::size_t>(pin) * kGripsPerPin];
        const PinPoint self = PinScreen(state, pin);
        const int parent = state.pose[pin].parent;
        const PinPoint up = parent >= 0 ? PinScreen(state, parent) : self;
        grips[1] = Floor(self.x, self.y, radius);
        grips[2] = Floor(up.x, up.y, radius);
        std::array<float, 8> c{};
        if (!SkinCorners(doc, state, pin, state.skins[pin], c)) {
            continue;
        }
        grips[3] = grips[1];
        grips[4] = Floor(self.x, self.y, radius);
        grips[5] = Floor((c[0] + c[2]) * 0.5f, (c[1] + c[3]) * 0.5f, radius);
        grips[6] = Floor((c[4] + c[6]) * 0.5f, (c[5] + c[7]) * 0.5f, radius);
        grips[7] = Floor((c[2] + c[4]) * 0.5f, (c[3] + c[5]) * 0.5f, radius);
        grips[8] = Floor((c[6] + c[0]) * 0.5f, (c[7] + c[1]) * 0.5f, radius);
        grips[9] = Floor(c[0], c[1], radius - 1.0f);
        grips[10] = Floor(c[2], c[3], radius - 1.0f);
        grips[11] = Floor(c[6], c[7], radius - 1.0f);
        grips[12] = Floor(c[4], c[5], radius - 1.0f);
    }
}

}  // namespace

PinPoint PinScreen(const WorkspaceState& state, int pin) {
    const ScreenMapping map = ScreenMapping::Of(state.view);
    const PinPixel& p = state.view.pinPixels[pin];
    return {p.x + map.originX, p.y + map.originY};
}

bool PoseStep(const WirrelDoc& doc, WorkspaceState& state, float gripRadius) {
    if (!EvaluatePose(doc.Wirrel(), doc.cursor, state.pose)) {
        return false;
    }
    EvaluateSkins(doc.Wirrel(), doc.cursor, state.skins);
    state.skins.resize(state.pose.size());
    FillPinPixels(state.view, state.pose);
    state.skinHandles.assign(state.pose.size() * kGripsPerPin, SkinHandle{});
    state.gripPins.clear();
    state.gripHot = false;
    if (state.editMode == kModeBuild) {
        CollectGripPins(state);
        FillGrips(doc, state, gripRadius);
    }
    return true;
}

bool SkinCorners(const WirrelDoc& doc, const WorkspaceState& state, int pin, const WirrelSkin& skin,
                 std::array<float, 8>& corners) {
    const Wirrel& w = doc.Wirrel();
    if (skin.texture < 0 || static_cast<std::size_t>(skin.texture) >= w.textures.size()) {
        return false;
    }
    const WirrelPin& record = state.pose[pin];
    const ScreenMapping map = ScreenMapping::Of(state.view);
    const auto world = [&](int i) {
        const PinPixel& p = state.view.pinPixels[i];
        return PinPoint{(p.x - 0.375f) / map.ppuX, (p.y - 0.375f) / map.ppuY};
    };
    const PinPoint self = world(pin);
    const PinPoint parent = record.parent >= 0 ? world(record.parent) : PinPoint{};
    const SkinQuad q = MakeSkinQuad(record, self, parent, skin, w.textures[skin.texture], w.pixelsPerUnit);
    const float ax = q.axis.x * q.halfWidth;
    const float ay = q.axis.y * q.halfWidth;
    const float nx = q.normal.x * q.halfHeight;
    const float ny = q.normal.y * q.halfHeight;
    const std::array<PinPoint, 4> c{PinPoint{q.centre.x - ax - nx, q.centre.y - ay - ny},
                                    PinPoint{q.centre.x + ax - nx, q.centre.y + ay - ny},
                                    PinPoint{q.centre.x + ax + nx, q.centre.y + ay + ny},
                                    PinPoint{q.centre.x - ax + nx, q.centre.y - ay + ny}};
    for (int i = 0; i < 4; ++i) {
        corners[2 * i] = c[i].x * map.ppuX + 0.375f + map.originX;
        corners[2 * i + 1] = c[i].y * map.ppuY + 0.375f + map.originY;
    }
    return true;
}

bool IsPinHidden(const WirrelDoc& doc, const WorkspaceState& state, int pin) {
    if (pin < 0 || pin >= static_cast<int>(state.pose.size()) || !doc.viewFlags[kViewBones]) {
        return true;
    }
    if (state.shiftDown) {
        return false;
    }
    if (IsAttachmentWithSkin(state, pin) && state.editMode != kModeBuild) {
        return true;
    }
    return (state.pose[pin].flags & kPinHidden) != 0;
}

bool IsPinDotHidden(const WirrelDoc& doc, const WorkspaceState& state, int pin) {
    if (pin < 0 || pin >= static_cast<int>(state.pose.size()) || !doc.viewFlags[kViewBones]) {
        return true;
    }
    if (state.shiftDown) {
        return false;
    }
    const Pose& pose = state.pose;
    if (IsAttachmentWithSkin(state, pin) && state.editMode != kModeBuild &&
        AllChildren(pose, pin, [&](int c) { return IsAttachmentWithSkin(state, c); })) {
        return true;
    }
    return (pose[pin].flags & kPinHidden) != 0 &&
           AllChildren(pose, pin, [&](int c) { return (pose[c].flags & kPinHidden) != 0; });
}

const aurel::ImageSurface* SkinImage(const WirrelDoc& doc, const WirrelSkin& skin,
                                     std::array<float, 4>& source) {
    const Wirrel& w = doc.Wirrel();
    if (skin.texture < 0 || static_cast<std::size_t>(skin.texture) >= w.textures.size()) {
        return nullptr;
    }
    const WirrelTexture& t = w.textures[skin.texture];
    if (t.imageIndex < 0 || static_cast<std::size_t>(t.imageIndex) >= doc.images.size()) {
        return nullptr;
    }
    const auto& image = doc.images[t.imageIndex];
    if (image && !image->surface.IsEmpty()) {
        source = {static_cast<float>(t.x), static_cast<float>(t.y), static_cast<float>(t.width),
                  static_cast<float>(t.height)};
        return &image->surface;
    }
    const aurel::ImageSurface& missing = doc.missingTextureImage;
    source = {0.0f, 0.0f, static_cast<float>(missing.Width()), static_cast<float>(missing.Height())};
    return &missing;
}

}  // namespace kovra
