#pragma once
// The native scroll bar, with its position arithmetic kept here rather than left to the toolkit: the
// position moves by one, by a page, or to the thumb, within the minimum and the maximum minus the page
// plus one. A move to a new position runs the change listeners with the id.

#include <optional>

#include "gui/i_gui_control.h"

namespace kestrel2::win {

// What the user did to the bar.
enum ScrollCode : int {
    kScrollLineUp = 0,
    kScrollLineDown = 1,
    kScrollPageUp = 2,
    kScrollPageDown = 3,
    kScrollThumbPosition = 4,
    kScrollThumbTrack = 5,
    kScrollTop = 6,
    kScrollBottom = 7,
    kScrollEnd = 8,
};

// The position after the code, from the present position; nothing for the end of a scroll. Codes other
// than the ones that move keep the present position.
std::optional<int> ScrollPosition(int code, int position, int track, int page, int minimum, int maximum);

class GuiScrollbar : public IGuiControl {
public:
    explicit GuiScrollbar(bool vertical) : vertical_(vertical) {}
    using IGuiWindow::SetPos;

    void SetRange(int minimum, int maximum);
    void SetPage(int page);
    void SetPos(int position);
    int GetPos() const { return position_; }
    int Minimum() const { return minimum_; }
    int Maximum() const { return maximum_; }
    int Page() const { return page_; }

    // Applies what the user did; `track` is the thumb's position for the thumb codes.
    void Scroll(int code, int track);

protected:
    void OnCreate() override;

private:
    void Sync();

    bool vertical_;
    int minimum_ = 0, maximum_ = 100, page_ = 0, position_ = 0;
};

}  // namespace kestrel2::win
