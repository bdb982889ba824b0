#include "views/workspace/paint_grid.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace kovra {
namespace {

// More lines than any screen has pixels.
constexpr double kMaxLines = 65536.0;

struct Range {
    double first = 0.0;
    double last = 0.0;
};

// The visible span rounded out to multiples of `step`.
Range RoundOut(float low, float high, double step) {
    return {std::floor(low / step) * step, std::ceil(high / step) * step};
}

void HorizontalLine(const aurel::SurfaceView& view, float y, std::uint32_t colour) {
    const double row = std::floor(y);
    if (row < 0.0 || row >= view.height) {
        return;
    }
    std::uint32_t* bits = view.bits + static_cast<std::ptrdiff_t>(row) * (view.stride / 4);
    for (int x = 0; x < view.width; ++x) {
        bits[x] = colour;
    }
}

void VerticalLine(const aurel::SurfaceView& view, float x, std::uint32_t colour) {
    const double column = std::floor(x);
    if (column < 0.0 || column >= view.width) {
        return;
    }
    std::uint32_t* bits = view.bits + static_cast<std::ptrdiff_t>(column);
    for (int y = 0; y < view.height; ++y) {
        bits[static_cast<std::ptrdiff_t>(y) * (view.stride / 4)] = colour;
    }
}

// Lines from range.first to range.last every `step`; a line on a multiple of `cycle` takes colour B.
template <class Draw>
void Lines(Range range, double step, double cycle, std::uint32_t a, std::uint32_t b, Draw draw) {
    double counter = std::fmod(range.first, cycle);
    if (counter < 0.0) {
        counter += cycle;
    }
    // Counted by index, so that far from the origin, where adding a step may not change a double, the
    // loop still ends.
    const double count = std::min((range.last - range.first) / step, kMaxLines);
    for (double i = 0.0; i <= count; i += 1.0) {
        draw(range.first + i * step, counter == 0.0 ? b : a);
        counter += step;
        if (counter >= cycle) {
            counter -= cycle;
        }
    }
}

std::uint32_t WithAlpha(std::uint32_t colour, std::uint32_t alpha) {
    return (colour & 0x00FFFFFFu) | (alpha << 24);
}

}  // namespace

void PaintGrid(aurel::ImageSurface& target, const GridLayer& layer) {
    const aurel::SurfaceView view = target.View();
    if (view.bits == nullptr) {
        return;
    }
    const double spacing = layer.map.ppuX;
    const double interval = std::max(2, layer.interval);
    if (!(spacing > 0.0)) {
        return;
    }
    double step = 1.0;
    double cycle = interval;
    std::uint32_t a = layer.colour0.argb;
    std::uint32_t b = layer.colour1.argb;
    while (step * spacing < 5.0) {
        step *= interval;
        cycle *= interval;
        std::swap(a, b);
    }
    const double pixels = step * spacing;
    std::uint32_t alpha = a >> 24;
    if (pixels < interval * 5.0 - 5.0) {
        alpha = static_cast<std::uint32_t>((pixels - 5.0) * 255.0 / (interval * 5.0 - 10.0));
        a = WithAlpha(a, alpha);
    }
    const auto horizontal = [&](double w, std::uint32_t c) {
        HorizontalLine(view, layer.map.PixelY(static_cast<float>(w)), c);
    };
    const auto vertical = [&](double w, std::uint32_t c) {
        VerticalLine(view, layer.map.PixelX(static_cast<float>(w)), c);
    };
    Lines(RoundOut(layer.top, layer.bottom, step), step, cycle, a, b, horizontal);
    Lines(RoundOut(layer.left, layer.right, step), step, cycle, a, b, vertical);
    if (alpha != 255) {
        // The coarser level shows through the faded one, so that it doesn't fade with it.
        const double coarse = step * interval;
        const std::uint32_t c = WithAlpha(a, 255 - alpha);
        Lines(RoundOut(layer.top, layer.bottom, coarse), coarse, coarse, c, c, horizontal);
        Lines(RoundOut(layer.left, layer.right, coarse), coarse, coarse, c, c, vertical);
    }
    VerticalLine(view, layer.map.originX, layer.originColour.argb);
    HorizontalLine(view, layer.map.originY, layer.originColour.argb);
}

}  // namespace kovra
