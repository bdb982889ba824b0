#include "views/workspace/workspace_layers.h"

#include <array>
#include <cmath>
#include <cstring>
#include <sstream>

#include "views/workspace/tail_ribbon.h"
#include "views/workspace/workspace_frame.h"

namespace kovra {
namespace {

// Overlays are translucent; the rectangles use the same colours opaque.
constexpr std::array<std::uint32_t, 8> kCollisionColours{0x60FF4040, 0x604080FF, 0x6040FF40, 0x60FFFF40,
                                                         0x60FF40FF, 0x6040FFFF, 0x60FF8040, 0x60FFFFFF};

bool SkinsShown(const FrameInput& in) {
    return in.doc.viewFlags[kViewSkins] || in.state.editMode == kModeBuild;
}

bool ValidKind(int kind) {
    return kind >= 0 && kind < static_cast<int>(kCollisionColours.size());
}

// The pin drawn larger: the hot one, or while dragging the current one.
bool IsHotPin(const WorkspaceState& state, int pin) {
    const SelectionTracker& sel = state.pinSelection;
    return state.dragging ? sel.currentItem == pin : sel.hotItem == pin;
}

bool IsTailTip(const WirrelPin& pin) {
    return pin.Type() == Tail && (pin.flags & kTailSegment) == kTailEnd;
}

void AddSkin(const FrameInput& in, int pin, bool dim, int pickPass, std::vector<SkinPiece>& out) {
    const WorkspaceState& state = in.state;
    const SelectionTracker& sel = state.pinSelection;
    WirrelSkin skin = state.skins[pin];
    const bool preview = state.editMode == kModeBuild && state.shiftDown && state.hasPaletteSkin &&
                         sel.hotItem == pin && sel.hotPart != 1 && sel.hotPart != 2;
    if (preview) {
        skin.texture = state.paletteSkin.texture;
    }
    std::array<float, 4> rect{};
    const aurel::ImageSurface* image = SkinImage(in.doc, skin, rect);
    SkinPiece piece;
    if (image == nullptr || !SkinCorners(in.doc, state, pin, skin, piece.corners)) {
        return;
    }
    piece.image = image;
    piece.source = RectSource(rect[0], rect[1], rect[2], rect[3]);
    piece.draw = SkinsShown(in);
    piece.opacity = dim ? 0.4f : 1.0f;
    piece.fillCollision = in.doc.viewFlags[kViewCollision] && ValidKind(skin.collision);
    piece.collision = piece.fillCollision ? CollisionColour(skin.collision) : aurel::Color32();
    piece.pickPass = pickPass;
    piece.pickValue = static_cast<std::uint32_t>(pin);
    out.push_back(piece);
    if (preview && pickPass != kPickNone) {
        // The pin's own skin stays pickable under the preview of a drop.
        SkinPiece real;
        const aurel::ImageSurface* realImage = SkinImage(in.doc, state.skins[pin], rect);
        if (realImage != nullptr && SkinCorners(in.doc, state, pin, state.skins[pin], real.corners)) {
            real.image = realImage;
            real.source = RectSource(rect[0], rect[1], rect[2], rect[3]);
            real.draw = false;
            real.pickPass = pickPass;
            real.pickValue = piece.pickValue;
            out.push_back(real);
        }
    }
}

void AddTail(const FrameInput& in, int tip, bool dim, int pickPass, std::vector<SkinPiece>& out) {
    const WorkspaceState& state = in.state;
    const WirrelSkin& skin = state.skins[tip];
    std::array<float, 4> rect{};
    const aurel::ImageSurface* image = SkinImage(in.doc, skin, rect);
    if (image == nullptr) {
        return;
    }
    TailRibbon tail;
    tail.control = {PinScreen(state, tip), PinScreen(state, tip)};
    tail.owners = {tip};
    int pin = state.pose[tip].parent;
    const int poseSize = static_cast<int>(state.pose.size());
    while (pin >= 0 && pin < poseSize && (state.pose[pin].flags & kTailSegment) == kTailSegment &&
           static_cast<int>(tail.control.size()) < kTailMaxControl - 2) {
        tail.control.push_back(PinScreen(state, pin));
        tail.owners.push_back(pin);
        pin = state.pose[pin].parent;
    }
    if (pin >= 0 && pin < poseSize) {
        tail.control.push_back(PinScreen(state, pin));
        tail.control.push_back(PinScreen(state, pin));
        tail.owners.push_back(pin);
    }
    const ScreenMapping map = ScreenMapping::Of(state.view);
    tail.width = rect[3] / static_cast<float>(in.doc.Wirrel().pixelsPerUnit) * skin.scaleY *
                 state.pose[tip].scale * map.ppuY;
    tail.textureX = rect[0];
    tail.textureY = rect[1];
    tail.textureWidth = rect[2];
    tail.textureHeight = rect[3];
    SkinPiece style;
    style.image = image;
    style.draw = SkinsShown(in);
    style.opacity = dim ? 0.4f : 1.0f;
    style.pickPass = pickPass;
    AppendTailRibbon(tail, style, out);
}

std::string Number(float value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

std::string ReadOut(const WirrelPin& pin) {
    if (pin.parent < 0) {
        return "Pos: " + Number(pin.length * std::cos(pin.angle)) + ", " +
               Number(pin.length * std::sin(pin.angle));
    }
    float degrees = pin.angle * 0.31830987f * 180.0f;
    while (degrees < 0.0f) {
        degrees += 360.0f;
    }
    while (degrees >= 360.0f) {
        degrees -= 360.0f;
    }
    return "Angle: " + Number(degrees) + "\nLength: " + Number(pin.length);
}

std::string EventText(const Wirrel& w, const WirrelKey& key) {
    std::string text;
    for (int i = 0; i < key.eventCount; ++i) {
        const int index = key.eventFirst + i;
        if (index < 0 || index >= static_cast<int>(w.events.size())) {
            break;
        }
        const WirrelEvent& event = w.events[index];
        if (event.name < w.eventNames.size()) {
            text += NameOf(w.eventNames[event.name]);
        }
        for (int v = 0; v < 6; ++v) {
            if (event.VarType(v) == 2) {
                float value;
                std::memcpy(&value, &event.vars[v], sizeof value);
                text += "   " + Number(value);
            } else if (event.VarType(v) == 1) {
                text += "   " + std::to_string(static_cast<std::int32_t>(event.vars[v]));
            }
        }
        text += "\n";
    }
    return text;
}

}  // namespace

aurel::Color32 CollisionColour(int kind) {
    return ValidKind(kind) ? aurel::Color32(kCollisionColours[kind]) : aurel::Color32();
}

BackgroundLayer BackgroundOf(const FrameInput& in) {
    const WirrelBackground& bg = in.doc.background;
    BackgroundLayer layer{.fill = in.colours.background};
    if (!in.doc.viewFlags[kViewBackground] || bg.bitmap.IsEmpty()) {
        return layer;
    }
    const ScreenMapping map = ScreenMapping::Of(in.state.view);
    const float zoom = in.state.view.zoom;
    layer.image = &bg.bitmap;
    layer.halfWidth = static_cast<float>(bg.bitmap.Width()) * 0.5f * bg.scale * zoom;
    layer.halfHeight = static_cast<float>(bg.bitmap.Height()) * 0.5f * bg.scale * zoom;
    layer.centreX = bg.scale * bg.offsetX * zoom + map.originX;
    layer.centreY = bg.scale * bg.offsetY * zoom + map.originY;
    layer.opacity = static_cast<float>(bg.alpha) / 255.0f;
    return layer;
}

GridLayer GridOf(const FrameInput& in) {
    const ViewTransform& view = in.state.view;
    return GridLayer{.map = ScreenMapping::Of(view),
                     .left = WorldX(view, 0.0f),
                     .top = WorldY(view, 0.0f),
                     .right = WorldX(view, static_cast<float>(view.clientWidth)),
                     .bottom = WorldY(view, static_cast<float>(view.clientHeight)),
                     .interval = in.colours.interval,
                     .colour0 = in.colours.grid0,
                     .colour1 = in.colours.grid1,
                     .originColour = in.colours.gridOrigin};
}

SkinLayer SkinsOf(const FrameInput& in) {
    SkinLayer layer;
    const WorkspaceState& state = in.state;
    if (!SkinsShown(in) && !in.doc.viewFlags[kViewCollision]) {
        return layer;
    }
    const SelectionTracker& sel = state.pinSelection;
    const bool picking = !state.playing && SkinsShown(in);
    for (int pin = 0; pin < static_cast<int>(state.pose.size()); ++pin) {
        const WirrelPin& record = state.pose[pin];
        if ((record.flags & kPinHidden) != 0) {
            continue;
        }
        const bool selected = sel.IsSelected(pin);
        const bool dim = !state.playing && !state.previewActive && !sel.selected.empty() && !selected &&
                         sel.hotItem != pin;
        const int pass = !picking ? kPickNone : selected ? kPickSecond : kPickFirst;
        if (record.Type() == Bone || record.Type() == Attachment) {
            AddSkin(in, pin, dim, pass, layer.pieces);
        } else if (IsTailTip(record)) {
            AddTail(in, pin, dim, pass, layer.pieces);
        }
    }
    return layer;
}

bool GripMovesNow(int part, int hotPart, bool ctrl, bool alt) {
    const auto in = [](int p, int a, int b) { return p >= a && p <= b; };
    return part == hotPart || (alt && in(part, 7, 8) && in(hotPart, 7, 8)) ||
           (alt && in(part, 5, 6) && in(hotPart, 5, 6)) || (ctrl && in(part, 5, 8) && in(hotPart, 5, 8));
}

GripLayer GripsOf(const FrameInput& in) {
    GripLayer layer;
    const WorkspaceState& state = in.state;
    if (state.editMode != kModeBuild) {
        return layer;
    }
    const SelectionTracker& sel = state.pinSelection;
    const bool hot = state.gripHot || state.dragging;
    for (int pin : state.gripPins) {
        QuadOutline outline;
        if (!SkinCorners(in.doc, state, pin, state.skins[pin], outline.corners)) {
            continue;
        }
        const bool current = pin == sel.currentItem;
        outline.tileGuide = state.skinTool == kToolTile && current;
        outline.colour = hot ? in.theme.skinOutlineColorHot : in.theme.skinOutlineColor;
        if (!state.previewActive || outline.tileGuide) {
            layer.outlines.push_back(outline);
        }
        if (state.skinTool == kToolRectangle || !current) {
            continue;
        }
        const SkinGrip* grips = &state.skinHandles[static_cast<std::size_t>(pin) * kGripsPerPin];
        const int hotPart = sel.hotItem == pin ? sel.hotPart : -1;
        for (int part = 1; part < kGripsPerPin; ++part) {
            const bool pinGrip = part == 1 || part == 2;
            if (part == 3 || part == 4 || (pinGrip && IsPinHidden(in.doc, state, pin)) ||
                (state.previewActive && !pinGrip)) {
                continue;
            }
            const bool moves = hotPart >= 0 && GripMovesNow(part, hotPart, state.ctrlDown, state.altDown);
            layer.grips.push_back(GripDot{grips[part].x, grips[part].y,
                                          grips[part].radius + (part == hotPart ? 1.0f : 0.0f),
                                          moves ? in.theme.skinGripColorHot : in.theme.skinGripColor});
        }
    }
    return layer;
}

PinLayer PinsOf(const FrameInput& in) {
    const WorkspaceState& state = in.state;
    const WorkspaceTheme& theme = in.theme;
    const SelectionTracker& sel = state.pinSelection;
    PinLayer layer{.pins = {},
                   .outline = theme.pinColorOutline,
                   .lockColour = theme.pinColorLock,
                   .rootColour = theme.pinColorRoot,
                   .rootRadius = theme.pinRadLg};
    const bool animate = state.editMode == kModeAnimate;
    const bool build = state.editMode == kModeBuild;
    for (int pin = 0; pin < static_cast<int>(state.pose.size()); ++pin) {
        if (IsPinDotHidden(in.doc, state, pin)) {
            continue;
        }
        const WirrelPin& record = state.pose[pin];
        bool givesWay = false;
        if (build) {
            for (int c = 0; c < static_cast<int>(state.pose.size()); ++c) {
                givesWay = givesWay ||
                           (state.pose[c].parent == pin && sel.IsSelected(c) && state.skins[c].texture >= 0);
            }
        }
        const bool selected = !build && sel.IsSelected(pin);
        const bool locked = animate && (record.flags & kPinIkLock) != 0;
        const PinPoint at = PinScreen(state, pin);
        PinDot dot;
        dot.x = at.x;
        dot.y = at.y;
        dot.dot = !givesWay;
        dot.colour = selected                                        ? theme.pinColorSel
                     : locked                                        ? theme.pinColorLock
                     : (record.flags & kTailSegment) == kTailSegment ? theme.pinColorTail
                                                                     : theme.pinColorUnsel;
        dot.radius = theme.pinRadSm + (IsHotPin(state, pin) ? 1.0f : 0.0f);
        dot.locked = locked;
        dot.root = record.parent < 0;
        layer.pins.push_back(dot);
    }
    return layer;
}

BoneLayer BonesOf(const FrameInput& in) {
    const WorkspaceState& state = in.state;
    const WorkspaceTheme& theme = in.theme;
    BoneLayer layer{.bones = {}, .width = theme.boneWidth, .rubberBand = std::nullopt};
    const int count = static_cast<int>(state.pose.size());
    for (int pin = 0; pin < count; ++pin) {
        const WirrelPin& record = state.pose[pin];
        if (record.parent < 0 || record.parent >= count || record.Type() == Root ||
            IsPinHidden(in.doc, state, pin)) {
            continue;
        }
        const PinPoint p = PinScreen(state, record.parent);
        const PinPoint q = PinScreen(state, pin);
        BoneLine bone;
        bone.parentX = p.x;
        bone.parentY = p.y;
        bone.x = q.x;
        bone.y = q.y;
        switch (record.Type()) {
            case Bone:
            case Tail: {
                const bool hot = IsHotPin(state, pin);
                const bool selected = state.pinSelection.IsSelected(pin);
                bone.shape = BoneShape::Wedge;
                bone.fill = hot && selected ? theme.boneColorSelHot
                            : hot           ? theme.boneColorHot
                            : selected      ? theme.boneColorSel
                                            : theme.boneColor;
                bone.outline = hot ? theme.boneColorOutlineHot : theme.boneColorOutline;
                break;
            }
            case Attachment:
                bone.shape = BoneShape::Triple;
                bone.fill = theme.boneColorAttach;
                break;
            case Tracker:
                bone.shape = BoneShape::Triple;
                bone.fill = theme.boneColorTracker;
                break;
            default:
                bone.fill = theme.boneColorOrient;
                break;
        }
        layer.bones.push_back(bone);
    }
    const SelectionTracker& sel = state.pinSelection;
    if (state.linking && sel.currentItem >= 0 && sel.currentItem < count) {
        int from = sel.currentItem;
        if (sel.currentPart == 2 && state.pose[from].parent >= 0) {
            from = state.pose[from].parent;
        }
        const PinPoint p = PinScreen(state, from);
        layer.rubberBand =
            RubberBand{p.x, p.y, static_cast<float>(state.mouseX), static_cast<float>(state.mouseY)};
    }
    return layer;
}

std::vector<OutlineRect> CollisionRectsOf(const FrameInput& in) {
    std::vector<OutlineRect> rects;
    const Wirrel& w = in.doc.Wirrel();
    if (!in.doc.viewFlags[kViewCollision]) {
        return rects;
    }
    const ScreenMapping map = ScreenMapping::Of(in.state.view);
    const int tableSize = static_cast<int>(w.aabbs.size());
    for (int pin = 0; pin < static_cast<int>(in.state.pose.size()); ++pin) {
        if (IsPinHidden(in.doc, in.state, pin)) {
            continue;
        }
        // Bounded, so that a damaged chain that loops can't hold the frame.
        int box = in.state.pose[pin].aabb;
        for (int steps = 0; box >= 0 && box < tableSize && steps < tableSize; ++steps) {
            const WirrelAabb& a = w.aabbs[box];
            rects.push_back(OutlineRect{static_cast<int>(std::floor(map.PixelX(a.left))),
                                        static_cast<int>(std::floor(map.PixelY(a.top))),
                                        static_cast<int>(std::floor(map.PixelX(a.right))),
                                        static_cast<int>(std::floor(map.PixelY(a.bottom))),
                                        CollisionColour(a.kind).argb | 0xFF000000u});
            box = a.next;
        }
    }
    return rects;
}

std::vector<TextItem> TextsOf(const FrameInput& in) {
    std::vector<TextItem> texts;
    const WorkspaceState& state = in.state;
    const WorkspaceTheme& theme = in.theme;
    const SelectionTracker& sel = state.pinSelection;
    const Wirrel& w = in.doc.Wirrel();
    const aurel::TextStyle pinStyle{.horizontal = aurel::TextAlign::Centre,
                                    .vertical = aurel::TextAlign::Far,
                                    .outline = true,
                                    .outlineColor = in.colours.background,
                                    .outlineWidth = 1};
    // The boxes' sizes are layout pixels, like the fonts in them.
    const auto px = [&theme](int size) {
        return static_cast<int>(static_cast<float>(size) * theme.pixelRatio);
    };
    const auto pinText = [&](std::string text, PinPoint at, float dy, int height) {
        texts.push_back(TextItem{std::move(text), static_cast<int>(at.x) - px(50),
                                 static_cast<int>(at.y + dy), px(100), px(height), theme.pinTextColor,
                                 theme.pinTextFont, pinStyle});
    };
    const float radius = theme.pinRadSm;
    for (int pin = 0; pin < static_cast<int>(state.pose.size()); ++pin) {
        const bool labelled =
            in.doc.viewFlags[kViewLabels] || (state.editMode != kModeBackground && IsHotPin(state, pin));
        const int id = state.pose[pin].id;
        if (labelled && id >= 0 && id < static_cast<int>(w.pinNames.size())) {
            pinText(std::string(NameOf(w.pinNames[id])), PinScreen(state, pin),
                    -radius - static_cast<float>(px(20)), 20);
        }
        const bool readOut = (state.dragging && sel.IsSelected(pin)) || sel.hotItem == pin;
        if (state.editMode == kModeAnimate && readOut) {
            const WirrelPin& record = state.pose[pin];
            pinText(ReadOut(record), PinScreen(state, pin), radius, record.parent < 0 ? 28 : 40);
        }
    }
    aurel::TextStyle infoStyle = pinStyle;
    infoStyle.horizontal = aurel::TextAlign::Near;
    const ViewTransform& view = state.view;
    texts.push_back(TextItem{Number(WorldX(view, static_cast<float>(state.mouseX))) + ", " +
                                 Number(WorldY(view, static_cast<float>(state.mouseY))),
                             px(15), view.clientHeight - px(25), px(200), px(20), theme.infoTextColor,
                             theme.infoTextFont, infoStyle});
    const PlayCursor& cursor = in.doc.cursor;
    if (in.doc.HasCurrentAnim() && cursor.frameIndex < w.anims[cursor.animIndex].keys.size()) {
        const std::string events = EventText(w, w.anims[cursor.animIndex].keys[cursor.frameIndex]);
        if (!events.empty()) {
            aurel::TextStyle eventStyle{
                .outline = true, .outlineColor = (in.colours.background.argb & 0x00FFFFFFu) | 0x80000000u};
            texts.push_back(TextItem{events, px(16), px(16), view.clientWidth - px(32),
                                     view.clientHeight - px(32), theme.eventTextColor, theme.eventTextFont,
                                     eventStyle});
        }
    }
    return texts;
}

}  // namespace kovra
