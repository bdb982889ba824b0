// The editor state's side of the navigation column: a skin dragged out of its palette lands on the
// workspace when it is let go there.

#include "settings/theme.h"
#include "state/state_title.h"
#include "views/gui_main_view.h"
#include "views/nav/skin_drop.h"

namespace kovra {

// The point is in the root's layout pixels; the workspace hit-tests in its own client pixels.
void StateTitle::OnSkinDrop(int texture, int x, int y) {
    const double ratio = workspace_->PixelRatio();
    const float px = static_cast<float>((x - workspace_->x) * ratio);
    const float py = static_cast<float>((y - workspace_->y) * ratio);
    if (!workspace_->IsVisible() || px < 0.0f || py < 0.0f ||
        px >= static_cast<float>(workspace_->ClientWidth()) ||
        py >= static_cast<float>(workspace_->ClientHeight())) {
        return;
    }
    const float radius = aurel::CurrentTheme().workspace.pinRadLg * static_cast<float>(ratio);
    if (auto command =
            DropSkinAt(document_, PinSelection(), texture, workspace_->state.view, px, py, radius)) {
        RunCommand(command);
    }
}

}  // namespace kovra
