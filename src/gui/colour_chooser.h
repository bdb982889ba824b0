#pragma once
// The platform's colour chooser: shows a colour and lets the user pick another.

#include "base/color32.h"

namespace kestrel2::win {

class IGuiWindow;

// Opens the chooser on `colour` over the owner's window (the main window when null); true, with the
// choice in `colour`, when the user confirmed. The alpha of the colour is kept.
bool ChooseColour(IGuiWindow* owner, aurel::Color32& colour);

}  // namespace kestrel2::win
