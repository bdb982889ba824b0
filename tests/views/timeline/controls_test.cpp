#include <gtest/gtest.h>

#include <set>

#include "anim/playback.h"
#include "gui/virtual_keys.h"
#include "settings/lang.h"
#include "settings/theme.h"
#include "support/english.h"
#include "timeline_fixture.h"
#include "views/timeline/micro_timeline.h"
#include "views/timeline/timeline_controls.h"

namespace kovra::test {
namespace {

namespace win = kestrel2::win;

TEST(TimelineControlsTest, EveryControlHasItsIdTooltipAndIcon) {
    LoadEnglish();
    std::set<int> ids;
    for (const TimelineControl& control : TimelineControls()) {
        SCOPED_TRACE(control.id);
        EXPECT_TRUE(ids.insert(control.id).second);
        if (!control.tooltipKey.empty()) {
            EXPECT_NE(aurel::Lang(control.section, control.tooltipKey).Utf8(), "[MISSING STRING]");
        }
        const bool button = control.kind == ControlKind::Button || control.kind == ControlKind::Check;
        EXPECT_EQ(control.icon != nullptr, button);
        if (control.icon != nullptr) {
            EXPECT_FALSE((aurel::CurrentTheme().icons.*control.icon).empty());
        }
    }
    EXPECT_EQ(ids.size(), 28u);
    EXPECT_EQ(aurel::Lang("TIMELINE", "FramesDual").Utf8(), "Dual Monitor Optimized Workflow");
}

TEST(TimelineControlsTest, ButtonsActAsTheTableSays) {
    TimelineFixture f;
    f.view->OnControl(0x3EC, 1);
    f.view->OnControl(0x40B, 0);
    ASSERT_EQ(f.prompt.asked.size(), 2u);
    EXPECT_EQ(f.prompt.asked[0].title.Utf8(), "Not yet...");
    EXPECT_EQ(f.prompt.asked[1].title.Utf8(), "Soon...");
    EXPECT_EQ(f.prompt.asked[1].text.Utf8(),
              "This is placeholder functionality. This feature be available shortly.");
    f.view->OnControl(0x3EB, 1);
    EXPECT_TRUE(f.view->RippleMode());
    f.view->OnControl(0x3EE, 0);  // play: Space down and up
    f.view->OnControl(0x3EF, 0);  // stop does nothing while not playing
    f.view->OnControl(0x3F4, 1);  // the key T
    EXPECT_EQ(f.keysPassedOn, 4);
    f.view->OnControl(0x3F7, 6);
    EXPECT_EQ(f.doc.snapFrames, 6u);
    f.view->Sync();
    EXPECT_EQ(f.view->Strip().Rate(), 10);
    f.doc.AddAnim("second", kAnimCopy, -1);
    SwitchAnimation(f.doc, 0);
    f.view->OnControl(0x3F0, 0);  // previous wraps to the last
    EXPECT_EQ(f.doc.cursor.animIndex, 1);
    f.view->OnControl(0x3F1, 0);
    EXPECT_EQ(f.doc.cursor.animIndex, 0);
    EXPECT_EQ(f.stack.Size(), 3u);
    f.view->SetExtended(true);
    f.view->Sync();
    f.view->OnControl(0x400, 0);
    // At 120 pixels the strip leaves the lanes no room: they keep the least height.
    EXPECT_EQ(f.view->Micro().LaneHeights()[0], kMinLaneHeight);
}

}  // namespace
}  // namespace kovra::test
