#include "views/texture/texture_geometry.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kovra {

TexHitRect ScreenRectOf(const ViewTransform& view, const WirrelTexture& texture) {
    const ScreenMapping m = ScreenMapping::Of(view);
    return {m.PixelX(static_cast<float>(texture.x)), m.PixelY(static_cast<float>(texture.y)),
            m.PixelX(static_cast<float>(texture.x + texture.width)),
            m.PixelY(static_cast<float>(texture.y + texture.height))};
}

TexHitRect GripRect(const TexHitRect& body, int grip, int size) {
    const auto nearSide = static_cast<float>(size / 2);
    const float farSide = nearSide + 1.0f;
    const float midX = body.left + (body.right - body.left) / 2.0f - nearSide;
    const float midY = body.top + (body.bottom - body.top) / 2.0f - nearSide;
    const float leftX = body.left - nearSide;
    const float rightX = body.right - farSide;
    const float topY = body.top - nearSide;
    const float bottomY = body.bottom - farSide;
    // By grip: top, bottom, right, left, then the corners top left, top right, bottom left, bottom right.
    const std::array<float, kGripMove> xs{midX, midX, rightX, leftX, leftX, rightX, leftX, rightX};
    const std::array<float, kGripMove> ys{topY, bottomY, midY, midY, topY, topY, bottomY, bottomY};
    const float x = xs[static_cast<std::size_t>(grip)];
    const float y = ys[static_cast<std::size_t>(grip)];
    const auto extent = static_cast<float>(size - 1);
    return {x, y, x + extent, y + extent};
}

void RebuildHitRects(TextureViewState& state, const WirrelDoc& document, const SelectionTracker& selection,
                     int gripSize) {
    const auto& textures = document.Wirrel().textures;
    const int count = static_cast<int>(textures.size());
    const int current = selection.currentItem;
    state.hitRects.assign(kHitOthers, TexHitRect{});
    if (current >= 0 && current < count && textures[current].imageIndex == state.imageIndex) {
        const TexHitRect body = ScreenRectOf(state.view, textures[current]);
        for (int grip = 0; grip < kHitBody; ++grip) {
            state.hitRects[grip] = GripRect(body, grip, gripSize);
        }
        state.hitRects[kHitBody] = body;
    }
    for (int i = 0; i < count; ++i) {
        if (i != current) {
            state.hitRects.push_back(textures[i].imageIndex == state.imageIndex
                                         ? ScreenRectOf(state.view, textures[i])
                                         : TexHitRect{});
        }
    }
}

int HitIndex(const std::vector<TexHitRect>& rects, int x, int y) {
    for (std::size_t i = 0; i < rects.size(); ++i) {
        if (rects[i].Holds(static_cast<float>(x), static_cast<float>(y))) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

int RectToTexture(int index, int currentItem) {
    if (index == -1) {
        return -1;
    }
    if (index < kHitOthers) {
        return currentItem;
    }
    if (currentItem != -1 && index >= currentItem + kHitOthers) {
        return index - (kHitOthers - 1);
    }
    return index - kHitOthers;
}

TexRect ScreenToImageRect(const ViewTransform& view, int ax, int ay, int bx, int by, int width, int height) {
    float left = WorldX(view, static_cast<float>(ax)) - 0.01f;
    float top = WorldY(view, static_cast<float>(ay)) - 0.01f;
    float right = WorldX(view, static_cast<float>(bx));
    float bottom = WorldY(view, static_cast<float>(by));
    if (right < left) {
        std::swap(left, right);
    }
    if (bottom < top) {
        std::swap(top, bottom);
    }
    const auto w = static_cast<float>(width);
    const auto h = static_cast<float>(height);
    left = std::clamp(left, 0.0f, w - 1.0f);
    top = std::clamp(top, 0.0f, h - 1.0f);
    right = std::clamp(right, 1.0f, w) - 0.01f + 1.0f;
    bottom = std::clamp(bottom, 1.0f, h) - 0.01f + 1.0f;
    TexRect rect{static_cast<int>(left), static_cast<int>(top), static_cast<int>(right),
                 static_cast<int>(bottom)};
    // Two points within a hundredth of a pixel of each other still make one pixel.
    rect.right = std::max(rect.right, rect.left + 1);
    rect.bottom = std::max(rect.bottom, rect.top + 1);
    return rect;
}

}  // namespace kovra
