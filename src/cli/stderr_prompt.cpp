#include "cli/stderr_prompt.h"

#include <cstdio>

namespace kovra::cli {

int StderrPrompt::Ask(const aurel::PromptRequest& request) {
    std::fprintf(stderr, "%s: %s\n", request.title.c_str(), request.text.c_str());
    return aurel::SafeAnswer(request);
}

int ColorKeyPrompt::Ask(const aurel::PromptRequest& request) {
    if (request.title.Utf8() == "Color key" && request.buttons == aurel::PromptButtons::YesNo) {
        return convert_ ? aurel::kAnswerYes : aurel::kAnswerNo;
    }
    return StderrPrompt::Ask(request);
}

}  // namespace kovra::cli
