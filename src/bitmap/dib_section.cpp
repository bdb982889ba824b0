#include "bitmap/dib_section.h"

#include <cstring>
#include <limits>
#include <new>

namespace aurel {

namespace {
constexpr std::align_val_t kAlignment{16};
}

void DibSection::AlignedDelete::operator()(std::byte* block) const {
    ::operator delete[](block, kAlignment);
}

bool DibSection::Create(std::int64_t strideBytes, int rows) {
    Destroy();
    if (strideBytes <= 0 || rows <= 0) {
        return false;
    }
    if (strideBytes > std::numeric_limits<std::int32_t>::max() / rows) {
        return false;
    }
    const auto bytes = static_cast<std::size_t>(strideBytes * rows);
    auto* block = static_cast<std::byte*>(::operator new[](bytes, kAlignment, std::nothrow));
    if (!block) {
        return false;
    }
    std::memset(block, 0, bytes);
    block_.reset(block);
    return true;
}

}  // namespace aurel
