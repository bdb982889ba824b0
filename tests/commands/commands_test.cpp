#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "commands/anim_commands.h"
#include "commands/command_macro.h"
#include "commands/command_stack.h"
#include "commands/frame_commands.h"
#include "commands/pin_commands.h"
#include "commands/repeat.h"
#include "doc/pin_tree.h"
#include "doc_state.h"
#include "random_walk.h"
#include "support/english.h"
#include "support/scripted_prompt.h"

namespace kovra {
namespace {

using std::make_shared;

constexpr float kPi = 3.1415927f;
constexpr float kQuarter = 1.5707964f;

// "Default" has three frames (frame 1 current) of two trees: root 0 at the origin with the chain 1
// (straight up, 2 long) and 2 (3 long, along x, turned a further 0.25 in each frame); root 3 at (-5, 0)
// with the attachment 4. Ids are the indices; pins 0 and 1 of frames 0 and 1 share a textured skin.
// "Walk" is a copy. Pins 2 and 4 are selected, 2 current and hot; the view has 32 pixels to the unit,
// and pin pixels are relative to the world origin.
class CommandsTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    void SetUp() override {
        doc.Reset(true);
        doc.Wirrel().pinNames = {MakeName("hip"), MakeName("leg"), MakeName("foot"), MakeName("box"),
                                 MakeName("lid")};
        doc.Wirrel().textures = {WirrelTexture{.imageIndex = 0, .width = 8, .height = 4}};
        doc.Wirrel().skins = {WirrelSkin{.texture = 0, .offsetY = 0.25f, .scaleX = 2.0f, .angle = 0.5f}};
        Keys().clear();
        for (std::uint32_t k = 0; k < 3; ++k) {
            Keys().push_back(
                {.pins = {{.flags = Root, .id = 0},
                          {.angle = kQuarter, .length = 2, .flags = Bone, .parent = 0, .id = 1},
                          {.angle = 0.25f * k, .length = 3, .flags = Bone, .parent = 1, .id = 2},
                          {.angle = kPi, .length = 5, .flags = Root, .id = 3},
                          {.angle = 3 * kQuarter, .length = 1, .flags = Attachment, .parent = 3, .id = 4}},
                 .ticks = 600 + 100 * k});
        }
        Keys()[0].pins[0].skin = Keys()[0].pins[1].skin = Keys()[1].pins[0].skin = Keys()[1].pins[1].skin = 0;
        doc.AddAnim("Walk", kAnimCopy, -1);
        Select(0, 1);
        selection = SelectionTracker{};
        SelectPins({4, 2});
        selection.SetHot(2, 1);
        hub = test::RecordingHub{};
        view = ViewTransform::OfClient(640, 480);
        FillPinPixels(view, Pins());
        Press(2);
    }

    std::vector<WirrelKey>& Keys() { return doc.CurrentAnim().keys; }
    std::vector<WirrelPin>& Pins() { return doc.CurrentKey().pins; }
    void Select(int anim, std::uint32_t frame) {
        doc.cursor.animIndex = anim;
        doc.cursor.animName = doc.Wirrel().anims[anim].name;
        doc.SetFrame(frame);
    }
    auto State() const { return test::StateOf(doc, selection, hub); }
    // The last pin listed is the current one.
    void SelectPins(const std::vector<int>& pins) {
        selection.Clear();
        for (int pin : pins) {
            selection.Add(pin, true);
        }
    }
    static std::vector<int> Ids(const WirrelKey& key) {
        std::vector<int> ids;
        for (const WirrelPin& pin : key.pins) {
            ids.push_back(pin.id);
        }
        return ids;
    }
    std::vector<WorldPoint> Positions() {
        std::vector<WorldPoint> out;
        PinPositions(doc.CurrentKey(), out);
        return out;
    }
    // The press of a forward drag on `pin`.
    void Press(int pin) {
        grabbed = {view.pinPixels[pin].x, view.pinPixels[pin].y};
        pressed = {grabbed.x + view.ScreenToWorld().ox, grabbed.y + view.ScreenToWorld().oy};
    }
    // Selects `pin` alone and presses on it.
    void Grab(int pin) {
        SelectPins({pin});
        selection.SetHot(pin, 0);
        Press(pin);
    }
    // One mouse move of a forward drag, `dx`, `dy` pixels from the press; the view follows the pose.
    std::shared_ptr<CommandPinFk> Move(float dx, float dy, int mode) {
        auto command = make_shared<CommandPinFk>(grabbed, pressed, Vec2{pressed.x + dx, pressed.y + dy}, doc,
                                                 selection, mode, view);
        FillPinPixels(view, Pins());
        return command;
    }

