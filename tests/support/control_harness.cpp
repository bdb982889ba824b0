#include "support/control_harness.h"

#include "support/png_image.h"

namespace kovra::test {

using kestrel2::win::InputEvent;

ControlHarness::ControlHarness(kestrel2::win::IGuiCustomControl& control, int width, int height, double ratio)
    : control_(control) {
    control_.SetPixelRatio(ratio);
    control_.SetPos(0, 0, width, height);
    control_.input.listeners.Add(this, &ControlHarness::Record);
}

void ControlHarness::Record(InputEvent& event) {
    events.push_back(event);
}

ControlHarness& ControlHarness::Move(int x, int y) {
    control_.input.MouseMove(x, y,
                             x >= 0 && y >= 0 && x < control_.ClientWidth() && y < control_.ClientHeight());
    return *this;
}

ControlHarness& ControlHarness::Press(int button, int x, int y, kestrel2::win::Modifiers modifiers) {
    control_.input.ButtonDown(button, x, y, false, modifiers);
    return *this;
}

ControlHarness& ControlHarness::Release(int button, int x, int y) {
    control_.input.ButtonUp(button, x, y);
    return *this;
}

ControlHarness& ControlHarness::DoubleClick(int button, int x, int y) {
    Press(button, x, y).Release(button, x, y);
    control_.input.ButtonDown(button, x, y, true, {});
    return Release(button, x, y);
}

ControlHarness& ControlHarness::Drag(int fromX, int fromY, int toX, int toY, int steps) {
    Move(fromX, fromY).Press(kestrel2::win::kButtonLeft, fromX, fromY);
    for (int step = 1; step <= steps; ++step) {
        Move(fromX + (toX - fromX) * step / steps, fromY + (toY - fromY) * step / steps);
    }
    return Release(kestrel2::win::kButtonLeft, toX, toY);
}

ControlHarness& ControlHarness::Key(int virtualKey) {
    return KeyDown(virtualKey).KeyUp(virtualKey);
}

ControlHarness& ControlHarness::KeyDown(int virtualKey) {
    control_.input.KeyDown(virtualKey, false);
    return *this;
}

ControlHarness& ControlHarness::KeyUp(int virtualKey) {
    control_.input.KeyUp(virtualKey);
    return *this;
}

ControlHarness& ControlHarness::Wheel(int delta) {
    control_.input.Wheel(delta);
    return *this;
}

ControlHarness& ControlHarness::LoseFocus() {
    control_.input.FocusLost();
    return *this;
}

::testing::AssertionResult ControlHarness::Matches(const std::string& name) {
    return MatchesReference(control_.Paint().Bitmap(), name);
}

}  // namespace kovra::test
