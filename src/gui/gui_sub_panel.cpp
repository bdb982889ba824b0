#include "gui/gui_sub_panel.h"

#include "gui/gradient.h"
#include "settings/lang.h"
#include "settings/theme.h"

namespace kestrel2::win {

int GuiSubPanel::BarHeight() {
    return aurel::CurrentTheme().ui.panelBarH;
}

int GuiSubPanel::Height() const {
    return collapsed ? BarHeight() : fullHeight;
}

void GuiSubPanel::SetFullHeight(int newHeight) {
    fullHeight = newHeight;
    SetPos(x, y, width, Height());
}

void GuiSubPanel::Collapse() {
    collapsed = true;
    ShowChildren(false);
    SetPos(x, y, width, Height());
    Redraw();
}

void GuiSubPanel::Expand() {
    collapsed = false;
    ShowChildren(true);
    SetPos(x, y, width, Height());
    Redraw();
}

void GuiSubPanel::ShowChildren(bool show) {
    for (auto& [id, child] : children) {
        child->Show(show);
    }
}

void GuiSubPanel::OnInput(InputEvent& event) {
    const bool onBar = event.y >= 0 && event.y < Scaled(BarHeight());
    if (event.type == kInputMouseMove || event.type == kInputMouseLeft) {
        const bool hot = event.type == kInputMouseMove && onBar;
        if (hot != barHot_) {
            barHot_ = hot;
            Redraw();
        }
    } else if (event.type == kInputButtonDown && event.button == kButtonLeft && onBar) {
        collapsed ? Expand() : Collapse();
        Notify();
    }
}

void GuiSubPanel::OnPaint(aurel::ImageSurface& target) {
    const aurel::ThemeUi& ui = aurel::CurrentTheme().ui;
    const aurel::Color32 backdrop = aurel::CurrentTheme().panels.bgGrad1;
    const int w = target.Width();
    const int h = target.Height();
    const int bar = Scaled(ui.panelBarH);
    const float radius = static_cast<float>(Scaled(ui.panelRadius));
    target.Clear(backdrop);
    if (h > bar) {
        FillGradientV(target, 0, bar, w - 1, h - 1, ui.panelGrad1, ui.panelGrad2);
        target.DrawRect(0, bar - 1, w - 2, h - 2, ui.panelOutline);
    }
    // The bar: filled row by row inside its rounded outline, the corners left to the backdrop.
    const aurel::Color32 fill = barHot_ ? ui.panelBarColorHot : ui.panelBarColor;
    const int r = static_cast<int>(radius);
    for (int row = 0; row < bar && row < h; ++row) {
        int inset = 0;
        if (row < r) {
            const int dy = r - row;
            while (inset < r && (r - inset) * (r - inset) + dy * dy > r * r) {
                ++inset;
            }
        }
        target.FillRect(inset, row, w - 1 - inset, row, fill);
    }
    target.DrawRoundRect(0.5f, 0.5f, static_cast<float>(w - 1), static_cast<float>(bar - 1), radius,
                         ui.panelBarOutline, 1.0f, true);
    aurel::TextFont face{ui.panelBarFont.face, Scaled(ui.panelBarFont.height), ui.panelBarFont.bold,
                         ui.panelBarFont.italic, ui.panelBarFont.underline};
    aurel::TextStyle style;
    style.vertical = aurel::TextAlign::Centre;
    const std::string title = langKey.empty() ? GetText().Utf8() : aurel::Lang(langSection, langKey).Utf8();
    target.DrawText(title, Scaled(8), 0, w - Scaled(16), bar, ui.panelBarFontColor, face, style);
    if (!collapsed) {
        OnPaintBody(target);
    }
}

}  // namespace kestrel2::win
