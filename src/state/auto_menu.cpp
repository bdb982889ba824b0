#include "state/auto_menu.h"

#include <algorithm>

#include "settings/lang.h"

namespace kovra {

namespace {

using kestrel2::win::MenuNode;

// A file's name as a menu shows it: "&" would mark a mnemonic, "&&" is the character itself.
std::string MenuText(const std::string& name) {
    std::string text;
    for (const char c : name) {
        text += c;
        if (c == '&') {
            text += '&';
        }
    }
    return text;
}

template <class Node, class Match>
Node* Search(std::vector<Node>& nodes, const Match& match) {
    for (Node& node : nodes) {
        if (match(node)) {
            return &node;
        }
        if (Node* found = Search(node.children, match)) {
            return found;
        }
    }
    return nullptr;
}

}  // namespace

AutoMenu::AutoMenu(std::span<const MenuTableEntry> table) {
    // One level of the table, from `i` to the end entry that closes it; answers the index of that end.
    auto parse = [&](auto& self, std::size_t i, std::vector<MenuNode>& out) -> std::size_t {
        for (; i < table.size() && table[i].id != kMenuEnd; ++i) {
            const MenuTableEntry& entry = table[i];
            if (entry.flags & kFlagRecentSlot) {
                recentMenu_ = items_.size();
                recentPosition_ = out.size();
                continue;
            }
            MenuNode node;
            node.id = entry.id;
            node.enabled = (entry.flags & kFlagDisabled) == 0;
            if (entry.id != kMenuSeparator) {
                const std::string text = entry.text;
                node.text = aurel::DualString(text);
                node.key = entry.key;
                const std::size_t tab = text.find('\t');
                acceleratorNames_[node.key] = tab == std::string::npos ? std::string() : text.substr(tab);
            }
            if (entry.id == kMenuSubmenu) {
                i = self(self, i + 1, node.children);
            }
            out.push_back(std::move(node));
        }
        return i;
    };
    for (std::size_t i = 0; i < table.size(); ++i) {
        MenuNode menu;
        menu.text = aurel::DualString(table[i].text);
        menu.key = table[i].key;
        menu.enabled = (table[i].flags & kFlagDisabled) == 0;
        i = parse(parse, i + 1, menu.children);
        items_.push_back(std::move(menu));
    }
}

void AutoMenu::ApplyLanguage() {
    auto relabel = [this](auto& self, std::vector<MenuNode>& nodes) -> void {
        for (MenuNode& node : nodes) {
            if (!node.key.empty()) {
                node.text =
                    aurel::DualString(aurel::Lang("MAINMENU", node.key).Utf8() + acceleratorNames_[node.key]);
            }
            self(self, node.children);
        }
    };
    relabel(relabel, items_);
}

void AutoMenu::SetRecentFiles(const std::vector<aurel::DualString>& paths) {
    std::vector<MenuNode>& entries = items_[recentMenu_].children;
    const auto slot = entries.begin() + static_cast<std::ptrdiff_t>(recentPosition_);
    entries.erase(slot, slot + static_cast<std::ptrdiff_t>(recentShown_));
    std::vector<MenuNode> listed;
    const std::size_t count = std::min<std::size_t>(paths.size(), kMenuRecentCount);
    for (std::size_t i = 0; i < count; ++i) {
        MenuNode node;
        node.id = kMenuRecentFirst + static_cast<int>(i);
        node.text = aurel::DualString("&" + std::to_string(i + 1) + " " + MenuText(paths[i].Utf8()));
        listed.push_back(std::move(node));
    }
    if (!listed.empty()) {
        MenuNode line;
        line.id = MenuNode::kSeparator;
        listed.push_back(std::move(line));
    }
    recentShown_ = listed.size();
    entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(recentPosition_), listed.begin(),
                   listed.end());
}

void AutoMenu::SetSubmenuFiles(std::string_view key, int firstId,
                               const std::vector<aurel::DualString>& names) {
    MenuNode* submenu = FindSubmenuNode(key);
    submenu->children.clear();
    for (std::size_t i = 0; i < names.size(); ++i) {
        MenuNode node;
        node.id = firstId + static_cast<int>(i);
        node.text = aurel::DualString(MenuText(names[i].Utf8()));
        submenu->children.push_back(std::move(node));
    }
    submenu->enabled = !names.empty();
}

const MenuNode* AutoMenu::Find(int id) const {
    return const_cast<AutoMenu*>(this)->FindNode(id);
}

const MenuNode* AutoMenu::FindSubmenu(std::string_view key) const {
    return const_cast<AutoMenu*>(this)->FindSubmenuNode(key);
}

MenuNode* AutoMenu::FindNode(int id) {
    return Search(items_, [id](const MenuNode& node) { return node.id == id; });
}

MenuNode* AutoMenu::FindSubmenuNode(std::string_view key) {
    return Search(items_, [key](const MenuNode& node) { return node.id == kMenuSubmenu && node.key == key; });
}

void AutoMenu::SetText(int id, const aurel::DualString& text) {
    if (MenuNode* node = FindNode(id)) {
        node->text = text;
    }
}

void AutoMenu::SetEnabled(int id, bool enabled) {
    if (MenuNode* node = FindNode(id)) {
        node->enabled = enabled;
    }
}

void AutoMenu::EnableWhen(int id, std::function<bool()> when) {
    enableRules_[id] = std::move(when);
}

void AutoMenu::CheckWhen(int firstId, int count, std::function<bool(int)> when) {
    checkRules_.push_back(CheckRule{firstId, count, std::move(when)});
}

void AutoMenu::Refresh() {
    auto apply = [this](auto& self, std::vector<MenuNode>& nodes) -> void {
        for (MenuNode& node : nodes) {
            if (const auto rule = enableRules_.find(node.id); rule != enableRules_.end()) {
                node.enabled = rule->second();
            }
            for (const CheckRule& rule : checkRules_) {
                if (node.id >= rule.firstId && node.id < rule.firstId + rule.count) {
                    node.checked = rule.when(node.id - rule.firstId);
                }
            }
            self(self, node.children);
        }
    };
    apply(apply, items_);
}

}  // namespace kovra
