#include "views/texture/texture_view_state.h"

#include <algorithm>

namespace kovra {

TextureViewState::TextureViewState(int width, int height) {
    const auto w = static_cast<float>(width);
    const auto h = static_cast<float>(height);
    view.viewWidth = w;
    view.viewHeight = h;
    view.clientWidth = width;
    view.clientHeight = height;
    limits = CameraLimits{0.0f, 0.0f, w, h, 1.0f / std::max(w / view.viewWidth, h / view.viewHeight)};
    ClampCamera(view, limits);
}

void SetBounds(TextureViewState& state, float left, float top, float right, float bottom) {
    state.limits.minX = left;
    state.limits.minY = top;
    state.limits.maxX = right;
    state.limits.maxY = bottom;
}

}  // namespace kovra
