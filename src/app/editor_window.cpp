#include "app/editor_window.h"

#include <QApplication>

#include <QBuffer>
#include <QClipboard>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QImage>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>
#include <algorithm>

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

// Watches the main window for the events that the editor state answers: a close asked by the user,
// and files dragged over and dropped.
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
            case QEvent::DragEnter: {
                auto* drag = static_cast<QDragEnterEvent*>(event);
                if (drag->mimeData()->hasUrls()) {
                    drag->acceptProposedAction();
                    return true;
                }
                break;
            }
            case QEvent::Drop: {
                auto* drop = static_cast<QDropEvent*>(event);
                for (const QUrl& url : drop->mimeData()->urls()) {
                    if (url.isLocalFile()) {
                        drop->acceptProposedAction();
                        handler_.OnDrop(DualString(url.toLocalFile().toStdString()));
                        return true;
                    }
                }
                break;
            }
            default:
                break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    kovra::ShellHandler& handler_;
    const bool& closing_;
};

QWidget* FocusedTextBox() {
    QWidget* focus = QApplication::focusWidget();
    return qobject_cast<QLineEdit*>(focus) || qobject_cast<QPlainTextEdit*>(focus) ||
                   qobject_cast<QTextEdit*>(focus)
               ? focus
               : nullptr;
}

// Calls the edit on whichever kind of text box `box` is.
template <class Box>
bool Edit(QWidget* box, kovra::TextBoxEdit edit) {
    auto* typed = qobject_cast<Box*>(box);
    if (!typed) {
        return false;
    }
    switch (edit) {
        case kovra::TextBoxEdit::Undo:
            typed->undo();
            break;
        case kovra::TextBoxEdit::Cut:
            typed->cut();
            break;
        case kovra::TextBoxEdit::Copy:
            typed->copy();
            break;
        case kovra::TextBoxEdit::Paste:
            typed->paste();
            break;
    }
    return true;
}

}  // namespace

struct EditorWindow::Impl {
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
    impl_->main = kestrel2::win::GlobalMainWindow();
    impl_->window = static_cast<QMainWindow*>(impl_->main->NativeWidget());
    impl_->menuBar = std::make_unique<kestrel2::win::MenuBar>(*impl_->main);
    impl_->menuBar->onCommand.Add(&handler, &kovra::ShellHandler::OnMenuCommand);
    impl_->watch = std::make_unique<WindowWatch>(handler, impl_->closing);
    impl_->window->installEventFilter(impl_->watch.get());
    impl_->window->setAcceptDrops(true);
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
    if (impl_->menuBar) {
        impl_->menuBar->onCommand.Clear();
    }
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

bool EditorWindow::ClipboardHasBitmap() const {
    const QMimeData* data = QApplication::clipboard()->mimeData();
    return data && data->hasImage();
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

void EditorWindow::CommitTextBox() {
    if (QWidget* box = FocusedTextBox()) {
        box->clearFocus();
    }
}

bool EditorWindow::EditTextBox(kovra::TextBoxEdit edit) {
    QWidget* box = FocusedTextBox();
    return box &&
           (Edit<QLineEdit>(box, edit) || Edit<QPlainTextEdit>(box, edit) || Edit<QTextEdit>(box, edit));
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
