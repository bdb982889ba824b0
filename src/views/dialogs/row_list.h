#pragma once
// The list of the dialogs that show rows of their own making: each row a text in its own colour, with a
// check box in front when the list has them (the images to pack, the animations to export) or without
// (the history). A click on a row's box toggles it and tells the check listeners; a click elsewhere
// selects the row and tells the select listeners. Setting rows from the program tells nobody.

#include <string>
#include <vector>

#include "base/color32.h"
#include "gui/i_gui_custom_control.h"

namespace kovra {

struct ListRow {
    std::string text;
    aurel::Color32 colour = 0;  // 0 for the list's text colour
    bool checked = false;
};

class RowList : public kestrel2::win::IGuiCustomControl {
public:
    explicit RowList(bool checkBoxes) : checkBoxes_(checkBoxes) { font.size = 15; }

    void SetRows(std::vector<ListRow> rows);
    const std::vector<ListRow>& Rows() const { return rows_; }
    // Selects the row, -1 for none, and scrolls it into view.
    void SetSel(int row);
    int GetSel() const { return selection_; }
    // The row under the client point, -1 for none.
    int RowAt(int y) const;
    int RowHeight() const { return Scaled(18); }

    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(kestrel2::win::InputEvent& event) override;

    aurel::ListenerList<int> checkListeners;   // the row whose box the user toggled
    aurel::ListenerList<int> selectListeners;  // the row the user selected

private:
    int VisibleRows() const;
    void ScrollBy(int rows);

    bool checkBoxes_;
    std::vector<ListRow> rows_;
    int selection_ = -1;
    int top_ = 0;  // the first row shown
};

}  // namespace kovra
