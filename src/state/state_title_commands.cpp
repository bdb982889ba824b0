// The editor state's answers to menu commands, accelerators and the keys that no control took.

#include "app/app.h"
#include "commands/bg_commands.h"
#include "commands/editor_commands.h"
#include "commands/frame_commands.h"
#include "commands/pin_commands.h"
#include "settings/lang.h"
#include "settings/path_info.h"
#include "settings/theme.h"
#include "state/main_menu.h"
#include "state/state_title.h"
#include "state/unfinished.h"
#include "views/gui_main_view.h"

namespace kovra {

namespace {

enum VirtualKey : int {
    kKeySpace = 0x20,
    kKeyPageUp = 0x21,
    kKeyPageDown = 0x22,
    kKeyLeft = 0x25,
    kKeyRight = 0x27,
    kKeyDelete = 0x2E,
    kKeyF5 = 0x74,
    kKeyF7 = 0x76,
};

// The keys that the menu names beside its entries.
constexpr std::pair<int, int> kKeyCommands[] = {
    {'H', kMenuHistory},   {'N', kMenuNotes},         {'E', kMenuEvents},
    {'K', kMenuQuickKeys}, {kKeyF5, kMenuAutoDetect}, {kKeyF7, kMenuPack},
};

bool InRange(int id, int first, int count) {
    return id >= first && id < first + count;
}

// The name of a language or theme file: what lies between the last separator and the last dot.
std::string BaseName(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    const std::size_t dot = path.rfind('.');
    return path.substr(start, dot == std::string::npos || dot < start ? std::string::npos : dot - start);
}

}  // namespace

void StateTitle::OnMenuCommand(int id) {
    if (InRange(id, kMenuRecentFirst, kMenuRecentCount)) {
        OpenRecent(static_cast<std::size_t>(id - kMenuRecentFirst));
        return;
    }
    if (InRange(id, kMenuExampleFirst, kMenuExampleCount)) {
        const auto index = static_cast<std::size_t>(id - kMenuExampleFirst);
        if (index < exampleFiles_.size()) {
            Open(exampleFiles_[index], true);
        }
        return;
    }
    if (InRange(id, kMenuLanguageFirst, kMenuLanguageCount)) {
        LoadLanguageAt(static_cast<std::size_t>(id - kMenuLanguageFirst));
        return;
    }
    if (InRange(id, kMenuThemeFirst, kMenuThemeCount)) {
        LoadThemeAt(static_cast<std::size_t>(id - kMenuThemeFirst));
        return;
    }
    const bool textureMode = editMode_ == kModeTextures;
    const bool imageSelected = !imageSelection_.selected.empty();
    switch (id) {
        case kMenuNew:
        case kAccelNew:
            New();
            break;
        case kMenuOpen:
        case kAccelOpen:
            workflow_->OpenDialog();
            break;
        case kMenuSave:
        case kAccelSave:
            window_.CommitTextBox();
            workflow_->Save();
            break;
        case kMenuSaveAs:
        case kAccelSaveAs:
            window_.CommitTextBox();
            SaveAs();
            break;
        case kMenuExportSprites:
            window_.Prompt().Tell("Not yet...",
                                  "This is placeholder functionality. This feature will be implemented in a "
                                  "future version of Kovra.");
            OpenDialog(id);
            break;
        case kMenuExit:
            Exit();
            break;
        case kMenuUndo:
        case kAccelUndo:
            Undo();
            break;
        case kMenuRedo:
        case kAccelRedo:
            stack_.UndoRedo(true, *this);
            break;
        case kMenuCut:
        case kAccelCut:
            window_.EditTextBox(TextBoxEdit::Cut);
            break;
        case kMenuCopy:
        case kAccelCopy:
            if (!window_.EditTextBox(TextBoxEdit::Copy)) {
                CopyPins();
            }
            break;
        case kMenuPaste:
        case kAccelPaste:
            if (!window_.EditTextBox(TextBoxEdit::Paste)) {
                Paste();
            }
            break;
        case kMenuDelete:
            DeleteInView();
            break;
        case kMenuMirror:
        case kMenuFlip:
            if (!textureMode && document_.HasCurrentAnim()) {
                RunCommand(std::make_shared<CommandFrameReflect>(document_, id == kMenuMirror ? 1 : 0));
            }
            break;
        case kMenuAutoDetect:
            if (textureMode && imageSelected) {
                AutoDetect();
            }
            break;
        case kMenuPack:
            if (textureMode && imageSelected) {
                OpenDialog(id);
            } else {
                PasteBackground();
            }
            break;
        case kMenuPasteBackground:
            PasteBackground();
            break;
        case kMenuHistory:
        case kMenuNotes:
        case kMenuEvents:
        case kMenuQuickKeys:
        case kMenuAbout:
        case kMenuChangeLog:
            OpenDialog(id);
            break;
        default:
            break;
    }
}

void StateTitle::OnKey(int key) {
    switch (key) {
        case kKeySpace:
            TogglePlayback();
            return;
        case kKeyPageUp:
        case kKeyPageDown:
            StepPin(key == kKeyPageDown ? 1 : -1);
            return;
        case kKeyLeft:
        case kKeyRight:
            StepFrame(key == kKeyRight ? 1 : -1);
            return;
        case kKeyDelete:
            DeleteInView();
            return;
        case '1':
        case '2':
        case '3':
        case '4':
            ChangeEditMode(key - '1');
            return;
        case 'T':
            ToggleExtendedTimeline();
            return;
        default:
            break;
    }
    for (const auto& [code, id] : kKeyCommands) {
        if (code == key) {
            OnMenuCommand(id);
        }
    }
}

void StateTitle::OnTimelineEvent(const kestrel2::win::InputEvent& event) {
    if (event.type == kestrel2::win::kInputKeyDown) {
        OnKey(event.key);
    }
}

// The events dialog is not there yet.
void StateTitle::OnEventsDialog(int) {
    TellUnfinished(window_.Prompt());
}

void StateTitle::ToggleExtendedTimeline() {
    timeline_->SetExtended(!timeline_->Extended());
    PlaceViews();
}

void StateTitle::RunCommand(std::shared_ptr<ICommand> command) {
    stack_.AddCommand(std::move(command));
}

void StateTitle::Undo() {
    if (!window_.EditTextBox(TextBoxEdit::Undo)) {
        stack_.UndoRedo(false, *this);
    }
}

void StateTitle::CopyPins() {
    if (document_.HasCurrentAnim() && !PinSelection().selected.empty()) {
        pinClipboard_.Copy(document_.CurrentKey(),
                           {PinSelection().selected.begin(), PinSelection().selected.end()});
    }
}

void StateTitle::Paste() {
    if (pinClipboard_.HoldsPins() && document_.HasCurrentAnim()) {
        RunCommand(PastePins(document_, pinClipboard_));
        // Two pastes in a row stay two steps of the history.
        stack_.FinishDrag(kKindPinPaste, true);
    }
}

void StateTitle::ChangeEditMode(int mode) {
    RunCommand(std::make_shared<CommandEditorMode>(*this, mode));
}

void StateTitle::TogglePlayback() {
    if (playState_ == 1) {
        StopPlayback();
    } else if (document_.HasCurrentAnim()) {
        SetPlayState(1);
        playStartFrame_ = document_.cursor.frameIndex;
        playStartHot_ = PinSelection().hotItem;
    }
}

void StateTitle::StopPlayback() {
    if (playState_ != 1) {
        return;
    }
    SetPlayState(0);
    const std::uint32_t frame = document_.cursor.frameIndex;
    // The stop records itself only when it moved away from where playback began.
    document_.SetFrame(frame);
    if (frame != playStartFrame_) {
        RunCommand(std::make_shared<CommandEditorPlay>(document_, PinSelection(), playStartHot_,
                                                       PinSelection().hotItem, playStartFrame_, frame));
    }
}

void StateTitle::StepFrame(int step) {
    if (!document_.HasCurrentAnim()) {
        return;
    }
    const auto count = static_cast<std::int64_t>(document_.CurrentAnim().keys.size());
    const std::int64_t index =
        (static_cast<std::int64_t>(document_.cursor.frameIndex) + step + count) % count;
    RunCommand(std::make_shared<CommandFrameSel>(document_, static_cast<std::uint32_t>(index)));
}

void StateTitle::StepPin(int step) {
    if (!document_.HasCurrentAnim() || document_.CurrentKey().pins.empty()) {
        return;
    }
    const int count = static_cast<int>(document_.CurrentKey().pins.size());
    const int current = PinSelection().currentItem;
    const int next = step > 0 ? (current + 1) % count : (current <= 0 ? count - 1 : current - 1);
    RunCommand(std::make_shared<CommandSel>(document_, PinSelection(), "Pin Selection", kKindPinSelection,
                                            next, 0, false));
}

void StateTitle::PasteBackground() {
    if (editMode_ == kModeTextures) {
        return;
    }
    const std::vector<std::uint8_t> picture = window_.ClipboardBitmap();
    if (picture.empty()) {
        return;
    }
    auto load =
        std::make_shared<CommandBgLoad>(document_, *this, window_.Prompt(), picture.data(), picture.size());
    if (load->valid) {
        RunCommand(std::move(load));
    }
}

void StateTitle::OpenRecent(std::size_t index) {
    const std::vector<aurel::DualString>& paths = recentFiles_->Paths();
    if (index >= paths.size()) {
        return;
    }
    const aurel::DualString path = paths[index];
    if (aurel::PathInfo(path).Exists()) {
        Open(path, false);
        return;
    }
    const int answer = window_.Prompt().Ask({.title = aurel::Lang("COMMON", "RemoveQ"),
                                             .text = aurel::Lang("MESSAGES", "FileRemove"),
                                             .buttons = aurel::PromptButtons::YesNo,
                                             .icon = aurel::PromptIcon::Question,
                                             .labels = {}});
    if (answer == aurel::kAnswerYes) {
        recentFiles_->Remove(path);
        RebuildFileMenus();
    }
}

void StateTitle::LoadLanguageAt(std::size_t index) {
    if (index < languageFiles_.size()) {
        const aurel::DualString& path = languageFiles_[index];
        aurel::LoadLanguage(path, BaseName(path.Utf8()), app_->Settings());
    }
}

void StateTitle::LoadThemeAt(std::size_t index) {
    if (index < themeFiles_.size()) {
        const aurel::DualString& path = themeFiles_[index];
        aurel::LoadTheme(path, BaseName(path.Utf8()), app_->Settings());
    }
}

void StateTitle::Exit() {
    if (ConfirmSave()) {
        window_.Close();
    }
}

}  // namespace kovra
