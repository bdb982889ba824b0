#pragma once
// The texture view as the editor runs it, headless: a document with one in-memory image, the undo stack
// bound to the view's command and drag-end listeners, a scripted prompt, and an input event kept as the
// input layer keeps it (key and button tables always current). Every event is followed by a paint, as
// the main loop does, so that hover reads the rectangles of the frame on show.

#include <cstdint>
#include <memory>
#include <vector>

#include "commands/command_stack.h"
#include "commands/doc_state.h"
#include "doc/wirrel_writer.h"
#include "support/scripted_prompt.h"
#include "views/texture/texture_input.h"
#include "views/texture/texture_paint.h"

namespace kovra::test {

// A picture whose every pixel differs, with a clear band along its top, so that the backing shows.
inline std::shared_ptr<WirrelTexImage> Sheet(int width, int height) {
    auto image = std::make_shared<WirrelTexImage>();
    image->surface.Resize(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint32_t alpha = y < 4 ? 0x00 : 0xFF;
            image->surface.Row(y)[x] =
                alpha << 24 | std::uint32_t(x * 4 & 0xFF) << 16 | std::uint32_t(y * 5 & 0xFF) << 8 | 0x60;
        }
    }
    return image;
}

class TextureBench {
public:
    // An image of the size in a client of the size, at the zoom, with no textures yet.
    TextureBench(int imageWidth = 64, int imageHeight = 48, int clientWidth = 160, int clientHeight = 120,
                 float zoom = 2.0f)
        : state(clientWidth, clientHeight), input(doc, selection, prompt, state) {
        doc.Reset(true);
        doc.SetImage(-1, Sheet(imageWidth, imageHeight));
        SetBounds(state, 0.0f, 0.0f, static_cast<float>(imageWidth), static_cast<float>(imageHeight));
        AddZoom(state.view, state.limits, zoom - state.view.zoom);
        input.commandListeners.Add(&stack, &CommandStack::AddCommand);
        input.dragEndListeners.Add(&stack, &CommandStack::FinishDrag);
        input.eventListeners.Add(this, &TextureBench::PassedOn);
        Paint();
    }

    void Paint() {
        frame.Resize(state.view.clientWidth, state.view.clientHeight);
        PaintTextureView(frame, doc, selection, state, theme, {.texts = false});
    }

    // The client pixel of an image point.
    int X(float x) const { return static_cast<int>(ScreenMapping::Of(state.view).PixelX(x)); }
    int Y(float y) const { return static_cast<int>(ScreenMapping::Of(state.view).PixelY(y)); }
    // The middle of hit rectangle `index` as the last frame laid it out.
    int HitX(int index) const {
        return static_cast<int>((state.hitRects[index].left + state.hitRects[index].right) / 2.0f);
    }
    int HitY(int index) const {
        return static_cast<int>((state.hitRects[index].top + state.hitRects[index].bottom) / 2.0f);
    }

    int AddTexture(int x, int y, int width, int height) {
        doc.Wirrel().textures.push_back(WirrelTexture{0, x, y, width, height});
        Paint();
        return static_cast<int>(doc.Wirrel().textures.size()) - 1;
    }
    const WirrelTexture& Texture(int index) const { return doc.Wirrel().textures[index]; }

    void Key(std::uint8_t key, bool down) {
        event.type = down ? kestrel2::win::kInputKeyDown : kestrel2::win::kInputKeyUp;
        event.key = key;
        event.keys[key] = down ? 1 : 0;
        Send();
    }
    void Tap(std::uint8_t key) {
        Key(key, true);
        Key(key, false);
    }
    void Move(int x, int y) {
        event.type = kestrel2::win::kInputMouseMove;
        event.dx = x - event.x;
        event.dy = y - event.y;
        event.x = x;
        event.y = y;
        Send();
    }
    void Press(int button, int x, int y) {
        Move(x, y);
        event.type = kestrel2::win::kInputButtonDown;
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
    void Tick(int count = 1) {
        for (int i = 0; i < count; ++i) {
            input.OnTimer();
            Paint();
        }
    }
    // Press, moves in steps with a pulse after each, release: as a hand and the timer would.
    void Drag(int button, int x0, int y0, int x1, int y1, int steps = 6) {
        Press(button, x0, y0);
        for (int i = 1; i <= steps; ++i) {
            Move(x0 + (x1 - x0) * i / steps, y0 + (y1 - y0) * i / steps);
            Tick();
        }
        Release(button, x1, y1);
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

    WirrelDoc doc;
    SelectionTracker selection;
    CommandStack stack;
    RecordingHub hub;
    ScriptedPrompt prompt;
    TextureViewState state;
    TextureTheme theme = TextureThemeOf(aurel::Theme{});
    TextureInput input;
    kestrel2::win::InputEvent event;
    aurel::ImageSurface frame;
    int passedOn = 0;

private:
    void Send() {
        input.OnInput(event);
        Paint();
    }
    void PassedOn(const kestrel2::win::InputEvent&) { ++passedOn; }
};

}  // namespace kovra::test
