#pragma once
// The root of the gui tree, bound to the main window's client area. Menu and accelerator commands reach
// its command listeners; tooltips registered anywhere in the tree end here; keys that no control took
// and files dropped on the window come out of its key and drop listeners; the colours of native text
// boxes and labels are set here for the whole tree.

#include "base/color32.h"
#include "gui/i_gui_window.h"

namespace kestrel2::win {

struct ControlColors {
    aurel::Color32 editText, editBack;
    aurel::Color32 labelText, dialogBack;
};

class Gui : public IGuiWindow {
public:
    // Binds the tree to a client area that already exists; its children are laid out in it.
    void SetWindow(Window client);
    // Native controls of the tree draw their text and background in these colours.
    void SetControlColors(const ControlColors& colors);

    aurel::ListenerList<int, bool> keyListeners;                  // a virtual key, and true when down
    aurel::ListenerList<const aurel::DualString&> dropListeners;  // the path of each file dropped

protected:
    // The root is bound with SetWindow, never created.
    void OnCreate() override;
    void OnNativeBound() override;
};

}  // namespace kestrel2::win
