#include "base/listener_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Recorder {
    std::vector<std::string>* log;
    std::string name;
    void First(int v) { log->push_back(name + ".First" + std::to_string(v)); }
    void Second(int v) { log->push_back(name + ".Second" + std::to_string(v)); }
};

}  // namespace

TEST(ListenerList, CallsInOrderAndIdentifiesByObjectAndMethod) {
    std::vector<std::string> log;
    Recorder a{&log, "a"}, b{&log, "b"};
    aurel::ListenerList<int> list;
    list.Add(&b, &Recorder::First);
    list.Add(&a, &Recorder::First);
    list.Add(&a, &Recorder::Second);
    list.AddUnique(&a, &Recorder::First);  // already there: no-op
    EXPECT_EQ(list.size(), 3u);

    list.Call(7);
    EXPECT_EQ(log, (std::vector<std::string>{"b.First7", "a.First7", "a.Second7"}));

    // Same object, other method, and same method, other object, are different pairs.
    list.Remove(&a, &Recorder::First);
    EXPECT_TRUE(list.Contains(&a, &Recorder::Second));
    EXPECT_TRUE(list.Contains(&b, &Recorder::First));
    EXPECT_FALSE(list.Contains(&a, &Recorder::First));
}

TEST(ListenerList, PlainAddKeepsDuplicatesAndRemoveTakesThemAll) {
    std::vector<std::string> log;
    Recorder a{&log, "a"};
    aurel::ListenerList<int> list;
    list.Add(&a, &Recorder::First);
    list.Add(&a, &Recorder::First);
    list.Call(1);
    EXPECT_EQ(log.size(), 2u);
    list.Remove(&a, &Recorder::First);
    EXPECT_TRUE(list.empty());
}
