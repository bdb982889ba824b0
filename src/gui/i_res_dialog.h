#pragma once
// The base of the editor's modal dialogs. A subclass builds its items as children of the dialog in
// OnInitDialog (MakeChild with the item's id and place), hears their commands in OnCommand, and ends the
// dialog with EndDialog. Esc and the window's close button arrive as the command kIdCancel.

#include "gui/i_gui_window.h"

namespace kestrel2::win {

class IResDialog : public IGuiWindow {
public:
    static constexpr int kIdOk = 1;
    static constexpr int kIdCancel = 2;

    IResDialog(aurel::DualString title, int width, int height);

    // Shows the dialog over `owner` (the main window when null) until EndDialog; answers its result.
    int DoModal(IGuiWindow* owner);
    void EndDialog(int result);
    // Shows the dialog over `owner` without a loop of its own, at the place and size given (its own size
    // when the width is 0); the user may make it larger. The items are made at the first showing; later
    // ones show the same dialog again. It stays until CloseModeless, which only hides it.
    void ShowModeless(IGuiWindow* owner, int placeX, int placeY, int placeWidth, int placeHeight);
    void CloseModeless();
    bool IsOpen() const;
    // The native window of an item, not owned.
    Window GetItem(int id) const;

protected:
    virtual void OnInitDialog() = 0;
    virtual void OnCommand(int id) = 0;
    // A dialog is made by DoModal, never created as a child.
    void OnCreate() override;

private:
    void Command(int id) { OnCommand(id); }

    aurel::DualString title_;
    int result_ = kIdCancel;
    int designWidth_;
    int designHeight_;
};

}  // namespace kestrel2::win
