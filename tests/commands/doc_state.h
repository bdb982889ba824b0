#pragma once
// Everything a command may change, captured for comparison: the tables, the play cursor, the snap
// setting, the pin selection and the animation list's selection. Round-trip tests compare these
// before and after a command, its undo and its redo.

#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "recording_hub.h"

namespace kovra::test {

struct DocState {
    Wirrel wirrel;
    PlayCursor cursor;
    std::uint32_t snapFrames = 0;
    int hotItem = -1;
    int hotPart = 0;
    SelectionTracker::Saved selection;
    int animList = -1;

    bool operator==(const DocState& other) const;
};

bool SameCursor(const PlayCursor& a, const PlayCursor& b);

DocState Capture(const WirrelDoc& doc, const SelectionTracker& selection, const RecordingHub& hub);

// A readable summary for failure messages.
void PrintTo(const DocState& state, std::ostream* out);

}  // namespace kovra::test
