#pragma once
// The editor's one undo history. Commands arrive already applied; the stack merges a newcomer into an
// open top of the same kind, or freezes the top and appends. `cursor` counts the applied commands:
// commands[cursor - 1] is the undo candidate and commands[cursor] the redo candidate.

#include <cstddef>
#include <limits>
#include <memory>
#include <vector>

#include "base/dual_string.h"
#include "base/listener_list.h"
#include "commands/command.h"

namespace kovra {

class EditorHub;

class CommandStack {
public:
    // savedCursor's value once the saved state can be reached by neither undo nor redo.
    static constexpr std::size_t kSavedLost = std::numeric_limits<std::size_t>::max();

    void AddCommand(std::shared_ptr<ICommand> command);
    // Steps back or forward; a running playback is stopped first, and the stop leaves no trace.
    void UndoRedo(bool redo, EditorHub& hub);
    // The end of a gesture of kind `type`: keeps or cancels the open top command of that kind.
    void FinishDrag(int type, bool keep);
    // Undoes the top applied command and drops it with the redo tail.
    void DiscardTop();
    // Freezes the top applied command and drops the redo tail.
    void FreezeTop();
    // The undo candidate; the stack must have one.
    std::shared_ptr<ICommand> TopCommand() const { return commands_[cursor_ - 1]; }
    bool IsTopFrozen() const;

    template <class T>
    void AddListener(T* object, void (T::*method)()) {
        listeners_.AddUnique(object, method);
    }

    // Back to an empty history for a fresh document.
    void Clear();
    void MarkSaved() { savedCursor_ = cursor_; }
    // A document that was never saved as it stands: dirty wherever the history goes.
    void MarkUnsaved() { savedCursor_ = kSavedLost; }
    bool IsDirty() const { return savedCursor_ != cursor_; }

    std::size_t Cursor() const { return cursor_; }
    std::size_t SavedCursor() const { return savedCursor_; }
    std::size_t Size() const { return commands_.size(); }
    const ICommand& At(std::size_t index) const { return *commands_[index]; }
    bool CanUndo() const { return cursor_ > 0; }
    bool CanRedo() const { return cursor_ < commands_.size(); }
    // Labels of the undo and redo candidates, empty when there is none.
    const aurel::DualString& UndoLabel() const {
        return CanUndo() ? commands_[cursor_ - 1]->label : noLabel_;
    }
    const aurel::DualString& RedoLabel() const { return CanRedo() ? commands_[cursor_]->label : noLabel_; }

private:
    void Truncate() { commands_.resize(cursor_); }

    aurel::ListenerList<> listeners_;
    std::vector<std::shared_ptr<ICommand>> commands_;
    std::size_t cursor_ = 0;
    aurel::DualString noLabel_;
    std::size_t savedCursor_ = 0;
};

// The Edit menu's text for undo (or redo): the word, then the candidate's label in double quotes when
// there is one, then the accelerator.
aurel::DualString UndoMenuText(const CommandStack& stack, bool redo);

}  // namespace kovra
