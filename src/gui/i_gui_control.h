#pragma once
// A control of the gui tree: a window with an id, a font, change listeners, anchors to its parent's
// edges and a tooltip from the language file.

#include <string>

#include "gui/anchoring.h"
#include "gui/font.h"
#include "gui/i_gui_window.h"

namespace kestrel2::win {

class IGuiControl : public IGuiWindow {
public:
    // Stores the language entry of the text and forgets the tooltip.
    void SetLang(const std::string& section, const std::string& key) override;
    // The entry of the text and the key of the tooltip, in the same section.
    virtual void SetLang(const std::string& section, const std::string& key, const std::string& tooltip);
    // The text as in IGuiWindow, then the tooltip, when the control has one; then the children.
    void ApplyLanguage() override;

    // Keeps the sides given at their present distance from the parent's edges: the margins are measured
    // now, from the parent's present size.
    void SetAnchors(bool left, bool top, bool right, bool bottom);
    void SetFont(const Font& newFont);

    aurel::ListenerList<int> changeListeners;  // called with the control's id on its notification
    Font font;
    Anchors anchors;
    Margins margins;  // to the parent's right and bottom edges, measured when anchored
    std::string tooltipKey;

protected:
    void OnParentResized(int parentWidth, int parentHeight) override;
    // Tells the change listeners, then the parent's command listeners, that the control acted.
    void Notify();
};

}  // namespace kestrel2::win
