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

namespace {

// The two upright angles of a skin on a bone: flat for a wide texture, standing for a tall one.
constexpr float kUprightWide = 3.1415927f;
constexpr float kUprightTall = 1.5707964f;

}  // namespace

float DefaultSkinAngle(const WirrelTexture& texture, float boneAngle) {
    if (texture.width > texture.height) {
        const double across = NormalizeAngle(static_cast<double>(boneAngle) - 1.5707963267948966);
        return across < 3.141592653589793 ? kUprightWide : 0.0f;
    }
    return NormalizeAngle(boneAngle) > kUprightWide ? kUprightTall : kTwoPi - kUprightTall;
}

float AutoSkinAngle(const Wirrel& wirrel, int textureIndex, float pinAngle) {
    const bool known = textureIndex >= 0 && static_cast<std::size_t>(textureIndex) < wirrel.textures.size();
    return DefaultSkinAngle(known ? wirrel.textures[textureIndex] : WirrelTexture{}, pinAngle);
}

WirrelSkin ResetSkin(const Wirrel& wirrel, const WirrelPin& pin, const WirrelSkin& skin, SkinReset what,
                     bool negative, bool aboutCentre, bool both) {
    WirrelSkin reset = skin;
    const bool known = skin.texture >= 0 && static_cast<std::size_t>(skin.texture) < wirrel.textures.size();
    const WirrelTexture texture = known ? wirrel.textures[skin.texture] : WirrelTexture{};
    const bool alongX = what == SkinReset::ScaleX;
    switch (what) {
        case SkinReset::Offset:
            reset.offsetX = reset.offsetY = 0.0f;
            break;
        case SkinReset::Angle:
            reset.angle = NormalizeAngle(DefaultSkinAngle(texture, pin.angle));
            break;
        case SkinReset::ScaleX:
        case SkinReset::ScaleY: {
            if (!aboutCentre && !both) {
                // The side opposite the grip stays: the centre moves by half of the change of size.
                const float size = static_cast<float>(alongX ? texture.width : texture.height);
                const float scale = alongX ? skin.scaleX : skin.scaleY;
                float v = size / static_cast<float>(wirrel.pixelsPerUnit) * pin.scale * (1.0f - scale) * 0.5f;
                v = negative ? -v : v;
                const float cosine = std::cos(skin.angle);
                const float sine = std::sin(skin.angle);
                reset.offsetX += alongX ? v * cosine : -v * sine;
                reset.offsetY += alongX ? v * sine : v * cosine;
            }
            (alongX ? reset.scaleX : reset.scaleY) = 1.0f;
            if (both) {
                reset.scaleX = reset.scaleY = 1.0f;
            }
            break;
        }
    }
    return reset;
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
