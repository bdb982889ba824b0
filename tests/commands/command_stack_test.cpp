#include "commands/command_stack.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

#include "commands/command_macro.h"
#include "recording_hub.h"
#include "support/english.h"

namespace kovra {
namespace {

// A tiny document of named integer slots, and a command that sets one slot. A mergeable command merges
// only a newcomer that sets the same slot, as a property edit does.
using Slots = std::map<std::string, int>;

class SetSlot : public ICommand {
public:
    SetSlot(Slots& slots, std::string slot, int value, int kind = 100, bool mergeable = true)
        : ICommand("Set " + slot),
          slots_(slots),
          slot_(std::move(slot)),
          before_(slots[slot_]),
          after_(value),
          kind_(kind),
          mergeable_(mergeable) {
        Redo();
    }
    int GetType() const override { return kind_; }
    void Undo() override { slots_[slot_] = before_; }
    void Redo() override { slots_[slot_] = after_; }
    bool Merge(ICommand& next) override {
        if (!mergeable_) {
            return ICommand::Merge(next);
        }
        auto* other = dynamic_cast<SetSlot*>(&next);
        if (next.GetType() != kind_ || other == nullptr || other->slot_ != slot_) {
            return false;
        }
        after_ = other->after_;
        return true;
    }
    void OnFreeze() override { ++freezes; }

    int freezes = 0;

private:
    Slots& slots_;
    std::string slot_;
    int before_;
    int after_;
    int kind_;
    bool mergeable_;
};

class CommandStackTest : public testing::Test {
public:
    void OnStackChanged() { ++notifications; }

protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    void SetUp() override { Listen(); }
    void Listen() { stack.AddListener(this, &CommandStackTest::OnStackChanged); }

    std::shared_ptr<SetSlot> Add(const std::string& slot, int value, int kind = 100, bool mergeable = true) {
        auto command = std::make_shared<SetSlot>(slots, slot, value, kind, mergeable);
        stack.AddCommand(command);
        return command;
    }
    // Three frozen commands on a, b, c.
    void AddThree() {
        Add("a", 1, 1, false);
        Add("b", 2, 2, false);
        Add("c", 3, 3, false);
    }
    void Undo() { stack.UndoRedo(false, hub); }
    void Redo() { stack.UndoRedo(true, hub); }

