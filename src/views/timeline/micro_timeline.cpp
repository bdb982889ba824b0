#include "views/timeline/micro_timeline.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "anim/interpolate.h"
#include "anim/tween.h"
#include "commands/command_macro.h"
#include "commands/editor_commands.h"
#include "commands/frame_commands.h"
#include "gui/virtual_keys.h"
#include "views/timeline/timeline_view.h"

namespace kovra {

namespace win = kestrel2::win;
using kestrel2::win::InputEvent;

namespace {

int IndexOfPin(const WirrelKey& key, std::int32_t id) {
    for (std::size_t i = 0; i < key.pins.size(); ++i) {
        if (key.pins[i].id == id) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

bool AllTweened(const WirrelKey& key) {
    return !key.pins.empty() && std::all_of(key.pins.begin(), key.pins.end(),
                                            [](const WirrelPin& p) { return (p.flags & kPinTweened) != 0; });
}

}  // namespace

MicroTimeline::MicroTimeline(TimelineView& owner, WirrelDoc& doc, SelectionTracker& selection)
    : owner_(owner), doc_(doc), selection_(selection) {}

int MicroTimeline::PinCount() const {
    if (!doc_.HasCurrentAnim() || doc_.cursor.frameIndex >= doc_.CurrentAnim().keys.size()) {
        return 0;
    }
    return static_cast<int>(doc_.CurrentAnim().keys[doc_.cursor.frameIndex].pins.size());
}

void MicroTimeline::FitLanes() {
    const auto count = static_cast<std::size_t>(PinCount());
    if (laneHeights_.size() != count) {
        laneHeights_.resize(count, kDefaultLaneHeight);
        changed_ = true;
    }
}

int MicroTimeline::LaneTop(int lane) const {
    int y = owner_.Layout().LanesTop() - scroll_;
    for (int l = 0; l < lane; ++l) {
        y += laneHeights_[l];
    }
    return y;
}

int MicroTimeline::LaneAt(int y, int& edge) const {
    edge = -1;
    const TimelineLayout& layout = owner_.Layout();
    if (y < layout.LanesTop() || y > layout.LanesBottom()) {
        return -1;
    }
    int rest = y - layout.LanesTop() + scroll_;
    for (int l = 0; l < static_cast<int>(laneHeights_.size()); ++l) {
        if (rest < laneHeights_[l]) {
            if (rest >= laneHeights_[l] - 3) {
                edge = kMicroResizeLane;
            } else if (rest < 3 && l > 0) {
                edge = kMicroResizeAbove;
            }
            return l;
        }
        rest -= laneHeights_[l];
    }
    return -1;
}

int MicroTimeline::TotalHeight() const {
    int total = 0;
    for (int h : laneHeights_) {
        total += h;
    }
    return total;
}

void MicroTimeline::ScrollBy(int pixels) {
    const int visible = owner_.Layout().LanesBottom() - owner_.Layout().LanesTop() + 1;
    const int scroll = std::clamp(scroll_ + pixels, 0, std::max(0, TotalHeight() - visible));
    changed_ = changed_ || scroll != scroll_;
    scroll_ = scroll;
}

void MicroTimeline::SetLaneHeights(int height, bool all) {
    FitLanes();
    const int list = owner_.Layout().LanesBottom() - owner_.Layout().LanesTop() + 1;
    const int h = std::max(kMinLaneHeight, std::min(height, list - 1));
    const int count = static_cast<int>(laneHeights_.size());
    for (int l = count - 1; l >= 0; --l) {
        if (all || selection_.IsSelected(count - 1 - l)) {
            laneHeights_[l] = h;
        }
    }
    changed_ = true;
    ScrollBy(0);
}

void MicroTimeline::OnInput(const InputEvent& event) {
    FitLanes();
    if (PinCount() == 0) {
        return;
    }
    switch (event.type) {
        case win::kInputKeyDown:
            if (event.key == win::kVkEscape && activeAction_ < 0) {
                owner_.commandListeners.Call(std::make_shared<CommandSel>(doc_, selection_, "Pin Selection",
                                                                          kKindPinSelection, -1, 0, false));
            }
            break;
        case win::kInputMouseMove:
            if (activeAction_ >= 0) {
                Act(event);
            } else {
                Hover(event.x, event.y);
            }
            break;
        case win::kInputButtonDown:
            if (event.button == win::kButtonRight) {
                Cancel();
            } else if (event.button == win::kButtonLeft) {
                Hover(event.x, event.y);
                Press(event);
            }
            break;
        case win::kInputButtonUp:
            if (event.button == win::kButtonLeft) {
                Release();
            }
            break;
        default:
            break;
    }
}

void MicroTimeline::Hover(int x, int y) {
    hoverAction_ = -1;
    hoverItem_ = -1;
    int edge = -1;
    hoverLane_ = LaneAt(y, edge);
    if (hoverLane_ < 0) {
        return;
    }
    pinIndex_ = PinCount() - hoverLane_ - 1;
    pinId_ = doc_.CurrentKey().pins[pinIndex_].id;
    if (edge >= 0) {
        hoverAction_ = edge;
        return;
    }
    if (x >= 5 && x < 19) {
        hoverAction_ = kMicroEye;
    } else if (x >= 37 && x < kNameColumnWidth) {
        hoverAction_ = kMicroSelectPin;
    } else if (x >= kNameColumnWidth) {
        for (int i = 0; i < static_cast<int>(items_.size()); ++i) {
            const MicroItem& item = items_[i];
            const auto fx = static_cast<float>(x);
            const auto fy = static_cast<float>(y);
            if (item.pin != pinIndex_ || fx < item.left || fx > item.right || fy < item.top ||
                fy > item.bottom) {
                continue;
            }
            hoverItem_ = i;
            dragSourceFrame_ = -1;
            const bool hasNext = i + 1 < static_cast<int>(items_.size()) && items_[i + 1].pin == item.pin &&
                                 items_[i + 1].left == item.right + 1.0f;
            const bool hasPrevious =
                i > 0 && items_[i - 1].pin == item.pin && items_[i - 1].right == item.left - 1.0f;
            if (fx >= item.right - 3.0f && hasNext) {
                hoverAction_ = kMicroDragKey;
                dragSourceFrame_ = items_[i + 1].firstFrame;
            } else if (fx <= item.left + 3.0f && hasPrevious) {
                hoverAction_ = kMicroDragKey;
                dragSourceFrame_ = item.firstFrame;
            } else {
                hoverAction_ = kMicroSelectTime;
            }
            return;
        }
    }
}

void MicroTimeline::Press(const InputEvent& event) {
    if (hoverAction_ < 0) {
        return;
    }
    framesBackup_ = doc_.CurrentAnim().keys;
    frames_ = framesBackup_;
    laneHeightsBackup_ = laneHeights_;
    timeBackup_ = doc_.cursor.framePos;
    activeAction_ = hoverAction_;
    pressX_ = event.x;
    pressY_ = event.y;
    const bool add = event.keys[win::kVkControl] != 0;
    if (activeAction_ == kMicroEye) {
        hiddenChoice_ = (doc_.CurrentKey().pins[pinIndex_].flags & kPinHidden) == 0;
    } else if (activeAction_ == kMicroSelectTime || activeAction_ == kMicroSelectPin) {
        Select(activeAction_ == kMicroSelectTime, add);
    }
    Act(event);
}

void MicroTimeline::Select(bool withTime, bool add) {
    if (!withTime) {
        owner_.commandListeners.Call(std::make_shared<CommandSel>(doc_, selection_, "Pin Selection",
                                                                  kKindPinSelection, pinIndex_, 0, add));
        return;
    }
    auto macro = std::make_shared<CommandMacro>("Time Selection", kKindTimeSelection);
    macro->Add(
        std::make_shared<CommandFrameSel>(doc_, static_cast<std::uint32_t>(items_[hoverItem_].firstFrame)));
    macro->Add(std::make_shared<CommandSel>(doc_, selection_, "Pin Selection", kKindPinSelection, pinIndex_,
                                            0, add));
    owner_.commandListeners.Call(macro);
}

void MicroTimeline::Act(const InputEvent& event) {
    changed_ = true;
    switch (activeAction_) {
        case kMicroDragKey:
            DragKey(event.x);
            break;
        case kMicroResizeAbove:
        case kMicroResizeLane: {
            const int lane = activeAction_ == kMicroResizeAbove ? hoverLane_ - 1 : hoverLane_;
            if (lane >= 0 && lane < static_cast<int>(laneHeights_.size())) {
                laneHeights_[lane] = std::max(kMinLaneHeight, laneHeightsBackup_[lane] - pressY_ + event.y);
            }
            break;
        }
        case kMicroEye: {
            int edge = -1;
            const int lane = LaneAt(event.y, edge);
            if (lane >= 0) {
                WirrelPin& pin = doc_.CurrentKey().pins[PinCount() - lane - 1];
                const std::uint32_t flags =
                    hiddenChoice_ ? (pin.flags | kPinHidden) : (pin.flags & ~kPinHidden);
                if (flags != pin.flags) {
                    pin.flags = flags;
                    doc_.onChanged.Call();
                }
            }
            break;
        }
        default:
            break;
    }
}

void MicroTimeline::DragKey(int x) {
    frames_ = framesBackup_;
    dragTargetFrame_ = dragSourceFrame_;
    if (x == pressX_ || dragSourceFrame_ <= 0) {
        doc_.SetFrame(static_cast<std::uint32_t>(std::max(0, dragSourceFrame_)));
        return;
    }
    FrameStrip strip(doc_.Wirrel().ticksPerSecond, static_cast<int>(doc_.snapFrames));
    strip.Rebuild(frames_);
    const TimelineLayout& layout = owner_.Layout();
    const int cell = std::clamp((x - layout.Origin() + layout.Pitch() / 2) / std::max(1, layout.Pitch()), 1,
                                std::max(1, strip.LastCell() - 1));
    const float keyTime = strip.KeyTimeOfCell(cell);
    const int keyIndex = std::min(static_cast<int>(keyTime), static_cast<int>(frames_.size()) - 1);
    const float fraction = keyTime - static_cast<float>(keyIndex);
    int source = dragSourceFrame_;
    const int sourcePin = IndexOfPin(framesBackup_[source], pinId_);
    if (sourcePin < 0) {
        return;
    }
    WirrelPin record = framesBackup_[source].pins[sourcePin];
    record.flags &= ~kPinTweened;
    int target = keyIndex;
    if (fraction > 0.0f) {
        // A new frame split off at the time, every pin of it tweened but this one.
        WirrelKey split;
        Interpolate(split.pins, frames_[keyIndex].pins, frames_[(keyIndex + 1) % frames_.size()].pins,
                    fraction);
        for (WirrelPin& pin : split.pins) {
            pin.flags |= kPinTweened;
        }
        const auto before =
            static_cast<std::uint32_t>(std::lround(fraction * static_cast<float>(frames_[keyIndex].ticks)));
        split.ticks = frames_[keyIndex].ticks - before;
        frames_[keyIndex].ticks = before;
        target = keyIndex + 1;
        frames_.insert(frames_.begin() + target, split);
        if (source >= target) {
            ++source;
        }
    }
    const int at = IndexOfPin(frames_[target], pinId_);
    if (at >= 0) {
        record.parent = frames_[target].pins[at].parent;
        frames_[target].pins[at] = record;
    }
    const int from = target > source ? source : target + 1;
    const int to = target > source ? target - 1 : source;
    for (int i = from; i <= to; ++i) {
        const int p = IndexOfPin(frames_[i], pinId_);
        if (p >= 0 && i != target) {
            frames_[i].pins[p].flags |= kPinTweened;
        }
    }
    // Frames left without any real key go; the frame before takes their time.
    for (int i = static_cast<int>(frames_.size()) - 1; i > 0; --i) {
        if (AllTweened(frames_[i])) {
            frames_[i - 1].ticks += frames_[i].ticks;
            frames_.erase(frames_.begin() + i);
            if (i < target) {
                --target;
            }
        }
    }
    Retween(frames_, target, pinId_);
    dragTargetFrame_ = target;
    doc_.SetFrame(
        static_cast<std::uint32_t>(std::min(target, static_cast<int>(doc_.CurrentAnim().keys.size()) - 1)));
}

void MicroTimeline::Release() {
    const int action = activeAction_;
    activeAction_ = -1;
    changed_ = true;
    if (action != kMicroDragKey) {
        return;
    }
    doc_.cursor.framePos = timeBackup_;
    doc_.cursor.frameIndex = static_cast<std::uint32_t>(timeBackup_);
    if (doc_.cursor.frameIndex >= frames_.size()) {
        doc_.SetFrame(static_cast<std::uint32_t>(frames_.size() - 1));
    }
    auto macro = std::make_shared<CommandMacro>("Micro Keyframe", kKindMicroKeyframe);
    macro->Add(std::make_shared<CommandFrameState>(doc_, "Micro Keyframe Tweening", kKindKeyMove, frames_));
    owner_.commandListeners.Call(macro);
    owner_.dragEndListeners.Call(kKindMicroKeyframe, true);
    owner_.Invalidate();
}

void MicroTimeline::Cancel() {
    if (activeAction_ < 0) {
        return;
    }
    laneHeights_ = laneHeightsBackup_;
    frames_ = framesBackup_;
    doc_.cursor.framePos = timeBackup_;
    doc_.cursor.frameIndex = static_cast<std::uint32_t>(timeBackup_);
    activeAction_ = -1;
    changed_ = true;
}

}  // namespace kovra
