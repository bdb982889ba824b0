#include "cli/stderr_prompt.h"

#include <cstdio>

namespace kovra::cli {

int StderrPrompt::Ask(const aurel::PromptRequest& request) {
    std::fprintf(stderr, "%s: %s\n", request.title.c_str(), request.text.c_str());
    return aurel::SafeAnswer(request);
}

}  // namespace kovra::cli
