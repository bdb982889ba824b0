#include "state/basic_workflow.h"

#include "settings/lang.h"

namespace kovra {

void TellUnfinished(aurel::Prompt& prompt) {
    prompt.Tell("WIP", "This is demo functionality. Completed implementation coming shortly.");
}

bool BasicWorkflow::CloseDocument() {
    if (!ConfirmSave()) {
        return false;
    }
    context_.document.Reset(false);
    context_.stack.Clear();
    context_.onClosed();
    return true;
}

bool BasicWorkflow::New() {
    if (!CloseDocument()) {
        return false;
    }
    WirrelDoc& document = context_.document;
    document.Reset(true);
    // A new document begins in texture mode, since nothing can be built without images.
    context_.hub.SetEditMode(kModeTextures);
    context_.hub.SetSkinTool(kToolSkin);
    context_.hub.SetAnimListSelection(0);
    document.SetFrame(0);
    context_.pins.Clear();
    document.onChanged.Call();
    return true;
}

bool BasicWorkflow::OpenDialog() {
    TellUnfinished(context_.prompt);
    return false;
}

bool BasicWorkflow::Open(const aurel::DualString&, bool) {
    TellUnfinished(context_.prompt);
    return false;
}

bool BasicWorkflow::Save() {
    WirrelDoc& document = context_.document;
    if (!document.hasPath) {
        return SaveAs();
    }
    if (!document.Save(document.path, document.fileWith, context_.prompt)) {
        return false;
    }
    context_.stack.MarkSaved();
    return true;
}

bool BasicWorkflow::SaveAs() {
    TellUnfinished(context_.prompt);
    return false;
}

bool BasicWorkflow::ConfirmSave() {
    if (!context_.stack.IsDirty()) {
        return true;
    }
    const int answer = context_.prompt.Ask({.title = aurel::Lang("COMMON", "SaveQ"),
                                            .text = aurel::Lang("MESSAGES", "FileSave"),
                                            .buttons = aurel::PromptButtons::YesNoCancel,
                                            .icon = aurel::PromptIcon::Question,
                                            .labels = {}});
    if (answer == aurel::kAnswerCancel) {
        return false;
    }
    if (answer == aurel::kAnswerNo) {
        return true;
    }
    if (context_.document.hasPath) {
        Save();
        return true;
    }
    return SaveAs();
}

}  // namespace kovra
