// The timeline bound to its control: the native controls of the band show the document and act on it
// through the view, a gesture on the panel becomes commands, and a doubled screen shows each layout
// pixel twice while the view keeps working in layout pixels.

#include "views/gui_frames.h"

#include <gtest/gtest.h>

#include <vector>

#include "commands/command_stack.h"
#include "gui/main_window.h"
#include "gui/virtual_keys.h"
#include "support/control_harness.h"
#include "support/english.h"
#include "support/scripted_prompt.h"
#include "views/timeline/micro_timeline.h"

namespace kovra {
namespace {

namespace win = kestrel2::win;

class PlainHub : public EditorHub {
public:
    int EditMode() const override { return 0; }
    void SetEditMode(int) override {}
    int SkinTool() const override { return 0; }
    void SetSkinTool(int) override {}
    int AnimListSelection() const override { return 0; }
    void SetAnimListSelection(int) override {}
    bool IsPlaying() const override { return false; }
    void StopPlayback() override {}
    WorkGrid Grid() const override { return {}; }
    void SetGrid(const WorkGrid&) override {}
    aurel::Color32 BackgroundColor() const override { return {}; }
    void SetBackgroundColor(aurel::Color32) override {}
    void SetBackgroundLoaded(bool) override {}
};

// Three one-second key frames of two pins, three snap cells a second: the keys stand in cells 0, 3 and
// 6 of 80 pixels each, the end in cell 9.
class GuiFramesTest : public ::testing::Test {
protected:
    GuiFramesTest() {
        test::LoadEnglish();
        doc.Reset(true);
        doc.AddPin(0.0f, 0.0f, -1, "root");
        doc.AddPin(0.5f, 2.0f, 0, "arm");
        WirrelAnim& anim = doc.CurrentAnim();
        anim.keys[0].ticks = 1200;
        for (int i = 1; i < 3; ++i) {
            WirrelKey key = anim.keys[0];
            key.pins[1].angle = 0.5f + static_cast<float>(i);
            anim.keys.push_back(key);
        }
        doc.snapFrames = 2;
    }

    // A panel of its own, without a window: no native controls.
    std::unique_ptr<GuiFrames> Bare() {
        auto frames = std::make_unique<GuiFrames>(doc, hub, selection, prompt);
        Bind(*frames);
        return frames;
    }

    // The panel in a window, with its native controls.
    std::shared_ptr<GuiFrames> InWindow() {
        window.Create(win::Placement{0, 0, 1000, 300, false}, true);
        auto frames =
            win::MakeChild<GuiFrames>(window.RootGui(), 2, 0, 0, 900, 120, doc, hub, selection, prompt);
        Bind(*frames);
        return frames;
    }

    void Bind(GuiFrames& frames) {
        doc.onChanged.Add(&frames, &GuiFrames::Invalidate);
        frames.commandListeners.Add(&stack, &CommandStack::AddCommand);
        frames.dragEndListeners.Add(&stack, &CommandStack::FinishDrag);
        frames.eventListeners.Add(this, &GuiFramesTest::PassedOn);
    }

    void PassedOn(const win::InputEvent& event) {
        if (event.type == win::kInputKeyDown) {
            keys.push_back(event.key);
        }
    }

    std::uint64_t TotalTicks() {
        std::uint64_t total = 0;
        for (const WirrelKey& key : doc.CurrentAnim().keys) {
            total += key.ticks;
        }
        return total;
    }

