// Gestures scripted as the input layer delivers them: each leaves its command on the stack, one entry a
// drag, and undo and redo give back the saved document byte for byte.

#include <gtest/gtest.h>

#include <cmath>

#include "views/workspace/workbench.h"
#include "views/workspace/workspace_frame.h"

namespace kovra {
namespace {

using kestrel2::win::kButtonLeft;
using kestrel2::win::kButtonMiddle;
using kestrel2::win::kButtonRight;
using test::Workbench;

constexpr std::uint8_t kShift = 0x10, kCtrl = 0x11, kAlt = 0x12, kEscape = 0x1B;

// Undo of everything gives `before`, redo gives `after`.
void ExpectUndoRedo(Workbench& w, const std::vector<std::uint8_t>& before) {
    const std::vector<std::uint8_t> after = w.Saved();
    w.UndoAll();
    EXPECT_EQ(w.Saved(), before);
    w.RedoAll();
    EXPECT_EQ(w.Saved(), after);
}

// A root with a chain of three bones along the x axis, painted.
struct Chain : Workbench {
    Chain() {
        root = Pin(-1, -2.0f, 0.0f);
        a = Pin(root, -1.0f, 0.0f);
        b = Pin(a, 0.0f, 0.0f);
        c = Pin(b, 1.0f, 0.0f);
        Paint();
    }
    int root, a, b, c;
};

TEST(WorkspaceGesture, DrawThreeBonesWithTheRubberBand) {
    Workbench w;
    w.Paint();
    const auto before = w.Saved();
    w.Key(kShift, true);
    w.Click(kButtonLeft, 60, 120);  // a preview root
    EXPECT_TRUE(w.state.linking);
    w.Move(100, 110);
    EXPECT_EQ(w.doc.PinCount(), 1u);
    w.Click(kButtonLeft, 100, 110);  // the root and its first bone
    EXPECT_FALSE(w.state.linking);
    ASSERT_EQ(w.doc.PinCount(), 2u);
    for (int x : {140, 180}) {
        const int last = static_cast<int>(w.doc.PinCount()) - 1;
        w.Click(kButtonLeft, w.PinX(last), w.PinY(last));
        EXPECT_TRUE(w.state.linking);
        w.Click(kButtonLeft, x, 120);
        EXPECT_FALSE(w.state.linking);
    }
    w.Key(kShift, false);
    const std::vector<WirrelPin>& pins = w.doc.CurrentKey().pins;
    ASSERT_EQ(pins.size(), 4u);
    EXPECT_EQ(pins[0].Type(), Root);
    for (int i = 1; i < 4; ++i) {
        EXPECT_EQ(pins[i].parent, i - 1);
    }
    EXPECT_NEAR(w.PinScreenX(3), 180.0f, 1.0f);
    EXPECT_EQ(w.stack.Size(), 3u);
    ExpectUndoRedo(w, before);
}

TEST(WorkspaceGesture, LinkWithinOneTreeIsRefusedWithAMessage) {
    Chain w;
    w.Key(kShift, true);
    w.Click(kButtonLeft, w.PinX(w.c), w.PinY(w.c));
    w.Click(kButtonLeft, w.PinX(w.a), w.PinY(w.a));
    ASSERT_EQ(w.prompt.asked.size(), 1u);
    EXPECT_EQ(w.prompt.asked[0].text.Utf8(), "Invalid action. Creating this bone would form a loop.");
    EXPECT_FALSE(w.state.linking);
    EXPECT_EQ(w.stack.Size(), 0u);
}

TEST(WorkspaceGesture, IkDragHoldsTheLockedPinAndIsOneEntry) {
    Chain w;
    w.Click(kButtonLeft, w.PinX(w.a), w.PinY(w.a));
    w.Press(kButtonLeft, w.PinX(w.a), w.PinY(w.a), true);  // a double click locks it
    w.Release(kButtonLeft, w.PinX(w.a), w.PinY(w.a));
    ASSERT_NE(w.doc.CurrentKey().pins[w.a].flags & kPinIkLock, 0u);
    const auto before = w.Saved();
    const std::size_t entries = w.stack.Size();
    const float ax = w.PinScreenX(w.a), ay = w.PinScreenY(w.a);
    w.Drag(kButtonLeft, w.PinX(w.c), w.PinY(w.c), w.PinX(w.c) - 20, w.PinY(w.c) + 40, 12);
    EXPECT_EQ(w.stack.Size(), entries + 2);  // the selection of c and the drag
    EXPECT_EQ(w.stack.At(w.stack.Size() - 1).GetType(), kKindPinIk);
    EXPECT_FLOAT_EQ(w.PinScreenX(w.a), ax);
    EXPECT_FLOAT_EQ(w.PinScreenY(w.a), ay);
    EXPECT_GT(w.PinScreenY(w.c), static_cast<float>(w.Y(0.0f)) + 10.0f);
    w.stack.UndoRedo(false, w.hub);
    w.stack.UndoRedo(false, w.hub);
    EXPECT_EQ(w.Saved(), before);
}

TEST(WorkspaceGesture, EscapeWithTheButtonHeldCancelsTheDrag) {
    Chain w;
    w.doc.viewFlags[kViewIk] = false;
    const auto before = w.Saved();
    w.Press(kButtonLeft, w.PinX(w.b), w.PinY(w.b));
    w.DragTo(w.PinX(w.b), w.PinY(w.b), w.PinX(w.b) + 10, w.PinY(w.b) + 30);
    EXPECT_NE(w.Saved(), before);
    w.Key(kEscape, true);
    w.Key(kEscape, false);
    w.Release(kButtonLeft, w.event.x, w.event.y);
    EXPECT_EQ(w.Saved(), before);
    EXPECT_EQ(w.stack.Size(), 1u);  // only the selection of the pin
    EXPECT_FALSE(w.state.dragging);
    w.Key(kEscape, true);
    EXPECT_TRUE(w.state.pinSelection.selected.empty());
}

TEST(WorkspaceGesture, MarqueeSelectsThePinsInTheBox) {
    Chain w;
    w.Drag(kButtonRight, w.PinX(w.a) - 8, w.PinY(w.a) - 8, w.PinX(w.b) + 8, w.PinY(w.b) + 8);
    EXPECT_EQ(w.state.pinSelection.selected, (std::set<int>{w.a, w.b}));
    EXPECT_FALSE(w.state.marquee);
    ASSERT_EQ(w.stack.Size(), 1u);
    EXPECT_EQ(w.stack.At(0).GetType(), kKindPinSelArea);
}

TEST(WorkspaceGesture, PanFollowsTheMouseAndAClickOnNothingClears) {
    Chain w;
    w.Click(kButtonLeft, w.PinX(w.a), w.PinY(w.a));
    ASSERT_FALSE(w.state.pinSelection.selected.empty());
    w.Drag(kButtonMiddle, 200, 200, 232, 184, 4);
    EXPECT_FLOAT_EQ(w.state.view.cameraX, -1.0f);
    EXPECT_FLOAT_EQ(w.state.view.cameraY, 0.5f);
    w.Drag(kButtonLeft, 200, 200, 168, 200, 4);  // a pan with the left button keeps the selection
    EXPECT_FLOAT_EQ(w.state.view.cameraX, 0.0f);
    EXPECT_FALSE(w.state.pinSelection.selected.empty());
    w.Click(kButtonLeft, 300, 30);
    EXPECT_TRUE(w.state.pinSelection.selected.empty());
    w.Press(kButtonLeft, 300, 30, true);
    w.Release(kButtonLeft, 300, 30);
    EXPECT_EQ(w.state.view.cameraX, 0.0f);
    w.Wheel(120);
    EXPECT_EQ(w.passedOn, 1);
}

struct Skinned : Chain {
    Skinned() {
        Skin(b, 0, WirrelSkin{.scaleX = 3.0f, .scaleY = 3.0f});
        state.editMode = kModeBuild;
        Paint();
        Click(kButtonLeft, PinX(b), PinY(b));
    }
    // Client pixel of grip `part` of pin `pin`.
    int GripX(int pin, int part) const {
        return static_cast<int>(state.skinHandles[pin * kGripsPerPin + part].x);
    }
    int GripY(int pin, int part) const {
        return static_cast<int>(state.skinHandles[pin * kGripsPerPin + part].y);
    }
};

TEST(WorkspaceGesture, CornerGripRotatesTheSkinInOneEntry) {
    Skinned w;
    ASSERT_EQ(w.state.pinSelection.currentItem, w.b);
    const auto before = w.Saved();
    const std::size_t entries = w.stack.Size();
    const int x = w.GripX(w.b, 10), y = w.GripY(w.b, 10);
    w.Move(x, y);
    EXPECT_EQ(w.state.pinSelection.hotPart, 10);
    w.Drag(kButtonLeft, x, y, x - 30, y + 30);
    EXPECT_EQ(w.stack.Size(), entries + 1);
    EXPECT_EQ(w.stack.At(w.stack.Size() - 1).GetType(), kKindSkinRotate);
    EXPECT_NE(w.doc.Wirrel().skins[0].angle, 0.0f);
    w.stack.UndoRedo(false, w.hub);
    EXPECT_EQ(w.Saved(), before);
}

TEST(WorkspaceGesture, AltOnThePinGripRigsANewJoint) {
    Skinned w;
    const auto before = w.Saved();
    const std::size_t pins = w.doc.PinCount();
    const int x = w.GripX(w.b, 1), y = w.GripY(w.b, 1);
    w.Move(x, y);
    ASSERT_EQ(w.state.pinSelection.hotPart, 1);
    w.Key(kAlt, true);
    w.Drag(kButtonLeft, x, y, x + 20, y + 25);
    w.Key(kAlt, false);
    EXPECT_EQ(w.doc.PinCount(), pins + 1);
    EXPECT_EQ(w.stack.At(w.stack.Size() - 1).GetType(), kKindSkinPin);
    w.stack.UndoRedo(false, w.hub);
    EXPECT_EQ(w.Saved(), before);
}

TEST(WorkspaceGesture, ScaleDragCancelledWithTheRightButtonStaysOpen) {
    Skinned w;
    const int x = w.GripX(w.b, 7), y = w.GripY(w.b, 7);
    w.Move(x, y);
    w.Press(kButtonLeft, x, y);
    w.DragTo(x, y, x + 30, y);
    w.Press(kButtonRight, x + 30, y);
    w.Release(kButtonRight, x + 30, y);
    w.Release(kButtonLeft, x + 30, y);
    EXPECT_GT(w.doc.Wirrel().skins[0].scaleX, 3.0f);
    EXPECT_FALSE(w.stack.IsTopFrozen());
}

TEST(WorkspaceGesture, CtrlOnAPinGripTriesATestPoseThatSpringsBack) {
    Skinned w;
    const auto before = w.Saved();
    const std::size_t entries = w.stack.Size();
    const int x = w.GripX(w.b, 1), y = w.GripY(w.b, 1);
    w.Move(x, y);
    w.Key(kCtrl, true);
    w.Press(kButtonLeft, x, y);
    w.DragTo(x, y, x, y + 40);
    EXPECT_TRUE(w.state.previewActive);
    EXPECT_NE(w.Saved(), before);
    w.Release(kButtonLeft, x, y + 40);
    w.Key(kCtrl, false);
    EXPECT_FALSE(w.state.previewActive);
    EXPECT_EQ(w.Saved(), before);
    EXPECT_EQ(w.stack.Size(), entries);
}

TEST(WorkspaceGesture, RectangleToolAddsACollisionRectangle) {
    Skinned w;
    w.state.skinTool = kToolRectangle;
    w.Drag(kButtonRight, 20, 20, 60, 50);
    ASSERT_EQ(w.doc.Wirrel().aabbs.size(), 1u);
    const WirrelAabb& box = w.doc.Wirrel().aabbs[0];
    EXPECT_LT(box.left, box.right);
    EXPECT_LT(box.top, box.bottom);
    EXPECT_EQ(w.doc.CurrentKey().pins[w.b].aabb, 0);
    EXPECT_EQ(w.stack.At(w.stack.Size() - 1).GetType(), kKindAabbCreate);
}

TEST(WorkspaceGesture, TabWalksThePins) {
    Chain w;
    w.Key(0x09, true);
    EXPECT_EQ(w.state.pinSelection.selected, std::set<int>{0});
    w.Key(kShift, true);
    w.Key(0x09, true);
    EXPECT_EQ(w.state.pinSelection.selected, std::set<int>{3});
}

TEST(WorkspaceGesture, RemapKeepsTheSelectionOnTheSamePins) {
    Chain w;
    SelectionTracker& sel = w.state.pinSelection;
    sel.Add(w.a, false);
    sel.Add(w.c, true);
    sel.SetHot(w.b, 3);
    int calls = 0;
    struct Counter {
        int* calls;
        void Changed() { ++*calls; }
    } counter{&calls};
    sel.onSelectionChanged.Add(&counter, &Counter::Changed);
    w.input.RemapSelection({3, 2, -1, 0});  // b is gone
    EXPECT_EQ(sel.selected, (std::set<int>{2, 0}));
    EXPECT_EQ(sel.currentItem, 0);
    EXPECT_EQ(sel.hotItem, -1);
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace kovra
