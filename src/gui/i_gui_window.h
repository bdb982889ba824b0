#pragma once
// The element of the retained gui tree. Every piece of the user interface, native or drawn by the
// program, is an IGuiWindow: it holds its native window, its children by id, and the listener lists
// through which the tree speaks to the views. The tree's geometry is its own: position and size are
// kept here and work before a native window exists, so controls can be laid out, painted and driven
// without a screen. The platform's messages never reach the views; they arrive as the typed calls below.

#include <map>
#include <memory>
#include <string>

#include "base/dual_string.h"
#include "base/listener_list.h"
#include "gui/window.h"

class QObject;
class QWidget;

namespace kestrel2::win {

// The edit commands of the Edit menu, offered to the focused control first.
enum class EditCommand { Undo, Cut, Copy, Paste };

class IGuiWindow {
public:
    IGuiWindow();
    virtual ~IGuiWindow();
    IGuiWindow(const IGuiWindow&) = delete;
    IGuiWindow& operator=(const IGuiWindow&) = delete;

    // Stores the language entry of the window's text.
    virtual void SetLang(const std::string& section, const std::string& key);
    // The per-frame pass from the main loop: each child's Update, in id order.
    virtual void Update();
    virtual void OnIdle() {}
    // A timer of this window fired, after the timer listeners ran.
    virtual void OnTimer(int timerId);
    // The window was shown or hidden through Show.
    virtual void OnShow(bool shown);
    // An edit command for this window while it has the focus; true when it was taken.
    virtual bool OnEditCommand(EditCommand command);
    // Runs once the native window exists, right after the first OnResize: views build their children here.
    virtual void OnCreated() {}
    // Registers a tooltip for a control: passed up the tree to the root, which gives it to the control.
    virtual void AddTooltip(IGuiWindow& control, const aurel::DualString& text);
    // The direct child with the id, or null.
    IGuiWindow* GetDlgControl(int id) const;
    // The stored size changed (children are already anchored).
    virtual void OnResize() {}
    // Sets the window text from the language entry, if it has one ("[MISSING STRING]" when the language
    // lacks it), then does the same down the tree, children in id order.
    virtual void ApplyLanguage();
    // True for controls the user types text into.
    virtual bool IsTextBox() const { return false; }

    // Binds this object to an existing native window (a dialog's item, the main window's client) under
    // the id, taking its position and size.
    void Attach(Window native, int id = 0);
    // Makes the native window inside the parent's, at the position and size, then OnResize and
    // OnCreated. The parent remembers nothing until AddChild.
    void Create(IGuiWindow& parent, int id, int x, int y, int width, int height);
    // Stores the child by its id and makes this its parent.
    void AddChild(std::shared_ptr<IGuiWindow> child);
    void RemoveChild(int id);

    void Show(bool show);
    bool IsVisible() const { return visible_; }
    void Enable(bool enable);
    bool IsEnabled() const { return enabled_; }
    // Moves and sizes the window; a change of size resizes and anchors as the platform's would.
    void SetPos(int x, int y, int width, int height);
    virtual void Redraw();
    void SetText(const aurel::DualString& text);
    aurel::DualString GetText() const;
    void SetFocus();
    bool HasFocus() const;
    // Starts (or restarts) the timer with the id; it fires every `intervalMs` until killed.
    void SetTimer(int timerId, int intervalMs);
    void KillTimer(int timerId);

    IGuiWindow* Parent() const { return parent_; }
    int Id() const { return id_; }
    // Gives the id to an element that is laid out without a native window (Create gives it otherwise).
    void SetId(int id) { id_ = id; }

    // Called from the platform side when the native window moved or changed size by itself.
    void NativeMoved(int newX, int newY);
    void NativeResized(int newWidth, int newHeight);

    aurel::ListenerList<int> commandListeners;  // called with the id of a control's command
    aurel::ListenerList<int> timerListeners;    // called with a timer's id
    std::map<int, std::shared_ptr<IGuiWindow>> children;
    Window window;
    // The last known client position and size; a size may be negative when anchoring shrank it so.
    int x = 0, y = 0, width = 0, height = 0;
    std::string langSection, langKey;

protected:
    // Makes the native window inside ParentWidget() and stores it in `window`.
    virtual void OnCreate() = 0;
    // Reacts to a change of the stored size: anchors the children, then OnResize.
    virtual void SizeChanged();
    // The parent's size changed; controls follow their anchors here.
    virtual void OnParentResized(int parentWidth, int parentHeight);
    QWidget* ParentWidget() const;
    // The native window was just bound, by Create or by Attach: a control hooks its events here.
    virtual void OnNativeBound() {}
    // Keeps a helper of the native window (an event filter that calls this object) for as long as this
    // object lives: it is deleted before anything of this object is gone.
    void AddHook(QObject* hook);

private:
    void BindNative();

    struct Native;
    std::unique_ptr<Native> native_;
    IGuiWindow* parent_ = nullptr;
    int id_ = 0;
    bool visible_ = true;
    bool enabled_ = true;
};

// Builds a T from the arguments, makes its window inside the parent and adds it as the parent's child.
template <class T, class... Args>
std::shared_ptr<T> MakeChild(IGuiWindow& parent, int id, int x, int y, int width, int height,
                             Args&&... args) {
    auto child = std::make_shared<T>(std::forward<Args>(args)...);
    child->Create(parent, id, x, y, width, height);
    parent.AddChild(child);
    return child;
}

// The tree element that has the keyboard focus, or null.
IGuiWindow* FocusedWindow();

// The native window that owns a dialog opened for `owner`: its window, else the main window's, else none.
QWidget* DialogOwner(IGuiWindow* owner);

}  // namespace kestrel2::win
