#pragma once
// A collapsible section of the navigation column: a title bar with rounded corners over a body with a
// vertical gradient. A click on the title bar opens or closes the section; the owner hears it through the
// change listeners and lays its sections out again, using Height() for this one.

#include <string>

#include "gui/i_gui_custom_control.h"

namespace kestrel2::win {

class GuiSubPanel : public IGuiCustomControl {
public:
    // Closes the body: the panel is as high as its bar and its children are hidden.
    void Collapse();
    // Opens it again at its full height, children shown.
    void Expand();
    bool IsCollapsed() const { return collapsed; }
    // The height of the open panel; the panel takes it now unless it is collapsed.
    void SetFullHeight(int fullHeight);
    // The height the panel stands at: its bar's when collapsed, else its full height.
    int Height() const;
    // The bar's height in layout pixels, from the theme.
    static int BarHeight();

    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(InputEvent& event) override;

    bool collapsed = false;
    int fullHeight = 0;

protected:
    // The body under the bar, painted after the frame; the palette of skins draws here.
    virtual void OnPaintBody(aurel::ImageSurface&) {}

private:
    void ShowChildren(bool show);

    bool barHot_ = false;
};

}  // namespace kestrel2::win
