#pragma once
// The first layer of a workspace frame: the whole buffer in the working background colour, then the
// document's reference picture, scaled about its centre at its opacity.

#include "bitmap/image_surface.h"

namespace kovra {

struct BackgroundLayer {
    aurel::Color32 fill;
    const aurel::ImageSurface* image = nullptr;  // none when the picture is off or missing
    float centreX = 0.0f;                        // pixels
    float centreY = 0.0f;
    float halfWidth = 0.0f;
    float halfHeight = 0.0f;
    float opacity = 1.0f;
};

void PaintBackground(aurel::ImageSurface& target, const BackgroundLayer& layer);

}  // namespace kovra
