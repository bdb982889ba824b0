#pragma once
// The command-line tool's Prompt: every question and message goes to stderr as one line, and the
// answer is always the safe one, so the tool never changes anything it was not asked to.

#include "base/prompt.h"

namespace kovra::cli {

class StderrPrompt : public aurel::Prompt {
public:
    int Ask(const aurel::PromptRequest& request) override;
};

}  // namespace kovra::cli
