#include "support/scripted_prompt.h"

namespace kovra::test {

int ScriptedPrompt::Ask(const aurel::PromptRequest& request) {
    asked.push_back(request);
    if (answers.empty()) {
        return aurel::SafeAnswer(request);
    }
    const int answer = answers.front();
    answers.pop_front();
    return answer;
}

}  // namespace kovra::test
