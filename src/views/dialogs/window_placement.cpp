#include "views/dialogs/window_placement.h"

namespace kovra {

namespace {

constexpr const char* kSection = "Window Placement";

}  // namespace

std::optional<WindowPlacement> LoadPlacement(aurel::SettingsStore& settings, const std::string& key) {
    settings.Select(kSection);
    const std::vector<std::int32_t> values = settings.GetInts(key);
    if (values.size() != 4 || values[2] <= 0 || values[3] <= 0) {
        return std::nullopt;
    }
    return WindowPlacement{values[0], values[1], values[2], values[3]};
}

void SavePlacement(aurel::SettingsStore& settings, const std::string& key, const WindowPlacement& place) {
    settings.Select(kSection);
    aurel::SettingsValue value;
    value.ints = {place.x, place.y, place.width, place.height};
    settings.Set(key, value);
}

}  // namespace kovra
