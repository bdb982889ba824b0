#pragma once
// Where the editor's views stand in the main window's client area.

#include "gui/anchoring.h"

namespace kovra {

// Where the views stand in a client of the size: the panel column at the right, 180 pixels and the
// theme's padding on each side wide and as high as the client; the timeline 120 high at the bottom of
// the rest (half the client, and no less, while the timeline shows its lanes); the workspace above it.
struct ViewBoxes {
    kestrel2::win::Box workspace;
    kestrel2::win::Box timeline;
    kestrel2::win::Box panels;
};

ViewBoxes LayOutViews(int width, int height, int padding, bool timelineExtended = false);

}  // namespace kovra
