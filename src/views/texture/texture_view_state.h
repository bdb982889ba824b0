#pragma once
// Everything the texture view knows between events: the gesture flags, the mouse and the press, the
// auto-scroll push, the camera over the image's pixels, and the rectangles that the last paint laid out
// and that hover reads. Painting and input both read it; nothing in it is a window.

#include <vector>

#include "doc/view_transform.h"
#include "textures/texture_commands.h"
#include "views/workspace/workspace_camera.h"

namespace kovra {

// A rectangle of client pixels, edges included; all -1 for an entry that shows nothing.
struct TexHitRect {
    float left = -1.0f;
    float top = -1.0f;
    float right = -1.0f;
    float bottom = -1.0f;

    bool IsNone() const { return left == -1.0f && top == -1.0f && right == -1.0f && bottom == -1.0f; }
    bool Holds(float x, float y) const {
        return !IsNone() && x >= left && x <= right && y >= top && y <= bottom;
    }
};

// Entries 0 to 7 of the hit rectangles are the current texture's grips, 8 its body; the other textures
// follow from kHitOthers on.
inline constexpr int kHitBody = 8;
inline constexpr int kHitOthers = 9;

struct TextureViewState {
    // A view of the client size that shows as many image pixels as it has pixels, with the camera kept
    // within the view's own area until an image sets the bounds.
    TextureViewState(int width = 640, int height = 480);

    bool rubberBand = false;    // a new rectangle is being drawn
    bool dragging = false;      // the current texture is being moved or sized
    bool panning = false;       // the view follows the mouse
    bool clickedEmpty = false;  // the press fell on no texture; a release on the same pixel deselects
    bool shiftDown = false;
    bool ctrlDown = false;
    bool altDown = false;
    bool scrollTimer = false;  // the 18 ms pulse that moves and auto-scrolls runs, press to release
    int mouseX = 0;
    int mouseY = 0;
    int pressX = 0;  // moved along by auto-scroll during a rubber band
    int pressY = 0;
    float pressWorldX = 0.0f;  // the press in image pixels
    float pressWorldY = 0.0f;
    int scrollX = 0;  // sums of absolute mouse movement, which push auto-scroll
    int scrollY = 0;
    ViewTransform view;  // camera and view size in image pixels
    CameraLimits limits;
    std::vector<TexHitRect> hitRects;
    TexRect dragRect;  // the current texture at the press
    int imageIndex = 0;
    bool showMarks = false;  // overlays that nothing turns on yet
    bool showMask = false;
};

// The area the camera may show; the smallest zoom stays as it is.
void SetBounds(TextureViewState& state, float left, float top, float right, float bottom);

}  // namespace kovra
