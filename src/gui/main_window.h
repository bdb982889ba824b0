#pragma once
// The main window of the program. Its client area holds the root of the gui tree. It keeps its restored
// rectangle (the one it returns to from the maximised state) and tells its listeners when that rectangle
// changes and when the user asks to close it. The toolkit stays behind the private implementation.

#include <climits>
#include <memory>

#include "base/dual_string.h"
#include "base/listener_list.h"
#include "gui/gui.h"

namespace kestrel2::win {

struct Placement {
    int x = 0, y = 0, width = 0, height = 0;  // the restored rectangle
    bool maximised = false;
};

class MainWindow {
public:
    static constexpr int kDefaultPosition = INT32_MIN;

    MainWindow();
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    // Shows the window with the restored rectangle `placement` (a position of kDefaultPosition leaves
    // the place to the platform), maximised when asked. False when the window can't be made.
    bool Create(const Placement& placement, bool resizable);

    void SetTitle(const aurel::DualString& title);
    aurel::DualString Title() const;

    // True once the user asked to close the window; the window stays until it is destroyed.
    bool CloseRequested() const;

    // The toolkit's widget, for dialogs owned by this window.
    void* NativeWidget() const;

    // The root of the gui tree, bound to the client area once the window is created.
    Gui& RootGui() { return *gui_; }

    aurel::ListenerList<const Placement&> onSize;
    aurel::ListenerList<const Placement&> onMove;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
    std::shared_ptr<Gui> gui_;
};

// The one main window while it exists, else null: the owner of message boxes.
MainWindow* GlobalMainWindow();

}  // namespace kestrel2::win
