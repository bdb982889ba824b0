#pragma once
// The event editor of one key frame: its events in a list, the selected one's name and six variables in
// a grid, each variable's row marked with the type its text reads as. "+" adds an event, "-" removes one
// (asking first when other frames trigger it too), and OK hands the new definitions to the stack.

#include <memory>

#include "base/prompt.h"
#include "commands/command_stack.h"
#include "doc/wirrel_doc.h"
#include "gui/i_res_dialog.h"
#include "views/dialogs/event_editing.h"

namespace kestrel2::win {
class GuiListBox;
class GuiProps;
}  // namespace kestrel2::win

namespace kovra {

class GuiDlgEvents : public kestrel2::win::IResDialog {
public:
    enum Item : int { kList = 1000, kAdd = 1001, kRemove = 1002, kGrid = 1004, kNote = 40024 };

    // The events of the document's current key frame.
    GuiDlgEvents(WirrelDoc& document, CommandStack& stack, aurel::Prompt& prompt);

    EventEditing& Editing() { return editing_; }

protected:
    void OnInitDialog() override;
    void OnCommand(int id) override;
    void OnTimer(int timerId) override;

private:
    void FillList(int selection);
    void FillGrid();
    void OnRowChanged(int id, int row, const aurel::DualString& text);

    WirrelDoc& document_;
    CommandStack& stack_;
    aurel::Prompt& prompt_;
    EventEditing editing_;
    std::shared_ptr<kestrel2::win::GuiListBox> list_;
    std::shared_ptr<kestrel2::win::GuiProps> grid_;
};

}  // namespace kovra
