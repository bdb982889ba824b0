#include "commands/frame_commands.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <numeric>
#include <set>
#include <string>
#include <vector>

#include "command_test.h"
#include "commands/anim_commands.h"
#include "commands/command_stack.h"

namespace kovra {
namespace {

// Frame i of the current animation: a root and a bone whose angles tell the frames apart.
WirrelKey MakeFrame(int i, std::uint32_t ticks) {
    return WirrelKey{
        .pins = {WirrelPin{.angle = 0.5f * i, .length = 2.0f, .flags = Root, .id = 0},
                 WirrelPin{.angle = 1.0f + i, .length = 3.0f, .flags = Bone, .parent = 0, .id = 1}},
        .ticks = ticks,
        .eventFirst = i - 1,
        .eventCount = i > 0 ? 1 : 0};
}

// Pins 0 and 1 of frames 0 and 1 of the current animation share one skin; pin 1 of frame 2 has its own.
void ShareASkin(WirrelDoc& d) {
    d.Wirrel().textures = {WirrelTexture{.imageIndex = 0, .width = 8, .height = 4}};
    d.Wirrel().skins = {
        WirrelSkin{.texture = 0, .offsetX = 0.5f, .offsetY = 0.25f, .scaleX = 2.0f, .angle = 0.5f},
        WirrelSkin{.texture = 0, .scaleY = 3.0f}};
    for (int k = 0; k < 2; ++k) {
        d.CurrentAnim().keys[k].pins[0].skin = 0;
        d.CurrentAnim().keys[k].pins[1].skin = 0;
    }
    d.CurrentAnim().keys[2].pins[1].skin = 1;
}

// Three animations, "Default", "Walk" and "Run", with `current` current; the pin selection has pin 1.
void AddAnimations(WirrelDoc& d, int current) {
    d.AddAnim("Walk", kAnimCopy, -1);
    d.AddAnim("Run", kAnimFromFirstKey, -1);
    d.cursor.animIndex = current;
    d.cursor.animName = d.Wirrel().anims[current].name;
    d.SetFrame(0);
}

class FrameCommandTest : public test::CommandTest {
protected:
    void SetUp() override {
        doc.Reset(true);
        selection = SelectionTracker{};
        hub.animListSelection = 0;
        Wirrel& w = doc.Wirrel();
        w.pinNames = {MakeName("root"), MakeName("arm")};
        doc.CurrentAnim().keys = {MakeFrame(0, 600), MakeFrame(1, 700), MakeFrame(2, 800)};
        doc.SetFrame(1);
        selection.Add(1, true);
        selection.SetHot(1, 2);
    }
    std::vector<WirrelKey>& Keys() { return doc.CurrentAnim().keys; }
    std::uint32_t TotalTicks() {
        return std::accumulate(Keys().begin(), Keys().end(), 0u,
                               [](std::uint32_t sum, const WirrelKey& key) { return sum + key.ticks; });
    }
};

struct RoundTripCase {
    std::string name;
    std::function<void(WirrelDoc&)> setUp;
    std::function<std::shared_ptr<ICommand>(WirrelDoc&, SelectionTracker&, EditorHub&)> make;
};

TEST_F(FrameCommandTest, EveryFrameAndAnimationCommandRoundTrips) {
    const std::vector<RoundTripCase> cases = {
        {"new behind the current", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) {
             return std::make_shared<CommandFrameNew>(d, MakeFrame(7, 300), 1);
         }},
        {"new behind the last", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) {
             return std::make_shared<CommandFrameNew>(d, MakeFrame(7, 300), 2);
         }},
        {"new at the front", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) {
             return std::make_shared<CommandFrameNew>(d, MakeFrame(7, 300), -1);
         }},
        {"delete a middle frame", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) { return std::make_shared<CommandFrameDelete>(d); }},
        {"delete the last frame", [](WirrelDoc& d) { d.SetFrame(2); },
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) { return std::make_shared<CommandFrameDelete>(d); }},
        {"replace", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) {
             return std::make_shared<CommandFrameReplace>(d, 2, MakeFrame(9, 50));
         }},
        {"select", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) { return std::make_shared<CommandFrameSel>(d, 2); }},
        {"state", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) {
             return std::make_shared<CommandFrameState>(
                 d, "Micro Keyframe Tweening", 62,
                 std::vector<WirrelKey>{MakeFrame(5, 10), MakeFrame(6, 20)});
         }},
        {"speed", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) {
             return std::make_shared<CommandFrameSpeed>(d, 2.5f);
         }},
        {"snap", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) {
             return std::make_shared<CommandFrameSnap>(d, 8u);
         }},
        {"new animation", nullptr,
         [](WirrelDoc& d, SelectionTracker& s, EditorHub& h) {
             return std::make_shared<CommandAnimNew>(d, s, h, "Walk", 1200u);
         }},
        {"new animation named like another", [](WirrelDoc& d) { d.AddAnim("Default", kAnimCopy, -1); },
         [](WirrelDoc& d, SelectionTracker& s, EditorHub& h) {
             return std::make_shared<CommandAnimNew>(d, s, h, "Default", 1200u);
         }},
        {"mirror", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) {
             return std::make_shared<CommandFrameReflect>(d, 1);
         }},
        {"flip with a shared skin", [](WirrelDoc& d) { ShareASkin(d); },
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) {
             return std::make_shared<CommandFrameReflect>(d, 0);
         }},
        {"delete the current animation", [](WirrelDoc& d) { AddAnimations(d, 0); },
         [](WirrelDoc& d, SelectionTracker& s, EditorHub& h) {
             return std::make_shared<CommandAnimDelete>(d, s, h);
         }},
        {"delete the last animation", [](WirrelDoc& d) { AddAnimations(d, 2); },
         [](WirrelDoc& d, SelectionTracker& s, EditorHub& h) {
             return std::make_shared<CommandAnimDelete>(d, s, h);
         }},
        {"select an animation", [](WirrelDoc& d) { AddAnimations(d, 0); },
         [](WirrelDoc& d, SelectionTracker& s, EditorHub& h) {
             return std::make_shared<CommandAnimSel>(d, s, h, 2);
         }},
        {"rename animation", nullptr,
         [](WirrelDoc& d, SelectionTracker&, EditorHub&) {
             return std::make_shared<CommandAnimName>(d, "Run");
         }},
    };
    for (const RoundTripCase& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        if (c.setUp) {
            c.setUp(doc);
        }
        ExpectRoundTrip([&] { return c.make(doc, selection, hub); });
    }
}

