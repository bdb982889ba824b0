#pragma once
// What commands need of the workspace view, as a plain value: zoom, camera, the world units visible at
// zoom 1, the client size in pixels, and the pixel positions of the pins of the evaluated pose.

#include <vector>

namespace kovra {

// A pin's position in pixels relative to the world origin, with its id.
struct PinPixel {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
};

// World units per pixel (sx, sy) and the pixel position of the world origin (ox, oy).
struct ScreenScale {
    float sx = 1.0f;
    float sy = 1.0f;
    float ox = 0.0f;
    float oy = 0.0f;
};

struct ViewTransform {
    float zoom = 1.0f;
    float cameraX = 0.0f;  // world point at the centre of the view
    float cameraY = 0.0f;
    float viewWidth = 0.0f;  // world units visible at zoom 1
    float viewHeight = 0.0f;
    int clientWidth = 0;  // pixels
    int clientHeight = 0;
    std::vector<PinPixel> pinPixels;

    // A view of the given client size at 32 pixels to the world unit.
    static ViewTransform OfClient(int width, int height) {
        return ViewTransform{.viewWidth = static_cast<float>(width) * 0.03125f,
                             .viewHeight = static_cast<float>(height) * 0.03125f,
                             .clientWidth = width,
                             .clientHeight = height,
                             .pinPixels = {}};
    }

    // How the view's pixels relate to world units.
    ScreenScale ScreenToWorld() const {
        const auto pw = static_cast<float>(clientWidth);
        const auto ph = static_cast<float>(clientHeight);
        return ScreenScale{
            .sx = viewWidth / (zoom * pw),
            .sy = viewHeight / (zoom * ph),
            .ox = pw * 0.5f - cameraX * zoom * pw / viewWidth,
            .oy = ph * 0.5f - cameraY * zoom * ph / viewHeight,
        };
    }
};

}  // namespace kovra
