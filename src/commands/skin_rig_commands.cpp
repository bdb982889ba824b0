// The skin commands that move pins as well as skins: the offset drag, which may pull a bone away from
// its skeleton, and the rigging of a joint.

#include "commands/pin_commands.h"
#include "commands/repeat.h"
#include "commands/skin_commands.h"
#include "commands/skin_geometry.h"
#include "doc/pin_tree.h"
#include "doc/skins.h"

namespace kovra {

using namespace skin;

namespace {

// The pin at the top of `index`'s tree, climbing past pins of type Root that hang from others.
int TopOf(const std::vector<WirrelPin>& pins, int index) {
    for (std::size_t steps = 0; steps < pins.size() && pins[index].parent >= 0; ++steps) {
        index = pins[index].parent;
    }
    return index;
}

}  // namespace

CommandSkinOffset::CommandSkinOffset(float dx, float dy, const SelectionTracker& selection, WirrelDoc& doc,
                                     const std::vector<SkinGrip>& grips, const ViewTransform& view,
                                     bool separate)
    : WirrelCommand("Offset Skin"),
      doc_(doc),
      selected_(selection.selected),
      separate_(separate),
      before_(SkinTables::Of(doc.Wirrel())),
      anim_(doc.cursor.animIndex),
      frame_(doc.cursor.frameIndex) {
    const Vec2 unit = UnitsPerPixel(view);
    const auto width = static_cast<float>(view.clientWidth);
    const auto height = static_cast<float>(view.clientHeight);
    std::vector<Entry> entries;
    for (int p : selected_) {
        const SkinGrip* g = GripsOf(grips, p);
        if (g == nullptr || static_cast<std::size_t>(p) >= doc.CurrentKey().pins.size()) {
            continue;
        }
        const WirrelSkin* skin = TexturedSkin(doc.Wirrel(), doc.CurrentKey().pins[p]);
        int q = doc.CurrentKey().pins[p].parent;
        const auto parent = [&]() -> WirrelPin& { return doc.CurrentKey().pins[q]; };
        const bool freeRoot = q >= 0 && parent().parent == -1 && parent().Type() == Root;
        const bool rootBone = freeRoot && doc.CurrentKey().pins[p].Type() == Bone;
        if (skin == nullptr && !rootBone && !separate) {
            continue;
        }
        bool separated = false;
        if (separate && q >= 0 && !rootBone) {
            // The bone leaves its skeleton at the parent's grip.
            const Vec2 w{
                (g[kGripParent].x - width * 0.5f) * (view.viewWidth / width) * (1.0f / view.zoom) +
                    view.cameraX,
                (g[kGripParent].y - height * 0.5f) * (view.viewHeight / height) * (1.0f / view.zoom) +
                    view.cameraY};
            if (parent().length == 0.0f) {
                parent().parent = -1;
                SetPolar(parent(), w);
            } else if (!freeRoot) {
                const float angle = NormalizeAngle(std::atan2(w.y, w.x));
                const int made = doc.AddPin(angle, Length(w.x, w.y), -1, NewPinName(doc));
                doc.CurrentKey().pins[p].parent = made;
                q = made;
            }
            parent().flags |= kSkinSeparated;
            label = aurel::DualString("Separate Bones/Offset Skin");
            separated = true;
        }
        const bool boneRoad = (rootBone && !separate) || separated ||
                              (rootBone && separate && (parent().flags & kSkinSeparated) != 0);
        if (boneRoad) {
            const WirrelPin& from = parent();
            entries.push_back({p,
                               {dx * unit.x + from.length * std::cos(from.angle),
                                dy * unit.y + from.length * std::sin(from.angle)},
                               true});
        } else if (skin != nullptr) {
            const Vec2 u = Unit(Minus(At(g[kGripPin]), At(g[kGripParent])));
            entries.push_back({p,
                               {(dx * u.x + dy * u.y) * unit.x + skin->offsetX,
                                (dy * u.x - dx * u.y) * unit.y + skin->offsetY},
                               false});
        }
    }
    Apply(entries);
}

void CommandSkinOffset::Apply(const std::vector<Entry>& entries) {
    Wirrel& wirrel = doc_.Wirrel();
    WirrelKey& key = doc_.CurrentKey();
    int applied = 0;
    for (const Entry& entry : entries) {
        WirrelPin& pin = key.pins[entry.pin];
        const bool parentFree = pin.parent >= 0 && (key.pins[pin.parent].flags & kSkinSeparated) != 0;
        if (!entry.movesParent || (separate_ && !parentFree)) {
            const WirrelSkin* skin = TexturedSkin(wirrel, pin);
            if (skin == nullptr) {
                continue;
            }
            WirrelSkin record = *skin;
            record.offsetX = entry.value.x;
            record.offsetY = entry.value.y;
            SetPinSkin(wirrel, key, entry.pin, record);
        } else {
            SetPolar(key.pins[pin.parent], entry.value);
        }
        ++applied;
    }
    if (applied == 0) {
        valid = false;
        return;
    }
    after_ = SkinTables::Of(wirrel);
    doc_.onChanged.Call();
}

void CommandSkinOffset::Redo() {
    after_.Restore(doc_.Wirrel());
    doc_.onChanged.Call();
}

void CommandSkinOffset::Undo() {
    before_.Restore(doc_.Wirrel());
    doc_.onChanged.Call();
}

bool CommandSkinOffset::Merge(ICommand& next) {
    if (next.GetType() != GetType()) {
        return false;
    }
    const auto& other = static_cast<CommandSkinOffset&>(next);
    after_ = other.after_;
    // Once a drag separates, it stays a separation.
    if (other.separate_ && !separate_) {
        separate_ = true;
        label = other.label;
    }
    return true;
}

void CommandSkinOffset::OnFreeze() {
    // The frame of the drag, in the document and in what a redo restores.
    const auto clear = [this](std::vector<WirrelAnim>& anims) {
        if (anim_ < 0 || static_cast<std::size_t>(anim_) >= anims.size() ||
            frame_ >= anims[anim_].keys.size()) {
            return;
        }
        std::vector<WirrelPin>& pins = anims[anim_].keys[frame_].pins;
        for (int p : selected_) {
            if (static_cast<std::size_t>(p) < pins.size() && pins[p].parent >= 0 &&
                TexturedSkin(doc_.Wirrel(), pins[p]) != nullptr) {
                pins[pins[p].parent].flags &= ~kSkinSeparated;
            }
        }
    };
    clear(doc_.Wirrel().anims);
    clear(after_.anims);
    doc_.onChanged.Call();
}

CommandSkinPin::CommandSkinPin(const SkinDrag& drag, SelectionTracker& selection, WirrelDoc& doc,
                               const ViewTransform& view, float pinRadius, bool insert)
    : WirrelCommand("Rig Skin"),
      doc_(doc),
      selection_(selection),
      before_(SkinTables::Of(doc.Wirrel())),
      after_(before_),
      selectionBefore_(selection),
      selectionAfter_(selection) {
    const Vec2 unit = UnitsPerPixel(view);
    int h = selection.hotItem;
    const auto pins = [&doc]() -> std::vector<WirrelPin>& { return doc.CurrentKey().pins; };
    if (h >= 0 && static_cast<std::size_t>(h) < pins().size() && selection.hotPart == kGripParent) {
        h = pins()[h].parent;
    }
    if (h < 0 || static_cast<std::size_t>(h) >= pins().size()) {
        return;
    }
    const auto pixelOf = [&view](int pin) {
        return pin >= 0 && static_cast<std::size_t>(pin) < view.pinPixels.size() ? view.pinPixels[pin]
                                                                                 : PinPixel{};
    };
    int par = pins()[h].parent;
    if (insert && par >= 0) {
        // The joint splits: a new free pin where it stands takes its children and is dragged instead.
        const Vec2 at{unit.x * pixelOf(h).x, unit.y * pixelOf(h).y};
        const int made =
            doc.AddPin(NormalizeAngle(std::atan2(at.y, at.x)), Length(at.x, at.y), -1, NewPinName(doc));
        for (WirrelPin& pin : pins()) {
            pin.parent = pin.parent == h ? made : pin.parent;
        }
        if (h == selection.hotItem) {
            selection.Remove(h);
            selection.Add(made, false);
            selection.SetHot(made, kGripPin);
        }
        h = made;
        par = -1;
    }
    pin_ = h;
    posed_ = pins();

    // Only pins of another skeleton attract the joint. A root that an earlier joining left hanging inside
    // a tree doesn't make its pins another skeleton: rehanging the joint there would close a loop.
    Vec2 mouse = drag.mouse;
    const Vec2 grabbed = Dragged(drag);
    const float reach = 2.0f * pinRadius;
    const int root = RootOf(doc.CurrentKey(), h);
    const int top = TopOf(pins(), h);
    for (std::size_t i = 0; i < view.pinPixels.size() && i < pins().size(); ++i) {
        const PinPixel& p = view.pinPixels[i];
        const float dx = p.x - grabbed.x;
        const float dy = p.y - grabbed.y;
        const int other = static_cast<int>(i);
        if (other != h && dx * dx + dy * dy <= reach * reach && RootOf(doc.CurrentKey(), other) != root &&
            TopOf(pins(), other) != top) {
            mouse = {std::trunc(p.x - drag.anchor.x + drag.press.x + 0.375f),
                     std::trunc(p.y - drag.anchor.y + drag.press.y + 0.375f)};
            snapped_ = true;
            target_ = other;
            break;
        }
    }

    const PinPixel from = pixelOf(par);
    const Vec2 d{(drag.anchor.x + mouse.x - drag.press.x - from.x) * unit.x,
                 (drag.anchor.y + mouse.y - drag.press.y - from.y) * unit.y};
    PoseForward(pins(), h, h, std::atan2(d.y, d.x) - posed_[h].angle, posed_[h].length, Length(d.x, d.y), {h},
                doc.viewFlags[kViewRotateChildren], true);

    // The skins on both sides of the joint keep their place: each turns back by its bone's turn, and
    // its offset follows the bone's end that moved.
    Wirrel& wirrel = doc.Wirrel();
    for (std::size_t i = 0; i < pins().size(); ++i) {
        const WirrelPin& pin = pins()[i];
        const WirrelSkin* skin = TexturedSkin(wirrel, pin);
        if ((static_cast<int>(i) != h && pin.parent != h) || skin == nullptr) {
            continue;
        }
        const float turn = pin.angle - posed_[i].angle;
        const float sign = static_cast<int>(i) == h ? -1.0f : 1.0f;
        const float along = skin->offsetX - posed_[i].length * sign * 0.5f;
        const float cosine = std::cos(turn);
        const float sine = std::sin(turn);
        WirrelSkin record = *skin;
        record.offsetX = pin.length * sign * 0.5f + (along * cosine + skin->offsetY * sine);
        record.offsetY = -along * sine + skin->offsetY * cosine;
        record.angle = skin->angle - turn;
        SetPinSkin(wirrel, doc.CurrentKey(), static_cast<int>(i), record);
    }
    after_ = SkinTables::Of(wirrel);
    selectionAfter_ = SelectionSnapshot(selection);
    doc.onChanged.Call();
}

void CommandSkinPin::Redo() {
    after_.Restore(doc_.Wirrel());
    selectionAfter_.Restore(selection_);
    doc_.onChanged.Call();
}

void CommandSkinPin::Undo() {
    before_.Restore(doc_.Wirrel());
    selectionBefore_.Restore(selection_);
    doc_.onChanged.Call();
}

bool CommandSkinPin::Merge(ICommand& next) {
    if (next.GetType() != GetType()) {
        return false;
    }
    const auto& other = static_cast<CommandSkinPin&>(next);
    after_ = other.after_;
    selectionAfter_ = other.selectionAfter_;
    snapped_ = other.snapped_;
    target_ = other.target_;
    return true;
}

unsigned CommandSkinPin::RepeatModes() const {
    return kRepeatAll;
}

void CommandSkinPin::OnFreeze() {
    if (!snapped_) {
        return;
    }
    Rehang();
    after_ = SkinTables::Of(doc_.Wirrel());
    selectionAfter_ = SelectionSnapshot(selection_);
    doc_.onChanged.Call();
}

void CommandSkinPin::Rehang() {
    std::vector<WirrelPin>& pins = doc_.CurrentKey().pins;
    const int h = pin_;
    if (h < 0 || static_cast<std::size_t>(h) >= pins.size() || target_ < 0 ||
        static_cast<std::size_t>(target_) >= pins.size()) {
        return;
    }
    aurel::SilentPrompt silent;
    Reparent(doc_.CurrentKey(), h, -1, silent);
    // What hung from the joint hangs from the target, where it stands.
    std::vector<WorldPoint> world;
    WorldPositions(pins, world);
    for (std::size_t i = 0; i < pins.size(); ++i) {
        if (pins[i].parent == h) {
            pins[i].parent = target_;
            SetPolar(pins[i], {world[i].x - world[target_].x, world[i].y - world[target_].y});
        }
    }
    pins[h] = posed_[h];
    const std::size_t count = pins.size();
    DeletePin(doc_, h);
    if (doc_.CurrentKey().pins.size() == count) {
        return;
    }
    // The joint's record left the frame: the pins after it moved down by one.
    const auto lowered = [h](int item) { return item == h ? -1 : item > h ? item - 1 : item; };
    SelectionSnapshot moved(selection_);
    moved.hotItem = lowered(moved.hotItem);
    moved.saved.currentItem = lowered(moved.saved.currentItem);
    std::set<int> selected;
    for (int item : moved.saved.selected) {
        if (item != h) {
            selected.insert(lowered(item));
        }
    }
    moved.saved.selected = std::move(selected);
    moved.Restore(selection_);
}

}  // namespace kovra
