#include "doc/pin_tree.h"

#include <algorithm>
#include <cmath>

#include "doc/wirrel_doc.h"

namespace kovra {

namespace {

constexpr float kTailThird = 0.33333334f;

bool InRange(const WirrelKey& key, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < key.pins.size();
}

// The record at the top of the tree that holds `index`. The climb is bounded, so that damaged links
// can't make it run forever.
int TopOf(const WirrelKey& key, int index) {
    for (std::size_t steps = 0; steps < key.pins.size() && InRange(key, key.pins[index].parent); ++steps) {
        index = key.pins[index].parent;
    }
    return index;
}

// Angle and length of `pin` as the polar form of `position` seen from `base`.
void SetPolar(WirrelPin& pin, const WorldPoint& position, const WorldPoint& base) {
    const float dx = position.x - base.x;
    const float dy = position.y - base.y;
    pin.angle = NormalizeAngle(std::atan2(dy, dx));
    pin.length = std::sqrt(dx * dx + dy * dy);
}

template <class Real>
Real Wrapped(Real angle, Real turn) {
    if (!std::isfinite(angle)) {
        return 0;
    }
    // Only damaged data lies this far out; a turn-by-turn walk from there would take too long.
    if (std::fabs(angle) > 64 * turn) {
        angle = std::fmod(angle, turn);
    }
    while (angle < 0) {
        angle += turn;
    }
    while (angle >= turn) {
        angle -= turn;
    }
    return angle;
}

}  // namespace

float NormalizeAngle(float angle) {
    return Wrapped(angle, kTwoPi);
}

double NormalizeAngle(double angle) {
    return Wrapped(angle, kTwoPiSolver);
}

int IndexOfId(const std::vector<WirrelPin>& pins, std::int32_t id, int hint) {
    if (hint >= 0 && hint < static_cast<int>(pins.size()) && pins[hint].id == id) {
        return hint;
    }
    const auto found =
        std::find_if(pins.begin(), pins.end(), [id](const WirrelPin& pin) { return pin.id == id; });
    return found == pins.end() ? -1 : static_cast<int>(found - pins.begin());
}

int ChildCount(const WirrelKey& key, int index) {
    return static_cast<int>(std::count_if(key.pins.begin(), key.pins.end(),
                                          [index](const WirrelPin& pin) { return pin.parent == index; }));
}

bool HasChildren(const WirrelKey& key, int index) {
    return std::any_of(key.pins.begin(), key.pins.end(),
                       [index](const WirrelPin& pin) { return pin.parent == index; });
}

int RootOf(const WirrelKey& key, int index) {
    if (!InRange(key, index)) {
        return -1;
    }
    for (std::size_t steps = 0; steps < key.pins.size(); ++steps) {
        const WirrelPin& pin = key.pins[index];
        if (pin.Type() == Root || !InRange(key, pin.parent)) {
            break;
        }
        index = pin.parent;
    }
    return index;
}

bool IsHidden(const WirrelKey& key, int index) {
    return (key.pins[index].flags & kPinHidden) != 0;
}

bool IsHiddenWithChildren(const WirrelKey& key, int index) {
    return IsHidden(key, index) &&
           std::all_of(key.pins.begin(), key.pins.end(), [index](const WirrelPin& pin) {
               return pin.parent != index || (pin.flags & kPinHidden) != 0;
           });
}

bool IsBone(const WirrelPin& pin) {
    return pin.Type() == Bone;
}

void WorldPositions(const std::vector<WirrelPin>& pins, std::vector<WorldPoint>& out) {
    const std::size_t n = pins.size();
    out.assign(n, WorldPoint{});
    std::vector<bool> done(n);
    for (std::size_t remaining = n; remaining > 0;) {
        const std::size_t before = remaining;
        for (std::size_t i = 0; i < n; ++i) {
            if (done[i]) {
                continue;
            }
            const WirrelPin& pin = pins[i];
            const auto p = static_cast<std::size_t>(pin.parent);
            const float dx = pin.length * std::cos(pin.angle);
            const float dy = pin.length * std::sin(pin.angle);
            if (pin.parent < 0) {
                out[i] = WorldPoint{dx, dy, static_cast<float>(pin.id)};
            } else if (p < n && done[p]) {
                out[i] = WorldPoint{out[p].x + dx, out[p].y + dy, static_cast<float>(pin.id)};
            } else {
                continue;
            }
            done[i] = true;
            --remaining;
        }
        if (remaining == before) {
            break;
        }
    }
}

bool Reparent(WirrelKey& key, int index, int newParent, aurel::Prompt& window) {
    if (!InRange(key, index) || key.pins[index].parent == newParent ||
        (newParent != -1 && !InRange(key, newParent))) {
        return true;
    }
    if (newParent != -1 && TopOf(key, newParent) == TopOf(key, index)) {
        window.Tell("Invalid action", "Invalid action. Creating this bone would form a loop.",
                    aurel::PromptIcon::Warning);
        return false;
    }
    std::vector<WorldPoint> positions;
    PinPositions(key, positions);
    // Each pin of the old chain hangs from the one below it from now on, where it stands.
    int at = index;
    int below = newParent;
    for (std::size_t steps = 0; steps < key.pins.size() && InRange(key, at); ++steps) {
        WirrelPin& pin = key.pins[at];
        const int oldParent = pin.parent;
        SetPolar(pin, positions[at], below == -1 ? WorldPoint{} : positions[below]);
        pin.parent = below;
        below = at;
        at = oldParent;
    }
    return true;
}

void UnlinkPin(WirrelKey& key, int index) {
    std::vector<WorldPoint> positions;
    PinPositions(key, positions);
    for (std::size_t i = 0; i < key.pins.size(); ++i) {
        WirrelPin& child = key.pins[i];
        if (child.parent != index) {
            continue;
        }
        child.parent = -1;
        if (child.Type() == Bone || child.Type() == Attachment) {
            SetPolar(child, positions[i], WorldPoint{});
            child.SetType(Root);
            child.skin = -1;
        }
    }
    key.pins[index].flags |= kPinHidden;
}

bool RemovePinIfUnused(Wirrel& wirrel, int id) {
    for (const WirrelAnim& anim : wirrel.anims) {
        for (const WirrelKey& key : anim.keys) {
            const int at = FindPin(id, id, key);
            if (at >= 0 && (!IsHidden(key, at) || HasChildren(key, at))) {
                return false;
            }
        }
    }
    for (WirrelAnim& anim : wirrel.anims) {
        for (WirrelKey& key : anim.keys) {
            const int at = FindPin(id, id, key);
            if (at >= 0) {
                key.pins.erase(key.pins.begin() + at);
            }
            for (WirrelPin& pin : key.pins) {
                pin.parent -= at >= 0 && pin.parent > at ? 1 : 0;
                pin.id -= pin.id > id ? 1 : 0;
            }
        }
    }
    if (id >= 0 && static_cast<std::size_t>(id) < wirrel.pinNames.size()) {
        wirrel.pinNames.erase(wirrel.pinNames.begin() + id);
    }
    return true;
}

void MakeTail(WirrelDoc& doc, int index) {
    const WirrelPin end = doc.CurrentKey().pins[index];
    const int anchor = doc.AddPin(end.angle, end.length * kTailThird, end.parent, "Segment 1");
    const int segment = doc.AddPin(end.angle, end.length * kTailThird, anchor, "Segment 2");
    LayTail(doc.CurrentKey(), index, anchor, segment);
}

void LayTail(WirrelKey& key, int index, int anchor, int segment) {
    std::vector<WirrelPin>& pins = key.pins;
    const WirrelPin end = pins[index];
    const float third = end.length * kTailThird;
    const auto setTail = [&pins, &end, third](int at, int parent, std::uint32_t chainBits) {
        pins[at].angle = end.angle;
        pins[at].length = third;
        pins[at].parent = parent;
        pins[at].SetType(Tail);
        pins[at].flags = (pins[at].flags & ~(kTailSegment | kPinHidden)) | chainBits;
    };
    setTail(anchor, end.parent, kTailAnchor);
    setTail(segment, anchor, kTailSegment);
    setTail(index, segment, kTailEnd);
    pins[index].flags = (pins[index].flags & ~kPinHidden) | (end.flags & kPinHidden);
}

void EndTail(Wirrel& wirrel, WirrelKey& key, int index, PinType type) {
    float length = key.pins[index].length;
    std::vector<int> passedIds;
    int at = index;
    for (std::size_t steps = 0; steps < key.pins.size() && (key.pins[at].flags & kTailSegment) != kTailAnchor;
         ++steps) {
        const int parent = key.pins[at].parent;
        if (!InRange(key, parent)) {
            break;
        }
        at = parent;
        length += key.pins[at].length;
        passedIds.push_back(key.pins[at].id);
    }

    WirrelPin& end = key.pins[index];
    end.parent = at == index ? end.parent : key.pins[at].parent;
    end.length = length;
    end.flags &= ~kTailEnd;
    end.SetType(type);
    key.pins[at].flags &= ~kTailAnchor;

    for (const int id : passedIds) {
        UnlinkPin(key, FindPin(id, id, key));
    }
    // Nearest the end first: each segment hangs from the one before it in the key frames not shown.
    for (std::size_t i = 0; i < passedIds.size(); ++i) {
        if (RemovePinIfUnused(wirrel, passedIds[i])) {
            for (std::size_t j = i + 1; j < passedIds.size(); ++j) {
                passedIds[j] -= passedIds[j] > passedIds[i] ? 1 : 0;
            }
        }
    }
}

}  // namespace kovra
