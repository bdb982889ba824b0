#pragma once
// Where the world lies on the workspace's pixels, and the camera operations: pan, zoom, centre, and the
// clamps that keep the camera within the world limits. The view shows 32 pixels per world unit at
// zoom 1; a resize shows more of the world and never zooms.

#include <limits>

#include "doc/view_transform.h"

namespace kovra {

// Pixels per world unit and the pixel of the world origin, on each axis.
struct ScreenMapping {
    float ppuX = 32.0f;
    float ppuY = 32.0f;
    float originX = 0.0f;
    float originY = 0.0f;

    static ScreenMapping Of(const ViewTransform& view);
    float PixelX(float worldX) const { return worldX * ppuX + originX; }
    float PixelY(float worldY) const { return worldY * ppuY + originY; }
};

// The world point under a client pixel.
float WorldX(const ViewTransform& view, float pixelX);
float WorldY(const ViewTransform& view, float pixelY);

// The world limits of the visible area and the smallest zoom.
struct CameraLimits {
    float minX = std::numeric_limits<float>::lowest();
    float minY = std::numeric_limits<float>::lowest();
    float maxX = std::numeric_limits<float>::max();
    float maxY = std::numeric_limits<float>::max();
    float minZoom = 1e-05f;
};

void ClampCamera(ViewTransform& view, const CameraLimits& limits);
void Pan(ViewTransform& view, const CameraLimits& limits, float dxPixels, float dyPixels);
void SetCamera(ViewTransform& view, const CameraLimits& limits, float x, float y);
void AddZoom(ViewTransform& view, const CameraLimits& limits, float delta);
// The zoom change of one wheel notch: a tenth of the zoom; the wheel turned forward reports a negative
// dy and zooms in.
float WheelZoomDelta(float zoom, int dy);
// The camera on the world origin at zoom 1.
void ResetView(ViewTransform& view, const CameraLimits& limits);
// A new client size: the world span grows with it. Sizes with a zero side are ignored.
void ResizeView(ViewTransform& view, int width, int height);

}  // namespace kovra