TEST_F(FrameCommandTest, ANewFrameSplitsThePreviousFramesTime) {
    const std::uint32_t total = TotalTicks();
    CommandFrameNew command(doc, MakeFrame(7, 300), 0);
    EXPECT_EQ(TotalTicks(), total);
    ASSERT_EQ(Keys().size(), 4u);
    EXPECT_EQ(Keys()[0].ticks, 300u);
    EXPECT_EQ(Keys()[1], MakeFrame(7, 300));
    EXPECT_EQ(doc.cursor.frameIndex, 1u);
    command.Undo();
    EXPECT_EQ(Keys(), (std::vector<WirrelKey>{MakeFrame(0, 600), MakeFrame(1, 700), MakeFrame(2, 800)}));
}

TEST_F(FrameCommandTest, DeletingGivesTheTimeToThePreviousFrame) {
    const std::uint32_t total = TotalTicks();
    doc.SetFrame(2);
    CommandFrameDelete command(doc);
    EXPECT_EQ(TotalTicks(), total);
    ASSERT_EQ(Keys().size(), 2u);
    EXPECT_EQ(Keys()[1].ticks, 1500u);
    EXPECT_EQ(doc.cursor.frameIndex, 1u);  // the last frame went, the new last is current
    command.Undo();
    EXPECT_EQ(doc.cursor.frameIndex, 2u);
    EXPECT_EQ(Keys()[1].ticks, 700u);

    doc.SetFrame(1);
    CommandFrameDelete middle(doc);
    EXPECT_EQ(doc.cursor.frameIndex, 1u);  // the next frame moved into place
    EXPECT_EQ(Keys()[1], MakeFrame(2, 800));
}

TEST_F(FrameCommandTest, FrameCommandsTellTheFrameListeners) {
    struct Log {
        void OnFrame(int left, int entered) {
            text += std::to_string(left) + ">" + std::to_string(entered) + " ";
        }
        std::string text;
    } log;
    doc.onFrameChanged.Add(&log, &Log::OnFrame);
    CommandFrameNew created(doc, MakeFrame(7, 300), 1);
    created.Undo();
    CommandFrameSel selected(doc, 0);
    selected.Undo();
    EXPECT_EQ(log.text, "1>2 2>1 1>0 0>1 ");
}

TEST_F(FrameCommandTest, FrameSelectionsDontMergeButFrameStatesOfOneKindDo) {
    CommandStack stack;
    stack.AddCommand(std::make_shared<CommandFrameSel>(doc, 2));
    stack.AddCommand(std::make_shared<CommandFrameSel>(doc, 0));
    EXPECT_EQ(stack.Size(), 2u);

    const std::vector<WirrelKey> before = Keys();
    stack.AddCommand(
        std::make_shared<CommandFrameState>(doc, "Tween", 62, std::vector<WirrelKey>{MakeFrame(4, 1)}));
    stack.AddCommand(
        std::make_shared<CommandFrameState>(doc, "Tween", 62, std::vector<WirrelKey>{MakeFrame(5, 1)}));
    EXPECT_EQ(stack.Size(), 3u);
    stack.AddCommand(
        std::make_shared<CommandFrameState>(doc, "Move", 63, std::vector<WirrelKey>{MakeFrame(6, 1)}));
    EXPECT_EQ(stack.Size(), 4u);
    test::RecordingHub hub;
    stack.UndoRedo(false, hub);
    EXPECT_EQ(Keys(), std::vector<WirrelKey>{MakeFrame(5, 1)});
    stack.UndoRedo(false, hub);
    EXPECT_EQ(Keys(), before);
}

