#pragma once
// The block of memory that holds a device-independent section's pixels: rows of a fixed stride, top row
// first, zeroed when made, 16-byte aligned so that drawing loops can work on aligned groups of pixels.

#include <cstddef>
#include <cstdint>
#include <memory>

namespace aurel {

class DibSection {
public:
    // Makes a block of `rows` rows of `strideBytes` bytes each, replacing the old one. Returns false, with
    // no block, when either is not positive, when the size is beyond what a section can hold (its byte size
    // is a 32-bit quantity) or when memory runs out.
    bool Create(std::int64_t strideBytes, int rows);
    void Destroy() { block_.reset(); }

    std::byte* Bits() const { return block_.get(); }

private:
    struct AlignedDelete {
        void operator()(std::byte* block) const;
    };
    std::unique_ptr<std::byte[], AlignedDelete> block_;
};

}  // namespace aurel
