#pragma once
// The workspace as a control of the editor window: the large centre view where the skeleton is shown
// and posed. It only binds the platform-free workspace to its control: a paint is PaintWorkspace into
// the control's back buffer, an event goes to WorkspaceInput, and the timer of the auto-scroll and the
// cursor follow the workspace's state.

#include "doc/editor_hub.h"
#include "doc/wirrel_doc.h"
#include "gui/i_gui_custom_control.h"
#include "views/workspace/workspace_input.h"
#include "views/workspace/workspace_paint.h"
#include "views/workspace/workspace_state.h"

namespace kovra {

class GuiMainView : public kestrel2::win::IGuiCustomControl {
public:
    static constexpr int kScrollTimer = 1;
    static constexpr int kScrollInterval = 18;  // ms

    GuiMainView(WirrelDoc& document, EditorHub& editorHub, aurel::Prompt& window);

    WorkspaceState state;  // the selections, camera and gesture flags, read by the panels

private:
    WirrelDoc& document_;
    EditorHub& editorHub_;
    WorkspaceBuffers buffers_;
    EdgeFade edgeFade_;
    WorkspaceInput input_;

public:
    // Keys and wheel the view doesn't use; new commands; (kind, keep) at a gesture's end.
    aurel::ListenerList<const InputEvent&>& eventListeners;
    aurel::ListenerList<std::shared_ptr<ICommand>>& commandListeners;
    aurel::ListenerList<int, bool>& dragEndListeners;

    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(kestrel2::win::InputEvent& event) override;
    kestrel2::win::Cursor OnCursor() override;
    void OnTimer(int timerId) override;
    void OnShow(bool shown) override;

    void SetEditMode(int mode);
    void SetSkinTool(int tool);
    void SetPlaying(bool playing);
    void Pan(float dxPixels, float dyPixels);
    void SetCamera(float x, float y);
    // The wheel's zoom: StateTitle adds a tenth of the zoom, forward positive.
    void AddZoom(float delta);
    void ResetView();
    bool HasSelection() const { return input_.HasSelection(); }
    void ClearSelections();
    void RemapSelection(const std::vector<int>& map) { input_.RemapSelection(map); }
    // The navigation panel offers a skin that may be dropped on a pin, or none.
    void SetPaletteSkin(const WirrelSkin* skin);
    // After a change of the document: the pose step runs at once, so that input before the next paint
    // hits what the document now holds, and a paint is asked for.
    void Refresh();
    // The key pressed and released over the view, as the menu's Delete does.
    void PressKey(std::uint8_t key);

protected:
    void OnResize() override;
};

}  // namespace kovra
