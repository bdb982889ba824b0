#pragma once
// The native static text of a dialog: a label, or a group frame with its title, drawn by the toolkit
// in the dialog's colours. It reports nothing.

#include "gui/i_gui_control.h"

namespace kestrel2::win {

enum class StaticStyle { Label, WrappedLabel, Group };

class GuiStatic : public IGuiControl {
public:
    explicit GuiStatic(StaticStyle style = StaticStyle::Label) : style_(style) {}

protected:
    void OnCreate() override;

private:
    StaticStyle style_;
};

}  // namespace kestrel2::win
