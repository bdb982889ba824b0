#include "commands/command_stack.h"

#include "doc/editor_hub.h"
#include "settings/lang.h"

namespace kovra {
namespace {

// Offered to a newly added command: one that doesn't override Merge freezes itself on it, one that
// does sees a foreign kind and stays open.
class TestFreeze : public ICommand {
public:
    TestFreeze() : ICommand("_unused_") {}
    int GetType() const override { return kKindTestFreeze; }
    void Undo() override {}
    void Redo() override {}
};

}  // namespace

void CommandStack::AddCommand(std::shared_ptr<ICommand> command) {
    if (!commands_.empty() && cursor_ != 0) {
        ICommand& top = *commands_[cursor_ - 1];
        if (!top.IsFrozen()) {
            // The newcomer's constructor has already updated the views: a merge notifies nobody.
            if (top.GetType() == command->GetType() && top.Merge(*command)) {
                return;
            }
            top.frozen = true;
            top.OnFreeze();
        }
    }
    // Unsigned: once lost, the saved position is simply lost again.
    if (cursor_ < savedCursor_) {
        savedCursor_ = kSavedLost;
    }
    Truncate();
    commands_.push_back(command);
    ++cursor_;
    TestFreeze testFreeze;
    command->Merge(testFreeze);
    listeners_.Call();
}

void CommandStack::UndoRedo(bool redo, EditorHub& hub) {
    if (hub.IsPlaying()) {
        // The stop records where playback ended when that differs from where it began; that record is
        // taken back, so playback leaves no step behind. Its arrival has cut the redo tail.
        const std::size_t cursor = cursor_;
        hub.StopPlayback();
        if (cursor_ != cursor) {
            DiscardTop();
        }
    }
    if (redo) {
        if (cursor_ < commands_.size()) {
            commands_[cursor_]->Redo();
            ++cursor_;
            listeners_.Call();
        }
    } else if (cursor_ != 0) {
        --cursor_;
        commands_[cursor_]->Undo();
        listeners_.Call();
    }
}

void CommandStack::FinishDrag(int type, bool keep) {
    if (commands_.empty() || cursor_ == 0) {
        return;
    }
    const ICommand& top = *commands_[cursor_ - 1];
    if (top.GetType() != type || top.IsFrozen()) {
        return;
    }
    if (keep) {
        FreezeTop();
    } else {
        DiscardTop();
    }
}

void CommandStack::DiscardTop() {
    if (cursor_ != 0) {
        --cursor_;
        commands_[cursor_]->Undo();
        listeners_.Call();
    }
    Truncate();
    listeners_.Call();
}

void CommandStack::FreezeTop() {
    if (cursor_ != 0) {
        ICommand& top = *commands_[cursor_ - 1];
        top.frozen = true;
        top.OnFreeze();
    }
    Truncate();
    listeners_.Call();
}

bool CommandStack::IsTopFrozen() const {
    if (commands_.empty()) {
        return true;
    }
    return cursor_ != 0 && commands_[cursor_ - 1]->IsFrozen();
}

void CommandStack::Clear() {
    commands_.clear();
    cursor_ = 0;
    savedCursor_ = 0;
    listeners_.Call();
}

aurel::DualString UndoMenuText(const CommandStack& stack, bool redo) {
    std::string text = aurel::Lang("MAINMENU", redo ? "EditRedo" : "EditUndo").Utf8();
    const aurel::DualString& label = redo ? stack.RedoLabel() : stack.UndoLabel();
    if (redo ? stack.CanRedo() : stack.CanUndo()) {
        text += " \"" + label.Utf8() + "\"";
    }
    text += redo ? "\tCtrl+Y" : "\tCtrl+Z";
    return aurel::DualString(std::move(text));
}

}  // namespace kovra
