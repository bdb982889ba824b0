#include "state/view_area.h"

namespace kovra {

namespace {

constexpr int kKeyDown = 0;
constexpr int kPanelWidth = 180;
constexpr int kTimelineHeight = 120;

}  // namespace

void ViewArea::OnInput(kestrel2::win::InputEvent& event) {
    if (event.type == kKeyDown) {
        keyListeners.Call(event.key);
    }
}

ViewBoxes LayOutViews(int width, int height, int padding) {
    const int column = kPanelWidth + 2 * padding;
    const int left = width - column;
    return {{0, 0, left, height - kTimelineHeight},
            {0, height - kTimelineHeight, left, kTimelineHeight},
            {left, 0, column, height}};
}

}  // namespace kovra
