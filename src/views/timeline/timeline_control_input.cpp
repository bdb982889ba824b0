// The timeline's answers to its native controls, by the table's effects.

#include "commands/anim_commands.h"
#include "commands/frame_commands.h"
#include "gui/virtual_keys.h"
#include "views/timeline/micro_timeline.h"
#include "views/timeline/timeline_controls.h"
#include "views/timeline/timeline_view.h"

namespace kovra {

namespace win = kestrel2::win;

void TimelineView::SendKey(int key) {
    win::InputEvent event;
    event.key = static_cast<std::uint8_t>(key);
    event.type = win::kInputKeyDown;
    event.keys[key] = 1;
    eventListeners.Call(event);
    event.type = win::kInputKeyUp;
    event.keys[key] = 0;
    eventListeners.Call(event);
}

void TimelineView::SelectAnim(int step) {
    const int count = static_cast<int>(doc_.Wirrel().anims.size());
    if (count == 0) {
        return;
    }
    const int index = (doc_.cursor.animIndex + step + count) % count;
    auto command = std::make_shared<CommandAnimSel>(doc_, selection_, hub_, index);
    // During playback the choice isn't an undo step.
    if (!Playing()) {
        Send(command);
    }
    rebuild_ = true;
}

void TimelineView::SetSnapIndex(int index) {
    Sync();
    if (Playing() || index < 0 || static_cast<std::uint32_t>(index) == doc_.snapFrames) {
        return;
    }
    Send(std::make_shared<CommandFrameSnap>(doc_, static_cast<std::uint32_t>(index)));
    rebuild_ = true;
}

void TimelineView::OnControl(int id, int value) {
    const TimelineControl* control = FindTimelineControl(id);
    if (control == nullptr) {
        return;
    }
    switch (control->effect) {
        case ControlEffect::ToggleExtended:
            SendKey('T');
            break;
        case ControlEffect::DualPlaceholder:
            window_.Tell(aurel::DualString(kDualTitle), aurel::DualString(kDualText));
            break;
        case ControlEffect::RippleMode:
            rippleMode_ = value != 0;
            break;
        case ControlEffect::PreviousAnim:
            SelectAnim(-1);
            break;
        case ControlEffect::NextAnim:
            SelectAnim(1);
            break;
        case ControlEffect::Rewind:
            SendKey(win::kVkLeft);
            break;
        case ControlEffect::PlayPause:
            SendKey(win::kVkSpace);
            break;
        case ControlEffect::Stop:
            if (Playing()) {
                SendKey(win::kVkSpace);
            }
            break;
        case ControlEffect::FastForward:
            SendKey(win::kVkRight);
            break;
        case ControlEffect::Snap:
            SetSnapIndex(value);
            break;
        case ControlEffect::Zoom:
            SetZoom(value);
            break;
        case ControlEffect::Scroll:
            SetViewLeft(value);
            break;
        case ControlEffect::LaneHeights:
            micro_->SetLaneHeights(control->laneHeight, control->allLanes);
            break;
        case ControlEffect::CurvePlaceholder:
            window_.Tell(aurel::DualString(kCurveTitle), aurel::DualString(kCurveText));
            break;
        case ControlEffect::Speed:
        case ControlEffect::FrameCount:
        case ControlEffect::TotalTime:
            break;
    }
}

}  // namespace kovra
