#pragma once
// The skins of a workspace frame: textured quads in the document's z order, each also written into the
// pick buffer with the index of its pin. Picking runs in two passes: the first writes the unselected
// skins, the second the selected ones, so that a selected skin wins the pick over one drawn above it.

#include <array>
#include <cstdint>
#include <vector>

#include "bitmap/image_surface.h"

namespace kovra {

// The pick buffer's value where no skin lies.
constexpr std::uint32_t kPickNothing = 0xFFFFFFFFu;

enum PickPass : int { kPickNone = 0, kPickFirst = 1, kPickSecond = 2 };

// One textured quad: a whole skin, or one piece of a tail ribbon.
struct SkinPiece {
    const aurel::ImageSurface* image = nullptr;
    std::array<float, 8> source{};   // texture corners, in the order of `corners`
    std::array<float, 8> corners{};  // client pixels
    bool draw = true;                // visible in the frame
    float opacity = 1.0f;
    bool fillCollision = false;  // overlays the collision colour as two triangles
    aurel::Color32 collision;
    int pickPass = kPickNone;
    std::uint32_t pickValue = kPickNothing;
};

struct SkinLayer {
    std::vector<SkinPiece> pieces;
};

// The source corners of a texture rectangle, kept 0.01 inside its right and bottom edges so that
// sampling stays within it.
std::array<float, 8> RectSource(float x, float y, float width, float height);

// Draws the pieces into `target` and writes their picks into `pick`, which the caller has filled with
// kPickNothing.
void PaintSkins(aurel::ImageSurface& target, aurel::ImageSurface& pick, const SkinLayer& layer);

}  // namespace kovra
