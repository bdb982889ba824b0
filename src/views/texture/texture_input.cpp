#include "views/texture/texture_input.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "commands/editor_commands.h"
#include "gui/virtual_keys.h"
#include "textures/texture_commands.h"
#include "views/texture/texture_geometry.h"

namespace kovra {

namespace win = kestrel2::win;
using win::InputEvent;

TextureInput::TextureInput(WirrelDoc& document, SelectionTracker& selection, aurel::Prompt& window,
                           TextureViewState& state)
    : document_(document), selection_(selection), window_(window), state_(state) {}

void TextureInput::OnInput(const InputEvent& event) {
    if (document_.images.empty()) {
        eventListeners.Call(event);
        return;
    }
    switch (event.type) {
        case win::kInputKeyDown:
            if (!KeyDown(event)) {
                eventListeners.Call(event);
            }
            break;
        case win::kInputKeyUp:
            SetModifier(event.key, false);
            break;
        case win::kInputMouseMove:
            MouseMove(event);
            break;
        case win::kInputButtonDown:
            ButtonDown(event);
            break;
        case win::kInputButtonUp:
            ButtonUp(event);
            break;
        default:
            eventListeners.Call(event);
            break;
    }
}

bool TextureInput::KeyDown(const InputEvent& event) {
    const bool gesture = state_.dragging || state_.rubberBand;
    switch (event.key) {
        case win::kVkTab: {
            const int count = static_cast<int>(document_.Wirrel().textures.size());
            if (count > 0 && !gesture) {
                const int current = selection_.currentItem;
                const int next =
                    state_.shiftDown ? (current <= 0 ? count - 1 : current - 1) : (current + 1) % count;
                // No grip becomes hot: the mouse isn't on one.
                Select(next, -1);
            }
            return true;
        }
        case win::kVkEscape:
            Escape(event);
            return true;
        case win::kVkDelete:
            if (selection_.currentItem != -1 && !gesture) {
                Delete();
            }
            return true;
        default:
            return SetModifier(event.key, true);
    }
}

bool TextureInput::SetModifier(int key, bool down) {
    switch (key) {
        case win::kVkShift:
            state_.shiftDown = down;
            return true;
        case win::kVkControl:
            state_.ctrlDown = down;
            return true;
        case win::kVkMenu:
            state_.altDown = down;
            return true;
        default:
            return false;
    }
}

// With a button held, pressing and releasing the other one cancels the gesture, as the mouse would.
void TextureInput::Escape(const InputEvent& event) {
    const auto click = [this, &event](int button) {
        InputEvent synthetic = event;
        synthetic.key = 0;
        synthetic.button = button;
        synthetic.x = state_.mouseX;
        synthetic.y = state_.mouseY;
        synthetic.dx = 0;
        synthetic.dy = 0;
        synthetic.type = win::kInputButtonDown;
        synthetic.buttons[button] = 1;
        OnInput(synthetic);
        synthetic.type = win::kInputButtonUp;
        synthetic.buttons[button] = 0;
        OnInput(synthetic);
    };
    if (event.buttons[win::kButtonLeft] != 0) {
        click(win::kButtonRight);
    } else if (event.buttons[win::kButtonRight] != 0) {
        click(win::kButtonLeft);
    } else if (!selection_.selected.empty()) {
        Select(-1, 0);
    }
}

// Skins lose their texture with it, so the user is asked first when any skin uses one.
void TextureInput::Delete() {
    const auto& skins = document_.Wirrel().skins;
    const bool used = std::any_of(skins.begin(), skins.end(), [this](const WirrelSkin& skin) {
        return selection_.IsSelected(skin.texture);
    });
    if (used) {
        const char* text = selection_.selected.size() > 1
                               ? "WARNING! The skin(s) using these textures will be reset."
                               : "WARNING! The skin(s) using this texture will be reset.";
        const int answer = window_.Ask({.title = "Warning",
                                        .text = text,
                                        .buttons = aurel::PromptButtons::OkCancel,
                                        .icon = aurel::PromptIcon::Warning,
                                        .labels = {}});
        if (answer != aurel::kAnswerOk) {
            return;
        }
    }
    Send(std::make_shared<CommandTexDelete>(document_, selection_));
}

void TextureInput::MouseMove(const InputEvent& event) {
    state_.mouseX = event.x;
    state_.mouseY = event.y;
    if (state_.dragging || state_.rubberBand) {
        state_.scrollX += std::abs(event.dx);
        state_.scrollY += std::abs(event.dy);
    } else if (state_.panning) {
        Pan(state_.view, state_.limits, static_cast<float>(event.dx), static_cast<float>(event.dy));
    } else {
        Hover();
    }
}

void TextureInput::Hover() {
    const int index = HitIndex(state_.hitRects, state_.mouseX, state_.mouseY);
    if (index == -1) {
        selection_.SetHot(-1, -1);
    } else if (index < kHitOthers) {
        selection_.SetHot(selection_.currentItem, index);
    } else {
        selection_.SetHot(RectToTexture(index, selection_.currentItem), -1);
    }
}

void TextureInput::ButtonDown(const InputEvent& event) {
    state_.scrollTimer = true;
    state_.mouseX = event.x;
    state_.mouseY = event.y;
    state_.pressX = event.x;
    state_.pressY = event.y;
    state_.pressWorldX = WorldX(state_.view, static_cast<float>(event.x));
    state_.pressWorldY = WorldY(state_.view, static_cast<float>(event.y));
    if (state_.dragging || state_.rubberBand) {
        if (event.buttons[win::kButtonLeft] != 0 && event.buttons[win::kButtonRight] != 0) {
            if (state_.dragging) {
                dragEndListeners.Call(kKindTexMove, false);
            }
            state_.dragging = false;
            state_.rubberBand = false;
        }
        return;
    }
    const bool left = event.button == win::kButtonLeft;
    if (left && !state_.shiftDown) {
        const int hot = selection_.hotItem;
        if (hot < 0 || hot >= static_cast<int>(document_.Wirrel().textures.size())) {
            state_.panning = true;
            state_.clickedEmpty = true;
        } else {
            Grab();
        }
    } else if (left || event.button == win::kButtonRight) {
        state_.rubberBand = true;
    }
}

// Takes hold of the hot texture: a texture not yet selected becomes the current one, held by its body.
void TextureInput::Grab() {
    const int hot = selection_.hotItem;
    if (!selection_.IsSelected(hot)) {
        Select(hot, kGripMove);
    }
    state_.dragging = true;
    const WirrelTexture& t = document_.Wirrel().textures[hot];
    state_.dragRect = TexRect{t.x, t.y, t.x + t.width, t.y + t.height};
    selection_.SetCurrent(hot, selection_.hotPart);
}

void TextureInput::ButtonUp(const InputEvent& event) {
    state_.mouseX = event.x;
    state_.mouseY = event.y;
    state_.scrollX = 0;
    state_.scrollY = 0;
    state_.scrollTimer = false;
    if (state_.rubberBand) {
        if (event.button != win::kButtonLeft && event.button != win::kButtonRight) {
            return;
        }
        state_.rubberBand = false;
        int width = 0;
        int height = 0;
        if (ImageSize(width, height)) {
            const TexRect rect = ScreenToImageRect(state_.view, state_.pressX, state_.pressY, state_.mouseX,
                                                   state_.mouseY, width, height);
            Send(std::make_shared<CommandTexCreate>(state_.imageIndex, document_, selection_, rect));
        }
        return;
    }
    if (event.button != win::kButtonLeft) {
        return;
    }
    if (state_.dragging) {
        dragEndListeners.Call(kKindTexMove, true);
    }
    if (state_.clickedEmpty && state_.mouseX == state_.pressX && state_.mouseY == state_.pressY &&
        selection_.currentItem != -1) {
        Select(-1, 0);
    }
    state_.dragging = false;
    state_.panning = false;
    state_.clickedEmpty = false;
}

void TextureInput::OnTimer() {
    if (!state_.dragging && !state_.rubberBand) {
        return;
    }
    const int width = state_.view.clientWidth;
    const int height = state_.view.clientHeight;
    int sx = state_.mouseX >= width - 1 ? state_.mouseX - width + 3 : std::min(state_.mouseX, 0);
    int sy = state_.mouseY >= height - 1 ? state_.mouseY - height : std::min(state_.mouseY, 0);
    sx /= 2;
    sy /= 2;
    // A fast shake along an edge pushes the scroll on.
    if (sx == 0 && sy != 0) {
        sy += sy > 0 ? state_.scrollX : -state_.scrollX;
    } else if (sy == 0 && sx != 0) {
        sx += sx > 0 ? state_.scrollY : -state_.scrollY;
    }
    state_.scrollX = std::max(0, state_.scrollX - std::max(7, state_.scrollX / 2));
    state_.scrollY = std::max(0, state_.scrollY - std::max(7, state_.scrollY / 2));

    const float mouseWorldX = WorldX(state_.view, static_cast<float>(state_.mouseX));
    const float mouseWorldY = WorldY(state_.view, static_cast<float>(state_.mouseY));
    Pan(state_.view, state_.limits, static_cast<float>(-sx), static_cast<float>(-sy));
    if (state_.dragging && selection_.currentItem >= 0) {
        Send(std::make_shared<CommandTexMove>(document_, selection_, state_.dragRect, selection_.currentPart,
                                              mouseWorldX - state_.pressWorldX,
                                              mouseWorldY - state_.pressWorldY));
    }
    if (state_.rubberBand) {
        // The band's first corner stays on its image pixel while the view scrolls.
        const ScreenMapping m = ScreenMapping::Of(state_.view);
        state_.pressX = static_cast<int>(std::lround(m.PixelX(state_.pressWorldX)));
        state_.pressY = static_cast<int>(std::lround(m.PixelY(state_.pressWorldY)));
    }
}

void TextureInput::Select(int texture, int part) {
    Send(std::make_shared<CommandSel>(document_, selection_, "Texture Selection", kKindTexSelection, texture,
                                      part, false));
}

void TextureInput::Send(std::shared_ptr<ICommand> command) {
    commandListeners.Call(std::move(command));
}

bool TextureInput::ImageSize(int& width, int& height) const {
    const auto image = document_.Image(state_.imageIndex);
    if (!image || image->surface.IsEmpty()) {
        return false;
    }
    width = image->surface.Width();
    height = image->surface.Height();
    return true;
}

}  // namespace kovra
