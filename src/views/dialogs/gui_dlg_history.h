#pragma once
// The history: a modeless list of the stack's commands that follows every change of the stack, with
// Undo, Redo, and Repeat, which offers the repeat modes of the top command and runs the one chosen.

#include <memory>

#include "commands/command_stack.h"
#include "doc/editor_hub.h"
#include "doc/wirrel_doc.h"
#include "views/dialogs/modeless_dialog.h"

namespace kovra {

class RowList;

class GuiDlgHistory : public ModelessDialog {
public:
    enum Item : int { kRepeat = 1000, kList = 1002, kUndo = 40010, kRedo = 40011 };

    // The dialog listens to the stack for the rest of its life, so it must not outlive the stack.
    GuiDlgHistory(WirrelDoc& document, CommandStack& stack, EditorHub& hub, aurel::SettingsStore& settings);

    // Keeps the list in step with the stack.
    void OnStackChanged();

protected:
    void OnInitDialog() override;
    void OnCommand(int id) override;

private:
    WirrelDoc& document_;
    CommandStack& stack_;
    EditorHub& hub_;
    std::shared_ptr<RowList> list_;
};

}  // namespace kovra
