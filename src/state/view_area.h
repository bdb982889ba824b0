#pragma once
// A place of the main window that a view will fill: the workspace, the panel column or the timeline. It
// paints itself in one colour, read at each paint so that a theme change shows at once, and passes the
// keys pressed while it has the focus on to its listeners, as the views will for keys they don't take.

#include <functional>

#include "base/color32.h"
#include "base/listener_list.h"
#include "gui/anchoring.h"
#include "gui/i_gui_custom_control.h"

namespace kovra {

class ViewArea : public kestrel2::win::IGuiCustomControl {
public:
    explicit ViewArea(std::function<aurel::Color32()> colour) : colour_(std::move(colour)) {}

    void OnPaint(aurel::ImageSurface& target) override { target.Clear(colour_()); }
    void OnInput(kestrel2::win::InputEvent& event) override;

    aurel::ListenerList<int> keyListeners;  // the virtual key of each key pressed

private:
    std::function<aurel::Color32()> colour_;
};

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
