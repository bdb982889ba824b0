// Posing commands: forward and inverse kinematics drags, their merging, and the repeat of a forward
// drag over other frames.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "command_test.h"
#include "commands/command_macro.h"
#include "commands/command_stack.h"
#include "commands/frame_commands.h"
#include "commands/pin_commands.h"
#include "commands/repeat.h"
#include "skeletons.h"

namespace kovra {
namespace {

constexpr float kPi = 3.1415927f;

class PoseCommandTest : public test::CommandTest {
protected:
    void SetUp() override {
        doc.Reset(true);
        test::UseTwoTrees(doc, 3);
        doc.AddAnim("Other", kAnimFromCurrentKey, -1);
        doc.cursor.animIndex = 0;
        doc.cursor.animName = doc.Wirrel().anims[0].name;
        doc.SetFrame(1);
        selection = SelectionTracker{};
        Grab(1);
    }
    std::vector<WirrelPin>& Pins() { return doc.CurrentKey().pins; }
    std::vector<WirrelPin>& PinsOf(int anim, int frame) { return doc.Wirrel().anims[anim].keys[frame].pins; }
    // Selects `pin` and takes it as the workspace does at a press.
    void Grab(int pin) {
        selection.Clear();
        selection.Add(pin, true);
        selection.SetHot(pin, 0);
        FillPinPixels(view, Pins());
        grabbed = {view.pinPixels[pin].x, view.pinPixels[pin].y};
        pressed = {grabbed.x + view.OriginX(), grabbed.y + view.OriginY()};
    }
    // One mouse move of the drag, `dx`, `dy` pixels from the press; the view follows the pose.
    std::shared_ptr<CommandPinFk> Move(float dx, float dy, int mode) {
        auto command = std::make_shared<CommandPinFk>(grabbed, pressed, Vec2{pressed.x + dx, pressed.y + dy},
                                                      doc, selection, mode, view);
        FillPinPixels(view, Pins());
        return command;
    }
    Vec2 World(int pin) {
        std::vector<WorldPoint> world;
        WorldPositions(Pins(), world);
        return {world[pin].x, world[pin].y};
    }

