#include "doc/skins.h"

#include <algorithm>
#include <cmath>

namespace kovra {

SkinQuad MakeSkinQuad(const WirrelPin& pin, PinPoint position, PinPoint parentPosition,
                      const WirrelSkin& skin, const WirrelTexture& texture, std::int32_t pixelsPerUnit) {
    // The bone's direction; a bone of no length still points along its angle.
    PinPoint d{std::cos(pin.angle), std::sin(pin.angle)};
    if (pin.length != 0.0f) {
        d = {(position.x - parentPosition.x) / pin.length, (position.y - parentPosition.y) / pin.length};
    }
    const float perUnit = static_cast<float>(pixelsPerUnit);
    SkinQuad quad;
    quad.halfWidth = static_cast<float>(texture.width) / perUnit * skin.scaleX * pin.scale * 0.5f;
    quad.halfHeight = static_cast<float>(texture.height) / perUnit * skin.scaleY * pin.scale * 0.5f;
    quad.centre = {(position.x + parentPosition.x) * 0.5f + skin.offsetX * d.x - skin.offsetY * d.y,
                   (position.y + parentPosition.y) * 0.5f + skin.offsetX * d.y + skin.offsetY * d.x};
    const float cosine = std::cos(skin.angle);
    const float sine = std::sin(skin.angle);
    quad.axis = {d.x * cosine - d.y * sine, d.x * sine + d.y * cosine};
    quad.normal = {-quad.axis.y, quad.axis.x};
    return quad;
}

bool DrawsSkin(const Wirrel& wirrel, const WirrelPin& pin) {
    return (pin.Type() == Bone || pin.Type() == Attachment) && (pin.flags & kPinHidden) == 0 &&
           pin.skin >= 0 && static_cast<std::size_t>(pin.skin) < wirrel.skins.size() &&
           wirrel.skins[pin.skin].texture != -1;
}

float AutoSkinAngle(const Wirrel& wirrel, int textureIndex, float pinAngle) {
    const bool wide = textureIndex >= 0 && static_cast<std::size_t>(textureIndex) < wirrel.textures.size() &&
                      wirrel.textures[textureIndex].width > wirrel.textures[textureIndex].height;
    if (wide) {
        const double across = NormalizeAngle(static_cast<double>(pinAngle) - 1.5707963267948966);
        return across < 3.141592653589793 ? 3.1415927f : 0.0f;
    }
    return NormalizeAngle(pinAngle) > 3.1415927f ? 1.5707964f : NormalizeAngle(-1.5707964f);
}

void SetPinSkin(Wirrel& wirrel, WirrelKey& key, int pinIndex, const WirrelSkin& skin) {
    WirrelPin& pin = key.pins[pinIndex];
    const int current = pin.skin;
    int users = 0;
    for (const WirrelAnim& anim : wirrel.anims) {
        for (const WirrelKey& other : anim.keys) {
            users +=
                static_cast<int>(std::count_if(other.pins.begin(), other.pins.end(),
                                               [current](const WirrelPin& p) { return p.skin == current; }));
        }
    }
    if (current < 0 || static_cast<std::size_t>(current) >= wirrel.skins.size() || users > 1) {
        wirrel.skins.push_back(skin);
        pin.skin = static_cast<std::int32_t>(wirrel.skins.size() - 1);
        return;
    }
    if (skin.texture >= 0) {
        wirrel.skins[current] = skin;
        return;
    }
    wirrel.skins.erase(wirrel.skins.begin() + current);
    pin.skin = -1;
    for (WirrelAnim& anim : wirrel.anims) {
        for (WirrelKey& other : anim.keys) {
            for (WirrelPin& p : other.pins) {
                p.skin -= p.skin > current ? 1 : 0;
            }
        }
    }
}

int AddAabb(Wirrel& wirrel, WirrelKey& key, int pinIndex, const WirrelAabb& box) {
    const int added = static_cast<int>(wirrel.aabbs.size());
    wirrel.aabbs.push_back({std::min(box.left, box.right), std::min(box.top, box.bottom),
                            std::max(box.left, box.right), std::max(box.top, box.bottom), box.kind, -1});
    const auto linked = [added](int index) { return index >= 0 && index < added; };
    WirrelPin& pin = key.pins[pinIndex];
    if (!linked(pin.aabb)) {
        pin.aabb = added;
        return added;
    }
    // The walk is bounded, so that a damaged chain that loops can't hold it.
    int last = pin.aabb;
    for (int steps = 0; steps < added && linked(wirrel.aabbs[last].next); ++steps) {
        last = wirrel.aabbs[last].next;
    }
    wirrel.aabbs[last].next = added;
    return added;
}

}  // namespace kovra
