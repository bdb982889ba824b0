#pragma once
// The pin tree of a key frame as data: look-ups, positions, and the changes of links and types that the
// pin commands make. Each key frame holds the whole tree as a flat vector in which a record names its
// parent by position; a pin is the same pin in every key frame by its id. A change works on one key
// frame's vector, and the calling command repeats it for the key frames it concerns.

#include <vector>

#include "base/prompt.h"
#include "doc/wirrel.h"

namespace kovra {

class WirrelDoc;

struct PinPoint {
    float x = 0.0f;
    float y = 0.0f;
    bool operator==(const PinPoint&) const = default;
};

// The workspace position of one pin; `id` is the pin's id, carried as a float.
struct WorldPoint {
    float x = 0.0f;
    float y = 0.0f;
    float id = 0.0f;
};

// 2π for single-precision arithmetic, and the slightly smaller double used when the solver writes its
// result back. The two differ on purpose and must not be unified.
constexpr float kTwoPi = 6.2831855f;
constexpr double kTwoPiSolver = 6.2831854;

// Brings an angle into [0, 2pi) by adding or subtracting 6.2831855f one turn at a time, so that angles
// near the circle come out exactly as the editor has always computed them.
float NormalizeAngle(float angle);
// The same in double precision, with the double constant 6.2831854, as the solver writes its results.
double NormalizeAngle(double angle);

// Position of the record of pin `id`: `hint` when that record has the id, else the first match from the
// start; -1 if the pins don't hold it.
int IndexOfId(const std::vector<WirrelPin>& pins, std::int32_t id, int hint);
inline int FindPin(int id, int hint, const WirrelKey& key) {
    return IndexOfId(key.pins, id, hint);
}

int ChildCount(const WirrelKey& key, int index);
bool HasChildren(const WirrelKey& key, int index);
// Climbs the parent links from `index` to the first record of type Root, or to the top of the tree when
// there is none on the way.
int RootOf(const WirrelKey& key, int index);
bool IsHidden(const WirrelKey& key, int index);
// Hidden, and so are all its direct children.
bool IsHiddenWithChildren(const WirrelKey& key, int index);
bool IsBone(const WirrelPin& pin);

// The workspace position of every record, in the records' order, which need not be parent-first: the
// records are swept until each is placed from its parent. A record whose parent chain never reaches a
// root (a loop or a broken link) is left at the origin.
void WorldPositions(const std::vector<WirrelPin>& pins, std::vector<WorldPoint>& out);
inline void PinPositions(const WirrelKey& key, std::vector<WorldPoint>& out) {
    WorldPositions(key.pins, out);
}

// Hangs `index` under `newParent` (-1: makes it a root) without moving anything on screen. The chain of
// old parents above it is inverted to hang below it, so that a pin joins another tree with its own.
// Within one tree that would form a loop: refused with a message, answering false. An index outside the
// key frame changes nothing.
bool Reparent(WirrelKey& key, int index, int newParent, aurel::Prompt& window);

// Deletes a pin from one key frame: its children are freed (a Bone or Attachment child becomes a Root
// where it stands, without skin) and the pin is hidden.
void UnlinkPin(WirrelKey& key, int index);

// Removes pin `id` from every key frame and from the names, lowering the ids above it, when it is hidden
// in every key frame of every animation and no record hangs from it. True when it was removed.
bool RemovePinIfUnused(Wirrel& wirrel, int id);

// Turns pin `index` of the current key frame into a tail of three: two new segment pins, each a third of
// its length, are chained between its parent and it.
void MakeTail(WirrelDoc& doc, int index);

// Lays the tail of end pin `index` of a key frame over its two segment pins, `anchor` hanging from the
// end's parent and `segment` from the anchor, each a third of the end's length and shown.
void LayTail(WirrelKey& key, int index, int anchor, int segment);

// Gives the end pin `index` of a tail in a key frame of `wirrel` the type `type`: it takes the length of
// the whole tail and hangs from the anchor's parent, and the segment pins between are deleted.
void EndTail(Wirrel& wirrel, WirrelKey& key, int index, PinType type);

}  // namespace kovra
