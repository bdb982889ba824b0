#include "views/workspace/paint_skins.h"

namespace kovra {

std::array<float, 8> RectSource(float x, float y, float width, float height) {
    const float right = x + width - 0.01f;
    const float bottom = y + height - 0.01f;
    return {x, y, right, y, right, bottom, x, bottom};
}

void PaintSkins(aurel::ImageSurface& target, aurel::ImageSurface& pick, const SkinLayer& layer) {
    aurel::WrapperBitmap dest = target.Bitmap();
    aurel::WrapperBitmap pickBits = pick.Bitmap();
    for (const SkinPiece& piece : layer.pieces) {
        const aurel::WrapperBitmap source = piece.image->Bitmap();
        if (piece.draw) {
            aurel::DrawQuadMapped(source, piece.source, dest, piece.corners, piece.opacity, aurel::Color32());
        }
        if (piece.fillCollision) {
            const auto& c = piece.corners;
            const float opacity = static_cast<float>(piece.collision.A()) / 255.0f;
            target.FillTriangle(c[0], c[1], c[2], c[3], c[4], c[5], piece.collision, opacity);
            target.FillTriangle(c[0], c[1], c[4], c[5], c[6], c[7], piece.collision, opacity);
        }
        if (piece.pickPass == kPickFirst) {
            aurel::DrawQuadMappedMask(source, piece.source, pickBits, piece.corners, piece.pickValue);
        }
    }
    for (const SkinPiece& piece : layer.pieces) {
        if (piece.pickPass == kPickSecond) {
            aurel::DrawQuadMappedMask(piece.image->Bitmap(), piece.source, pickBits, piece.corners,
                                      piece.pickValue);
        }
    }
}

}  // namespace kovra
