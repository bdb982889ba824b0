#pragma once
// A soft inner shadow along the four sides of a frame, drawn over everything else: a band of 8 pixels
// (or half the shorter side, if less) that darkens toward the edge. The colour of each side and the
// strength at each depth are tables made once at construction.

#include <array>

#include "bitmap/image_surface.h"

namespace kovra {

class EdgeFade {
public:
    static constexpr int kBand = 8;

    // Side colours in the order left, top, right, bottom; their alpha is the strength at the edge.
    explicit EdgeFade(std::array<aurel::Color32, 4> sides);

    void Draw(aurel::ImageSurface& target) const;

private:
    std::array<aurel::Color32, 4> sides_;
    std::array<int, kBand> strength_{};  // of 256, by depth from the edge
};

}  // namespace kovra
