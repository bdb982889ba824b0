#pragma once
// The timeline as platform-free logic: the strip of key frames under a ruler of seconds and snap cells,
// painted from the document, the view's state and the theme into a surface, and driven by InputEvents.
// During a drag the view keeps a working copy of the key frames in its preview strip, so the result shows
// before any command exists; at release one command carries the whole gesture to the stack. The owner
// control binds it to a window, the native controls of the control band and the scrollbar.

#include <memory>

#include "base/listener_list.h"
#include "base/prompt.h"
#include "bitmap/image_surface.h"
#include "commands/command.h"
#include "doc/editor_hub.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "gui/input_event.h"
#include "views/timeline/frame_strip.h"
#include "views/timeline/thumbnail.h"
#include "views/timeline/timeline_layout.h"

namespace kovra {

class MicroTimeline;

// The kinds the timeline's whole-animation commands carry.
enum TimelineKind : int {
    kKindFrameCount = 58,
    kKindTotalTime = 59,
    kKindKeyMove = 62,
    kKindKeyCopy = 63,
};

// A key or the end marker held by the mouse.
struct TimelineDrag {
    int cell = -1;   // the cell of the key being dragged, -1 for none
    int frame = -1;  // that key's frame index
    int pressX = 0;
    int dragX = 0;
    int dragDistance = 0;
    bool resizingEnd = false;

    bool Active() const { return cell >= 0 || resizingEnd; }
};

class TimelineView {
public:
    TimelineView(WirrelDoc& doc, EditorHub& hub, SelectionTracker& selection, aurel::Prompt& window);
    ~TimelineView();

    aurel::ListenerList<const kestrel2::win::InputEvent&> eventListeners;  // keys the view doesn't use
    aurel::ListenerList<std::shared_ptr<ICommand>> commandListeners;
    aurel::ListenerList<int, bool> dragEndListeners;
    aurel::ListenerList<int> eventsDialogListeners;  // the frame whose events are to be edited

    void OnInput(const kestrel2::win::InputEvent& event);
    void Paint(aurel::ImageSurface& target);
    // Brings the working copy and the cells up to date with the document, when their flags say so.
    void Sync();
    // Auto-scroll while a drag is near an edge: the 18 ms pulse.
    void OnTimer();

    void SetSize(int width, int height);
    void SetZoom(int percent);
    void SetViewLeft(int pixels);
    void ScrollBy(int pixels);
    void SetFocused(bool focused) { focused_ = focused; }
    void SetRippleMode(bool on) { rippleMode_ = on; }
    bool RippleMode() const { return rippleMode_; }
    void SetExtended(bool on);
    bool Extended() const { return extended_; }
    // The document changed: the working copy is rebuilt at the next sync.
    void Invalidate() { rebuild_ = rebuildStrip_ = true; }
    // The time base or the geometry changed: the cells are laid out again.
    void InvalidateStrip() { rebuildStrip_ = true; }

    // Set Frame Count and Set Total Time of the control band; nothing while playing.
    void SetFrameCount(float cells);
    void SetTotalTime(float seconds);
    // The speed edit's text ("100%"); text that isn't a number changes nothing.
    void SetSpeedText(const std::string& text);
    // A control of the band or the micro toolbar acted: `value` is a check's state (1 on), the combo's
    // selection or the slider's position; edits go through the three setters above.
    void OnControl(int id, int value);
    void SetSnapIndex(int index);
    // Takes the current frame out for the editor's frame clipboard; false on the first frame.
    bool Cut(WirrelKey& clipboard);

    const FrameStrip& Strip() const { return strip_; }
    const FrameStrip& Preview() const { return preview_; }
    const TimelineLayout& Layout() const { return layout_; }
    const TimelineDrag& Drag() const { return drag_; }
    int HotCell() const { return hotCell_; }
    int HotGapCell() const { return hotGapCell_; }
    bool HoverEnd() const { return hoverEnd_; }
    int ViewLeft() const { return viewLeft_; }
    MicroTimeline& Micro() { return *micro_; }

private:
    friend class TimelinePainter;

    bool Playing() const { return hub_.IsPlaying(); }
    void Send(std::shared_ptr<ICommand> command);
    void SendKey(int key);
    void SelectAnim(int step);
    void KeyDown(const kestrel2::win::InputEvent& event);
    void MouseMove(const kestrel2::win::InputEvent& event);
    void LeftDown(const kestrel2::win::InputEvent& event);
    void LeftUp(const kestrel2::win::InputEvent& event);
    void RightDown(const kestrel2::win::InputEvent& event);
    void ClearHover();
    void CancelDrag();
    void DeleteKey();
    void InsertKey();
    void GrabKey(int cell);
    void DropKey();
    void DropEnd(int mouseX);
    // The preview strip shows what a release now would give.
    void UpdatePreview();
    // The cells a release at x would make the animation long: the end dragged to that column.
    int CellCountAt(int x) const;
    // Replaces the frames of the current animation by `after` through one command.
    void SendFrames(std::vector<WirrelKey> after, const std::string& label, int kind);
    // Current time in ticks from the start of the animation.
    std::uint64_t CurrentTicks() const;

    WirrelDoc& doc_;
    EditorHub& hub_;
    SelectionTracker& selection_;
    aurel::Prompt& window_;
    std::unique_ptr<MicroTimeline> micro_;
    FrameStrip strip_;
    FrameStrip preview_;
    TimelineLayout layout_;
    TimelineDrag drag_;
    aurel::ImageSurface stripCache_;  // bands, ruler, cells and lanes as last drawn
    std::uint32_t cachedFrame_ = 0;   // the current frame when the cache was drawn
    PoseBounds thumbBounds_;          // shared by the thumbnails of the strip's frames
    kestrel2::win::InputEvent lastMove_;
    bool hasMouse_ = false;
    int width_ = 0;
    int height_ = 0;
    int zoom_ = 100;
    int viewLeft_ = 0;
    int hotCell_ = -1;
    int hotEventFrame_ = -1;
    int hotGapCell_ = -1;
    float hotGapTime_ = 0.0f;
    bool hoverEnd_ = false;
    bool copyKey_ = false;
    bool rippleMode_ = false;
    bool extended_ = false;
    bool focused_ = false;
    bool rebuild_ = true;
    bool rebuildStrip_ = true;
    bool inInput_ = false;
    bool cacheDirty_ = true;
};

}  // namespace kovra
