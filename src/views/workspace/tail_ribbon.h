#pragma once
// A tail drawn as one textured ribbon: a Catmull-Rom curve through the pins of the tail chain, widened
// to the texture's height, the texture's width running along it. Where the ribbon folds over itself the
// two long edges of a quad cross; such a quad is split at the crossing into two pieces, each with its
// own stretch of the texture, so that no piece is a bow tie.

#include <vector>

#include "doc/pin_tree.h"
#include "views/workspace/paint_skins.h"

namespace kovra {

// Room for the control points and curve points of the longest tail.
constexpr int kTailMaxControl = 66;
constexpr int kTailMaxLine = 448;
constexpr int kTailStepsPerSegment = 7;

struct TailRibbon {
    // Client pixels from the tail's tip to the pin that ends the chain, each end given twice.
    std::vector<PinPoint> control;
    // The pins along the chain, tip first; a stretch of eight curve points belongs to each in turn.
    std::vector<int> owners;
    float width = 0.0f;  // pixels across
    // The texture rectangle.
    float textureX = 0.0f;
    float textureY = 0.0f;
    float textureWidth = 0.0f;
    float textureHeight = 0.0f;
};

// The curve's points: 7 a segment between the doubled ends, then the last control point.
std::vector<PinPoint> TailCurve(const std::vector<PinPoint>& control);

// Appends the ribbon's pieces, each a copy of `style` with its own corners, texture corners and pick
// value (the owner of its stretch).
void AppendTailRibbon(const TailRibbon& tail, const SkinPiece& style, std::vector<SkinPiece>& out);

}  // namespace kovra
