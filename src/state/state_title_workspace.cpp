// The editor state's side of the workspace: the view's gestures go onto the undo stack, the keys and
// wheel it leaves reach the editor's own handling, and the editor's mode, tool and playback reach the
// view. The view's selections are the ones the whole editor shares.

#include "gui/input_event.h"
#include "gui/virtual_keys.h"
#include "state/state_title.h"
#include "views/gui_main_view.h"
#include "views/workspace/workspace_camera.h"

namespace kovra {

SelectionTracker& StateTitle::PinSelection() {
    return workspace_->state.pinSelection;
}

SelectionTracker& StateTitle::TextureSelection() {
    return workspace_->state.texSelection;
}

void StateTitle::BindWorkspace() {
    workspace_->commandListeners.Add(&stack_, &CommandStack::AddCommand);
    workspace_->dragEndListeners.Add(&stack_, &CommandStack::FinishDrag);
    workspace_->eventListeners.Add(this, &StateTitle::OnWorkspaceEvent);
    workspace_->SetEditMode(editMode_);
    workspace_->SetSkinTool(skinTool_);
}

void StateTitle::SetEditMode(int mode) {
    editMode_ = mode;
    workspace_->SetEditMode(mode);
    ShowQuickPage();
}

void StateTitle::SetSkinTool(int tool) {
    skinTool_ = tool;
    workspace_->SetSkinTool(tool);
    ShowQuickPage();
}

void StateTitle::SetPlayState(int state) {
    playState_ = state;
    workspace_->SetPlaying(state == 1);
}

void StateTitle::OnWorkspaceEvent(const kestrel2::win::InputEvent& event) {
    if (event.type == kestrel2::win::kInputKeyDown) {
        OnKey(event.key);
    } else if (event.type == kestrel2::win::kInputWheel && event.dy != 0) {
        workspace_->AddZoom(WheelZoomDelta(workspace_->state.view.zoom, event.dy));
    }
}

// Every change of the document shows in the workspace. A change that left fewer pins than the selection
// names (another animation, a deletion undone elsewhere) drops the pins that are gone from it.
void StateTitle::OnDocumentChanged() {
    workspace_->Refresh();
    const SelectionTracker& selection = workspace_->state.pinSelection;
    const int count = document_.HasCurrentAnim() ? static_cast<int>(document_.CurrentKey().pins.size()) : 0;
    const bool stale = selection.hotItem >= count || selection.currentItem >= count ||
                       (!selection.selected.empty() && *selection.selected.rbegin() >= count);
    if (stale) {
        std::vector<int> map(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            map[static_cast<std::size_t>(i)] = i;
        }
        workspace_->RemapSelection(map);
    }
}

// The menu's Delete is the Delete key given to the workspace, which deletes what its mode selects.
void StateTitle::DeleteInView() {
    if (editMode_ == kModeTextures) {
        PressDeleteInTextureView();
    } else {
        workspace_->PressKey(kestrel2::win::kVkDelete);
    }
}

}  // namespace kovra
