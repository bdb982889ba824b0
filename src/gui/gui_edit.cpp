#include "gui/gui_edit.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "gui/virtual_keys.h"

namespace kestrel2::win {

namespace {

// Hands the box's focus changes, Enter and Esc to the edit before the box sees them.
class EditHook : public QObject {
public:
    EditHook(GuiEdit& owner, QWidget& box) : QObject(&box), owner_(owner) { box.installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
            case QEvent::FocusIn:
                owner_.FocusGained();
                return false;
            case QEvent::FocusOut:
                owner_.FocusLost();
                return false;
            case QEvent::KeyPress: {
                const int key = static_cast<QKeyEvent*>(event)->key();
                if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                    return owner_.KeyPressed(kVkReturn);
                }
                return key == Qt::Key_Escape && owner_.KeyPressed(kVkEscape);
            }
            default:
                return false;
        }
    }

private:
    GuiEdit& owner_;
};

}  // namespace

void GuiEdit::OnCreate() {
    created_ = true;
    QWidget* box = nullptr;
    if (style_.multiLine) {
        auto* text = new QPlainTextEdit(ParentWidget());
        text->setReadOnly(style_.readOnly);
        box = text;
    } else {
        auto* line = new QLineEdit(ParentWidget());
        line->setReadOnly(style_.readOnly);
        box = line;
    }
    window = Window(box, true);
    window.SetText("Text...");
}

void GuiEdit::OnNativeBound() {
    new EditHook(*this, *window.handle());
}

void GuiEdit::SetMaxLength(int characters) {
    if (auto* line = qobject_cast<QLineEdit*>(window.handle())) {
        line->setMaxLength(characters);
    }
}

void GuiEdit::SelectAll() {
    if (auto* line = qobject_cast<QLineEdit*>(window.handle())) {
        line->selectAll();
    } else if (auto* text = qobject_cast<QPlainTextEdit*>(window.handle())) {
        text->selectAll();
    }
}

void GuiEdit::FocusGained() {
    accepted_ = GetText();
    focusListeners.Call(Id());
}

void GuiEdit::FocusLost() {
    Notify();
    accepted_ = GetText();
}

bool GuiEdit::KeyPressed(int virtualKey) {
    if (virtualKey == kVkReturn && style_.multiLine && style_.wantReturn) {
        return false;
    }
    if (virtualKey == kVkEscape && !created_) {
        return false;  // a dialog's item: Esc closes the dialog
    }
    if (virtualKey != kVkReturn && virtualKey != kVkEscape) {
        return false;
    }
    keyListeners.Call(Id(), virtualKey);
    return true;
}

bool GuiEdit::OnEditCommand(EditCommand command) {
    QWidget* box = window.handle();
    auto* line = qobject_cast<QLineEdit*>(box);
    auto* text = qobject_cast<QPlainTextEdit*>(box);
    if (!line && !text) {
        return false;
    }
    switch (command) {
        case EditCommand::Undo:
            line ? line->undo() : text->undo();
            break;
        case EditCommand::Cut:
            line ? line->cut() : text->cut();
            break;
        case EditCommand::Copy:
            line ? line->copy() : text->copy();
            break;
        case EditCommand::Paste:
            line ? line->paste() : text->paste();
            break;
    }
    return true;
}

}  // namespace kestrel2::win
