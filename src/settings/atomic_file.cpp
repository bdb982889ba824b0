#include "settings/atomic_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <random>
#include <vector>

namespace aurel {

namespace {

constexpr std::string_view kTempPrefix = ".kovra-";
constexpr std::size_t kTempRandom = 6;
constexpr int kLinkHops = 40;  // as many symbolic links as the system follows in one path

// A write-only stream over a file descriptor, unbuffered, that keeps the error of a failed write.
class DescriptorStream : public BinStream {
public:
    explicit DescriptorStream(int fd) : fd_(fd) {}

    bool Read(std::size_t, void*) override { return false; }
    bool Write(std::size_t size, const void* buffer) override {
        const auto* bytes = static_cast<const char*>(buffer);
        while (size > 0) {
            const ssize_t written = ::write(fd_, bytes, size);
            if (written < 0 && errno == EINTR) {
                continue;
            }
            if (written <= 0) {
                error = written < 0 ? errno : ENOSPC;
                return false;
            }
            bytes += written;
            size -= static_cast<std::size_t>(written);
        }
        return true;
    }
    bool Seek(std::int64_t offset, int mode) override {
        static constexpr int kWhence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
        return mode >= 0 && mode <= 2 && lseek(fd_, offset, kWhence[mode]) >= 0;
    }
    std::int64_t Tell() override { return lseek(fd_, 0, SEEK_CUR); }

    int error = 0;

private:
    int fd_;
};

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) {
        return ".";
    }
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Follows symbolic links from `path` to the file they finally name, which may not exist yet.
bool FollowLinks(std::string& path, int& error) {
    for (int hop = 0;; ++hop) {
        struct stat info {};
        if (lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) {
            return true;
        }
        if (hop == kLinkHops) {
            error = ELOOP;
            return false;
        }
        std::vector<char> target(static_cast<std::size_t>(info.st_size) + 256);
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0) {
            error = errno;
            return false;
        }
        const std::string link(target.data(), static_cast<std::size_t>(length));
        path = link.starts_with('/') ? link : FolderOf(path) + "/" + link;
    }
}

std::string TemporaryName(const std::string& folder) {
    static constexpr char kLetters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    static std::mt19937 random(std::random_device{}());
    std::string name = folder + "/" + std::string(kTempPrefix);
    for (std::size_t i = 0; i < kTempRandom; ++i) {
        name += kLetters[random() % (sizeof kLetters - 1)];
    }
    return name;
}

// The permissions the finished file should have: those of the file it replaces, else what a plain
// create would give under the user's umask.
mode_t TargetMode(const std::string& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) == 0) {
        return info.st_mode & 07777;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// Removes the temporary files that killed saves left in `folder`. A save holds a lock on its temporary
// file while it lives, so one whose lock can be taken was left behind.
void RemoveLeftovers(const std::string& folder) {
    DIR* dir = opendir(folder.c_str());
    if (!dir) {
        return;
    }
    while (const dirent* entry = readdir(dir)) {
        if (!IsTemporaryName(entry->d_name)) {
            continue;
        }
        const int fd = openat(dirfd(dir), entry->d_name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0) {
            continue;
        }
        struct stat info {};
        if (fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && flock(fd, LOCK_EX | LOCK_NB) == 0) {
            unlinkat(dirfd(dir), entry->d_name, 0);
        }
        close(fd);
    }
    closedir(dir);
}

// Opens a locked temporary file in `folder`: unnamed when allowed and possible (`name` stays empty),
// else under a fresh hidden name. -1 with errno set on failure.
int OpenTemporary(const std::string& folder, TempFiles temps, std::string& name) {
    name.clear();
    int fd = temps == TempFiles::kUnnamedWherePossible
                 ? open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600)
                 : -1;
    while (fd < 0) {
        name = TemporaryName(folder);
        fd = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (fd < 0 && errno != EEXIST) {
            name.clear();
            return -1;
        }
    }
    flock(fd, LOCK_EX);
    return fd;
}

// Gives the unnamed file `fd` a fresh hidden name in `folder`.
bool NameUnnamed(int fd, const std::string& folder, std::string& name) {
    const std::string self = "/proc/self/fd/" + std::to_string(fd);
    for (;;) {
        name = TemporaryName(folder);
        if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
            return true;
        }
        if (errno != EEXIST) {
            name.clear();
            return false;
        }
    }
}

bool Fail(std::string* why, int error) {
    if (why) {
        *why = std::strerror(error);
    }
    return false;
}

}  // namespace

bool IsTemporaryName(const std::string& name) {
    return name.size() == kTempPrefix.size() + kTempRandom && name.starts_with(kTempPrefix);
}

bool WriteFileAtomically(const DualString& path, const std::function<bool(BinStream&)>& write,
                         std::string* why, TempFiles temps) {
    if (path.Utf16().size() > kPathLimit) {
        if (why) {
            *why = PathLimitMessage();
        }
        return false;
    }
    std::string target = path.Utf8();
    int error = 0;
    if (!FollowLinks(target, error)) {
        return Fail(why, error);
    }
    const std::string folder = FolderOf(target);
    RemoveLeftovers(folder);

    std::string temp;
    const int fd = OpenTemporary(folder, temps, temp);
    if (fd < 0) {
        return Fail(why, errno);
    }
    // Each step that fails keeps the system's error; a writer that refuses leaves none to tell.
    const auto step = [&error](bool done) {
        if (!done && error == 0) {
            error = errno;
        }
        return done;
    };
    DescriptorStream stream(fd);
    bool ok = step(fchmod(fd, TargetMode(target)) == 0);
    if (ok && !write(stream)) {
        error = stream.error;
        ok = false;
    }
    ok = ok && step(fsync(fd) == 0) && (!temp.empty() || step(NameUnnamed(fd, folder, temp))) &&
         step(rename(temp.c_str(), target.c_str()) == 0);
    if (!ok && !temp.empty()) {
        unlink(temp.c_str());
    }
    close(fd);
    if (!ok) {
        return error != 0 ? Fail(why, error) : false;
    }
    // The rename lives in the folder: sync it so that the new name is on the disk too. Some file systems
    // can't sync a folder; the file itself is written by then.
    const int dir = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        fsync(dir);
        close(dir);
    }
    return true;
}

}  // namespace aurel
