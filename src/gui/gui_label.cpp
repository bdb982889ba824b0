#include "gui/gui_label.h"

#include "settings/lang.h"
#include "settings/theme.h"

namespace kestrel2::win {

void GuiLabel::SetLabel(const aurel::DualString& text) {
    langKey.clear();
    text_ = text;
    Redraw();
}

aurel::DualString GuiLabel::Label() const {
    return langKey.empty() ? text_ : aurel::Lang(langSection, langKey);
}

void GuiLabel::ApplyLanguage() {
    IGuiControl::ApplyLanguage();
    Redraw();
}

void GuiLabel::OnPaint(aurel::ImageSurface& target) {
    // What the drawn parent shows under the label, else the theme's panel colour.
    auto* parent = dynamic_cast<IGuiCustomControl*>(Parent());
    if (parent && !parent->surface.IsEmpty()) {
        const float px = static_cast<float>(Scaled(x));
        const float py = static_cast<float>(Scaled(y));
        target.Clear(aurel::CurrentTheme().ui.panelGrad1);
        parent->surface.Blit(px, py, static_cast<float>(target.Width()), static_cast<float>(target.Height()),
                             target, 0, 0, target.Width(), target.Height(), 1.0f, false);
    } else {
        target.Clear(aurel::CurrentTheme().ui.panelGrad1);
    }
    aurel::TextFont face = font.ToTextFont();
    face.size = Scaled(font.size);
    aurel::TextStyle style;
    style.horizontal = horizontal;
    style.vertical = vertical;
    const aurel::Color32 ink = colour.argb == kThemeColour ? aurel::CurrentTheme().ui.labelFontColor : colour;
    target.DrawText(Label().Utf8(), 0, 0, target.Width(), target.Height(), ink, face, style);
}

}  // namespace kestrel2::win
