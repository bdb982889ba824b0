#pragma once
// The flat marks over a workspace frame: collision rectangle outlines, the texts (pin names, pose
// read-outs, the mouse position, events) and the rectangle of a marquee selection.

#include <optional>
#include <string>
#include <vector>

#include "bitmap/image_surface.h"

namespace kovra {

struct OutlineRect {
    int left = 0;  // client pixels
    int top = 0;
    int right = 0;
    int bottom = 0;
    aurel::Color32 colour;
};

struct TextItem {
    std::string text;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    aurel::Color32 colour;
    aurel::TextFont font;
    aurel::TextStyle style;
};

struct MarqueeBox {
    int fromX = 0;
    int fromY = 0;
    int toX = 0;
    int toY = 0;
};

void PaintCollisionRects(aurel::ImageSurface& target, const std::vector<OutlineRect>& rects);
void PaintTexts(aurel::ImageSurface& target, const std::vector<TextItem>& texts);
// A translucent grey box with a dark outline between the two corners, in either order.
void PaintMarquee(aurel::ImageSurface& target, const MarqueeBox& box);

}  // namespace kovra
