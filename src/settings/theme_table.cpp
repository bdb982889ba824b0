#include "settings/theme_table.h"

#include <algorithm>
#include <charconv>
#include <variant>

namespace aurel {

namespace {

// One key of a theme and the member of a section's values it fills.
template <class Values>
struct ThemeEntry {
    const char* section;
    const char* key;
    std::variant<Color32 Values::*, float Values::*, int Values::*, FontInfo Values::*, std::string Values::*>
        field;
};

using W = ThemeWorkspace;
using P = ThemePanels;
using T = ThemeTimeline;
using U = ThemeUi;
using I = ThemeIcons;

const ThemeEntry<W> kWorkspace[] = {
    {"WORKSPACE", "BoneColor", &W::boneColor},
    {"WORKSPACE", "BoneColorAttach", &W::boneColorAttach},
    {"WORKSPACE", "BoneColorHot", &W::boneColorHot},
    {"WORKSPACE", "BoneColorOrient", &W::boneColorOrient},
    {"WORKSPACE", "BoneColorOutline", &W::boneColorOutline},
    {"WORKSPACE", "BoneColorOutlineHot", &W::boneColorOutlineHot},
    {"WORKSPACE", "BoneColorSel", &W::boneColorSel},
    {"WORKSPACE", "BoneColorSelHot", &W::boneColorSelHot},
    {"WORKSPACE", "BoneColorTracker", &W::boneColorTracker},
    {"WORKSPACE", "BoneWidth", &W::boneWidth},
    {"WORKSPACE", "DefBgColor", &W::defBgColor},
    {"WORKSPACE", "DefGridColor", &W::defGridColor},
    {"WORKSPACE", "DefGridColor0", &W::defGridColor0},
    {"WORKSPACE", "DefGridColor2", &W::defGridColor2},
    {"WORKSPACE", "EventTextFont", &W::eventTextFont},
    {"WORKSPACE", "EventTextColor", &W::eventTextColor},
    {"WORKSPACE", "PinTextFont", &W::pinTextFont},
    {"WORKSPACE", "PinTextColor", &W::pinTextColor},
    {"WORKSPACE", "InfoTextFont", &W::infoTextFont},
    {"WORKSPACE", "InfoTextColor", &W::infoTextColor},
    {"WORKSPACE", "GridInterval", &W::gridInterval},
    {"WORKSPACE", "PinColorLock", &W::pinColorLock},
    {"WORKSPACE", "PinColorOutline", &W::pinColorOutline},
    {"WORKSPACE", "PinColorRoot", &W::pinColorRoot},
    {"WORKSPACE", "PinColorSel", &W::pinColorSel},
    {"WORKSPACE", "PinColorTail", &W::pinColorTail},
    {"WORKSPACE", "PinColorUnsel", &W::pinColorUnsel},
    {"WORKSPACE", "PinRadSm", &W::pinRadSm},
    {"WORKSPACE", "PinRadLg", &W::pinRadLg},
    {"WORKSPACE", "SkinGripColor", &W::skinGripColor},
    {"WORKSPACE", "SkinGripColorHot", &W::skinGripColorHot},
    {"WORKSPACE", "SkinOutlineColor", &W::skinOutlineColor},
    {"WORKSPACE", "SkinOutlineColorHot", &W::skinOutlineColorHot},
    {"WORKSPACE", "TexGridColor1", &W::texGridColor1},
    {"WORKSPACE", "TexGridColor2", &W::texGridColor2},
    {"WORKSPACE", "TexNewColor", &W::texNewColor},
    {"WORKSPACE", "TexNewOutline", &W::texNewOutline},
    {"WORKSPACE", "TexHotColor", &W::texHotColor},
    {"WORKSPACE", "TexSelColor", &W::texSelColor},
    {"WORKSPACE", "TexSelHotColor", &W::texSelHotColor},
    {"WORKSPACE", "TexSelOutline", &W::texSelOutline},
    {"WORKSPACE", "TexGripColor", &W::texGripColor},
    {"WORKSPACE", "TexGripHotColor", &W::texGripHotColor},
    {"WORKSPACE", "TexGripOutline", &W::texGripOutline},
};

const ThemeEntry<P> kPanels[] = {
    {"PANELS", "BgGrad1", &P::bgGrad1},
    {"PANELS", "BgGrad2", &P::bgGrad2},
    {"PANELS", "Padding", &P::padding},
    {"PANELS", "UndoRedoColor", &P::undoRedoColor},
    {"PANELS", "UndoActiveColor", &P::undoActiveColor},
};

const ThemeEntry<T> kTimeline[] = {
    {"TIMELINE", "FrameSelColor", &T::frameSelColor},
    {"TIMELINE", "FrameColor", &T::frameColor},
    {"TIMELINE", "FrameColorHot", &T::frameColorHot},
    {"TIMELINE", "FrameEmpty", &T::frameEmpty},
    {"TIMELINE", "FrameEmptyHot", &T::frameEmptyHot},
    {"TIMELINE", "FrameBorder", &T::frameBorder},
    {"TIMELINE", "FrameTri", &T::frameTri},
    {"TIMELINE", "FrameTriSel", &T::frameTriSel},
    {"TIMELINE", "RulerGrad1", &T::rulerGrad1},
    {"TIMELINE", "RulerGrad2", &T::rulerGrad2},
    {"TIMELINE", "RulerTextColor", &T::rulerTextColor},
    {"TIMELINE", "RulerEndColor", &T::rulerEndColor},
    {"TIMELINE", "RulerTextFont", &T::rulerTextFont},
    {"TIMELINE", "MicroBgColor", &T::microBgColor},
    {"TIMELINE", "MicroColor1", &T::microColor1},
    {"TIMELINE", "MicroColor2", &T::microColor2},
    {"TIMELINE", "MicroItem1", &T::microItem1},
    {"TIMELINE", "MicroItem2", &T::microItem2},
    {"TIMELINE", "MicroItemDiffZ", &T::microItemDiffZ},
    {"TIMELINE", "MicroItemSelOverlay", &T::microItemSelOverlay},
    {"TIMELINE", "MicroEnv", &T::microEnv},
    {"TIMELINE", "MicroEnvDiffZ", &T::microEnvDiffZ},
    {"TIMELINE", "MicroBorder", &T::microBorder},
};

const ThemeEntry<U> kUi[] = {
    {"UI", "PanelBarColor", &U::panelBarColor},
    {"UI", "PanelBarColorHot", &U::panelBarColorHot},
    {"UI", "PanelBarOutline", &U::panelBarOutline},
    {"UI", "PanelGrad1", &U::panelGrad1},
    {"UI", "PanelGrad2", &U::panelGrad2},
    {"UI", "PanelOutline", &U::panelOutline},
    {"UI", "PanelBarH", &U::panelBarH},
    {"UI", "PanelRadius", &U::panelRadius},
    {"UI", "PanelBarFont", &U::panelBarFont},
    {"UI", "PanelBarFontColor", &U::panelBarFontColor},
    {"UI", "ListBg", &U::listBg},
    {"UI", "ListSel", &U::listSel},
    {"UI", "ListBorder", &U::listBorder},
    {"UI", "ListFontColor", &U::listFontColor},
    {"UI", "ListFontSelColor", &U::listFontSelColor},
    {"UI", "EditBg", &U::editBg},
    {"UI", "EditFontColor", &U::editFontColor},
    {"UI", "LabelFontColor", &U::labelFontColor},
    {"UI", "PropsGrad1", &U::propsGrad1},
    {"UI", "PropsGrad2", &U::propsGrad2},
    {"UI", "PropsFontColor", &U::propsFontColor},
    {"UI", "PropsNameFontColor", &U::propsNameFontColor},
    {"UI", "PropsTitleFontColor", &U::propsTitleFontColor},
    {"UI", "DialogBg", &U::dialogBg},
};

const ThemeEntry<I> kIcons[] = {
    {"PANELS", "EditModeAnimIco", &I::editModeAnimIco},
    {"PANELS", "EditModeBuildIco", &I::editModeBuildIco},
    {"PANELS", "EditModeTexIco", &I::editModeTexIco},
    {"PANELS", "EditModeBgIco", &I::editModeBgIco},
    {"PANELS", "CdConvexIco", &I::cdConvexIco},
    {"PANELS", "OptionIk", &I::optionIk},
    {"PANELS", "OptionRotate", &I::optionRotate},
    {"PANELS", "ToolSkinning", &I::toolSkinning},
    {"PANELS", "ToolCdRect", &I::toolCdRect},
    {"PANELS", "ToolTile", &I::toolTile},
    {"TIMELINE", "FramesRippleOnIco", &I::framesRippleOnIco},
    {"TIMELINE", "FramesRippleOffIco", &I::framesRippleOffIco},
    {"TIMELINE", "FramesMicroIco", &I::framesMicroIco},
    {"TIMELINE", "FramesDualIco", &I::framesDualIco},
    {"TIMELINE", "FramesPlay", &I::framesPlay},
    {"TIMELINE", "FramesNext", &I::framesNext},
    {"TIMELINE", "FramesFf", &I::framesFf},
    {"TIMELINE", "FramesPrev", &I::framesPrev},
    {"TIMELINE", "FramesRew", &I::framesRew},
    {"TIMELINE", "FramesStop", &I::framesStop},
    {"TIMELINE", "FramesPause", &I::framesPause},
    {"TIMELINE", "ToolEvent", &I::toolEvent},
    {"TIMELINE", "ToolEventOff", &I::toolEventOff},
    {"MICRO", "CurveEaseIn", &I::curveEaseIn},
    {"MICRO", "CurveEaseInOut", &I::curveEaseInOut},
    {"MICRO", "CurveEaseOut", &I::curveEaseOut},
    {"MICRO", "CurveFastInOut", &I::curveFastInOut},
    {"MICRO", "CurveLinear", &I::curveLinear},
    {"MICRO", "CurveStep", &I::curveStep},
    {"MICRO", "LaneLgAll", &I::laneLgAll},
    {"MICRO", "LaneLgOne", &I::laneLgOne},
    {"MICRO", "LaneMedAll", &I::laneMedAll},
    {"MICRO", "LaneMedOne", &I::laneMedOne},
    {"MICRO", "LaneSmAll", &I::laneSmAll},
    {"MICRO", "LaneSmOne", &I::laneSmOne},
    {"MICRO", "Eye", &I::eye},
    {"MICRO", "EyeOff", &I::eyeOff},
};

std::uint8_t ClampByte(std::int32_t value) {
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

// A size keeps its value unless the key exists as a number of either kind.
float ThemeSize(SettingsStore& store, const std::string& section, const std::string& key, float fallback) {
    store.Select(section);
    float value = fallback;
    store.GetFloat(key, value);
    return value;
}

int ThemeSize(SettingsStore& store, const std::string& section, const std::string& key, int fallback) {
    store.Select(section);
    std::int32_t value = fallback;
    store.GetInt(key, value);
    return value;
}

std::string ThemeIcon(SettingsStore& store, const std::string& section, const std::string& key,
                      const std::string& fallback) {
    store.Select(section);
    return store.GetString(key, DualString(fallback)).Utf8();
}

template <class Values>
void ReadEntries(SettingsStore& store, const auto& entries, Values& values) {
    for (const ThemeEntry<Values>& entry : entries) {
        std::visit(
            [&](auto member) {
                auto& field = values.*member;
                using Field = std::remove_reference_t<decltype(field)>;
                if constexpr (std::is_same_v<Field, Color32>) {
                    field = ThemeColor(store, entry.section, entry.key, field);
                } else if constexpr (std::is_same_v<Field, FontInfo>) {
                    field = ThemeFont(store, entry.section, entry.key, field);
                } else if constexpr (std::is_same_v<Field, std::string>) {
                    field = ThemeIcon(store, entry.section, entry.key, field);
                } else {
                    field = ThemeSize(store, entry.section, entry.key, field);
                }
            },
            entry.field);
    }
}

void AppendKeys(std::vector<std::pair<std::string, std::string>>& keys, const auto& entries) {
    for (const auto& entry : entries) {
        keys.emplace_back(entry.section, entry.key);
    }
}

}  // namespace

Color32 ThemeColor(SettingsStore& store, const std::string& section, const std::string& key,
                   Color32 fallback) {
    store.Select(section);
    const std::vector<std::int32_t> parts = store.GetInts(key);
    if (parts.size() != 3 && parts.size() != 4) {
        return fallback;
    }
    const std::uint8_t alpha = parts.size() == 4 ? ClampByte(parts[3]) : 255;
    return Color32(ClampByte(parts[0]), ClampByte(parts[1]), ClampByte(parts[2]), alpha);
}

FontInfo ThemeFont(SettingsStore& store, const std::string& section, const std::string& key,
                   const FontInfo& fallback) {
    store.Select(section);
    const std::vector<DualString> parts = store.GetStrings(key);
    if (parts.empty()) {
        return fallback;
    }
    FontInfo font{parts[0].Utf8(), fallback.height};
    if (parts.size() > 1) {
        const std::string& height = parts[1].Utf8();
        std::from_chars(height.data(), height.data() + height.size(), font.height);
    }
    for (std::size_t i = 2; i < parts.size(); ++i) {
        const std::string& flag = parts[i].Utf8();
        const std::size_t equals = flag.find('=');
        const std::string name = flag.substr(0, equals);
        const bool on = equals != std::string::npos && flag.substr(equals + 1) == "TRUE";
        if (name == "ITALIC") {
            font.italic = on;
        } else if (name == "BOLD") {
            font.bold = on;
        } else if (name == "UNDERLINE") {
            font.underline = on;
        }
    }
    return font;
}

void ReadTheme(SettingsStore& store, Theme& theme) {
    ReadEntries(store, kWorkspace, theme.workspace);
    ReadEntries(store, kPanels, theme.panels);
    ReadEntries(store, kTimeline, theme.timeline);
    ReadEntries(store, kUi, theme.ui);
    ReadEntries(store, kIcons, theme.icons);
}

std::vector<std::pair<std::string, std::string>> ThemeKeys() {
    std::vector<std::pair<std::string, std::string>> keys;
    AppendKeys(keys, kWorkspace);
    AppendKeys(keys, kPanels);
    AppendKeys(keys, kTimeline);
    AppendKeys(keys, kUi);
    AppendKeys(keys, kIcons);
    return keys;
}

}  // namespace aurel
