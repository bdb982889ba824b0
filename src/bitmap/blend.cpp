#include "bitmap/blend.h"

#include <algorithm>

namespace aurel {

void FillSpan(std::uint32_t* pixels, int count, std::uint32_t colour, int k) {
    using namespace blend;
    std::uint32_t* end = pixels + std::max(count, 0);
    switch (k) {
        case 0:
            return;
        case 256:
            std::fill(pixels, end, colour);
            return;
        case 128:
            std::transform(pixels, end, pixels, [c = Half(colour)](std::uint32_t p) { return Half(p) + c; });
            return;
        case 64:
            std::transform(pixels, end, pixels,
                           [c = Quarter(colour)](std::uint32_t p) { return Half(p) + Quarter(p) + c; });
            return;
        case 192:
            std::transform(pixels, end, pixels,
                           [c = Quarter(colour) + Half(colour)](std::uint32_t p) { return Quarter(p) + c; });
            return;
        default:
            std::transform(pixels, end, pixels, [&](std::uint32_t p) { return FillBytes(p, colour, k); });
    }
}

}  // namespace aurel
