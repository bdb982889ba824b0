#include "settings/mru_list.h"

#include <gtest/gtest.h>

using aurel::DualString;
using aurel::MruList;
using aurel::SettingsStore;

TEST(MruList, NewestFirstCappedAndWrittenBack) {
    SettingsStore store;
    {
        MruList list(store, 8);
        EXPECT_TRUE(list.Paths().empty());
        for (int i = 1; i <= 9; ++i) {
            list.Add(DualString("/f" + std::to_string(i)));
        }
        ASSERT_EQ(list.Paths().size(), 8u);  // the ninth pushed out the oldest
        EXPECT_EQ(list.Paths().front().Utf8(), "/f9");
        EXPECT_EQ(list.Paths().back().Utf8(), "/f2");

        list.Add(DualString("/f5"));  // a repeat moves to the front without growing
        EXPECT_EQ(list.Paths().front().Utf8(), "/f5");
        EXPECT_EQ(list.Paths().size(), 8u);
        list.Remove(DualString("/f9"));
        EXPECT_EQ(list.Paths().size(), 7u);
    }
    store.Select("App");
    const std::vector<DualString> saved = store.GetStrings("MRU");
    ASSERT_EQ(saved.size(), 7u);
    EXPECT_EQ(saved[0].Utf8(), "/f5");

    MruList smaller(store, 3);  // a longer stored list is cut to the capacity
    EXPECT_EQ(smaller.Paths().size(), 3u);
}

TEST(MruList, EmptyListWritesNothing) {
    SettingsStore store;
    { MruList list(store, 8); }
    store.Select("App");
    EXPECT_FALSE(store.Exists("MRU"));
}
