#pragma once
// The input side of the texture view: hover over the hit rectangles, Tab and Esc, Delete with its
// warning, a rubber band that makes a texture, a drag of the current texture's body or grips, and a pan
// of the view. Moving and sizing are done by the 18 ms pulse, not by the mouse, so that a texture keeps
// moving while the view scrolls under a mouse held at its edge. Each pulse builds one complete move from
// the press and hands it to commandListeners, where the stack merges it into the open one; the gesture
// ends with dragEndListeners getting (kind, keep).

#include <memory>

#include "base/listener_list.h"
#include "base/prompt.h"
#include "commands/command.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "gui/input_event.h"
#include "views/texture/texture_view_state.h"

namespace kovra {

// The kind of a texture selection made in the texture view.
inline constexpr int kKindTexSelection = 31;

class TextureInput {
public:
    TextureInput(WirrelDoc& document, SelectionTracker& selection, aurel::Prompt& window,
                 TextureViewState& state);

    aurel::ListenerList<const kestrel2::win::InputEvent&> eventListeners;  // what the view doesn't use
    aurel::ListenerList<std::shared_ptr<ICommand>> commandListeners;
    aurel::ListenerList<int, bool> dragEndListeners;  // (command kind, keep) when a drag ends

    void OnInput(const kestrel2::win::InputEvent& event);
    // The pulse, every 18 ms while state.scrollTimer is on.
    void OnTimer();
    // The mouse is no longer over anything: nothing is hot.
    void ClearHot() { selection_.SetHot(-1, -1); }
    bool HasSelection() const { return !selection_.selected.empty(); }

private:
    bool KeyDown(const kestrel2::win::InputEvent& event);
    // Keeps the state of Shift, Ctrl or Alt; false for any other key.
    bool SetModifier(int key, bool down);
    void Escape(const kestrel2::win::InputEvent& event);
    void Delete();
    void MouseMove(const kestrel2::win::InputEvent& event);
    void Hover();
    void ButtonDown(const kestrel2::win::InputEvent& event);
    void Grab();
    void ButtonUp(const kestrel2::win::InputEvent& event);
    void Select(int texture, int part);
    void Send(std::shared_ptr<ICommand> command);
    // The image on show and its size; false when it has no pixels.
    bool ImageSize(int& width, int& height) const;

    WirrelDoc& document_;
    SelectionTracker& selection_;
    aurel::Prompt& window_;
    TextureViewState& state_;
};

}  // namespace kovra
