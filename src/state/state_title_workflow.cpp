// How the editor state joins the file commands: what a closed or opened document does to the views,
// the notes greeting, and the recent list.

#include "state/main_menu.h"
#include "state/state_title.h"
#include "views/gui_main_view.h"
#include "views/gui_texture.h"

namespace kovra {

WorkflowContext StateTitle::WorkflowContextOfState() {
    return WorkflowContext{.document = document_,
                           .stack = stack_,
                           .hub = *this,
                           .pins = pinClipboard_,
                           .textureSelection = TextureSelection(),
                           .imageSelection = imageSelection_,
                           .prompt = window_.Prompt(),
                           .chooser = chooser_,
                           .recovery = recovery_,
                           .onClosed =
                               [this] {
                                   SetPlayState(0);
                                   workspace_->ClearSelections();
                                   imageSelection_.Clear();
                                   if (texture_) {
                                       texture_->ClearForLoad();
                                   }
                               },
                           .onOpened = [this] { window_.Redraw(); },
                           .onNotes = [this] { OnMenuCommand(kMenuNotes); },
                           .onRecent =
                               [this](const aurel::DualString& path) {
                                   recentFiles_->Add(path);
                                   RebuildFileMenus();
                               }};
}

}  // namespace kovra
