#include "settings/folders.h"

#include <cstdlib>
#include <filesystem>

namespace aurel {

namespace fs = std::filesystem;

std::string SettingsFolder(const std::string& appName) {
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config && *config) {
        return (fs::path(config) / appName).string();
    }
    const char* home = std::getenv("HOME");
    return (fs::path(home ? home : ".") / ".config" / appName).string();
}

std::string SettingsFilePath(const std::string& appName, const std::string& fileName) {
    return fileName.empty() ? std::string() : (fs::path(SettingsFolder(appName)) / fileName).string();
}

bool EnsureFolder(const std::string& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    return fs::is_directory(folder, error);
}

std::string ProgramFolder() {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    return ProgramFolderOf((error ? fs::current_path(error) : executable.parent_path()).string());
}

std::string ProgramFolderOf(const std::string& executableFolder) {
    std::error_code error;
    const fs::path folder = executableFolder;
    const fs::path chosen = fs::is_directory(folder / "Lang", error) ? folder : folder / ".." / "share" / "kovra";
    return (chosen / "").string();
}

}  // namespace aurel
