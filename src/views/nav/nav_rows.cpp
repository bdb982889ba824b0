#include "views/nav/nav_rows.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "commands/bg_commands.h"
#include "commands/pin_commands.h"
#include "commands/skin_commands.h"
#include "doc/pin_tree.h"
#include "gui/gui_props_rows.h"
#include "settings/lang.h"
#include "textures/texture_commands.h"
#include "views/nav/nav_ids.h"

namespace kovra {

namespace {

using kestrel2::win::kPropColor;
using kestrel2::win::kPropFloat;
using kestrel2::win::kPropFloatRange;
using kestrel2::win::kPropInt;
using kestrel2::win::kPropIntRange;
using kestrel2::win::kPropString;
using kestrel2::win::kPropTitle;

constexpr float kDegrees = 57.29578f;
constexpr unsigned kNameLength = 32;

NavRow Title(const std::string& name) {
    return NavRow{name, kPropTitle, "", {}, true};
}
NavRow Float(const std::string& name, float value) {
    return NavRow{name, kPropFloat, NumberText(value), {}, true};
}
NavRow Angle(const std::string& name, float radians) {
    return NavRow{name, kPropFloatRange, NumberText(radians * kDegrees),
                  std::pair<float, float>(-360.0f, 360.0f), true};
}
NavRow Fraction(const std::string& name) {
    return NavRow{name, kPropFloatRange, "", std::pair<float, float>(0.0f, 1.0f), false};
}

float ParseFloat(const std::string& text) {
    return std::strtof(text.c_str(), nullptr);
}

// The number of segments of the tail that ends at `pin`: the pins passed on the way to its anchor.
int TailSegments(const WirrelKey& key, int pin) {
    int count = 0;
    for (int at = pin; at >= 0 && count <= static_cast<int>(key.pins.size()); at = key.pins[at].parent) {
        ++count;
        if ((key.pins[at].flags & kTailSegment) == kTailAnchor) {
            break;
        }
    }
    return count;
}

std::string PinTitle(const WirrelPin& pin) {
    switch (pin.Type()) {
        case Root:
            return "BonePropsRoot";
        case Tail:
            return (pin.flags & kTailSegment) == kTailEnd ? "BonePropsTailEnd" : "BonePropsTailSeg";
        case Tracker:
            return "BonePropsTracker";
        case Orientation:
            return "BonePropsOrient";
        default:
            return "BonePropsBone";
    }
}

}  // namespace

std::string NumberText(float value) {
    char buffer[32];
    std::snprintf(buffer, sizeof(buffer), "%.3f", static_cast<double>(value));
    std::string text = buffer;
    while (!text.empty() && text.back() == '0') {
        text.pop_back();
    }
    if (!text.empty() && text.back() == '.') {
        text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

WirrelPin* PinAt(WirrelDoc& doc, int pin) {
    if (!doc.HasCurrentAnim() || doc.CurrentAnim().keys.empty()) {
        return nullptr;
    }
    auto& pins = doc.CurrentKey().pins;
    return pin >= 0 && pin < static_cast<int>(pins.size()) ? &pins[static_cast<std::size_t>(pin)] : nullptr;
}

WirrelSkin* SkinOf(WirrelDoc& doc, int pin) {
    WirrelPin* record = PinAt(doc, pin);
    auto& skins = doc.Wirrel().skins;
    if (!record || record->skin < 0 || record->skin >= static_cast<int>(skins.size())) {
        return nullptr;
    }
    return &skins[static_cast<std::size_t>(record->skin)];
}

std::vector<NavRow> PinRows(WirrelDoc& doc, int pin) {
    const WirrelPin* record = PinAt(doc, pin);
    if (!record) {
        return {};
    }
    const std::string name(NameOf(doc.Wirrel().pinNames.at(static_cast<std::size_t>(record->id))));
    const NavRow label{"Label", kPropString, name, kNameLength, true};
    std::vector<NavRow> rows{Title(aurel::Lang("NAV", PinTitle(*record)).Utf8())};
    const float x = record->length * std::cos(record->angle);
    const float y = record->length * std::sin(record->angle);
    switch (record->Type()) {
        case Root:
            rows.insert(rows.end(), {label, Float("X", x), Float("Y", y)});
            break;
        case Tracker:
            rows.insert(rows.end(), {label, Float("X Offset", x), Float("Y Offset", y)});
            break;
        case Orientation:
            rows.insert(rows.end(), {label, Angle("Angle", record->angle)});
            break;
        case Tail:
            if ((record->flags & kTailSegment) == kTailEnd) {
                const int segments = TailSegments(doc.CurrentKey(), pin);
                rows.insert(rows.end(),
                            {label, Angle("Angle", record->angle), Float("Length", record->length),
                             NavRow{"Segments", kPropIntRange, std::to_string(segments),
                                    std::pair<int, int>(2, 64), false}});
            } else {
                rows.insert(rows.end(), {Angle("Angle", record->angle), Float("Length", record->length),
                                         Fraction("Tightness"), Fraction("Reach")});
            }
            break;
        default:
            rows.insert(rows.end(), {label, Angle("Angle", record->angle), Float("Length", record->length)});
            break;
    }
    return rows;
}

std::vector<NavRow> SkinRows(const WirrelSkin& skin) {
    return {Angle("Rotation", skin.angle), Float("X Scale", skin.scaleX), Float("Y Scale", skin.scaleY),
            Float("X Offset", skin.offsetX), Float("Y Offset", skin.offsetY)};
}

std::vector<NavRow> TextureRows(const WirrelTexture& texture) {
    const std::pair<int, int> size(1, 16384);
    return {NavRow{"Left", kPropInt, std::to_string(texture.x), {}, true},
            NavRow{"Top", kPropInt, std::to_string(texture.y), {}, true},
            NavRow{"Width", kPropIntRange, std::to_string(texture.width), size, true},
            NavRow{"Height", kPropIntRange, std::to_string(texture.height), size, true}};
}

std::vector<NavRow> BackgroundRows(const WirrelDoc& doc, const EditorHub& hub) {
    const WorkGrid grid = hub.Grid();
    const WirrelBackground& bg = doc.background;
    const bool hasImage = !bg.bitmap.IsEmpty();
    auto colour = [](const std::string& name, aurel::Color32 c) {
        return NavRow{name, kPropColor, "", c, true};
    };
    std::vector<NavRow> rows{
        Title("Grid"),
        colour("Color 0", grid.color0),
        colour("Color 1", grid.color1),
        colour("Color Origin", grid.origin),
        NavRow{"Interval", kPropIntRange, std::to_string(grid.stepX), std::pair<int, int>(1, 100), true},
        Title("Background Color"),
        colour("Color", hub.BackgroundColor()),
        Title("Background Image"),
        Float("X Offset", bg.offsetX),
        Float("Y Offset", bg.offsetY),
        NavRow{"Scale", kPropFloatRange, NumberText(bg.scale), std::pair<float, float>(0.01f, 100.0f), true}};
    for (std::size_t i = rows.size() - 3; i < rows.size(); ++i) {
        rows[i].enabled = hasImage;
    }
    return rows;
}

std::vector<NavRow> CollisionRows(const WirrelDoc& doc, int pin) {
    const auto& anim = doc.Wirrel().anims;
    if (!doc.HasCurrentAnim() || anim[static_cast<std::size_t>(doc.cursor.animIndex)].keys.empty()) {
        return {};
    }
    const auto& pins = anim[static_cast<std::size_t>(doc.cursor.animIndex)].keys[doc.cursor.frameIndex].pins;
    if (pin < 0 || pin >= static_cast<int>(pins.size()) || pins[static_cast<std::size_t>(pin)].aabb < 0) {
        return {};
    }
    const WirrelAabb& box =
        doc.Wirrel().aabbs.at(static_cast<std::size_t>(pins[static_cast<std::size_t>(pin)].aabb));
    std::vector<NavRow> rows{Float("Left", box.left), Float("Top", box.top), Float("Right", box.right),
                             Float("Bottom", box.bottom)};
    for (NavRow& row : rows) {
        row.enabled = false;
    }
    return rows;
}

std::shared_ptr<ICommand> PinEdit(WirrelDoc& doc, int pin, const std::string& row, const std::string& text) {
    const WirrelPin* found = PinAt(doc, pin);
    if (!found || text.empty()) {
        return nullptr;
    }
    if (row == "Label") {
        return std::make_shared<CommandPinName>(doc, found->id, text);
    }
    WirrelPin record = *found;
    const float value = ParseFloat(text);
    std::string label;
    int kind = 0;
    if (row == "Angle") {
        record.angle = NormalizeAngle(value / kDegrees);
        label = "PinPropAngle";
        kind = kKindPinAngle;
    } else if (row == "Length") {
        record.length = value;
        label = "PinPropLen";
        kind = kKindPinLength;
    } else if (row == "X" || row == "Y" || row == "X Offset" || row == "Y Offset") {
        float x = record.length * std::cos(record.angle);
        float y = record.length * std::sin(record.angle);
        (row.front() == 'X' ? x : y) = value;
        record.angle = NormalizeAngle(std::atan2(y, x));
        record.length = std::hypot(x, y);
        label = "PinPropPos";
        kind = kKindPinPosition;
    } else {
        return nullptr;
    }
    return std::make_shared<CommandPinProperty>(doc, aurel::Lang("COMMANDS", label).Utf8(), kind, pin,
                                                record);
}

std::shared_ptr<ICommand> SkinEdit(WirrelDoc& doc, int pin, const std::string& row, const std::string& text) {
    const WirrelSkin* found = SkinOf(doc, pin);
    if (!found || text.empty()) {
        return nullptr;
    }
    WirrelSkin skin = *found;
    const float value = ParseFloat(text);
    std::string label = "SkinPropScale";
    int kind = 0;
    if (row == "Rotation") {
        skin.angle = NormalizeAngle(value / kDegrees);
        label = "SkinPropAngle";
        kind = kKindSkinAngle;
    } else if (row == "X Scale") {
        skin.scaleX = value;
        kind = kKindSkinScaleX;
    } else if (row == "Y Scale") {
        skin.scaleY = value;
        kind = kKindSkinScaleY;
    } else if (row == "X Offset" || row == "Y Offset") {
        (row == "X Offset" ? skin.offsetX : skin.offsetY) = value;
        label = "SkinPropOffset";
        kind = row == "X Offset" ? kKindSkinOffsetX : kKindSkinOffsetY;
    } else {
        return nullptr;
    }
    return std::make_shared<CommandSkinProperty>(doc, aurel::Lang("COMMANDS", label).Utf8(), kind, pin, skin);
}

std::shared_ptr<ICommand> TextureEdit(WirrelDoc& doc, SelectionTracker& textures, const std::string& row,
                                      const std::string& text) {
    const auto& list = doc.Wirrel().textures;
    const int current = textures.currentItem;
    if (current < 0 || current >= static_cast<int>(list.size()) || text.empty()) {
        return nullptr;
    }
    WirrelTexture record = list[static_cast<std::size_t>(current)];
    const int value = std::atoi(text.c_str());
    const char* names[] = {"Left", "Top", "Width", "Height"};
    std::int32_t* fields[] = {&record.x, &record.y, &record.width, &record.height};
    for (int i = 0; i < 4; ++i) {
        if (row == names[i]) {
            *fields[i] = value;
            return std::make_shared<CommandTexProperty>(doc, textures, kKindTexLeft + i,
                                                        aurel::Lang("COMMANDS", "TexPropRect"), record);
        }
    }
    return nullptr;
}

std::shared_ptr<ICommand> BackgroundEdit(WirrelDoc& doc, EditorHub& hub, const std::string& row,
                                         const std::string& text, aurel::Color32 colour) {
    WorkGrid grid = hub.Grid();
    if (row == "Color 0" || row == "Color 1" || row == "Color Origin") {
        (row == "Color 0" ? grid.color0 : row == "Color 1" ? grid.color1 : grid.origin) = colour;
        return std::make_shared<CommandBgGrid>(hub, grid);
    }
    if (row == "Interval" && !text.empty()) {
        grid.stepX = grid.stepY = std::atoi(text.c_str());
        return std::make_shared<CommandBgGrid>(hub, grid);
    }
    if (row == "Color") {
        return std::make_shared<CommandBgColor>(hub, colour);
    }
    if (text.empty()) {
        return nullptr;
    }
    BgPlacement placement = BgPlacement::Of(doc.background);
    const float value = ParseFloat(text);
    if (row == "X Offset" || row == "Y Offset") {
        (row == "X Offset" ? placement.offsetX : placement.offsetY) = value;
        return std::make_shared<CommandBgChange>(doc, aurel::Lang("COMMANDS", "BgOffset").Utf8(),
                                                 kKindBgOffset, placement);
    }
    if (row == "Scale") {
        placement.scale = value;
        return std::make_shared<CommandBgChange>(doc, aurel::Lang("COMMANDS", "BgScale").Utf8(), kKindBgScale,
                                                 placement);
    }
    return nullptr;
}

}  // namespace kovra
