#pragma once
// Where a modeless dialog stood when it closed, kept in the settings under "Window Placement" as the
// four integers x, y, width and height, so that it opens there again.

#include <optional>
#include <string>

#include "settings/settings_store.h"

namespace kovra {

struct WindowPlacement {
    int x = 0, y = 0, width = 0, height = 0;
    bool operator==(const WindowPlacement&) const = default;
};

std::optional<WindowPlacement> LoadPlacement(aurel::SettingsStore& settings, const std::string& key);
void SavePlacement(aurel::SettingsStore& settings, const std::string& key, const WindowPlacement& place);

}  // namespace kovra
