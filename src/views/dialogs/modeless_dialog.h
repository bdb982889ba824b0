#pragma once
// A dialog that stays open beside the editor: it opens where it last stood and remembers its place
// under its settings key when it closes.

#include <string>

#include "gui/i_res_dialog.h"
#include "settings/settings_store.h"

namespace kovra {

class ModelessDialog : public kestrel2::win::IResDialog {
public:
    ModelessDialog(aurel::DualString title, int width, int height, aurel::SettingsStore& settings,
                   std::string placementKey);

    // Opens over the owner, or brings the open dialog to the front.
    void Open(kestrel2::win::IGuiWindow* owner);
    // Remembers the place and closes.
    void Close();
    void Toggle(kestrel2::win::IGuiWindow* owner);

private:
    aurel::SettingsStore& settings_;
    std::string placementKey_;
};

}  // namespace kovra
