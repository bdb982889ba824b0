#include <gtest/gtest.h>

#include <random>

#include "gui/virtual_keys.h"
#include "timeline_fixture.h"
#include "views/timeline/micro_timeline.h"

namespace kovra::test {
namespace {

namespace win = kestrel2::win;

// Random presses, drags, keys, wheels and undo over both views: nothing may crash, and whenever no
// gesture is open the working copy equals the document.
TEST(TimelineRandomWalkTest, BothViewsStayInStepWithTheDocument) {
    std::mt19937 random(7);
    TimelineFixture f(700, 260);
    aurel::ImageSurface surface;
    surface.Resize(700, 260);
    const int keys[] = {win::kVkControl, win::kVkDelete, win::kVkEscape, win::kVkSpace};
    for (int step = 0; step < 3000; ++step) {
        const int x = static_cast<int>(random() % 720) - 10;
        const int y = static_cast<int>(random() % 280) - 10;
        switch (random() % 12) {
            case 0:
                f.Press(random() % 3 == 0 ? win::kButtonRight : win::kButtonLeft, x, y);
                break;
            case 1:
                f.Release(win::kButtonLeft, x, y);
                break;
            case 2:
                f.KeyDown(keys[random() % 4]);
                break;
            case 3:
                f.KeyUp(keys[random() % 4]);
                break;
            case 4:
                f.Wheel(random() % 2 == 0 ? 120 : -120);
                break;
            case 5:
                f.view->SetExtended(!f.view->Extended());
                break;
            case 6:
                if (f.stack.Cursor() > 0 && f.event.buttons[win::kButtonLeft] == 0) {
                    f.stack.UndoRedo(false, f.hub);
                }
                break;
            case 7:
                f.view->SetRippleMode(!f.view->RippleMode());
                break;
            default:
                f.Move(x, y);
                break;
        }
        if (step % 50 == 0) {
            f.view->Paint(surface);
        }
        if (!f.view->Drag().Active() && f.view->Micro().ActiveAction() < 0) {
            f.view->Sync();
            ASSERT_EQ(f.view->Strip().Frames(), f.doc.CurrentAnim().keys) << "step " << step;
        }
    }
}

}  // namespace
}  // namespace kovra::test
