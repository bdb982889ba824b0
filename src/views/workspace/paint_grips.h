#pragma once
// What Build mode draws over the skins of the selected pins: the outline of each skin quad, the guide
// lines of the tile tool, and the grips that the mouse takes hold of.

#include <array>
#include <vector>

#include "base/color32.h"
#include "bitmap/image_surface.h"

namespace kovra {

struct QuadOutline {
    std::array<float, 8> corners{};  // client pixels, c0 to c3
    aurel::Color32 colour;
    bool tileGuide = false;  // lines along both sides every side length, over twice the client size
};

struct GripDot {
    float x = 0.0f;
    float y = 0.0f;
    float radius = 0.0f;
    aurel::Color32 colour;
};

struct GripLayer {
    std::vector<QuadOutline> outlines;
    std::vector<GripDot> grips;
};

void PaintGrips(aurel::ImageSurface& target, const GripLayer& layer);

}  // namespace kovra
