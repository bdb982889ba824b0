#pragma once
// Circles, discs and rounded rectangles, anti-aliased by coverage. A pixel is centred on its integer
// coordinates, so a circle about whole numbers sits symmetrically on the pixel grid.

#include "base/color32.h"
#include "bitmap/bitmap.h"

namespace aurel {

// An outline one pixel wide, at the colour's alpha. The small radii 1.5 to 4 in half steps are stamped from
// coverage masks made once.
void DrawCircle(IBitmap& target, float cx, float cy, float radius, Color32 colour);

// A disc, at the colour's alpha.
void FillCircle(IBitmap& target, float cx, float cy, float radius, Color32 colour);

// A rectangle outline with quarter-circle corners, at an opacity. The radius is held to half the width and
// half the height and rounded down; below 2 the plain outline of the truncated rectangle is drawn.
void DrawRoundRect(IBitmap& target, float x, float y, float w, float h, float radius, Color32 colour,
                   float opacity, bool antiAlias);

}  // namespace aurel
