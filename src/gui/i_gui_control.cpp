#include "gui/i_gui_control.h"

#include "settings/lang.h"

namespace kestrel2::win {

void IGuiControl::SetLang(const std::string& section, const std::string& key) {
    IGuiWindow::SetLang(section, key);
    tooltipKey.clear();
}

void IGuiControl::SetLang(const std::string& section, const std::string& key, const std::string& tooltip) {
    IGuiWindow::SetLang(section, key);
    tooltipKey = tooltip;
}

void IGuiControl::ApplyLanguage() {
    if (!tooltipKey.empty()) {
        AddTooltip(*this, aurel::Lang(langSection, tooltipKey));
    }
    IGuiWindow::ApplyLanguage();
}

void IGuiControl::SetAnchors(bool left, bool top, bool right, bool bottom) {
    anchors = Anchors{left, top, right, bottom};
    if (const IGuiWindow* parent = Parent()) {
        margins = MeasureMargins(Box{x, y, width, height}, parent->width, parent->height);
    }
}

void IGuiControl::SetFont(const Font& newFont) {
    font = newFont;
    window.SetFont(font);
}

void IGuiControl::OnParentResized(int parentWidth, int parentHeight) {
    const Box present{x, y, width, height};
    const Box anchored = AnchorBox(present, anchors, margins, parentWidth, parentHeight);
    if (!(anchored == present)) {
        SetPos(anchored.x, anchored.y, anchored.width, anchored.height);
    }
}

void IGuiControl::Notify() {
    const int id = Id();
    changeListeners.Call(id);
    if (IGuiWindow* parent = Parent()) {
        parent->commandListeners.Call(id);
    }
}

}  // namespace kestrel2::win
