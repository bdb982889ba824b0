#pragma once
// The editor's menu as data: the tree built from the menu table, re-labelled from section MAINMENU of
// the language, with the recent files and the files of the program's folders listed in their places.
// Entries are enabled and checked by predicates that Refresh evaluates once a frame; the window's menu
// bar only shows the tree.

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/dual_string.h"
#include "gui/menu_bar.h"
#include "state/main_menu.h"

namespace kovra {

class AutoMenu {
public:
    using MenuNode = kestrel2::win::MenuNode;

    explicit AutoMenu(std::span<const MenuTableEntry> table);

    const std::vector<MenuNode>& Items() const { return items_; }

    // Each entry with a key shows its word from section MAINMENU followed by the accelerator's name of
    // its default text.
    void ApplyLanguage();

    // Lists the paths, newest first, where the table keeps the recent files: at most eight, with ids from
    // kMenuRecentFirst, and a line after them.
    void SetRecentFiles(const std::vector<aurel::DualString>& paths);
    // Makes `names` the entries of the submenu of `key`, with ids from `firstId`; the submenu is enabled
    // exactly when it has entries.
    void SetSubmenuFiles(std::string_view key, int firstId, const std::vector<aurel::DualString>& names);

    // The first entry of that id, or null.
    const MenuNode* Find(int id) const;
    // The submenu of that key, or null.
    const MenuNode* FindSubmenu(std::string_view key) const;

    void SetText(int id, const aurel::DualString& text);
    void SetEnabled(int id, bool enabled);

    // Rules that Refresh applies: the entry `id` is enabled while `when` holds; entry firstId + i, for i
    // below `count`, is checked while `when(i)` holds.
    void EnableWhen(int id, std::function<bool()> when);
    void CheckWhen(int firstId, int count, std::function<bool(int)> when);
    void Refresh();

private:
    MenuNode* FindNode(int id);
    MenuNode* FindSubmenuNode(std::string_view key);

    std::vector<MenuNode> items_;
    std::map<std::string, std::string> acceleratorNames_;  // by key: the default text from its tab on
    std::size_t recentMenu_ = 0;                           // the top menu that holds the recent slot
    std::size_t recentPosition_ = 0;                       // its place among that menu's entries
    std::size_t recentShown_ = 0;                          // entries listed there now, the line included
    std::map<int, std::function<bool()>> enableRules_;
    struct CheckRule {
        int firstId;
        int count;
        std::function<bool(int)> when;
    };
    std::vector<CheckRule> checkRules_;
};

}  // namespace kovra
