#include <gtest/gtest.h>

#include "support/image_library.h"
#include "support/png_image.h"
#include "timeline_fixture.h"
#include "views/timeline/micro_timeline.h"
#include "views/timeline/timeline_paint.h"

namespace kovra::test {
namespace {

TEST(TimelinePaintTest, CellLabelsCountCellsWithinTheSecond) {
    struct Row {
        int cell;
        int rate;
        const char* label;
    };
    const Row rows[] = {{0, 1, "0:1"},    {1, 1, "1:1"},    {2, 1, "2:1"},   {0, 10, "0:01"},
                        {10, 10, "1:01"}, {19, 10, "1:10"}, {8, 10, "0:09"}, {9, 10, "0:10"},
                        {7, 3, "2:2"},    {61, 60, "1:02"}};
    for (const Row& row : rows) {
        EXPECT_EQ(CellLabel(row.cell, row.rate), row.label);
    }
}

// A frame with an event on the second key, that key current and focused, the mouse on an empty cell.
TEST(TimelinePaintTest, StripWithEventsSelectionAndHotGap) {
    StartImageLibrary();
    TimelineFixture f(640, 120);
    f.doc.Wirrel().events.push_back(WirrelEvent{});
    f.doc.CurrentAnim().keys[1].eventFirst = 0;
    f.doc.CurrentAnim().keys[1].eventCount = 1;
    f.doc.SetFrame(1);
    f.doc.cursor.framePos = 1.5f;
    f.view->Invalidate();
    f.view->SetFocused(true);
    f.Move(110, 70);
    aurel::ImageSurface surface;
    surface.Resize(640, 120);
    f.view->Paint(surface);
    EXPECT_TRUE(MatchesReference(surface.Bitmap(), "views/timeline_strip"));
}

TEST(TimelinePaintTest, EndMarkerHoveredAndDragged) {
    StartImageLibrary();
    TimelineFixture f(900, 120);
    f.Move(720, 70);
    ASSERT_TRUE(f.view->HoverEnd());
    aurel::ImageSurface surface;
    surface.Resize(900, 120);
    f.view->Paint(surface);
    EXPECT_TRUE(MatchesReference(surface.Bitmap(), "views/timeline_end_hover"));
    f.Press(kestrel2::win::kButtonLeft, 720, 70);
    f.Move(500, 70);
    f.view->Paint(surface);
    EXPECT_TRUE(MatchesReference(surface.Bitmap(), "views/timeline_end_drag"));
}

TEST(TimelinePaintTest, LanesOfThreeHeightsWithATweenItem) {
    StartImageLibrary();
    TimelineFixture f(640, 240);
    f.doc.AddPin(1.0f, 1.5f, 1, "hand");
    for (WirrelKey& key : f.doc.CurrentAnim().keys) {
        key.pins[2].flags &= ~kPinHidden;
    }
    f.doc.CurrentAnim().keys[1].pins[1].flags |= kPinTweened;
    f.selection.Add(1, true);
    f.view->SetExtended(true);
    f.view->Invalidate();
    f.view->Sync();
    aurel::ImageSurface surface;
    surface.Resize(640, 240);
    f.view->Paint(surface);
    f.view->Micro().SetLaneHeights(0, true);
    f.view->Micro().SetLaneHeights(60, false);
    f.Drag(60, 43 + 19 + 60 - 1, 60, 43 + 19 + 60 + 10, 2);  // the arm's lane 11 pixels taller
    f.Move(300, 200);
    f.view->Paint(surface);
    EXPECT_EQ(f.view->Micro().LaneHeights(), (std::vector<int>{19, 71, 19}));
    EXPECT_TRUE(MatchesReference(surface.Bitmap(), "views/timeline_lanes"));
}

}  // namespace
}  // namespace kovra::test
