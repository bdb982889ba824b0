#pragma once
// The window layer's own message box, for messages that must show in a chosen font (its face is
// "Arial"). The dialog grows until its text fits; its buttons stand in a row from the right, the first
// added rightmost and the default, with control ids from 300 upward; DoModal answers the id given with
// the button clicked.

#include <functional>
#include <memory>
#include <vector>

#include "base/dual_string.h"
#include "gui/font.h"

namespace kestrel2::win {

class IGuiWindow;

struct Growth {
    int width = 0;
    int height = 0;
};

// How much a dialog of the client size must grow for its text to fit the box that begins at (20, 20),
// is the dialog's width minus 40 wide and reaches down to the row of buttons. While the text doesn't
// fit, a step that starts at 20 grows by half of itself and is added to the width, three quarters of it
// to the height. `fits` answers whether the text fits a box of the width and height.
Growth GrowToFit(int width, int height, const std::function<bool(int boxWidth, int boxHeight)>& fits);

class DlgMessage {
public:
    static constexpr int kFirstButtonId = 300;
    static constexpr int kMargin = 20;
    static constexpr int kButtonRow = 47;  // the buttons' height with the space above and below them

    // `parent` may be null: the main window owns the dialog then.
    DlgMessage(IGuiWindow* parent, const aurel::DualString& title, const aurel::DualString& text);
    ~DlgMessage();

    // `result` is what DoModal answers when this button is clicked.
    void AddButton(const aurel::DualString& text, int result);
    void SetFont(const Font& font);

    // Sizes the dialog to its text and makes the row of buttons; DoModal does it first.
    void Layout();
    // Shows the dialog until a button is clicked; its result, or -1 when the dialog was closed.
    int DoModal();

    // After Layout: the dialog's client size and the buttons' control ids and rectangles, in the order
    // they were made (right to left).
    int Width() const;
    int Height() const;
    struct ButtonPlace {
        int controlId;
        int x, y, width, height;
        bool isDefault;
    };
    std::vector<ButtonPlace> Buttons() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace kestrel2::win
