#include "commands/pin_commands.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "command_test.h"
#include "commands/command_stack.h"

namespace kovra {
namespace {

// Two trees in one frame: root 0 with the chain 1, 2; root 3 with the bone 4. Ids are the indices.
std::vector<WirrelPin> TwoTrees() {
    return {WirrelPin{.angle = 0.0f, .length = 0.0f, .flags = Root, .parent = -1, .id = 0},
            WirrelPin{.angle = 1.5707964f, .length = 2.0f, .flags = Bone, .parent = 0, .id = 1},
            WirrelPin{.angle = 0.0f, .length = 3.0f, .flags = Bone, .parent = 1, .id = 2},
            WirrelPin{.angle = 3.1415927f, .length = 5.0f, .flags = Root, .parent = -1, .id = 3},
            WirrelPin{.angle = 4.712389f, .length = 1.0f, .flags = Attachment, .parent = 3, .id = 4}};
}

class PinCommandTest : public test::CommandTest {
protected:
    void SetUp() override {
        doc.Reset(true);
        selection = SelectionTracker{};
        Wirrel& w = doc.Wirrel();
        w.pinNames = {MakeName("hip"), MakeName("leg"), MakeName("foot"), MakeName("box"), MakeName("lid")};
        doc.CurrentKey().pins = TwoTrees();
        selection.Add(2, true);
        selection.Add(4, false);
        selection.SetHot(2, 1);
    }
    std::vector<WirrelPin>& Pins() { return doc.CurrentKey().pins; }
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

}  // namespace
}  // namespace kovra
