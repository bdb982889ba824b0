#pragma once
// The selection of one kind of item (pins, or textures): the hot item under the mouse, the current item
// last acted on, and the ordered set of selected items, with listeners for each. `notify` is cleared
// while a command replays a selection, so that views aren't told of every step.

#include <set>

#include "base/listener_list.h"

namespace kovra {

class SelectionTracker {
public:
    // What Snapshot hands over and Restore takes back.
    struct Saved {
        std::set<int> selected;
        int currentItem = -1;
        int currentPart = 0;
        bool operator==(const Saved&) const = default;
    };

    aurel::ListenerList<> onSelectionChanged;
    aurel::ListenerList<int> onHotChanged;      // the new hot item
    aurel::ListenerList<int> onCurrentChanged;  // the new current item

    int hotItem = -1;
    int hotPart = 0;
    int currentItem = -1;
    int currentPart = 0;
    std::set<int> selected;
    bool notify = true;

    void SetHot(int item, int part);
    bool IsSelected(int item) const { return selected.contains(item); }
    // Items below 0 are ignored.
    void Add(int item, bool makeCurrent);
    void Remove(int item);
    // An item outside the set replaces the whole set.
    void SetCurrent(int item, int part);
    void Clear();
    Saved Snapshot() const { return Saved{selected, currentItem, currentPart}; }
    void Restore(const Saved& saved);
};

inline void SelectionTracker::SetHot(int item, int part) {
    if (item == hotItem && part == hotPart) {
        return;
    }
    hotItem = item;
    hotPart = part;
    if (notify) {
        onHotChanged.Call(item);
    }
}

inline void SelectionTracker::Add(int item, bool makeCurrent) {
    if (item < 0) {
        return;
    }
    if (selected.insert(item).second && notify) {
        onSelectionChanged.Call();
    }
    if (makeCurrent) {
        SetCurrent(item, 0);
    }
}

inline void SelectionTracker::Remove(int item) {
    if (selected.erase(item) != 0 && notify) {
        onSelectionChanged.Call();
    }
}

inline void SelectionTracker::SetCurrent(int item, int part) {
    if (item == currentItem && part == currentPart) {
        return;
    }
    if (!IsSelected(item)) {
        selected.clear();
        currentItem = -1;
        currentPart = -1;
        Add(item, false);
    }
    currentItem = item;
    currentPart = part;
    if (notify) {
        onCurrentChanged.Call(item);
    }
}

inline void SelectionTracker::Clear() {
    if (selected.empty()) {
        return;
    }
    selected.clear();
    if (notify) {
        onSelectionChanged.Call();
    }
    SetCurrent(-1, -1);
}

inline void SelectionTracker::Restore(const Saved& saved) {
    selected = saved.selected;
    currentItem = saved.currentItem;
    currentPart = saved.currentPart;
    if (notify) {
        onSelectionChanged.Call();
    }
}

}  // namespace kovra
