#pragma once
// The navigation column at the side of the editor window: a stack of sub-panels, of which the edit
// mode shows some, holding the tool bars, the lists of images and animations, the property grids of
// pins, skins, textures and the background, and the view switches. Each control, when the user changes
// it, builds one command and hands it to the command listeners (or flips one view option of the
// document); every change of the document or of a selection fills the controls again, which tells no
// listener.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/prompt.h"
#include "commands/command.h"
#include "doc/editor_hub.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "gui/gui_button.h"
#include "gui/gui_combo_box.h"
#include "gui/gui_edit.h"
#include "gui/gui_label.h"
#include "gui/gui_list_box.h"
#include "gui/gui_props.h"
#include "gui/gui_slider.h"
#include "gui/gui_sub_panel.h"
#include "gui/gui_toolbar.h"
#include "gui/i_gui_custom_control.h"
#include "views/nav/gui_sub_panel_skin.h"
#include "views/nav/nav_rows.h"

namespace kovra {

// What the column works on, handed over at construction.
struct NavContext {
    WirrelDoc& document;
    EditorHub& hub;
    aurel::Prompt& window;
    SelectionTracker& pinSelection;
    SelectionTracker& textureSelection;
    SelectionTracker& imageSelection;
};

// The platform's open dialog with the image formats, several files when `multiple`.
std::vector<aurel::DualString> OpenImageFiles(kestrel2::win::IGuiWindow* owner,
                                              const aurel::DualString& title, bool multiple);

class GuiNav : public kestrel2::win::IGuiCustomControl {
public:
    explicit GuiNav(const NavContext& context);
    ~GuiNav() override;

    // Stops following the document and the selections, before they go away while the column stays.
    void Detach();
    // Creates every panel and control and registers the column as the handler of each.
    void Build();
    // What a control's notification does, by the control's id.
    void OnCommand(int id);
    // An accepted value of one of the property grids.
    void OnPropsChanged(int id, int row, const aurel::DualString& text);
    // Fill the controls from the document, the selections and the hub.
    void OnSelectionChanged();
    void OnCurrentChanged(int item);
    void OnDocumentChanged();
    // Presses the mode's button, shows its tool bars and chains its panels.
    void SetMode(int mode);
    // The panels of the chain, top to bottom, as SetMode left them.
    const std::vector<int>& Chain() const { return chain_; }

    // Finds a control of any panel by its id, or null.
    template <class T>
    T* Control(int id) const {
        auto found = controls_.find(id);
        return found == controls_.end() ? nullptr : dynamic_cast<T*>(found->second);
    }

    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(kestrel2::win::InputEvent&) override {}
    void OnCreated() override;
    // Follows the hub's edit mode and tool when something else changed them.
    void Update() override;

    // The commands the controls build, for the undo stack.
    aurel::ListenerList<std::shared_ptr<ICommand>> commandListeners;
    // The skin offered for dropping on the workspace, or null when the palette's drag ended.
    aurel::ListenerList<const WirrelSkin*> paletteListeners;
    // A palette drag ended outside the panel: the texture and the point in the root's layout pixels.
    aurel::ListenerList<int, int, int> skinDropListeners;

    // The image files to open: several for an add, one for a replace; none when cancelled. The
    // platform's file dialog unless replaced.
    std::function<std::vector<aurel::DualString>(const aurel::DualString& title, bool multiple)> openImages;
    // Takes the background picture from the clipboard; nothing unless the editor gives it.
    std::function<void()> pasteBackground;

private:
    std::shared_ptr<kestrel2::win::GuiSubPanel> AddPanel(int id, const std::string& key,
                                                         std::shared_ptr<kestrel2::win::GuiSubPanel> panel);
    template <class T, class... Args>
    std::shared_ptr<T> Add(kestrel2::win::GuiSubPanel& panel, int id, int x, int y, int w, int h,
                           Args&&... args);
    void BuildModePanel();
    void BuildImagePanel();
    void BuildAnimPanel();
    void BuildSkinPanels();
    void BuildBgPanel();
    void BuildBonePanels();
    void BuildViewPanel();
    void LayOut();
    void OnPanelToggled(int id);
    void OnListEdited(int id, int index, const aurel::DualString& text);
    void OnPaletteOffer(int texture);
    void OnPaletteDrop(int texture, int x, int y);

    void Send(std::shared_ptr<ICommand> command);
    void AddImages();
    void ReplaceImage();
    void DeleteImage();
    void DeleteAnim();
    void ChooseTool(int tool);
    void FlipView(std::size_t flag, int id);
    void SetScale();
    void ChangeCollision();
    void ChangeOrder(int step);
    void LoadBackground();
    void ChangeBackgroundSource();
    void FillLists();
    void FillPinPanels();
    void FillSkinPanels();
    void FillSwitches();
    void Fill(kestrel2::win::GuiProps& grid, const std::vector<NavRow>& rows);

    WirrelDoc& document_;
    EditorHub& hub_;
    aurel::Prompt& window_;
    SelectionTracker& pins_;
    SelectionTracker& textures_;
    SelectionTracker& images_;
    std::map<int, std::shared_ptr<kestrel2::win::GuiSubPanel>> panels_;
    std::map<int, kestrel2::win::IGuiWindow*> controls_;
    std::vector<int> chain_;
    WirrelSkin offered_;
    bool built_ = false;
    bool attached_ = true;
    int shownMode_ = -1;
    int shownTool_ = -1;
};

}  // namespace kovra
