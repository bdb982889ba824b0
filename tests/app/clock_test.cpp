#include "app/clock.h"

#include <gtest/gtest.h>

TEST(Clock, CountsOnlyWhileRunningAndForgetsAfterReset) {
    double now = 1000.0;
    aurel::Clock clock([&] { return now; });
    now = 1500.0;
    EXPECT_EQ(clock.Take(), 0.0);  // paused until resumed

    clock.Resume();
    now = 1516.0;
    EXPECT_EQ(clock.Take(), 16.0);
    EXPECT_EQ(clock.Take(), 0.0);

    now = 5000.0;  // a long blocking action, then a reset: the next frame doesn't see it
    clock.Reset();
    now = 5010.0;
    EXPECT_EQ(clock.Take(), 10.0);

    now = 5020.0;
    clock.Pause();  // the time up to the pause still counts
    now = 9000.0;
    EXPECT_EQ(clock.Take(), 10.0);
}
