#pragma once
// A line of text drawn by the program, from the language table or set directly, aligned in its box in
// both directions. It shows through to the drawn control under it, so it sits on a panel's gradient.

#include <string>

#include "gui/i_gui_custom_control.h"

namespace kestrel2::win {

class GuiLabel : public IGuiCustomControl {
public:
    // The colour that stands for the theme's label colour.
    static constexpr std::uint32_t kThemeColour = 0xFFFFFF;

    // A text of the program's own, in place of a language entry.
    void SetLabel(const aurel::DualString& text);
    aurel::DualString Label() const;

    void ApplyLanguage() override;
    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(InputEvent&) override {}

    aurel::TextAlign horizontal = aurel::TextAlign::Near;
    aurel::TextAlign vertical = aurel::TextAlign::Centre;
    aurel::Color32 colour = kThemeColour;

private:
    aurel::DualString text_;
};

}  // namespace kestrel2::win
