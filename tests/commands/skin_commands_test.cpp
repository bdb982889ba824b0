#include "commands/skin_commands.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "commands/command_stack.h"
#include "commands/repeat.h"
#include "doc/skins.h"
#include "skin_rig.h"

namespace kovra {
namespace {

using std::make_shared;

class SkinCommandsTest : public test::SkinRig {
protected:
    // A drag of a grip of the current pin from where it stands to `mouse`.
    SkinDrag DragTo(int part, Vec2 mouse) {
        const Vec2 at = GripAt(selection.currentItem, part);
        return {at, at, mouse};
    }
};

// The angle of a first skin: for a wide texture pi when the bone turned back a quarter lies in the first
// half of the circle, else 0; for a tall or square one a quarter when the bone lies beyond pi, else three
// quarters. Each threshold is tried on both sides by one float step.
TEST(DefaultSkinAngleTest, BothSidesOfEachBranch) {
    const WirrelTexture wide{.width = 64, .height = 32};
    const WirrelTexture tall{.width = 32, .height = 64};
    const WirrelTexture square{.width = 32, .height = 32};
    const float threeQuarters = 4.712389f;
    struct Case {
        WirrelTexture texture;
        float bone;
        float expected;
    };
    const std::vector<Case> cases = {
        {wide, 1.5707964f, 3.1415927f},                           // just past a quarter: 4e-8
        {wide, std::nextafter(1.5707964f, 0.0f), 0.0f},           // just below: a whole turn less
        {wide, threeQuarters, 0.0f},                              // exactly pi once turned back
        {wide, std::nextafter(threeQuarters, 0.0f), 3.1415927f},  // just below pi
        {wide, 0.5f, 0.0f},
        {tall, 3.1415927f, threeQuarters},  // pi itself is not beyond pi
        {tall, std::nextafter(3.1415927f, 4.0f), 1.5707964f},
        {tall, -0.5f, 1.5707964f},
        {tall, 0.5f, threeQuarters},
        {square, 4.0f, 1.5707964f},
        {square, 3.0f, threeQuarters},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(DefaultSkinAngle(c.texture, c.bone), c.expected)
            << c.texture.width << "x" << c.texture.height << " at " << c.bone;
    }
}

TEST_F(SkinCommandsTest, SettingASkinStartsUprightAndLeavesSharedEntriesAlone) {
    CommandSkinSet first(doc, selection, 3, 0);  // the root points along pi: a wide texture lies flat
    EXPECT_EQ(SkinOf(3), (WirrelSkin{.texture = 0, .angle = 3.1415927f}));
    EXPECT_EQ(selection.selected, (std::set<int>{3}));
    EXPECT_EQ(selection.hotItem, 3);

    doc.Wirrel().skins[0].angle = 0.25f;
    CommandSkinSet shared(doc, selection, 1, 1);  // frame 1 keeps skin 0; the values stay, the texture not
    EXPECT_EQ(Pins()[1].skin, 4);
    EXPECT_EQ(SkinOf(1), (WirrelSkin{.texture = 1, .angle = 0.25f}));
    EXPECT_EQ(Keys()[1].pins[1].skin, 0);

    CommandSkinSet cleared(doc, selection, 4, -1);  // its only user: the entry goes, the ones above drop
    EXPECT_EQ(Pins()[4].skin, -1);
    EXPECT_EQ(doc.Wirrel().skins.size(), 4u);
    EXPECT_EQ(Pins()[3].skin, 2);
    cleared.Undo();
    EXPECT_EQ(Pins()[4].skin, 2);
    EXPECT_EQ(Pins()[3].skin, 3);
    EXPECT_EQ(doc.Wirrel().skins[2], (WirrelSkin{.texture = 0}));
}

// Pin 2's bone points down the screen (its grip 1 is 64 pixels below grip 2), so a mouse move to the
// right is across the bone, to its right-hand side: offsetY goes down. A move down is along the bone.
TEST_F(SkinCommandsTest, AnOffsetFollowsTheBoneItLiesOn) {
    Pick(2, kGripBody);
    Refresh();
    auto across = make_shared<CommandSkinOffset>(10.0f, 0.0f, selection, doc, grips, view, false);
    EXPECT_TRUE(across->valid);
    EXPECT_EQ(across->label.Utf8(), "Offset Skin");
    EXPECT_FLOAT_EQ(SkinOf(2).offsetX, 0.0f);
    EXPECT_FLOAT_EQ(SkinOf(2).offsetY, -0.3125f);
    CommandSkinOffset along(0.0f, 8.0f, selection, doc, grips, view, false);
    EXPECT_FLOAT_EQ(SkinOf(2).offsetX, 0.25f);
    EXPECT_FLOAT_EQ(SkinOf(2).offsetY, -0.3125f);
    EXPECT_FLOAT_EQ(SkinCentre(2).x, 4.3125f);  // 10 pixels right of the bone's middle
    EXPECT_FLOAT_EQ(SkinCentre(2).y, 1.25f);    // and 8 below

    // Pin 1 hangs from a free root: its drag moves the root, skin and all.
    Pick(1, kGripBody);
    Refresh();
    CommandSkinOffset root(16.0f, 8.0f, selection, doc, grips, view, false);
    EXPECT_NEAR(Positions()[0].x, 0.5f, 1e-6f);
    EXPECT_NEAR(Positions()[0].y, 0.25f, 1e-6f);
    EXPECT_NEAR(Positions()[1].x, 4.5f, 1e-6f);

    // No skin and no separation: nothing to do.
    Pick(3, kGripBody);
    Refresh();
    EXPECT_FALSE(CommandSkinOffset(5.0f, 5.0f, selection, doc, grips, view, false).valid);
}

// With the snap flag pin 2 leaves its skeleton: a new free pin at its parent's grip, (4, 0), carries it
// and moves with the mouse; the end of the drag draws it as a bone again.
TEST_F(SkinCommandsTest, ASeparatedBoneHangsFromANewPinThatFollowsTheMouse) {
    Pick(2, kGripBody);
    Refresh();
    CommandStack stack;
    for (int move = 0; move < 4; ++move) {
        stack.AddCommand(make_shared<CommandSkinOffset>(8.0f, 4.0f, selection, doc, grips, view, true));
        Refresh();
    }
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_EQ(stack.UndoLabel().Utf8(), "Separate Bones/Offset Skin");
    ASSERT_EQ(Pins().size(), 6u);
    EXPECT_EQ(NameOf(doc.Wirrel().pinNames[5]), "Pin5");
    EXPECT_EQ(Pins()[2].parent, 5);
    EXPECT_EQ(Pins()[5].flags, Root | kSkinSeparated);
    EXPECT_NEAR(Positions()[5].x, 5.0f, 1e-5f);
    EXPECT_NEAR(Positions()[5].y, 0.5f, 1e-5f);
    EXPECT_NEAR(Positions()[2].y, 2.5f, 1e-5f);
    EXPECT_EQ(Keys()[1].pins[5].flags, Root | kPinHidden);
    stack.FinishDrag(kKindSkinOffset, true);
    EXPECT_EQ(Pins()[5].flags, Root);
    const Wirrel after = doc.Wirrel();
    stack.UndoRedo(false, hub);
    EXPECT_EQ(doc.PinCount(), 5u);
    EXPECT_EQ(Pins()[2].parent, 1);
    stack.UndoRedo(true, hub);
    EXPECT_EQ(doc.Wirrel(), after);
}

// Pin 1's skin spans x from 1 to 3 about its centre at (2, 0): pixels 352 to 416 about 384. Its right
// grip dragged to 368, 16 pixels past the centre, is half the way back on the other side.
TEST_F(SkinCommandsTest, AScaleWhoseGripCrossesTheCentreMirrorsTheSkin) {
    Pick(1, kGripScaleRight);
    Refresh();
    ASSERT_EQ(GripAt(1, kGripScaleRight).x, 416.0f);
    CommandSkinScale single(DragTo(kGripScaleRight, {368, 240}), grips, doc, selection, false);
    EXPECT_EQ(single.label.Utf8(), "Scale Skin");
    EXPECT_FLOAT_EQ(SkinOf(1).scaleX, -0.5f);
    EXPECT_FLOAT_EQ(SkinOf(1).scaleY, 1.0f);
    single.Undo();
    CommandSkinScale expanded(DragTo(kGripScaleRight, {368, 240}), grips, doc, selection, true);
    EXPECT_EQ(expanded.label.Utf8(), "Expand Skin");
    EXPECT_FLOAT_EQ(SkinOf(1).scaleX, -0.5f);
    EXPECT_FLOAT_EQ(SkinOf(1).scaleY, -0.5f);
    expanded.Undo();

    // The same in moves, the grips following the skin: one step, the same factor, undone at once.
    const Wirrel start = doc.Wirrel();
    const SkinDrag drag = DragTo(kGripScaleRight, {416, 240});
    CommandStack stack;
    for (const float x : {400.0f, 392.0f, 376.0f, 368.0f}) {
        stack.AddCommand(make_shared<CommandSkinScale>(SkinDrag{drag.anchor, drag.press, {x, 240}}, grips,
                                                       doc, selection, false));
        Refresh();
    }
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_FLOAT_EQ(SkinOf(1).scaleX, -0.5f);
    stack.UndoRedo(false, hub);
    EXPECT_EQ(doc.Wirrel(), start);
}

// The corner c1 of pin 1's skin is at (416, 224), 32 right and 16 above the centre (384, 240); the mouse
// at (400, 272) is that vector turned a quarter. A drag along the arc is one step of the same turn.
TEST_F(SkinCommandsTest, ARotationTurnsTheSkinByTheMousesTurnAboutItsCentre) {
    Pick(1, kGripRotate0 + 1);
    Refresh();
    ASSERT_EQ(GripAt(1, kGripRotate0 + 1).x, 416.0f);
    ASSERT_EQ(GripAt(1, kGripRotate0 + 1).y, 224.0f);
    const Wirrel start = doc.Wirrel();
    const SkinDrag drag = DragTo(kGripRotate0 + 1, {400, 272});
    CommandSkinRotate single(drag, grips, doc, selection);
    EXPECT_NEAR(SkinOf(1).angle, 1.5707964f, 1e-6f);
    EXPECT_EQ(Keys()[1].pins[1].skin, 0);  // the other frame keeps the shared entry
    single.Undo();
    EXPECT_EQ(doc.Wirrel(), start);

    CommandStack stack;
    for (int step = 1; step <= 12; ++step) {
        const float turn = -0.4636476f + 1.5707964f * static_cast<float>(step) / 12.0f;
        const Vec2 mouse{384.0f + 35.777088f * std::cos(turn), 240.0f + 35.777088f * std::sin(turn)};
        stack.AddCommand(
            make_shared<CommandSkinRotate>(SkinDrag{drag.anchor, drag.press, mouse}, grips, doc, selection));
        Refresh();
    }
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_EQ(stack.UndoLabel().Utf8(), "Rotate Skin");
    EXPECT_NEAR(SkinOf(1).angle, 1.5707964f, 0.02f);  // the rebuilt grips round the centre to pixels
    stack.UndoRedo(false, hub);
    EXPECT_EQ(doc.Wirrel(), start);
}

// Alt on pin 1's joint splits it: a new free pin at the joint's pixel, (4, 0) plus 0.375 pixels, takes
// pin 2 as it is, and is dragged onto pin 4 of the other skeleton, where it snaps. Pin 2 and its skin
// stay where that left them. The end of the drag hangs pin 2 from pin 4 and deletes the new pin; undo
// and redo give both states exactly.
TEST_F(SkinCommandsTest, ARigInsertsAJointSnapsItOntoAnotherSkeletonAndRehangsItAtTheEnd) {
    const Wirrel start = doc.Wirrel();
    const Vec2 anchor{view.pinPixels[1].x, view.pinPixels[1].y};
    const Vec2 press{448, 240};
    CommandStack stack;
    // The last move ends 3 pixels from pin 4's pixel at (-191.625, 96.375): within two pin radii.
    for (const Vec2 mouse : {Vec2{400, 260}, Vec2{200, 320}, Vec2{131, 336}}) {
        stack.AddCommand(make_shared<CommandSkinPin>(SkinDrag{anchor, press, mouse}, selection, doc, view,
                                                     test::kPinRadius, true));
        Refresh();
    }
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_EQ(stack.UndoLabel().Utf8(), "Rig Skin");
    ASSERT_EQ(Pins().size(), 6u);
    EXPECT_EQ(NameOf(doc.Wirrel().pinNames[5]), "Pin5");
    EXPECT_EQ(Pins()[2].parent, 5);
    EXPECT_EQ(selection.selected, (std::set<int>{5}));
    EXPECT_EQ(selection.hotItem, 5);
    EXPECT_EQ(selection.hotPart, kGripPin);
    // Snapped: the mouse became (128, 336), so the joint is at pin 4's pixel over 32.
    EXPECT_NEAR(Positions()[5].x, -191.625f / 32, 1e-5f);
    EXPECT_NEAR(Positions()[5].y, 96.375f / 32, 1e-5f);
    const float shift = 0.375f / 32;
    EXPECT_NEAR(Positions()[2].x, 4 + shift, 1e-5f);
    EXPECT_NEAR(Positions()[2].y, 2 + shift, 1e-5f);
    EXPECT_NEAR(SkinCentre(2).x, 4 + shift, 1e-5f);
    EXPECT_NEAR(SkinCentre(2).y, 1 + shift, 1e-5f);
    EXPECT_EQ(Pins()[1], start.anims[0].keys[0].pins[1]);

    // Pin 4 stands 0.375 pixels from the joint's place, so the skin moves by a hundredth or so.
    stack.FinishDrag(kKindSkinPin, true);
    ASSERT_EQ(Pins().size(), 5u);
    EXPECT_EQ(doc.PinCount(), 5u);
    EXPECT_EQ(Pins()[2].parent, 4);
    EXPECT_NEAR(Positions()[2].x, 4 + shift, 1e-5f);
    EXPECT_NEAR(Positions()[2].y, 2 + shift, 1e-5f);
    EXPECT_NEAR(SkinCentre(2).x, 4.0f, 0.02f);
    EXPECT_NEAR(SkinCentre(2).y, 1.0f, 0.02f);
    EXPECT_EQ(selection.hotItem, -1);
    EXPECT_TRUE(selection.selected.empty());
    const Wirrel after = doc.Wirrel();
    stack.UndoRedo(false, hub);
    EXPECT_EQ(doc.Wirrel(), start);
    EXPECT_EQ(selection.selected, (std::set<int>{1}));
    stack.UndoRedo(true, hub);
    EXPECT_EQ(doc.Wirrel(), after);
    EXPECT_NE(RepeatModesOf(*stack.TopCommand()), 0u);
}

TEST_F(SkinCommandsTest, WithoutAnotherSkeletonNearbyTheJointJustMoves) {
    Pick(2, kGripParent);  // the parent's grip: pin 1 is dragged, and no pin is inserted
    CommandSkinPin moved(SkinDrag{{view.pinPixels[1].x, view.pinPixels[1].y}, {448, 240}, {448, 208}},
                         selection, doc, view, test::kPinRadius, false);
    moved.OnFreeze();
    EXPECT_EQ(Pins().size(), 5u);
    EXPECT_NEAR(Positions()[1].x, 4.0f, 1e-5f);
    EXPECT_NEAR(Positions()[1].y, -1.0f, 1e-5f);
    EXPECT_NEAR(SkinCentre(2).x, 4.0f, 1e-5f);  // the skin below the joint stays
    EXPECT_NEAR(SkinCentre(2).y, 1.0f, 1e-5f);
    EXPECT_NEAR(SkinCentre(1).x, 2.0f, 1e-5f);  // and so does the one above it
    EXPECT_NEAR(SkinCentre(1).y, 0.0f, 1e-5f);
}

// Pin 1's skin is twice as wide as its texture (x from 0 to 4) and turned by 1.
TEST_F(SkinCommandsTest, ADoubleClickResetsOneThingOfTheSkin) {
    const WirrelSkin scaled{.texture = 0, .offsetX = 0.5f, .offsetY = 0.25f, .scaleX = 2, .scaleY = 3};
    struct Case {
        int part;
        bool ctrl, alt;
        const char* label;
        int kind;
        WirrelSkin expected;
    };
    const std::vector<Case> cases = {
        {kGripBody, false, false, "Reset Skin Offset", 9, {.texture = 0, .scaleX = 2, .scaleY = 3}},
        // The left side stays at x 0.5: the centre moves one unit to the left.
        {kGripScaleRight, false, false, "Reset Skin Scale", 10, {0, -0.5f, 0.25f, 1, 3, 0, -1}},
        {kGripScaleLeft, false, false, "Reset Skin Scale", 10, {0, 1.5f, 0.25f, 1, 3, 0, -1}},
        {kGripScaleRight, false, true, "Reset Skin Scale", 10, {0, 0.5f, 0.25f, 1, 3, 0, -1}},
        {kGripScaleRight, true, false, "Reset Skin Scale", 10, {0, 0.5f, 0.25f, 1, 1, 0, -1}},
        // Height 1 times 3 becomes 1: the top side stays, the centre moves up by one.
        {kGripScaleBottom, false, false, "Reset Skin Scale", 10, {0, 0.5f, -0.75f, 2, 1, 0, -1}},
        {kGripScaleTop, false, false, "Reset Skin Scale", 10, {0, 0.5f, 1.25f, 2, 1, 0, -1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.part);
        SetUp();
        doc.Wirrel().skins[0] = scaled;
        auto reset = MakeSkinReset(doc, 1, c.part, c.ctrl, c.alt);
        ASSERT_NE(reset, nullptr);
        EXPECT_EQ(reset->label.Utf8(), c.label);
        EXPECT_EQ(reset->GetType(), c.kind);
        EXPECT_EQ(SkinOf(1), c.expected);
    }
    SetUp();
    doc.Wirrel().skins[0].angle = 2.5f;
    auto upright = MakeSkinReset(doc, 1, kGripRotate2, false, false);
    EXPECT_EQ(upright->label.Utf8(), "Reset Skin Angle");
    EXPECT_EQ(SkinOf(1).angle, 0.0f);  // a wide texture on a bone along x lies flat
    EXPECT_EQ(MakeSkinReset(doc, 3, kGripBody, false, false), nullptr);  // no skin
    EXPECT_EQ(MakeSkinReset(doc, 1, kGripPin, false, false), nullptr);
}

}  // namespace
}  // namespace kovra
