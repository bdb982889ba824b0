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
        const bool pickNow = piece.pickPass == kPickFirst;
        // The pick buffer is another bitmap, so its flags may be written in the picture's pass.
        if (piece.draw && pickNow) {
            aurel::DrawQuadMappedWithMask(source, piece.source, dest, pickBits, piece.corners, piece.opacity,
                                          piece.pickValue);
        } else if (piece.draw) {
            aurel::DrawQuadMapped(source, piece.source, dest, piece.corners, piece.opacity, aurel::Color32());
        } else if (pickNow) {
            aurel::DrawQuadMappedMask(source, piece.source, pickBits, piece.corners, piece.pickValue);
        }
        if (piece.fillCollision) {
            const auto& c = piece.corners;
            const float opacity = static_cast<float>(piece.collision.A()) / 255.0f;
            target.FillTriangle(c[0], c[1], c[2], c[3], c[4], c[5], piece.collision, opacity);
            target.FillTriangle(c[0], c[1], c[4], c[5], c[6], c[7], piece.collision, opacity);
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
