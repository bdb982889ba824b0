#pragma once
// The native text box. It reports once at the end of an edit, never per keystroke: when it gets the
// focus its text becomes the last accepted text and the focus listeners run; when it loses the focus
// the change listeners run (with the id, then the parent's command listeners), also when the text is
// unchanged, for the listener compares with LastAccepted(); then the last accepted text is refreshed.
// Enter and Esc don't reach the box: they go to the key listeners, with the id and the virtual key.
// An edit attached to a dialog's item leaves Esc to the dialog, and a multi-line box that wants Enter
// keeps it.

#include "gui/i_gui_control.h"

namespace kestrel2::win {

struct EditStyle {
    bool multiLine = false;
    bool wantReturn = false;  // a multi-line box takes Enter as a new line
    bool readOnly = false;
};

class GuiEdit : public IGuiControl {
public:
    explicit GuiEdit(EditStyle style = {}) : style_(style) {}

    const aurel::DualString& LastAccepted() const { return accepted_; }
    // Limits the length of the text the user can type.
    void SetMaxLength(int characters);
    // Selects the whole text.
    void SelectAll();

    bool OnEditCommand(EditCommand command) override;
    bool IsTextBox() const override { return true; }

    // Runs the edit's own handling of a focus change or a key; true when the key was taken. The native
    // box calls these; tests may too.
    void FocusGained();
    void FocusLost();
    bool KeyPressed(int virtualKey);

    aurel::ListenerList<int> focusListeners;     // called with the id when the box gets the focus
    aurel::ListenerList<int, int> keyListeners;  // called with the id and the key, Enter or Esc

protected:
    void OnCreate() override;
    void OnNativeBound() override;

private:
    EditStyle style_;
    bool created_ = false;
    aurel::DualString accepted_;
};

}  // namespace kestrel2::win
