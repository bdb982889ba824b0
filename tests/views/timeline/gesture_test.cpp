#include <gtest/gtest.h>

#include "gui/virtual_keys.h"
#include "timeline_fixture.h"
#include "views/timeline/micro_timeline.h"

namespace kovra::test {
namespace {

namespace win = kestrel2::win;

// Cells are 80 pixels apart at this size, three to the second: the keys begin at cells 0, 3 and 6 and
// the end marker lies on the left edge of cell 9.
constexpr int kY = 70;
int CellX(int cell) {
    return cell * 80 + 30;
}

TEST(TimelineGestureTest, EachDragIsOneStackEntryThatUndoesByteExact) {
    struct Row {
        const char* what;
        bool ripple;
        bool ctrl;
        int fromX;
        int toX;
        std::vector<std::uint32_t> ticks;
        const char* label;
    };
    const Row rows[] = {
        {"move", false, false, CellX(3), CellX(5), {2000, 400, 1200}, "Move Keyframe"},
        {"ripple move", true, false, CellX(3), CellX(5), {1200, 800, 1600}, "Ripple Move Keyframe"},
        {"copy", false, true, CellX(3), CellX(7), {1200, 1200, 400, 800}, "Copy Keyframe"},
        {"ripple copy", true, true, CellX(3), CellX(1), {400, 2000, 1200, 1200}, "Ripple Copy Keyframe"},
        {"resize the end", false, false, 720, 560, {1200, 1200, 400}, "Set Frame Count"},
        {"lengthen the end", false, false, 720, 800, {1200, 1200, 1600}, "Set Frame Count"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        TimelineFixture f;
        f.view->SetRippleMode(row.ripple);
        if (row.ctrl) {
            f.KeyDown(win::kVkControl);
        }
        const auto before = f.Bytes();
        f.Move(row.fromX, kY);
        f.Press(win::kButtonLeft, row.fromX, kY);
        const std::size_t pressed = f.stack.Size();
        const auto atPress = f.Bytes();
        for (int i = 1; i <= 12; ++i) {
            f.Move(row.fromX + (row.toX - row.fromX) * i / 12, kY);
            // The working copy shows the result while the document stays as it was.
            EXPECT_EQ(f.Bytes(), atPress);
        }
        f.Release(win::kButtonLeft, row.toX, kY);
        ASSERT_EQ(f.stack.Size(), pressed + 1);
        EXPECT_EQ(f.stack.At(pressed).label.Utf8(), row.label);
        EXPECT_EQ(f.Ticks(), row.ticks);
        EXPECT_EQ(f.view->Strip().Frames(), f.doc.CurrentAnim().keys);
        EXPECT_EQ(f.view->Preview().Frames(), f.doc.CurrentAnim().keys);
        const auto after = f.Bytes();
        f.stack.UndoRedo(false, f.hub);
        EXPECT_EQ(f.Bytes(), atPress);
        f.stack.UndoRedo(true, f.hub);
        EXPECT_EQ(f.Bytes(), after);
        while (f.stack.Cursor() > 0) {
            f.stack.UndoRedo(false, f.hub);
        }
        EXPECT_EQ(f.Bytes(), before);
        f.view->Sync();
        EXPECT_EQ(f.view->Strip().Frames(), f.doc.CurrentAnim().keys);
    }
}

TEST(TimelineGestureTest, DropOntoAKeyAsksFirst) {
    struct Row {
        bool ripple;
        int answer;
        std::vector<std::uint32_t> ticks;
    };
    const Row rows[] = {
        {false, aurel::kAnswerYes, {2400, 1200}},
        {false, aurel::kAnswerNo, {1200, 1200, 1200}},
        {true, aurel::kAnswerNo, {1200, 1200, 1200}},  // inserted before the key it was dropped on
        {true, aurel::kAnswerCancel, {1200, 1200, 1200}},
    };
    for (const Row& row : rows) {
        TimelineFixture f;
        f.view->SetRippleMode(row.ripple);
        f.prompt.Answer(row.answer);
        f.Drag(CellX(3), kY, CellX(6), kY, 6);
        ASSERT_EQ(f.prompt.asked.size(), 1u);
        EXPECT_EQ(f.prompt.asked[0].text.Utf8(), "Replace keyframe?");
        EXPECT_EQ(f.prompt.asked[0].title.Utf8(), "Confirm");
        EXPECT_EQ(f.prompt.asked[0].buttons,
                  row.ripple ? aurel::PromptButtons::YesNoCancel : aurel::PromptButtons::YesNo);
        EXPECT_EQ(f.Ticks(), row.ticks);
        EXPECT_EQ(f.view->Strip().Frames(), f.doc.CurrentAnim().keys);
    }
}

TEST(TimelineGestureTest, CancelAndSelfDropLeaveTheFrames) {
    TimelineFixture f;
    const auto before = f.Bytes();
    f.Move(CellX(3), kY);
    f.Press(win::kButtonLeft, CellX(3), kY);
    f.Move(CellX(5), kY);
    f.Press(win::kButtonRight, CellX(5), kY);
    f.Release(win::kButtonLeft, CellX(5), kY);
    EXPECT_EQ(f.Bytes(), before);
    EXPECT_EQ(f.stack.Size(), 1u);  // the selection of the key at the press
    f.Drag(CellX(3), kY, CellX(3) + 20, kY, 3);
    EXPECT_EQ(f.Bytes(), before);
    EXPECT_EQ(f.stack.Size(), 1u);
    EXPECT_EQ(f.view->Preview().Frames(), f.doc.CurrentAnim().keys);
}

TEST(TimelineGestureTest, InsertIntoAnEmptyCellAndDeleteTheCurrentKey) {
    TimelineFixture f;
    const auto before = f.Bytes();
    f.Click(CellX(1), kY);
    EXPECT_EQ(f.Ticks(), (std::vector<std::uint32_t>{400, 800, 1200, 1200}));
    EXPECT_EQ(f.doc.cursor.frameIndex, 1u);
    EXPECT_EQ(f.stack.Size(), 1u);
    f.KeyDown(win::kVkDelete);
    EXPECT_EQ(f.Ticks(), (std::vector<std::uint32_t>{1200, 1200, 1200}));
    EXPECT_EQ(f.Bytes(), before);
    EXPECT_EQ(f.stack.Size(), 2u);
    // The first key is never deleted.
    f.Click(CellX(0), kY);
    f.KeyDown(win::kVkDelete);
    EXPECT_EQ(f.Ticks(), (std::vector<std::uint32_t>{1200, 1200, 1200}));
}

TEST(TimelineGestureTest, PlaybackIgnoresPressesAndPassesSpaceOn) {
    TimelineFixture f;
    f.hub.playing = true;
    const auto before = f.Bytes();
    f.Drag(CellX(3), kY, CellX(5), kY, 4);
    f.Click(CellX(1), kY);
    f.view->SetFrameCount(4.0f);
    EXPECT_EQ(f.Bytes(), before);
    EXPECT_EQ(f.stack.Size(), 0u);
    f.view->SetSpeedText("250%");
    EXPECT_FLOAT_EQ(f.doc.CurrentAnim().speed, 2.5f);
    f.KeyDown(win::kVkSpace);
    f.KeyUp(win::kVkSpace);
    EXPECT_EQ(f.keysPassedOn, 2);
    f.hub.playing = false;
    f.view->SetSpeedText("fast");
    f.view->SetSpeedText("5000%");
    EXPECT_FLOAT_EQ(f.doc.CurrentAnim().speed, 10.0f);
    f.view->SetTotalTime(2.0f);
    EXPECT_EQ(f.Ticks(), (std::vector<std::uint32_t>{1200, 1200}));
    f.view->SetFrameCount(10.0f);
    EXPECT_EQ(f.Ticks(), (std::vector<std::uint32_t>{1200, 2800}));
}

TEST(TimelineGestureTest, DraggingAnItemEndMakesAMicroKeyframe) {
    TimelineFixture f(900, 300);
    f.view->SetExtended(true);
    f.view->Sync();
    aurel::ImageSurface surface;
    surface.Resize(900, 300);
    f.view->Paint(surface);  // lays out the items
    const auto before = f.Bytes();
    // The arm's lane is the top one; its first item ends at one second, x 150 + 240.
    const int y = 43 + 10;
    f.Move(388, y);
    EXPECT_EQ(f.view->Micro().HoverAction(), kMicroDragKey);
    f.Press(win::kButtonLeft, 388, y);
    for (int x = 400; x <= 470; x += 10) {
        f.Move(x, y);
        EXPECT_EQ(f.Bytes(), before);
    }
    f.Release(win::kButtonLeft, 470, y);
    ASSERT_EQ(f.stack.Size(), 1u);
    EXPECT_EQ(f.stack.At(0).label.Utf8(), "Micro Keyframe");
    const std::vector<WirrelKey>& keys = f.doc.CurrentAnim().keys;
    ASSERT_EQ(keys.size(), 4u);
    EXPECT_EQ(f.Ticks(), (std::vector<std::uint32_t>{1200, 400, 800, 1200}));
    EXPECT_NE(keys[1].pins[1].flags & kPinTweened, 0u);
    EXPECT_EQ(keys[2].pins[1].flags & kPinTweened, 0u);
    EXPECT_NE(keys[2].pins[0].flags & kPinTweened, 0u);
    EXPECT_EQ(keys[2].pins[1].angle, 1.5f);
    f.view->Sync();
    EXPECT_EQ(f.view->Strip().Frames(), keys);
    const auto after = f.Bytes();
    f.stack.UndoRedo(false, f.hub);
    EXPECT_EQ(f.Bytes(), before);
    f.stack.UndoRedo(true, f.hub);
    EXPECT_EQ(f.Bytes(), after);
}

TEST(TimelineGestureTest, LanesSelectPinsHideThemAndChangeHeight) {
    TimelineFixture f(900, 300);
    f.view->SetExtended(true);
    f.view->Sync();
    f.Click(60, 53);  // the arm's name
    EXPECT_TRUE(f.selection.IsSelected(1));
    f.KeyDown(win::kVkEscape);
    EXPECT_TRUE(f.selection.selected.empty());
    f.Click(12, 53);  // the eye
    EXPECT_NE(f.doc.CurrentKey().pins[1].flags & kPinHidden, 0u);
    f.Drag(60, 43 + 23, 60, 43 + 60, 4);  // the bottom edge of the first lane
    EXPECT_EQ(f.view->Micro().LaneHeights()[0], 24 + 37);
    f.view->Micro().SetLaneHeights(0, true);
    EXPECT_EQ(f.view->Micro().LaneHeights(), (std::vector<int>{19, 19}));
    f.view->Micro().SetLaneHeights(10000, true);
    EXPECT_EQ(f.view->Micro().LaneHeights()[1], 300 - 16 - 61 - 43 - 1);
}

}  // namespace
}  // namespace kovra::test
