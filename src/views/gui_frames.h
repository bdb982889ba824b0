#pragma once
// The timeline as a control of the editor window, along the bottom of the window. It binds the
// platform-free TimelineView to its control: a paint is the view's frame in the back buffer, the mouse
// and keys reach the view as InputEvents, the 18 ms pulse scrolls a drag near an edge, and the document's
// changes make the view rebuild its working copy. The control band holds the native controls built
// from the timeline's control table: the tool bar of checks and transport buttons, the speed, frame count
// and total time edits, the snap choice, the zoom slider and the scrollbar under the strip; the extended
// view's own controls belong to GuiFramesList.
//
// The view lays itself out in layout pixels; on a screen with a pixel ratio above 1 it paints at layout
// size and each pixel is widened to the screen's, so the native controls and the painted bands line up.

#include <memory>

#include "base/prompt.h"
#include "doc/editor_hub.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "gui/gui_combo_box.h"
#include "gui/gui_edit.h"
#include "gui/gui_scrollbar.h"
#include "gui/gui_slider.h"
#include "gui/gui_toolbar.h"
#include "gui/i_gui_custom_control.h"
#include "views/gui_frames_list.h"
#include "views/timeline/timeline_view.h"

namespace kovra {

class GuiFrames : public kestrel2::win::IGuiCustomControl {
public:
    static constexpr int kScrollTimer = 1;
    static constexpr int kScrollInterval = 18;  // ms

    GuiFrames(WirrelDoc& document, EditorHub& editorHub, SelectionTracker& pinSelection,
              aurel::Prompt& window);

private:
    WirrelDoc& document_;
    EditorHub& editorHub_;
    TimelineView view_;

public:
    // Keys the view doesn't use; new commands; (kind, keep) at a gesture's end; the frame whose events
    // are to be edited.
    aurel::ListenerList<const kestrel2::win::InputEvent&>& eventListeners;
    aurel::ListenerList<std::shared_ptr<ICommand>>& commandListeners;
    aurel::ListenerList<int, bool>& dragEndListeners;
    aurel::ListenerList<int>& eventsDialogListeners;

    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(kestrel2::win::InputEvent& event) override;
    void OnTimer(int timerId) override;
    void OnCreated() override;

    // The lanes above the strip, on or off; the key T and the extended view's check both end here.
    void SetExtended(bool on);
    bool Extended() const { return view_.Extended(); }
    // The document changed: the working copy is rebuilt at the next paint. The owner binds it to the
    // document's change listeners.
    void Invalidate();
    // The theme changed: the cells are drawn again and the tool bars take the new pictures.
    void OnThemeChanged();

    TimelineView& View() { return view_; }
    GuiFramesList& List() { return list_; }
    // The native controls, once the control exists.
    kestrel2::win::GuiToolbar* Toolbar() const { return toolbar_.get(); }
    kestrel2::win::GuiEdit* Edit(int id) const;
    kestrel2::win::GuiComboBox* SnapBox() const { return snap_.get(); }
    kestrel2::win::GuiSlider* ZoomSlider() const { return zoom_.get(); }
    kestrel2::win::GuiScrollbar* Scrollbar() const { return scroll_.get(); }

protected:
    void OnResize() override;

private:
    void BuildControls();
    void OnToolbar(int id);
    void OnControl(int id);
    void OnEditKey(int id, int key);
    void CommitEdit(int id);
    // The controls show the document and the view: edits without the focus, the snap, the check
    // states, the scrollbar's range and position.
    void RefreshControls();
    void ShowEditText(kestrel2::win::GuiEdit* edit, const std::string& text);

    GuiFramesList list_;
    aurel::ImageSurface layoutBuffer_;  // the view's frame at layout size, when the ratio isn't 1
    std::shared_ptr<kestrel2::win::GuiToolbar> toolbar_;
    std::shared_ptr<kestrel2::win::GuiEdit> speed_;
    std::shared_ptr<kestrel2::win::GuiComboBox> snap_;
    std::shared_ptr<kestrel2::win::GuiEdit> count_;
    std::shared_ptr<kestrel2::win::GuiEdit> time_;
    std::shared_ptr<kestrel2::win::GuiSlider> zoom_;
    std::shared_ptr<kestrel2::win::GuiScrollbar> scroll_;
};

}  // namespace kovra
