#include "base/prompt.h"

namespace aurel {

void Prompt::Tell(const DualString& title, const DualString& text, PromptIcon icon) {
    Ask(PromptRequest{title, text, PromptButtons::Ok, icon, {}});
}

int SilentPrompt::Ask(const PromptRequest& request) { return SafeAnswer(request); }

int SafeAnswer(const PromptRequest& request) {
    switch (request.buttons) {
        case PromptButtons::Ok:
            return kAnswerOk;
        case PromptButtons::OkCancel:
        case PromptButtons::YesNoCancel:
            return kAnswerCancel;
        case PromptButtons::YesNo:
            return kAnswerNo;
        case PromptButtons::Custom:
            return request.labels.empty() ? 0 : static_cast<int>(request.labels.size()) - 1;
    }
    return kAnswerCancel;
}

}  // namespace aurel
