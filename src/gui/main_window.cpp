#include "gui/main_window.h"

#include <QCloseEvent>
#include <QMainWindow>
#include <QMoveEvent>
#include <QResizeEvent>
#include <QWidget>

namespace kestrel2::win {

namespace {

MainWindow* globalMainWindow = nullptr;

}  // namespace

// The toolkit's window: records every geometry change while not maximised, so that the restored
// rectangle is known even when the window is closed maximised.
class QtMainWindow : public QMainWindow {
public:
    explicit QtMainWindow(MainWindow& owner) : owner_(owner) {}

    Placement placement;
    bool closeRequested = false;

protected:
    void resizeEvent(QResizeEvent* event) override {
        QMainWindow::resizeEvent(event);
        Record();
        owner_.onSize.Call(placement);
    }
    void moveEvent(QMoveEvent* event) override {
        QMainWindow::moveEvent(event);
        Record();
        owner_.onMove.Call(placement);
    }
    void closeEvent(QCloseEvent* event) override {
        closeRequested = true;
        event->ignore();
    }

private:
    void Record() {
        const QRect normal = normalGeometry();
        if (normal.isValid()) {
            placement.x = normal.x();
            placement.y = normal.y();
            placement.width = normal.width();
            placement.height = normal.height();
        }
        placement.maximised = isMaximized();
    }

    MainWindow& owner_;
};

struct MainWindow::Impl {
    std::unique_ptr<QtMainWindow> window;
};

MainWindow::MainWindow() : impl_(std::make_unique<Impl>()), gui_(std::make_shared<Gui>()) {
    globalMainWindow = this;
}

// The tree goes first: its widgets live inside the window's.
MainWindow::~MainWindow() {
    gui_.reset();
    if (globalMainWindow == this) {
        globalMainWindow = nullptr;
    }
}

bool MainWindow::Create(const Placement& placement, bool resizable) {
    impl_->window = std::make_unique<QtMainWindow>(*this);
    QtMainWindow& window = *impl_->window;
    window.placement = placement;
    auto* client = new QWidget(&window);
    window.setCentralWidget(client);
    gui_->SetWindow(Window(client, false));
    window.resize(placement.width, placement.height);
    if (placement.x != kDefaultPosition && placement.y != kDefaultPosition) {
        window.move(placement.x, placement.y);
    }
    if (!resizable) {
        window.setFixedSize(placement.width, placement.height);
    }
    if (placement.maximised) {
        window.showMaximized();
    } else {
        window.showNormal();
    }
    return window.winId() != 0;
}

void MainWindow::SetTitle(const aurel::DualString& title) {
    impl_->window->setWindowTitle(QString::fromUtf8(title.Utf8()));
}

aurel::DualString MainWindow::Title() const {
    return impl_->window->windowTitle().toStdString();
}

bool MainWindow::CloseRequested() const {
    return impl_->window && impl_->window->closeRequested;
}

void* MainWindow::NativeWidget() const {
    return impl_->window.get();
}

MainWindow* GlobalMainWindow() {
    return globalMainWindow;
}

}  // namespace kestrel2::win
