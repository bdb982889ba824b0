#pragma once
// The colours, fonts, sizes and icon file names that the drawing code reads, and how a theme file fills
// them. A `Theme` starts with the program's own defaults, those of the "Paleform" theme; reading a theme
// store changes only the values it names, so a theme may name just what it changes. Icons are file names
// relative to the folder of the theme file; the gui loads the pictures.

#include <string>
#include <utility>
#include <vector>

#include "base/color32.h"
#include "settings/settings_store.h"

namespace aurel {

// A font as a theme names it: the face, the height of a line in pixels, and the three styles.
struct FontInfo {
    std::string face = "Segoe UI";
    int height = 12;
    bool bold = false;
    bool italic = false;
    bool underline = false;

    bool operator==(const FontInfo&) const = default;
};

// Section WORKSPACE: the workspace and the texture view.
struct ThemeWorkspace {
    Color32 boneColor{236, 240, 246, 200};
    Color32 boneColorAttach{176, 222, 184, 200};
    Color32 boneColorHot{255, 224, 150, 220};
    Color32 boneColorOrient{214, 190, 240, 200};
    Color32 boneColorOutline{58, 66, 82};
    Color32 boneColorOutlineHot{196, 120, 24};
    Color32 boneColorSel{128, 178, 255, 220};
    Color32 boneColorSelHot{170, 206, 255, 230};
    Color32 boneColorTracker{250, 186, 160, 200};
    float boneWidth = 8.0f;
    Color32 defBgColor{214, 218, 224};
    Color32 defGridColor{200, 205, 213};
    Color32 defGridColor0{150, 160, 176};
    Color32 defGridColor2{190, 196, 206};
    FontInfo eventTextFont{"Segoe UI", 13, true};
    Color32 eventTextColor{40, 48, 64};
    FontInfo pinTextFont{"Segoe UI", 12};
    Color32 pinTextColor{30, 36, 48};
    FontInfo infoTextFont{"Segoe UI", 12};
    Color32 infoTextColor{70, 78, 94};
    int gridInterval = 5;
    Color32 pinColorLock{220, 70, 60};
    Color32 pinColorOutline{40, 46, 58};
    Color32 pinColorRoot{90, 150, 230, 140};
    Color32 pinColorSel{60, 130, 240};
    Color32 pinColorTail{150, 110, 200};
    Color32 pinColorUnsel{250, 250, 252};
    float pinRadSm = 4.0f;
    float pinRadLg = 8.0f;
    Color32 skinGripColor{255, 255, 255, 200};
    Color32 skinGripColorHot{255, 200, 90};
    Color32 skinOutlineColor{90, 110, 150, 160};
    Color32 skinOutlineColorHot{230, 140, 30};
    Color32 texGridColor1{204, 204, 204};
    Color32 texGridColor2{236, 236, 236};
    Color32 texNewColor{80, 160, 255, 60};
    Color32 texNewOutline{40, 110, 230};
    Color32 texHotColor{255, 210, 120, 60};
    Color32 texSelColor{80, 150, 255, 50};
    Color32 texSelHotColor{80, 150, 255, 90};
    Color32 texSelOutline{30, 100, 220};
    Color32 texGripColor{255, 255, 255};
    Color32 texGripHotColor{255, 200, 90};
    Color32 texGripOutline{30, 100, 220};

    bool operator==(const ThemeWorkspace&) const = default;
};

// Section PANELS: the backgrounds of the panel column and the timeline, and the history list.
struct ThemePanels {
    Color32 bgGrad1{226, 229, 234};
    Color32 bgGrad2{240, 242, 245};
    int padding = 6;
    Color32 undoRedoColor{150, 156, 168};
    Color32 undoActiveColor{40, 110, 220};

    bool operator==(const ThemePanels&) const = default;
};

// Section TIMELINE: the strip of key frames, its ruler and the micro timeline's lanes.
struct ThemeTimeline {
    Color32 frameSelColor{60, 130, 240};
    Color32 frameColor{250, 251, 253};
    Color32 frameColorHot{255, 244, 214};
    Color32 frameEmpty{216, 220, 227};
    Color32 frameEmptyHot{232, 235, 240};
    Color32 frameBorder{160, 168, 182};
    Color32 frameTri{120, 130, 148};
    Color32 frameTriSel{60, 130, 240};
    Color32 rulerGrad1{246, 247, 249};
    Color32 rulerGrad2{222, 226, 232};
    Color32 rulerTextColor{70, 78, 94};
    Color32 rulerEndColor{180, 40, 40};
    FontInfo rulerTextFont{"Segoe UI", 11};
    Color32 microBgColor{232, 235, 240};
    Color32 microColor1{220, 225, 233};
    Color32 microColor2{210, 215, 224};
    Color32 microItem1{150, 186, 240};
    Color32 microItem2{130, 170, 232};
    Color32 microItemDiffZ{236, 170, 110};
    Color32 microItemSelOverlay{255, 255, 255, 90};
    Color32 microEnv{40, 70, 130};
    Color32 microEnvDiffZ{140, 70, 20};
    Color32 microBorder{176, 183, 196};

