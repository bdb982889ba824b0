#include "gui/input.h"

#include <cstdlib>
#include <cstring>

#include "gui/virtual_keys.h"

namespace kestrel2::win {

void Input::Send(int type) {
    event_.type = type;
    listeners.Call(event_);
}

void Input::KeyDown(int key, bool repeat) {
    event_.key = static_cast<std::uint8_t>(key);
    event_.keyIsDown = 1;
    event_.keys[event_.key] = 1;
    event_.repeat = repeat ? 1 : 0;
    event_.dx = event_.dy = 0;
    Send(kInputKeyDown);
}

void Input::KeyUp(int key) {
    event_.key = static_cast<std::uint8_t>(key);
    event_.keyIsDown = 0;
    event_.keys[event_.key] = 0;
    event_.repeat = 0;
    event_.dx = event_.dy = 0;
    Send(kInputKeyUp);
}

bool Input::Captured() const {
    for (std::uint8_t down : event_.buttons) {
        if (down) {
            return true;
        }
    }
    return false;
}

void Input::MouseMove(int x, int y, bool inside) {
    if (!inside && !Captured()) {
        Send(kInputMouseLeft);
        return;
    }
    event_.dx = x - event_.x;
    event_.dy = y - event_.y;
    event_.x = x;
    event_.y = y;
    if (event_.buttons[kButtonLeft]) {
        event_.dragX = x;
        event_.dragY = y;
        event_.dragging = 1;
    }
    Send(kInputMouseMove);
}

void Input::ButtonDown(int button, int x, int y, bool doubleClick, Modifiers modifiers) {
    const struct {
        bool down;
        int key;
    } held[] = {{modifiers.ctrl, kVkControl}, {modifiers.shift, kVkShift}, {modifiers.alt, kVkMenu}};
    for (const auto& modifier : held) {
        if (modifier.down && !event_.keys[modifier.key]) {
            KeyDown(modifier.key, false);
        }
    }
    event_.button = button;
    event_.pressed = 1;
    event_.buttons[button] = 1;
    event_.dx = event_.dy = 0;
    event_.x = x;
    event_.y = y;
    if (button == kButtonLeft) {
        event_.pressX = event_.dragX = x;
        event_.pressY = event_.dragY = y;
        event_.dragging = 0;
    }
    Send(doubleClick ? kInputDoubleClick : kInputButtonDown);
}

void Input::ButtonUp(int button, int x, int y) {
    event_.button = button;
    event_.pressed = 0;
    event_.buttons[button] = 0;
    event_.dx = event_.dy = 0;
    event_.x = x;
    event_.y = y;
    Send(kInputButtonUp);
    // The gesture ends with the last button: the listeners saw where it went, now it is forgotten.
    if (!Captured()) {
        event_.pressX = event_.pressY = 0;
        event_.dragX = event_.dragY = 0;
        event_.dragging = 0;
    }
}

void Input::Wheel(int delta) {
    event_.dx = 0;
    event_.dy = -delta;
    Send(kInputWheel);
}

void Input::HorizontalWheel(int delta) {
    event_.dx = delta;
    event_.dy = 0;
    Send(kInputWheel);
}

void Input::MouseLeave() {
    Send(kInputMouseLeft);
}

void Input::FocusLost() {
    for (int key = 0; key < 256; ++key) {
        if (event_.keys[key]) {
            KeyUp(key);
        }
    }
    for (int button = 0; button < 5; ++button) {
        if (event_.buttons[button]) {
            ButtonUp(button, event_.x, event_.y);
        }
    }
    const int x = event_.x;
    const int y = event_.y;
    event_ = InputEvent{};
    event_.x = x;
    event_.y = y;
}

bool DoubleClickDetector::Press(int button, int x, int y, unsigned long timeMs) {
    const bool isDouble = armed_ && button == button_ &&
                          timeMs - time_ <= static_cast<unsigned long>(intervalMs_) &&
                          std::abs(x - x_) <= distance_ && std::abs(y - y_) <= distance_;
    armed_ = !isDouble;
    button_ = button;
    x_ = x;
    y_ = y;
    time_ = timeMs;
    return isDouble;
}

}  // namespace kestrel2::win
