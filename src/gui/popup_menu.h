#pragma once
// A menu that pops up under a control, such as the one a button opens, and answers the id of the entry
// chosen, 0 when none was.

#include <vector>

#include "gui/menu_bar.h"

namespace kestrel2::win {

class IGuiWindow;

int PopupMenu(IGuiWindow& below, const std::vector<MenuNode>& entries);

}  // namespace kestrel2::win
