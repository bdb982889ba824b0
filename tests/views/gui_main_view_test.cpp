// The workspace bound to its control: the control's own input reaches the workspace's gestures, and its
// paint is the workspace's frame in the editor's working colours.

#include <gtest/gtest.h>

#include "commands/command_stack.h"
#include "commands/doc_state.h"
#include "support/control_harness.h"
#include "support/scripted_prompt.h"
#include "views/gui_main_view.h"
#include "views/workspace/rig.h"

namespace kovra {
namespace {

TEST(GuiMainView, PaintsTheFrameAndTurnsADragIntoOneCommand) {
    test::Rig rig;
    const int root = rig.Pin(-1, -1.0f, 0.0f);
    const int tip = rig.Pin(root, 1.0f, 0.0f);
    rig.doc.viewFlags[kViewIk] = false;
    test::RecordingHub hub;
    hub.SetBackgroundColor(0xFF203040);
    test::ScriptedPrompt prompt;
    CommandStack stack;
    GuiMainView view(rig.doc, hub, prompt);
    view.commandListeners.Add(&stack, &CommandStack::AddCommand);
    view.dragEndListeners.Add(&stack, &CommandStack::FinishDrag);
    test::ControlHarness harness(view, 160, 120);
    aurel::ImageSurface& frame = view.Paint();
    ASSERT_EQ(frame.Width(), 160);
    aurel::Color32 pixel;
    ASSERT_TRUE(frame.GetPixel(100, 40, pixel));
    EXPECT_EQ(pixel.argb, 0xFF203040u);
    // The tip stands one unit right of the centre, at 32 pixels a unit.
    harness.Move(112, 60).Drag(112, 60, 112, 90, 6);
    EXPECT_EQ(stack.Size(), 2u);  // the selection and the drag
    EXPECT_EQ(view.state.pinSelection.selected, std::set<int>{tip});
    view.Paint();
    EXPECT_GT(view.state.view.pinPixels[tip].y, 20.0f);
}

}  // namespace
}  // namespace kovra
