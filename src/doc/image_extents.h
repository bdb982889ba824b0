#pragma once
// How far what lies on an image reaches: the largest right edge (x + w) and bottom edge (y + h) of the
// textures on it, or of the textures that skins show from it. A replacement image smaller than that
// would cut them off.

#include "doc/wirrel.h"

namespace kovra {

// Both answer true when anything lies on image `image`; `maxX` and `maxY` start at 0.
bool TextureExtents(const Wirrel& wirrel, int image, int& maxX, int& maxY);
bool SkinExtents(const Wirrel& wirrel, int image, int& maxX, int& maxY);

}  // namespace kovra
