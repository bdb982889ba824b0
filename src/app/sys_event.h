#pragma once
// An event that the platform passes to the receivers of ISys: window size and move, keys and mouse.

#include <cstdint>

namespace aurel {

enum SysEventKind : int {
    kEventKeyDown = 0,
    kEventKeyUp = 1,
    kEventMouseDown = 4,
    kEventMouseUp = 5,
    kEventMouseMove = 7,
    kEventSize = 13,
    kEventMove = 14,
};

struct SysEvent {
    int kind = 0;
    int key = 0;                               // virtual-key code of a key event
    char32_t character = 0;                    // character of a key event
    const std::uint8_t* keyState = nullptr;    // 256 entries, for key events
    int button = 0;                            // 0 to 4, for mouse events
    int x = 0, y = 0;                          // mouse position, or window position for a move
    int width = 0, height = 0;                 // for a size event
};

}  // namespace aurel
