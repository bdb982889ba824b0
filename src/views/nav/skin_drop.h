#pragma once
// What a skin dragged from the palette does where it is dropped on the workspace: on a pin, the pin
// takes the texture; on empty space, a new root is made at the point and takes it. Either is one step.

#include <memory>

#include "commands/command_macro.h"
#include "doc/selection_tracker.h"
#include "doc/view_transform.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// `pin` is the pin under the drop (its index in the current key frame) or -1; `x` and `y` are the drop
// point in world units. Null without a current key frame or texture.
std::shared_ptr<CommandMacro> MakeSkinDrop(WirrelDoc& doc, SelectionTracker& pins, int texture, int pin,
                                           float x, float y);

// The drop at client pixel (px, py) of a workspace showing `view`: on the first pin whose dot, of the
// radius in pixels, holds the point, else at the world point under it.
std::shared_ptr<CommandMacro> DropSkinAt(WirrelDoc& doc, SelectionTracker& pins, int texture,
                                         const ViewTransform& view, float px, float py, float radius);

}  // namespace kovra
