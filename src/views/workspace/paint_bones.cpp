#include "views/workspace/paint_bones.h"

#include <cmath>

namespace kovra {
namespace {

constexpr aurel::Color32 kRubberBandColour = 0xFF0000C0;

struct Normal {
    float x;
    float y;
};

// The normal of the bone, normalised unless it is too short to have a direction.
Normal NormalOf(const BoneLine& bone) {
    Normal n{-(bone.y - bone.parentY), bone.x - bone.parentX};
    const float squared = n.x * n.x + n.y * n.y;
    if (squared > 1e-05f) {
        const float length = std::sqrt(squared);
        n = {n.x / length, n.y / length};
    }
    return n;
}

void Wedge(aurel::ImageSurface& target, const BoneLine& bone, Normal n, float width) {
    const float x0 = bone.parentX - n.x * width * 0.5f;
    const float y0 = bone.parentY - n.y * width * 0.5f;
    const float x1 = bone.parentX + n.x * width * 0.5f;
    const float y1 = bone.parentY + n.y * width * 0.5f;
    for (float offset = 1.0f; offset < width; offset += 1.0f) {
        target.DrawLineF(x0 + n.x * offset, y0 + n.y * offset, bone.x, bone.y, bone.fill, 1.0f, true);
    }
    const aurel::Color32 outline = bone.outline.argb | 0xFF000000u;
    target.DrawLineF(x0, y0, bone.x, bone.y, outline, 1.0f, true);
    target.DrawLineF(x1, y1, bone.x, bone.y, outline, 1.0f, true);
    target.DrawLineF(x0, y0, x1, y1, outline, 1.0f, true);
}

}  // namespace

void PaintBones(aurel::ImageSurface& target, const BoneLayer& layer) {
    for (const BoneLine& bone : layer.bones) {
        const Normal n = NormalOf(bone);
        switch (bone.shape) {
            case BoneShape::Wedge:
                Wedge(target, bone, n, layer.width);
                break;
            case BoneShape::Triple:
                for (float offset : {0.0f, 1.0f, -1.0f}) {
                    target.DrawLineF(bone.parentX + n.x * offset, bone.parentY + n.y * offset,
                                     bone.x + n.x * offset, bone.y + n.y * offset, bone.fill, 1.0f, true);
                }
                break;
            case BoneShape::Line:
                target.DrawLineF(bone.parentX, bone.parentY, bone.x, bone.y, bone.fill, 1.0f, false);
                break;
        }
    }
    if (layer.rubberBand) {
        const RubberBand& band = *layer.rubberBand;
        target.DrawLineF(band.fromX, band.fromY, band.toX, band.toY, kRubberBandColour, 1.0f, false);
    }
}

}  // namespace kovra
