#pragma once
// The workspace as the editor runs it, headless: a rig, the undo stack bound to the view's command and
// gesture-end listeners, a scripted prompt, and an input event kept as the input layer keeps it (key
// and button tables always current). Every event is followed by a paint, as the main loop does.

#include <cstdint>
#include <vector>

#include "commands/command_stack.h"
#include "commands/doc_state.h"
#include "doc/wirrel_writer.h"
#include "support/scripted_prompt.h"
#include "views/workspace/rig.h"
#include "views/workspace/workspace_input.h"

namespace kovra::test {

class Workbench : public Rig {
public:
    Workbench() : input(doc, hub, prompt, state, buffers) {
        state.view = ViewTransform::OfClient(320, 240);
        input.commandListeners.Add(&stack, &CommandStack::AddCommand);
        input.dragEndListeners.Add(&stack, &CommandStack::FinishDrag);
        input.eventListeners.Add(this, &Workbench::PassedOn);
    }

    void Paint() {
        PaintWorkspace(doc, state, theme, WorkingColours::FromTheme(theme), DefaultEdgeFade(), buffers,
                       kAllLayers & ~kLayerTexts);
    }

    // The client pixel of a world point.
    int X(float wx) const { return static_cast<int>(ScreenMapping::Of(state.view).PixelX(wx)); }
    int Y(float wy) const { return static_cast<int>(ScreenMapping::Of(state.view).PixelY(wy)); }
    // Where pin `pin` stands on the screen now.
    int PinX(int pin) const { return static_cast<int>(PinScreenX(pin)); }
    int PinY(int pin) const { return static_cast<int>(PinScreenY(pin)); }
    float PinScreenX(int pin) const {
        return state.view.pinPixels[pin].x + ScreenMapping::Of(state.view).originX;
    }
    float PinScreenY(int pin) const {
        return state.view.pinPixels[pin].y + ScreenMapping::Of(state.view).originY;
    }

    void Key(std::uint8_t key, bool down) {
        event.type = down ? kestrel2::win::kInputKeyDown : kestrel2::win::kInputKeyUp;
        event.key = key;
        event.keys[key] = down ? 1 : 0;
        Send();
    }
    void Move(int x, int y) {
        event.type = kestrel2::win::kInputMouseMove;
        event.dx = x - event.x;
        event.dy = y - event.y;
        event.x = x;
        event.y = y;
        Send();
    }
    void Press(int button, int x, int y, bool doubleClick = false) {
        Move(x, y);
        event.type = doubleClick ? kestrel2::win::kInputDoubleClick : kestrel2::win::kInputButtonDown;
        event.button = button;
        event.buttons[button] = 1;
        event.dx = event.dy = 0;
        Send();
    }
    void Release(int button, int x, int y) {
        Move(x, y);
        event.type = kestrel2::win::kInputButtonUp;
        event.button = button;
        event.buttons[button] = 0;
        event.dx = event.dy = 0;
        Send();
    }
    void Click(int button, int x, int y) {
        Press(button, x, y);
        Release(button, x, y);
    }
    // A drag in `steps` moves.
    void Drag(int button, int x0, int y0, int x1, int y1, int steps = 8) {
        Press(button, x0, y0);
        DragTo(x0, y0, x1, y1, steps);
        Release(button, x1, y1);
    }
    void DragTo(int x0, int y0, int x1, int y1, int steps = 8) {
        for (int i = 1; i <= steps; ++i) {
            Move(x0 + (x1 - x0) * i / steps, y0 + (y1 - y0) * i / steps);
        }
    }
    void Wheel(int delta) {
        event.type = kestrel2::win::kInputWheel;
        event.dx = 0;
        event.dy = -delta;
        Send();
    }

    std::vector<std::uint8_t> Saved() const { return WriteWirrel(doc.Wirrel(), {}, {}); }
    void UndoAll() {
        while (stack.CanUndo()) {
            stack.UndoRedo(false, hub);
        }
    }
    void RedoAll() {
        while (stack.CanRedo()) {
            stack.UndoRedo(true, hub);
        }
    }

    CommandStack stack;
    RecordingHub hub;
    ScriptedPrompt prompt;
    WorkspaceTheme theme;
    WorkspaceBuffers buffers;
    kestrel2::win::InputEvent event;
    WorkspaceInput input;
    int passedOn = 0;

private:
    void Send() {
        input.OnInput(event);
        Paint();
    }
    void PassedOn(const kestrel2::win::InputEvent&) { ++passedOn; }
};

}  // namespace kovra::test
