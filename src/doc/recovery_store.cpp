#include "doc/recovery_store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include "settings/atomic_file.h"
#include "settings/folders.h"
#include "settings/path_info.h"

namespace kovra {

namespace {

namespace fs = std::filesystem;

std::string NewSession() {
    static std::mt19937 random(std::random_device{}());
    return "session-" + std::to_string(getpid()) + "-" + std::to_string(random() % 1000000);
}

// Whether a session still holds the lock file `lock`; a missing lock file is held by nobody.
bool IsHeld(const fs::path& lock) {
    const int fd = open(lock.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (fd < 0) {
        return false;
    }
    const bool held = flock(fd, LOCK_SH | LOCK_NB) != 0;
    close(fd);
    return held;
}

std::string ReadText(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

std::string RecoveryFolder() {
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state && *state) {
        return (fs::path(state) / "Kovra" / "recovery").string();
    }
    const char* home = std::getenv("HOME");
    return (fs::path(home ? home : ".") / ".local" / "state" / "Kovra" / "recovery").string();
}

RecoveryStore::RecoveryStore(std::string folder) : folder_(std::move(folder)), session_(NewSession()) {}

RecoveryStore::~RecoveryStore() {
    if (lock_ >= 0) {
        close(lock_);
    }
}

std::string RecoveryStore::File(const std::string& extension) const {
    return (fs::path(folder_) / (session_ + extension)).string();
}

bool RecoveryStore::Write(const WirrelDoc& doc, aurel::Prompt& window, std::string* why) {
    if (lock_ < 0) {
        if (!aurel::EnsureFolder(folder_)) {
            if (why) {
                *why = "cannot create the folder " + folder_;
            }
            return false;
        }
        lock_ = open(File(".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (lock_ >= 0) {
            flock(lock_, LOCK_EX);
        }
    }
    const std::string original = doc.hasPath ? doc.path.Utf8() : std::string();
    return aurel::WriteFileAtomically(
               File(".path"),
               [&original](aurel::BinStream& s) { return s.Write(original.size(), original.data()); }, why) &&
           doc.SaveCopy(File(".ske"), window, why);
}

void RecoveryStore::Remove() {
    std::error_code ignored;
    for (const char* extension : {".ske", ".path", ".lock"}) {
        fs::remove(File(extension), ignored);
    }
    if (lock_ >= 0) {
        close(lock_);
        lock_ = -1;
    }
}

std::vector<RecoveryCopy> RecoveryStore::Leftovers() const {
    std::vector<std::pair<fs::file_time_type, RecoveryCopy>> found;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_, error)) {
        const fs::path copy = entry.path();
        if (copy.extension() != ".ske" || !entry.is_regular_file(error)) {
            continue;
        }
        fs::path lock = copy;
        lock.replace_extension(".lock");
        if (IsHeld(lock)) {
            continue;  // a session that is still running
        }
        fs::path path = copy;
        path.replace_extension(".path");
        found.push_back({entry.last_write_time(error), RecoveryCopy{copy.string(), ReadText(path)}});
    }
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<RecoveryCopy> copies;
    for (auto& [time, copy] : found) {
        copies.push_back(std::move(copy));
    }
    return copies;
}

bool RecoveryStore::Restore(const RecoveryCopy& copy, WirrelDoc& doc, aurel::Prompt& window,
                            std::vector<WirrelImageRecord>& imagesOut) {
    if (!doc.Load(copy.file, window, imagesOut, true)) {
        return false;
    }
    // The background path is kept as the copy holds it, relative to the copy: make it absolute, since
    // the document no longer lives there.
    if (!doc.background.path.empty() && aurel::IsRelative(doc.background.path)) {
        doc.background.path =
            aurel::Normalise(aurel::PathInfo(copy.file).Folder(true).Utf8() + doc.background.path.Utf8());
    }
    doc.hasPath = !copy.originalPath.empty();
    doc.path = copy.originalPath;
    return true;
}

void RecoveryStore::Discard(const RecoveryCopy& copy) {
    std::error_code ignored;
    for (const char* extension : {".ske", ".path", ".lock"}) {
        fs::path file = copy.file;
        fs::remove(file.replace_extension(extension), ignored);
    }
}

}  // namespace kovra
