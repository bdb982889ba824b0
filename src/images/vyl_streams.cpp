#include <cstring>

#include "images/vyl_lib.h"

namespace kovra {

namespace {

int FileRead(void* handle, std::uint32_t count, void* buffer) {
    return static_cast<aurel::BinStream*>(handle)->Read(count, buffer) ? kVylOk : kVylStreamFailed;
}

int FileWrite(void* handle, std::uint32_t count, const void* buffer) {
    return static_cast<aurel::BinStream*>(handle)->Write(count, buffer) ? kVylOk : kVylStreamFailed;
}

int FileSeek(void* handle, std::int64_t offset, int origin) {
    if (offset == 0 && origin == aurel::kSeekCurrent) {
        return kVylOk;
    }
    return static_cast<aurel::BinStream*>(handle)->Seek(offset, origin) ? kVylOk : kVylStreamFailed;
}

int FileTell(void* handle, std::uint64_t& position) {
    const std::int64_t at = static_cast<aurel::BinStream*>(handle)->Tell();
    if (at < 0) {
        return kVylStreamFailed;
    }
    position = static_cast<std::uint64_t>(at);
    return kVylOk;
}

// Whether `count` bytes from the current position stay within the block.
bool Fits(const VylMemoryStream& record, std::uint32_t count) {
    return static_cast<std::uint64_t>(record.position) + count <= record.size;
}

void Advance(VylMemoryStream& record, std::uint32_t count) {
    record.position += count;
    if (record.position > record.highWater) {
        record.highWater = record.position;
    }
}

int MemoryRead(void* handle, std::uint32_t count, void* buffer) {
    auto& record = *static_cast<VylMemoryStream*>(handle);
    if (!Fits(record, count)) {
        return kVylStreamFailed;
    }
    if (count > 0) {
        std::memcpy(buffer, record.data + record.position, count);
    }
    Advance(record, count);
    return kVylOk;
}

int MemoryWrite(void* handle, std::uint32_t count, const void* buffer) {
    auto& record = *static_cast<VylMemoryStream*>(handle);
    if (!Fits(record, count)) {
        return kVylStreamFailed;
    }
    if (count > 0) {
        std::memcpy(record.data + record.position, buffer, count);
    }
    Advance(record, count);
    return kVylOk;
}

int MemorySeek(void* handle, std::int64_t offset, int origin) {
    auto& record = *static_cast<VylMemoryStream*>(handle);
    std::int64_t base = 0;
    if (origin == aurel::kSeekCurrent) {
        base = record.position;
    } else if (origin == aurel::kSeekEnd) {
        base = record.size;
    } else if (origin != aurel::kSeekStart) {
        return kVylStreamFailed;
    }
    const std::int64_t target = base + offset;
    if (target < 0 || target > record.size) {
        return kVylStreamFailed;
    }
    record.position = static_cast<std::uint32_t>(target);
    return kVylOk;
}

int MemoryTell(void* handle, std::uint64_t& position) {
    position = static_cast<VylMemoryStream*>(handle)->position;
    return kVylOk;
}

}  // namespace

VylStream VylFileCallbacks(aurel::BinStream& file) {
    return VylStream{FileRead, FileWrite, FileSeek, FileTell, &file};
}

VylStream VylMemoryCallbacks(VylMemoryStream& record) {
    return VylStream{MemoryRead, MemoryWrite, MemorySeek, MemoryTell, &record};
}

}  // namespace kovra
