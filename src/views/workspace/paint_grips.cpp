#include "views/workspace/paint_grips.h"

#include <cmath>

namespace kovra {
namespace {

constexpr aurel::Color32 kTileGuideColour = 0x4000FF00;

void Line(aurel::ImageSurface& target, float x0, float y0, float x1, float y1, aurel::Color32 colour) {
    target.DrawLineF(x0, y0, x1, y1, colour, 1.0f, false);
}

// One family of lines parallel to `side`, stepped by `step` (the other side), reaching past the client
// area both ways.
void Family(aurel::ImageSurface& target, float ox, float oy, float sideX, float sideY, float stepX,
            float stepY) {
    const float sideLength = std::hypot(sideX, sideY);
    const float stepLength = std::hypot(stepX, stepY);
    if (sideLength < 1.0f || stepLength < 1.0f) {
        return;
    }
    const float reach = 2.0f * static_cast<float>(target.Width() + target.Height());
    const float ux = sideX / sideLength * reach;
    const float uy = sideY / sideLength * reach;
    const int count = static_cast<int>(reach / stepLength) + 1;
    for (int k = -count; k <= count; ++k) {
        const float px = ox + stepX * static_cast<float>(k);
        const float py = oy + stepY * static_cast<float>(k);
        Line(target, px - ux, py - uy, px + ux, py + uy, kTileGuideColour);
    }
}

}  // namespace

void PaintGrips(aurel::ImageSurface& target, const GripLayer& layer) {
    for (const QuadOutline& q : layer.outlines) {
        const auto& c = q.corners;
        aurel::Color32 colour = q.colour;
        if (q.tileGuide) {
            Family(target, c[0], c[1], c[2] - c[0], c[3] - c[1], c[6] - c[0], c[7] - c[1]);
            Family(target, c[0], c[1], c[6] - c[0], c[7] - c[1], c[2] - c[0], c[3] - c[1]);
            colour = kTileGuideColour;
        }
        for (int i = 0; i < 4; ++i) {
            const int j = (i + 1) % 4;
            Line(target, c[2 * i], c[2 * i + 1], c[2 * j], c[2 * j + 1], colour);
        }
    }
    for (const GripDot& g : layer.grips) {
        target.FillCircle(g.x, g.y, g.radius, g.colour);
        // The black ring shares the grip's alpha.
        target.DrawCircle(g.x, g.y, g.radius, g.colour.argb & 0xFF000000u);
    }
}

}  // namespace kovra
