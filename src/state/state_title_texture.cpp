// The editor state's side of the texture view: it stands where the workspace stands and takes its place
// in texture mode, shows the image chosen in the image list, hands its commands to the stack and the keys
// and wheel it doesn't use back to the editor.

#include <algorithm>

#include "gui/virtual_keys.h"
#include "state/state_title.h"
#include "textures/texture_commands.h"
#include "views/gui_main_view.h"
#include "views/gui_texture.h"
#include "views/workspace/workspace_camera.h"

namespace kovra {

namespace {

constexpr int kTextureId = 4;

}  // namespace

void StateTitle::CreateTextureView(const kestrel2::win::Box& box) {
    texture_ = kestrel2::win::MakeChild<GuiTexture>(window_.Root(), kTextureId, box.x, box.y, box.width,
                                                    box.height, document_, TextureSelection(),
                                                    imageSelection_, window_.Prompt());
    texture_->Show(false);
    texture_->commandListeners.Add(this, &StateTitle::RunCommand);
    texture_->dragEndListeners.Add(&stack_, &CommandStack::FinishDrag);
    texture_->eventListeners.Add(this, &StateTitle::OnTextureEvent);
    imageSelection_.onCurrentChanged.Add(this, &StateTitle::OnImageChosen);
}

void StateTitle::PlaceTextureView(const kestrel2::win::Box& box) {
    texture_->SetPos(box.x, box.y, box.width, box.height);
    texture_->SetAnchors(true, true, true, true);
}

void StateTitle::ShowModeView() {
    const bool textures = editMode_ == kModeTextures;
    if (texture_->IsVisible() != textures) {
        texture_->Show(textures);
        workspace_->Show(!textures);
    }
}

void StateTitle::OnTextureEvent(const kestrel2::win::InputEvent& event) {
    if (event.type == kestrel2::win::kInputKeyDown) {
        OnKey(event.key);
    } else if (event.type == kestrel2::win::kInputWheel && event.dy != 0) {
        texture_->AddZoom(WheelZoomDelta(texture_->state.view.zoom, event.dy));
    }
}

// Without an image chosen the view shows the first one.
void StateTitle::OnImageChosen(int image) {
    texture_->SetImage(std::max(image, 0));
}

void StateTitle::AutoDetect() {
    auto detect = std::make_shared<CommandTexAutoDetect>(document_, window_.Prompt(), TextureSelection(),
                                                         imageSelection_);
    if (detect->succeeded) {
        RunCommand(std::move(detect));
    }
}

// The view deletes as at its Delete key, warning first when skins use the textures. With no image it
// passes its keys on, back to here, so then there is nothing to press.
void StateTitle::PressDeleteInTextureView() {
    if (!document_.images.empty()) {
        texture_->input.KeyDown(kestrel2::win::kVkDelete, false);
        texture_->input.KeyUp(kestrel2::win::kVkDelete);
    }
}

}  // namespace kovra