    Slots slots;
    CommandStack stack;
    test::RecordingHub hub;
    int notifications = 0;
};

TEST_F(CommandStackTest, CommandsThatDontMergeAreFrozenOnArrivalAndMergeableOnesStayOpen) {
    auto plain = Add("a", 1, 100, false);
    EXPECT_TRUE(plain->IsFrozen());
    EXPECT_EQ(plain->freezes, 1);
    auto open = Add("b", 2);
    EXPECT_FALSE(open->IsFrozen());
    EXPECT_FALSE(stack.IsTopFrozen());
    EXPECT_EQ(stack.Size(), 2u);
    EXPECT_EQ(notifications, 2);
}

TEST_F(CommandStackTest, ANewcomerOfTheSameKindMergesIntoTheOpenTopSilently) {
    auto first = Add("a", 1);
    Add("a", 2);
    Add("a", 3);
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_EQ(stack.Cursor(), 1u);
    EXPECT_EQ(notifications, 1);
    EXPECT_FALSE(first->IsFrozen());
    Undo();
    EXPECT_EQ(slots["a"], 0);
    Redo();
    EXPECT_EQ(slots["a"], 3);
}

TEST_F(CommandStackTest, ADifferentKindOrARefusedMergeFreezesTheTopAndAppends) {
    auto first = Add("a", 1, 100);
    auto other = Add("a", 2, 101);
    EXPECT_TRUE(first->IsFrozen());
    EXPECT_EQ(first->freezes, 1);
    auto refused = Add("b", 3, 101);  // same kind, another slot: the merge is refused
    EXPECT_TRUE(other->IsFrozen());
    EXPECT_EQ(other->freezes, 1);
    EXPECT_FALSE(refused->IsFrozen());
    EXPECT_EQ(stack.Size(), 3u);
}

TEST_F(CommandStackTest, AppendingOverAFrozenTopOfTheSameKindLeavesItAsItIs) {
    auto first = Add("a", 1);
    stack.FinishDrag(100, true);
    EXPECT_TRUE(first->IsFrozen());
    EXPECT_EQ(first->freezes, 1);
    Add("a", 2);
    EXPECT_EQ(stack.Size(), 2u);
    EXPECT_EQ(first->freezes, 1);
    Undo();
    EXPECT_EQ(slots["a"], 1);
}

TEST_F(CommandStackTest, AHundredMoveDragIsOneCommandWhoseUndoRestoresTheStart) {
    slots["x"] = -7;
    for (int move = 1; move <= 100; ++move) {
        Add("x", move);
    }
    stack.FinishDrag(100, true);
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_TRUE(stack.IsTopFrozen());
    EXPECT_EQ(slots["x"], 100);
    Undo();
    EXPECT_EQ(slots["x"], -7);
    Redo();
    EXPECT_EQ(slots["x"], 100);
}

TEST_F(CommandStackTest, FinishDragActsOnlyOnAnOpenTopOfItsKind) {
    auto drag = Add("x", 5);
    stack.FinishDrag(99, true);
    stack.FinishDrag(99, false);
    EXPECT_FALSE(drag->IsFrozen());
    EXPECT_EQ(slots["x"], 5);
    EXPECT_EQ(stack.Size(), 1u);

    const int before = notifications;
    stack.FinishDrag(100, false);  // cancelled: the whole gesture is undone and dropped
    EXPECT_EQ(slots["x"], 0);
    EXPECT_EQ(stack.Size(), 0u);
    EXPECT_EQ(notifications - before, 2);

    AddThree();
    Undo();
    stack.FinishDrag(2, false);  // the top applied is frozen: nothing happens
    EXPECT_EQ(stack.Size(), 3u);
    EXPECT_EQ(slots["b"], 2);
}

TEST_F(CommandStackTest, AddingDropsTheRedoTailAlsoFromCursorZero) {
    AddThree();
    Undo();
    Undo();
    Undo();
    EXPECT_EQ(stack.Cursor(), 0u);
    EXPECT_FALSE(stack.IsTopFrozen());
    Add("d", 4);
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_FALSE(stack.CanRedo());
}

TEST_F(CommandStackTest, TheSavedPositionIsLostForEverWhenItsCommandIsDropped) {
    AddThree();
    stack.MarkSaved();
    EXPECT_FALSE(stack.IsDirty());
    Undo();
    EXPECT_TRUE(stack.IsDirty());
    Add("d", 4, 4, false);
    EXPECT_EQ(stack.SavedCursor(), CommandStack::kSavedLost);
    Undo();
    EXPECT_EQ(stack.Cursor(), 2u);
    EXPECT_TRUE(stack.IsDirty());
    Redo();
    EXPECT_TRUE(stack.IsDirty());
    Undo();
    Undo();
    Add("e", 5, 5, false);  // lost stays lost
    EXPECT_EQ(stack.SavedCursor(), CommandStack::kSavedLost);
}

TEST_F(CommandStackTest, TheSavedPositionIsKeptWhenAddingRightThere) {
    AddThree();
    Undo();
    stack.MarkSaved();
    Add("d", 4, 4, false);
    EXPECT_EQ(stack.SavedCursor(), 2u);
    EXPECT_TRUE(stack.IsDirty());
    Undo();
    EXPECT_FALSE(stack.IsDirty());
}

TEST_F(CommandStackTest, UndoAndRedoAtTheEndsDoNothing) {
    Undo();
    Redo();
    EXPECT_EQ(notifications, 0);
    Add("a", 1, 1, false);
    Redo();
    EXPECT_EQ(notifications, 1);
    Undo();
    Undo();
    EXPECT_EQ(notifications, 2);
    EXPECT_FALSE(stack.IsDirty());
}

TEST_F(CommandStackTest, UndoAndRedoLeaveTheFrozenFlagAlone) {
    auto open = Add("a", 1);
    Undo();
    Redo();
    EXPECT_FALSE(open->IsFrozen());
    Add("a", 2);  // still open after the round trip: it merges
    EXPECT_EQ(stack.Size(), 1u);
}

TEST_F(CommandStackTest, UndoDuringPlaybackStopsItAndLeavesNoTrace) {
    AddThree();
    Undo();
    stack.MarkSaved();
    hub.playing = true;
    // The stop records where playback ended, as the editor does when the frame changed.
    hub.onStop = [this] { Add("frame", 9, 49, false); };
    Undo();
    EXPECT_EQ(hub.stops, 1);
    EXPECT_EQ(slots["frame"], 0);
    EXPECT_EQ(stack.Cursor(), 1u);
    EXPECT_EQ(stack.Size(), 3u);
    EXPECT_EQ(stack.SavedCursor(), 2u);
    EXPECT_EQ(slots["b"], 0);
    Redo();
    Redo();
    EXPECT_EQ(slots["c"], 3);

    hub.playing = true;
    hub.onStop = nullptr;  // a stop where playback began records nothing
    Undo();
    EXPECT_EQ(stack.Cursor(), 2u);
    EXPECT_EQ(slots["c"], 0);
}

TEST_F(CommandStackTest, IsTopFrozenAndTheLabelsOfTheCandidates) {
    EXPECT_TRUE(stack.IsTopFrozen());
    EXPECT_EQ(UndoMenuText(stack, false).Utf8(), "&Undo\tCtrl+Z");
    EXPECT_EQ(UndoMenuText(stack, true).Utf8(), "&Redo\tCtrl+Y");
    AddThree();
    Undo();
    EXPECT_EQ(stack.TopCommand()->label.Utf8(), "Set b");
    EXPECT_EQ(UndoMenuText(stack, false).Utf8(), "&Undo \"Set b\"\tCtrl+Z");
    EXPECT_EQ(UndoMenuText(stack, true).Utf8(), "&Redo \"Set c\"\tCtrl+Y");
    EXPECT_TRUE(stack.IsTopFrozen());
}

TEST_F(CommandStackTest, DiscardAndFreezeTopNotifyAndDropTheRedoTail) {
    AddThree();
    Undo();
    int before = notifications;
    stack.FreezeTop();
    EXPECT_EQ(stack.Size(), 2u);
    EXPECT_EQ(notifications - before, 1);
    before = notifications;
    stack.DiscardTop();
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_EQ(slots["b"], 0);
    EXPECT_EQ(notifications - before, 2);
}

TEST_F(CommandStackTest, AListenerRegisteredTwiceIsCalledOnce) {
    Listen();
    Add("a", 1);
    EXPECT_EQ(notifications, 1);
}

TEST_F(CommandStackTest, ClearStartsAFreshCleanHistory) {
    AddThree();
    stack.Clear();
    EXPECT_EQ(stack.Size(), 0u);
    EXPECT_EQ(stack.Cursor(), 0u);
    EXPECT_FALSE(stack.IsDirty());
}

TEST(CommandMacroTest, ChildrenUndoLastToFirstAndRedoFirstToLast) {
    std::string trace;
    struct Traced : ICommand {
        Traced(std::string& trace, char name) : ICommand("t"), trace(trace), name(name) {}
        void Undo() override { trace += std::string("-") + name; }
        void Redo() override { trace += std::string("+") + name; }
        std::string& trace;
        char name;
    };
    CommandMacro macro("Macro", 12);
    macro.Add(std::make_shared<Traced>(trace, 'a'));
    macro.Add(std::make_shared<Traced>(trace, 'b'));
    macro.Undo();
    macro.Redo();
    EXPECT_EQ(trace, "-b-a+a+b");
    EXPECT_EQ(macro.GetType(), 12);
}

TEST(CommandMacroTest, AddMergesIntoAnOpenLastChildOfTheSameKind) {
    Slots slots;
    CommandMacro macro("Macro", 67);
    macro.Add(std::make_shared<SetSlot>(slots, "a", 1));
    macro.Add(std::make_shared<SetSlot>(slots, "a", 2));
    EXPECT_EQ(macro.Children().size(), 1u);
    macro.Add(std::make_shared<SetSlot>(slots, "a", 3, 101));
    macro.Add(std::make_shared<SetSlot>(slots, "b", 4, 101));  // refused: appended, nothing frozen
    ASSERT_EQ(macro.Children().size(), 3u);
    EXPECT_FALSE(macro.Children()[1]->IsFrozen());
    macro.Undo();
    EXPECT_EQ(slots, (Slots{{"a", 0}, {"b", 0}}));
    macro.Redo();
    EXPECT_EQ(slots, (Slots{{"a", 3}, {"b", 4}}));
}

TEST(CommandMacroTest, MergeMacroNeedsAnOpenMacroOfTheSameShape) {
    Slots slots;
    auto make = [&](int value, int secondKind) {
        auto macro = std::make_shared<CommandMacro>("Macro", 67);
        macro->Add(std::make_shared<SetSlot>(slots, "a", value));
        macro->Add(std::make_shared<SetSlot>(slots, "b", value, secondKind));
        return macro;
    };
    slots = {{"a", -1}, {"b", -2}};
    auto first = make(1, 101);
    EXPECT_FALSE(first->MergeMacro(*make(2, 102)));  // kinds differ at one position
    auto shorter = std::make_shared<CommandMacro>("Macro", 67);
    EXPECT_FALSE(first->MergeMacro(*shorter));
    EXPECT_TRUE(first->MergeMacro(*make(3, 101)));
    first->Undo();
    EXPECT_EQ(slots, (Slots{{"a", -1}, {"b", -2}}));
    first->Redo();
    EXPECT_EQ(slots, (Slots{{"a", 3}, {"b", 3}}));
    first->frozen = true;
    EXPECT_FALSE(first->MergeMacro(*make(4, 101)));
}

TEST(CommandMacroTest, AMacroStaysOpenOnTheStackUntilANewcomerFreezesIt) {
    Slots slots;
    CommandStack stack;
    auto macro = std::make_shared<CommandMacro>("Macro", 67);
    macro->Add(std::make_shared<SetSlot>(slots, "a", 1));
    stack.AddCommand(macro);
    EXPECT_FALSE(macro->IsFrozen());
    stack.AddCommand(std::make_shared<CommandMacro>("Macro", 67));
    EXPECT_TRUE(macro->IsFrozen());
    EXPECT_EQ(stack.Size(), 2u);
}

}  // namespace
}  // namespace kovra
