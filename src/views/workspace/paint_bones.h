#pragma once
// The bones of a workspace frame: a wedge from the parent to the pin for bones and tails, three thin
// parallel lines for attachments and trackers, one line for orientation pins; then the rubber band of a
// bone being drawn.

#include <optional>
#include <vector>

#include "base/color32.h"
#include "bitmap/image_surface.h"

namespace kovra {

enum class BoneShape { Wedge, Triple, Line };

struct BoneLine {
    BoneShape shape = BoneShape::Wedge;
    float parentX = 0.0f;  // client pixels
    float parentY = 0.0f;
    float x = 0.0f;
    float y = 0.0f;
    aurel::Color32 fill;     // the lines' colour for the other shapes
    aurel::Color32 outline;  // wedges only
};

struct RubberBand {
    float fromX = 0.0f;
    float fromY = 0.0f;
    float toX = 0.0f;
    float toY = 0.0f;
};

struct BoneLayer {
    std::vector<BoneLine> bones;
    float width = 8.0f;  // the wedge's base, pixels
    std::optional<RubberBand> rubberBand;
};

void PaintBones(aurel::ImageSurface& target, const BoneLayer& layer);

}  // namespace kovra
