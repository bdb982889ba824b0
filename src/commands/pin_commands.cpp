#include "commands/pin_commands.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "anim/ik_solver.h"
#include "commands/repeat.h"
#include "doc/pin_tree.h"
#include "doc/skins.h"

namespace kovra {
namespace {

// The posing option "Rotate Children" among the document's view flags.
constexpr std::size_t kRotateChildrenFlag = 1;

int Exchanged(int value, int a, int b) {
    return value == a ? b : value == b ? a : value;
}

const char* FkLabel(int mode) {
    return mode == kDragRotate ? "Rotate Pins" : mode == kDragLength ? "Adjust Length" : "Move Pins";
}

void SelectNewPin(SelectionTracker& selection, int index) {
    selection.Clear();
    selection.Add(index, true);
    selection.SetHot(index, 0);
}

// Takes the last pin off every frame of the current animation and off the names: the pin that AddPin
// made last.
void RemoveLastPin(WirrelDoc& doc) {
    for (WirrelKey& key : doc.CurrentAnim().keys) {
        key.pins.pop_back();
    }
    doc.Wirrel().pinNames.pop_back();
}

// Whether a frame of the animation still uses pin `id`: shows it, or hangs pins from it.
bool UsesPin(const WirrelAnim& anim, int id) {
    for (const WirrelKey& key : anim.keys) {
        const int at = FindPin(id, id, key);
        if (at >= 0 && (!IsHidden(key, at) || HasChildren(key, at))) {
            return true;
        }
    }
    return false;
}

}  // namespace

void FillPinPixels(ViewTransform& view, const std::vector<WirrelPin>& pose) {
    std::vector<WorldPoint> world;
    WorldPositions(pose, world);
    const float scaleX = static_cast<float>(view.clientWidth) / view.viewWidth * view.zoom;
    const float scaleY = static_cast<float>(view.clientHeight) / view.viewHeight * view.zoom;
    view.pinPixels.resize(world.size());
    for (std::size_t i = 0; i < world.size(); ++i) {
        view.pinPixels[i] = PinPixel{world[i].x * scaleX + 0.375f, world[i].y * scaleY + 0.375f, world[i].id};
    }
}

PoseDragCommand::PoseDragCommand(std::string_view label, WirrelDoc& doc)
    : WirrelCommand(label), doc_(doc), before_(doc.CurrentKey().pins) {}

void PoseDragCommand::Redo() {
    doc_.CurrentKey().pins = after_;
    doc_.onChanged.Call();
}

void PoseDragCommand::Undo() {
    doc_.CurrentKey().pins = before_;
    doc_.onChanged.Call();
}

bool PoseDragCommand::Merge(ICommand& next) {
    if (next.GetType() != GetType()) {
        return false;
    }
    // Equal kinds are the same class.
    after_ = static_cast<PoseDragCommand&>(next).after_;
    return true;
}

CommandPinFk::CommandPinFk(Vec2 grabbed, Vec2 pressed, Vec2 mouse, WirrelDoc& doc,
                           const SelectionTracker& selection, int mode, const ViewTransform& view)
    : PoseDragCommand(FkLabel(mode), doc),
      hot_(selection.hotItem),
      mode_(mode),
      selected_(selection.selected) {
    Pose& pose = doc.CurrentKey().pins;
    DragForward(pose, hot_, ForwardDrag{grabbed, pressed, mouse, mode}, view, selected_,
                doc.viewFlags[kRotateChildrenFlag]);
    // A pin that the user posed is a real key from now on.
    pose[hot_].flags &= ~kPinTweened;
    after_ = pose;
    doc.onChanged.Call();
}

unsigned CommandPinFk::RepeatModes() const {
    return mode_ == kDragLength ? kRepeatAll : kRepeatAbsolute | kRepeatRelative;
}

bool CommandPinFk::Repeat(unsigned mask) {
    const bool anchored = IsAnchored(after_[hot_]);
    const bool carriesLength = anchored || mode_ == kDragMove || mode_ == kDragLength;
    const bool carriesAngle = anchored || mode_ == kDragMove || mode_ == kDragRotate;
    ForEachRepeatFrame(doc_, mask, [&](WirrelKey& key) {
        for (int p : selected_) {
            const WirrelPin& before = before_[p];
            const WirrelPin& after = after_[p];
            const int at = FindPin(after.id, p, key);
            if (at < 0) {
                continue;
            }
            WirrelPin& r = key.pins[at];
            if (IsAnchored(r) != IsAnchored(after) || IsAnchored(r) != anchored) {
                continue;
            }
            if ((mask & kRepeatAbsolute) != 0) {
                r.length = carriesLength ? after.length : r.length;
                r.angle = carriesAngle ? after.angle : r.angle;
            } else if ((mask & kRepeatRelative) != 0) {
                r.length += carriesLength ? after.length - before.length : 0.0f;
                r.angle += carriesAngle ? after.angle - before.angle : 0.0f;
            } else if ((mask & kRepeatPercent) != 0) {
                r.length *= after.length / before.length;
            }
        }
    });
    return true;
}

CommandPinIk::CommandPinIk(WirrelDoc& doc, const SelectionTracker& selection, int mouseX, int mouseY,
                           const ViewTransform& view, bool single)
    : PoseDragCommand("Pose with IK", doc) {
    Pose& pose = doc.CurrentKey().pins;
    int hot = selection.hotItem;
    int parent = hot >= 0 ? pose[hot].parent : -1;
    if (single && parent >= 0 && selection.hotPart == 2) {
        hot = parent;
        parent = pose[hot].parent;
    }
    const auto width = static_cast<float>(view.clientWidth);
    const auto height = static_cast<float>(view.clientHeight);
    // The goal is taken in whole units of the pose.
    const Vec2 goal{std::trunc((static_cast<float>(mouseX) - width * 0.5f) * (view.viewWidth / width) *
                                   (1.0f / view.zoom) +
                               view.cameraX),
                    std::trunc((static_cast<float>(mouseY) - height * 0.5f) * (view.viewHeight / height) *
                                   (1.0f / view.zoom) +
                               view.cameraY)};
    std::set<int> locks;
    if (single) {
        locks.insert(hot);
        if (parent >= 0) {
            locks.insert(parent);
        }
    } else {
        locks = selection.selected;
        for (std::size_t i = 0; i < pose.size(); ++i) {
            if ((pose[i].flags & kPinIkLock) != 0) {
                locks.insert(static_cast<int>(i));
            }
        }
    }
    valid = SolveIk(pose, locks, hot, goal, 100, doc.viewFlags[kRotateChildrenFlag]);
    if (valid) {
        pose[hot].flags &= ~kPinTweened;
    }
    after_ = pose;
    doc.onChanged.Call();
}

CommandPinNew::CommandPinNew(WirrelDoc& doc, SelectionTracker& selection, PinDescription pin)
    : WirrelCommand("Create New Bone"),
      doc_(doc),
      selection_(selection),
      pin_(std::move(pin)),
      selectionBefore_(selection) {
    Redo();
}

void CommandPinNew::Redo() {
    SelectNewPin(selection_, doc_.AddPin(pin_.angle, pin_.length, pin_.parent, pin_.name));
    doc_.onChanged.Call();
}

void CommandPinNew::Undo() {
    RemoveLastPin(doc_);
    selectionBefore_.Restore(selection_);
    doc_.onChanged.Call();
}

CommandPinNew2::CommandPinNew2(WirrelDoc& doc, SelectionTracker& selection, PinDescription first,
                               PinDescription second)
    : WirrelCommand("Create New Bone/Object"),
      doc_(doc),
      selection_(selection),
      first_(std::move(first)),
      second_(std::move(second)),
      selectionBefore_(selection) {
    Redo();
}

void CommandPinNew2::Redo() {
    doc_.AddPin(first_.angle, first_.length, first_.parent, first_.name);
    SelectNewPin(selection_, doc_.AddPin(second_.angle, second_.length, second_.parent, second_.name));
    doc_.onChanged.Call();
}

void CommandPinNew2::Undo() {
    RemoveLastPin(doc_);
    RemoveLastPin(doc_);
    selectionBefore_.Restore(selection_);
    doc_.onChanged.Call();
}

CommandPinParent::CommandPinParent(WirrelDoc& doc, SelectionTracker& selection, aurel::Prompt& window,
                                   int child, int newParent)
    : WirrelCommand("Create New Bone/Parent"),
      doc_(doc),
      selection_(selection),
      window_(window),
      child_(child),
      newParent_(newParent),
      selectionBefore_(selection),
      before_(doc.CurrentKey().pins) {
    Redo();
    valid = doc.CurrentKey().pins != before_;
}

void CommandPinParent::Redo() {
    WirrelKey& key = doc_.CurrentKey();
    if (Reparent(key, child_, newParent_, window_)) {
        key.pins[child_].SetType(Attachment);
        selection_.SetCurrent(child_, 0);
    }
    doc_.onChanged.Call();
}

void CommandPinParent::Undo() {
    doc_.CurrentKey().pins = before_;
    selectionBefore_.Restore(selection_);
    doc_.onChanged.Call();
}

void DeletePin(WirrelDoc& doc, int index) {
    WirrelKey& current = doc.CurrentKey();
    UnlinkPin(current, index);
    const int id = current.pins[index].id;
    if (UsesPin(doc.CurrentAnim(), id) || RemovePinIfUnused(doc.Wirrel(), id)) {
        return;
    }
    // Other animations still use it: it leaves only this one, and ids stay as they are.
    for (WirrelKey& key : doc.CurrentAnim().keys) {
        const int at = FindPin(id, index, key);
        if (at < 0) {
            continue;
        }
        key.pins.erase(key.pins.begin() + at);
        for (WirrelPin& pin : key.pins) {
            pin.parent -= pin.parent > at ? 1 : 0;
        }
    }
}

CommandPinDelete::CommandPinDelete(WirrelDoc& doc, SelectionTracker& selection)
    : WirrelCommand("Delete Pin/Bone"),
      doc_(doc),
      selection_(selection),
      selectionBefore_(selection),
      animsBefore_(doc.Wirrel().anims),
      namesBefore_(doc.Wirrel().pinNames) {
    Redo();
}

void CommandPinDelete::Redo() {
    const WirrelKey& key = doc_.CurrentKey();
    const std::set<int>& selected = selectionBefore_.saved.selected;
    std::set<int> doomed = selected;
    for (int p : selected) {
        const int parent = key.pins[p].parent;
        // No lone end may stay behind: a root left without its only bone, or a bone without its root.
        if (parent >= 0 && ChildCount(key, parent) == 1 && key.pins[parent].parent < 0 &&
            !HasChildren(key, p)) {
            doomed.insert(parent);
        }
        if (parent < 0 && ChildCount(key, p) == 1) {
            const auto child = std::find_if(key.pins.begin(), key.pins.end(),
                                            [p](const WirrelPin& pin) { return pin.parent == p; });
            const int c = static_cast<int>(child - key.pins.begin());
            if (!HasChildren(key, c)) {
                doomed.insert(c);
            }
        }
    }
    for (auto p = doomed.rbegin(); p != doomed.rend(); ++p) {
        DeletePin(doc_, *p);
    }
    ClearPins(selection_);
    doc_.onChanged.Call();
}

void CommandPinDelete::Undo() {
    doc_.Wirrel().anims = animsBefore_;
    doc_.Wirrel().pinNames = namesBefore_;
    selectionBefore_.Restore(selection_);
    doc_.onChanged.Call();
}

CommandPinType::CommandPinType(WirrelDoc& doc, int pin, PinType type)
    : WirrelCommand("Change pin type"),
      doc_(doc),
      pin_(pin),
      id_(doc.CurrentKey().pins[pin].id),
      type_(type),
      tailChange_((doc.CurrentKey().pins[pin].Type() == Tail) != (type == Tail)),
      animsBefore_(doc.Wirrel().anims),
      namesBefore_(doc.Wirrel().pinNames) {
    Redo();
}

void CommandPinType::Redo() {
    ChangeIn(doc_.CurrentKey(), true);
    doc_.onChanged.Call();
}

void CommandPinType::Undo() {
    doc_.Wirrel().anims = animsBefore_;
    doc_.Wirrel().pinNames = namesBefore_;
    doc_.onChanged.Call();
}

void CommandPinType::ChangeIn(WirrelKey& key, bool current) {
    const int at = FindPin(id_, pin_, key);
    if (at < 0) {
        return;
    }
    if (tailChange_ && type_ == Tail) {
        // The current frame makes the two segment pins, in every frame of its animation; other frames
        // lay the tail over them where they have them.
        if (current) {
            segmentIds_ = {static_cast<int>(doc_.PinCount()), static_cast<int>(doc_.PinCount()) + 1};
            MakeTail(doc_, at);
            return;
        }
        const int anchor = FindPin(segmentIds_[0], segmentIds_[0], key);
        const int segment = FindPin(segmentIds_[1], segmentIds_[1], key);
        if (anchor >= 0 && segment >= 0 && key.pins[at].Type() != Tail) {
            LayTail(key, at, anchor, segment);
        }
        return;
    }
    if (tailChange_) {
        if (key.pins[at].Type() == Tail) {
            EndTail(doc_.Wirrel(), key, at, type_);
        }
        return;
    }
    if (type_ == Root) {
        // Detaching a pin to a root never asks anything.
        aurel::SilentPrompt silent;
        Reparent(key, at, -1, silent);
    }
    key.pins[at].SetType(type_);
}

unsigned CommandPinType::RepeatModes() const {
    return kRepeatAll;
}

bool CommandPinType::Repeat(unsigned mask) {
    // The type is no value: every way of carrying it gives the same.
    ForEachRepeatFrame(doc_, mask, [this](WirrelKey& key) { ChangeIn(key, false); });
    return true;
}

CommandPinIkLock::CommandPinIkLock(int pin, WirrelDoc& doc)
    : WirrelCommand("Toggle Ik Lock"), pin_(pin), doc_(doc) {
    Redo();
}

void CommandPinIkLock::Redo() {
    doc_.CurrentKey().pins[pin_].flags ^= kPinIkLock;
    doc_.onChanged.Call();
}

CommandPinName::CommandPinName(WirrelDoc& doc, int pin, std::string_view name)
    : WirrelCommand("Set Pin Name"), doc_(doc), names_{{pin, doc.Wirrel().pinNames[pin], MakeName(name)}} {
    Redo();
}

void CommandPinName::Redo() {
    for (const Rename& rename : names_) {
        doc_.Wirrel().pinNames[rename.pin] = rename.newName;
    }
    doc_.onChanged.Call();
}

void CommandPinName::Undo() {
    for (auto rename = names_.rbegin(); rename != names_.rend(); ++rename) {
        doc_.Wirrel().pinNames[rename->pin] = rename->oldName;
    }
    doc_.onChanged.Call();
}

bool CommandPinName::Merge(ICommand& next) {
    if (next.GetType() != GetType()) {
        return false;
    }
    // The newcomer's new name is taken; a rename of another pin is kept beside this one, so that the
    // step undoes both.
    const Rename& newcomer = static_cast<CommandPinName&>(next).names_.front();
    auto same = std::find_if(names_.begin(), names_.end(),
                             [&newcomer](const Rename& rename) { return rename.pin == newcomer.pin; });
    if (same != names_.end()) {
        same->newName = newcomer.newName;
    } else {
        names_.push_back(newcomer);
    }
    return true;
}

CommandPinOrder::CommandPinOrder(WirrelDoc& doc, SelectionTracker& selection, std::string_view text,
                                 int oldIndex, int newIndex)
    : WirrelCommand(text), doc_(doc), selection_(selection), moves_{{oldIndex, newIndex}} {
    Redo();
}

void CommandPinOrder::Redo() {
    for (const auto& [from, to] : moves_) {
        Move(from, to);
    }
}

void CommandPinOrder::Undo() {
    for (auto move = moves_.rbegin(); move != moves_.rend(); ++move) {
        Move(move->second, move->first);
    }
}

void CommandPinOrder::Move(int from, int to) {
    std::vector<WirrelPin>& pins = doc_.CurrentKey().pins;
    SelectionSnapshot moved(selection_);
    const int step = from < to ? 1 : -1;
    for (int a = from; a != to; a += step) {
        const int b = a + step;
        std::swap(pins[a], pins[b]);
        for (WirrelPin& pin : pins) {
            pin.parent = Exchanged(pin.parent, a, b);
        }
        moved.hotItem = Exchanged(moved.hotItem, a, b);
        moved.saved.currentItem = Exchanged(moved.saved.currentItem, a, b);
        std::set<int> selected;
        for (int item : moved.saved.selected) {
            selected.insert(Exchanged(item, a, b));
        }
        moved.saved.selected = std::move(selected);
    }
    moved.Restore(selection_);
    doc_.onChanged.Call();
}

bool CommandPinOrder::Merge(ICommand& next) {
    // A newcomer that moves from the same old position joins this step; its move is kept after this
    // one's, so that undo walks both back.
    const auto& newcomer = static_cast<CommandPinOrder&>(next);
    if (next.GetType() != GetType() || newcomer.moves_.front().first != moves_.front().first) {
        return false;
    }
    moves_.push_back(newcomer.moves_.front());
    return true;
}

CommandPinProperty::CommandPinProperty(WirrelDoc& doc, std::string_view text, int kind, int pin,
                                       const WirrelPin& record)
    : WirrelCommand(text),
      doc_(doc),
      kind_(kind),
      pin_(pin),
      before_(doc.CurrentKey().pins),
      record_(record) {
    Redo();
}

void CommandPinProperty::Redo() {
    doc_.CurrentKey().pins[pin_] = record_;
    doc_.onChanged.Call();
}

void CommandPinProperty::Undo() {
    doc_.CurrentKey().pins = before_;
    doc_.onChanged.Call();
}

bool CommandPinProperty::Merge(ICommand& next) {
    auto* other = dynamic_cast<CommandPinProperty*>(&next);
    if (other == nullptr || other->kind_ != kind_ || other->pin_ != pin_) {
        return false;
    }
    record_ = other->record_;
    return true;
}

CommandPinSelArea::CommandPinSelArea(float x0, float y0, float x1, float y1, WirrelDoc& doc,
                                     SelectionTracker& selection, const ViewTransform& view, bool add,
                                     const SelectionTracker::Saved& atPress)
    : WirrelCommand("Pin Area Selection"),
      doc_(doc),
      selection_(selection),
      before_(selection),
      after_(selection) {
    if (add) {
        selection.Restore(atPress);
    } else {
        selection.Clear();
    }
    // Pin pixels are relative to the world origin: shift the box to match.
    const ScreenScale s = view.ScreenToWorld();
    const float left = std::min(x0, x1) - s.ox;
    const float right = std::max(x0, x1) - s.ox;
    const float top = std::min(y0, y1) - s.oy;
    const float bottom = std::max(y0, y1) - s.oy;
    std::set<int> hits;
    for (std::size_t i = 0; i < view.pinPixels.size(); ++i) {
        const PinPixel& p = view.pinPixels[i];
        const float dx = p.x - std::clamp(p.x, left, right);
        const float dy = p.y - std::clamp(p.y, top, bottom);
        if (dx * dx + dy * dy <= 16.0f) {
            hits.insert(static_cast<int>(i));
        }
    }
    for (int pin : hits) {
        if (selection.IsSelected(pin)) {
            selection.Remove(pin);
        } else {
            selection.Add(pin, false);
        }
    }
    if (selection.notify) {
        selection.onSelectionChanged.Call();
        selection.onCurrentChanged.Call(selection.currentItem);
    }
    after_ = SelectionSnapshot(selection);
    doc.onChanged.Call();
}

void CommandPinSelArea::Redo() {
    after_.Restore(selection_);
    doc_.onChanged.Call();
}

void CommandPinSelArea::Undo() {
    before_.Restore(selection_);
    doc_.onChanged.Call();
}

bool CommandPinSelArea::Merge(ICommand& next) {
    if (next.GetType() != GetType()) {
        return false;
    }
    after_ = static_cast<CommandPinSelArea&>(next).after_;
    return true;
}

CommandAabbCreate::CommandAabbCreate(WirrelDoc& doc, float x0, float y0, float x1, float y1, int pin)
    : WirrelCommand("Create Aabb"),
      doc_(doc),
      box_{std::min(x0, x1), std::min(y0, y1),          std::max(x0, x1),
           std::max(y0, y1), doc.selectedCollisionType, -1},
      pin_(pin) {
    Redo();
}

void CommandAabbCreate::Redo() {
    AddAabb(doc_.Wirrel(), doc_.CurrentKey(), pin_, box_);
    doc_.onChanged.Call();
}

}  // namespace kovra
