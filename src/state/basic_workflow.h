#pragma once
// The file commands as far as they stand without the file dialogs and the image loading of an opened
// document: New and the save question work, Save writes a document that has a path, and choosing a file
// to open or to save to says that it is not finished yet.

#include <functional>

#include "base/prompt.h"
#include "commands/command_stack.h"
#include "doc/editor_hub.h"
#include "doc/wirrel_doc.h"
#include "state/document_workflow.h"
#include "state/pin_clipboard.h"

namespace kovra {

struct WorkflowContext {
    WirrelDoc& document;
    CommandStack& stack;
    EditorHub& hub;
    PinClipboard& pins;
    aurel::Prompt& prompt;
    // Runs when a document has been closed: playback stops and the views drop what they list.
    std::function<void()> onClosed;
};

// "This is demo functionality. ..." with the title "WIP": what a function that is not finished says.
void TellUnfinished(aurel::Prompt& prompt);

class BasicWorkflow : public DocumentWorkflow {
public:
    explicit BasicWorkflow(WorkflowContext context) : context_(std::move(context)) {}

    bool New() override;
    bool OpenDialog() override;
    bool Open(const aurel::DualString& path, bool asTemplate) override;
    bool Save() override;
    bool SaveAs() override;
    bool ConfirmSave() override;

private:
    bool CloseDocument();

    WorkflowContext context_;
};

}  // namespace kovra
