#include "app/editor_window.h"

#include <QApplication>

#include <QBuffer>
#include <QClipboard>
#include <QCloseEvent>
#include <QImage>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <algorithm>

#include "gui/clipboard.h"
#include "gui/main_window.h"

namespace aurel {

namespace {

QString ToQt(const DualString& text) {
    return QString::fromUtf8(text.Utf8());
}

// Message boxes owned by the main window.
class MessageBoxPrompt : public Prompt {
public:
    int Ask(const PromptRequest& request) override {
        QMessageBox box(IconOf(request.icon), ToQt(request.title), ToQt(request.text), QMessageBox::NoButton,
                        Owner());
        if (request.buttons == PromptButtons::Custom) {
            std::vector<QAbstractButton*> buttons;
            for (const DualString& label : request.labels) {
                buttons.push_back(box.addButton(ToQt(label), QMessageBox::AcceptRole));
            }
            box.exec();
            const auto chosen = std::find(buttons.begin(), buttons.end(), box.clickedButton());
            return chosen == buttons.end() ? SafeAnswer(request) : static_cast<int>(chosen - buttons.begin());
        }
        box.setStandardButtons(ButtonsOf(request.buttons));
        switch (box.exec()) {
            case QMessageBox::Yes:
                return kAnswerYes;
            case QMessageBox::No:
                return kAnswerNo;
            case QMessageBox::Ok:
                return kAnswerOk;
            default:
                return SafeAnswer(request);
        }
    }

private:
    static QWidget* Owner() {
        kestrel2::win::MainWindow* window = kestrel2::win::GlobalMainWindow();
        return window ? static_cast<QWidget*>(window->NativeWidget()) : nullptr;
    }
    static QMessageBox::Icon IconOf(PromptIcon icon) {
        switch (icon) {
            case PromptIcon::Information:
                return QMessageBox::Information;
            case PromptIcon::Question:
                return QMessageBox::Question;
            case PromptIcon::Warning:
                return QMessageBox::Warning;
            case PromptIcon::Error:
                return QMessageBox::Critical;
            default:
                return QMessageBox::NoIcon;
        }
    }
    static QMessageBox::StandardButtons ButtonsOf(PromptButtons buttons) {
        switch (buttons) {
            case PromptButtons::OkCancel:
                return QMessageBox::Ok | QMessageBox::Cancel;
            case PromptButtons::YesNo:
                return QMessageBox::Yes | QMessageBox::No;
            case PromptButtons::YesNoCancel:
                return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
            default:
                return QMessageBox::Ok;
        }
    }
};

// Asks the editor state before the main window closes at the user's request.
class WindowWatch : public QObject {
public:
    WindowWatch(kovra::ShellHandler& handler, const bool& closing) : handler_(handler), closing_(closing) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::Close:
                if (!closing_ && !handler_.OnCloseRequest()) {
                    event->ignore();
                    return true;
                }
                break;
            default:
                break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    kovra::ShellHandler& handler_;
    const bool& closing_;
};

kestrel2::win::IGuiWindow* FocusedTextBox() {
    kestrel2::win::IGuiWindow* focus = kestrel2::win::FocusedWindow();
    return focus && focus->IsTextBox() ? focus : nullptr;
}

kestrel2::win::EditCommand CommandOf(kovra::TextBoxEdit edit) {
    switch (edit) {
        case kovra::TextBoxEdit::Undo:
            return kestrel2::win::EditCommand::Undo;
        case kovra::TextBoxEdit::Cut:
            return kestrel2::win::EditCommand::Cut;
        case kovra::TextBoxEdit::Copy:
            return kestrel2::win::EditCommand::Copy;
        default:
            return kestrel2::win::EditCommand::Paste;
    }
}

}  // namespace

struct EditorWindow::Impl {
    // Keys and drops that reach the root of the gui tree.
    void OnRootKey(int key, bool down) {
        if (down) {
            handler->OnKey(key);
        }
    }
    void OnRootDrop(const DualString& path) { handler->OnDrop(path); }

