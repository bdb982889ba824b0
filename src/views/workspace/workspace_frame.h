#pragma once
// The pose step that starts every workspace frame, and the geometry that painting and hit-testing
// share: the evaluated pose, the pins' pixels, the skin quads' corners and grips, and which pins show.
// Everything drawn or hit-tested reads these, never the stored key frames.

#include <array>

#include "doc/wirrel_doc.h"
#include "views/workspace/workspace_state.h"

namespace kovra {

// Evaluates the pose at the document's play position into the state, its pins' pixels, and in Build
// the grips of the skins of the selected pins. False, with the state untouched, when the document has
// no pose to show.
bool PoseStep(const WirrelDoc& doc, WorkspaceState& state, float gripRadius);

// The four corners of pin `pin`'s skin quad in client pixels (the camera included): c0 at the
// texture's top left, then round to c1 top right, c2 bottom right, c3 bottom left. False when the pin
// has no drawable skin.
bool SkinCorners(const WirrelDoc& doc, const WorkspaceState& state, int pin, const WirrelSkin& skin,
                 std::array<float, 8>& corners);

// A pin's pixel with the camera: where it is on the screen.
PinPoint PinScreen(const WorkspaceState& state, int pin);

// Whether the pin takes part in picking, bones and skin grips.
bool IsPinHidden(const WirrelDoc& doc, const WorkspaceState& state, int pin);
// Whether the pin's dot is left out of the frame: a pin that only carries attachments with skins, or
// a hidden one whose children are hidden too, gives way.
bool IsPinDotHidden(const WirrelDoc& doc, const WorkspaceState& state, int pin);

// The texture a skin shows, or null when it has none or its image is out of range. An empty image
// falls back to the document's missing-image picture, `source` then covering all of it.
const aurel::ImageSurface* SkinImage(const WirrelDoc& doc, const WirrelSkin& skin,
                                     std::array<float, 4>& source);

}  // namespace kovra
