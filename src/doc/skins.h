#pragma once
// Skins and collision rectangles on pins. A skin is a texture laid along a pin's bone as a quad with
// its own offset, scale and rotation; collision rectangles hang on a pin in a chain. Both live in flat
// tables of the Wirrel that many pin records may share, so every write of a pin's skin goes through
// SetPinSkin, which keeps shared entries intact.

#include <cstdint>

#include "doc/pin_tree.h"
#include "doc/wirrel.h"

namespace kovra {

// A skin's quad in the workspace: its centre, its two unit axes and its half extents along them.
struct SkinQuad {
    PinPoint centre;
    PinPoint axis;    // along the bone, turned by the skin's angle
    PinPoint normal;  // the axis turned a quarter to the left
    float halfWidth = 0.0f;
    float halfHeight = 0.0f;
};

// The quad of `skin` on `pin`, which stands at `position` and hangs from `parentPosition`.
SkinQuad MakeSkinQuad(const WirrelPin& pin, PinPoint position, PinPoint parentPosition,
                      const WirrelSkin& skin, const WirrelTexture& texture, std::int32_t pixelsPerUnit);

// True for a shown Bone or Attachment whose skin has a texture: only these are drawn with a skin.
bool DrawsSkin(const Wirrel& wirrel, const WirrelPin& pin);

// The angle a skin gets when it is first placed, so that the sprite stands upright: for a wide texture
// pi or 0, for a tall or square one pi/2 or 3pi/2, by the direction of the bone.
float DefaultSkinAngle(const WirrelTexture& texture, float boneAngle);
// The same for texture `textureIndex` of the table; an index outside it counts as a square texture.
float AutoSkinAngle(const Wirrel& wirrel, int textureIndex, float pinAngle);

// What a double click on a grip of a skin resets: the offset, the scale from a side, the angle.
enum class SkinReset { Offset, ScaleX, ScaleY, Angle };

// The skin `skin` of `pin` with one thing set back to its default. A scale reset by itself keeps the
// side opposite the grip in place, moving the offset; `aboutCentre` keeps the centre instead, `both`
// resets both scales about the centre; `negative` names the grip on the minus side of the axis. The
// angle goes back to the upright nearest to the bone's direction.
WirrelSkin ResetSkin(const Wirrel& wirrel, const WirrelPin& pin, const WirrelSkin& skin, SkinReset what,
                     bool negative, bool aboutCentre, bool both);

// Gives pin `pinIndex` of `key` (a key frame of `wirrel`) the skin values. An entry that other records
// use too is left to them and the pin gets a new one; the pin's own entry is overwritten, or erased
// when the new values have no texture, lowering every skin index above it.
void SetPinSkin(Wirrel& wirrel, WirrelKey& key, int pinIndex, const WirrelSkin& skin);

// Appends a collision rectangle with its corners sorted and links it at the end of the pin's chain.
// Answers its index in the table.
int AddAabb(Wirrel& wirrel, WirrelKey& key, int pinIndex, const WirrelAabb& box);

}  // namespace kovra
