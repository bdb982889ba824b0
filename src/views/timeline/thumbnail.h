#pragma once
// A key frame's pose drawn small, as the timeline's cells show it: every shown bone as a line from its
// parent, scaled so that the bounds given fit the box.

#include "bitmap/image_surface.h"
#include "doc/wirrel.h"

namespace kovra {

struct PoseBounds {
    float left = 0.0f;
    float top = 0.0f;
    float right = 0.0f;
    float bottom = 0.0f;
};

// Bounds round every pin of all the frames, so that thumbnails of one animation share a scale.
PoseBounds BoundsOfFrames(const std::vector<WirrelKey>& frames);

void DrawThumbnail(aurel::ImageSurface& target, const std::vector<WirrelPin>& pins, const PoseBounds& bounds,
                   int left, int top, int right, int bottom, aurel::Color32 colour);

}  // namespace kovra
