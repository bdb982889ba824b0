#pragma once
// Small painting helpers shared by the strip and the lanes.

#include <string>

#include "bitmap/image_surface.h"

namespace kovra {

// A vertical gradient over the rows top to bottom, both included.
void FillGradient(aurel::ImageSurface& target, int left, int top, int right, int bottom, aurel::Color32 from,
                  aurel::Color32 to);

// The ruler's label of cell c at `rate` cells a second: the second, then the cell within it counted from
// 1, padded to two digits when a second has ten cells or more ("1:01").
std::string CellLabel(int cell, int rate);

}  // namespace kovra
