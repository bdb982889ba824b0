// The strip and the lanes are kept drawn between paints. After each kind of change the kept picture must
// be what a view drawing everything from the start shows.

#include <gtest/gtest.h>

#include <functional>

#include "commands/editor_commands.h"
#include "timeline_fixture.h"
#include "views/timeline/micro_timeline.h"

namespace kovra::test {
namespace {

TEST(TimelineCacheTest, TheKeptPictureMatchesAFreshOneAfterEveryChange) {
    TimelineFixture f(640, 240);
    f.doc.AddPin(1.0f, 1.5f, 1, "hand");
    for (WirrelKey& key : f.doc.CurrentAnim().keys) {
        key.pins[2].flags &= ~kPinHidden;
    }
    int zoom = 100;
    int viewLeft = 0;
    int laneHeight = kDefaultLaneHeight;
    f.view->SetExtended(true);
    f.view->Invalidate();
    aurel::ImageSurface kept;
    kept.Resize(640, 240);
    f.view->Paint(kept);

    const struct {
        const char* name;
        std::function<void()> change;
    } changes[] = {
        {"another current frame", [&] { f.doc.SetFrame(1); }},
        {"lane heights",
         [&] {
             laneHeight = 60;
             f.view->Micro().SetLaneHeights(laneHeight, true);
         }},
        {"lanes scrolled", [&] { f.view->Micro().ScrollBy(30); }},
        {"a pin selected",
         [&] {
             f.stack.AddCommand(std::make_shared<CommandSel>(f.doc, f.selection, "Pin Selection",
                                                             kKindPinSelection, 1, 0, false));
         }},
        {"a pin tweened",
         [&] {
             f.doc.CurrentAnim().keys[1].pins[1].flags |= kPinTweened;
             f.doc.onChanged.Call();
         }},
        {"zoomed",
         [&] {
             zoom = 150;
             f.view->SetZoom(zoom);
         }},
        {"scrolled",
         [&] {
             viewLeft = 40;
             f.view->SetViewLeft(viewLeft);
         }},
    };
    for (const auto& c : changes) {
        c.change();
        f.view->Paint(kept);
        TimelineView fresh(f.doc, f.hub, f.selection, f.prompt);
        fresh.SetSize(640, 240);
        fresh.SetExtended(true);
        fresh.SetZoom(zoom);
        fresh.SetViewLeft(viewLeft);
        fresh.Sync();
        fresh.Micro().SetLaneHeights(laneHeight, true);
        fresh.Micro().SetScroll(f.view->Micro().Scroll());
        aurel::ImageSurface drawn;
        drawn.Resize(640, 240);
        fresh.Paint(drawn);
        int differing = 0;
        for (int y = 0; y < 240; ++y) {
            for (int x = 0; x < 640; ++x) {
                differing += kept.Row(y)[x] != drawn.Row(y)[x] ? 1 : 0;
            }
        }
        EXPECT_EQ(differing, 0) << c.name;
    }
}

}  // namespace
}  // namespace kovra::test
