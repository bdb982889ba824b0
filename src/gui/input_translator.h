#pragma once
// Turns the toolkit's mouse, wheel, key and focus events for one custom control into calls on its Input.
// Positions become client pixels of the back buffer (the logical position times the device pixel
// ratio); keys become virtual keys; the toolkit's own double-click events are ignored, and the second
// press of a double click is recognised here, so that it arrives as type 7 with no type 4 before it.

#include "gui/input.h"

class QEvent;

namespace kestrel2::win {

class InputTranslator {
public:
    explicit InputTranslator(Input& input);

    // Feeds one event of a control whose client is `width` by `height` logical pixels. True when the
    // event was one the input takes.
    bool Feed(QEvent& event, int width, int height, double ratio);

private:
    Input& input_;
    DoubleClickDetector doubleClick_;
};

}  // namespace kestrel2::win
