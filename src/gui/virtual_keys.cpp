#include "gui/virtual_keys.h"

#include <Qt>

#include <unordered_map>

namespace kestrel2::win {

namespace {

const std::unordered_map<int, int>& NamedKeys() {
    static const std::unordered_map<int, int> table = {
        {Qt::Key_Backspace, kVkBack},
        {Qt::Key_Tab, kVkTab},
        {Qt::Key_Backtab, kVkTab},
        {Qt::Key_Return, kVkReturn},
        {Qt::Key_Enter, kVkReturn},
        {Qt::Key_Shift, kVkShift},
        {Qt::Key_Control, kVkControl},
        {Qt::Key_Alt, kVkMenu},
        {Qt::Key_AltGr, kVkMenu},
        {Qt::Key_Pause, kVkPause},
        {Qt::Key_CapsLock, kVkCapital},
        {Qt::Key_Escape, kVkEscape},
        {Qt::Key_Space, kVkSpace},
        {Qt::Key_PageUp, kVkPrior},
        {Qt::Key_PageDown, kVkNext},
        {Qt::Key_End, kVkEnd},
        {Qt::Key_Home, kVkHome},
        {Qt::Key_Left, kVkLeft},
        {Qt::Key_Up, kVkUp},
        {Qt::Key_Right, kVkRight},
        {Qt::Key_Down, kVkDown},
        {Qt::Key_Print, kVkSnapshot},
        {Qt::Key_Insert, kVkInsert},
        {Qt::Key_Delete, kVkDelete},
        {Qt::Key_Meta, kVkLWin},
        {Qt::Key_Super_L, kVkLWin},
        {Qt::Key_Super_R, kVkLWin + 1},
        {Qt::Key_Menu, kVkApps},
        {Qt::Key_NumLock, kVkNumLock},
        {Qt::Key_ScrollLock, kVkScroll},
        // Punctuation, and the symbols typed with Shift on the same keys of a US keyboard.
        {Qt::Key_Semicolon, kVkOem1},
        {Qt::Key_Colon, kVkOem1},
        {Qt::Key_Equal, kVkOemPlus},
        {Qt::Key_Plus, kVkOemPlus},
        {Qt::Key_Comma, kVkOemComma},
        {Qt::Key_Less, kVkOemComma},
        {Qt::Key_Minus, kVkOemMinus},
        {Qt::Key_Underscore, kVkOemMinus},
        {Qt::Key_Period, kVkOemPeriod},
        {Qt::Key_Greater, kVkOemPeriod},
        {Qt::Key_Slash, kVkOem2},
        {Qt::Key_Question, kVkOem2},
        {Qt::Key_QuoteLeft, kVkOem3},
        {Qt::Key_AsciiTilde, kVkOem3},
        {Qt::Key_BracketLeft, kVkOem4},
        {Qt::Key_BraceLeft, kVkOem4},
        {Qt::Key_Backslash, kVkOem5},
        {Qt::Key_Bar, kVkOem5},
        {Qt::Key_BracketRight, kVkOem6},
        {Qt::Key_BraceRight, kVkOem6},
        {Qt::Key_Apostrophe, kVkOem7},
        {Qt::Key_QuoteDbl, kVkOem7},
        {Qt::Key_Exclam, '1'},
        {Qt::Key_At, '2'},
        {Qt::Key_NumberSign, '3'},
        {Qt::Key_Dollar, '4'},
        {Qt::Key_Percent, '5'},
        {Qt::Key_AsciiCircum, '6'},
        {Qt::Key_Ampersand, '7'},
        {Qt::Key_Asterisk, '8'},
        {Qt::Key_ParenLeft, '9'},
        {Qt::Key_ParenRight, '0'},
    };
    return table;
}

// Keys whose meaning changes on the numeric keypad.
int KeypadKey(int qtKey) {
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) {
        return kVkNumpad0 + (qtKey - Qt::Key_0);
    }
    switch (qtKey) {
        case Qt::Key_Asterisk:
            return kVkMultiply;
        case Qt::Key_Plus:
            return kVkAdd;
        case Qt::Key_Minus:
            return kVkSubtract;
        case Qt::Key_Period:
        case Qt::Key_Comma:
            return kVkDecimal;
        case Qt::Key_Slash:
            return kVkDivide;
        default:
            return 0;
    }
}

}  // namespace

int VirtualKeyFromQt(int qtKey, bool keypad) {
    if (keypad) {
        if (const int key = KeypadKey(qtKey)) {
            return key;
        }
    }
    if ((qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9)) {
        return qtKey;  // the same codes as the virtual keys
    }
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) {
        return kVkF1 + (qtKey - Qt::Key_F1);
    }
    const auto found = NamedKeys().find(qtKey);
    return found == NamedKeys().end() ? 0 : found->second;
}

}  // namespace kestrel2::win
