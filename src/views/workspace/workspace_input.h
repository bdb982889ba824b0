#pragma once
// The input side of the workspace: how a mouse move or a key becomes hover state, a selection, a
// command or a pan. Every gesture builds one complete command per mouse move, from the press to the
// mouse now, and hands it to commandListeners, where the stack merges it into the open one of its kind;
// at the gesture's end dragEndListeners get (kind, keep). So the view keeps no undo logic of its own.
//
// OnInput samples the modifiers and handles what all modes share, then runs the mode's handler; each
// handler lives in a file of its own.

#include <memory>

#include "base/listener_list.h"
#include "base/prompt.h"
#include "commands/command.h"
#include "doc/editor_hub.h"
#include "doc/wirrel_doc.h"
#include "gui/input_event.h"
#include "views/workspace/workspace_paint.h"
#include "views/workspace/workspace_state.h"

namespace kovra {

using kestrel2::win::InputEvent;

// The kinds the workspace's own gestures end with.
enum WorkspaceKind : int {
    kKindPinSelection = 13,
    kKindBgOffset = 40,
    kKindBgScale = 41,
    kKindSetTile = 12,
};

class WorkspaceInput {
public:
    // `buffers` is what the last frame painted: its pick buffer answers the hover test.
    WorkspaceInput(WirrelDoc& doc, EditorHub& hub, aurel::Prompt& window, WorkspaceState& state,
                   const WorkspaceBuffers& buffers);

    aurel::ListenerList<const InputEvent&> eventListeners;  // keys and wheel the view doesn't use
    aurel::ListenerList<std::shared_ptr<ICommand>> commandListeners;
    aurel::ListenerList<int, bool> dragEndListeners;  // (command kind, keep) when a gesture ends

    void OnInput(const InputEvent& event);
    void OnInputAnimate(const InputEvent& event);
    void OnInputBackground(const InputEvent& event);
    void OnInputSkin(const InputEvent& event);
    void OnInputRect(const InputEvent& event);
    // The auto-scroll pulse, every 18 ms while state().scrollTimer is on.
    void OnTimer();

    // The selection work of a change of edit mode, then the mode itself.
    void SetEditMode(int mode);
    // In Animate and Build: something is selected; in Background: there is a picture.
    bool HasSelection() const;
    // Both selections and hot items cleared, the camera back on the origin at zoom 1.
    void ClearSelections();
    // After pins were renumbered: hot, current and selected pins follow `map` (old index to new, -1 for
    // a pin that is gone), and the listeners hear of it once, at the end.
    void RemapSelection(const std::vector<int>& map);
    // The small pin radius of the theme, in client pixels.
    void SetPinRadius(float radius) { pinRadius_ = radius; }
    // The hand over a hot pin unless playing.
    bool WantsHandCursor() const;
    // Reruns the pose step, as after each change that moves pins; false when there is no pose to show.
    bool PoseStep();

private:
    bool ValidPin(int pin) const;
    bool KeyDown(const InputEvent& event);
    void Escape(const InputEvent& event);
    void MouseMove(const InputEvent& event);
    void ButtonDown(const InputEvent& event);
    void ButtonUp(const InputEvent& event);
    bool CancelGesture();
    void Hover();
    void Grab(const InputEvent& event);
    void Link();
    void LinkFromEmpty();
    void LinkOntoPin(int hot, int current);
    // The preview pin at the end of a rubber band leaves the document; it was never on the stack.
    void RemovePreviewPin();
    void SelectPin(int pin, int part, bool add);
    void SelectArea(bool add);
    void Send(std::shared_ptr<ICommand> command);
    void EndDrag(int kind, bool keep) { dragEndListeners.Call(kind, keep); }
    // Skin tool helpers (input_skin.cpp).
    void SkinHover(const InputEvent& event);
    void SkinDragMove(const InputEvent& event);
    void SkinPress();
    int SkinDragKind() const;
    void SkinDoubleClick(const InputEvent& event);
    void TestPose(const InputEvent& event);
    void TileUpdate();
    // A new pin's polar pair from the mouse, about `parent`'s pixel or the origin.
    void PolarFromPixel(int x, int y, int parent, float& angle, float& length) const;
    std::string NewPinName(const char* stem) const;

    WirrelDoc& doc_;
    EditorHub& hub_;
    aurel::Prompt& window_;
    WorkspaceState& state_;
    const WorkspaceBuffers& buffers_;
    float pinRadius_ = 4.0f;
};

}  // namespace kovra
