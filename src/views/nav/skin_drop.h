#pragma once
// What a skin dragged from the palette does where it is dropped on the workspace: on a pin, the pin
// takes the texture; on empty space, a new root is made at the point and takes it. Either is one step.

#include <memory>

#include "commands/command_macro.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// `pin` is the pin under the drop (its index in the current key frame) or -1; `x` and `y` are the drop
// point in world units. Null without a current key frame or texture.
std::shared_ptr<CommandMacro> MakeSkinDrop(WirrelDoc& doc, SelectionTracker& pins, int texture, int pin,
                                           float x, float y);

}  // namespace kovra
