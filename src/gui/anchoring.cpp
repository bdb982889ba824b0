#include "gui/anchoring.h"

namespace kestrel2::win {

Margins MeasureMargins(const Box& child, int parentWidth, int parentHeight) {
    return Margins{parentWidth - (child.x + child.width), parentHeight - (child.y + child.height)};
}

Box AnchorBox(const Box& child, const Anchors& anchors, const Margins& margins, int parentWidth,
              int parentHeight) {
    Box box = child;
    if (anchors.right && !anchors.left) {
        box.x = parentWidth - margins.right - box.width;
    } else if (anchors.right && anchors.left) {
        box.width = parentWidth - margins.right - box.x;
    }
    if (anchors.bottom && !anchors.top) {
        box.y = parentHeight - margins.bottom - box.height;
    } else if (anchors.bottom && anchors.top) {
        box.height = parentHeight - margins.bottom - box.y;
    }
    return box;
}

}  // namespace kestrel2::win
