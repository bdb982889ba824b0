#pragma once
// Lines. Both end points are drawn; the line is clipped to the bitmap with outcodes first and stepped along
// its major axis. A plain line sets one pixel per step; an anti-aliased one shares the step's multiplier
// between the two pixels nearest to the exact line. On a bitmap stored bottom-up, y counts from the bottom.

#include "base/color32.h"
#include "bitmap/bitmap.h"

namespace aurel {

// The line between two points at multiplier k. Horizontal runs go through FillSpan, so the packed forms
// apply to them.
void StrokeLine(IBitmap& target, double x1, double y1, double x2, double y2, Color32 colour, int k,
                bool antiAlias);

// An anti-aliased line between integer points, at the colour's alpha.
void DrawLine(IBitmap& target, int x1, int y1, int x2, int y2, Color32 colour);

// A line between float points at an opacity; without anti-aliasing the end points are truncated and the
// plain integer line is drawn.
void DrawLineF(IBitmap& target, float x1, float y1, float x2, float y2, Color32 colour, float opacity,
               bool antiAlias);

}  // namespace aurel
