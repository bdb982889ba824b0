#pragma once
// Drives a custom control headless, as a view test needs it: gives it a client size, scripts mouse and
// key input into its Input as the platform would deliver it, keeps every event the control received,
// and compares what it paints with a reference picture in tests/data.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gui/i_gui_custom_control.h"

namespace kovra::test {

class ControlHarness {
public:
    // Sizes the control's client to width by height at the pixel ratio.
    ControlHarness(kestrel2::win::IGuiCustomControl& control, int width, int height, double ratio = 1.0);

    ControlHarness& Move(int x, int y);
    ControlHarness& Press(int button, int x, int y, kestrel2::win::Modifiers modifiers = {});
    ControlHarness& Release(int button, int x, int y);
    ControlHarness& DoubleClick(int button, int x, int y);
    // A left-button drag in `steps` equal moves, press and release included.
    ControlHarness& Drag(int fromX, int fromY, int toX, int toY, int steps);
    // Key down then key up.
    ControlHarness& Key(int virtualKey);
    ControlHarness& KeyDown(int virtualKey);
    ControlHarness& KeyUp(int virtualKey);
    ControlHarness& Wheel(int delta);
    ControlHarness& LoseFocus();

    // Paints the control and compares its back buffer with tests/data/<name>.png.
    ::testing::AssertionResult Matches(const std::string& name);

    // Every event the control received, in order, as it was at the time.
    std::vector<kestrel2::win::InputEvent> events;

private:
    void Record(kestrel2::win::InputEvent& event);

    kestrel2::win::IGuiCustomControl& control_;
};

}  // namespace kovra::test
