#include "bitmap/dib_section.h"

#include <cstddef>
#include <cstdlib>
#include <limits>

namespace aurel {

// Rows start 16-byte aligned for the vector loops; calloc gives that much on this platform.
static_assert(alignof(std::max_align_t) >= 16);

void DibSection::AlignedDelete::operator()(std::byte* block) const {
    std::free(block);
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
    // Zeroed by calloc, which skips the writing where fresh memory from the system is zero already.
    auto* block = static_cast<std::byte*>(std::calloc(bytes, 1));
    if (!block) {
        return false;
    }
    block_.reset(block);
    return true;
}

}  // namespace aurel