    kovra::ShellHandler* handler = nullptr;
    MessageBoxPrompt prompt;
    kestrel2::win::MainWindow* main = nullptr;
    QMainWindow* window = nullptr;
    std::unique_ptr<kestrel2::win::MenuBar> menuBar;
    std::unique_ptr<WindowWatch> watch;
    std::unique_ptr<QTimer> timer;
    bool closing = false;
};

EditorWindow::EditorWindow() : impl_(std::make_unique<Impl>()) {}

EditorWindow::~EditorWindow() {
    Detach();
}

void EditorWindow::Attach(kovra::ShellHandler& handler, int timerMs) {
    impl_->handler = &handler;
    impl_->main = kestrel2::win::GlobalMainWindow();
    impl_->main->RootGui().keyListeners.AddUnique(impl_.get(), &Impl::OnRootKey);
    impl_->main->RootGui().dropListeners.AddUnique(impl_.get(), &Impl::OnRootDrop);
    impl_->window = static_cast<QMainWindow*>(impl_->main->NativeWidget());
    impl_->menuBar = std::make_unique<kestrel2::win::MenuBar>(*impl_->main);
    impl_->menuBar->onCommand.Add(&handler, &kovra::ShellHandler::OnMenuCommand);
    impl_->watch = std::make_unique<WindowWatch>(handler, impl_->closing);
    impl_->window->installEventFilter(impl_->watch.get());
    impl_->timer = std::make_unique<QTimer>();
    QObject::connect(impl_->timer.get(), &QTimer::timeout, [&handler] { handler.OnTimer(); });
    impl_->timer->start(timerMs);
}

void EditorWindow::Detach() {
    impl_->timer.reset();
    if (impl_->window && impl_->watch) {
        impl_->window->removeEventFilter(impl_->watch.get());
    }
    impl_->watch.reset();
    if (impl_->main) {
        impl_->main->RootGui().keyListeners.Remove(impl_.get(), &Impl::OnRootKey);
        impl_->main->RootGui().dropListeners.Remove(impl_.get(), &Impl::OnRootDrop);
    }
    impl_->menuBar.reset();
    impl_->main = nullptr;
    impl_->window = nullptr;
}

DualString EditorWindow::Title() const {
    return impl_->main->Title();
}

void EditorWindow::SetTitle(const DualString& title) {
    impl_->main->SetTitle(title);
}

void EditorWindow::ShowMenu(const std::vector<kestrel2::win::MenuNode>& menus) {
    impl_->menuBar->Show(menus);
}

void EditorWindow::AddAccelerator(const std::string& keys, int id) {
    impl_->menuBar->AddAccelerator(keys, id);
}

kestrel2::win::Gui& EditorWindow::Root() {
    return impl_->main->RootGui();
}

bool EditorWindow::ClipboardHasBitmap() const {
    return kestrel2::win::ClipboardHasImage();
}

std::vector<std::uint8_t> EditorWindow::ClipboardBitmap() const {
    const QImage image = QApplication::clipboard()->image();
    if (image.isNull()) {
        return {};
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return {bytes.begin(), bytes.end()};
}

bool EditorWindow::TextBoxHasFocus() const {
    return FocusedTextBox() != nullptr;
}

// A text box reports its change when it loses the focus.
void EditorWindow::CommitTextBox() {
    if (kestrel2::win::IGuiWindow* box = FocusedTextBox(); box && box->window.handle()) {
        box->window.handle()->clearFocus();
    }
}

bool EditorWindow::EditTextBox(kovra::TextBoxEdit edit) {
    kestrel2::win::IGuiWindow* box = FocusedTextBox();
    return box && box->OnEditCommand(CommandOf(edit));
}

void EditorWindow::Redraw() {
    impl_->window->update();
    for (QWidget* child : impl_->window->findChildren<QWidget*>()) {
        child->update();
    }
}

void EditorWindow::Close() {
    impl_->closing = true;
    impl_->window->close();
}

Prompt& EditorWindow::Prompt() {
    return impl_->prompt;
}

}  // namespace aurel
