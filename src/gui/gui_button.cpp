#include "gui/gui_button.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "gui/icons.h"

namespace kestrel2::win {

namespace {

Qt::CheckState ToQt(int state) {
    switch (state) {
        case kChecked:
            return Qt::Checked;
        case kMixed:
            return Qt::PartiallyChecked;
        default:
            return Qt::Unchecked;
    }
}

// A check box that a click moves between checked and unchecked only; the mixed state is the program's.
class TwoWayCheckBox : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

protected:
    void nextCheckState() override {
        setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
};

}  // namespace

void GuiButton::SetIcon(const aurel::ImageSurface& icon, double ratio) {
    if (auto* button = qobject_cast<QPushButton*>(window.handle())) {
        button->setIcon(MakeIcon(icon, aurel::ImageSurface(), ratio));
    }
}

void GuiButton::OnCreate() {
    auto* button = new QPushButton(ParentWidget());
    QObject::connect(button, &QPushButton::clicked, [this] { Notify(); });
    window = Window(button, true);
}

void GuiCheckbox::SetCheck(int state) {
    state_ = state;
    if (auto* box = qobject_cast<QCheckBox*>(window.handle())) {
        box->setCheckState(ToQt(state));
    }
}

void GuiCheckbox::OnCreate() {
    auto* box = new TwoWayCheckBox(ParentWidget());
    box->setCheckState(ToQt(state_));
    QObject::connect(box, &QCheckBox::clicked, [this] { Clicked(); });
    window = Window(box, true);
}

void GuiCheckbox::Clicked() {
    const Qt::CheckState shown = static_cast<QCheckBox*>(window.handle())->checkState();
    state_ = shown == Qt::Checked ? kChecked : kUnchecked;
    Notify();
}

void GuiRadio::SetCheck(int state) {
    state_ = state == kChecked ? kChecked : kUnchecked;
    if (auto* radio = qobject_cast<QRadioButton*>(window.handle())) {
        radio->setChecked(state_ == kChecked);
    }
}

void GuiRadio::OnCreate() {
    auto* radio = new QRadioButton(ParentWidget());
    // Groups are the tree's business, not the toolkit's sibling rule.
    radio->setAutoExclusive(false);
    radio->setChecked(state_ == kChecked);
    QObject::connect(radio, &QRadioButton::clicked, [this] { Clicked(); });
    window = Window(radio, true);
}

void GuiRadio::Clicked() {
    SetCheck(kChecked);
    if (IGuiWindow* parent = Parent()) {
        for (auto& [id, child] : parent->children) {
            auto* other = dynamic_cast<GuiRadio*>(child.get());
            if (other && other != this && other->group_ == group_) {
                other->SetCheck(kUnchecked);
            }
        }
    }
    Notify();
}

}  // namespace kestrel2::win
