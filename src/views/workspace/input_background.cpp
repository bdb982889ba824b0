// Background mode: the left button drags the picture, the wheel scales it, Delete takes it away.

#include "commands/bg_commands.h"
#include "views/workspace/workspace_input.h"

namespace kovra {

using namespace kestrel2::win;

namespace {
constexpr std::uint8_t kKeyDelete = 0x2E;
}

void WorkspaceInput::OnInputBackground(const InputEvent& event) {
    const WirrelBackground& bg = doc_.background;
    const bool hasImage = !bg.bitmap.IsEmpty();
    switch (event.type) {
        case kInputKeyDown:
            if (event.key == kKeyDelete) {
                Send(std::make_shared<CommandBgClear>(doc_, hub_));
            } else {
                eventListeners.Call(event);
            }
            break;
        case kInputMouseMove:
            if (state_.panning && hasImage) {
                BgPlacement placement = BgPlacement::Of(bg);
                const float zoom = state_.view.zoom;
                placement.offsetX = static_cast<float>(event.dx) / bg.scale / zoom + bg.offsetX;
                placement.offsetY = static_cast<float>(event.dy) / bg.scale / zoom + bg.offsetY;
                Send(std::make_shared<CommandBgChange>(doc_, "Change Background Offset", kKindBgOffset,
                                                       placement));
            }
            break;
        case kInputButtonDown:
            if (hasImage && event.button == kButtonLeft) {
                state_.panning = true;
            } else if (hasImage && event.button == kButtonRight && state_.panning) {
                state_.panning = false;
                EndDrag(kKindBgOffset, false);
            }
            break;
        case kInputButtonUp:
            if (event.button == kButtonLeft && state_.panning) {
                EndDrag(kKindBgOffset, true);
            }
            break;
        case kInputWheel:
            if (hasImage) {
                BgPlacement placement = BgPlacement::Of(bg);
                placement.scale = bg.scale + (event.dy < 1 ? bg.scale * 0.1f : -bg.scale * 0.1f);
                Send(std::make_shared<CommandBgChange>(doc_, "Change Background Scale", kKindBgScale,
                                                       placement));
            } else {
                eventListeners.Call(event);
            }
            break;
        default:
            break;
    }
}

}  // namespace kovra
