#include "views/workspace/workspace_theme.h"

#include <cmath>

namespace kovra {
namespace {

aurel::TextFont FontOf(const aurel::FontInfo& info, float ratio) {
    return aurel::TextFont{.face = info.face,
                           .size = static_cast<int>(std::lround(static_cast<float>(info.height) * ratio)),
                           .bold = info.bold,
                           .italic = info.italic,
                           .underline = info.underline};
}

}  // namespace

WorkspaceTheme WorkspaceThemeOf(const aurel::ThemeWorkspace& t, float ratio) {
    WorkspaceTheme w;
    w.boneColor = t.boneColor;
    w.boneColorAttach = t.boneColorAttach;
    w.boneColorHot = t.boneColorHot;
    w.boneColorOrient = t.boneColorOrient;
    w.boneColorOutline = t.boneColorOutline;
    w.boneColorOutlineHot = t.boneColorOutlineHot;
    w.boneColorSel = t.boneColorSel;
    w.boneColorSelHot = t.boneColorSelHot;
    w.boneColorTracker = t.boneColorTracker;
    w.boneWidth = t.boneWidth * ratio;
    w.defBgColor = t.defBgColor;
    w.defGridColor = t.defGridColor;
    w.defGridColor0 = t.defGridColor0;
    w.defGridColor2 = t.defGridColor2;
    w.gridInterval = t.gridInterval;
    w.pinColorLock = t.pinColorLock;
    w.pinColorOutline = t.pinColorOutline;
    w.pinColorRoot = t.pinColorRoot;
    w.pinColorSel = t.pinColorSel;
    w.pinColorTail = t.pinColorTail;
    w.pinColorUnsel = t.pinColorUnsel;
    w.pixelRatio = ratio;
    w.pinRadSm = t.pinRadSm * ratio;
    w.pinRadLg = t.pinRadLg * ratio;
    w.skinGripColor = t.skinGripColor;
    w.skinGripColorHot = t.skinGripColorHot;
    w.skinOutlineColor = t.skinOutlineColor;
    w.skinOutlineColorHot = t.skinOutlineColorHot;
    w.eventTextFont = FontOf(t.eventTextFont, ratio);
    w.eventTextColor = t.eventTextColor;
    w.pinTextFont = FontOf(t.pinTextFont, ratio);
    w.pinTextColor = t.pinTextColor;
    w.infoTextFont = FontOf(t.infoTextFont, ratio);
    w.infoTextColor = t.infoTextColor;
    return w;
}

}  // namespace kovra
