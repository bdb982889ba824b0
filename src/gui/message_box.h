#pragma once
// Message boxes of the window layer: the box of a platform exception, and the editor's Prompt, the one
// road by which code below the window layer asks the user something.

#include "base/prompt.h"

namespace kestrel2::win {

// Shows an exception's message, owned by the main window when `withOwner` is set and the window exists;
// installed with aurel::SetExceptionBox.
void ShowExceptionBox(const char* message, const char* title, bool withOwner);

// Asks with a native message box over the main window. Esc and the close button give the safe answer.
class MessageBoxPrompt : public aurel::Prompt {
public:
    int Ask(const aurel::PromptRequest& request) override;
};

}  // namespace kestrel2::win
