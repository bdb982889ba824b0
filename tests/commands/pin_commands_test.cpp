#include "commands/pin_commands.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <numeric>
#include <set>
#include <string>
#include <vector>

#include "command_test.h"
#include "commands/command_stack.h"
#include "commands/repeat.h"
#include "doc/pin_tree.h"
#include "skeletons.h"
#include "support/scripted_prompt.h"

namespace kovra {
namespace {

using test::TwoTrees;

class PinCommandTest : public test::CommandTest {
protected:
    void SetUp() override {
        doc.Reset(true);
        selection = SelectionTracker{};
        test::UseTwoTrees(doc, 1);
        selection.Add(2, true);
        selection.Add(4, false);
        selection.SetHot(2, 1);
    }
    std::vector<WirrelPin>& Pins() { return doc.CurrentKey().pins; }
    std::vector<PinPoint> Positions() {
        std::vector<PinPoint> out;
        PinPositions(doc.CurrentKey(), out);
        return out;
    }
    void ExpectSamePositions(const std::vector<PinPoint>& expected) {
        const std::vector<PinPoint> now = Positions();
        ASSERT_EQ(now.size(), expected.size());
        for (std::size_t i = 0; i < now.size(); ++i) {
            EXPECT_NEAR(now[i].x, expected[i].x, 1e-5f) << "pin " << i;
            EXPECT_NEAR(now[i].y, expected[i].y, 1e-5f) << "pin " << i;
        }
    }
    std::vector<int> Ids(const WirrelKey& key) {
        std::vector<int> ids;
        for (const WirrelPin& pin : key.pins) {
            ids.push_back(pin.id);
        }
        return ids;
    }

