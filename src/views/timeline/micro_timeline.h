#pragma once
// The extended view of the timeline: one lane per pin, above the strip. In a lane each stretch between
// two real keys of the pin is an item; dragging an item's end moves that key of this pin alone, making
// the frames it passes tweened for the pin (micro keyframes). The lanes also select pins and times, hide
// pins in the current frame and have heights of their own. A drag works on a copy of the frames; the
// release hands one command to the stack.

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "bitmap/image_surface.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "gui/input_event.h"
#include "views/timeline/frame_strip.h"

namespace kovra {

class TimelineView;

// What a press on the lanes does.
enum MicroAction : int {
    kMicroDragKey = 0,
    kMicroSelectTime = 2,
    kMicroResizeAbove = 5,
    kMicroResizeLane = 6,
    kMicroEye = 7,
    kMicroSelectPin = 8,
};

enum MicroKind : int { kKindPinSelection = 13, kKindTimeSelection = 65, kKindMicroKeyframe = 67 };

constexpr int kMinLaneHeight = 19;
constexpr int kDefaultLaneHeight = 24;

struct MicroItem {
    float left = 0.0f;
    float top = 0.0f;
    float right = 0.0f;
    float bottom = 0.0f;
    int pin = 0;  // index of the lane's pin in the current frame
    int firstFrame = 0;
    int lastFrame = 0;
};

class MicroTimeline {
public:
    MicroTimeline(TimelineView& owner, WirrelDoc& doc, SelectionTracker& selection);

    void OnInput(const kestrel2::win::InputEvent& event);
    // Draws the lanes into the band between the ruler and the strip, over the frames given, and records
    // the items that the mouse hits.
    void Paint(aurel::ImageSurface& target, const FrameStrip& strip);
    // The mark on the item end under the mouse or held, over lanes that Paint drew.
    void PaintHover(aurel::ImageSurface& target) const;
    // Whether the lanes look different from when they were last drawn; the answer clears it.
    bool TakeChanged() { return std::exchange(changed_, false); }
    void ScrollBy(int pixels);
    // The lanes' scroll position in pixels, held to the lanes' total height less the visible part.
    int Scroll() const { return scroll_; }
    void SetScroll(int pixels) { ScrollBy(pixels - scroll_); }
    // The lanes' heights added up.
    int TotalHeight() const;
    // A right press or Esc during an action: the frames, the lane heights and the time come back.
    void Cancel();
    // `height` for every lane, or for those of selected pins, held to 19 up to the list's height - 1.
    void SetLaneHeights(int height, bool all);

    const std::vector<int>& LaneHeights() const { return laneHeights_; }
    const std::vector<MicroItem>& Items() const { return items_; }
    int HoverAction() const { return hoverAction_; }
    int ActiveAction() const { return activeAction_; }
    // The frames a release would store, during a key drag.
    const std::vector<WirrelKey>& WorkingFrames() const { return frames_; }

private:
    int PinCount() const;
    void FitLanes();
    // The lane under y (client pixels), -1 for none; `edge` gets 5 or 6 near a lane's top or bottom.
    int LaneAt(int y, int& edge) const;
    int LaneTop(int lane) const;
    void Hover(int x, int y);
    void Press(const kestrel2::win::InputEvent& event);
    void Act(const kestrel2::win::InputEvent& event);
    void Release();
    void DragKey(int x);
    void Select(bool withTime, bool add);
    void BuildItems(const std::vector<WirrelKey>& frames, const FrameStrip& strip);
    // For each frame, the index of each pin id in it (-1 where the frame lacks the pin).
    void IndexPins(const std::vector<WirrelKey>& frames);
    float XOfTicks(std::uint64_t ticks, const FrameStrip& strip) const;
    void PaintLane(aurel::ImageSurface& target, int lane, int top);

    TimelineView& owner_;
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    std::vector<int> laneHeights_;
    std::vector<int> laneHeightsBackup_;
    std::vector<MicroItem> items_;
    std::vector<int> laneItems_;                // the first item of each lane, and the end
    std::vector<std::vector<int>> pinIndices_;  // by frame, then pin id
    aurel::ImageSurface band_;                  // the lanes before they go between ruler and strip
    bool changed_ = true;
    std::vector<WirrelKey> framesBackup_;
    std::vector<WirrelKey> frames_;
    int scroll_ = 0;
    int hoverAction_ = -1;
    int activeAction_ = -1;
    int hoverLane_ = -1;
    int hoverItem_ = -1;
    int dragSourceFrame_ = -1;
    int dragTargetFrame_ = -1;
    std::int32_t pinId_ = -1;
    int pinIndex_ = -1;
    bool hiddenChoice_ = false;
    int pressX_ = 0;
    int pressY_ = 0;
    float timeBackup_ = 0.0f;
};

}  // namespace kovra
