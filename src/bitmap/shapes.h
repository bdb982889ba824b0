#pragma once
// Filled and outlined shapes drawn with a colour word, at the opacity of its alpha byte unless an opacity
// is given. Everything is clipped to the bitmap.

#include "base/color32.h"
#include "bitmap/bitmap.h"

namespace aurel {

// Writes the word to every pixel, alpha included.
void Clear(IBitmap& target, Color32 colour);

// Fills the pixels from left to right and top to bottom, all four edges included.
void FillRect(IBitmap& target, int left, int top, int right, int bottom, Color32 colour);

// The outline of the same rectangle as four plain lines through the corners (left, top) and (right + 1,
// bottom + 1): the right and bottom lines lie just outside what FillRect covers.
void DrawRect(IBitmap& target, int left, int top, int right, int bottom, Color32 colour);

// Fills the pixels whose centres lie inside the triangle, at an opacity. Pixel (i, j) is centred on
// (i + 0.5, j + 0.5), and an edge owns the pixels on its left and top sides only, so triangles that share
// an edge never cover a pixel twice.
void FillTriangle(IBitmap& target, float x1, float y1, float x2, float y2, float x3, float y3, Color32 colour,
                  float opacity);

}  // namespace aurel
