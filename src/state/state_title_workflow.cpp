// How the editor state joins the file commands: what a closed or opened document does to the views,
// the notes greeting, and the recent list.

#include "state/main_menu.h"
#include "state/state_title.h"

namespace kovra {

WorkflowContext StateTitle::WorkflowContextOfState() {
    return WorkflowContext{.document = document_,
                           .stack = stack_,
                           .hub = *this,
                           .pins = pinClipboard_,
                           .textureSelection = textureSelection_,
                           .imageSelection = imageSelection_,
                           .prompt = window_.Prompt(),
                           .chooser = chooser_,
                           .recovery = recovery_,
                           .onClosed =
                               [this] {
                                   playState_ = 0;
                                   pinSelection_.Clear();
                                   textureSelection_.Clear();
                                   imageSelection_.Clear();
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
