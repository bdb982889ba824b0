#pragma once
// Small geometry shared by the skin commands: the skins that can be edited, the grips of a pin, and
// vectors in screen pixels.

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "anim/forward.h"
#include "anim/skin_grips.h"
#include "commands/skin_commands.h"
#include "doc/skins.h"
#include "doc/view_transform.h"
#include "doc/wirrel_doc.h"

namespace kovra::skin {

// The skin of `pin` when it has one with a texture; only such skins are drawn, gripped and edited.
inline const WirrelSkin* TexturedSkin(const Wirrel& wirrel, const WirrelPin& pin) {
    if (pin.skin < 0 || static_cast<std::size_t>(pin.skin) >= wirrel.skins.size()) {
        return nullptr;
    }
    const WirrelSkin& skin = wirrel.skins[pin.skin];
    return skin.texture >= 0 ? &skin : nullptr;
}

// The textured skin of pin `pin` of the current frame, if it has one.
inline const WirrelSkin* SkinOfPin(WirrelDoc& doc, int pin) {
    const std::vector<WirrelPin>& pins = doc.CurrentKey().pins;
    return pin >= 0 && static_cast<std::size_t>(pin) < pins.size() ? TexturedSkin(doc.Wirrel(), pins[pin])
                                                                   : nullptr;
}

// Replaces the textured skin of each pin of `pins` in the current frame by `edit` applied to a copy of it,
// then tells the document's listeners.
template <typename Edit>
void EditSelectedSkins(WirrelDoc& doc, const std::set<int>& pins, Edit edit) {
    WirrelKey& key = doc.CurrentKey();
    for (int p : pins) {
        if (const WirrelSkin* skin = SkinOfPin(doc, p)) {
            WirrelSkin record = *skin;
            edit(record);
            SetPinSkin(doc.Wirrel(), key, p, record);
        }
    }
    doc.onChanged.Call();
}

// The grips of `pin`, or null when the table has none for it.
inline const SkinGrip* GripsOf(const std::vector<SkinGrip>& grips, int pin) {
    const auto first = static_cast<std::size_t>(pin) * kGripsPerPin;
    return pin >= 0 && first + kGripsPerPin <= grips.size() ? &grips[first] : nullptr;
}

inline Vec2 At(const SkinGrip& grip) {
    return {grip.x, grip.y};
}

inline Vec2 Minus(Vec2 a, Vec2 b) {
    return {a.x - b.x, a.y - b.y};
}

inline float Dot(Vec2 a, Vec2 b) {
    return a.x * b.x + a.y * b.y;
}

// The vector made a unit vector, when it is long enough to have a direction.
inline Vec2 Unit(Vec2 v) {
    const float squared = Dot(v, v);
    if (squared <= 1e-5f) {
        return v;
    }
    const float length = std::sqrt(squared);
    return {v.x / length, v.y / length};
}

// The skin's centre: the middle of two opposite rotation grips.
inline Vec2 Centre(const SkinGrip* g) {
    return {(g[kGripRotate0].x + g[kGripRotate2].x) * 0.5f, (g[kGripRotate0].y + g[kGripRotate2].y) * 0.5f};
}

// Where the grabbed grip would be now: its place at the press moved with the mouse.
inline Vec2 Dragged(const SkinDrag& drag) {
    return {drag.anchor.x + drag.mouse.x - drag.press.x, drag.anchor.y + drag.mouse.y - drag.press.y};
}

inline float Direction(Vec2 from, Vec2 to) {
    return std::atan2(to.y - from.y, to.x - from.x);
}

// Workspace units per pixel of the view.
inline Vec2 UnitsPerPixel(const ViewTransform& view) {
    return {view.viewWidth / (static_cast<float>(view.clientWidth) * view.zoom),
            view.viewHeight / (static_cast<float>(view.clientHeight) * view.zoom)};
}

// The polar pair of a point about the origin, as a free pin stores its place.
inline void SetPolar(WirrelPin& pin, Vec2 point) {
    pin.length = Length(point.x, point.y);
    pin.angle = NormalizeAngle(std::atan2(point.y, point.x));
}

// The name of a pin made by a gesture: "Pin" and the number of names before it.
inline std::string NewPinName(const WirrelDoc& doc) {
    return "Pin" + std::to_string(doc.Wirrel().pinNames.size());
}

}  // namespace kovra::skin