    WirrelDoc doc;
    SelectionTracker selection;
    test::RecordingHub hub;
    ViewTransform view;
    test::ScriptedPrompt prompt;
    Vec2 grabbed;
    Vec2 pressed;
};

// Every command, alone or as a run of edits that the stack may merge: the edits change something and end
// as `steps` steps; undoing them all gives back the state before exactly, redoing them the state after,
// and undoing them again the state before.
TEST_F(CommandsTest, EveryEditUndoesAndRedoesExactly) {
    using Edit = std::function<std::shared_ptr<ICommand>()>;
    const auto property = [&](int kind, int pin, float angle) -> Edit {
        return [=, this] {
            return make_shared<CommandPinProperty>(doc, "Set", kind, pin,
                                                   WirrelPin{.angle = angle, .id = pin});
        };
    };
    const auto name = [&](int pin, const char* text) -> Edit {
        return [=, this] { return make_shared<CommandPinName>(doc, pin, text); };
    };
    const auto order = [&](int from, int to) -> Edit {
        return [=, this] { return make_shared<CommandPinOrder>(doc, selection, "Order", from, to); };
    };
    const auto area = [&](float x0, float y0, float x1, float y1) -> Edit {
        return [=, this] {
            return make_shared<CommandPinSelArea>(x0, y0, x1, y1, doc, selection, view, false,
                                                  selection.Snapshot());
        };
    };
    const auto frame = [&](std::uint32_t index) -> Edit {
        return [=, this] { return make_shared<CommandFrameSel>(doc, index); };
    };
    const auto frames = [&](int kind) -> Edit {
        return [=, this] {
            return make_shared<CommandFrameState>(doc, "Tween", kind,
                                                  std::vector<WirrelKey>(kind - 60, Keys()[0]));
        };
    };
    const Edit deleteAnim = [&] { return make_shared<CommandAnimDelete>(doc, selection, hub); };
    const Edit chooseWalk = [&] { return make_shared<CommandAnimSel>(doc, selection, hub, 1); };
    const Edit deleteFrame = [&] { return make_shared<CommandFrameDelete>(doc); };
    const auto moves = [&](bool ik) {  // a hundred mouse moves of one drag
        std::vector<Edit> edits;
        for (int move = 1; move <= 100; ++move) {
            edits.push_back([=, this]() -> std::shared_ptr<ICommand> {
                if (ik) {
                    return make_shared<CommandPinIk>(doc, selection, 400 + move / 2, 300 - move / 2, view,
                                                     false);
                }
                return Move(move * 0.5f, move * -0.25f, kDragMove);
            });
        }
        return edits;
    };
    std::shared_ptr<CommandPinFk> drag;
    const auto dragged = [&] { drag = Move(-30, 20, kDragRotate); };
    const auto grabbed2 = [&] { Grab(2); };
    const auto tail = [&] { MakeTail(doc, 2); };
    const auto hiddenInWalk = [&] { doc.Wirrel().anims[1].keys[0].pins[2].flags |= kPinHidden; };
    struct Case {
        std::string name;
        std::vector<Edit> edits;
        std::size_t steps = 1;
        std::function<void()> setUp = nullptr;
    };
    const std::vector<Case> cases = {
        {"fk drag", moves(false), 1, grabbed2},
        {"ik drag", moves(true), 1, grabbed2},
        {"repeat", {[&] { return make_shared<CommandRepeat>(doc, drag, 0x080); }}, 1, dragged},
        {"ik lock", {[&] { return make_shared<CommandPinIkLock>(1, doc); }}},
        {"new", {[&] {
             return make_shared<CommandPinNew>(doc, selection, PinDescription{1, 2, 2, "toe"});
         }}},
        {"new two", {[&] {
             return make_shared<CommandPinNew2>(doc, selection, PinDescription{1, 4, -1, "a"},
                                                PinDescription{2, 1, 5, "b"});
         }}},
        {"parent", {[&] { return make_shared<CommandPinParent>(doc, selection, prompt, 4, 2); }}},
        {"delete", {[&] { return make_shared<CommandPinDelete>(doc, selection); }}},
        {"type root", {[&] { return make_shared<CommandPinType>(doc, 2, Root); }}},
        {"type tail", {[&] { return make_shared<CommandPinType>(doc, 2, Tail); }}},
        {"tail ended", {[&] { return make_shared<CommandPinType>(doc, 2, Bone); }}, 1, tail},
        {"property merged", {property(200, 2, 1), property(200, 2, 2)}},
        {"another property", {property(200, 2, 1), property(201, 2, 2)}, 2},
        {"property of another pin", {property(200, 2, 1), property(200, 1, 2)}, 2},
        {"names merged, of any pin", {name(1, "l"), name(1, "le"), name(2, "f")}},
        {"order from one old position merged", {order(0, 1), order(0, 3), order(1, 3)}, 2},
        {"order clicks, one step each", {order(0, 1), order(1, 2)}, 2},
        {"order up", {order(4, 1)}},
        {"area selections merged", {area(310, 230, 330, 250), area(0, 0, 640, 480)}},
        {"frame new", {[&] { return make_shared<CommandFrameNew>(doc, Keys()[0], 1); }}},
        {"frame new first", {[&] { return make_shared<CommandFrameNew>(doc, Keys()[0], -1); }}},
        {"frame delete", {deleteFrame}},
        {"last frame delete", {deleteFrame}, 1, [&] { doc.SetFrame(2); }},
        {"frame replace", {[&] { return make_shared<CommandFrameReplace>(doc, 2, Keys()[0]); }}},
        {"frame selections", {frame(2), frame(0)}, 2},
        {"frame states merged by kind", {frames(62), frames(62), frames(63)}, 2},
        {"speed", {[&] { return make_shared<CommandFrameSpeed>(doc, 2.5f); }}},
        {"snap", {[&] { return make_shared<CommandFrameSnap>(doc, 8u); }}},
        {"mirror", {[&] { return make_shared<CommandFrameReflect>(doc, 1); }}},
        {"flip", {[&] { return make_shared<CommandFrameReflect>(doc, 0); }}},
        {"anim new", {[&] { return make_shared<CommandAnimNew>(doc, selection, hub, "Run", 900u); }}},
        {"anim delete", {deleteAnim}},
        {"last anim delete", {deleteAnim}, 1, [&] { Select(1, 0); }},
        {"anim select", {chooseWalk}},
        {"anim select hiding the hot pin", {chooseWalk}, 1, hiddenInWalk},
        {"anim rename", {[&] { return make_shared<CommandAnimName>(doc, "Run"); }}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        if (c.setUp) {
            c.setUp();
        }
        const auto before = State();
        CommandStack stack;
        for (const Edit& edit : c.edits) {
            stack.AddCommand(edit());
        }
        stack.FinishDrag(stack.TopCommand()->GetType(), true);
        EXPECT_EQ(stack.Size(), c.steps);
        EXPECT_TRUE(stack.IsTopFrozen());
        const auto after = State();
        EXPECT_FALSE(after == before) << "nothing done";
        for (const bool redo : {false, true, false}) {
            while (redo ? stack.CanRedo() : stack.CanUndo()) {
                stack.UndoRedo(redo, hub);
            }
            EXPECT_TRUE(State() == (redo ? after : before)) << (redo ? "redo" : "undo");
        }
    }
}

// Without "Walk" and with one frame: a deletion takes along a root left without its only bone, or a
// leaf left without its root.
TEST_F(CommandsTest, DeletingTakesALoneParentOrALoneChildAlong) {
    struct Case {
        std::vector<int> selected;
        int parentOf4;
        std::size_t pinsLeft;
    };
    const std::vector<Case> cases = {{{4}, 3, 3}, {{4}, 0, 4}, {{3}, 3, 3},
                                     {{0}, 3, 4}, {{1}, 3, 4}, {{2, 4}, 3, 2}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "pin " << c.selected.back() << " with 4 under " << c.parentOf4);
        SetUp();
        doc.Wirrel().anims.pop_back();
        Keys().resize(1);
        Select(0, 0);
        Pins()[4].parent = c.parentOf4;
        SelectPins(c.selected);
        CommandPinDelete command(doc, selection);
        EXPECT_EQ(doc.PinCount(), c.pinsLeft);
        EXPECT_TRUE(selection.selected.empty());
        EXPECT_EQ(selection.hotItem, -1);
    }
}

TEST_F(CommandsTest, APinLeavesTheDocumentOnlyWhenNoFrameUsesItAnyMore) {
    SelectPins({1});
    const Wirrel start = doc.Wirrel();
    const SelectionTracker::Saved selected = selection.Snapshot();
    std::vector<std::shared_ptr<ICommand>> done;
    const auto remove = [&](int anim, std::uint32_t frame) {
        Select(anim, frame);
        SelectPins({1});
        done.push_back(make_shared<CommandPinDelete>(doc, selection));
    };
    remove(0, 1);  // other frames show it: hidden here only, its child freed
    EXPECT_EQ(Keys()[1].pins[1].flags, Bone | kPinHidden);
    EXPECT_EQ(Keys()[1].pins[2].parent, -1);
    remove(0, 0);
    remove(0, 2);  // "Walk" still shows it: it leaves "Default" only, ids unchanged
    EXPECT_EQ(Ids(Keys()[0]), (std::vector<int>{0, 2, 3, 4}));
    EXPECT_EQ(doc.PinCount(), 5u);
    for (std::uint32_t frame = 0; frame < 3; ++frame) {
        remove(1, frame);  // the last user: it leaves the document and the ids above it drop
    }
    EXPECT_EQ(doc.PinCount(), 4u);
    EXPECT_EQ(Ids(doc.Wirrel().anims[0].keys[1]), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(Ids(doc.Wirrel().anims[1].keys[0]), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(doc.Wirrel().anims[1].keys[0].pins[3].parent, 2);
    for (auto command = done.rbegin(); command != done.rend(); ++command) {
        (*command)->Undo();
    }
    EXPECT_EQ(doc.Wirrel(), start);
    EXPECT_EQ(selection.Snapshot(), selected);
}

// How the tree is re-hung is the pin tree's business; the command makes the child an attachment, or
// tells the user of a loop and changes nothing.
TEST_F(CommandsTest, ParentingMakesAnAttachmentOrRefusesALoop) {
    Pins()[4].SetType(Bone);
    CommandPinParent joined(doc, selection, prompt, 4, 2);
    EXPECT_TRUE(joined.valid);
    EXPECT_EQ(Pins()[4].parent, 2);
    EXPECT_EQ(Pins()[4].Type(), Attachment);
    const auto start = State();
    CommandPinParent loop(doc, selection, prompt, 2, 0);
    EXPECT_FALSE(loop.valid);
    EXPECT_EQ(prompt.asked.size(), 1u);
    EXPECT_TRUE(State() == start);
}

TEST_F(CommandsTest, ReorderingKeepsTheTreeAndTheSelectionOnTheSamePins) {
    CommandPinOrder command(doc, selection, "Change Draw Order", 0, 4);
    EXPECT_EQ(Ids(doc.CurrentKey()), (std::vector<int>{1, 2, 3, 4, 0}));
    EXPECT_EQ(Pins()[0].parent, 4);
    EXPECT_EQ(selection.Snapshot(), (SelectionTracker::Saved{{1, 3}, 1, 0}));
    EXPECT_EQ(selection.hotItem, 1);
}

TEST_F(CommandsTest, AreaSelectionTogglesThePinsWithin4PixelsOfTheBox) {
    // The world origin is at pixel (320, 240); pin pixels are relative to it.
    view.pinPixels = {{0, 0, 0}, {20, 0, 1}, {40, 10, 2}, {-30, -30, 3}, {24, 0, 4}};
    struct Case {
        float x0, y0, x1, y1;
        bool add;
        std::set<int> selected;
    };
    const std::vector<Case> cases = {
        {312, 230, 328, 250, false, {0}},         {328, 250, 312, 230, false, {0}},
        {344, 240, 356, 250, false, {1, 2, 4}},   {360.5f, 230, 370, 246, false, {}},
        {337, 235, 342, 245, true, {0, 1, 2, 4}}, {312, 230, 382, 260, true, {1, 4}},
    };
    for (const Case& c : cases) {
        SelectPins({0, 2});
        const SelectionTracker::Saved atPress = selection.Snapshot();
        selection.Add(3, false);  // moved on since the press
        CommandPinSelArea command(c.x0, c.y0, c.x1, c.y1, doc, selection, view, c.add, atPress);
        EXPECT_EQ(selection.selected, c.selected) << c.x0 << ", " << c.y0;
    }
}

TEST_F(CommandsTest, CollisionRectanglesAreChainedAndStayAfterUndo) {
    doc.selectedCollisionType = 1;
    CommandAabbCreate first(doc, 3, 4, 1, 2, 2);
    CommandAabbCreate second(doc, 0, 0, 1, 1, 2);
    second.Undo();
    EXPECT_EQ(doc.Wirrel().aabbs, (std::vector<WirrelAabb>{{1, 2, 3, 4, 1, 1}, {0, 0, 1, 1, 1, -1}}));
    EXPECT_EQ(Pins()[2].aabb, 0);
}

// Frames last 600, 700 and 800 ticks.
TEST_F(CommandsTest, ANewFrameSplitsThePreviousFramesTimeAndADeletedOneGivesItBack) {
    CommandFrameNew created(doc, WirrelKey{.pins = Pins(), .ticks = 200}, 0);
    EXPECT_EQ(Keys()[0].ticks, 400u);
    EXPECT_EQ(Keys()[1].ticks, 200u);
    EXPECT_EQ(doc.cursor.frameIndex, 1u);
    created.Undo();
    doc.SetFrame(2);
    CommandFrameDelete deleted(doc);
    EXPECT_EQ(Keys()[1].ticks, 1500u);
    EXPECT_EQ(doc.cursor.frameIndex, 1u);  // the last frame went: the new last is current
}

// Mirroring turns x into -x and flipping y into -y, for pins and skins alike.
TEST_F(CommandsTest, ReflectingTurnsThePoseAndItsSkinsButLeavesSharedSkinsAlone) {
    for (const int axis : {0, 1}) {
        SCOPED_TRACE(axis == 1 ? "mirror" : "flip");
        SetUp();
        const PinPoint turn = axis == 1 ? PinPoint{-1, 1} : PinPoint{1, -1};
        const std::vector<WorldPoint> before = Positions();
        const WirrelSkin shared = doc.Wirrel().skins[0];
        CommandFrameReflect command(doc, axis);
        for (std::size_t i = 0; i < before.size(); ++i) {
            EXPECT_NEAR(Positions()[i].x, turn.x * before[i].x, 1e-4f) << "pin " << i;
            EXPECT_NEAR(Positions()[i].y, turn.y * before[i].y, 1e-4f) << "pin " << i;
        }
        EXPECT_EQ(doc.Wirrel().skins[0], shared);  // frame 0 still uses it
        const WirrelSkin& turned = doc.Wirrel().skins[Pins()[1].skin];
        EXPECT_EQ(turned.scaleX, 2.0f * turn.x);
        EXPECT_EQ(turned.scaleY, turn.y);
        EXPECT_EQ(turned.offsetY, -0.25f);
        EXPECT_NEAR(std::cos(turned.angle), turn.x * std::cos(0.5f), 1e-6f);
        EXPECT_NEAR(std::sin(turned.angle), turn.y * std::sin(0.5f), 1e-6f);
    }
}

TEST_F(CommandsTest, AnimationChoicesFollowTheListAndThePins) {
    const std::vector<WirrelPin> pose = Pins();
    CommandAnimNew made(doc, selection, hub, "Run", 900u);  // one frame of the pose, chosen in the list
    EXPECT_EQ(Keys(), (std::vector<WirrelKey>{{.pins = pose, .ticks = 900}}));
    EXPECT_EQ(hub.animListSelection, 2);
    EXPECT_TRUE(selection.selected.empty());
    made.Undo();
    CommandAnimDelete deleted(doc, selection, hub);
    EXPECT_EQ(NameOf(doc.cursor.animName), "Walk");
    EXPECT_EQ(hub.animListSelection, 0);
    EXPECT_TRUE(selection.selected.empty());
    deleted.Undo();
    doc.Wirrel().anims[1].keys[0].pins[4].flags |= kPinHidden;
    selection.SetHot(1, 0);
    CommandAnimSel shown(doc, selection, hub, 1);  // the hot pin is shown there: the pins stay
    EXPECT_EQ(selection.selected, (std::set<int>{2, 4}));
    shown.Undo();
    selection.SetHot(4, 0);
    CommandAnimSel hidden(doc, selection, hub, 1);
    EXPECT_TRUE(selection.selected.empty());
    EXPECT_EQ(hub.animListSelection, 1);
}

TEST_F(CommandsTest, InverseKinematicsReachesTheMouseAndHoldsItsLocks) {
    Pins()[1].flags |= kPinIkLock;
    Pins()[2].flags |= kPinTweened;
    Grab(2);
    view.cameraX = view.cameraY = 0.5f;
    CommandPinIk held(doc, selection, 400, 416, view, false);  // toward the world point (3, 6)
    ASSERT_TRUE(held.valid);
    const std::vector<WirrelPin> posed = Pins();
    held.Undo();
    CommandPinIk within(doc, selection, 431, 447, view, false);  // (3.97, 6.97): the goal is the same unit
    EXPECT_EQ(Pins(), posed);
    EXPECT_EQ(Pins()[2].flags, Bone);  // posed by the user: a key now
    EXPECT_NEAR(Positions()[1].x, 0.0f, 1e-5f);
    EXPECT_NEAR(Positions()[1].y, 2.0f, 1e-5f);
    EXPECT_NEAR(Positions()[2].x, 1.8f, 1e-3f);
    EXPECT_NEAR(Positions()[2].y, 4.4f, 1e-3f);
    SetUp();
    Grab(2);
    selection.SetHot(2, 2);  // the bone was taken: alone, its pin turns about the parent's parent
    CommandPinIk single(doc, selection, 416, 240, view, true);
    ASSERT_TRUE(single.valid);
    EXPECT_NEAR(std::atan2(Positions()[1].y, Positions()[1].x), 0.0f, 1e-4f);
    SetUp();
    selection.SetHot(-1, 0);
    const auto start = State();
    EXPECT_FALSE(CommandPinIk(doc, selection, 416, 304, view, false).valid);
    EXPECT_TRUE(State() == start);
}

// Before the drag pin 1 has angle 1 and length 1 in frame 0, a quarter turn and 2 elsewhere, and is
// hidden, so anchored, in frame 1 of "Walk". The drag in frame 1 turns it to a half turn or stretches it
// to 3; the rows give pin 1 afterwards in frame 0, frame 2 and "Walk"'s frame 0.
TEST_F(CommandsTest, AForwardDragRepeatsAbsolutelyRelativelyOrInProportion) {
    struct Case {
        unsigned mask;
        int mode;
        float angle0, length0, frame2, walk;
    };
    const std::vector<Case> cases = {
        {0x001, kDragRotate, 1, 1, kPi, kQuarter}, {0x002, kDragRotate, kPi, 1, kQuarter, kQuarter},
        {0x008, kDragRotate, kPi, 1, kPi, kPi},    {0x040, kDragRotate, 1 + kQuarter, 1, kPi, kQuarter},
        {0x004, kDragLength, 1, 3, 3, 2},          {0x020, kDragLength, 1, 2, 2, 2},
        {0x400, kDragLength, 1, 1.5f, 3, 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "mask " << std::hex << c.mask);
        SetUp();
        Keys()[0].pins[1].angle = Keys()[0].pins[1].length = 1;
        WirrelPin& anchored = doc.Wirrel().anims[1].keys[1].pins[1];
        anchored.flags |= kPinHidden;
        const WirrelPin anchoredBefore = anchored;
        Grab(1);
        Pins()[1].flags |= kPinTweened;
        auto drag = c.mode == kDragRotate ? Move(-64, -64, kDragRotate) : Move(0, 32, kDragLength);
        EXPECT_EQ(Pins()[1].flags, Bone);  // posed by the user: a key now
        EXPECT_EQ(RepeatModesOf(*drag), c.mode == kDragLength ? kRepeatAll : 0x0FFu);
        CommandRepeat repeat(doc, drag, c.mask);
        const auto value = [&](int anim, int frame) {
            const WirrelPin& pin = doc.Wirrel().anims[anim].keys[frame].pins[1];
            return c.mode == kDragRotate ? pin.angle : pin.length;
        };
        EXPECT_NEAR(Keys()[0].pins[1].angle, c.angle0, 1e-5f);
        EXPECT_NEAR(Keys()[0].pins[1].length, c.length0, 1e-5f);
        EXPECT_NEAR(value(0, 2), c.frame2, 1e-5f);
        EXPECT_NEAR(value(1, 0), c.walk, 1e-5f);
        EXPECT_EQ(doc.Wirrel().anims[1].keys[1].pins[1], anchoredBefore);
    }
}

TEST_F(CommandsTest, ATypeChangeRepeatsAndOtherCommandsOfferNothing) {
    auto type = make_shared<CommandPinType>(doc, 2, Root);
    EXPECT_EQ(RepeatModesOf(*type), kRepeatAll);
    CommandRepeat repeat(doc, type, 0x001);
    EXPECT_EQ(repeat.label.Utf8(), "Repeat Change pin type");
    EXPECT_EQ(RepeatModesOf(repeat), kRepeatAll);
    EXPECT_EQ(Keys()[0].pins[2].Type(), Bone);
    EXPECT_EQ(Keys()[2].pins[2].Type(), Root);
    EXPECT_EQ(Keys()[2].pins[2].parent, -1);
    EXPECT_EQ(RepeatModesOf(CommandMacro("Set Tile", 12)), 0u);
}

// The tail's two segment pins exist in every frame of "Default": a repeat lays the tail over them there,
// and ending it there deletes them once no frame shows them. "Walk" has no segments and keeps its bone.
TEST_F(CommandsTest, ATailIsBuiltAndEndedInOtherFramesToo) {
    const std::vector<WorldPoint> before = Positions();
    auto made = make_shared<CommandPinType>(doc, 2, Tail);
    EXPECT_EQ(RepeatModesOf(*made), kRepeatAll);
    CommandRepeat everywhere(doc, made, 0x008);
    for (std::uint32_t k = 0; k < 3; ++k) {
        const std::vector<WirrelPin>& pins = Keys()[k].pins;
        ASSERT_EQ(pins.size(), 7u);
        EXPECT_EQ(pins[2].flags, Tail | kTailEnd) << "frame " << k;
        EXPECT_EQ(pins[5].flags, Tail | kTailAnchor) << "frame " << k;
        EXPECT_EQ(pins[6].flags, Tail | kTailSegment) << "frame " << k;
        EXPECT_EQ(pins[2].parent, 6);
    }
    EXPECT_NEAR(Positions()[2].x, before[2].x, 1e-5f);
    EXPECT_NEAR(Positions()[2].y, before[2].y, 1e-5f);
    EXPECT_EQ(doc.Wirrel().anims[1].keys[0].pins[2].Type(), Bone);

    CommandRepeat ended(doc, make_shared<CommandPinType>(doc, 2, Bone), 0x004);
    EXPECT_EQ(doc.PinCount(), 5u);
    for (std::uint32_t k = 0; k < 3; ++k) {
        ASSERT_EQ(Keys()[k].pins.size(), 5u);
        EXPECT_EQ(Keys()[k].pins[2].flags, Bone);
        EXPECT_EQ(Keys()[k].pins[2].parent, 1);
        EXPECT_NEAR(Keys()[k].pins[2].length, 3.0f, 1e-5f);
    }
}

// Which frames the walk reaches, as 10 * animation + frame in order, for a document of three animations
// of 4, 2 and 6 frames whose current position is animation 0, frame 2 (or as the row says).
TEST(RepeatWalkTest, TheMaskChoosesTheFramesAndTheCurrentFrameIsNeverReached) {
    struct Case {
        unsigned mask;
        int anim;
        std::uint32_t frame;
        std::string reached;
    };
    const std::vector<Case> cases = {
        {0x001, 0, 2, "3 "},
        {0x010, 0, 3, ""},  // post from the last frame: nothing
        {0x002, 0, 2, "0 1 "},
        {0x200, 0, 0, ""},
        {0x004, 0, 2, "0 1 3 "},
        {0x040, 1, 1, "10 "},
        {0x008, 0, 2, "0 1 3 10 11 20 21 22 23 24 25 "},
        {0x800, 2, 5, "0 1 2 3 10 11 20 21 22 23 24 "},
    };
    WirrelDoc doc;
    doc.Wirrel().anims.assign(3, WirrelAnim{});
    const std::uint32_t frames[] = {4, 2, 6};
    for (std::uint32_t a = 0; a < 3; ++a) {
        for (std::uint32_t k = 0; k < frames[a]; ++k) {
            doc.Wirrel().anims[a].keys.push_back({.pins = {}, .ticks = 10 * a + k});
        }
    }
    for (const Case& c : cases) {
        doc.cursor.animIndex = c.anim;
        doc.SetFrame(c.frame);
        std::string reached;
        ForEachRepeatFrame(doc, c.mask, [&](WirrelKey& key) { reached += std::to_string(key.ticks) + " "; });
        EXPECT_EQ(reached, c.reached) << "mask " << std::hex << c.mask;
    }
}

// A few seeds here; the stress program under bench/ runs many more.
TEST(RandomWalkTest, UndoingEverythingGivesTheStartAndRedoingEverythingTheEnd) {
    test::LoadEnglish();
    for (const std::uint32_t seed : {1u, 2u, 3u, 4u}) {
        const test::WalkResult result = test::RunRandomWalk(seed, 300);
        EXPECT_EQ(result.failure, "") << "seed " << seed;
        EXPECT_GT(result.commands, 100u) << "seed " << seed;
    }
}

}  // namespace
}  // namespace kovra
