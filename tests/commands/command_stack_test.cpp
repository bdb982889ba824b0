#include "commands/command_stack.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

#include "commands/command_macro.h"
#include "doc_state.h"
#include "support/english.h"

namespace kovra {
namespace {

// A document of named integer slots and a command that sets one. Kinds from 100 up absorb a newcomer
// that sets the same slot, as a property edit does (the stack alone compares kinds); lower kinds never
// merge.
using Slots = std::map<std::string, int>;

struct SetSlot : ICommand {
    SetSlot(Slots& s, const std::string& name, int value, int kind = 100)
        : ICommand("Set " + name), slots(s), slot(name), before(s[name]), after(value), kind(kind) {
        Redo();
    }
    int GetType() const override { return kind; }
    void Undo() override { slots[slot] = before; }
    void Redo() override { slots[slot] = after; }
    bool Merge(ICommand& next) override {
        if (kind < 100) {
            return ICommand::Merge(next);
        }
        auto* other = dynamic_cast<SetSlot*>(&next);
        if (other == nullptr || other->slot != slot) {
            return false;
        }
        after = other->after;
        return true;
    }
    void OnFreeze() override { ++freezes; }

    Slots& slots;
    std::string slot;
    int before;
    int after;
    int kind;
    int freezes = 0;
};

class CommandStackTest : public testing::Test {
public:
    void OnChanged() { ++notifications; }

protected:
    void SetUp() override {
        test::LoadEnglish();
        stack.AddListener(this, &CommandStackTest::OnChanged);
        stack.AddListener(this, &CommandStackTest::OnChanged);  // twice is once
    }
    std::shared_ptr<SetSlot> Add(const std::string& slot, int value, int kind = 100) {
        auto command = std::make_shared<SetSlot>(slots, slot, value, kind);
        stack.AddCommand(command);
        return command;
    }
    // Three frozen commands on a, b and c.
    void AddThree() {
        Add("a", 1, 1);
        Add("b", 2, 2);
        Add("c", 3, 3);
    }
    void Undo() { stack.UndoRedo(false, hub); }
    void Redo() { stack.UndoRedo(true, hub); }

