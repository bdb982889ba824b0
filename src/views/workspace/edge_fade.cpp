#include "views/workspace/edge_fade.h"

#include <algorithm>
#include <cstdint>

namespace kovra {
namespace {

// Moves the pixel toward the colour by k of 256, alpha untouched.
std::uint32_t Toward(std::uint32_t pixel, aurel::Color32 colour, int k) {
    std::uint32_t out = pixel & 0xFF000000u;
    for (int shift : {0, 8, 16}) {
        const int p = static_cast<int>(pixel >> shift & 0xFF);
        const int c = static_cast<int>(colour.argb >> shift & 0xFF);
        out |= static_cast<std::uint32_t>(p + ((c - p) * k >> 8)) << shift;
    }
    return out;
}

}  // namespace

EdgeFade::EdgeFade(std::array<aurel::Color32, 4> sides) : sides_(sides) {
    for (int depth = 0; depth < kBand; ++depth) {
        const int left = kBand - depth;
        strength_[depth] = left * left * 256 / (kBand * kBand);
    }
}

void EdgeFade::Draw(aurel::ImageSurface& target) const {
    const int width = target.Width();
    const int height = target.Height();
    const int band = std::min(kBand, std::min(width, height) / 2);
    for (int y = 0; y < height; ++y) {
        std::uint32_t* row = target.Row(y);
        for (int x = 0; x < width; ++x) {
            const std::array<int, 4> depth{x, y, width - 1 - x, height - 1 - y};
            for (int side = 0; side < 4; ++side) {
                if (depth[side] < band) {
                    const int k = strength_[depth[side]] * sides_[side].A() / 255;
                    row[x] = Toward(row[x], sides_[side], k);
                }
            }
            if (x == band && y >= band && y < height - band) {
                x = std::max(x, width - band - 1);
            }
        }
    }
}

}  // namespace kovra
