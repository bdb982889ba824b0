#include "state/state_title.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "anim/playback.h"
#include "app/app.h"
#include "gui/theme_palette.h"
#include "settings/lang.h"
#include "settings/path_info.h"
#include "settings/theme.h"
#include "state/main_menu.h"
#include "views/gui_main_view.h"
#include "views/gui_texture.h"
#include "views/dialogs/gui_dlg_history.h"
#include "views/dialogs/gui_dlg_quick.h"

namespace kovra {

namespace {

constexpr int kThemeWatchMs = 500;
constexpr int kWorkspaceId = 1;
constexpr int kTimelineId = 2;
constexpr int kPanelsId = 3;

// The files of `folder` whose extension is one of `extensions`, sorted by path; at most `limit`.
std::vector<aurel::DualString> ListFiles(const std::string& folder,
                                         std::initializer_list<std::string_view> extensions,
                                         std::size_t limit) {
    std::vector<std::string> found;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const aurel::PathInfo info(aurel::DualString(entry.path().string()));
        if (entry.is_regular_file(error) &&
            std::find(extensions.begin(), extensions.end(), info.extension) != extensions.end()) {
            found.push_back(entry.path().string());
        }
    }
    std::sort(found.begin(), found.end());
    found.resize(std::min(found.size(), limit));
    return {found.begin(), found.end()};
}

std::vector<aurel::DualString> NamesOf(const std::vector<aurel::DualString>& paths) {
    std::vector<aurel::DualString> names;
    for (const aurel::DualString& path : paths) {
        names.push_back(aurel::PathInfo(path).Name(false));
    }
    return names;
}

}  // namespace

StateTitle::StateTitle(ShellWindow& window, std::string programFolder, aurel::DualString commandLineFile)
    : window_(window),
      programFolder_(std::move(programFolder)),
      commandLineFile_(std::move(commandLineFile)) {
    workspace_ = std::make_shared<GuiMainView>(document_, *this, window_.Prompt());
    workflow_ = std::make_unique<FileWorkflow>(WorkflowContextOfState());
    document_.onChanged.Add(this, &StateTitle::OnDocumentChanged);
}

StateTitle::~StateTitle() {
    if (panels_) {
        panels_->Detach();
    }
    aurel::LanguageListeners().Remove(this, &StateTitle::OnLanguageChanged);
    aurel::ThemeListeners().Remove(this, &StateTitle::OnThemeChanged);
}

void StateTitle::Attach(aurel::App& app) {
    app_ = &app;
    recentFiles_ = std::make_unique<aurel::MruList>(app.Settings(), kMenuRecentCount);
    window_.Attach(*this, kThemeWatchMs);
}

void StateTitle::Init() {
    menu_ = std::make_unique<AutoMenu>(MainMenuTable());
    AddRules();
    aurel::LanguageListeners().AddUnique(this, &StateTitle::OnLanguageChanged);
    ScanFolders();
    RebuildFileMenus();

    aurel::SettingsStore& settings = app_->Settings();
    settings.Select("App");
    const std::string language = settings.GetString("Language", "English").Utf8();
    aurel::LoadLanguage(aurel::DualString(programFolder_ + "Lang/" + language + ".txt"), language, settings);
    settings.Select("App");
    std::string theme = settings.GetString("Theme", "Paleform").Utf8();
    std::string themePath = programFolder_ + "Themes/" + theme + ".txt";
    if (!aurel::PathInfo(aurel::DualString(themePath)).Exists()) {
        theme = "Paleform";
        themePath = programFolder_ + "Themes/Paleform.txt";
    }
    aurel::LoadTheme(aurel::DualString(themePath), theme, settings);
    document_.Reset(true);
    CreateViews();
    New();
    workflow_->OfferRecovery();
    for (const Accelerator& accelerator : MainAccelerators()) {
        window_.AddAccelerator(accelerator.keys, accelerator.id);
    }
    if (!commandLineFile_.empty()) {
        Open(commandLineFile_, false);
    }
    WhatsNewCheck();
}

void StateTitle::Shutdown() {
    // The modeless dialogs keep their places in the settings before the App writes them.
    if (history_) {
        history_->Close();
    }
    if (quick_) {
        quick_->Close();
    }
    workflow_->EndSession();
    window_.Detach();
    aurel::LanguageListeners().Remove(this, &StateTitle::OnLanguageChanged);
    aurel::ThemeListeners().Remove(this, &StateTitle::OnThemeChanged);
    // The recent list goes back into the settings before the App writes them.
    recentFiles_.reset();
}

