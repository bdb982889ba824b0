#pragma once
// What the editor state needs of the main window beyond the gui tree: its title and menu bar, its
// accelerators, the system clipboard, the focused text box, dropped files, a timer and the close
// question. The editor's window implements it over the toolkit; tests script it.

#include <cstdint>
#include <string>
#include <vector>

#include "base/dual_string.h"
#include "base/prompt.h"
#include "gui/gui.h"
#include "gui/menu_bar.h"

namespace kovra {

// What the window tells the editor state, from inside the event pump.
class ShellHandler {
public:
    virtual ~ShellHandler() = default;
    // A menu entry or an accelerator.
    virtual void OnMenuCommand(int id) = 0;
    // A key that no control took, as a virtual key code.
    virtual void OnKey(int key) = 0;
    // A file dropped on the window.
    virtual void OnDrop(const aurel::DualString& path) = 0;
    virtual void OnTimer() = 0;
    // The user asked to close the window; false keeps it open.
    virtual bool OnCloseRequest() = 0;
};

enum class TextBoxEdit { Undo, Cut, Copy, Paste };

class ShellWindow {
public:
    virtual ~ShellWindow() = default;

    // Binds to the main window, which exists from now on: events go to `handler`, among them the keys
    // and dropped files that reach the root of the gui tree, and the timer calls OnTimer every
    // `timerMs` milliseconds.
    virtual void Attach(ShellHandler& handler, int timerMs) = 0;
    // Leaves the window: no event reaches the handler any more.
    virtual void Detach() = 0;

    // The root of the gui tree, which the views are made in.
    virtual kestrel2::win::Gui& Root() = 0;

    virtual aurel::DualString Title() const = 0;
    virtual void SetTitle(const aurel::DualString& title) = 0;
    virtual void ShowMenu(const std::vector<kestrel2::win::MenuNode>& menus) = 0;
    // A key combination such as "Ctrl+Shift+S" that sends `id` as a menu command.
    virtual void AddAccelerator(const std::string& keys, int id) = 0;

    virtual bool ClipboardHasBitmap() const = 0;
    // The clipboard's picture encoded as PNG, empty when it holds none.
    virtual std::vector<std::uint8_t> ClipboardBitmap() const = 0;

    virtual bool TextBoxHasFocus() const = 0;
    // Ends the edit of the focused text box, so that its change is reported before a save.
    virtual void CommitTextBox() = 0;
    // Gives the focused text box the edit; false when no text box has focus.
    virtual bool EditTextBox(TextBoxEdit edit) = 0;

    virtual void Redraw() = 0;
    // Closes the window without asking the handler; the program ends.
    virtual void Close() = 0;
    // Message boxes owned by the window.
    virtual aurel::Prompt& Prompt() = 0;
};

}  // namespace kovra
