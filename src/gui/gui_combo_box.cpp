#include "gui/gui_combo_box.h"

#include <QComboBox>
#include <QSignalBlocker>

#include "settings/lang.h"

namespace kestrel2::win {

namespace {

QComboBox* NativeBox(const Window& window) {
    return qobject_cast<QComboBox*>(window.handle());
}

}  // namespace

void GuiComboBox::AddString(const aurel::DualString& text) {
    items_.push_back(Item{text, {}});
    Fill();
}

void GuiComboBox::AddLangString(const std::string& key) {
    items_.push_back(Item{aurel::Lang(langSection, key), key});
    Fill();
}

void GuiComboBox::Clear() {
    items_.clear();
    selection_ = -1;
    Fill();
}

void GuiComboBox::SetSel(int index) {
    selection_ = index >= 0 && index < GetCount() ? index : -1;
    if (QComboBox* box = NativeBox(window)) {
        const QSignalBlocker quiet(box);
        box->setCurrentIndex(selection_);
    }
}

aurel::DualString GuiComboBox::GetItemText(int index) const {
    return index >= 0 && index < GetCount() ? items_[index].text : aurel::DualString();
}

void GuiComboBox::ApplyLanguage() {
    for (Item& item : items_) {
        if (!item.key.empty()) {
            item.text = aurel::Lang(langSection, item.key);
        }
    }
    Fill();
    IGuiControl::ApplyLanguage();
}

void GuiComboBox::OnCreate() {
    auto* box = new QComboBox(ParentWidget());
    QObject::connect(box, &QComboBox::activated, [this](int index) {
        selection_ = index;
        Notify();
    });
    window = Window(box, true);
    Fill();
}

// Rebuilds the native list from the items, keeping the selection, without notifications.
void GuiComboBox::Fill() {
    QComboBox* box = NativeBox(window);
    if (!box) {
        return;
    }
    const QSignalBlocker quiet(box);
    box->clear();
    for (const Item& item : items_) {
        box->addItem(QString::fromUtf8(item.text.Utf8()));
    }
    box->setCurrentIndex(selection_);
}

}  // namespace kestrel2::win
