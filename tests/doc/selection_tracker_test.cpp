#include "doc/selection_tracker.h"

#include <gtest/gtest.h>

#include <string>

namespace kovra {
namespace {

// Each notification is logged as "s" (selection), "h<item>" (hot) or "c<item>" (current).
class SelectionTrackerTest : public testing::Test {
public:
    void OnSelection() { log += "s "; }
    void OnHot(int item) { log += "h" + std::to_string(item) + " "; }
    void OnCurrent(int item) { log += "c" + std::to_string(item) + " "; }

protected:
    void SetUp() override {
        tracker.onSelectionChanged.Add(this, &SelectionTrackerTest::OnSelection);
        tracker.onHotChanged.Add(this, &SelectionTrackerTest::OnHot);
        tracker.onCurrentChanged.Add(this, &SelectionTrackerTest::OnCurrent);
    }

    SelectionTracker tracker;
    std::string log;
};

TEST_F(SelectionTrackerTest, ChangesNotifyOnlyWhenSomethingChanges) {
    tracker.SetHot(-1, 0);
    tracker.SetHot(3, 1);
    tracker.SetHot(3, 1);
    tracker.Add(-1, true);
    tracker.Add(4, false);
    tracker.Add(4, false);
    tracker.Add(2, true);
    tracker.SetCurrent(2, 3);
    EXPECT_EQ(tracker.Snapshot(), (SelectionTracker::Saved{{2, 4}, 2, 3}));
    tracker.SetCurrent(7, 1);  // outside the set: replaces it
    EXPECT_EQ(tracker.Snapshot(), (SelectionTracker::Saved{{7}, 7, 1}));
    tracker.Clear();
    tracker.Clear();
    EXPECT_EQ(log, "h3 s s c2 c2 s c7 s c-1 ");
    EXPECT_EQ(tracker.Snapshot(), (SelectionTracker::Saved{{}, -1, -1}));
}

TEST_F(SelectionTrackerTest, SnapshotAndRestoreCarryTheSetAndTheCurrentItemQuietlyIfAsked) {
    tracker.Add(3, true);
    tracker.Add(8, false);
    const SelectionTracker::Saved saved = tracker.Snapshot();
    tracker.Clear();
    log.clear();
    tracker.Restore(saved);
    EXPECT_EQ(tracker.Snapshot(), saved);
    EXPECT_EQ(log, "s ");
    tracker.notify = false;
    tracker.Remove(3);
    tracker.Add(5, true);
    tracker.SetHot(5, 0);
    tracker.Clear();
    EXPECT_EQ(log, "s ");
}

}  // namespace
}  // namespace kovra
