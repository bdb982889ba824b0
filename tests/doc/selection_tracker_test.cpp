#include "doc/selection_tracker.h"

#include <gtest/gtest.h>

#include <string>

namespace kovra {
namespace {

// Records every notification as one letter and its item: "s" selection, "h<item>" hot, "c<item>" current.
class SelectionTrackerTest : public testing::Test {
protected:
    void SetUp() override {
        tracker.onSelectionChanged.Add(this, &SelectionTrackerTest::OnSelection);
        tracker.onHotChanged.Add(this, &SelectionTrackerTest::OnHot);
        tracker.onCurrentChanged.Add(this, &SelectionTrackerTest::OnCurrent);
    }
    void OnSelection() { log += "s "; }
    void OnHot(int item) { log += "h" + std::to_string(item) + " "; }
    void OnCurrent(int item) { log += "c" + std::to_string(item) + " "; }

    SelectionTracker tracker;
    std::string log;
};

TEST_F(SelectionTrackerTest, SetHotNotifiesOnlyOnAChange) {
    tracker.SetHot(-1, 0);
    tracker.SetHot(3, 1);
    tracker.SetHot(3, 1);
    tracker.SetHot(3, 2);
    EXPECT_EQ(log, "h3 h3 ");
    EXPECT_EQ(tracker.hotPart, 2);
}

TEST_F(SelectionTrackerTest, AddIgnoresNegativeItemsAndNotifiesNewOnes) {
    tracker.Add(-1, true);
    tracker.Add(4, false);
    tracker.Add(4, false);
    tracker.Add(2, true);
    EXPECT_EQ(log, "s s c2 ");
    EXPECT_EQ(tracker.selected, (std::set<int>{2, 4}));
    EXPECT_EQ(tracker.currentItem, 2);
    EXPECT_EQ(tracker.currentPart, 0);
}

TEST_F(SelectionTrackerTest, SetCurrentOutsideTheSetReplacesIt) {
    tracker.Add(1, false);
    tracker.Add(2, false);
    log.clear();
    tracker.SetCurrent(2, 3);  // inside: the set stays
    EXPECT_EQ(tracker.selected, (std::set<int>{1, 2}));
    tracker.SetCurrent(7, 1);
    EXPECT_EQ(tracker.selected, (std::set<int>{7}));
    EXPECT_EQ(tracker.currentItem, 7);
    EXPECT_EQ(tracker.currentPart, 1);
    tracker.SetCurrent(7, 1);
    EXPECT_EQ(log, "c2 s c7 ");
}

TEST_F(SelectionTrackerTest, ClearEmptiesTheSetAndTheCurrentItem) {
    tracker.Clear();
    EXPECT_EQ(log, "");
    tracker.Add(5, true);
    log.clear();
    tracker.Clear();
    EXPECT_TRUE(tracker.selected.empty());
    EXPECT_EQ(tracker.currentItem, -1);
    EXPECT_EQ(tracker.currentPart, -1);
    EXPECT_EQ(log, "s c-1 ");
}

TEST_F(SelectionTrackerTest, SnapshotAndRestoreCarryTheSetAndTheCurrentItem) {
    tracker.Add(3, true);
    tracker.Add(8, false);
    const SelectionTracker::Saved saved = tracker.Snapshot();
    tracker.Clear();
    tracker.SetHot(9, 2);
    log.clear();
    tracker.Restore(saved);
    EXPECT_EQ(tracker.Snapshot(), saved);
    EXPECT_EQ(tracker.hotItem, 9);
    EXPECT_EQ(log, "s ");
}

TEST_F(SelectionTrackerTest, NothingIsToldWhileNotifyIsOff) {
    tracker.notify = false;
    tracker.SetHot(1, 0);
    tracker.Add(1, true);
    tracker.Remove(1);
    tracker.Add(2, true);
    tracker.Clear();
    tracker.Restore({{4}, 4, 0});
    EXPECT_EQ(log, "");
    EXPECT_EQ(tracker.selected, (std::set<int>{4}));
}

}  // namespace
}  // namespace kovra
