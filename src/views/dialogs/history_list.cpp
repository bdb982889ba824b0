#include "views/dialogs/history_list.h"

#include "settings/lang.h"

namespace kovra {

namespace {

// The menu id of the mode with the lowest bit; each next bit has the next id.
constexpr int kFirstRepeatId = 10000;

}  // namespace

std::vector<HistoryRow> HistoryRows(const CommandStack& stack) {
    std::vector<HistoryRow> rows;
    rows.push_back({aurel::Lang("COMMANDS", "New").Utf8(), HistoryRowKind::Applied});
    for (std::size_t i = 0; i < stack.Size(); ++i) {
        HistoryRowKind kind = i < stack.Cursor() ? HistoryRowKind::Applied : HistoryRowKind::Undone;
        if (i + 1 == stack.Cursor() && !stack.IsTopFrozen()) {
            kind = HistoryRowKind::Open;
        }
        rows.push_back({stack.At(i).label.Utf8(), kind});
    }
    return rows;
}

aurel::Color32 HistoryRowColor(HistoryRowKind kind, const aurel::Theme& theme) {
    switch (kind) {
        case HistoryRowKind::Undone:
            return theme.panels.undoRedoColor;
        case HistoryRowKind::Open:
            return theme.panels.undoActiveColor;
        default:
            return theme.ui.listFontColor;
    }
}

std::vector<RepeatMode> OfferedRepeats(const CommandStack& stack) {
    std::vector<RepeatMode> offered;
    const unsigned modes = stack.CanUndo() ? RepeatModesOf(*stack.TopCommand()) : 0;
    for (const RepeatMode& mode : kRepeatModes) {
        if ((modes & mode.mask) != 0) {
            offered.push_back(mode);
        }
    }
    return offered;
}

void RunRepeat(CommandStack& stack, WirrelDoc& doc, int menuId) {
    const unsigned mask = 1u << (menuId - kFirstRepeatId);
    stack.AddCommand(std::make_shared<CommandRepeat>(doc, stack.TopCommand(), mask));
}

}  // namespace kovra
