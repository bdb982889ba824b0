#pragma once
// The editor's menu as a table, and the command ids that menu entries and accelerators send. Each entry
// is (id, default text, flags, language key in section MAINMENU); id 0 opens a submenu, kMenuEnd closes
// it, kMenuSeparator draws a line, and the entry with the flag kFlagRecentSlot stands where the recent
// files are listed. Files of the program's folders get ids by their position in a range.

#include <span>

namespace kovra {

enum MenuId : int {
    kMenuSubmenu = 0,
    kMenuRecentFirst = 260,
    kMenuRecentCount = 8,
    kMenuExampleFirst = 268,
    kMenuExampleCount = 100,
    kMenuLanguageFirst = 368,
    kMenuLanguageCount = 500,
    kMenuThemeFirst = 868,
    kMenuThemeCount = 1000,
    kMenuNew = 1868,
    kMenuOpen = 1869,
    kMenuSave = 1871,
    kMenuSaveAs = 1872,
    kMenuExportSprites = 1873,
    kMenuExit = 1875,
    kMenuUndo = 1876,
    kMenuRedo = 1877,
    kMenuCut = 1878,
    kMenuCopy = 1879,
    kMenuPaste = 1880,
    kMenuDelete = 1881,
    kMenuMirror = 1887,
    kMenuFlip = 1888,
    kMenuHistory = 1889,
    kMenuNotes = 1890,
    kMenuEvents = 1891,
    kMenuAutoDetect = 1895,
    kMenuPack = 1896,
    kMenuPasteBackground = 1897,
    kMenuViewHelp = 1898,
    kMenuQuickKeys = 1899,
    kMenuChangeLog = 1900,
    kMenuAbout = 1901,
    kMenuEnd = 65534,
    kMenuSeparator = 65535,
};

// Ids of the main window's accelerators; each does what its menu entry does.
enum AcceleratorId : int {
    kAccelNew = 40000,
    kAccelOpen = 40001,
    kAccelSave = 40002,
    kAccelSaveAs = 40003,
    kAccelUndo = 40004,
    kAccelRedo = 40005,
    kAccelCut = 40006,
    kAccelCopy = 40007,
    kAccelPaste = 40008,
    kAccelHelp = 40009,
};

enum MenuFlags : int { kFlagDisabled = 2, kFlagRecentSlot = 256 };

struct MenuTableEntry {
    int id;
    const char* text;  // what the entry shows before a language is applied; a tab precedes the key name
    int flags;
    const char* key;  // in section MAINMENU; empty for lines, ends and the recent slot
};

struct Accelerator {
    const char* keys;  // as "Ctrl+Shift+S"
    int id;
};

std::span<const MenuTableEntry> MainMenuTable();
std::span<const Accelerator> MainAccelerators();

}  // namespace kovra
