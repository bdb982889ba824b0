#include "commands/command_macro.h"

namespace kovra {

void CommandMacro::Undo() {
    for (auto child = children_.rbegin(); child != children_.rend(); ++child) {
        (*child)->Undo();
    }
}

void CommandMacro::Redo() {
    for (const std::shared_ptr<ICommand>& child : children_) {
        child->Redo();
    }
}

bool CommandMacro::MergeMacro(CommandMacro& next) {
    if (IsFrozen() || children_.size() != next.children_.size()) {
        return false;
    }
    for (std::size_t i = 0; i < children_.size(); ++i) {
        if (children_[i]->GetType() != next.children_[i]->GetType()) {
            return false;
        }
    }
    for (std::size_t i = 0; i < children_.size(); ++i) {
        children_[i]->Merge(*next.children_[i]);
    }
    return true;
}

void CommandMacro::Add(std::shared_ptr<ICommand> child) {
    if (!children_.empty()) {
        ICommand& last = *children_.back();
        if (last.GetType() == child->GetType() && !last.IsFrozen() && last.Merge(*child)) {
            return;
        }
    }
    children_.push_back(std::move(child));
}

}  // namespace kovra
