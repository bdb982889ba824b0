#include "state/unfinished.h"

namespace kovra {

void TellUnfinished(aurel::Prompt& prompt) {
    prompt.Tell("WIP", "This is demo functionality. Completed implementation coming shortly.");
}

}  // namespace kovra
