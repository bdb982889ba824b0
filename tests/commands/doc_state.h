#pragma once
// Everything a command may change, captured for comparison: the tables, the play cursor, the snap
// setting, the pin selection and the animation list's selection.

#include <tuple>

#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "recording_hub.h"

namespace kovra::test {

inline bool SameCursor(const PlayCursor& a, const PlayCursor& b) {
    const auto tie = [](const PlayCursor& c) {
        return std::tie(c.animIndex, c.animName, c.frameIndex, c.framePos, c.otherAnimName, c.otherFrameIndex,
                        c.otherFramePos, c.blending, c.blendPos, c.blendLength);
    };
    return tie(a) == tie(b);
}

struct DocState {
    DocState(const WirrelDoc& doc, const SelectionTracker& selection, const RecordingHub& hub)
        : wirrel(doc.Wirrel()),
          cursor(doc.cursor),
          snapFrames(doc.snapFrames),
          hotItem(selection.hotItem),
          hotPart(selection.hotPart),
          selection(selection.Snapshot()),
          animList(hub.animListSelection) {}

    bool operator==(const DocState& o) const {
        return wirrel == o.wirrel && SameCursor(cursor, o.cursor) && snapFrames == o.snapFrames &&
               hotItem == o.hotItem && hotPart == o.hotPart && selection == o.selection &&
               animList == o.animList;
    }

    Wirrel wirrel;
    PlayCursor cursor;
    std::uint32_t snapFrames;
    int hotItem;
    int hotPart;
    SelectionTracker::Saved selection;
    int animList;
};

}  // namespace kovra::test
