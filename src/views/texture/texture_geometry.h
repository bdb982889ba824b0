#pragma once
// Where the texture view's things lie on its pixels: the textures' rectangles, the eight grips and the
// body of the current one, and the way back from two client points to a rectangle of image pixels. The
// rectangles that are painted are these, and hover tests these, so the two never disagree.

#include <vector>

#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "views/texture/texture_view_state.h"

namespace kovra {

// The screen rectangle of a texture: left and top where its first pixel starts, right and bottom where
// the pixel after its last starts.
TexHitRect ScreenRectOf(const ViewTransform& view, const WirrelTexture& texture);

// Grip `grip` (0 to 7, no other) of a texture's screen rectangle, `size` pixels wide and high: those of the
// top and left sit on the first pixel row or column, those of the bottom and right on the last.
TexHitRect GripRect(const TexHitRect& body, int grip, int size);

// Lays out state.hitRects for the image on show: the current texture's grips and body (all -1 when it
// isn't on the image), then every other texture, -1 for one on another image.
void RebuildHitRects(TextureViewState& state, const WirrelDoc& document, const SelectionTracker& selection,
                     int gripSize);

// The first rectangle that holds the pixel, edges included, or -1.
int HitIndex(const std::vector<TexHitRect>& rects, int x, int y);

// The texture that hit rectangle `index` stands for.
int RectToTexture(int index, int currentItem);

// The image pixels that two client points span, right and bottom exclusive, kept on a width by height
// image and never empty. The first point is taken a hair up and left, so that a drag that ends on a
// pixel border doesn't take in the next pixel.
TexRect ScreenToImageRect(const ViewTransform& view, int ax, int ay, int bx, int by, int width, int height);

}  // namespace kovra
