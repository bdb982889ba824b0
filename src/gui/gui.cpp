#include "gui/gui.h"

#include <QKeyEvent>
#include <QPalette>
#include <QWidget>

#include "base/kestrel_exception.h"
#include "gui/file_drops.h"
#include "gui/virtual_keys.h"

namespace kestrel2::win {

namespace {

QColor ToQt(aurel::Color32 colour) {
    return QColor(colour.R(), colour.G(), colour.B());
}

// Keys that reach the client area untaken, and files dropped on it, go to the root's listeners.
class RootHook : public QObject {
public:
    RootHook(Gui& owner, QWidget& client) : QObject(&client), owner_(owner) {
        client.setAcceptDrops(true);
        client.setFocusPolicy(Qt::StrongFocus);
        client.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
            case QEvent::KeyPress:
            case QEvent::KeyRelease: {
                auto* key = static_cast<QKeyEvent*>(event);
                const int virtualKey =
                    VirtualKeyFromQt(key->key(), key->modifiers().testFlag(Qt::KeypadModifier));
                if (virtualKey == 0 || (key->isAutoRepeat() && event->type() == QEvent::KeyRelease)) {
                    return false;
                }
                owner_.keyListeners.Call(virtualKey, event->type() == QEvent::KeyPress);
                return true;
            }
            case QEvent::DragEnter:
            case QEvent::Drop:
                return HandleFileDrop(event, owner_.dropListeners);
            default:
                return false;
        }
    }

private:
    Gui& owner_;
};

}  // namespace

void Gui::SetWindow(Window client) {
    Attach(std::move(client));
}

void Gui::SetControlColors(const ControlColors& colors) {
    QWidget* root = window.handle();
    if (!root) {
        return;
    }
    QPalette palette = root->palette();
    palette.setColor(QPalette::Base, ToQt(colors.editBack));
    palette.setColor(QPalette::Text, ToQt(colors.editText));
    palette.setColor(QPalette::Window, ToQt(colors.dialogBack));
    palette.setColor(QPalette::WindowText, ToQt(colors.labelText));
    palette.setColor(QPalette::ButtonText, ToQt(colors.labelText));
    root->setPalette(palette);
}

void Gui::OnCreate() {
    throw aurel::KestrelUsageException("The root of the gui tree is bound, not created.");
}

void Gui::OnNativeBound() {
    AddHook(new RootHook(*this, *window.handle()));
}

}  // namespace kestrel2::win
