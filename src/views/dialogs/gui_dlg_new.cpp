#include "views/dialogs/gui_dlg_new.h"

#include "gui/gui_button.h"
#include "gui/gui_edit.h"
#include "views/dialogs/dialog_items.h"

namespace kovra {

using namespace kestrel2::win;

GuiDlgNew::GuiDlgNew(const aurel::DualString& title, aurel::DualString text)
    : IResDialog(title, DluX(350), DluY(226)), text_(std::move(text)) {}

void GuiDlgNew::OnInitDialog() {
    MakeItem<GuiEdit>(*this, kText, 7, 7, 336, 192, text_.Utf8(),
                      EditStyle{.multiLine = true, .readOnly = true});
    MakeItem<GuiButton>(*this, kIdCancel, 293, 205, 50, 14, "")->SetLang("COMMON", "Close");
}

void GuiDlgNew::OnCommand(int id) {
    if (id == kIdCancel || id == kIdOk) {
        EndDialog(id);
    }
}

}  // namespace kovra
