#include "settings/bin_stream.h"

#include <unistd.h>

#include <cstring>

namespace aurel {

FileStream::~FileStream() { CloseBinStream(*this); }

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

std::int64_t FileStream::Tell() { return file_ ? ftello(file_) : -1; }

bool FileStream::Sync() { return file_ && std::fflush(file_) == 0 && fsync(fileno(file_)) == 0; }

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

bool OpenBinReader(FileStream& stream, const DualString& path) {
    if (path.Utf16().size() > 2048) {
        CloseBinStream(stream);
        return false;
    }
    return OpenBinStream(stream, path, 2);
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
