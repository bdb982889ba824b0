#include "views/dialogs/gui_dlg_events.h"

#include "gui/gui_button.h"
#include "gui/gui_list_box.h"
#include "gui/gui_props.h"
#include "gui/gui_static.h"
#include "views/dialogs/dialog_items.h"

namespace kovra {

using namespace kestrel2::win;

namespace {

// The grid's labels change with what is typed; they are rebuilt once the grid's own edit has ended.
constexpr int kRelabelTimer = 1;
// An event's name fits the document's name field with its terminating zero.
constexpr unsigned kNameLength = 31;

}  // namespace

GuiDlgEvents::GuiDlgEvents(WirrelDoc& document, CommandStack& stack, aurel::Prompt& prompt)
    : IResDialog("Event Editor", DluX(241), DluY(167)),
      document_(document),
      stack_(stack),
      prompt_(prompt),
      editing_(document.Wirrel(), document.cursor.animIndex, static_cast<int>(document.cursor.frameIndex)) {}

void GuiDlgEvents::OnInitDialog() {
    list_ = MakeItem<GuiListBox>(*this, kList, 7, 7, 80, 120, "", prompt_);
    MakeItem<GuiButton>(*this, kAdd, 7, 131, 18, 14, "+");
    MakeItem<GuiButton>(*this, kRemove, 27, 131, 18, 14, "-");
    grid_ = MakeItem<GuiProps>(*this, kGrid, 93, 7, 141, 120, "", prompt_);
    grid_->AddChangeListener(this, &GuiDlgEvents::OnRowChanged);
    MakeItem<GuiStatic>(*this, kNote, 93, 129, 141, 16, "Numbers become int or float.",
                        StaticStyle::WrappedLabel);
    MakeItem<GuiButton>(*this, kIdOk, 128, 147, 50, 14, "OK");
    MakeItem<GuiButton>(*this, kIdCancel, 184, 147, 50, 14, "")->SetLang("COMMON", "Cancel");
    FillList(editing_.Count() > 0 ? 0 : -1);
}

void GuiDlgEvents::FillList(int selection) {
    list_->Clear();
    for (int row = 0; row < editing_.Count(); ++row) {
        list_->AddItem(aurel::DualString(editing_.Name(row)), row);
    }
    list_->SetSel(selection);
    FillGrid();
}

void GuiDlgEvents::FillGrid() {
    grid_->Clear(EventEditing::kVarCount + 1);
    const int row = list_->GetSel();
    if (row < 0) {
        return;
    }
    grid_->AddRow(aurel::DualString("Event"), kPropString, aurel::DualString(editing_.Name(row)),
                  kNameLength);
    for (int var = 0; var < EventEditing::kVarCount; ++var) {
        const std::string& text = editing_.Var(row, var);
        grid_->AddRow(aurel::DualString(VarRowLabel(var + 1, text)), kPropString, aurel::DualString(text),
                      kNameLength);
    }
}

void GuiDlgEvents::OnRowChanged(int, int row, const aurel::DualString& text) {
    const int event = list_->GetSel();
    if (event < 0) {
        return;
    }
    if (row == 0) {
        editing_.SetName(event, text.Utf8());
    } else {
        editing_.SetVar(event, row - 1, text.Utf8());
    }
    SetTimer(kRelabelTimer, 0);
}

void GuiDlgEvents::OnTimer(int timerId) {
    if (timerId == kRelabelTimer) {
        KillTimer(kRelabelTimer);
        FillList(list_->GetSel());
    }
}

void GuiDlgEvents::OnCommand(int id) {
    switch (id) {
        case kList:
            FillGrid();
            break;
        case kAdd:
            FillList(editing_.Add());
            break;
        case kRemove:
            if (const int row = list_->GetSel(); row >= 0 && editing_.Remove(row, prompt_)) {
                FillList(std::min(row, editing_.Count() - 1));
            }
            break;
        case kIdOk:
            stack_.AddCommand(std::make_shared<CommandEditorEvents>(document_, editing_.Definitions()));
            EndDialog(id);
            break;
        case kIdCancel:
            EndDialog(id);
            break;
        default:
            break;
    }
}

}  // namespace kovra
