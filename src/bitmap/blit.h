#pragma once
// Scaled copies between bitmaps, nearest neighbour, and the two-by-two reduction used for thumbnails.

#include "bitmap/bitmap.h"

namespace aurel {

// Copies the source rectangle (sx, sy, sw, sh) onto the destination rectangle (dx, dy, dw, dh), scaling by
// nearest neighbour. At opacity exactly 1 with keepAlpha the destination's alpha stays and the source is
// laid over it; otherwise the source is laid over at the opacity and the alpha moves toward the source's.
// A negative destination width or height mirrors the copy: the source is read from its far side.
void Blit(const IBitmap& source, float sx, float sy, float sw, float sh, IBitmap& target, int dx, int dy,
          int dw, int dh, float opacity, bool keepAlpha);

// Each destination pixel becomes the sum of the quarters (word >> 2 & 0x3F3F3F3F) of a two by two block of
// the source; the destination's size is capped to half the source's.
void Halve(IBitmap& target, const IBitmap& source);

}  // namespace aurel
