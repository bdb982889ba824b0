#pragma once
// Whether a skin shows inside a selection box of the workspace: the test that area selection makes for
// each pin with a skin. A texture's marks say where its regions are; a skin whose marks all lie outside
// the box still counts when its picture touches the box's outline.

#include <cstddef>

#include "anim/forward.h"
#include "doc/view_transform.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// A box in pixels relative to the world origin, as pin pixels are.
struct PixelBox {
    float left;
    float top;
    float right;
    float bottom;
};

// False for a pin without a skin on a valid texture. `view.pinPixels` holds the pose's pins.
bool SkinInBox(const WirrelDoc& doc, const Pose& pose, const ViewTransform& view, std::size_t index,
               const PixelBox& box);

}  // namespace kovra
