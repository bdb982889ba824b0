#include "gui/window.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace kestrel2::win {

namespace {

QString ToQt(const aurel::DualString& text) {
    return QString::fromUtf8(text.Utf8());
}

}  // namespace

struct Window::Guard {
    QPointer<QWidget> widget;
};

Window::Window() : guard_(std::make_unique<Guard>()) {}

Window::Window(QWidget* handle, bool owned) : guard_(std::make_unique<Guard>(Guard{handle})), owned_(owned) {}

Window::Window(Window&& other) noexcept
    : guard_(std::exchange(other.guard_, std::make_unique<Guard>())),
      owned_(std::exchange(other.owned_, false)) {}

Window& Window::operator=(Window&& other) noexcept {
    if (this != &other) {
        Reset();
        guard_ = std::exchange(other.guard_, std::make_unique<Guard>());
        owned_ = std::exchange(other.owned_, false);
    }
    return *this;
}

Window::~Window() {
    Reset();
}

QWidget* Window::handle() const {
    return guard_->widget.data();
}

void Window::Reset() {
    if (owned_) {
        delete guard_->widget.data();
    }
    guard_->widget = nullptr;
    owned_ = false;
}

void Window::SetPos(int x, int y, int width, int height) {
    if (QWidget* widget = handle()) {
        widget->setGeometry(x, y, std::max(width, 0), std::max(height, 0));
    }
}

void Window::Show(bool show) {
    if (QWidget* widget = handle()) {
        widget->setVisible(show);
    }
}

bool Window::IsVisible() const {
    return handle() && handle()->isVisible();
}

void Window::Enable(bool enable) {
    if (QWidget* widget = handle()) {
        widget->setEnabled(enable);
    }
}

bool Window::IsEnabled() const {
    return handle() && handle()->isEnabled();
}

void Window::SetText(const aurel::DualString& text) {
    QWidget* widget = handle();
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        button->setText(ToQt(text));
    } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
        line->setText(ToQt(text));
    } else if (auto* box = qobject_cast<QPlainTextEdit*>(widget)) {
        box->setPlainText(ToQt(text));
    } else if (auto* label = qobject_cast<QLabel*>(widget)) {
        label->setText(ToQt(text));
    } else if (auto* group = qobject_cast<QGroupBox*>(widget)) {
        group->setTitle(ToQt(text));
    } else if (auto* combo = qobject_cast<QComboBox*>(widget); combo && combo->isEditable()) {
        combo->setEditText(ToQt(text));
    } else if (widget) {
        widget->setWindowTitle(ToQt(text));
    }
}

aurel::DualString Window::GetText() const {
    QWidget* widget = handle();
    QString text;
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        text = button->text();
    } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
        text = line->text();
    } else if (auto* box = qobject_cast<QPlainTextEdit*>(widget)) {
        text = box->toPlainText();
    } else if (auto* label = qobject_cast<QLabel*>(widget)) {
        text = label->text();
    } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        text = combo->currentText();
    } else if (widget) {
        text = widget->windowTitle();
    }
    return aurel::DualString(text.toStdString());
}

void Window::SetFont(const Font& font) {
    if (QWidget* widget = handle()) {
        QFont qtFont(QString::fromStdString(font.face));
        qtFont.setPixelSize(std::max(font.size, 1));
        qtFont.setBold(font.style == Font::kBold);
        widget->setFont(qtFont);
    }
}

void Window::SetTooltip(const aurel::DualString& text) {
    if (QWidget* widget = handle()) {
        widget->setToolTip(ToQt(text));
    }
}

void Window::SetFocus() {
    if (QWidget* widget = handle()) {
        widget->setFocus(Qt::OtherFocusReason);
    }
}

bool Window::HasFocus() const {
    return handle() && handle()->hasFocus();
}

void Window::Redraw() {
    if (QWidget* widget = handle()) {
        widget->update();
    }
}

}  // namespace kestrel2::win
