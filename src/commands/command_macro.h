#pragma once
// A command made of other commands, undone last to first and redone first to last. A child of the same
// kind as the last one is offered to it for merging, so that a gesture inside a macro coalesces too.

#include <memory>
#include <string_view>
#include <vector>

#include "commands/command.h"

namespace kovra {

class CommandMacro : public ICommand {
public:
    CommandMacro(std::string_view text, int type) : ICommand(text), type_(type) {}

    int GetType() const override { return type_; }
    void Undo() override;
    void Redo() override;
    // A macro stays open on its own; only the stack or a later newcomer freezes it.
    bool Merge(ICommand&) override { return false; }
    // Merges child by child when both macros have the same shape; false if this one is frozen.
    virtual bool MergeMacro(CommandMacro& next);

    void Add(std::shared_ptr<ICommand> child);
    const std::vector<std::shared_ptr<ICommand>>& Children() const { return children_; }

private:
    int type_;
    std::vector<std::shared_ptr<ICommand>> children_;
};

}  // namespace kovra
