#pragma once
// The extended view's controls: the micro tool bar (lane heights and curve presets, with the theme's
// icons and the language's tooltips) in the control band, and the lanes' vertical scrollbar at the
// right of the lanes. The lanes themselves are painted and driven by the timeline's MicroTimeline; this
// binds its scroll position and lane heights to the native controls, and shows them only while the
// timeline is extended. Also holds the helper that builds a tool bar from the control table.

#include <memory>
#include <string>

#include "gui/gui_scrollbar.h"
#include "gui/gui_toolbar.h"
#include "views/timeline/timeline_view.h"

namespace kovra {

// The theme's picture of the icon file at the ratio (the large picture above 1), empty when it can't be
// read.
aurel::ImageSurface LoadThemeIcon(const std::string& file, double ratio);

// A tool bar of the control table's buttons of `section`, with the current theme's icons at the ratio,
// made at (x, y) in the parent; a separator between groups of buttons that do different kinds of things.
std::shared_ptr<kestrel2::win::GuiToolbar> MakeControlToolbar(kestrel2::win::IGuiWindow& parent, int id,
                                                              int x, int y, const std::string& section,
                                                              double ratio);

class GuiFramesList {
public:
    static constexpr int kToolbarId = 2001;
    static constexpr int kLaneScrollId = 1001;

    explicit GuiFramesList(TimelineView& view) : view_(view) {}

    // Makes the tool bar at `left` in the control band and the lanes' scrollbar, in the panel.
    void Build(kestrel2::win::IGuiWindow& panel, int left, double ratio);
    // The tool bar made again, with the pictures of the theme now current.
    void RebuildToolbar(kestrel2::win::IGuiWindow& panel, double ratio);
    // Shows the controls with the extended view, and puts the scrollbar beside the lanes of the panel's
    // present layout, with the lanes' range and position.
    void Refresh();

    kestrel2::win::GuiToolbar* Toolbar() const { return toolbar_.get(); }
    kestrel2::win::GuiScrollbar* Scrollbar() const { return scroll_.get(); }

private:
    void OnToolbar(int id);
    void OnScroll(int id);

    TimelineView& view_;
    int left_ = 0;
    std::shared_ptr<kestrel2::win::GuiToolbar> toolbar_;
    std::shared_ptr<kestrel2::win::GuiScrollbar> scroll_;
};

}  // namespace kovra
