#include "commands/pin_commands.h"

#include <algorithm>
#include <set>
#include <utility>

namespace kovra {
namespace {

int Exchanged(int value, int a, int b) {
    return value == a ? b : value == b ? a : value;
}

}  // namespace

CommandPinIkLock::CommandPinIkLock(int pin, WirrelDoc& doc)
    : WirrelCommand("Toggle Ik Lock"), pin_(pin), doc_(doc) {
    Redo();
}

void CommandPinIkLock::Redo() {
    doc_.CurrentKey().pins[pin_].flags ^= kPinIkLock;
    doc_.onChanged.Call();
}

CommandPinName::CommandPinName(WirrelDoc& doc, int pin, std::string_view name)
    : WirrelCommand("Set Pin Name"),
      doc_(doc),
      pin_(pin),
      oldName_(doc.Wirrel().pinNames[pin]),
      newName_(MakeName(name)) {
    Redo();
}

void CommandPinName::Write(const Name32& name) {
    doc_.Wirrel().pinNames[pin_] = name;
    doc_.onChanged.Call();
}

bool CommandPinName::Merge(ICommand& next) {
    if (next.GetType() != GetType() || static_cast<CommandPinName&>(next).pin_ != pin_) {
        return false;
    }
    newName_ = static_cast<CommandPinName&>(next).newName_;
    return true;
}

CommandPinOrder::CommandPinOrder(WirrelDoc& doc, SelectionTracker& selection, std::string_view text,
                                 int oldIndex, int newIndex)
    : WirrelCommand(text), doc_(doc), selection_(selection), oldIndex_(oldIndex), newIndex_(newIndex) {
    Redo();
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
    // The newcomer carries on moving the record that this command moved.
    if (next.GetType() != GetType() || static_cast<CommandPinOrder&>(next).oldIndex_ != newIndex_) {
        return false;
    }
    newIndex_ = static_cast<CommandPinOrder&>(next).newIndex_;
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
    const float left = std::min(x0, x1) - view.OriginX();
    const float right = std::max(x0, x1) - view.OriginX();
    const float top = std::min(y0, y1) - view.OriginY();
    const float bottom = std::max(y0, y1) - view.OriginY();
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
    std::vector<WirrelAabb>& aabbs = doc_.Wirrel().aabbs;
    const auto index = static_cast<std::int32_t>(aabbs.size());
    aabbs.push_back(box_);
    WirrelPin& pin = doc_.CurrentKey().pins[pin_];
    if (pin.aabb < 0) {
        pin.aabb = index;
    } else {
        std::int32_t last = pin.aabb;
        while (aabbs[last].next >= 0) {
            last = aabbs[last].next;
        }
        aabbs[last].next = index;
    }
    doc_.onChanged.Call();
}

}  // namespace kovra
