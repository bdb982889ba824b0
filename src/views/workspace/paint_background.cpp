#include "views/workspace/paint_background.h"

#include <cmath>

namespace kovra {

void PaintBackground(aurel::ImageSurface& target, const BackgroundLayer& layer) {
    target.Clear(layer.fill);
    if (layer.image == nullptr || layer.image->IsEmpty()) {
        return;
    }
    const aurel::ImageSurface& image = *layer.image;
    const auto left = static_cast<int>(std::floor(layer.centreX - layer.halfWidth));
    const auto top = static_cast<int>(std::floor(layer.centreY - layer.halfHeight));
    const auto width = static_cast<int>(layer.halfWidth * 2.0f);
    const auto height = static_cast<int>(layer.halfHeight * 2.0f);
    image.Blit(0.0f, 0.0f, static_cast<float>(image.Width()), static_cast<float>(image.Height()), target,
               left, top, width, height, layer.opacity, false);
}

}  // namespace kovra