void StateTitle::AddRules() {
    AutoMenu& menu = *menu_;
    menu.EnableWhen(kMenuPasteBackground,
                    [this] { return editMode_ != kModeTextures && window_.ClipboardHasBitmap(); });
    menu.EnableWhen(kMenuUndo, [this] { return stack_.CanUndo(); });
    menu.EnableWhen(kMenuRedo, [this] { return stack_.CanRedo(); });
    menu.EnableWhen(kMenuCut, [this] { return window_.TextBoxHasFocus(); });
    menu.EnableWhen(kMenuCopy, [this] { return window_.TextBoxHasFocus(); });
    menu.EnableWhen(kMenuPaste, [this] { return pinClipboard_.HoldsPins(); });
    menu.EnableWhen(kMenuDelete, [this] {
        return editMode_ == kModeTextures ? !TextureSelection().selected.empty() : workspace_->HasSelection();
    });
    menu.EnableWhen(kMenuMirror, [this] { return editMode_ != kModeTextures; });
    menu.EnableWhen(kMenuFlip, [this] { return editMode_ != kModeTextures; });
    menu.CheckWhen(kMenuLanguageFirst, kMenuLanguageCount, [this](int i) {
        return static_cast<std::size_t>(i) < languageFiles_.size() &&
               languageFiles_[i] == aurel::LoadedLanguagePath();
    });
    menu.CheckWhen(kMenuThemeFirst, kMenuThemeCount, [this](int i) {
        return static_cast<std::size_t>(i) < themeFiles_.size() && themeFiles_[i] == aurel::LoadedThemePath();
    });
}

void StateTitle::ScanFolders() {
    exampleFiles_ = ListFiles(programFolder_ + "Examples", {"ske", "ski"}, kMenuExampleCount);
    languageFiles_ = ListFiles(programFolder_ + "Lang", {"txt"}, kMenuLanguageCount);
    themeFiles_ = ListFiles(programFolder_ + "Themes", {"txt"}, kMenuThemeCount);
}

void StateTitle::RebuildFileMenus() {
    menu_->SetSubmenuFiles("FileOpenEx", kMenuExampleFirst, NamesOf(exampleFiles_));
    menu_->SetSubmenuFiles("EditLang", kMenuLanguageFirst, NamesOf(languageFiles_));
    menu_->SetSubmenuFiles("EditTheme", kMenuThemeFirst, NamesOf(themeFiles_));
    menu_->SetRecentFiles(recentFiles_->Paths());
}

void StateTitle::OnLanguageChanged() {
    menu_->ApplyLanguage();
    RebuildFileMenus();
    if (timeline_) {
        timeline_->ApplyLanguage();
    }
}

void StateTitle::CreateViews() {
    kestrel2::win::Gui& root = window_.Root();
    const aurel::Theme& theme = aurel::CurrentTheme();
    const ViewBoxes boxes = LayOutViews(root.width, root.height, theme.panels.padding);
    workspace_->Create(root, kWorkspaceId, boxes.workspace.x, boxes.workspace.y, boxes.workspace.width,
                       boxes.workspace.height);
    root.AddChild(workspace_);
    BindWorkspace();
    CreateTextureView(boxes.workspace);
    timeline_ = kestrel2::win::MakeChild<GuiFrames>(root, kTimelineId, boxes.timeline.x, boxes.timeline.y,
                                                    boxes.timeline.width, boxes.timeline.height, document_,
                                                    *this, PinSelection(), window_.Prompt());
    timeline_->commandListeners.Add(this, &StateTitle::RunCommand);
    timeline_->dragEndListeners.Add(&stack_, &CommandStack::FinishDrag);
    timeline_->eventListeners.Add(this, &StateTitle::OnTimelineEvent);
    timeline_->eventsDialogListeners.Add(this, &StateTitle::OnEventsDialog);
    document_.onChanged.Add(timeline_.get(), &GuiFrames::Invalidate);
    panels_ = kestrel2::win::MakeChild<GuiNav>(
        root, kPanelsId, boxes.panels.x, boxes.panels.y, boxes.panels.width, boxes.panels.height,
        NavContext{document_, *this, window_.Prompt(), PinSelection(), TextureSelection(), imageSelection_});
    panels_->commandListeners.Add(this, &StateTitle::RunCommand);
    panels_->pasteBackground = [this] { PasteBackground(); };
    OnThemeChanged();
    aurel::ThemeListeners().AddUnique(this, &StateTitle::OnThemeChanged);
}

