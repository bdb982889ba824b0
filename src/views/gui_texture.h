#pragma once
// The texture view as a control of the editor window: where the artist cuts the image on show into
// textures. It only binds the platform-free view to its control: a paint is PaintTextureView into the
// back buffer, an event goes to TextureInput, and the pulse that moves and auto-scrolls runs on the
// control's timer from a press to its release. With no image in the document a "&Load" button in its
// middle opens image files.

#include <memory>

#include "base/prompt.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "gui/gui_button.h"
#include "gui/i_gui_custom_control.h"
#include "views/texture/texture_input.h"
#include "views/texture/texture_view_state.h"

namespace kovra {

class GuiTexture : public kestrel2::win::IGuiCustomControl {
public:
    static constexpr int kScrollTimer = 1;
    static constexpr int kScrollInterval = 18;  // ms
    static constexpr int kLoadButtonId = 5000;

    GuiTexture(WirrelDoc& document, SelectionTracker& texSelection, SelectionTracker& imageSelection,
               aurel::Prompt& window);

    TextureViewState state;

private:
    WirrelDoc& document_;
    SelectionTracker& texSelection_;
    SelectionTracker& imageSelection_;
    aurel::Prompt& window_;
    TextureInput input_;
    std::shared_ptr<kestrel2::win::GuiButton> loadButton_;

public:
    // Keys, wheel and whatever the view doesn't use; new commands; (kind, keep) at a drag's end.
    aurel::ListenerList<const kestrel2::win::InputEvent&>& eventListeners;
    aurel::ListenerList<std::shared_ptr<ICommand>>& commandListeners;
    aurel::ListenerList<int, bool>& dragEndListeners;

    void Update() override;
    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(kestrel2::win::InputEvent& event) override;
    kestrel2::win::Cursor OnCursor() override;
    void OnTimer(int timerId) override;
    void OnShow(bool shown) override;
    void OnCreated() override;

    // The image on show.
    void SetImage(int index);
    // The view of an empty document: the button shows and nothing is hot.
    void ClearForLoad();
    void Pan(float dxPixels, float dyPixels);
    void AddZoom(float delta);
    bool HasSelection() const { return input_.HasSelection(); }

protected:
    void OnResize() override;

private:
    // The view's size follows the client's.
    void FitClient();
    // The camera's area is the image on show.
    void UpdateBounds();
    void PlaceLoadButton();
    void Load(int id);
};

}  // namespace kovra
