#include "views/timeline/timeline_controls.h"

namespace kovra {

const std::vector<TimelineControl>& TimelineControls() {
    using K = ControlKind;
    using E = ControlEffect;
    using I = aurel::ThemeIcons;
    static const std::vector<TimelineControl> table{
        {0x3F4, K::Check, "TIMELINE", "FramesMicro", &I::framesMicroIco, nullptr, E::ToggleExtended},
        {0x3EC, K::Check, "TIMELINE", "FramesDual", &I::framesDualIco, nullptr, E::DualPlaceholder},
        {0x3EB, K::Check, "TIMELINE", "FramesRipple", &I::framesRippleOffIco, &I::framesRippleOnIco,
         E::RippleMode},
        {0x3F0, K::Button, "TIMELINE", "FramesPrev", &I::framesPrev, nullptr, E::PreviousAnim},
        {0x3F2, K::Button, "TIMELINE", "FramesRew", &I::framesRew, nullptr, E::Rewind},
        {0x3EE, K::Button, "TIMELINE", "FramesPlay", &I::framesPlay, &I::framesPause, E::PlayPause},
        {0x3EF, K::Button, "TIMELINE", "FramesStop", &I::framesStop, nullptr, E::Stop},
        {0x3F3, K::Button, "TIMELINE", "FramesFf", &I::framesFf, nullptr, E::FastForward},
        {0x3F1, K::Button, "TIMELINE", "FramesNext", &I::framesNext, nullptr, E::NextAnim},
        {0x3FD, K::Edit, "TIMELINE", "FramesSpeed", nullptr, nullptr, E::Speed},
        {0x3F7, K::Combo, "TIMELINE", "FramesSnap", nullptr, nullptr, E::Snap},
        {0x3F9, K::Edit, "TIMELINE", "FramesCount", nullptr, nullptr, E::FrameCount},
        {0x3FB, K::Edit, "TIMELINE", "FramesTime", nullptr, nullptr, E::TotalTime},
        {1000, K::Scrollbar, "", "", nullptr, nullptr, E::Scroll},
        {0x3E9, K::Slider, "TIMELINE", "FramesZoom", nullptr, nullptr, E::Zoom},
        {0x3F5, K::Scrollbar, "TIMELINE", "FramesZoom", nullptr, nullptr, E::Zoom},
        {0x402, K::Button, "MICRO", "LaneSmAll", &I::laneSmAll, nullptr, E::LaneHeights, 0, true},
        {0x401, K::Button, "MICRO", "LaneMedAll", &I::laneMedAll, nullptr, E::LaneHeights, 60, true},
        {0x400, K::Button, "MICRO", "LaneLgAll", &I::laneLgAll, nullptr, E::LaneHeights, 10000, true},
        {0x405, K::Button, "MICRO", "LaneSmOne", &I::laneSmOne, nullptr, E::LaneHeights, 0, false},
        {0x404, K::Button, "MICRO", "LaneMedOne", &I::laneMedOne, nullptr, E::LaneHeights, 60, false},
        {0x403, K::Button, "MICRO", "LaneLgOne", &I::laneLgOne, nullptr, E::LaneHeights, 10000, false},
        {0x40B, K::Button, "MICRO", "CurveLinear", &I::curveLinear, nullptr, E::CurvePlaceholder},
        {0x407, K::Button, "MICRO", "CurveEaseIn", &I::curveEaseIn, nullptr, E::CurvePlaceholder},
        {0x409, K::Button, "MICRO", "CurveEaseOut", &I::curveEaseOut, nullptr, E::CurvePlaceholder},
        {0x408, K::Button, "MICRO", "CurveEaseInOut", &I::curveEaseInOut, nullptr, E::CurvePlaceholder},
        {0x40A, K::Button, "MICRO", "CurveFastInOut", &I::curveFastInOut, nullptr, E::CurvePlaceholder},
        {0x40C, K::Button, "MICRO", "CurveStep", &I::curveStep, nullptr, E::CurvePlaceholder},
    };
    return table;
}

const TimelineControl* FindTimelineControl(int id) {
    for (const TimelineControl& control : TimelineControls()) {
        if (control.id == id) {
            return &control;
        }
    }
    return nullptr;
}

}  // namespace kovra