    bool operator==(const ThemeTimeline&) const = default;
};

// Section UI: sub-panels, lists, edit boxes, labels, property grids and dialogs.
struct ThemeUi {
    Color32 panelBarColor{212, 217, 225};
    Color32 panelBarColorHot{224, 229, 238};
    Color32 panelBarOutline{160, 168, 182};
    Color32 panelGrad1{244, 245, 248};
    Color32 panelGrad2{232, 235, 240};
    Color32 panelOutline{184, 190, 202};
    int panelBarH = 20;
    int panelRadius = 4;
    FontInfo panelBarFont{"Segoe UI", 12, true};
    Color32 panelBarFontColor{44, 52, 68};
    Color32 listBg{255, 255, 255};
    Color32 listSel{60, 130, 240};
    Color32 listBorder{170, 177, 190};
    Color32 listFontColor{30, 36, 48};
    Color32 listFontSelColor{255, 255, 255};
    Color32 editBg{255, 255, 255};
    Color32 editFontColor{30, 36, 48};
    Color32 labelFontColor{44, 52, 68};
    Color32 propsGrad1{244, 245, 248};
    Color32 propsGrad2{230, 233, 238};
    Color32 propsFontColor{30, 36, 48};
    Color32 propsNameFontColor{70, 78, 94};
    Color32 propsTitleFontColor{30, 36, 48};
    Color32 dialogBg{238, 240, 243};

    bool operator==(const ThemeUi&) const = default;
};

// The icons: the navigation panel's in section PANELS, the timeline's in TIMELINE and the micro
// timeline's in MICRO. Each is a picture at 1x; the same name with "@2x" before the extension holds it at
// twice the size.
struct ThemeIcons {
    std::string editModeAnimIco = "Paleform/AnimMode.png";
    std::string editModeBuildIco = "Paleform/BuildMode.png";
    std::string editModeTexIco = "Paleform/TexMode.png";
    std::string editModeBgIco = "Paleform/BgMode.png";
    std::string cdConvexIco = "Paleform/OptionCdHull.png";
    std::string optionIk = "Paleform/OptionIk.png";
    std::string optionRotate = "Paleform/OptionRotate.png";
    std::string toolSkinning = "Paleform/ToolSkinning.png";
    std::string toolCdRect = "Paleform/ToolCdRect.png";
    std::string toolTile = "Paleform/ToolTile.png";
    std::string framesRippleOnIco = "Paleform/RippleOn.png";
    std::string framesRippleOffIco = "Paleform/RippleOff.png";
    std::string framesMicroIco = "Paleform/MicroTimeline.png";
    std::string framesDualIco = "Paleform/DualMon.png";
    std::string framesPlay = "Paleform/TransPlay.png";
    std::string framesNext = "Paleform/TransNext.png";
    std::string framesFf = "Paleform/TransFf.png";
    std::string framesPrev = "Paleform/TransPrev.png";
    std::string framesRew = "Paleform/TransRew.png";
    std::string framesStop = "Paleform/TransStop.png";
    std::string framesPause = "Paleform/TransPause.png";
    std::string toolEvent = "Paleform/ToolEvent.png";
    std::string toolEventOff = "Paleform/ToolEventOff.png";
    std::string curveEaseIn = "Paleform/CurveEaseIn.png";
    std::string curveEaseInOut = "Paleform/CurveEaseInOut.png";
    std::string curveEaseOut = "Paleform/CurveEaseOut.png";
    std::string curveFastInOut = "Paleform/CurveFastInOut.png";
    std::string curveLinear = "Paleform/CurveLinear.png";
    std::string curveStep = "Paleform/CurveStep.png";
    std::string laneLgAll = "Paleform/LaneLgAll.png";
    std::string laneLgOne = "Paleform/LaneLgOne.png";
    std::string laneMedAll = "Paleform/LaneMedAll.png";
    std::string laneMedOne = "Paleform/LaneMedOne.png";
    std::string laneSmAll = "Paleform/LaneSmAll.png";
    std::string laneSmOne = "Paleform/LaneSmOne.png";
    std::string eye = "Paleform/Eye.png";
    std::string eyeOff = "Paleform/EyeOff.png";

    bool operator==(const ThemeIcons&) const = default;
};

struct Theme {
    ThemeWorkspace workspace;
    ThemePanels panels;
    ThemeTimeline timeline;
    ThemeUi ui;
    ThemeIcons icons;

    bool operator==(const Theme&) const = default;
};

// The colour of the key: an integer list of red, green, blue and, when there is a fourth, alpha (else
// opaque), each clamped to a byte. A list of another length, or no key, gives `fallback`.
Color32 ThemeColor(SettingsStore& store, const std::string& section, const std::string& key,
                   Color32 fallback);

// The font of the key: the face, then the height as text, then any of "ITALIC=TRUE", "ITALIC=FALSE",
// "BOLD=TRUE", "BOLD=FALSE", "UNDERLINE=TRUE", "UNDERLINE=FALSE". A style not named is off; a height not
// given is the fallback's. No key gives `fallback`.
FontInfo ThemeFont(SettingsStore& store, const std::string& section, const std::string& key,
                   const FontInfo& fallback);

// Reads every key of a theme from the store into `theme`, section by section in a fixed order; a key the
// store lacks, or holds in a form that doesn't fit, leaves the value as it was.
void ReadTheme(SettingsStore& store, Theme& theme);

// The (section, key) pairs that ReadTheme reads, in its order.
std::vector<std::pair<std::string, std::string>> ThemeKeys();

}  // namespace aurel
