#pragma once
// The editor's file commands: new, open, save, save as, the question whether to save a changed document
// on every way out, examples opened as templates, and the recovery of a document that a crash left
// behind. Everything it shows goes through the prompt and the document chooser, so that tests can play
// the user.

#include <functional>

#include "base/prompt.h"
#include "commands/command_stack.h"
#include "doc/editor_hub.h"
#include "doc/recovery_store.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "state/crash_recovery.h"
#include "state/document_chooser.h"
#include "state/document_workflow.h"
#include "state/pin_clipboard.h"

namespace kovra {

struct WorkflowContext {
    WirrelDoc& document;
    CommandStack& stack;
    EditorHub& hub;
    PinClipboard& pins;
    SelectionTracker& textureSelection;
    SelectionTracker& imageSelection;
    aurel::Prompt& prompt;
    DocumentChooser& chooser;
    CrashRecovery& recovery;
    // Runs when a document has been closed: playback stops and the views drop what they list.
    std::function<void()> onClosed;
    // Runs when a document has been opened: the views refill from it.
    std::function<void()> onOpened;
    // Runs when an opened document has notes, which greet whoever opens it.
    std::function<void()> onNotes;
    // Runs with a path that goes to the front of the recent list.
    std::function<void(const aurel::DualString&)> onRecent;
};

// Choices of the question about a recovery copy, in the order of their buttons.
enum RecoveryChoice : int { kRecoveryRestore = 0, kRecoveryDiscard = 1 };

class FileWorkflow : public DocumentWorkflow {
public:
    explicit FileWorkflow(WorkflowContext context) : context_(std::move(context)) {}

    bool New() override;
    bool OpenDialog() override;
    bool Open(const aurel::DualString& path, bool asTemplate) override;
    bool Save() override;
    bool SaveAs() override;
    bool ConfirmSave() override;

    // Asks about each copy that an earlier session left behind, newest first, until one is restored.
    void OfferRecovery();
    // Restores a copy as an unsaved document that remembers the path it was saved to before.
    bool Restore(const RecoveryCopy& copy);
    // Keeps the recovery copy in step with the document; called from the window timer.
    void TickRecovery(CrashRecovery::Clock::time_point now);
    // The editor ends normally: the document was saved or deliberately left.
    void EndSession();

private:
    bool CloseDocument();
    bool SaveTo(const aurel::DualString& path, bool isSke);
    // Steps shared by Open and Restore once the file is read: images, background, selection, views.
    void ShowOpened(const aurel::DualString& file, const std::vector<WirrelImageRecord>& images);
    void LoadBackground(const aurel::DualString& file);
    void TellError(const aurel::DualString& text);

    WorkflowContext context_;
};

}  // namespace kovra
