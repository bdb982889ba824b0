#pragma once
// The native tool bar: buttons of 23 by 23 pixels, each with an id, a picture, a second picture for its
// on state, a style, and the language key of its tooltip in the tool bar's language section. A click
// runs the change listeners with the button's id, then the parent's command listeners with it. Radio
// buttons between two separators form one group.

#include <string>
#include <vector>

#include "bitmap/image_surface.h"
#include "gui/i_gui_control.h"

class QAction;

namespace kestrel2::win {

enum class ToolStyle { Button, Check, Radio };

struct ToolButton {
    int id = 0;
    std::string tooltipKey;
    aurel::ImageSurface icon;
    aurel::ImageSurface iconAlt;  // shown while checked; may be empty
    ToolStyle style = ToolStyle::Button;
};

class GuiToolbar : public IGuiControl {
public:
    static constexpr int kButtonSize = 23;

    // `ratio`: pixels of the pictures per layout pixel.
    explicit GuiToolbar(double iconRatio = 1.0) : iconRatio_(iconRatio) {}

    void AddButton(ToolButton button);
    void AddSeparator();
    void SetButtonState(int id, bool on);
    bool GetButtonState(int id) const;
    void EnableButton(int id, bool enable);

    // Re-reads the tooltips of the buttons.
    void ApplyLanguage() override;

    // What a click on the button does: its check state moves by its style, and the listeners run.
    void Click(int id);

protected:
    void OnCreate() override;

private:
    struct Entry {
        ToolButton button;
        int group = 0;  // radio buttons of one run between separators share it
        bool on = false;
        bool enabled = true;
        QAction* action = nullptr;
    };

    void Build(Entry& entry);
    void Show(const Entry& entry);
    Entry* Find(int id);
    const Entry* Find(int id) const;

    double iconRatio_;
    std::vector<Entry> entries_;  // separators have the id -1
    int group_ = 0;
};

}  // namespace kestrel2::win
