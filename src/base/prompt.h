#pragma once
// The one road by which code below the window layer asks the user something or tells them something:
// a message box with a title, a text, a set of buttons and an icon, answering with the button chosen.
// The editor shows a real dialog, the command-line tool prints and takes the safe answer, and tests
// script the answers.

#include <vector>

#include "base/dual_string.h"

namespace aurel {

enum class PromptButtons { Ok, OkCancel, YesNo, YesNoCancel, Custom };
enum class PromptIcon { None, Information, Question, Warning, Error };

// Answers for the standard button sets; a custom set answers with the index of the label chosen.
enum PromptAnswer : int { kAnswerOk = 1, kAnswerCancel = 2, kAnswerYes = 6, kAnswerNo = 7 };

struct PromptRequest {
    DualString title;
    DualString text;
    PromptButtons buttons = PromptButtons::Ok;
    PromptIcon icon = PromptIcon::None;
    std::vector<DualString> labels;  // only for PromptButtons::Custom
    // The box's own size in pixels where the question sets one; 0 leaves it to the toolkit.
    int width = 0;
    int height = 0;
};

class Prompt {
public:
    virtual ~Prompt() = default;
    virtual int Ask(const PromptRequest& request) = 0;

    // A plain message with an OK button.
    void Tell(const DualString& title, const DualString& text, PromptIcon icon = PromptIcon::None);
};

// A Prompt that shows nothing and always gives the safe answer, for work that must never stop to ask.
class SilentPrompt : public Prompt {
public:
    int Ask(const PromptRequest& request) override;
};

// The answer that changes nothing: Cancel where there is one, else No, else OK; for custom labels the
// last one, which by convention is the cancelling choice.
int SafeAnswer(const PromptRequest& request);

}  // namespace aurel
