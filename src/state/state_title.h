#pragma once
// The one application state of the editor. It owns the document, the undo stack, the menu and the
// selections that the views share, turns menu commands and keys that no view took into calls on them,
// keeps the window title and the menu's enabling, labels and check marks in step once a frame, advances
// playback, and watches the theme file. It is also the editor hub that commands change editor state
// through.

#include <memory>
#include <string>
#include <vector>

#include "app/i_state.h"
#include "base/dual_string.h"
#include "commands/command_stack.h"
#include "doc/editor_hub.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "settings/mru_list.h"
#include "state/auto_menu.h"
#include "state/crash_recovery.h"
#include "state/document_chooser.h"
#include "state/file_workflow.h"
#include "state/pin_clipboard.h"
#include "state/shell_window.h"
#include "state/view_layout.h"
#include "views/nav/gui_nav.h"
#include "views/gui_frames.h"

namespace aurel {
class App;
}

namespace kestrel2::win {
struct InputEvent;
}

namespace kovra {

class GuiMainView;
class GuiTexture;
class GuiDlgHistory;
class GuiDlgQuick;

class StateTitle : public aurel::IState, public EditorHub, public ShellHandler {
public:
    // `programFolder` holds Lang/, Themes/, Examples/ and the help files and ends with a separator;
    // `commandLineFile` is the document named on the command line, or empty.
    StateTitle(ShellWindow& window, std::string programFolder, aurel::DualString commandLineFile);
    ~StateTitle() override;

    void Attach(aurel::App& app) override;
    void Update() override;
    void Init() override;
    void Shutdown() override;

    void OnMenuCommand(int id) override;
    void OnKey(int key) override;
    void OnDrop(const aurel::DualString& path) override;
    void OnTimer() override;
    bool OnCloseRequest() override;

    int EditMode() const override { return editMode_; }
    void SetEditMode(int mode) override;
    int SkinTool() const override { return skinTool_; }
    void SetSkinTool(int tool) override;
    int AnimListSelection() const override { return animListSelection_; }
    void SetAnimListSelection(int index) override { animListSelection_ = index; }
    bool IsPlaying() const override { return playState_ == 1; }
    void StopPlayback() override;
    WorkGrid Grid() const override { return grid_; }
    void SetGrid(const WorkGrid& grid) override { grid_ = grid; }
    aurel::Color32 BackgroundColor() const override { return backgroundColor_; }
    void SetBackgroundColor(aurel::Color32 colour) override { backgroundColor_ = colour; }
    void SetBackgroundLoaded(bool loaded) override;

    bool New() { return workflow_->New(); }
    bool Open(const aurel::DualString& path, bool asTemplate) { return workflow_->Open(path, asTemplate); }
    bool SaveAs() { return workflow_->SaveAs(); }
    bool ConfirmSave() { return workflow_->ConfirmSave(); }

    WirrelDoc& Document() { return document_; }
    CommandStack& Stack() { return stack_; }
    const AutoMenu& Menu() const { return *menu_; }
    GuiMainView& Workspace() { return *workspace_; }
    PinClipboard& Clipboard() { return pinClipboard_; }
    // The workspace's trackers are the one pin and texture selection that every view shares.
    SelectionTracker& PinSelection();
    SelectionTracker& TextureSelection();
    SelectionTracker& ImageSelection() { return imageSelection_; }
    // Set while a long action runs; Update then does nothing.
    bool busy = false;

private:
    void AddRules();
    // How the file commands reach the document, the views and the menus of this state.
    WorkflowContext WorkflowContextOfState();
    void ScanFolders();
    void RebuildFileMenus();
    void OnLanguageChanged();
    void CreateViews();
    void BindWorkspace();
    void OnThemeChanged();
    void PlaceViews();
    void WhatsNewCheck();
    // The texture view (state_title_texture.cpp): it takes the workspace's place in texture mode.
    void CreateTextureView(const kestrel2::win::Box& box);
    void PlaceTextureView(const kestrel2::win::Box& box);
    void ShowModeView();
    void OnTextureEvent(const kestrel2::win::InputEvent& event);
    void OnImageChosen(int image);
    void AutoDetect();
    void PressDeleteInTextureView();
    void UpdateMenu();
    void UpdateTitle();

    void RunCommand(std::shared_ptr<ICommand> command);
    void Undo();
    void CopyPins();
    void Paste();
    void PasteBackground();
    void DeleteInView();
    void ChangeEditMode(int mode);
    void TogglePlayback();
    void SetPlayState(int state);
    void OnWorkspaceEvent(const kestrel2::win::InputEvent& event);
    void OnDocumentChanged();
    void StepFrame(int step);
    void StepPin(int step);
    void OpenRecent(std::size_t index);
    void LoadLanguageAt(std::size_t index);
    void LoadThemeAt(std::size_t index);
    void ShowTextFile(const std::string& file, const aurel::DualString& title);
    // The dialogs, opened from the menu and keys.
    void OpenDialog(int menuId);
    GuiDlgQuick& QuickDialog();
    // The quick help follows the edit mode and the build tool.
    void ShowQuickPage();
    // Keys the timeline passes on; its extended view, shown and hidden by the key T.
    void OnTimelineEvent(const kestrel2::win::InputEvent& event);
    void OnEventsDialog(int frame);
    void ToggleExtendedTimeline();
    void Exit();

    aurel::App* app_ = nullptr;
    ShellWindow& window_;
    std::string programFolder_;
    aurel::DualString commandLineFile_;
    std::unique_ptr<AutoMenu> menu_;
    int playState_ = 0;  // 1 while an animation plays
    int lastPlayState_ = 0;
    std::uint32_t playStartFrame_ = 0;
    int playStartHot_ = -1;
    float lastElapsed_ = 0.0f;
    CommandStack stack_;
    std::vector<aurel::DualString> exampleFiles_;
    std::vector<aurel::DualString> languageFiles_;
    std::vector<aurel::DualString> themeFiles_;
    WirrelDoc document_;
    SelectionTracker imageSelection_;
    PinClipboard pinClipboard_;
    std::unique_ptr<aurel::MruList> recentFiles_;
    DialogDocumentChooser chooser_;
    CrashRecovery recovery_;
    std::unique_ptr<FileWorkflow> workflow_;
    // Made with the state, so that its selections exist before the window does.
    std::shared_ptr<GuiMainView> workspace_;
    std::shared_ptr<GuiFrames> timeline_;
    std::shared_ptr<GuiNav> panels_;  // the navigation column
    std::shared_ptr<GuiTexture> texture_;
    int editMode_ = kModeTextures;
    int skinTool_ = kToolSkin;
    int animListSelection_ = -1;
    // The workspace's working grid and fill colour: theme defaults at start, kept across documents.
    WorkGrid grid_;
    aurel::Color32 backgroundColor_;
    // The dialogs that may stay open beside the editor, made when first needed.
    std::shared_ptr<GuiDlgHistory> history_;
    std::shared_ptr<GuiDlgQuick> quick_;
};

}  // namespace kovra