    Slots slots;
    CommandStack stack;
    test::RecordingHub hub;
    int notifications = 0;
};

TEST_F(CommandStackTest, NewcomersMergeIntoAnOpenTopOfTheirKindElseFreezeItAndAppend) {
    auto plain = Add("a", 1, 1);
    EXPECT_TRUE(plain->IsFrozen());  // frozen on arrival by the default Merge
    EXPECT_EQ(plain->freezes, 1);
    auto open = Add("a", 2);
    Add("a", 3);
    Add("a", 4);
    EXPECT_FALSE(open->IsFrozen());
    EXPECT_EQ(stack.Size(), 2u);
    EXPECT_EQ(notifications, 2);  // a merge tells nobody
    auto refused = Add("b", 5);   // same kind, another slot
    EXPECT_EQ(open->freezes, 1);
    Add("b", 6, 101);  // another kind
    EXPECT_EQ(refused->freezes, 1);
    stack.FinishDrag(101, true);
    auto last = Add("b", 7, 101);  // over a frozen top of its own kind
    EXPECT_EQ(stack.Size(), 5u);
    Undo();
    Redo();
    EXPECT_FALSE(last->IsFrozen());  // undo and redo leave the flag alone
    for (int i = 0; i < 6; ++i) {
        Undo();  // the last one finds nothing to undo
    }
    EXPECT_EQ(slots, (Slots{{"a", 0}, {"b", 0}}));
    Redo();
    Redo();
    EXPECT_EQ(slots["a"], 4);
}

TEST_F(CommandStackTest, TheSavedPositionIsLostForEverOnlyWhenItsCommandIsDropped) {
    struct Case {
        int undosBeforeSave;
        std::size_t savedAfter;
    };
    for (const Case& c : {Case{0, CommandStack::kSavedLost}, Case{1, 2}}) {
        stack.Clear();  // a fresh document is clean, whatever was lost before
        EXPECT_FALSE(stack.IsDirty());
        AddThree();
        for (int i = 0; i < c.undosBeforeSave; ++i) {
            Undo();
        }
        stack.MarkSaved();
        while (stack.Cursor() > 2) {
            Undo();
        }
        Add("d", 4, 4);
        EXPECT_EQ(stack.SavedCursor(), c.savedAfter);
        EXPECT_TRUE(stack.IsDirty());
        Undo();
        EXPECT_EQ(stack.IsDirty(), c.savedAfter == CommandStack::kSavedLost);
    }
}

TEST_F(CommandStackTest, FinishDragKeepsOrCancelsOnlyAnOpenTopOfItsKind) {
    auto drag = Add("x", 5);
    stack.FinishDrag(99, true);
    stack.FinishDrag(99, false);
    EXPECT_FALSE(drag->IsFrozen());
    const int before = notifications;
    stack.FinishDrag(100, false);  // cancelled: undone and dropped, with two notifications
    EXPECT_EQ(slots["x"], 0);
    EXPECT_EQ(stack.Size(), 0u);
    EXPECT_EQ(notifications - before, 2);
    AddThree();
    Undo();
    Undo();
    Undo();
    Add("x", 6);  // from cursor 0 the redo tail goes too
    EXPECT_EQ(stack.Size(), 1u);
    stack.FinishDrag(100, true);
    EXPECT_TRUE(stack.IsTopFrozen());
    stack.FinishDrag(100, false);  // already frozen: nothing happens
    EXPECT_EQ(slots["x"], 6);
}

// The stop's record arrives like any command, cutting the redo tail and the saved position with it,
// and is then discarded.
TEST_F(CommandStackTest, UndoDuringPlaybackStopsItAndLeavesNoTrace) {
    AddThree();
    stack.MarkSaved();
    Undo();
    hub.playing = true;
    hub.onStop = [this] { Add("frame", 9, 49); };  // stopped away from where it began
    Undo();
    EXPECT_FALSE(hub.playing);
    EXPECT_EQ(slots["frame"], 0);
    EXPECT_EQ(stack.Cursor(), 1u);
    EXPECT_EQ(stack.Size(), 2u);
    EXPECT_EQ(stack.SavedCursor(), CommandStack::kSavedLost);
    EXPECT_EQ(slots["b"], 0);
    hub.playing = true;
    hub.onStop = nullptr;  // stopped where it began: nothing recorded, nothing taken back
    Redo();
    EXPECT_EQ(stack.Cursor(), 2u);
    EXPECT_EQ(slots["b"], 2);
}

TEST_F(CommandStackTest, TheTopAndTheMenuTexts) {
    EXPECT_TRUE(stack.IsTopFrozen());
    EXPECT_EQ(UndoMenuText(stack, false).Utf8(), "&Undo\tCtrl+Z");
    AddThree();
    Undo();
    EXPECT_EQ(UndoMenuText(stack, true).Utf8(), "&Redo \"Set c\"\tCtrl+Y");
    Undo();
    Undo();
    EXPECT_FALSE(stack.IsTopFrozen());  // nothing applied on a list that isn't empty
    Redo();
    int before = notifications;
    stack.FreezeTop();
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_EQ(notifications - before, 1);
    before = notifications;
    stack.DiscardTop();
    EXPECT_EQ(slots["a"], 0);
    EXPECT_EQ(notifications - before, 2);
}

// Two children set "a" and merge; a third of another kind sets "a" again, so only undoing the last child
// first gives the start back.
TEST(CommandMacroTest, ChildrenMergeUndoAndRedoInOrder) {
    Slots slots{{"a", -1}};
    auto make = [&](int value, int thirdKind) {
        auto macro = std::make_shared<CommandMacro>("Micro Keyframe", 67);
        macro->Add(std::make_shared<SetSlot>(slots, "a", value));
        macro->Add(std::make_shared<SetSlot>(slots, "a", value + 10));
        macro->Add(std::make_shared<SetSlot>(slots, "a", value, thirdKind));
        return macro;
    };
    auto first = make(1, 101);
    EXPECT_EQ(first->Children().size(), 2u);
    EXPECT_FALSE(first->MergeMacro(*make(2, 102)));  // kinds differ at one position
    CommandMacro empty("Micro Keyframe", 67);
    EXPECT_FALSE(first->MergeMacro(empty));
    EXPECT_TRUE(first->MergeMacro(*make(3, 101)));
    first->Undo();
    EXPECT_EQ(slots["a"], -1);
    first->Redo();
    EXPECT_EQ(slots["a"], 3);

    CommandStack stack;
    stack.AddCommand(first);
    EXPECT_FALSE(first->IsFrozen());  // a macro stays open on its own
    stack.AddCommand(std::make_shared<CommandMacro>("Micro Keyframe", 67));
    EXPECT_TRUE(first->IsFrozen());
    EXPECT_FALSE(first->MergeMacro(*make(4, 101)));
}

}  // namespace
}  // namespace kovra
