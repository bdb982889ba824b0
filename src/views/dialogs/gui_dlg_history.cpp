#include "views/dialogs/gui_dlg_history.h"

#include "gui/gui_button.h"
#include "gui/popup_menu.h"
#include "settings/theme.h"
#include "views/dialogs/dialog_items.h"
#include "views/dialogs/history_list.h"
#include "views/dialogs/row_list.h"

namespace kovra {

using namespace kestrel2::win;

GuiDlgHistory::GuiDlgHistory(WirrelDoc& document, CommandStack& stack, EditorHub& hub,
                             aurel::SettingsStore& settings)
    : ModelessDialog("History", DluX(230), DluY(163), settings, "GuiDlgHistoryState"),
      document_(document),
      stack_(stack),
      hub_(hub) {
    stack_.AddListener(this, &GuiDlgHistory::OnStackChanged);
}

void GuiDlgHistory::OnInitDialog() {
    list_ = MakeItem<RowList>(*this, kList, 7, 7, 216, 128, "", false);
    list_->SetAnchors(true, true, true, true);
    const std::pair<int, const char*> buttons[] = {{kUndo, "Undo"}, {kRedo, "Redo"}, {kRepeat, "Repeat"}};
    int x = 7;
    for (const auto& [id, text] : buttons) {
        MakeItem<GuiButton>(*this, id, x, 142, 54, 14, text)->SetAnchors(true, false, false, true);
        x += 58;
    }
    OnStackChanged();
}

void GuiDlgHistory::OnStackChanged() {
    if (!list_) {
        return;
    }
    const aurel::Theme& theme = aurel::CurrentTheme();
    std::vector<ListRow> rows;
    for (const HistoryRow& row : HistoryRows(stack_)) {
        rows.push_back({row.text, HistoryRowColor(row.kind, theme), false});
    }
    list_->SetRows(std::move(rows));
    list_->SetSel(HistorySelection(stack_));
}

void GuiDlgHistory::OnCommand(int id) {
    switch (id) {
        case kIdCancel:
            Close();
            break;
        case kUndo:
        case kRedo:
            stack_.UndoRedo(id == kRedo, hub_);
            break;
        case kRepeat: {
            std::vector<MenuNode> entries;
            for (const RepeatMode& mode : OfferedRepeats(stack_)) {
                MenuNode entry;
                entry.id = mode.menuId;
                entry.text = aurel::DualString(mode.text);
                entries.push_back(entry);
            }
            if (const int chosen = PopupMenu(*GetDlgControl(kRepeat), entries); chosen != 0) {
                RunRepeat(stack_, document_, chosen);
            }
            break;
        }
        default:
            break;
    }
}

}  // namespace kovra
