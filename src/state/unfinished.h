#pragma once
// What a function of the editor that is not finished yet says when it is chosen.

#include "base/prompt.h"

namespace kovra {

// "This is demo functionality. ..." with the title "WIP".
void TellUnfinished(aurel::Prompt& prompt);

}  // namespace kovra
