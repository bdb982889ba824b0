// The texture view bound to its control: the control's own input reaches the view's gestures, the pulse
// runs on the control's timer, and at a pixel ratio of 2 the frame is painted at device pixels with the
// grips grown to match.

#include <gtest/gtest.h>

#include "commands/command_stack.h"
#include "gui/virtual_keys.h"
#include "support/control_harness.h"
#include "support/scripted_prompt.h"
#include "views/gui_texture.h"
#include "views/texture/texture_bench.h"

namespace kovra {
namespace {

struct Bound {
    explicit Bound(double ratio) : view(doc, selection, images, prompt), harness(view, 160, 120, ratio) {
        doc.Reset(true);
        doc.SetImage(-1, test::Sheet(64, 48));
        view.commandListeners.Add(&stack, &CommandStack::AddCommand);
        view.dragEndListeners.Add(&stack, &CommandStack::FinishDrag);
        view.eventListeners.Add(this, &Bound::PassedOn);
        view.Paint();
    }
    void PassedOn(const kestrel2::win::InputEvent&) { ++passedOn; }

    WirrelDoc doc;
    SelectionTracker selection;
    SelectionTracker images;
    test::ScriptedPrompt prompt;
    CommandStack stack;
    GuiTexture view;
    test::ControlHarness harness;
    int passedOn = 0;
};

TEST(GuiTexture, DrawsAndDragsThroughItsControlAndPassesOnWhatItDoesNotUse) {
    Bound bound(1.0);
    // A 64 x 48 image in a 160 x 120 view at zoom 1 stands in its middle: pixel x at 48 + x, y at 36 + y.
    bound.harness.Press(kestrel2::win::kButtonRight, 58, 46)
        .Move(78, 66)
        .Release(kestrel2::win::kButtonRight, 78, 66);
    ASSERT_EQ(bound.doc.Wirrel().textures.size(), 1u);
    const WirrelTexture& made = bound.doc.Wirrel().textures[0];
    EXPECT_EQ((std::array{made.x, made.y, made.width, made.height}), (std::array{9, 9, 21, 21}));

    // The body moves by the pulse, which the press started on the control's timer.
    bound.view.Paint();
    bound.harness.Move(68, 56).Press(kestrel2::win::kButtonLeft, 68, 56).Move(72, 60);
    bound.view.OnTimer(GuiTexture::kScrollTimer);
    bound.harness.Release(kestrel2::win::kButtonLeft, 72, 60);
    EXPECT_EQ((std::array{made.x, made.y}), (std::array{13, 13}));
    EXPECT_EQ(bound.stack.Size(), 2u);

    bound.harness.Key(0x41);
    EXPECT_GE(bound.passedOn, 1);
}

TEST(GuiTexture, TheCursorShowsWhatAPressWouldTakeHold) {
    Bound bound(1.0);
    bound.doc.Wirrel().textures = {WirrelTexture{0, 10, 10, 20, 20}, WirrelTexture{0, 40, 30, 10, 10}};
    bound.selection.SetCurrent(0, 0);
    bound.view.Paint();
    using kestrel2::win::Cursor;
    struct Case {
        int x, y;
        Cursor cursor;
    };
    // The current texture lies at client 58 to 78 across and 46 to 66 down, the other at 88, 66.
    for (const Case& c :
         {Case{68, 56, Cursor::SizeAll}, Case{77, 56, Cursor::SizeHorizontal},
          Case{68, 47, Cursor::SizeVertical}, Case{55, 44, Cursor::SizeDiagonal},
          Case{77, 44, Cursor::SizeAntiDiagonal}, Case{93, 71, Cursor::Hand}, Case{10, 10, Cursor::Arrow}}) {
        bound.harness.Move(c.x, c.y);
        EXPECT_EQ(bound.view.OnCursor(), c.cursor) << c.x << ", " << c.y;
    }
}

TEST(GuiTexture, AtPixelRatioTwoTheFrameAndGripsAreInDevicePixels) {
    Bound bound(2.0);
    bound.doc.Wirrel().textures.push_back(WirrelTexture{0, 10, 10, 20, 20});
    bound.selection.SetCurrent(0, 0);
    const aurel::ImageSurface& frame = bound.view.Paint();
    EXPECT_EQ(frame.Width(), 320);
    EXPECT_EQ(frame.Height(), 240);
    const TexHitRect& grip = bound.view.state.hitRects[kGripTopLeft];
    EXPECT_EQ(grip.right - grip.left, 17.0f);
    // At zoom 1 an image pixel covers a layout pixel, two client pixels.
    const TexHitRect& body = bound.view.state.hitRects[kHitBody];
    EXPECT_EQ(body.right - body.left, 40.0f);
}

}  // namespace
}  // namespace kovra
