#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <numeric>
#include <set>
#include <string>
#include <vector>

#include "command_test.h"
#include "commands/anim_commands.h"
#include "commands/command_stack.h"
#include "commands/frame_commands.h"
#include "commands/pin_commands.h"
#include "commands/repeat.h"
#include "doc/pin_tree.h"

namespace kovra {
namespace {

using std::make_shared;
using test::DocState;

class CommandsTest : public test::CommandTest {
protected:
    // Pins 0 and 1 of frames 0 and 1 share one textured skin; pin 1 of frame 2 has its own.
    void ShareASkin() {
        doc.Wirrel().textures = {WirrelTexture{.imageIndex = 0, .width = 8, .height = 4}};
        doc.Wirrel().skins = {WirrelSkin{.texture = 0, .offsetY = 0.25f, .scaleX = 2.0f, .angle = 0.5f},
                              WirrelSkin{.texture = 0, .scaleY = 3.0f}};
        for (int k = 0; k < 2; ++k) {
            Keys()[k].pins[0].skin = Keys()[k].pins[1].skin = 0;
        }
        Keys()[2].pins[1].skin = 1;
    }
    void SelectPins(const std::set<int>& pins) {
        selection.Clear();
        for (int pin : pins) {
            selection.Add(pin, true);
        }
    }
    std::vector<int> Ids(const WirrelKey& key) {
        std::vector<int> ids;
        for (const WirrelPin& pin : key.pins) {
            ids.push_back(pin.id);
        }
        return ids;
    }
    std::vector<PinPoint> Positions() {
        std::vector<PinPoint> out;
        PinPositions(doc.CurrentKey(), out);
        return out;
    }
    WirrelKey FrameWithTicks(std::uint32_t ticks) {
        WirrelKey key = doc.CurrentKey();
        key.ticks = ticks;
        return key;
    }
};

TEST_F(CommandsTest, EveryCommandRoundTrips) {
    struct Case {
        std::string name;
        std::function<void()> setUp;
        std::function<std::shared_ptr<ICommand>()> make;
    };
    std::shared_ptr<CommandPinFk> drag;
    const auto fk = [&](int mode) {
        const Vec2 grabbed{view.pinPixels[2].x, view.pinPixels[2].y};
        const Vec2 pressed{grabbed.x + view.ScreenToWorld().ox, grabbed.y + view.ScreenToWorld().oy};
        return make_shared<CommandPinFk>(grabbed, pressed, Vec2{pressed.x - 30, pressed.y + 20}, doc,
                                         selection, mode, view);
    };
    const std::vector<Case> cases = {
        {"fk", nullptr, [&] { return fk(kDragMove); }},
        {"ik", nullptr, [&] { return make_shared<CommandPinIk>(doc, selection, 416, 304, view, false); }},
        {"repeat", [&] { drag = fk(kDragRotate); },
         [&] { return make_shared<CommandRepeat>(doc, drag, 0x080); }},
        {"ik lock", nullptr, [&] { return make_shared<CommandPinIkLock>(1, doc); }},
        {"name", nullptr, [&] { return make_shared<CommandPinName>(doc, 3, "crate"); }},
        {"order down", nullptr, [&] { return make_shared<CommandPinOrder>(doc, selection, "Order", 0, 4); }},
        {"order up", nullptr, [&] { return make_shared<CommandPinOrder>(doc, selection, "Order", 4, 1); }},
        {"property", nullptr,
         [&] {
             return make_shared<CommandPinProperty>(doc, "Set Angle", 200, 2, WirrelPin{.angle = 1, .id = 2});
         }},
        {"new", nullptr,
         [&] {
             return make_shared<CommandPinNew>(doc, selection, PinDescription{1, 2, 2, "toe"});
         }},
        {"new two", nullptr,
         [&] {
             return make_shared<CommandPinNew2>(doc, selection, PinDescription{1, 4, -1, "a"},
                                                PinDescription{2, 1, 5, "b"});
         }},
        {"parent", nullptr, [&] { return make_shared<CommandPinParent>(doc, selection, prompt, 4, 2); }},
        {"delete", nullptr, [&] { return make_shared<CommandPinDelete>(doc, selection); }},
        {"type root", nullptr, [&] { return make_shared<CommandPinType>(doc, 2, Root); }},
        {"type tail", nullptr, [&] { return make_shared<CommandPinType>(doc, 2, Tail); }},
        {"tail ended", [&] { MakeTail(doc, 2); }, [&] { return make_shared<CommandPinType>(doc, 2, Bone); }},
        {"area", nullptr,
         [&] {
             return make_shared<CommandPinSelArea>(300, 150, 330, 250, doc, selection, view, false,
                                                   selection.Snapshot());
         }},
        {"frame new", nullptr, [&] { return make_shared<CommandFrameNew>(doc, FrameWithTicks(300), 1); }},
        {"frame new first", nullptr,
         [&] { return make_shared<CommandFrameNew>(doc, FrameWithTicks(300), -1); }},
        {"frame delete", nullptr, [&] { return make_shared<CommandFrameDelete>(doc); }},
        {"last frame delete", [&] { doc.SetFrame(2); }, [&] { return make_shared<CommandFrameDelete>(doc); }},
        {"frame replace", nullptr, [&] { return make_shared<CommandFrameReplace>(doc, 2, Keys()[0]); }},
        {"frame select", nullptr, [&] { return make_shared<CommandFrameSel>(doc, 2); }},
        {"frame state", nullptr,
         [&] { return make_shared<CommandFrameState>(doc, "Tween", 62, std::vector<WirrelKey>{Keys()[2]}); }},
        {"speed", nullptr, [&] { return make_shared<CommandFrameSpeed>(doc, 2.5f); }},
        {"snap", nullptr, [&] { return make_shared<CommandFrameSnap>(doc, 8u); }},
        {"mirror", [&] { ShareASkin(); }, [&] { return make_shared<CommandFrameReflect>(doc, 1); }},
        {"flip", [&] { ShareASkin(); }, [&] { return make_shared<CommandFrameReflect>(doc, 0); }},
        {"anim new", nullptr, [&] { return make_shared<CommandAnimNew>(doc, selection, hub, "Run", 900u); }},
        {"anim new named like another", nullptr,
         [&] { return make_shared<CommandAnimNew>(doc, selection, hub, "Default", 900u); }},
        {"anim delete", nullptr, [&] { return make_shared<CommandAnimDelete>(doc, selection, hub); }},
        {"last anim delete", [&] { Select(1, 0); },
         [&] { return make_shared<CommandAnimDelete>(doc, selection, hub); }},
        {"anim select", nullptr, [&] { return make_shared<CommandAnimSel>(doc, selection, hub, 1); }},
        {"anim rename", nullptr, [&] { return make_shared<CommandAnimName>(doc, "Run"); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        if (c.setUp) {
            c.setUp();
        }
        ExpectRoundTrip(c.make);
    }
}

TEST_F(CommandsTest, DeletingTakesALoneParentOrALoneChildAlong) {
    struct Case {
        std::set<int> selected;
        std::size_t pinsLeft;
    };
    for (const Case& c : std::vector<Case>{{{4}, 3}, {{3}, 3}, {{1}, 4}, {{2, 4}, 2}}) {
        SetUp();
        doc.Wirrel().anims.pop_back();
        Keys().resize(1);
        Select(0, 0);
        SelectPins(c.selected);
        CommandPinDelete command(doc, selection);
        EXPECT_EQ(doc.PinCount(), c.pinsLeft);
        std::vector<int> ids(c.pinsLeft);
        std::iota(ids.begin(), ids.end(), 0);
        EXPECT_EQ(Ids(doc.CurrentKey()), ids);
        EXPECT_TRUE(selection.selected.empty());
        EXPECT_EQ(selection.hotItem, -1);
    }
}

TEST_F(CommandsTest, APinLeavesTheDocumentOnlyWhenNoFrameUsesItAnyMore) {
    const DocState start = State();
    std::vector<std::shared_ptr<ICommand>> done;
    const auto remove = [&](int anim, std::uint32_t frame) {
        Select(anim, frame);
        SelectPins({1});
        done.push_back(make_shared<CommandPinDelete>(doc, selection));
    };
    remove(0, 1);  // other frames show it: hidden here only, its child freed where it stood
    EXPECT_EQ(Keys()[1].pins[1].flags, Bone | kPinHidden);
    EXPECT_EQ(Keys()[1].pins[2].parent, -1);
    EXPECT_NEAR(Positions()[2].x, 3.0f * std::cos(0.25f), 1e-5f);
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
    EXPECT_EQ(doc.Wirrel(), start.wirrel);
}

TEST_F(CommandsTest, ParentingJoinsTwoTreesWhereTheyStandAndRefusesALoop) {
    const std::vector<PinPoint> before = Positions();
    CommandPinParent joined(doc, selection, prompt, 4, 2);
    EXPECT_TRUE(joined.valid);
    EXPECT_EQ(Pins()[4].parent, 2);
    EXPECT_EQ(Pins()[4].Type(), Attachment);
    EXPECT_EQ(Pins()[3].parent, 4);  // the chain above the child now hangs below it
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_NEAR(Positions()[i].x, before[i].x, 1e-5f);
        EXPECT_NEAR(Positions()[i].y, before[i].y, 1e-5f);
    }
    SetUp();
    const DocState start = State();
    CommandPinParent loop(doc, selection, prompt, 2, 0);
    EXPECT_FALSE(loop.valid);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].text.Utf8(), "Invalid action. Creating this bone would form a loop.");
    EXPECT_TRUE(State() == start);
}

TEST_F(CommandsTest, ReorderingKeepsTheTreeAndTheSelectionOnTheSamePins) {
    CommandPinOrder command(doc, selection, "Change Draw Order", 0, 4);
    EXPECT_EQ(Ids(doc.CurrentKey()), (std::vector<int>{1, 2, 3, 4, 0}));
    EXPECT_EQ(Pins()[0].parent, 4);
    EXPECT_EQ(Pins()[1].parent, 0);
    EXPECT_EQ(Pins()[3].parent, 2);
    EXPECT_EQ(selection.selected, (std::set<int>{1, 3}));
    EXPECT_EQ(selection.hotItem, 1);
    EXPECT_EQ(selection.currentItem, 1);
}

TEST_F(CommandsTest, OnlyEditsOfTheSameThingMerge) {
    struct Case {
        std::string name;
        std::function<void(CommandStack&)> edits;
        std::size_t steps;
    };
    const auto property = [&](int kind, int pin) {
        return make_shared<CommandPinProperty>(doc, "Set", kind, pin,
                                               WirrelPin{.angle = 1.0f + kind, .id = pin});
    };
    const auto order = [&](int from, int to) {
        return make_shared<CommandPinOrder>(doc, selection, "O", from, to);
    };
    const std::vector<Case> cases = {
        {"property",
         [&](CommandStack& s) {
             s.AddCommand(property(200, 2));
             s.AddCommand(property(200, 2));
         },
         1},
        {"other property",
         [&](CommandStack& s) {
             s.AddCommand(property(200, 2));
             s.AddCommand(property(201, 2));
         },
         2},
        {"other pin",
         [&](CommandStack& s) {
             s.AddCommand(property(200, 2));
             s.AddCommand(property(200, 1));
         },
         2},
        {"name",
         [&](CommandStack& s) {
             s.AddCommand(make_shared<CommandPinName>(doc, 1, "l"));
             s.AddCommand(make_shared<CommandPinName>(doc, 1, "le"));
             s.AddCommand(make_shared<CommandPinName>(doc, 2, "f"));
         },
         2},
        {"order",
         [&](CommandStack& s) {
             s.AddCommand(order(0, 1));
             s.AddCommand(order(1, 3));
             s.AddCommand(order(0, 1));
         },
         2},
        {"frame selection",
         [&](CommandStack& s) {
             s.AddCommand(make_shared<CommandFrameSel>(doc, 2));
             s.AddCommand(make_shared<CommandFrameSel>(doc, 0));
         },
         2},
        {"frame state",
         [&](CommandStack& s) {
             for (int kind : {62, 62, 63}) {
                 s.AddCommand(
                     make_shared<CommandFrameState>(doc, "T", kind, std::vector<WirrelKey>(kind - 61)));
             }
         },
         2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        const DocState start = State();
        CommandStack stack;
        c.edits(stack);
        EXPECT_EQ(stack.Size(), c.steps);
        while (stack.CanUndo()) {
            stack.UndoRedo(false, hub);
        }
        EXPECT_TRUE(State() == start);
    }
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

TEST_F(CommandsTest, ANewFrameSplitsThePreviousFramesTimeAndADeletedOneGivesItBack) {
    const auto total = [&] {
        return std::accumulate(Keys().begin(), Keys().end(), 0u,
                               [](auto sum, const WirrelKey& k) { return sum + k.ticks; });
    };
    const std::vector<WirrelKey> before = Keys();
    CommandFrameNew created(doc, FrameWithTicks(300), 0);
    EXPECT_EQ(total(), 2100u);
    EXPECT_EQ(Keys()[0].ticks, 300u);
    EXPECT_EQ(doc.cursor.frameIndex, 1u);
    created.Undo();
    EXPECT_EQ(Keys(), before);
    doc.SetFrame(2);
    CommandFrameDelete deleted(doc);
    EXPECT_EQ(total(), 2100u);
    EXPECT_EQ(doc.cursor.frameIndex, 1u);  // the last frame went: the new last is current
    deleted.Undo();
    EXPECT_EQ(doc.cursor.frameIndex, 2u);
}

TEST_F(CommandsTest, ReflectingTwiceGivesTheFrameBackAndLeavesSharedSkinsAlone) {
    for (const int axis : {0, 1}) {
        SetUp();
        ShareASkin();
        const Wirrel before = doc.Wirrel();
        CommandFrameReflect once(doc, axis);
        EXPECT_EQ(doc.Wirrel().skins[0], before.skins[0]);  // frame 0 still uses it
        const WirrelSkin& turned = doc.Wirrel().skins[Pins()[1].skin];
        EXPECT_EQ(turned.scaleX, axis == 1 ? -2.0f : 2.0f);
        EXPECT_EQ(turned.scaleY, axis == 1 ? 1.0f : -1.0f);
        EXPECT_EQ(turned.offsetY, -0.25f);
        CommandFrameReflect twice(doc, axis);
        for (std::size_t i = 0; i < Pins().size(); ++i) {
            EXPECT_NEAR(Pins()[i].angle, before.anims[0].keys[1].pins[i].angle, 1e-6f);
        }
        const WirrelSkin& back = doc.Wirrel().skins[Pins()[1].skin];
        EXPECT_NEAR(back.angle, 0.5f, 1e-6f);
        EXPECT_EQ(back.scaleX, 2.0f);
        EXPECT_EQ(back.offsetY, 0.25f);
    }
}

TEST_F(CommandsTest, AnimationChoicesFollowTheListAndThePins) {
    CommandAnimDelete deleted(doc, selection, hub);
    EXPECT_EQ(NameOf(doc.cursor.animName), "Walk");
    EXPECT_EQ(hub.animListSelection, 0);
    EXPECT_TRUE(selection.selected.empty());
    deleted.Undo();
    doc.Wirrel().anims[1].keys[0].pins[4].flags |= kPinHidden;
    selection.SetHot(1, 0);
    CommandAnimSel shown(doc, selection, hub, 1);  // the hot pin is shown there: the pins stay
    EXPECT_EQ(selection.selected, (std::set<int>{2, 4}));
    EXPECT_EQ(NameOf(doc.cursor.otherAnimName), "Default");
    shown.Undo();
    selection.SetHot(4, 0);
    CommandAnimSel hidden(doc, selection, hub, 1);
    EXPECT_TRUE(selection.selected.empty());
    EXPECT_EQ(hub.animListSelection, 1);
}

}  // namespace
}  // namespace kovra
