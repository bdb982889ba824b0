#include "gui/i_gui_window.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QTimer>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <vector>

#include "gui/main_window.h"
#include "settings/lang.h"

namespace kestrel2::win {

namespace {

// The property that ties a native widget to its element of the tree.
constexpr char kTreeProperty[] = "ui::IGuiWindow";

// Reports the native window's own moves and size changes to its element.
class NativeBridge : public QObject {
public:
    NativeBridge(IGuiWindow& owner, QWidget& widget) : QObject(&widget), owner_(owner) {
        widget.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* widget = static_cast<QWidget*>(watched);
        if (event->type() == QEvent::Resize) {
            owner_.NativeResized(widget->width(), widget->height());
        } else if (event->type() == QEvent::Move) {
            owner_.NativeMoved(widget->x(), widget->y());
        }
        return false;
    }

private:
    IGuiWindow& owner_;
};

}  // namespace

struct IGuiWindow::Native {
    ~Native() {
        if (widget) {
            widget->setProperty(kTreeProperty, QVariant());
        }
        delete bridge.data();
        for (const QPointer<QObject>& hook : hooks) {
            delete hook.data();
        }
    }

    QPointer<QWidget> widget;
    QPointer<NativeBridge> bridge;
    std::vector<QPointer<QObject>> hooks;
    std::map<int, std::unique_ptr<QTimer>> timers;
};

IGuiWindow::IGuiWindow() : native_(std::make_unique<Native>()) {}

// The native bridge goes before the children, whose widgets may live inside this one's.
IGuiWindow::~IGuiWindow() {
    native_.reset();
    children.clear();
}

void IGuiWindow::SetLang(const std::string& section, const std::string& key) {
    langSection = section;
    langKey = key;
}

void IGuiWindow::Update() {
    for (auto& [id, child] : children) {
        child->Update();
    }
}

void IGuiWindow::OnTimer(int) {}

void IGuiWindow::OnShow(bool) {}

bool IGuiWindow::OnEditCommand(EditCommand) {
    return false;
}

void IGuiWindow::AddTooltip(IGuiWindow& control, const aurel::DualString& text) {
    if (parent_) {
        parent_->AddTooltip(control, text);
    } else {
        control.window.SetTooltip(text);
    }
}

IGuiWindow* IGuiWindow::GetDlgControl(int id) const {
    const auto found = children.find(id);
    return found == children.end() ? nullptr : found->second.get();
}

void IGuiWindow::ApplyLanguage() {
    if (!langKey.empty()) {
        SetText(aurel::Lang(langSection, langKey));
    }
    for (auto& [id, child] : children) {
        child->ApplyLanguage();
    }
}

void IGuiWindow::Attach(Window native, int id) {
    window = std::move(native);
    id_ = id;
    if (QWidget* widget = window.handle()) {
        x = widget->x();
        y = widget->y();
        width = widget->width();
        height = widget->height();
        visible_ = !widget->isHidden();
        enabled_ = widget->isEnabled();
    }
    BindNative();
}

void IGuiWindow::Create(IGuiWindow& parent, int id, int newX, int newY, int newWidth, int newHeight) {
    parent_ = &parent;
    id_ = id;
    x = newX;
    y = newY;
    width = newWidth;
    height = newHeight;
    OnCreate();
    window.SetPos(x, y, width, height);
    window.Enable(enabled_);
    window.Show(visible_);
    BindNative();
    SizeChanged();
    OnCreated();
}

void IGuiWindow::BindNative() {
    QWidget* widget = window.handle();
    native_->widget = widget;
    delete native_->bridge.data();
    if (widget) {
        widget->setProperty(kTreeProperty, QVariant::fromValue(static_cast<void*>(this)));
        native_->bridge = new NativeBridge(*this, *widget);
        OnNativeBound();
    }
}

void IGuiWindow::AddChild(std::shared_ptr<IGuiWindow> child) {
    child->parent_ = this;
    const int childId = child->id_;
    children[childId] = std::move(child);
}

void IGuiWindow::RemoveChild(int id) {
    children.erase(id);
}

void IGuiWindow::Show(bool show) {
    window.Show(show);
    if (show != visible_) {
        visible_ = show;
        OnShow(show);
    }
}

void IGuiWindow::Enable(bool enable) {
    enabled_ = enable;
    window.Enable(enable);
}

void IGuiWindow::SetPos(int newX, int newY, int newWidth, int newHeight) {
    const bool resized = newWidth != width || newHeight != height;
    x = newX;
    y = newY;
    width = newWidth;
    height = newHeight;
    window.SetPos(x, y, width, height);
    if (resized) {
        SizeChanged();
    }
}

void IGuiWindow::Redraw() {
    window.Redraw();
}

void IGuiWindow::SetText(const aurel::DualString& text) {
    window.SetText(text);
}

aurel::DualString IGuiWindow::GetText() const {
    return window.GetText();
}

void IGuiWindow::SetFocus() {
    window.SetFocus();
}

bool IGuiWindow::HasFocus() const {
    return window.HasFocus();
}

void IGuiWindow::SetTimer(int timerId, int intervalMs) {
    std::unique_ptr<QTimer>& timer = native_->timers[timerId];
    if (!timer) {
        timer = std::make_unique<QTimer>();
        QObject::connect(timer.get(), &QTimer::timeout, [this, timerId] {
            timerListeners.Call(timerId);
            OnTimer(timerId);
        });
    }
    timer->start(intervalMs);
}

void IGuiWindow::KillTimer(int timerId) {
    native_->timers.erase(timerId);
}

void IGuiWindow::NativeMoved(int newX, int newY) {
    x = newX;
    y = newY;
}

void IGuiWindow::NativeResized(int newWidth, int newHeight) {
    // The platform shows a negative size as zero; that is no change of the stored size.
    if (std::max(width, 0) == newWidth && std::max(height, 0) == newHeight) {
        return;
    }
    width = newWidth;
    height = newHeight;
    SizeChanged();
}

void IGuiWindow::SizeChanged() {
    for (auto& [id, child] : children) {
        child->OnParentResized(width, height);
    }
    OnResize();
}

void IGuiWindow::OnParentResized(int, int) {}

void IGuiWindow::AddHook(QObject* hook) {
    native_->hooks.emplace_back(hook);
}

QWidget* IGuiWindow::ParentWidget() const {
    return parent_ ? parent_->window.handle() : nullptr;
}

IGuiWindow* FocusedWindow() {
    for (QWidget* widget = QApplication::focusWidget(); widget; widget = widget->parentWidget()) {
        const QVariant owner = widget->property(kTreeProperty);
        if (owner.isValid()) {
            return static_cast<IGuiWindow*>(owner.value<void*>());
        }
    }
    return nullptr;
}

QWidget* DialogOwner(IGuiWindow* owner) {
    if (owner && owner->window.handle()) {
        return owner->window.handle();
    }
    MainWindow* main = GlobalMainWindow();
    return main ? static_cast<QWidget*>(main->NativeWidget()) : nullptr;
}

}  // namespace kestrel2::win
