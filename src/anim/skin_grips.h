#pragma once
// The grips of the build mode: for every pin thirteen screen points, the pin and its parent, the skin's
// body, four scale grips on the middles of its sides and four rotation grips on its corners. The
// workspace paints and hit-tests them, and the skin commands read where the dragged grip stood, so both
// take them from this one table.

#include <array>
#include <vector>

#include "anim/forward.h"
#include "doc/selection_tracker.h"
#include "doc/skins.h"
#include "doc/view_transform.h"
#include "doc/wirrel.h"

namespace kovra {

struct SkinGrip {
    float x = 0.0f;
    float y = 0.0f;
    float radius = 0.0f;
    bool operator==(const SkinGrip&) const = default;
};

// The parts of a pin's thirteen entries. Part 0 is unused and stands for the pin itself in a hot part.
enum GripPart : int {
    kGripPin = 1,
    kGripParent = 2,
    kGripBone = 3,         // the bone line; a copy of the pin's grip
    kGripBody = 4,         // the skin's body
    kGripScaleTop = 5,     // the middle of the side from corner 0 to corner 1
    kGripScaleBottom = 6,  // corners 2 and 3
    kGripScaleRight = 7,   // corners 1 and 2
    kGripScaleLeft = 8,    // corners 3 and 0
    kGripRotate0 = 9,      // corner 0; then 10 corner 1, 11 corner 3, 12 corner 2
    kGripRotate2 = 12,
};
constexpr int kGripsPerPin = 13;

// The corners of a skin's quad in a walk round it: 0 at minus both half extents, 1 along the axis from
// it, 2 opposite 0, 3 along the normal from 0.
std::array<PinPoint, 4> QuadCorners(const SkinQuad& quad);

// The skin's quad of pin `index` of `pose` in world units, the pin's parent (or the origin) giving its
// bone. False when the pin has no skin with a texture of the table.
bool PoseSkinQuad(const Wirrel& wirrel, const Pose& pose, const std::vector<WorldPoint>& world, int index,
                  SkinQuad& quad);

// Rebuilds `grips` for the pose as the view shows it: 13 zeroed entries a pin, and in the build mode the
// grips of the pins that carry them. A selected root stands for its only child and is passed over with
// none or several; any other selected pin stands for itself. Grips lie in screen pixels, the camera
// included, rounded down. Answers whether one of the pins that carry grips is hot.
bool BuildSkinGrips(const Wirrel& wirrel, const Pose& pose, const ViewTransform& view, int editMode,
                    const SelectionTracker& selection, float pinRadius, std::vector<SkinGrip>& grips);

}  // namespace kovra
