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
    WorldPositions(state.pose, state.world);
    FillPinPixels(state.view, state.pose);
    state.gripHot = BuildSkinGrips(doc.Wirrel(), state.pose, state.view, state.editMode, state.pinSelection,
                                   gripRadius, state.skinHandles);
    // The pins that carry grips are those whose own grip was placed.
    state.gripPins.clear();
    for (int pin = 0; pin < static_cast<int>(state.pose.size()); ++pin) {
        if (state.skinHandles[static_cast<std::size_t>(pin) * kGripsPerPin + kGripPin].radius > 0.0f) {
            state.gripPins.push_back(pin);
        }
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
    const auto at = [&state](int i) { return PinPoint{state.world[i].x, state.world[i].y}; };
    const PinPoint parent = record.parent >= 0 ? at(record.parent) : PinPoint{};
    const SkinQuad quad =
        MakeSkinQuad(record, at(pin), parent, skin, w.textures[skin.texture], w.pixelsPerUnit);
    const ViewTransform& view = state.view;
    const float scaleX = static_cast<float>(view.clientWidth) / view.viewWidth * view.zoom;
    const float scaleY = static_cast<float>(view.clientHeight) / view.viewHeight * view.zoom;
    const ScreenMapping map = ScreenMapping::Of(view);
    const std::array<PinPoint, 4> c = QuadCorners(quad);
    for (int i = 0; i < 4; ++i) {
        corners[2 * i] = c[i].x * scaleX + 0.375f + map.originX;
        corners[2 * i + 1] = c[i].y * scaleY + 0.375f + map.originY;
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
