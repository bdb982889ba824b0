#include "state/view_layout.h"

#include <algorithm>

namespace kovra {

namespace {

constexpr int kPanelWidth = 180;
constexpr int kTimelineHeight = 120;

}  // namespace

ViewBoxes LayOutViews(int width, int height, int padding, bool timelineExtended) {
    const int column = kPanelWidth + 2 * padding;
    const int left = width - column;
    const int timeline = timelineExtended ? std::max(kTimelineHeight, height / 2) : kTimelineHeight;
    return {
        {0, 0, left, height - timeline}, {0, height - timeline, left, timeline}, {left, 0, column, height}};
}

}  // namespace kovra
