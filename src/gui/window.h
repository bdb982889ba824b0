#pragma once
// The window layer's handle on a native window: the toolkit's widget and whether this value owns it. An
// owned widget is destroyed with the value; a widget destroyed elsewhere (with its parent, say) leaves
// the value empty rather than dangling. Every native operation on a window goes through here, so that
// the rest of the tree never names the toolkit.

#include <memory>

#include "base/dual_string.h"
#include "gui/font.h"

class QWidget;

namespace kestrel2::win {

class Window {
public:
    Window();
    Window(QWidget* handle, bool owned);
    Window(Window&& other) noexcept;
    Window& operator=(Window&& other) noexcept;
    ~Window();

    // The widget, or null when there is none or it was destroyed.
    QWidget* handle() const;
    bool owned() const { return owned_; }
    bool IsValid() const { return handle() != nullptr; }

    // Destroys the widget when owned, and forgets it either way.
    void Reset();

    // Negative sizes are given to the platform as zero.
    void SetPos(int x, int y, int width, int height);
    void Show(bool show);
    bool IsVisible() const;
    void Enable(bool enable);
    bool IsEnabled() const;
    // The caption of a button or label, the contents of an edit, the title of a top-level window.
    void SetText(const aurel::DualString& text);
    aurel::DualString GetText() const;
    void SetFont(const Font& font);
    void SetTooltip(const aurel::DualString& text);
    void SetFocus();
    bool HasFocus() const;
    // Asks for a repaint of the whole client.
    void Redraw();

private:
    struct Guard;
    std::unique_ptr<Guard> guard_;
    bool owned_ = false;
};

}  // namespace kestrel2::win
