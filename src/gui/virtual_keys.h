#pragma once
// Windows virtual-key codes, the key numbers that views test, and the one table that turns the toolkit's
// key numbers into them.

namespace kestrel2::win {

enum VirtualKey : int {
    kVkBack = 0x08,
    kVkTab = 0x09,
    kVkReturn = 0x0D,
    kVkShift = 0x10,
    kVkControl = 0x11,
    kVkMenu = 0x12,  // Alt
    kVkPause = 0x13,
    kVkCapital = 0x14,
    kVkEscape = 0x1B,
    kVkSpace = 0x20,
    kVkPrior = 0x21,  // Page Up
    kVkNext = 0x22,   // Page Down
    kVkEnd = 0x23,
    kVkHome = 0x24,
    kVkLeft = 0x25,
    kVkUp = 0x26,
    kVkRight = 0x27,
    kVkDown = 0x28,
    kVkSnapshot = 0x2C,
    kVkInsert = 0x2D,
    kVkDelete = 0x2E,
    kVkLWin = 0x5B,
    kVkApps = 0x5D,
    kVkNumpad0 = 0x60,
    kVkMultiply = 0x6A,
    kVkAdd = 0x6B,
    kVkSubtract = 0x6D,
    kVkDecimal = 0x6E,
    kVkDivide = 0x6F,
    kVkF1 = 0x70,
    kVkNumLock = 0x90,
    kVkScroll = 0x91,
    kVkOem1 = 0xBA,       // ; :
    kVkOemPlus = 0xBB,    // = +
    kVkOemComma = 0xBC,   // , <
    kVkOemMinus = 0xBD,   // - _
    kVkOemPeriod = 0xBE,  // . >
    kVkOem2 = 0xBF,       // / ?
    kVkOem3 = 0xC0,       // ` ~
    kVkOem4 = 0xDB,       // [ {
    kVkOem5 = 0xDC,       // backslash |
    kVkOem6 = 0xDD,       // ] }
    kVkOem7 = 0xDE,       // ' "
};

// The virtual key of a toolkit key number (a Qt::Key), read as a key of the numeric keypad when
// `keypad` is set; 0 for a key without one. Shifted symbols give the key they are typed on, so that
// "!" is the key 1 as a US keyboard has it.
int VirtualKeyFromQt(int qtKey, bool keypad);

}  // namespace kestrel2::win
