#pragma once
// The controls of the timeline's control band and the micro timeline's toolbar as data: id, kind,
// language section and key of the tooltip, and the theme icons. The panel builds its native controls
// from this table in its order, and answers their notifications by id.

#include <string>
#include <vector>

#include "settings/theme_table.h"

namespace kovra {

enum class ControlKind { Check, Button, Edit, Combo, Scrollbar, Slider };

// What a control does when it acts.
enum class ControlEffect {
    ToggleExtended,   // sends the key T to the window
    DualPlaceholder,  // the "Not yet..." message
    RippleMode,
    PreviousAnim,
    Rewind,       // the key Left
    PlayPause,    // the key Space
    Stop,         // the key Space while playing
    FastForward,  // the key Right
    NextAnim,
    Speed,
    Snap,
    FrameCount,
    TotalTime,
    Scroll,
    Zoom,
    LaneHeights,
    CurvePlaceholder,  // the "Soon..." message
};

struct TimelineControl {
    int id = 0;
    ControlKind kind = ControlKind::Button;
    std::string section;  // of the tooltip
    std::string tooltipKey;
    std::string aurel::ThemeIcons::*icon = nullptr;     // none for edits, combos, scrollbars and sliders
    std::string aurel::ThemeIcons::*iconAlt = nullptr;  // the other state of a two-state button
    ControlEffect effect = ControlEffect::PlayPause;
    int laneHeight = 0;     // for LaneHeights
    bool allLanes = false;  // for LaneHeights
};

// Every control in the order it is built: the control band's, then the micro toolbars'.
const std::vector<TimelineControl>& TimelineControls();
const TimelineControl* FindTimelineControl(int id);

// The placeholder messages of the dual-monitor button and of the curve presets.
constexpr const char* kDualTitle = "Not yet...";
constexpr const char* kDualText =
    "This is placeholder functionality. This feature will be implemented in a future version of Kovra.";
constexpr const char* kCurveTitle = "Soon...";
constexpr const char* kCurveText = "This is placeholder functionality. This feature be available shortly.";

}  // namespace kovra
