#pragma once
// What lies under the mouse in the workspace, read from the same geometry the frame was painted with:
// the pins' pixels, the pick buffer, and the skin grips.

#include "bitmap/image_surface.h"
#include "doc/wirrel_doc.h"
#include "views/workspace/workspace_state.h"

namespace kovra {

struct Hit {
    int item = -1;
    int part = 0;
    bool operator==(const Hit&) const = default;
};

// The bone line's tolerance, in pixels.
constexpr float kBoneTolerance = 5.0f;

// The hover test: a pin dot (selected pins first), else the skin in the pick buffer (part 4), else a
// bone line (part 3), else nothing. A bone line found on a hidden pin makes nothing hot; the search
// doesn't go on.
Hit HoverTest(const WirrelDoc& doc, const WorkspaceState& state, const aurel::ImageSurface& pick,
              float pinRadius, int x, int y);

// The distance from (x, y) to the segment a-b; a segment of almost no length is its point a.
float SegmentDistance(float x, float y, float ax, float ay, float bx, float by);

// The skin tool's hover: the first grip circle that holds the point, else the first skin whose
// rectangle (spanned by its scale grips) holds it, as (pin, 4). Nothing when neither.
Hit GripTest(const WorkspaceState& state, float x, float y);

}  // namespace kovra
