#pragma once
// The input state machine of a custom control. The platform feeds it plain facts (a key went down, the
// mouse moved to x, y, a button went up, the focus went away) and it fills its one InputEvent and calls
// its listeners with it. It knows no toolkit, so views and tests can drive it directly: a view that must
// cancel a drag presses and releases a button here, just as the mouse would.

#include "base/listener_list.h"
#include "gui/input_event.h"

namespace kestrel2::win {

struct Modifiers {
    bool ctrl = false;
    bool shift = false;
    bool alt = false;
};

class Input {
public:
    void KeyDown(int key, bool repeat);
    void KeyUp(int key);
    // `inside` tells whether the position is within the client.
    void MouseMove(int x, int y, bool inside);
    // A press; `doubleClick` makes it the second press of a double click (type 7, no type 4). Modifier
    // keys that are down without the key table knowing (they went down while the focus was elsewhere)
    // are first reported as key downs.
    void ButtonDown(int button, int x, int y, bool doubleClick, Modifiers modifiers);
    void ButtonUp(int button, int x, int y);
    // The wheel reports at the position of the last move.
    void Wheel(int delta);
    void HorizontalWheel(int delta);
    void MouseLeave();
    // Every key and button still down is released, keys in key order and then buttons in button order,
    // and all state is cleared: no view waits for a release that can't arrive.
    void FocusLost();

    // True while a button is down: the control then has the mouse, also outside its client.
    bool Captured() const;
    const InputEvent& Event() const { return event_; }

    aurel::ListenerList<InputEvent&> listeners;

private:
    void Send(int type);

    InputEvent event_;
};

// Decides whether a press is the second of a double click: the same button, soon enough after the
// previous press and near enough to it. A press that completed a double click never starts another.
class DoubleClickDetector {
public:
    DoubleClickDetector(int intervalMs, int distance) : intervalMs_(intervalMs), distance_(distance) {}

    bool Press(int button, int x, int y, unsigned long timeMs);

private:
    int intervalMs_;
    int distance_;
    bool armed_ = false;
    int button_ = 0;
    int x_ = 0, y_ = 0;
    unsigned long time_ = 0;
};

}  // namespace kestrel2::win
