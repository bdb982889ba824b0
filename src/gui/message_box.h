#pragma once
// Message boxes of the window layer.

namespace kestrel2::win {

// Shows an exception's message, owned by the main window when `withOwner` is set and the window exists;
// installed with aurel::SetExceptionBox.
void ShowExceptionBox(const char* message, const char* title, bool withOwner);

}  // namespace kestrel2::win