    test::ScriptedPrompt prompt;
    // The id of each record's parent, -1 for none: what a reorder must keep.
    std::vector<std::pair<int, int>> ParentIds() {
        std::vector<std::pair<int, int>> ids;
        for (const WirrelPin& pin : Pins()) {
            ids.emplace_back(pin.id, pin.parent < 0 ? -1 : Pins()[pin.parent].id);
        }
        std::sort(ids.begin(), ids.end());
        return ids;
    }
    std::set<int> SelectedIds() {
        std::set<int> ids;
        for (int item : selection.selected) {
            ids.insert(Pins()[item].id);
        }
        return ids;
    }
};

struct RoundTripCase {
    std::string name;
    std::function<std::shared_ptr<ICommand>(WirrelDoc&, SelectionTracker&)> make;
};

TEST_F(PinCommandTest, PinCommandsRoundTrip) {
    const WirrelPin edited{.angle = 0.25f, .length = 9.0f, .flags = Bone, .parent = 1, .id = 2};
    const std::vector<RoundTripCase> cases = {
        {"ik lock", [](WirrelDoc& d, SelectionTracker&) { return std::make_shared<CommandPinIkLock>(1, d); }},
        {"name",
         [](WirrelDoc& d, SelectionTracker&) { return std::make_shared<CommandPinName>(d, 3, "crate"); }},
        {"order down",
         [](WirrelDoc& d, SelectionTracker& s) {
             return std::make_shared<CommandPinOrder>(d, s, "Order", 0, 4);
         }},
        {"order up",
         [](WirrelDoc& d, SelectionTracker& s) {
             return std::make_shared<CommandPinOrder>(d, s, "Order", 4, 1);
         }},
        {"property",
         [&](WirrelDoc& d, SelectionTracker&) {
             return std::make_shared<CommandPinProperty>(d, "Set Angle", 200, 2, edited);
         }},
        {"new pin",
         [](WirrelDoc& d, SelectionTracker& s) {
             return std::make_shared<CommandPinNew>(d, s, PinDescription{0.5f, 2.0f, 2, "toe"});
         }},
        {"new root and child",
         [](WirrelDoc& d, SelectionTracker& s) {
             return std::make_shared<CommandPinNew2>(d, s, PinDescription{1.0f, 4.0f, -1, "Pin5"},
                                                     PinDescription{2.0f, 1.0f, 5, "Pin6"});
         }},
        {"parent onto another tree",
         [this](WirrelDoc& d, SelectionTracker& s) {
             return std::make_shared<CommandPinParent>(d, s, prompt, 4, 2);
         }},
        {"delete the selection",
         [](WirrelDoc& d, SelectionTracker& s) { return std::make_shared<CommandPinDelete>(d, s); }},
        {"type to root",
         [](WirrelDoc& d, SelectionTracker&) { return std::make_shared<CommandPinType>(d, 2, Root); }},
        {"type to tail",
         [](WirrelDoc& d, SelectionTracker&) { return std::make_shared<CommandPinType>(d, 2, Tail); }},
        {"area selection",
         [](WirrelDoc& d, SelectionTracker& s) {
             ViewTransform view = ViewTransform::OfClient(100, 100);
             view.pinPixels = {{0, 0, 0}, {0, 64, 1}, {96, 64, 2}, {-160, 0, 3}, {-160, -32, 4}};
             return std::make_shared<CommandPinSelArea>(40, 40, 60, 120, d, s, view, false, s.Snapshot());
         }},
    };
    for (const RoundTripCase& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        ExpectRoundTrip([&] { return c.make(doc, selection); });
    }
}

TEST_F(PinCommandTest, EndingATailRoundTrips) {
    MakeTail(doc, 2);
    ExpectRoundTrip([&] { return std::make_shared<CommandPinType>(doc, 2, Attachment); });
}

TEST_F(PinCommandTest, IkLockTwiceIsTheIdentity) {
    const std::vector<WirrelPin> before = Pins();
    CommandPinIkLock lock(3, doc);
    EXPECT_EQ(Pins()[3].flags, Root | kPinIkLock);
    CommandPinIkLock unlock(3, doc);
    EXPECT_EQ(Pins(), before);
}

TEST_F(PinCommandTest, ReorderingKeepsTheTreeAndTheSelectionOnTheSamePins) {
    const auto parents = ParentIds();
    const std::set<int> selected = SelectedIds();
    for (const auto& [from, to] : std::vector<std::pair<int, int>>{{0, 4}, {4, 0}, {1, 3}, {3, 2}}) {
        SCOPED_TRACE(std::to_string(from) + " to " + std::to_string(to));
        const int movedId = Pins()[from].id;
        const int hotId = Pins()[selection.hotItem].id;
        CommandPinOrder command(doc, selection, "Change Draw Order", from, to);
        EXPECT_EQ(Pins()[to].id, movedId);
        EXPECT_EQ(ParentIds(), parents);
        EXPECT_EQ(SelectedIds(), selected);
        EXPECT_EQ(Pins()[selection.hotItem].id, hotId);
        EXPECT_EQ(Pins()[selection.currentItem].id, 2);
    }
}

TEST_F(PinCommandTest, AReorderDragMergesWhileItMovesTheSameRecord) {
    CommandStack stack;
    stack.AddCommand(std::make_shared<CommandPinOrder>(doc, selection, "Order", 0, 1));
    stack.AddCommand(std::make_shared<CommandPinOrder>(doc, selection, "Order", 1, 3));
    EXPECT_EQ(stack.Size(), 1u);
    stack.AddCommand(std::make_shared<CommandPinOrder>(doc, selection, "Order", 0, 1));  // another record
    EXPECT_EQ(stack.Size(), 2u);
    test::RecordingHub hub;
    stack.UndoRedo(false, hub);
    stack.UndoRedo(false, hub);
    EXPECT_EQ(Pins(), TwoTrees());
}

TEST_F(PinCommandTest, PropertyAndNameEditsMergeOnlyForTheSamePropertyOfTheSamePin) {
    struct Case {
        int kind;
        int pin;
        std::size_t steps;  // on the stack after the two edits
    };
    for (const Case& c : std::vector<Case>{{200, 2, 1}, {201, 2, 2}, {200, 1, 2}}) {
        SetUp();
        CommandStack stack;
        WirrelPin first = Pins()[2];
        first.length = 7.0f;
        stack.AddCommand(std::make_shared<CommandPinProperty>(doc, "Set Length", 200, 2, first));
        WirrelPin second = Pins()[c.pin];
        second.angle = 1.0f;
        stack.AddCommand(std::make_shared<CommandPinProperty>(doc, "Set", c.kind, c.pin, second));
        EXPECT_EQ(stack.Size(), c.steps);
        test::RecordingHub hub;
        while (stack.CanUndo()) {
            stack.UndoRedo(false, hub);
        }
        EXPECT_EQ(Pins(), TwoTrees());
    }

    CommandStack stack;
    stack.AddCommand(std::make_shared<CommandPinName>(doc, 1, "l"));
    stack.AddCommand(std::make_shared<CommandPinName>(doc, 1, "le"));
    stack.AddCommand(std::make_shared<CommandPinName>(doc, 2, "f"));
    EXPECT_EQ(stack.Size(), 2u);
    test::RecordingHub hub;
    stack.UndoRedo(false, hub);
    stack.UndoRedo(false, hub);
    EXPECT_EQ(NameOf(doc.Wirrel().pinNames[1]), "leg");
    stack.UndoRedo(true, hub);
    EXPECT_EQ(NameOf(doc.Wirrel().pinNames[1]), "le");
}

TEST_F(PinCommandTest, AreaSelectionTogglesThePinsNearTheBox) {
    // A 200 x 100 view with the camera at (1, 0): the world origin is at pixel (68, 50).
    ViewTransform view = ViewTransform::OfClient(200, 100);
    view.cameraX = 1.0f;
    view.pinPixels = {{0, 0, 0}, {20, 0, 1}, {40, 10, 2}, {-30, -30, 3}, {24, 0, 4}};
    struct Case {
        std::string name;
        float x0, y0, x1, y1;
        bool add;
        std::set<int> selected;
    };
    const std::vector<Case> cases = {
        {"around the origin", 60, 40, 76, 60, false, {0}},
        {"corners in any order", 76, 60, 60, 40, false, {0}},
        {"4 pixels away still hits", 92, 50, 104, 60, false, {1, 2, 4}},
        {"just beyond 4 pixels misses", 108.5f, 40, 120, 56, false, {}},
        {"with add the press selection is toggled", 85, 45, 90, 55, true, {0, 1, 2, 4}},
        {"with add a selected pin leaves", 60, 40, 130, 70, true, {1, 4}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        selection.Clear();
        selection.Add(0, true);
        selection.Add(2, false);
        const SelectionTracker::Saved atPress = selection.Snapshot();
        selection.Add(3, false);  // moved on since the press
        CommandPinSelArea command(c.x0, c.y0, c.x1, c.y1, doc, selection, view, c.add, atPress);
        EXPECT_EQ(selection.selected, c.selected);
    }
}

TEST_F(PinCommandTest, AreaSelectionMergesIntoOneStepThatUndoesToTheStart) {
    ViewTransform view = ViewTransform::OfClient(100, 100);
    view.pinPixels = {{0, 0, 0}, {10, 0, 1}, {20, 0, 2}, {30, 0, 3}, {40, 0, 4}};
    const test::DocState start = State();
    const SelectionTracker::Saved atPress = selection.Snapshot();
    CommandStack stack;
    for (float right = 52; right <= 92; right += 10) {
        stack.AddCommand(
            std::make_shared<CommandPinSelArea>(45, 45, right, 55, doc, selection, view, false, atPress));
    }
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_EQ(selection.selected, (std::set<int>{0, 1, 2, 3, 4}));
    test::RecordingHub hub;
    stack.UndoRedo(false, hub);
    EXPECT_EQ(State(), start);
    stack.UndoRedo(true, hub);
    EXPECT_EQ(selection.selected, (std::set<int>{0, 1, 2, 3, 4}));
}

TEST_F(PinCommandTest, AabbsAreSortedChainedAndStayAfterUndo) {
    doc.selectedCollisionType = 1;
    CommandAabbCreate first(doc, 3, 4, 1, 2, 2);
    CommandAabbCreate second(doc, 0, 0, 1, 1, 2);
    const Wirrel& w = doc.Wirrel();
    ASSERT_EQ(w.aabbs.size(), 2u);
    EXPECT_EQ(w.aabbs[0], (WirrelAabb{1, 2, 3, 4, 1, 1}));
    EXPECT_EQ(w.aabbs[1], (WirrelAabb{0, 0, 1, 1, 1, -1}));
    EXPECT_EQ(Pins()[2].aabb, 0);
    second.Undo();
    EXPECT_EQ(w.aabbs.size(), 2u);
    EXPECT_EQ(w.aabbs[0].next, 1);
}

TEST_F(PinCommandTest, ANewPinIsInEveryFrameOfTheAnimationAndShownInTheCurrentOne) {
    test::UseTwoTrees(doc, 3);
    doc.AddAnim("Other", kAnimFromCurrentKey, -1);
    doc.cursor.animIndex = 0;
    doc.cursor.animName = doc.Wirrel().anims[0].name;
    doc.SetFrame(1);
    CommandPinNew command(doc, selection, PinDescription{0.5f, 2.0f, 2, "toe"});
    for (std::size_t k = 0; k < 3; ++k) {
        const WirrelPin& toe = doc.CurrentAnim().keys[k].pins.at(5);
        EXPECT_EQ(
            toe,
            (WirrelPin{
                .angle = 0.5f, .length = 2.0f, .flags = k == 1 ? 0u : kPinHidden, .parent = 2, .id = 5}));
    }
    EXPECT_EQ(doc.Wirrel().anims[1].keys[0].pins.size(), 5u);
    EXPECT_EQ(NameOf(doc.Wirrel().pinNames[5]), "toe");
    EXPECT_EQ(selection.selected, std::set<int>{5});
    EXPECT_EQ(selection.currentItem, 5);
    EXPECT_EQ(selection.hotItem, 5);
}

TEST_F(PinCommandTest, ParentingJoinsTwoTreesWhereTheyStandAndRefusesALoop) {
    const std::vector<PinPoint> before = Positions();
    CommandPinParent joined(doc, selection, prompt, 4, 2);
    EXPECT_TRUE(joined.valid);
    EXPECT_EQ(Pins()[4].parent, 2);
    EXPECT_EQ(Pins()[4].Type(), Attachment);
    EXPECT_EQ(Pins()[3].parent, 4);  // the chain above the child now hangs below it
    EXPECT_EQ(selection.currentItem, 4);
    ExpectSamePositions(before);

    SetUp();
    const test::DocState start = State();
    CommandPinParent loop(doc, selection, prompt, 2, 0);
    EXPECT_FALSE(loop.valid);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].text.Utf8(), "Invalid action. Creating this bone would form a loop.");
    EXPECT_EQ(State(), start);
}

TEST_F(PinCommandTest, DeletingTakesALoneParentOrALoneChildAlong) {
    struct Case {
        std::string name;
        std::set<int> selected;
        std::vector<std::string> namesLeft;
    };
    const std::vector<Case> cases = {
        {"a childless pin whose root has no other child", {4}, {"hip", "leg", "foot"}},
        {"a root with one childless child", {3}, {"hip", "leg", "foot"}},
        {"a pin with children stays alone", {1}, {"hip", "foot", "box", "lid"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        selection.Clear();
        for (int pin : c.selected) {
            selection.Add(pin, true);
        }
        const std::vector<PinPoint> before = Positions();
        CommandPinDelete command(doc, selection);
        std::vector<std::string> names;
        for (const Name32& name : doc.Wirrel().pinNames) {
            names.emplace_back(NameOf(name));
        }
        EXPECT_EQ(names, c.namesLeft);
        EXPECT_TRUE(selection.selected.empty());
        EXPECT_EQ(selection.hotItem, -1);
        // Ids follow the names, and freed pins stay where they were.
        EXPECT_EQ(Ids(doc.CurrentKey()), [&] {
            std::vector<int> ids(names.size());
            std::iota(ids.begin(), ids.end(), 0);
            return ids;
        }());
    }
    const std::vector<PinPoint> positions = Positions();
    EXPECT_EQ(Pins()[1].parent, -1);  // "foot", freed where it stood
    EXPECT_EQ(Pins()[1].Type(), Root);
    EXPECT_NEAR(positions[1].x, 3.0f, 1e-5f);
    EXPECT_NEAR(positions[1].y, 2.0f, 1e-5f);
}

TEST_F(PinCommandTest, APinLeavesTheDocumentOnlyWhenNoFrameUsesItAnyMore) {
    test::UseTwoTrees(doc, 2);
    doc.AddAnim("Other", kAnimFromCurrentKey, -1);  // holds the pins too, and shows them
    doc.cursor.animIndex = 0;
    doc.cursor.animName = doc.Wirrel().anims[0].name;
    doc.SetFrame(1);
    auto deleteIn = [&](std::uint32_t frame, int pin) {
        doc.SetFrame(frame);
        selection.Clear();
        selection.Add(pin, true);
        return std::make_shared<CommandPinDelete>(doc, selection);
    };
    const test::DocState start = State();
    auto first = deleteIn(1, 1);  // frame 0 still shows it: hidden here only, its child freed
    EXPECT_EQ(doc.CurrentAnim().keys[1].pins[1].flags, Bone | kPinHidden);
    EXPECT_EQ(doc.CurrentAnim().keys[1].pins[2].parent, -1);
    EXPECT_EQ(doc.CurrentAnim().keys[0].pins[1].flags, Bone);
    auto second = deleteIn(0, 1);  // the other animation still shows it: it leaves this animation only
    EXPECT_EQ(Ids(doc.CurrentAnim().keys[0]), (std::vector<int>{0, 2, 3, 4}));
    EXPECT_EQ(Ids(doc.CurrentAnim().keys[1]), (std::vector<int>{0, 2, 3, 4}));
    EXPECT_EQ(doc.CurrentAnim().keys[0].pins[1].parent, -1);
    EXPECT_EQ(doc.Wirrel().pinNames.size(), 5u);

    doc.cursor.animIndex = 1;
    auto third = deleteIn(0, 1);  // the last user: it leaves the document, ids above it drop
    EXPECT_EQ(doc.Wirrel().pinNames.size(), 4u);
    EXPECT_EQ(Ids(doc.Wirrel().anims[0].keys[1]), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(Ids(doc.Wirrel().anims[1].keys[0]), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(doc.Wirrel().anims[1].keys[0].pins[3].parent, 2);

    third->Undo();
    doc.cursor.animIndex = 0;
    second->Undo();
    first->Undo();
    doc.SetFrame(1);
    EXPECT_EQ(State().wirrel, start.wirrel);
}

TEST_F(PinCommandTest, ATailIsBuiltFromSegmentsAndEndedBackIntoOnePin) {
    CommandPinType tail(doc, 2, Tail);
    ASSERT_EQ(doc.Wirrel().pinNames.size(), 7u);
    EXPECT_EQ(NameOf(doc.Wirrel().pinNames[5]), "Segment 1");
    EXPECT_EQ(Pins()[2].flags & (kPinTypeMask | kTailSegment), Tail | kTailEnd);
    EXPECT_EQ(Pins()[6].flags & (kPinTypeMask | kTailSegment), Tail | kTailSegment);
    EXPECT_EQ(Pins()[5].flags & (kPinTypeMask | kTailSegment), Tail | kTailAnchor);
    EXPECT_EQ(RepeatModesOf(tail), 0u);
    CommandPinType bone(doc, 2, Bone);
    EXPECT_EQ(doc.Wirrel().pinNames.size(), 5u);
    EXPECT_EQ(Pins()[2].parent, 1);
    EXPECT_NEAR(Pins()[2].length, 3.0f, 1e-5f);
    EXPECT_EQ(Pins()[2].Type(), Bone);
}

TEST_F(PinCommandTest, ATypeChangeRepeatsOverTheFramesOfItsMode) {
    test::UseTwoTrees(doc, 3);
    auto command = std::make_shared<CommandPinType>(doc, 2, Attachment);
    EXPECT_EQ(RepeatModesOf(*command), kRepeatAll);
    CommandRepeat repeat(doc, command, 0x001);
    EXPECT_EQ(doc.CurrentAnim().keys[0].pins[2].Type(), Bone);
    EXPECT_EQ(doc.CurrentAnim().keys[2].pins[2].Type(), Attachment);
    EXPECT_EQ(repeat.label.Utf8(), "Repeat Change pin type");
    repeat.Undo();
    EXPECT_EQ(doc.CurrentAnim().keys[2].pins[2].Type(), Bone);
    EXPECT_EQ(doc.CurrentAnim().keys[1].pins[2].Type(), Attachment);  // the command itself stays
}

}  // namespace
}  // namespace kovra
