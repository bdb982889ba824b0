#pragma once
// The native slider (the timeline's zoom). While the user drags or steps it, it is `dragging` and its
// change listeners run with the id at each new position; at the end of the drag they run once more
// with `dragging` cleared. Ticks can be hidden.

#include "gui/i_gui_control.h"

namespace kestrel2::win {

class GuiSlider : public IGuiControl {
public:
    using IGuiWindow::SetPos;

    void SetRange(int minimum, int maximum);
    void SetPos(int position);
    int GetPos() const { return position_; }
    void SetTickFrequency(int frequency);
    void HideTicks(bool hide);
    bool IsDragging() const { return dragging_; }

    // Applies what the user did: the slider is at `position`, still moving unless `ended`.
    void Moved(int position, bool ended);

protected:
    void OnCreate() override;

private:
    void Sync();

    int minimum_ = 0, maximum_ = 100, position_ = 0, tickFrequency_ = 1;
    bool hideTicks_ = false;
    bool dragging_ = false;
};

}  // namespace kestrel2::win
