#include "state/file_workflow.h"

#include <algorithm>
#include <cctype>

#include "settings/lang.h"
#include "settings/path_info.h"
#include "textures/document_images.h"

namespace kovra {

namespace {

bool IsSkeExtension(const aurel::DualString& path) {
    std::string extension = aurel::PathInfo(path).extension;
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension == "ske";
}

std::string RecoveryQuestion(const RecoveryCopy& copy) {
    const std::string name =
        copy.originalPath.empty() ? aurel::Lang("COMMON", "Untitled").Utf8() : copy.originalPath;
    return "Kovra ended without closing properly while the document " + name +
           " had unsaved changes, and a recovery copy of it was kept.\n\nRestore the copy as an unsaved "
           "document, or discard it?";
}

}  // namespace

void FileWorkflow::TellError(const aurel::DualString& text) {
    context_.prompt.Tell(aurel::Lang("MESSAGES", "Error"), text, aurel::PromptIcon::Error);
}

bool FileWorkflow::CloseDocument() {
    if (!ConfirmSave()) {
        return false;
    }
    context_.document.Reset(false);
    context_.stack.Clear();
    context_.recovery.Clear();
    context_.onClosed();
    return true;
}

bool FileWorkflow::New() {
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
    context_.onOpened();
    document.onChanged.Call();
    return true;
}

bool FileWorkflow::OpenDialog() {
    const aurel::DualString path = context_.chooser.ChooseOpen();
    return !path.empty() && Open(path, false);
}

bool FileWorkflow::Open(const aurel::DualString& path, bool asTemplate) {
    if (!aurel::PathInfo(path).Exists()) {
        TellError(aurel::Lang("MESSAGES", "ErrorFileExist"));
        return false;
    }
    if (!CloseDocument()) {
        return false;
    }
    WirrelDoc& document = context_.document;
    context_.hub.SetEditMode(kModeAnimate);
    context_.hub.SetSkinTool(kToolSkin);
    std::vector<WirrelImageRecord> images;
    if (!document.Load(path, context_.prompt, images, asTemplate)) {
        TellError(aurel::Lang("MESSAGES", "ErrorFileLoad"));
        New();
        return false;
    }
    ShowOpened(path, images);
    if (!asTemplate) {
        context_.onRecent(path);
    }
    context_.stack.MarkSaved();
    return true;
}

void FileWorkflow::ShowOpened(const aurel::DualString& file, const std::vector<WirrelImageRecord>& images) {
    WirrelDoc& document = context_.document;
    context_.hub.SetAnimListSelection(0);
    document.SetFrame(0);
    LoadDocumentImages(document, images, context_.prompt, context_.textureSelection, context_.imageSelection);
    LoadBackground(file);
    if (!document.notes.empty() || !document.notesImageData.empty()) {
        context_.onNotes();
    }
    document.SetFrame(0);
    context_.onOpened();
    document.onChanged.Call();
}

// The file keeps the background's path relative to itself; in memory it is absolute, so that a save
// elsewhere (or of a template, which has no path) finds the picture.
void FileWorkflow::LoadBackground(const aurel::DualString& file) {
    WirrelBackground& background = context_.document.background;
    if (background.path.empty()) {
        return;
    }
    if (aurel::IsRelative(background.path)) {
        background.path =
            aurel::Normalise(aurel::PathInfo(file).Folder(true).Utf8() + background.path.Utf8());
    }
    WirrelTexImage picture(background.path);
    if (picture.Load(background.path) == 0 && !picture.surface.IsEmpty()) {
        background.bitmap = std::move(picture.surface);
        context_.hub.SetBackgroundLoaded(true);
    }
}

bool FileWorkflow::Save() {
    const WirrelDoc& document = context_.document;
    if (!document.hasPath) {
        return SaveAs();
    }
    return SaveTo(document.path, document.fileWith);
}

bool FileWorkflow::SaveTo(const aurel::DualString& path, bool isSke) {
    std::string why;
    if (!context_.document.Save(path, isSke, context_.prompt, &why)) {
        // A refused question has already said why; a failed write has not.
        if (!why.empty()) {
            TellError("The document could not be saved to " + path.Utf8() + ": " + why);
        }
        return false;
    }
    context_.stack.MarkSaved();
    context_.recovery.Clear();
    return true;
}

bool FileWorkflow::SaveAs() {
    const aurel::DualString path = context_.chooser.ChooseSave();
    if (path.empty() || !SaveTo(path, IsSkeExtension(path))) {
        return false;
    }
    context_.onRecent(path);
    return true;
}

bool FileWorkflow::ConfirmSave() {
    if (!context_.stack.IsDirty()) {
        return true;
    }
    const int answer = context_.prompt.Ask({.title = aurel::Lang("COMMON", "SaveQ"),
                                            .text = aurel::Lang("MESSAGES", "FileSave"),
                                            .buttons = aurel::PromptButtons::YesNoCancel,
                                            .icon = aurel::PromptIcon::Question,
                                            .labels = {}});
    if (answer == aurel::kAnswerNo) {
        return true;
    }
    // A save that fails keeps the document open, so that nothing is lost.
    return answer == aurel::kAnswerYes && Save();
}

void FileWorkflow::OfferRecovery() {
    std::vector<RecoveryCopy> copies = context_.recovery.Store().Leftovers();
    for (auto copy = copies.rbegin(); copy != copies.rend(); ++copy) {
        const int answer = context_.prompt.Ask({.title = "Recover Document",
                                                .text = RecoveryQuestion(*copy),
                                                .buttons = aurel::PromptButtons::Custom,
                                                .icon = aurel::PromptIcon::Question,
                                                .labels = {"Restore", "Discard"}});
        if (answer == kRecoveryDiscard) {
            RecoveryStore::Discard(*copy);
            continue;
        }
        // Any other way out of the question keeps the copy for the next start.
        if (answer == kRecoveryRestore) {
            Restore(*copy);
        }
        return;
    }
}

bool FileWorkflow::Restore(const RecoveryCopy& copy) {
    if (!CloseDocument()) {
        return false;
    }
    context_.hub.SetEditMode(kModeAnimate);
    context_.hub.SetSkinTool(kToolSkin);
    std::vector<WirrelImageRecord> images;
    if (!RecoveryStore::Restore(copy, context_.document, context_.prompt, images)) {
        TellError(aurel::Lang("MESSAGES", "ErrorFileLoad"));
        New();
        return false;
    }
    ShowOpened(aurel::DualString(copy.file), images);
    context_.stack.MarkUnsaved();
    // The restored work is this session's now: its own copy replaces the one left behind.
    context_.recovery.WriteNow(context_.document);
    RecoveryStore::Discard(copy);
    return true;
}

void FileWorkflow::TickRecovery(CrashRecovery::Clock::time_point now) {
    context_.recovery.Tick(now, context_.document, context_.stack.IsDirty());
}

void FileWorkflow::EndSession() {
    context_.recovery.Clear();
}

}  // namespace kovra
