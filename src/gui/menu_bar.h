#pragma once
// The main window's menu bar and its keyboard accelerators. The menu is plain data, a tree of MenuNode
// values that the editor builds and changes without any toolkit; MenuBar makes the window's native menu
// show such a tree and reports the id of each entry chosen or accelerator pressed.

#include <memory>
#include <string>
#include <vector>

#include "base/dual_string.h"
#include "base/listener_list.h"

namespace kestrel2::win {

class MainWindow;

struct MenuNode {
    static constexpr int kSeparator = 65535;

    int id = 0;              // the command id; 0 opens a submenu of `children`, kSeparator draws a line
    aurel::DualString text;  // "&" marks the mnemonic; what follows a tab is the accelerator's name
    std::string key;         // the language key the text is read from, empty for file entries
    bool enabled = true;
    bool checked = false;
    std::vector<MenuNode> children;

    bool operator==(const MenuNode&) const = default;
};

class MenuBar {
public:
    explicit MenuBar(MainWindow& window);
    ~MenuBar();
    MenuBar(const MenuBar&) = delete;
    MenuBar& operator=(const MenuBar&) = delete;

    // Makes the bar show `menus`. Only what differs from the tree shown before is touched: a change of
    // shape rebuilds the bar, a change of text, enabling or check mark updates that one entry.
    void Show(const std::vector<MenuNode>& menus);

    // A key combination of the window, written as "Ctrl+Shift+S" or "F1", that sends `id` to onCommand.
    void AddAccelerator(const std::string& keys, int id);

    // Called with the id of the entry or accelerator, from inside the event pump.
    aurel::ListenerList<int> onCommand;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace kestrel2::win
