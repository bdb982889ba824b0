#include "views/dialogs/modeless_dialog.h"

#include "views/dialogs/window_placement.h"

namespace kovra {

ModelessDialog::ModelessDialog(aurel::DualString title, int width, int height, aurel::SettingsStore& settings,
                               std::string placementKey)
    : IResDialog(std::move(title), width, height),
      settings_(settings),
      placementKey_(std::move(placementKey)) {}

void ModelessDialog::Open(kestrel2::win::IGuiWindow* owner) {
    const WindowPlacement place = LoadPlacement(settings_, placementKey_).value_or(WindowPlacement{});
    ShowModeless(owner, place.x, place.y, place.width, place.height);
}

void ModelessDialog::Close() {
    if (IsOpen()) {
        SavePlacement(settings_, placementKey_, {x, y, width, height});
        CloseModeless();
    }
}

void ModelessDialog::Toggle(kestrel2::win::IGuiWindow* owner) {
    if (IsOpen()) {
        Close();
    } else {
        Open(owner);
    }
}

}  // namespace kovra
