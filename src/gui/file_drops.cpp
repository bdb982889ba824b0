#include "gui/file_drops.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "gui/i_gui_window.h"

namespace kestrel2::win {

namespace {

class DropHook : public QObject {
public:
    DropHook(QWidget& widget, DropListeners& listeners) : QObject(&widget), listeners_(listeners) {
        widget.setAcceptDrops(true);
        widget.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override { return HandleFileDrop(event, listeners_); }

private:
    DropListeners& listeners_;
};

}  // namespace

bool HandleFileDrop(QEvent* event, DropListeners& listeners) {
    if (event->type() == QEvent::DragEnter) {
        auto* drag = static_cast<QDragEnterEvent*>(event);
        if (drag->mimeData()->hasUrls()) {
            drag->acceptProposedAction();
        }
        return true;
    }
    if (event->type() == QEvent::Drop) {
        auto* drop = static_cast<QDropEvent*>(event);
        for (const QUrl& url : drop->mimeData()->urls()) {
            if (url.isLocalFile()) {
                listeners.Call(aurel::DualString(url.toLocalFile().toStdString()));
            }
        }
        drop->acceptProposedAction();
        return true;
    }
    return false;
}

void AcceptFileDrops(IGuiWindow& window, DropListeners& listeners) {
    if (QWidget* widget = window.window.handle()) {
        new DropHook(*widget, listeners);
    }
}

}  // namespace kestrel2::win
