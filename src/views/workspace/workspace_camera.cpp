#include "views/workspace/workspace_camera.h"

namespace kovra {

ScreenMapping ScreenMapping::Of(const ViewTransform& view) {
    const auto width = static_cast<float>(view.clientWidth);
    const auto height = static_cast<float>(view.clientHeight);
    ScreenMapping m;
    m.ppuX = view.zoom * width / view.viewWidth;
    m.ppuY = view.zoom * height / view.viewHeight;
    m.originX = -view.cameraX * m.ppuX + width * 0.5f;
    m.originY = -view.cameraY * m.ppuY + height * 0.5f;
    return m;
}

float WorldX(const ViewTransform& view, float pixelX) {
    const auto width = static_cast<float>(view.clientWidth);
    return (pixelX - width * 0.5f) * (view.viewWidth / width / view.zoom) + view.cameraX;
}

float WorldY(const ViewTransform& view, float pixelY) {
    const auto height = static_cast<float>(view.clientHeight);
    return (pixelY - height * 0.5f) * (view.viewHeight / height / view.zoom) + view.cameraY;
}

namespace {

// Keeps the visible span [camera - half, camera + half] inside [low, high], or centres it when it is
// wider than that.
float ClampAxis(float camera, float span, float zoom, float low, float high) {
    const float half = span * 0.5f / zoom;
    if (2.0f * half > high - low) {
        return (low + high) * 0.5f;
    }
    if (camera - half < low) {
        camera = low + half;
    }
    if (camera + half > high) {
        camera = high - half;
    }
    return camera;
}

}  // namespace

void ClampCamera(ViewTransform& view, const CameraLimits& limits) {
    if (limits.minZoom > view.zoom) {
        view.zoom = limits.minZoom;
    }
    view.cameraX = ClampAxis(view.cameraX, view.viewWidth, view.zoom, limits.minX, limits.maxX);
    view.cameraY = ClampAxis(view.cameraY, view.viewHeight, view.zoom, limits.minY, limits.maxY);
}

void Pan(ViewTransform& view, const CameraLimits& limits, float dxPixels, float dyPixels) {
    view.cameraX -= view.viewWidth / (static_cast<float>(view.clientWidth) * view.zoom) * dxPixels;
    view.cameraY -= view.viewHeight / (static_cast<float>(view.clientHeight) * view.zoom) * dyPixels;
    ClampCamera(view, limits);
}

void SetCamera(ViewTransform& view, const CameraLimits& limits, float x, float y) {
    view.cameraX = x;
    view.cameraY = y;
    ClampCamera(view, limits);
}

float WheelZoomDelta(float zoom, int dy) {
    const float step = zoom * 0.1f;
    return dy < 0 ? step : -step;
}

void AddZoom(ViewTransform& view, const CameraLimits& limits, float delta) {
    view.zoom += delta;
    ClampCamera(view, limits);
}

void ResetView(ViewTransform& view, const CameraLimits& limits) {
    view.zoom = 1.0f;
    SetCamera(view, limits, 0.0f, 0.0f);
}

void ResizeView(ViewTransform& view, int width, int height) {
    if (width == 0 || height == 0) {
        return;
    }
    if (view.clientWidth != 0 && view.clientHeight != 0) {
        view.viewWidth *= static_cast<float>(width) / static_cast<float>(view.clientWidth);
        view.viewHeight *= static_cast<float>(height) / static_cast<float>(view.clientHeight);
    } else {
        view.viewWidth = static_cast<float>(width) * 0.03125f;
        view.viewHeight = static_cast<float>(height) * 0.03125f;
    }
    view.clientWidth = width;
    view.clientHeight = height;
}

}  // namespace kovra
