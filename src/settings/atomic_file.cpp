#include "settings/atomic_file.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <string>

namespace aurel {

namespace {

// The permissions the finished file should have: those of the file it replaces, else what a plain
// create would give under the user's umask (mkstemp itself makes the file private).
mode_t TargetMode(const std::string& path) {
    struct stat info;
    if (stat(path.c_str(), &info) == 0) {
        return info.st_mode & 07777;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

}  // namespace

bool WriteFileAtomically(const DualString& path, const std::function<bool(BinStream&)>& write) {
    std::string temp = path.Utf8() + ".XXXXXX";
    const int fd = mkstemp(temp.data());
    if (fd < 0) {
        return false;
    }
    const bool modeSet = fchmod(fd, TargetMode(path.Utf8())) == 0;
    close(fd);

    bool ok = modeSet;
    if (ok) {
        FileStream stream;
        ok = OpenBinStream(stream, DualString(temp), 0) && write(stream) && stream.Sync() &&
             CloseBinStream(stream);
    }
    ok = ok && std::rename(temp.c_str(), path.c_str()) == 0;
    if (!ok) {
        std::remove(temp.c_str());
    }
    return ok;
}

}  // namespace aurel