    ViewTransform view = ViewTransform::OfClient(640, 480);
    Vec2 grabbed;
    Vec2 pressed;
};

TEST_F(PoseCommandTest, ForwardDragsTurnStretchOrMoveTheHotPin) {
    // Pin 1 stands 2 units (64 pixels) straight up from its root at the origin.
    auto turn = Move(-64, -64, kDragRotate);  // the mouse ends to the left of the root: a quarter turn
    EXPECT_NEAR(Pins()[1].angle, kPi, 1e-5f);
    EXPECT_FLOAT_EQ(Pins()[1].length, 2.0f);
    EXPECT_EQ(turn->label.Utf8(), "Rotate Pins");

    SetUp();
    Move(0, 32, kDragLength);  // one unit further out along the bone
    EXPECT_FLOAT_EQ(Pins()[1].angle, 1.5707964f);
    EXPECT_NEAR(Pins()[1].length, 3.0f, 1e-5f);
    EXPECT_NEAR(Pins()[1].scale, 1.5f, 1e-5f);

    SetUp();
    Grab(3);  // a root moves by the mouse's displacement, give or take the pixels' 0.375 offset
    Move(32, -64, kDragMove);
    EXPECT_NEAR(World(3).x, -4.0f, 0.02f);
    EXPECT_NEAR(World(3).y, -2.0f, 0.02f);
}

TEST_F(PoseCommandTest, EveryPosingCommandRoundTrips) {
    ExpectRoundTrip([&] { return Move(-20, 12, kDragMove); });
    SetUp();
    Pins()[1].flags |= kPinTweened;
    ExpectRoundTrip([&] { return Move(-30, -40, kDragRotate); });
    EXPECT_EQ(Pins()[1].flags & kPinTweened, 0u);
    SetUp();
    Grab(2);
    ExpectRoundTrip([&] { return std::make_shared<CommandPinIk>(doc, selection, 416, 304, view, false); });
    SetUp();
    auto drag = Move(-30, -40, kDragMove);
    ExpectRoundTrip([&] { return std::make_shared<CommandRepeat>(doc, drag, 0x080); });
}

TEST_F(PoseCommandTest, AHundredMoveDragIsOneStepKeepingTheStartAndTheEnd) {
    for (const bool ik : {false, true}) {
        SCOPED_TRACE(ik ? "ik" : "fk");
        SetUp();
        Grab(2);
        const test::DocState start = State();
        CommandStack stack;
        for (int move = 1; move <= 100; ++move) {
            if (ik) {
                auto command = std::make_shared<CommandPinIk>(doc, selection, 400 + move / 2, 300 - move / 2,
                                                              view, false);
                ASSERT_TRUE(command->valid);
                stack.AddCommand(command);
            } else {
                stack.AddCommand(Move(move * 0.5f, move * -0.25f, kDragMove));
            }
        }
        stack.FinishDrag(ik ? kKindPinIk : kKindPinFk, true);
        EXPECT_EQ(stack.Size(), 1u);
        EXPECT_TRUE(stack.IsTopFrozen());
        const test::DocState end = State();
        test::RecordingHub hub;
        stack.UndoRedo(false, hub);
        EXPECT_EQ(State(), start);
        stack.UndoRedo(true, hub);
        EXPECT_EQ(State(), end);
    }
}

TEST_F(PoseCommandTest, InverseKinematicsReachesTheMouseAndHoldsItsLocks) {
    Grab(2);
    // (416, 304) is the world point (3, 2) in a 640 x 480 view at zoom 1.
    CommandPinIk free(doc, selection, 416, 304, view, false);
    ASSERT_TRUE(free.valid);
    EXPECT_NEAR(World(2).x, 3.0f, 1e-3f);
    EXPECT_NEAR(World(2).y, 2.0f, 1e-3f);
    EXPECT_NEAR(World(0).x, 0.0f, 1e-6f);  // held at its root

    SetUp();
    Pins()[1].flags |= kPinIkLock;
    Grab(2);
    const Vec2 locked = World(1);
    CommandPinIk held(doc, selection, 480, 304, view, false);
    ASSERT_TRUE(held.valid);
    EXPECT_NEAR(World(1).x, locked.x, 1e-5f);
    EXPECT_NEAR(World(1).y, locked.y, 1e-5f);

    SetUp();
    Grab(2);
    selection.SetHot(2, 2);  // the bone was taken, not the pin: alone it turns about the parent's parent
    CommandPinIk single(doc, selection, 416, 240, view, true);
    ASSERT_TRUE(single.valid);
    EXPECT_NEAR(std::atan2(World(1).y, World(1).x), 0.0f, 1e-4f);
    EXPECT_NEAR(Pins()[1].length, 2.0f, 1e-6f);

    SetUp();
    selection.SetHot(-1, 0);
    const test::DocState start = State();
    CommandPinIk nothing(doc, selection, 416, 304, view, false);
    EXPECT_FALSE(nothing.valid);
    EXPECT_EQ(State(), start);
}

// Frame 1 of animation 0 is current; the drag turns pin 1 from pi/2 to pi, or stretches it from 2 to 3.
TEST_F(PoseCommandTest, AForwardDragRepeatsAbsolutelyRelativelyOrInProportion) {
    struct Case {
        unsigned mask;
        int mode;
        // The angle (or length) of pin 1 afterwards in frames 0 and 2 of animation 0, and in animation 1.
        float frame0;
        float frame2;
        float other;
    };
    const float quarter = 1.5707964f;
    const std::vector<Case> cases = {
        {0x001, kDragRotate, quarter, kPi, quarter}, {0x002, kDragRotate, kPi, quarter, quarter},
        {0x008, kDragRotate, kPi, kPi, kPi},         {0x040, kDragRotate, kPi, kPi, quarter},
        {0x400, kDragLength, 3.0f, 3.0f, 2.0f},      {0x010, kDragLength, 2.0f, 3.0f, 2.0f},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "mask " << std::hex << c.mask);
        SetUp();
        PinsOf(0, 2)[1].angle = quarter;
        auto drag = c.mode == kDragRotate ? Move(-64, -64, kDragRotate) : Move(0, 32, kDragLength);
        EXPECT_EQ(drag->RepeatModes(), c.mode == kDragLength ? kRepeatAll : 0x0FFu);
        const Wirrel before = doc.Wirrel();
        auto repeat = std::make_shared<CommandRepeat>(doc, drag, c.mask);
        auto value = [&](int anim, int frame) {
            const WirrelPin& pin = PinsOf(anim, frame)[1];
            return c.mode == kDragRotate ? pin.angle : pin.length;
        };
        EXPECT_NEAR(value(0, 0), c.frame0, 1e-5f);
        EXPECT_NEAR(value(0, 2), c.frame2, 1e-5f);
        EXPECT_NEAR(value(1, 0), c.other, 1e-5f);
        repeat->Undo();
        EXPECT_EQ(doc.Wirrel(), before);
    }
}

TEST_F(PoseCommandTest, OnlyDocumentCommandsOfferRepeatModes) {
    EXPECT_EQ(RepeatModesOf(CommandFrameSel(doc, 0)), 0u);
    EXPECT_EQ(RepeatModesOf(CommandMacro("Set Tile", 12)), 0u);
    EXPECT_EQ(RepeatModesOf(*Move(3, 3, kDragMove)), 0x0FFu);
}

}  // namespace
}  // namespace kovra
