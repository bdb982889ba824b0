#include "gui/gradient.h"

#include <algorithm>

namespace kestrel2::win {

aurel::Color32 MixColour(aurel::Color32 from, aurel::Color32 to, int step, int steps) {
    const int span = std::max(1, steps);
    auto mix = [&](std::uint8_t a, std::uint8_t b) {
        return static_cast<std::uint8_t>(a + (static_cast<int>(b) - a) * step / span);
    };
    return aurel::Color32(mix(from.R(), to.R()), mix(from.G(), to.G()), mix(from.B(), to.B()),
                          mix(from.A(), to.A()));
}

void FillGradientH(aurel::ImageSurface& target, int left, int top, int right, int bottom, aurel::Color32 from,
                   aurel::Color32 to) {
    for (int x = left; x <= right; ++x) {
        target.FillRect(x, top, x, bottom, MixColour(from, to, x - left, right - left));
    }
}

void FillGradientV(aurel::ImageSurface& target, int left, int top, int right, int bottom, aurel::Color32 from,
                   aurel::Color32 to) {
    for (int y = top; y <= bottom; ++y) {
        target.FillRect(left, y, right, y, MixColour(from, to, y - top, bottom - top));
    }
}

}  // namespace kestrel2::win
