#include "gui/menu_bar.h"

#include <QAction>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QShortcut>

#include "gui/main_window.h"

namespace kestrel2::win {

namespace {

// The actions of one level of the tree, in the same order as its nodes; a submenu's own action is its
// menu's menuAction.
struct ShownItem {
    int id = 0;
    QAction* action = nullptr;
    std::vector<ShownItem> children;
};

bool SameShape(const std::vector<ShownItem>& shown, const std::vector<MenuNode>& nodes) {
    if (shown.size() != nodes.size()) {
        return false;
    }
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (shown[i].id != nodes[i].id || !SameShape(shown[i].children, nodes[i].children)) {
            return false;
        }
    }
    return true;
}

QString ToQt(const aurel::DualString& text) {
    return QString::fromUtf8(text.Utf8());
}

// Brings the action's text, enabling and check mark to the node's, touching only what differs. The
// toolkit flips a checkable action when it is chosen; the tree stays the truth.
void Update(QAction& action, const MenuNode& node) {
    const QString text = ToQt(node.text);
    if (action.text() != text) {
        action.setText(text);
    }
    if (action.isEnabled() != node.enabled) {
        action.setEnabled(node.enabled);
    }
    if (node.id != 0 && (action.isCheckable() != node.checked || action.isChecked() != node.checked)) {
        action.setCheckable(node.checked);
        action.setChecked(node.checked);
    }
}

void UpdateAll(std::vector<ShownItem>& shown, const std::vector<MenuNode>& nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i].id != MenuNode::kSeparator) {
            Update(*shown[i].action, nodes[i]);
        }
        UpdateAll(shown[i].children, nodes[i].children);
    }
}

}  // namespace

struct MenuBar::Impl {
    QMainWindow* window = nullptr;
    std::vector<ShownItem> shown;
    std::vector<QPointer<QMenu>> menus;  // the bar's own, deleted when it is rebuilt
    std::vector<QPointer<QShortcut>> shortcuts;

    void Fill(MenuBar& owner, QMenu& menu, const std::vector<MenuNode>& nodes, std::vector<ShownItem>& out) {
        for (const MenuNode& node : nodes) {
            ShownItem item{node.id, nullptr, {}};
            if (node.id == MenuNode::kSeparator) {
                item.action = menu.addSeparator();
            } else if (node.id == 0) {
                QMenu* sub = menu.addMenu(ToQt(node.text));
                item.action = sub->menuAction();
                Fill(owner, *sub, node.children, item.children);
            } else {
                item.action = menu.addAction(ToQt(node.text));
                QObject::connect(item.action, &QAction::triggered,
                                 [&owner, id = node.id] { owner.onCommand.Call(id); });
            }
            out.push_back(std::move(item));
        }
    }
};

MenuBar::MenuBar(MainWindow& window) : impl_(std::make_unique<Impl>()) {
    impl_->window = static_cast<QMainWindow*>(window.NativeWidget());
}

// The menus and shortcuts call this object; they go with it unless the window took them already.
MenuBar::~MenuBar() {
    for (const QPointer<QMenu>& menu : impl_->menus) {
        delete menu.data();
    }
    for (const QPointer<QShortcut>& shortcut : impl_->shortcuts) {
        delete shortcut.data();
    }
}

void MenuBar::Show(const std::vector<MenuNode>& menus) {
    if (!SameShape(impl_->shown, menus)) {
        QMenuBar* bar = impl_->window->menuBar();
        bar->clear();
        impl_->shown.clear();
        // Later, since the rebuild may come from a command of one of these menus.
        for (const QPointer<QMenu>& menu : impl_->menus) {
            if (menu) {
                menu->deleteLater();
            }
        }
        impl_->menus.clear();
        for (const MenuNode& node : menus) {
            QMenu* menu = bar->addMenu(ToQt(node.text));
            impl_->menus.push_back(menu);
            ShownItem item{node.id, menu->menuAction(), {}};
            impl_->Fill(*this, *menu, node.children, item.children);
            impl_->shown.push_back(std::move(item));
        }
    }
    UpdateAll(impl_->shown, menus);
}

void MenuBar::AddAccelerator(const std::string& keys, int id) {
    auto* shortcut = new QShortcut(QKeySequence(QString::fromStdString(keys)), impl_->window);
    shortcut->setContext(Qt::WindowShortcut);
    QObject::connect(shortcut, &QShortcut::activated, [this, id] { onCommand.Call(id); });
    impl_->shortcuts.emplace_back(shortcut);
}

}  // namespace kestrel2::win
