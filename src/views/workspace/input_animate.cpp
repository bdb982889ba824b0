// Animate mode: a drag of a pin poses the skeleton, with the inverse kinematics solver when its option
// is on (Alt changes lengths instead), else forward: Ctrl moves, Alt changes lengths, plain rotates.

#include "commands/pin_commands.h"
#include "views/workspace/workspace_input.h"

namespace kovra {

using namespace kestrel2::win;

void WorkspaceInput::OnInputAnimate(const InputEvent& event) {
    if (event.type == kInputKeyDown || event.type == kInputWheel) {
        eventListeners.Call(event);
        return;
    }
    if (event.type == kInputMouseMove && state_.dragging) {
        const bool ik = doc_.viewFlags[kViewIk];
        if (ik && !state_.altDown) {
            auto command = std::make_shared<CommandPinIk>(doc_, state_.pinSelection, event.x, event.y,
                                                          state_.view, state_.ctrlDown);
            if (command->valid) {
                Send(command);
            }
            return;
        }
        const int mode = ik || state_.altDown ? kDragLength : state_.ctrlDown ? kDragMove : kDragRotate;
        Send(std::make_shared<CommandPinFk>(
            Vec2{state_.dragPinX, state_.dragPinY},
            Vec2{static_cast<float>(state_.pressX), static_cast<float>(state_.pressY)},
            Vec2{static_cast<float>(event.x), static_cast<float>(event.y)}, doc_, state_.pinSelection, mode,
            state_.view));
        return;
    }
    if (event.type == kInputButtonUp && event.button == kButtonLeft && state_.dragging &&
        (event.x != state_.pressX || event.y != state_.pressY)) {
        // Also for an inverse kinematics drag: the next command of another kind freezes it.
        EndDrag(kKindPinFk, true);
    }
}

}  // namespace kovra