// A theme brings its own defaults for the workspace's working colours, and its padding sets the width
// of the panel column.
void StateTitle::OnThemeChanged() {
    kestrel2::win::ApplyThemePalette(aurel::CurrentTheme());
    const aurel::ThemeWorkspace& colours = aurel::CurrentTheme().workspace;
    backgroundColor_ = colours.defBgColor;
    grid_.color0 = colours.defGridColor;
    grid_.origin = colours.defGridColor0;
    grid_.color1 = colours.defGridColor2;
    timeline_->OnThemeChanged();
    PlaceViews();
    panels_->OnDocumentChanged();
}

// The anchors keep every edge where it is as the window changes size.
void StateTitle::PlaceViews() {
    const kestrel2::win::Gui& root = window_.Root();
    const ViewBoxes boxes =
        LayOutViews(root.width, root.height, aurel::CurrentTheme().panels.padding, timeline_->Extended());
    workspace_->SetPos(boxes.workspace.x, boxes.workspace.y, boxes.workspace.width, boxes.workspace.height);
    timeline_->SetPos(boxes.timeline.x, boxes.timeline.y, boxes.timeline.width, boxes.timeline.height);
    panels_->SetPos(boxes.panels.x, boxes.panels.y, boxes.panels.width, boxes.panels.height);
    PlaceTextureView(boxes.workspace);
    workspace_->SetAnchors(true, true, true, true);
    timeline_->SetAnchors(true, false, true, true);
    panels_->SetAnchors(false, true, true, true);
    window_.Redraw();
}

void StateTitle::WhatsNewCheck() {
    const aurel::PathInfo changes(aurel::DualString(programFolder_ + "Changes.txt"));
    if (!changes.Exists()) {
        return;
    }
    const auto date = static_cast<std::int32_t>(changes.ModificationTime());
    aurel::SettingsStore& settings = app_->Settings();
    settings.Select("App");
    std::int32_t stored = 0;
    if (!settings.GetInt("RecentChanges", stored)) {
        settings.SetInt("RecentChanges", date);
        return;
    }
    if (stored == date) {
        return;
    }
    const std::string version = settings.GetString("RecentVersion", "").Utf8();
    ShowTextFile("Changes.txt", version.empty() ? "What's New" : "What's New Since v" + version);
    settings.Select("App");
    settings.SetInt("RecentChanges", date);
    settings.SetString("RecentVersion", KOVRA_VERSION);
}

void StateTitle::ShowTextFile(const std::string& file, const aurel::DualString& title) {
    std::ifstream stream(programFolder_ + file, std::ios::binary);
    if (!stream) {
        return;
    }
    std::ostringstream text;
    text << stream.rdbuf();
    window_.Prompt().Tell(title, text.str());
}

void StateTitle::Update() {
    if (busy) {
        return;
    }
    UpdateMenu();
    UpdateTitle();
    ShowModeView();
    const float elapsed = app_->Elapsed();
    if (playState_ == 1 && document_.HasCurrentAnim()) {
        Advance(document_, lastPlayState_ == 1 ? elapsed - lastElapsed_ : 0.0f);
    }
    lastElapsed_ = elapsed;
    // Only a playing animation changes the picture without an event; views repaint on their own
    // otherwise, and a redraw asked every frame would keep the event pump from ever idling.
    if (playState_ == 1 || lastPlayState_ != playState_) {
        window_.Redraw();
        workspace_->Redraw();
    }
    lastPlayState_ = playState_;
}

void StateTitle::UpdateMenu() {
    menu_->SetText(kMenuUndo, UndoMenuText(stack_, false));
    menu_->SetText(kMenuRedo, UndoMenuText(stack_, true));
    menu_->Refresh();
    window_.ShowMenu(menu_->Items());
}

void StateTitle::UpdateTitle() {
    const std::string name =
        document_.hasPath ? document_.path.Utf8() : aurel::Lang("COMMON", "Untitled").Utf8();
    const aurel::DualString title((stack_.IsDirty() ? "*" : "") + name + " - " + app_->Name().Utf8());
    if (!(window_.Title() == title)) {
        window_.SetTitle(title);
    }
}

// A theme read again reaches the views through the theme's listeners; the recovery copy keeps up.
void StateTitle::OnTimer() {
    aurel::RefreshTheme(app_->Settings());
    workflow_->TickRecovery(CrashRecovery::Clock::now());
}

void StateTitle::SetBackgroundLoaded(bool) {
    window_.Redraw();
    workspace_->Redraw();
}

bool StateTitle::OnCloseRequest() {
    return ConfirmSave();
}

void StateTitle::OnDrop(const aurel::DualString& path) {
    Open(path, false);
}

}  // namespace kovra
