#pragma once
// The pin dots of a workspace frame: a filled circle with an outline, a smaller lock dot inside an
// IK-locked pin, and a large ring round every root of a tree.

#include <vector>

#include "base/color32.h"
#include "bitmap/image_surface.h"

namespace kovra {

struct PinDot {
    float x = 0.0f;  // client pixels
    float y = 0.0f;
    bool dot = true;  // false: only the root ring is drawn
    aurel::Color32 colour;
    float radius = 0.0f;
    bool locked = false;
    bool root = false;
};

struct PinLayer {
    std::vector<PinDot> pins;
    aurel::Color32 outline;
    aurel::Color32 lockColour;
    aurel::Color32 rootColour;
    float rootRadius = 0.0f;
};

void PaintPins(aurel::ImageSurface& target, const PinLayer& layer);

}  // namespace kovra
