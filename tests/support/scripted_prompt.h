#pragma once
// A Prompt for tests: it records every question and answers from a queue that the test fills. When
// the queue is empty it gives the safe answer, so an unexpected question changes nothing.

#include <deque>
#include <vector>

#include "base/prompt.h"

namespace kovra::test {

class ScriptedPrompt : public aurel::Prompt {
public:
    int Ask(const aurel::PromptRequest& request) override;

    void Answer(int answer) { answers.push_back(answer); }

    std::vector<aurel::PromptRequest> asked;
    std::deque<int> answers;
};

}  // namespace kovra::test
