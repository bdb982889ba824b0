#pragma once
// Gradient fills of the drawn controls: rectangles whose colour moves evenly from one edge to the other.

#include "bitmap/image_surface.h"

namespace kestrel2::win {

// From `from` at the left column to `to` at the right one, edges included.
void FillGradientH(aurel::ImageSurface& target, int left, int top, int right, int bottom, aurel::Color32 from,
                   aurel::Color32 to);
// From `from` at the top row to `to` at the bottom one, edges included.
void FillGradientV(aurel::ImageSurface& target, int left, int top, int right, int bottom, aurel::Color32 from,
                   aurel::Color32 to);

// The colour `step` of `steps` of the way from `from` to `to`, each channel alpha included.
aurel::Color32 MixColour(aurel::Color32 from, aurel::Color32 to, int step, int steps);

}  // namespace kestrel2::win
