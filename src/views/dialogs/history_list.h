#pragma once
// What the history dialog shows of the undo stack, without a window: a row for the fresh document and
// one per command, the row of the stack's cursor selected, each row coloured by whether it is applied,
// undone, or still open for merging; and the repeat modes the top command offers.

#include <string>
#include <vector>

#include "base/color32.h"
#include "commands/command_stack.h"
#include "commands/repeat.h"
#include "settings/theme_table.h"

namespace kovra {

enum class HistoryRowKind { Applied, Undone, Open };

struct HistoryRow {
    std::string text;
    HistoryRowKind kind;
};

// Row 0 is the fresh document, named by the language; row k is commands[k - 1].
std::vector<HistoryRow> HistoryRows(const CommandStack& stack);

// The row to select: the last applied command's.
inline int HistorySelection(const CommandStack& stack) {
    return static_cast<int>(stack.Cursor());
}

// The theme's colour for a row's text: applied rows in the list's text colour.
aurel::Color32 HistoryRowColor(HistoryRowKind kind, const aurel::Theme& theme);

// The repeat menu's entries for the top applied command, in menu order; none without one.
std::vector<RepeatMode> OfferedRepeats(const CommandStack& stack);

// Wraps the top applied command in a repeat of the menu entry's mode and adds it to the stack.
void RunRepeat(CommandStack& stack, WirrelDoc& doc, int menuId);

}  // namespace kovra
