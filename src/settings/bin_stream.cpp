#include "settings/bin_stream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace aurel {

FileStream::~FileStream() {
    CloseBinStream(*this);
}

bool FileStream::Read(std::size_t size, void* buffer) {
    return file_ && std::fread(buffer, 1, size, file_) == size;
}

bool FileStream::Write(std::size_t size, const void* buffer) {
    return file_ && std::fwrite(buffer, 1, size, file_) == size;
}

bool FileStream::Seek(std::int64_t offset, int mode) {
    static constexpr int kWhence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    return file_ && mode >= 0 && mode <= 2 && fseeko(file_, offset, kWhence[mode]) == 0;
}

std::int64_t FileStream::Tell() {
    return file_ ? ftello(file_) : -1;
}

std::int64_t FileStream::Size() const {
    struct stat info;
    return file_ && fstat(fileno(file_), &info) == 0 ? static_cast<std::int64_t>(info.st_size) : -1;
}

bool FileStream::Sync() {
    return file_ && std::fflush(file_) == 0 && fsync(fileno(file_)) == 0;
}

bool MemoryStream::Read(std::size_t size, void* buffer) {
    const std::size_t available = pos_ < bytes_.size() ? bytes_.size() - pos_ : 0;
    const std::size_t n = size < available ? size : available;
    if (n > 0) {
        std::memcpy(buffer, bytes_.data() + pos_, n);
    }
    pos_ += n;
    return n == size;
}

bool MemoryStream::Write(std::size_t size, const void* buffer) {
    if (pos_ + size > bytes_.size()) {
        bytes_.resize(pos_ + size);
    }
    if (size > 0) {
        std::memcpy(bytes_.data() + pos_, buffer, size);
    }
    pos_ += size;
    return true;
}

bool MemoryStream::Seek(std::int64_t offset, int mode) {
    std::int64_t base = 0;
    if (mode == kSeekCurrent) {
        base = static_cast<std::int64_t>(pos_);
    } else if (mode == kSeekEnd) {
        base = static_cast<std::int64_t>(bytes_.size());
    } else if (mode != kSeekStart) {
        return false;
    }
    if (base + offset < 0) {
        return false;
    }
    pos_ = static_cast<std::size_t>(base + offset);
    return true;
}

bool OpenBinStream(FileStream& stream, const DualString& path, int mode) {
    CloseBinStream(stream);
    const char* name = path.c_str();
    switch (mode) {
        case 0:
            stream.file_ = std::fopen(name, "w+b");
            break;
        case 1:
            stream.file_ = std::fopen(name, "r+b");
            if (!stream.file_) {
                stream.file_ = std::fopen(name, "w+b");
            }
            break;
        case 2:
            stream.file_ = std::fopen(name, "rb");
            break;
        default:
            break;
    }
    return stream.file_ != nullptr;
}

std::string PathLimitMessage() {
    return "the path is longer than the " + std::to_string(kPathLimit) + " characters a path may have";
}

namespace {

const char* NotAFile(mode_t mode) {
    if (S_ISDIR(mode)) {
        return "it is a folder, not a file";
    }
    if (S_ISFIFO(mode)) {
        return "it is a named pipe, not a file";
    }
    if (S_ISCHR(mode) || S_ISBLK(mode)) {
        return "it is a device, not a file";
    }
    return "it is not a regular file";
}

bool Refuse(std::string* why, const std::string& reason) {
    if (why) {
        *why = reason;
    }
    return false;
}

}  // namespace

bool OpenRegularFile(FileStream& stream, const DualString& path, std::string* why) {
    CloseBinStream(stream);
    // Without O_NONBLOCK, opening a pipe would wait for a writer; the flag is dropped once the file is
    // known to be a regular one.
    const int fd = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        return Refuse(why, std::strerror(errno));
    }
    struct stat info {};
    const char* reason = nullptr;
    if (fstat(fd, &info) != 0) {
        reason = std::strerror(errno);
    } else if (!S_ISREG(info.st_mode)) {
        reason = NotAFile(info.st_mode);
    } else {
        const int flags = fcntl(fd, F_GETFL);
        stream.file_ =
            flags >= 0 && fcntl(fd, F_SETFL, flags & ~O_NONBLOCK) == 0 ? fdopen(fd, "rb") : nullptr;
        if (stream.file_) {
            return true;
        }
        reason = std::strerror(errno);
    }
    const std::string text = reason;
    close(fd);
    return Refuse(why, text);
}

bool OpenBinReader(FileStream& stream, const DualString& path, std::string* why) {
    if (path.Utf16().size() > kPathLimit) {
        CloseBinStream(stream);
        return Refuse(why, PathLimitMessage());
    }
    return OpenRegularFile(stream, path, why);
}

bool CloseBinStream(FileStream& stream) {
    if (!stream.file_) {
        return true;
    }
    const bool ok = std::fclose(stream.file_) == 0;
    stream.file_ = nullptr;
    return ok;
}

}  // namespace aurel
