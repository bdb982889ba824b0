#include "settings/theme.h"

#include <filesystem>
#include <system_error>

#include "settings/bin_stream.h"
#include "settings/path_info.h"

namespace aurel {

namespace {

struct LoadedTheme {
    SettingsStore store;
    Theme values;
    ListenerList<> listeners;
    DualString path;
    std::string name;
    FileStamp stamp;
};

LoadedTheme& Loaded() {
    static LoadedTheme loaded;
    return loaded;
}

}  // namespace

SettingsStore& ThemeStore() {
    return Loaded().store;
}

const Theme& CurrentTheme() {
    return Loaded().values;
}

ListenerList<>& ThemeListeners() {
    return Loaded().listeners;
}

const DualString& LoadedThemePath() {
    return Loaded().path;
}

FileStamp StampOf(const DualString& path) {
    const std::filesystem::path file(path.Utf8());
    std::error_code error;
    const auto time = std::filesystem::last_write_time(file, error);
    if (error) {
        return {};
    }
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error) {
        return {};
    }
    return {std::chrono::duration_cast<std::chrono::nanoseconds>(time.time_since_epoch()).count(), size};
}

bool LoadTheme(const DualString& path, const std::string& name, SettingsStore& settings) {
    FileStream stream;
    if (!OpenBinStream(stream, path, 2)) {
        return false;
    }
    LoadedTheme& loaded = Loaded();
    // The stamp is taken before reading, so that a write during the read shows as a change next time.
    loaded.stamp = StampOf(path);
    loaded.store.Clear();
    loaded.store.Load(stream);
    settings.Select("App");
    settings.SetString("Theme", DualString(name));
    loaded.path = path;
    loaded.name = name;
    ReadTheme(loaded.store, loaded.values);
    loaded.listeners.Call();
    return true;
}

bool RefreshTheme(SettingsStore& settings) {
    const LoadedTheme& loaded = Loaded();
    if (loaded.path.empty() || StampOf(loaded.path) == loaded.stamp) {
        return false;
    }
    return LoadTheme(DualString(loaded.path), std::string(loaded.name), settings);
}

DualString ThemeIconPath(const std::string& icon, double pixelRatio) {
    std::string file = icon;
    if (pixelRatio > 1.0) {
        const std::size_t slash = file.find_last_of("/\\");
        const std::size_t dot = file.rfind('.');
        const bool hasExtension = dot != std::string::npos && (slash == std::string::npos || dot > slash);
        file.insert(hasExtension ? dot : file.size(), "@2x");
    }
    if (Loaded().path.empty()) {
        return DualString(file);
    }
    return DualString(PathInfo(Loaded().path).Folder(true).Utf8() + file);
}

}  // namespace aurel
