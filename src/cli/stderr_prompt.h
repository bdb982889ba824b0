#pragma once
// The command-line tool's Prompt: every question and message goes to stderr as one line, and the
// answer is always the safe one, so the tool never changes anything it was not asked to.

#include "base/prompt.h"

namespace kovra::cli {

class StderrPrompt : public aurel::Prompt {
public:
    int Ask(const aurel::PromptRequest& request) override;
};

// As StderrPrompt, but the question whether to turn an image's background colour into alpha is answered
// by the command line, and silently.
class ColorKeyPrompt : public StderrPrompt {
public:
    explicit ColorKeyPrompt(bool convert) : convert_(convert) {}
    int Ask(const aurel::PromptRequest& request) override;

private:
    bool convert_;
};

}  // namespace kovra::cli
