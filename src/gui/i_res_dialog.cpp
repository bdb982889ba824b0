#include "gui/i_res_dialog.h"

#include <QDialog>

#include "base/kestrel_exception.h"

namespace kestrel2::win {

namespace {

// A dialog whose Esc and close button become the cancel command of its owner.
class CommandDialog : public QDialog {
public:
    CommandDialog(QWidget* parent, aurel::ListenerList<int>& commands)
        : QDialog(parent), commands_(commands) {}

    void reject() override { commands_.Call(IResDialog::kIdCancel); }

private:
    aurel::ListenerList<int>& commands_;
};

}  // namespace

IResDialog::IResDialog(aurel::DualString title, int width, int height)
    : title_(std::move(title)), designWidth_(width), designHeight_(height) {
    this->width = width;
    this->height = height;
    commandListeners.Add(this, &IResDialog::Command);
}

void IResDialog::OnCreate() {
    throw aurel::KestrelUsageException("A dialog is shown with DoModal, not created.");
}

int IResDialog::DoModal(IGuiWindow* owner) {
    auto* dialog = new CommandDialog(DialogOwner(owner), commandListeners);
    dialog->setWindowTitle(QString::fromUtf8(title_.Utf8()));
    dialog->setFixedSize(width, height);
    Attach(Window(dialog, true));
    OnInitDialog();
    ApplyLanguage();
    result_ = kIdCancel;
    dialog->exec();
    const int result = result_;
    children.clear();
    window.Reset();
    return result;
}

void IResDialog::ShowModeless(IGuiWindow* owner, int placeX, int placeY, int placeWidth, int placeHeight) {
    if (!window.IsValid()) {
        auto* dialog = new CommandDialog(DialogOwner(owner), commandListeners);
        dialog->setWindowTitle(QString::fromUtf8(title_.Utf8()));
        dialog->setMinimumSize(designWidth_, designHeight_);
        dialog->resize(designWidth_, designHeight_);
        Attach(Window(dialog, true));
        OnInitDialog();
        ApplyLanguage();
    }
    QWidget* dialog = window.handle();
    if (placeWidth > 0) {
        dialog->move(placeX, placeY);
        dialog->resize(placeWidth, placeHeight);
    }
    dialog->show();
    dialog->raise();
}

void IResDialog::CloseModeless() {
    if (QWidget* dialog = window.handle()) {
        dialog->hide();
    }
}

bool IResDialog::IsOpen() const {
    const QWidget* dialog = window.handle();
    return dialog != nullptr && dialog->isVisible();
}

void IResDialog::EndDialog(int result) {
    result_ = result;
    if (auto* dialog = qobject_cast<QDialog*>(window.handle())) {
        dialog->done(result);
    }
}

Window IResDialog::GetItem(int id) const {
    const IGuiWindow* item = GetDlgControl(id);
    return Window(item ? item->window.handle() : nullptr, false);
}

}  // namespace kestrel2::win
