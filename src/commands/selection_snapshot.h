#pragma once
// A copy of a selection as commands keep it: the hot item and its part, and what the tracker's own
// snapshot holds. Restoring goes through the tracker, which notifies.

#include "doc/selection_tracker.h"

namespace kovra {

struct SelectionSnapshot {
    explicit SelectionSnapshot(const SelectionTracker& selection)
        : hotItem(selection.hotItem), hotPart(selection.hotPart), saved(selection.Snapshot()) {}

    void Restore(SelectionTracker& selection) const {
        selection.Restore(saved);
        selection.SetHot(hotItem, hotPart);
    }

    int hotItem;
    int hotPart;
    SelectionTracker::Saved saved;
};

// Nothing selected and nothing hot.
inline void ClearPins(SelectionTracker& selection) {
    selection.Clear();
    selection.SetHot(-1, 0);
}

}  // namespace kovra
