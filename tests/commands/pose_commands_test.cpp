// Posing: forward and inverse kinematics drags, their merging, and the repeat of a change over frames.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "command_test.h"
#include "commands/command_macro.h"
#include "commands/command_stack.h"
#include "commands/frame_commands.h"
#include "commands/repeat.h"

namespace kovra {
namespace {

constexpr float kPi = 3.1415927f;
constexpr float kQuarter = 1.5707964f;

class PoseTest : public test::CommandTest {
protected:
    // Selects `pin` alone and takes it as the workspace does at a press.
    void Grab(int pin) {
        selection.Clear();
        selection.Add(pin, true);
        selection.SetHot(pin, 0);
        grabbed = {view.pinPixels[pin].x, view.pinPixels[pin].y};
        pressed = {grabbed.x + view.ScreenToWorld().ox, grabbed.y + view.ScreenToWorld().oy};
    }
    // One mouse move of a forward drag, `dx`, `dy` pixels from the press; the view follows the pose.
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

    Vec2 grabbed;
    Vec2 pressed;
};

// Pin 1 stands 2 units (64 pixels) straight up from its root at the origin; root 3 is at (-5, 0).
TEST_F(PoseTest, ForwardDragsTurnStretchOrMoveTheHotPin) {
    Grab(1);
    Pins()[1].flags |= kPinTweened;
    Move(-64, -64, kDragRotate);  // the mouse ends left of the root: a quarter turn
    EXPECT_NEAR(Pins()[1].angle, kPi, 1e-5f);
    EXPECT_FLOAT_EQ(Pins()[1].length, 2.0f);
    EXPECT_EQ(Pins()[1].flags, Bone);  // posed by the user: a key now
    SetUp();
    Grab(1);
    Move(0, 32, kDragLength);  // a unit further out: length and skin scale grow by half
    EXPECT_FLOAT_EQ(Pins()[1].angle, kQuarter);
    EXPECT_NEAR(Pins()[1].length, 3.0f, 1e-5f);
    EXPECT_NEAR(Pins()[1].scale, 1.5f, 1e-5f);
    SetUp();
    Grab(3);
    Move(32, -64, kDragMove);  // a root follows the mouse, give or take the pixels' 0.375
    EXPECT_NEAR(World(3).x, -4.0f, 0.02f);
    EXPECT_NEAR(World(3).y, -2.0f, 0.02f);
}

TEST_F(PoseTest, AHundredMoveDragIsOneStepThatUndoesToTheStart) {
    for (const bool ik : {false, true}) {
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
        stack.UndoRedo(false, hub);
        EXPECT_TRUE(State() == start) << (ik ? "ik" : "fk");
        stack.UndoRedo(true, hub);
        EXPECT_TRUE(State() == end) << (ik ? "ik" : "fk");
    }
}

TEST_F(PoseTest, InverseKinematicsReachesTheMouseAndHoldsItsLocks) {
    Pins()[1].flags |= kPinIkLock;
    Grab(2);
    CommandPinIk held(doc, selection, 480, 304, view, false);  // toward the world point (5, 2)
    ASSERT_TRUE(held.valid);
    EXPECT_NEAR(World(1).x, 0.0f, 1e-5f);
    EXPECT_NEAR(World(1).y, 2.0f, 1e-5f);
    EXPECT_NEAR(World(2).x, 3.0f, 1e-3f);
    EXPECT_NEAR(World(2).y, 2.0f, 1e-3f);
    SetUp();
    Grab(2);
    selection.SetHot(2, 2);  // the bone was taken: alone, its pin turns about the parent's parent
    CommandPinIk single(doc, selection, 416, 240, view, true);
    ASSERT_TRUE(single.valid);
    EXPECT_NEAR(std::atan2(World(1).y, World(1).x), 0.0f, 1e-4f);
    SetUp();
    selection.SetHot(-1, 0);
    const test::DocState start = State();
    EXPECT_FALSE(CommandPinIk(doc, selection, 416, 304, view, false).valid);
    EXPECT_TRUE(State() == start);
}

// The drag turns pin 1 of frame 1 from a quarter to a half turn, or stretches it from 2 to 3; the values
// are pin 1's afterwards in frames 0 and 2 of "Default" and in "Walk".
TEST_F(PoseTest, AForwardDragRepeatsAbsolutelyRelativelyOrInProportion) {
    struct Case {
        unsigned mask;
        int mode;
        float frame0, frame2, walk;
    };
    const std::vector<Case> cases = {
        {0x001, kDragRotate, kQuarter, kPi, kQuarter}, {0x002, kDragRotate, kPi, kQuarter, kQuarter},
        {0x008, kDragRotate, kPi, kPi, kPi},           {0x040, kDragRotate, kPi, kPi, kQuarter},
        {0x400, kDragLength, 3.0f, 3.0f, 2.0f},        {0x010, kDragLength, 2.0f, 3.0f, 2.0f},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "mask " << std::hex << c.mask);
        SetUp();
        Grab(1);
        auto drag = c.mode == kDragRotate ? Move(-64, -64, kDragRotate) : Move(0, 32, kDragLength);
        EXPECT_EQ(RepeatModesOf(*drag), c.mode == kDragLength ? kRepeatAll : 0x0FFu);
        CommandRepeat repeat(doc, drag, c.mask);
        const auto value = [&](int anim, int frame) {
            const WirrelPin& pin = doc.Wirrel().anims[anim].keys[frame].pins[1];
            return c.mode == kDragRotate ? pin.angle : pin.length;
        };
        EXPECT_NEAR(value(0, 0), c.frame0, 1e-5f);
        EXPECT_NEAR(value(0, 2), c.frame2, 1e-5f);
        EXPECT_NEAR(value(1, 0), c.walk, 1e-5f);
    }
}

TEST_F(PoseTest, ATypeChangeRepeatsButATailIsntAndOtherCommandsOfferNothing) {
    auto type = std::make_shared<CommandPinType>(doc, 2, Attachment);
    EXPECT_EQ(RepeatModesOf(*type), kRepeatAll);
    CommandRepeat repeat(doc, type, 0x001);
    EXPECT_EQ(repeat.label.Utf8(), "Repeat Change pin type");
    EXPECT_EQ(Keys()[0].pins[2].Type(), Bone);
    EXPECT_EQ(Keys()[2].pins[2].Type(), Attachment);
    EXPECT_EQ(RepeatModesOf(CommandPinType(doc, 1, Tail)), 0u);
    EXPECT_EQ(RepeatModesOf(CommandFrameSel(doc, 0)), 0u);
    EXPECT_EQ(RepeatModesOf(CommandMacro("Set Tile", 12)), 0u);
}

}  // namespace
}  // namespace kovra
