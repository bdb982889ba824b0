#pragma once
// Pose sampling: the pose between two key frames, the pose at a play position (optionally blended from the
// animation being left), and the skin records drawn for it. Interpolation is linear; angles go relative
// to the parent along the shorter arc, roots go straight in x and y.

#include <vector>

#include "anim/forward.h"
#include "doc/play_cursor.h"
#include "doc/wirrel.h"

namespace kovra {

// x minus the largest whole number not above it.
float Fraction(float x);

// The pose at `t` between `a` (0) and `b` (1). `out` has a's records in a's order; pins are matched by
// id, and a pin whose parent differs between the two is measured across the parents in b's world space.
void Interpolate(Pose& out, const Pose& a, const Pose& b, float t);

// The pose at the cursor's play position. False, with `out` untouched, when the cursor names no key
// frame of the document.
bool EvaluatePose(const Wirrel& wirrel, const PlayCursor& cursor, Pose& out);

// The skin record of a pin, or one with texture -1 when it has none.
WirrelSkin SkinOf(const Wirrel& wirrel, const WirrelPin& pin);

// The skin at `t` between `a` and `b`: none when `a` has none, `a` when `b` has none, else offsets,
// scales and angle linear in t (the angle directly, without the shorter arc) with a's texture.
WirrelSkin InterpolateSkin(const WirrelSkin& a, const WirrelSkin& b, float t);

// One skin record per pin of the pose that EvaluatePose gives for the same cursor, in its order.
bool EvaluateSkins(const Wirrel& wirrel, const PlayCursor& cursor, std::vector<WirrelSkin>& out);

}  // namespace kovra
