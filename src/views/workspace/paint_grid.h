#pragma once
// The workspace grid: lines every world unit, coarser levels every GridInterval units whose colours
// alternate as the user zooms out, a fade between levels, and the two axes through the world origin.
// Lines are written straight into the pixels, one pixel wide, with no blending: full-view lines every
// few pixels would otherwise dominate the frame.

#include "bitmap/image_surface.h"
#include "views/workspace/workspace_camera.h"

namespace kovra {

struct GridLayer {
    ScreenMapping map;
    // The visible world rectangle.
    float left = 0.0f;
    float top = 0.0f;
    float right = 0.0f;
    float bottom = 0.0f;
    int interval = 4;  // at least 2
    aurel::Color32 colour0;
    aurel::Color32 colour1;
    aurel::Color32 originColour;
};

void PaintGrid(aurel::ImageSurface& target, const GridLayer& layer);

}  // namespace kovra
