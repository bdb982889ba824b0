// The editor state's dialogs: the modal ones are made for one showing, the history and the quick help
// stay made for the life of the editor and are shown and hidden.

#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/app.h"
#include "settings/lang.h"
#include "state/main_menu.h"
#include "state/state_title.h"
#include "views/dialogs/gui_dlg_about.h"
#include "views/dialogs/gui_dlg_events.h"
#include "views/dialogs/gui_dlg_export_sprites.h"
#include "views/dialogs/gui_dlg_history.h"
#include "views/dialogs/gui_dlg_new.h"
#include "views/dialogs/gui_dlg_notes.h"
#include "views/dialogs/gui_dlg_pack.h"
#include "views/dialogs/gui_dlg_quick.h"

namespace kovra {

namespace {

std::string ReadFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

}  // namespace

void StateTitle::OpenDialog(int menuId) {
    kestrel2::win::Gui& root = window_.Root();
    switch (menuId) {
        case kMenuHistory:
            if (!history_) {
                history_ = std::make_shared<GuiDlgHistory>(document_, stack_, *this, app_->Settings());
            }
            history_->Toggle(&root);
            break;
        case kMenuQuickKeys:
            QuickDialog().Toggle(&root);
            break;
        case kMenuNotes:
            GuiDlgNotes(document_, stack_, window_.Prompt()).DoModal(&root);
            break;
        case kMenuEvents:
            if (document_.HasCurrentAnim()) {
                GuiDlgEvents(document_, stack_, window_.Prompt()).DoModal(&root);
            }
            break;
        case kMenuAbout:
            GuiDlgAbout(programFolder_ + "About.ske").DoModal(&root);
            break;
        case kMenuChangeLog:
            GuiDlgNew(aurel::Lang("DIALOG", "NewTitle"), ReadFile(programFolder_ + "Changes.txt"))
                .DoModal(&root);
            break;
        case kMenuPack:
            GuiDlgPack(document_, stack_, imageSelection_).DoModal(&root);
            break;
        case kMenuExportSprites:
            GuiDlgExportSprites(document_, std::filesystem::current_path().string()).DoModal(&root);
            break;
        default:
            break;
    }
}

GuiDlgQuick& StateTitle::QuickDialog() {
    if (!quick_) {
        quick_ = std::make_shared<GuiDlgQuick>(programFolder_ + "QuickHelp.nfo", app_->Settings());
    }
    return *quick_;
}

void StateTitle::ShowQuickPage() {
    // The inverse kinematics switch is not kept by the editor state yet: animate mode shows its page.
    if (app_ != nullptr) {
        QuickDialog().ShowPage(QuickHelpKey(editMode_, skinTool_, true));
    }
}

}  // namespace kovra
