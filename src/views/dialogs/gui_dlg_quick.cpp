#include "views/dialogs/gui_dlg_quick.h"

#include "gui/gui_button.h"
#include "gui/gui_edit.h"
#include "views/dialogs/dialog_items.h"

namespace kovra {

using namespace kestrel2::win;

GuiDlgQuick::GuiDlgQuick(const std::string& helpFile, aurel::SettingsStore& settings)
    : ModelessDialog("Context Sensitive Quick Help", DluX(190), DluY(228), settings, "GuiDlgQuickState") {
    help_.Load(helpFile);
    ShowPage("TEXTURE");
}

void GuiDlgQuick::ShowPage(const std::string& key) {
    if (const std::optional<std::string> page = help_.Page(key)) {
        text_ = *page;
        if (view_) {
            view_->SetText(aurel::DualString(text_));
        }
    }
}

void GuiDlgQuick::OnInitDialog() {
    view_ = MakeItem<GuiEdit>(*this, kText, 7, 7, 176, 194, text_,
                              EditStyle{.multiLine = true, .readOnly = true});
    view_->SetAnchors(true, true, true, true);
    auto close = MakeItem<GuiButton>(*this, kIdCancel, 133, 207, 50, 14, "");
    close->SetLang("COMMON", "Close");
    close->SetAnchors(false, false, true, true);
}

void GuiDlgQuick::OnCommand(int id) {
    if (id == kIdCancel) {
        Close();
    }
}

}  // namespace kovra
