#pragma once
// Textured quads: a part of a source bitmap mapped onto four destination corners, drawn by a scan converter
// with nearest-neighbour sampling. Corners are given as eight floats, x and y of each corner in turn, in
// the order of a walk round the quad; source corners correspond one to one. A quad is drawn in horizontal
// spans whose sample coordinates step linearly, from the truncated top row of the quad down to, but not
// including, the truncated bottom row, so a quad whose corners all lie on one row draws nothing.

#include <span>

#include "base/color32.h"
#include "bitmap/bitmap.h"

namespace aurel {

using QuadCorners = std::span<const float, 8>;

// Source over destination at an opacity (the destination's alpha kept at exactly 1, moved toward the
// source's otherwise), then, for a tint with alpha above 0, a second pass moving the colour toward the
// tint wherever the source has alpha. An opacity of 0 draws nothing.
void DrawQuadMapped(const IBitmap& source, QuadCorners sourceCorners, IBitmap& target, QuadCorners corners,
                    float opacity, Color32 tint);

// The same from a source rectangle, whose corners are taken 0.01 inside its right and bottom edges so that
// sampling stays within it.
void DrawQuad(const IBitmap& source, float sx, float sy, float sw, float sh, IBitmap& target,
              QuadCorners corners, float opacity, Color32 tint);

// DrawQuadMapped without a tint and DrawQuadMappedMask into `mask` with `flag`, in one scan that reads each
// sample once: a picture and its pick buffer. A mask of another size than the target's takes the two
// calls one after the other; the pixels come out the same either way.
void DrawQuadMappedWithMask(const IBitmap& source, QuadCorners sourceCorners, IBitmap& target, IBitmap& mask,
                            QuadCorners corners, float opacity, Color32 flag);

// Writes the flag word, unblended, wherever the source has alpha. With an index for the flag this fills a
// pick buffer with the index of what was drawn there.
void DrawQuadMappedMask(const IBitmap& source, QuadCorners sourceCorners, IBitmap& target,
                        QuadCorners corners, Color32 flag);
void DrawQuadMask(const IBitmap& source, float sx, float sy, float sw, float sh, IBitmap& target,
                  QuadCorners corners, Color32 flag);

}  // namespace aurel
