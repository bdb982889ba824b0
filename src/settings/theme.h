#pragma once
// The program's current theme: the global theme store, the values that the drawing code reads, and the
// file they came from. LoadTheme reads a file of Themes/ into them; RefreshTheme, called by the editor
// every half second, loads the file again when it has changed on disk, so a theme can be edited while
// the program runs.

#include <cstdint>
#include <string>

#include "base/dual_string.h"
#include "base/listener_list.h"
#include "settings/settings_store.h"
#include "settings/theme_table.h"

namespace aurel {

SettingsStore& ThemeStore();

// The values of the themes loaded so far, over the program's defaults.
const Theme& CurrentTheme();

// Called after each successful load, so that the gui lays itself out and repaints.
ListenerList<>& ThemeListeners();

// Reads the file into the theme store and its keys into the current theme, each key left out keeping the
// value it had; stores `name` as "Theme" in section "App" of `settings`, remembers the path and the
// file's stamp, and calls the listeners. False, with nothing changed, when the file can't be opened.
bool LoadTheme(const DualString& path, const std::string& name, SettingsStore& settings);

// The path of the theme file loaded last, empty before the first.
const DualString& LoadedThemePath();

// When the modification time or the size of the theme file loaded last differs from what it was at that
// load, loads it again under the same name; true when it did.
bool RefreshTheme(SettingsStore& settings);

// The file of an icon named by the theme, in the folder of the theme file loaded last: at a device pixel
// ratio above 1 the twice-as-large picture, whose name has "@2x" before the extension.
DualString ThemeIconPath(const std::string& icon, double pixelRatio);

// What RefreshTheme compares: nanosecond modification time and size in bytes, both 0 for a file that
// can't be found.
struct FileStamp {
    std::int64_t time = 0;
    std::uintmax_t size = 0;

    bool operator==(const FileStamp&) const = default;
};

FileStamp StampOf(const DualString& path);

}  // namespace aurel
