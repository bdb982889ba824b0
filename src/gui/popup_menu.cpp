#include "gui/popup_menu.h"

#include <QMenu>
#include <QWidget>

#include "gui/i_gui_window.h"

namespace kestrel2::win {

int PopupMenu(IGuiWindow& below, const std::vector<MenuNode>& entries) {
    QWidget* widget = below.window.handle();
    if (widget == nullptr || entries.empty()) {
        return 0;
    }
    QMenu menu(widget);
    for (const MenuNode& entry : entries) {
        if (entry.id == MenuNode::kSeparator) {
            menu.addSeparator();
            continue;
        }
        QAction* action = menu.addAction(QString::fromUtf8(entry.text.Utf8()));
        action->setData(entry.id);
        action->setEnabled(entry.enabled);
    }
    const QAction* chosen = menu.exec(widget->mapToGlobal(QPoint(0, widget->height())));
    return chosen != nullptr ? chosen->data().toInt() : 0;
}

}  // namespace kestrel2::win