    WirrelDoc doc;
    PlainHub hub;
    SelectionTracker selection;
    test::ScriptedPrompt prompt;
    CommandStack stack;
    win::MainWindow window;
    std::vector<int> keys;
};

TEST_F(GuiFramesTest, TheBandsControlsShowTheDocumentAndActThroughTheView) {
    auto frames = InWindow();
    frames->Paint();
    ASSERT_NE(frames->Toolbar(), nullptr);
    win::GuiEdit& speed = *frames->Edit(0x3FD);
    win::GuiEdit& count = *frames->Edit(0x3F9);
    win::GuiEdit& time = *frames->Edit(0x3FB);
    EXPECT_EQ(speed.GetText().Utf8(), "100%");
    EXPECT_EQ(count.GetText().Utf8(), "9");
    EXPECT_EQ(time.GetText().Utf8(), "3");
    EXPECT_EQ(frames->SnapBox()->GetSel(), 2);
    EXPECT_EQ(frames->Scrollbar()->Maximum(), frames->View().Layout().ContentWidth() - 1);

    // Each edit reports when it loses the focus; text that isn't a number changes nothing, and the
    // edit shows the document again.
    const struct {
        win::GuiEdit* edit;
        const char* text;
        std::uint64_t ticks;
        float speed;
    } edits[] = {
        {&count, "12", 4800, 1.0f},  {&time, "2", 2400, 1.0f}, {&speed, "250%", 2400, 2.5f},
        {&count, "abc", 2400, 2.5f}, {&time, "2", 2400, 2.5f},
    };
    for (const auto& e : edits) {
        e.edit->SetText(aurel::DualString(e.text));
        e.edit->FocusLost();
        EXPECT_EQ(TotalTicks(), e.ticks) << e.text;
        EXPECT_FLOAT_EQ(doc.CurrentAnim().speed, e.speed) << e.text;
    }
    EXPECT_EQ(stack.Size(), 3u);
    frames->Paint();
    EXPECT_EQ(count.GetText().Utf8(), "6");
    EXPECT_EQ(speed.GetText().Utf8(), "250%");

    frames->ZoomSlider()->Moved(200, true);
    frames->View().Sync();
    EXPECT_EQ(frames->View().Layout().CellWidth(), 162);
    frames->Scrollbar()->Scroll(win::kScrollThumbPosition, 100);
    EXPECT_EQ(frames->View().ViewLeft(), 100);

    // The transport buttons pass keys on; the ripple check is the view's mode; the placeholder tells
    // and doesn't stay checked.
    win::GuiToolbar& bar = *frames->Toolbar();
    for (int id : {0x3EE, 0x3F2, 0x3F3, 0x3F4, 0x3EB, 0x3EC}) {
        bar.Click(id);
    }
    EXPECT_EQ(keys, (std::vector<int>{win::kVkSpace, win::kVkLeft, win::kVkRight, 'T'}));
    EXPECT_TRUE(frames->View().RippleMode());
    EXPECT_FALSE(bar.GetButtonState(0x3F4)) << "the key T decides, and nobody took it";
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "Not yet...");
    EXPECT_FALSE(bar.GetButtonState(0x3EC));
}

TEST_F(GuiFramesTest, TheExtendedViewShowsItsToolbarAndScrollsItsLanes) {
    auto frames = InWindow();
    frames->SetPos(0, 0, 900, 200);
    GuiFramesList& list = frames->List();
    ASSERT_NE(list.Toolbar(), nullptr);
    EXPECT_FALSE(list.Toolbar()->IsVisible());
    EXPECT_FALSE(list.Scrollbar()->IsVisible());
    frames->SetExtended(true);
    frames->Paint();
    EXPECT_TRUE(frames->Toolbar()->GetButtonState(0x3F4));
    EXPECT_TRUE(list.Toolbar()->IsVisible());
    ASSERT_TRUE(list.Scrollbar()->IsVisible());
    list.Toolbar()->Click(0x400);
    MicroTimeline& micro = frames->View().Micro();
    const int lanes = frames->View().Layout().LanesBottom() - frames->View().Layout().LanesTop() + 1;
    EXPECT_EQ(micro.LaneHeights(), (std::vector<int>{lanes - 1, lanes - 1}));
    EXPECT_EQ(list.Scrollbar()->Maximum(), micro.TotalHeight() - 1);
    list.Scrollbar()->Scroll(win::kScrollPageDown, 0);
    EXPECT_EQ(micro.Scroll(), micro.TotalHeight() - lanes);
    list.Toolbar()->Click(0x402);
    EXPECT_EQ(micro.LaneHeights(), (std::vector<int>{kMinLaneHeight, kMinLaneHeight}));
    EXPECT_EQ(micro.Scroll(), 0);
    frames->SetExtended(false);
    frames->Paint();
    EXPECT_FALSE(list.Toolbar()->IsVisible());
}

TEST_F(GuiFramesTest, AKeyDraggedOnThePanelIsOneStepAndTheStripFollowsTheDocument) {
    auto frames = Bare();
    test::ControlHarness harness(*frames, 900, 120);
    frames->Paint();
    harness.Move(280, 70).Drag(280, 70, 360, 70, 5);
    ASSERT_EQ(stack.Size(), 2u);  // the time moved to the key, then the move
    EXPECT_EQ(doc.CurrentAnim().keys[0].ticks, 1600u);
    EXPECT_EQ(TotalTicks(), 3600u);
    stack.UndoRedo(false, hub);
    frames->Paint();
    EXPECT_EQ(doc.CurrentAnim().keys[0].ticks, 1200u);
    EXPECT_EQ(frames->View().Strip().Frames(), doc.CurrentAnim().keys);
    harness.Move(280, 70);
    EXPECT_EQ(frames->View().HotCell(), 3);
}

TEST_F(GuiFramesTest, OnADoubledScreenEachLayoutPixelIsShownTwice) {
    auto single = Bare();
    auto doubled = Bare();
    test::ControlHarness one(*single, 450, 120);
    test::ControlHarness two(*doubled, 450, 120, 2.0);
    const aurel::ImageSurface& small = single->Paint();
    const aurel::ImageSurface& large = doubled->Paint();
    ASSERT_EQ(large.Width(), 900);
    int differing = 0;
    for (int y = 0; y < large.Height(); ++y) {
        for (int x = 0; x < large.Width(); ++x) {
            differing += large.Row(y)[x] != small.Row(y / 2)[x / 2] ? 1 : 0;
        }
    }
    EXPECT_EQ(differing, 0);
    two.Move(2 * 280 + 1, 2 * 70 + 1);
    EXPECT_EQ(doubled->View().HotCell(), 3);
}

}  // namespace
}  // namespace kovra
