#pragma once
// One mouse or keyboard event as a custom control receives it, in client pixels and Windows virtual-key
// codes. The input object keeps one of these and reuses it, so the key and button tables always hold the
// present state.

#include <cstdint>

namespace kestrel2::win {

enum InputType : int {
    kInputKeyDown = 0,
    kInputKeyUp = 1,
    kInputMouseLeft = 2,  // the mouse left the control
    kInputMouseMove = 3,
    kInputButtonDown = 4,
    kInputButtonUp = 5,
    kInputWheel = 6,
    kInputDoubleClick = 7,
};

enum InputButton : int { kButtonLeft = 0, kButtonRight = 1, kButtonMiddle = 2, kButtonX1 = 3, kButtonX2 = 4 };

struct InputEvent {
    int type = 0;
    std::uint8_t key = 0;  // virtual key of a key event
    std::uint8_t keyIsDown = 0;
    std::uint8_t keys[256] = {};  // every key's state, by virtual key
    std::uint8_t repeat = 0;      // 1 on a key's auto-repeat
    int x = 0, y = 0;
    // Motion since the previous position; for the wheel, minus its delta in dy, or the horizontal
    // wheel's delta in dx.
    int dx = 0, dy = 0;
    int button = 0;
    std::uint8_t pressed = 0;  // 1 on a button down
    std::uint8_t buttons[5] = {};
    int pressX = 0, pressY = 0;  // where the left button went down
    int dragX = 0, dragY = 0;    // where the mouse was at the last move with the left button held
    std::uint8_t dragging = 0;   // the left button is down and has moved
};

}  // namespace kestrel2::win
