#include "views/workspace/paint_labels.h"

#include <algorithm>

namespace kovra {

void PaintCollisionRects(aurel::ImageSurface& target, const std::vector<OutlineRect>& rects) {
    for (const OutlineRect& r : rects) {
        target.DrawRect(r.left, r.top, r.right, r.bottom, r.colour);
    }
}

void PaintTexts(aurel::ImageSurface& target, const std::vector<TextItem>& texts) {
    for (const TextItem& t : texts) {
        target.DrawText(t.text, t.x, t.y, t.width, t.height, t.colour, t.font, t.style);
    }
}

void PaintMarquee(aurel::ImageSurface& target, const MarqueeBox& box) {
    const int left = std::min(box.fromX, box.toX);
    const int right = std::max(box.fromX, box.toX);
    const int top = std::min(box.fromY, box.toY);
    const int bottom = std::max(box.fromY, box.toY);
    target.FillRect(left, top, right, bottom, 0x80808080);
    target.DrawRect(left, top, right, bottom, 0xFF404040);
}

}  // namespace kovra
