#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "commands/frame_commands.h"
#include "gui/virtual_keys.h"
#include "settings/lang.h"
#include "views/timeline/frame_edits.h"
#include "views/timeline/micro_timeline.h"
#include "views/timeline/timeline_view.h"

namespace kovra {

using kestrel2::win::InputEvent;
namespace win = kestrel2::win;

TimelineView::TimelineView(WirrelDoc& doc, EditorHub& hub, SelectionTracker& selection, aurel::Prompt& window)
    : doc_(doc),
      hub_(hub),
      selection_(selection),
      window_(window),
      micro_(std::make_unique<MicroTimeline>(*this, doc, selection)) {}

TimelineView::~TimelineView() = default;

void TimelineView::Send(std::shared_ptr<ICommand> command) {
    commandListeners.Call(std::move(command));
}

void TimelineView::SetSize(int width, int height) {
    width_ = width;
    height_ = height;
    rebuildStrip_ = true;
}

void TimelineView::SetZoom(int percent) {
    zoom_ = std::clamp(percent, 10, 400);
    rebuild_ = rebuildStrip_ = true;
}

void TimelineView::SetViewLeft(int pixels) {
    viewLeft_ = std::max(0, pixels);
    rebuildStrip_ = true;
}

void TimelineView::ScrollBy(int pixels) {
    SetViewLeft(viewLeft_ + pixels);
}

void TimelineView::SetExtended(bool on) {
    extended_ = on;
    rebuildStrip_ = true;
}

void TimelineView::Sync() {
    if (rebuild_) {
        rebuild_ = false;
        rebuildStrip_ = true;
        strip_.SetTimeBase(doc_.Wirrel().ticksPerSecond, static_cast<int>(doc_.snapFrames));
        strip_.Rebuild(doc_.HasCurrentAnim() ? doc_.CurrentAnim().keys : std::vector<WirrelKey>{});
        thumbBounds_ = BoundsOfFrames(strip_.Frames());
        if (!drag_.Active()) {
            preview_ = strip_;
        }
        if (hasMouse_ && !inInput_) {
            layout_.Compute(width_, height_, extended_, zoom_, viewLeft_, preview_.CellCount());
            MouseMove(lastMove_);
        }
    }
    if (rebuildStrip_) {
        layout_.Compute(width_, height_, extended_, zoom_, viewLeft_,
                        std::max(strip_.CellCount(), preview_.CellCount()));
        cacheDirty_ = true;
        rebuildStrip_ = false;
    }
}

std::uint64_t TimelineView::CurrentTicks() const {
    const FrameStrip& s = drag_.Active() ? preview_ : strip_;
    const int count = static_cast<int>(s.Frames().size());
    if (count == 0) {
        return 0;
    }
    const int frame = std::min(static_cast<int>(doc_.cursor.frameIndex), count - 1);
    const float fraction = doc_.cursor.framePos - std::floor(doc_.cursor.framePos);
    return s.StartTicks(frame) +
           static_cast<std::uint64_t>(fraction * static_cast<float>(s.Frames()[frame].ticks));
}

void TimelineView::OnInput(const InputEvent& event) {
    if (event.type != win::kInputMouseLeft) {
        Sync();
    }
    inInput_ = true;
    switch (event.type) {
        case win::kInputKeyDown:
            KeyDown(event);
            break;
        case win::kInputKeyUp:
            if (event.key == win::kVkControl) {
                copyKey_ = false;
                UpdatePreview();
            } else {
                eventListeners.Call(event);
            }
            break;
        case win::kInputMouseLeft:
            hasMouse_ = false;
            ClearHover();
            hoverEnd_ = false;
            break;
        case win::kInputMouseMove:
            hasMouse_ = true;
            lastMove_ = event;
            MouseMove(event);
            break;
        case win::kInputButtonDown:
        case win::kInputDoubleClick:
            if (event.button == win::kButtonRight) {
                RightDown(event);
            } else if (event.button == win::kButtonLeft) {
                LeftDown(event);
            }
            break;
        case win::kInputButtonUp:
            if (event.button == win::kButtonLeft) {
                LeftUp(event);
            }
            break;
        case win::kInputWheel:
            if (extended_) {
                micro_->ScrollBy(event.dy > 0 ? 15 : -15);
            } else {
                ScrollBy(event.dy > 0 ? 15 : -15);
            }
            rebuild_ = true;
            break;
        default:
            break;
    }
    if (extended_ && event.type != win::kInputWheel && !drag_.Active()) {
        micro_->OnInput(event);
    }
    inInput_ = false;
    Sync();
}

void TimelineView::KeyDown(const InputEvent& event) {
    if (event.key == win::kVkControl) {
        if (event.repeat == 0) {
            copyKey_ = true;
            UpdatePreview();
        }
    } else if (event.key == win::kVkEscape) {
        if (event.buttons[win::kButtonLeft] != 0) {
            CancelDrag();
        } else if (event.buttons[win::kButtonRight] != 0) {
            micro_->Cancel();
        }
        if (!extended_) {
            eventListeners.Call(event);
        }
    } else if (event.key == win::kVkDelete) {
        DeleteKey();
    } else {
        eventListeners.Call(event);
    }
}

void TimelineView::ClearHover() {
    hotCell_ = hotEventFrame_ = hotGapCell_ = -1;
}

void TimelineView::MouseMove(const InputEvent& event) {
    const int eventFrame = hotEventFrame_;
    ClearHover();
    const std::vector<CellRect>& cells = layout_.Cells();
    const int end = strip_.LastCell();
    if (!drag_.Active()) {
        hoverEnd_ = false;
        if (end >= 0 && end < static_cast<int>(cells.size())) {
            const CellRect& r = cells[end];
            hoverEnd_ = event.x >= r.left - 3 && event.x <= r.left + 3 && event.y >= r.top &&
                        event.y <= r.bottom && r.left >= layout_.ClipLeft();
        }
    }
    if (drag_.Active()) {
        drag_.dragDistance += std::abs(event.dy);
        drag_.dragX = event.x;
    }
    if (!hoverEnd_ || drag_.Active()) {
        const int cell = layout_.CellAt(event.x, event.y, drag_.Active());
        if (cell >= 0) {
            hotCell_ = cell;
            const bool hasKey = cell <= end && !strip_.CellKeys(cell).empty();
            const CellRect& r = cells[cell];
            if (!drag_.Active() && hasKey && event.x < r.left + 12 && event.y > r.bottom - 12) {
                hotEventFrame_ = strip_.CellKeys(cell).front();
            }
            if (!drag_.Active() && !hasKey && cell < end) {
                hotGapCell_ = cell;
                hotGapTime_ = strip_.KeyTimeOfCell(cell);
            }
        }
    }
    // The offer of an event marker is drawn with the cells.
    cacheDirty_ = cacheDirty_ || eventFrame != hotEventFrame_;
    UpdatePreview();
}

void TimelineView::LeftDown(const InputEvent& event) {
    if (Playing()) {
        return;
    }
    if (hoverEnd_) {
        drag_.resizingEnd = true;
        drag_.pressX = drag_.dragX = event.x;
        UpdatePreview();
    } else if (hotGapCell_ >= 0) {
        InsertKey();
    } else if (hotEventFrame_ >= 0) {
        eventsDialogListeners.Call(hotEventFrame_);
    } else if (hotCell_ >= 0 && hotCell_ <= strip_.LastCell() && !strip_.CellKeys(hotCell_).empty()) {
        GrabKey(hotCell_);
        drag_.pressX = drag_.dragX = event.x;
    }
}

void TimelineView::GrabKey(int cell) {
    drag_.cell = cell;
    drag_.frame = strip_.CellKeys(cell).front();
    drag_.dragDistance = 0;
    if (doc_.cursor.frameIndex != static_cast<std::uint32_t>(drag_.frame)) {
        Send(std::make_shared<CommandFrameSel>(doc_, static_cast<std::uint32_t>(drag_.frame)));
    }
}

void TimelineView::LeftUp(const InputEvent& event) {
    if (drag_.resizingEnd) {
        DropEnd(event.x);
    } else if (drag_.cell >= 0) {
        const int target = layout_.CellAt(event.x, event.y, true);
        if (target >= 0 && target != drag_.cell) {
            hotCell_ = target;
            DropKey();
        }
    }
    drag_ = TimelineDrag{};
    preview_ = strip_;
    rebuild_ = rebuildStrip_ = true;
}

void TimelineView::RightDown(const InputEvent&) {
    if (drag_.Active()) {
        CancelDrag();
    }
}

void TimelineView::CancelDrag() {
    drag_ = TimelineDrag{};
    preview_ = strip_;
    rebuildStrip_ = true;
}

void TimelineView::DeleteKey() {
    if (Playing() || !doc_.HasCurrentAnim() || doc_.cursor.frameIndex == 0 ||
        doc_.cursor.frameIndex >= doc_.CurrentAnim().keys.size()) {
        return;
    }
    Send(std::make_shared<CommandFrameDelete>(doc_));
    rebuild_ = true;
}

bool TimelineView::Cut(WirrelKey& clipboard) {
    Sync();
    if (Playing() || !doc_.HasCurrentAnim() || doc_.cursor.frameIndex == 0) {
        return false;
    }
    clipboard = doc_.CurrentKey();
    auto command = std::make_shared<CommandFrameDelete>(doc_);
    command->label = aurel::Lang("COMMANDS", "FrameCut");
    Send(command);
    rebuild_ = true;
    return true;
}

void TimelineView::InsertKey() {
    int previous = -1;
    WirrelKey key = KeyBetween(strip_.Frames(), strip_.TicksOfCell(hotGapCell_), previous);
    Send(std::make_shared<CommandFrameNew>(doc_, std::move(key), previous));
    rebuild_ = true;
}

void TimelineView::UpdatePreview() {
    if (!drag_.Active()) {
        return;
    }
    std::vector<WirrelKey> frames = strip_.Frames();
    if (drag_.resizingEnd) {
        ResizeFrames(frames, strip_.TicksOfCell(CellCountAt(drag_.dragX)), -1);
    } else if (hotCell_ >= 0 && hotCell_ != drag_.cell) {
        const bool onKey = hotCell_ <= strip_.LastCell() && !strip_.CellKeys(hotCell_).empty();
        MoveKey(frames, KeyMove{drag_.frame, strip_.TicksOfCell(hotCell_), copyKey_, rippleMode_,
                                onKey ? DropMode::Replace : DropMode::Insert});
    }
    if (frames != preview_.Frames()) {
        preview_.SetTimeBase(strip_.TicksPerSecond(), static_cast<int>(doc_.snapFrames));
        preview_.Rebuild(frames);
        rebuildStrip_ = true;
    }
}

int TimelineView::CellCountAt(int x) const {
    const int pitch = std::max(1, layout_.Pitch());
    return std::max(1, (x - layout_.Origin() + pitch / 2) / pitch);
}

void TimelineView::DropEnd(int mouseX) {
    std::vector<WirrelKey> frames = strip_.Frames();
    const std::uint64_t ticks = strip_.TicksOfCell(CellCountAt(mouseX));
    if (ticks != strip_.TotalTicks() && ResizeFrames(frames, ticks, -1)) {
        SendFrames(std::move(frames), "Set Frame Count", kKindFrameCount);
    }
}

void TimelineView::DropKey() {
    const int target = hotCell_;
    DropMode mode = DropMode::Insert;
    const bool onKey = target <= strip_.LastCell() && !strip_.CellKeys(target).empty() &&
                       strip_.CellKeys(target).front() != drag_.frame;
    if (onKey) {
        aurel::PromptRequest request;
        request.title = aurel::DualString("Confirm");
        request.text = aurel::DualString("Replace keyframe?");
        request.buttons = rippleMode_ ? aurel::PromptButtons::YesNoCancel : aurel::PromptButtons::YesNo;
        request.icon = aurel::PromptIcon::Question;
        const int answer = window_.Ask(request);
        if (answer == aurel::kAnswerYes) {
            mode = DropMode::Replace;
        } else if (!(rippleMode_ && answer == aurel::kAnswerNo)) {
            return;
        }
    }
    std::vector<WirrelKey> frames = strip_.Frames();
    MoveKey(frames, KeyMove{drag_.frame, strip_.TicksOfCell(target), copyKey_, rippleMode_, mode});
    const std::string label =
        std::string(rippleMode_ ? "Ripple " : "") + (copyKey_ ? "Copy Keyframe" : "Move Keyframe");
    SendFrames(std::move(frames), label, copyKey_ ? kKindKeyCopy : kKindKeyMove);
}

void TimelineView::SendFrames(std::vector<WirrelKey> after, const std::string& label, int kind) {
    if (!doc_.HasCurrentAnim() || after.empty()) {
        return;
    }
    if (doc_.cursor.frameIndex >= after.size()) {
        doc_.SetFrame(static_cast<std::uint32_t>(after.size() - 1));
    }
    Send(std::make_shared<CommandFrameState>(doc_, label, kind, std::move(after)));
    dragEndListeners.Call(kind, true);
    rebuild_ = true;
}

void TimelineView::SetFrameCount(float cells) {
    Sync();
    if (Playing() || !doc_.HasCurrentAnim()) {
        return;
    }
    std::vector<WirrelKey> frames = strip_.Frames();
    const auto ticks = static_cast<std::uint64_t>(
        std::llround(static_cast<double>(strip_.TicksPerSecond()) * (cells + 1e-05) / strip_.Rate()));
    if (ResizeFrames(frames, ticks, -1)) {
        SendFrames(std::move(frames), "Set Frame Count", kKindFrameCount);
    }
}

void TimelineView::SetTotalTime(float seconds) {
    Sync();
    if (Playing() || !doc_.HasCurrentAnim()) {
        return;
    }
    std::vector<WirrelKey> frames = strip_.Frames();
    const auto ticks = static_cast<std::uint64_t>(
        std::llround(static_cast<double>(strip_.TicksPerSecond()) * (seconds + 1e-05)));
    if (ResizeFrames(frames, ticks, -1)) {
        SendFrames(std::move(frames), "Set Total Time", kKindTotalTime);
    }
}

void TimelineView::SetSpeedText(const std::string& text) {
    Sync();
    if (!doc_.HasCurrentAnim()) {
        return;
    }
    char* end = nullptr;
    const float value = std::strtof(text.c_str(), &end);
    if (end == text.c_str() || !std::isfinite(value)) {
        return;
    }
    const float rounded = std::floor(value * 10.0f + 0.5f) / 10.0f;
    Send(std::make_shared<CommandFrameSpeed>(doc_, std::clamp(rounded * 0.01f, 0.0f, 10.0f)));
}

void TimelineView::OnTimer() {
    if (!drag_.Active()) {
        return;
    }
    const int step = std::max(1, layout_.Pitch() / 4);
    if (drag_.dragX < layout_.ClipLeft() + 8 && viewLeft_ > 0) {
        ScrollBy(-step);
    } else if (drag_.dragX > width_ - 8) {
        ScrollBy(step);
    }
    Sync();
}

}  // namespace kovra
