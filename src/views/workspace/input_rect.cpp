// The rectangle tool of Build mode: a box drawn with the mouse becomes a collision rectangle of the
// current pin, of the document's current collision kind.

#include "commands/pin_commands.h"
#include "views/workspace/workspace_input.h"

namespace kovra {

using namespace kestrel2::win;

void WorkspaceInput::OnInputRect(const InputEvent& event) {
    if (event.type == kInputKeyDown || event.type == kInputWheel) {
        eventListeners.Call(event);
        return;
    }
    if (event.type != kInputButtonUp || !state_.marquee ||
        (event.button != kButtonLeft && event.button != kButtonRight)) {
        return;
    }
    state_.marquee = false;
    const int pin = state_.pinSelection.currentItem;
    if (!ValidPin(pin)) {
        return;
    }
    const ViewTransform& view = state_.view;
    Send(std::make_shared<CommandAabbCreate>(doc_, WorldX(view, static_cast<float>(state_.pressX)),
                                             WorldY(view, static_cast<float>(state_.pressY)),
                                             WorldX(view, static_cast<float>(state_.mouseX)),
                                             WorldY(view, static_cast<float>(state_.mouseY)), pin));
}

}  // namespace kovra
