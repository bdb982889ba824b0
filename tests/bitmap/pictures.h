#pragma once
// Small pictures shared by the drawing tests.

#include <cstdint>

#include "bitmap/image_surface.h"

namespace kovra::test {

inline aurel::ImageSurface Filled(int width, int height, std::uint32_t colour) {
    aurel::ImageSurface surface;
    surface.Resize(width, height);
    surface.Clear(colour);
    return surface;
}

// An 8 x 8 texture whose every pixel differs: red grows to the right, green downward; the top two rows are
// clear, the next two half transparent, the rest opaque.
inline aurel::ImageSurface Texture() {
    aurel::ImageSurface texture;
    texture.Resize(8, 8);
    for (int y = 0; y < 8; ++y) {
        const std::uint32_t alpha = y < 2 ? 0x00 : y < 4 ? 0x80 : 0xFF;
        for (int x = 0; x < 8; ++x) {
            texture.Row(y)[x] =
                alpha << 24 | std::uint32_t(32 * x + 16) << 16 | std::uint32_t(32 * y + 16) << 8 | 0xC0;
        }
    }
    return texture;
}

}  // namespace kovra::test