TEST_F(FrameCommandTest, ANewAnimationStartsFromTheCurrentPoseAndClearsThePinSelection) {
    CommandAnimNew command(doc, selection, hub, "Walk", 1500);
    ASSERT_EQ(doc.Wirrel().anims.size(), 2u);
    const WirrelAnim& walk = doc.Wirrel().anims[1];
    EXPECT_EQ(NameOf(walk.name), "Walk");
    ASSERT_EQ(walk.keys.size(), 1u);
    EXPECT_EQ(walk.keys[0].pins, MakeFrame(1, 0).pins);
    EXPECT_EQ(walk.keys[0].ticks, 1500u);
    EXPECT_EQ(doc.cursor.animIndex, 1);
    EXPECT_EQ(doc.cursor.frameIndex, 0u);
    EXPECT_EQ(hub.animListSelection, 1);
    EXPECT_TRUE(selection.selected.empty());
    EXPECT_EQ(selection.hotItem, -1);
}

TEST_F(FrameCommandTest, ReflectingTwiceGivesTheFrameBackAndLeavesSharedSkinsAlone) {
    for (const int axis : {0, 1}) {
        SCOPED_TRACE(axis);
        SetUp();
        ShareASkin(doc);
        const Wirrel before = doc.Wirrel();
        CommandFrameReflect once(doc, axis);
        EXPECT_EQ(doc.Wirrel().skins[0], before.skins[0]);  // frame 0 still uses it
        EXPECT_EQ(doc.CurrentAnim().keys[0], before.anims[0].keys[0]);
        const WirrelSkin& turned = doc.Wirrel().skins[Keys()[1].pins[1].skin];
        EXPECT_EQ(turned.scaleX, axis == 1 ? -2.0f : 2.0f);
        EXPECT_EQ(turned.scaleY, axis == 1 ? 1.0f : -1.0f);
        EXPECT_EQ(turned.offsetY, -0.25f);
        CommandFrameReflect twice(doc, axis);
        for (std::size_t i = 0; i < Keys()[1].pins.size(); ++i) {
            const WirrelPin& pin = Keys()[1].pins[i];
            EXPECT_NEAR(pin.angle, before.anims[0].keys[1].pins[i].angle, 1e-6f);
            const WirrelSkin& skin = doc.Wirrel().skins[pin.skin];
            EXPECT_NEAR(skin.angle, 0.5f, 1e-6f);
            EXPECT_EQ(skin.scaleX, 2.0f);
            EXPECT_EQ(skin.scaleY, 1.0f);
            EXPECT_EQ(skin.offsetY, 0.25f);
        }
    }
}

TEST_F(FrameCommandTest, DeletingAnAnimationMakesItsNeighbourCurrent) {
    AddAnimations(doc, 1);
    CommandAnimDelete middle(doc, selection, hub);
    EXPECT_EQ(doc.Wirrel().anims.size(), 2u);
    EXPECT_EQ(doc.cursor.animIndex, 1);
    EXPECT_EQ(NameOf(doc.cursor.animName), "Run");
    EXPECT_EQ(hub.animListSelection, 1);
    EXPECT_TRUE(selection.selected.empty());
    CommandAnimDelete last(doc, selection, hub);
    EXPECT_EQ(doc.cursor.animIndex, 0);
    EXPECT_EQ(NameOf(doc.cursor.animName), "Default");
}

TEST_F(FrameCommandTest, SelectingAnAnimationKeepsThePinsOnlyIfTheHotPinIsShownThere) {
    AddAnimations(doc, 0);
    doc.Wirrel().anims[1].keys[0].pins[1].flags |= kPinHidden;
    CommandAnimSel shown(doc, selection, hub, 2);
    EXPECT_EQ(selection.selected, std::set<int>{1});
    EXPECT_EQ(doc.cursor.animIndex, 2);
    EXPECT_EQ(NameOf(doc.cursor.otherAnimName), "Default");
    CommandAnimSel hidden(doc, selection, hub, 1);
    EXPECT_TRUE(selection.selected.empty());
    EXPECT_EQ(selection.hotItem, -1);
    EXPECT_EQ(hub.animListSelection, 1);
}

}  // namespace
}  // namespace kovra
