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

    // Pixels of one world unit.
    float PpuX() const { return zoom * static_cast<float>(clientWidth) / viewWidth; }
    float PpuY() const { return zoom * static_cast<float>(clientHeight) / viewHeight; }
    // The pixel of the world origin.
    float OriginX() const { return -cameraX * PpuX() + static_cast<float>(clientWidth) * 0.5f; }
    float OriginY() const { return -cameraY * PpuY() + static_cast<float>(clientHeight) * 0.5f; }
};

}  // namespace kovra
