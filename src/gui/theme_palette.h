#pragma once
// The toolkit's own widgets (menus, buttons, edits, list and dialog backgrounds, tooltips) take their
// colours from the editor's theme, so that a dark theme darkens the whole window and not only the views.

#include "settings/theme_table.h"

namespace kestrel2::win {

void ApplyThemePalette(const aurel::Theme& theme);

}  // namespace kestrel2::win
