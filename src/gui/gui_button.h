#pragma once
// The native push button, check box and radio button. Each reports one notification per click by the
// user through its change listeners (with its id), then its parent's command listeners; setting a state
// from the program reports nothing.

#include "bitmap/image_surface.h"
#include "gui/i_gui_control.h"

namespace kestrel2::win {

class GuiButton : public IGuiControl {
public:
    // An icon beside the text; `ratio` is the picture's pixels per layout pixel.
    void SetIcon(const aurel::ImageSurface& icon, double ratio);

protected:
    void OnCreate() override;
};

// Check states as the toolkit counts them.
enum CheckState : int { kChecked = 0, kUnchecked = 1, kMixed = 2 };

class GuiCheckbox : public IGuiControl {
public:
    int GetCheck() const { return state_; }
    void SetCheck(int state);

protected:
    void OnCreate() override;

private:
    void Clicked();

    int state_ = kUnchecked;
};

// A radio button of a group: selecting it clears the other radios of the group under the same parent.
class GuiRadio : public IGuiControl {
public:
    explicit GuiRadio(int group = 0) : group_(group) {}

    int Group() const { return group_; }
    // kChecked when selected, else kUnchecked.
    int GetCheck() const { return state_; }
    void SetCheck(int state);

protected:
    void OnCreate() override;

private:
    void Clicked();

    int group_;
    int state_ = kUnchecked;
};

}  // namespace kestrel2::win
