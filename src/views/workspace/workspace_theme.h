#pragma once
// The colours, sizes and fonts the workspace draws with, as one plain value. The theme store fills it
// (the "WORKSPACE" section); the defaults below are a complete dark theme, so the painters and their
// tests need nothing else.

#include "base/color32.h"
#include "bitmap/text.h"
#include "doc/editor_hub.h"
#include "settings/theme_table.h"

namespace kovra {

struct WorkspaceTheme {
    aurel::Color32 boneColor = 0xA0B0B8C8;
    aurel::Color32 boneColorAttach = 0xFF50A0FF;
    aurel::Color32 boneColorHot = 0xC0FFD080;
    aurel::Color32 boneColorOrient = 0xFF80FF80;
    aurel::Color32 boneColorOutline = 0xFF202830;
    aurel::Color32 boneColorOutlineHot = 0xFFFFFFFF;
    aurel::Color32 boneColorSel = 0xC0FF8040;
    aurel::Color32 boneColorSelHot = 0xE0FFB080;
    aurel::Color32 boneColorTracker = 0xFFFF60FF;
    float boneWidth = 8.0f;
    aurel::Color32 defBgColor = 0xFF4C545C;
    aurel::Color32 defGridColor = 0xFF586068;
    aurel::Color32 defGridColor0 = 0xFF8898A8;
    aurel::Color32 defGridColor2 = 0xFF687480;
    int gridInterval = 4;  // at least 2
    aurel::Color32 pinColorLock = 0xFFFF3030;
    aurel::Color32 pinColorOutline = 0xFF000000;
    aurel::Color32 pinColorRoot = 0xFFFFE040;
    aurel::Color32 pinColorSel = 0xFFFF8040;
    aurel::Color32 pinColorTail = 0xFF40C0FF;
    aurel::Color32 pinColorUnsel = 0xFFE0E0E0;
    float pinRadSm = 4.0f;
    float pinRadLg = 7.0f;
    aurel::Color32 skinGripColor = 0xFFFFFFFF;
    aurel::Color32 skinGripColorHot = 0xFFFF8040;
    aurel::Color32 skinOutlineColor = 0xFF8080FF;
    aurel::Color32 skinOutlineColorHot = 0xFFFFFF80;
    aurel::TextFont eventTextFont{.face = "Segoe UI", .size = 14};
    aurel::Color32 eventTextColor = 0xFFFFFFFF;
    aurel::TextFont pinTextFont{.face = "Segoe UI", .size = 12};
    aurel::Color32 pinTextColor = 0xFFFFFFFF;
    aurel::TextFont infoTextFont{.face = "Segoe UI", .size = 12};
    aurel::Color32 infoTextColor = 0xFFE0E0E0;
    float pixelRatio = 1.0f;  // the screen's device pixels per layout pixel; the text boxes grow with it
};

// The workspace's values of the loaded theme; sizes in pixels grow with the screen's pixel ratio.
WorkspaceTheme WorkspaceThemeOf(const aurel::ThemeWorkspace& theme, float pixelRatio = 1.0f);

// What the workspace actually paints its backdrop with: the theme's defaults at first, then the
// editor's grid and background colour, which the user may change.
struct WorkingColours {
    aurel::Color32 background;
    aurel::Color32 grid0;
    aurel::Color32 gridOrigin;
    aurel::Color32 grid1;
    int interval = 4;  // grid lines to a stronger line, at least 2
    bool gridOn = true;

    static WorkingColours FromTheme(const WorkspaceTheme& theme) {
        return {theme.defBgColor,    theme.defGridColor, theme.defGridColor0,
                theme.defGridColor2, theme.gridInterval, true};
    }
    static WorkingColours FromHub(const EditorHub& hub) {
        const WorkGrid grid = hub.Grid();
        return {hub.BackgroundColor(), grid.color0, grid.origin, grid.color1, grid.stepX, grid.enabled};
    }
};

}  // namespace kovra
