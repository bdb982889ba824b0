#include "state/main_menu.h"

#include <array>

namespace kovra {

namespace {

constexpr MenuTableEntry kSeparator{kMenuSeparator, "", 0, ""};
constexpr MenuTableEntry kEnd{kMenuEnd, "", 0, ""};

constexpr std::array kTable{
    MenuTableEntry{kMenuSubmenu, "&File", 0, "File"},
    MenuTableEntry{kMenuNew, "&New\tCtrl+N", 0, "FileNew"},
    MenuTableEntry{kMenuOpen, "&Open...\tCtrl+O", 0, "FileOpen"},
    MenuTableEntry{kMenuSubmenu, "Open Example", kFlagDisabled, "FileOpenEx"},
    kEnd,
    kSeparator,
    MenuTableEntry{kMenuSave, "&Save\tCtrl+S", 0, "FileSave"},
    MenuTableEntry{kMenuSaveAs, "Save &As...\tCtrl+A", 0, "FileSaveAs"},
    MenuTableEntry{kMenuSubmenu, "Export to", 0, "FileExport"},
    MenuTableEntry{kMenuExportSprites, "Sprites...", 0, "FileExportSpr"},
    kEnd,
    kSeparator,
    MenuTableEntry{kMenuRecentFirst, "recent files", kFlagRecentSlot, ""},
    MenuTableEntry{kMenuExit, "E&xit\tAlt+F4", 0, "FileExit"},
    kEnd,
    MenuTableEntry{kMenuSubmenu, "&Edit", 0, "Edit"},
    MenuTableEntry{kMenuUndo, "&Undo\tCtrl+Z", 0, "EditUndo"},
    MenuTableEntry{kMenuRedo, "&Redo\tCtrl+Y", 0, "EditRedo"},
    kSeparator,
    MenuTableEntry{kMenuCut, "&Cut\tCtrl+X", kFlagDisabled, "EditCut"},
    MenuTableEntry{kMenuCopy, "&Copy\tCtrl+C", kFlagDisabled, "EditCopy"},
    MenuTableEntry{kMenuPaste, "&Paste\tCtrl+V", kFlagDisabled, "EditPaste"},
    MenuTableEntry{kMenuDelete, "&Delete\tDel", 0, "EditDelete"},
    kSeparator,
    MenuTableEntry{kMenuSubmenu, "&Language", kFlagDisabled, "EditLang"},
    kEnd,
    MenuTableEntry{kMenuSubmenu, "Theme", kFlagDisabled, "EditTheme"},
    kEnd,
    kEnd,
    MenuTableEntry{kMenuSubmenu, "&Tools", 0, "Tools"},
    MenuTableEntry{kMenuHistory, "&History/Repeat\th", 0, "ToolsHistory"},
    MenuTableEntry{kMenuNotes, "&Notes\tn", 0, "ToolsNotes"},
    MenuTableEntry{kMenuEvents, "&Events\te", 0, "ToolsEvents"},
    kSeparator,
    MenuTableEntry{kMenuMirror, "&Mirror Frame", 0, "ToolsMirror"},
    MenuTableEntry{kMenuFlip, "&Flip Frame", 0, "ToolsFlip"},
    kSeparator,
    MenuTableEntry{kMenuPasteBackground, "Paste to Background", 0, "ToolsPasteBg"},
    kSeparator,
    MenuTableEntry{kMenuAutoDetect, "Auto-detect Textures\tF5", 0, "ToolsAuto"},
    MenuTableEntry{kMenuPack, "Pack Textures\tF7", 0, "ToolsPack"},
    kEnd,
    MenuTableEntry{kMenuSubmenu, "&Help", 0, "Help"},
    MenuTableEntry{kMenuViewHelp, "View Help\tF1", kFlagDisabled, "HelpHelp"},
    kSeparator,
    MenuTableEntry{kMenuQuickKeys, "Quick Keys\tK", 0, "HelpQuick"},
    kSeparator,
    MenuTableEntry{kMenuChangeLog, "&Change Log", 0, "HelpLog"},
    MenuTableEntry{kMenuAbout, "&About Kovra", 0, "HelpAbout"},
    kEnd,
};

// Ctrl+Shift+S and Ctrl+Shift+Z stand beside the table's keys, where users of this platform look for
// Save As and Redo.
constexpr std::array kAccelerators{
    Accelerator{"Ctrl+N", kAccelNew},          Accelerator{"Ctrl+O", kAccelOpen},
    Accelerator{"Ctrl+S", kAccelSave},         Accelerator{"Ctrl+A", kAccelSaveAs},
    Accelerator{"Ctrl+Z", kAccelUndo},         Accelerator{"Ctrl+Y", kAccelRedo},
    Accelerator{"Ctrl+X", kAccelCut},          Accelerator{"Ctrl+C", kAccelCopy},
    Accelerator{"Ctrl+V", kAccelPaste},        Accelerator{"F1", kAccelHelp},
    Accelerator{"Ctrl+Shift+S", kAccelSaveAs}, Accelerator{"Ctrl+Shift+Z", kAccelRedo},
};

}  // namespace

std::span<const MenuTableEntry> MainMenuTable() {
    return kTable;
}

std::span<const Accelerator> MainAccelerators() {
    return kAccelerators;
}

}  // namespace kovra
