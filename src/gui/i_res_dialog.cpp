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

IResDialog::IResDialog(aurel::DualString title, int width, int height) : title_(std::move(title)) {
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
