#include "views/timeline/frame_strip.h"

#include <gtest/gtest.h>

#include <cmath>

#include "anim/playback.h"

namespace kovra {
namespace {

std::vector<WirrelKey> Frames(std::initializer_list<std::uint32_t> ticks) {
    std::vector<WirrelKey> frames;
    for (std::uint32_t t : ticks) {
        WirrelKey key;
        key.ticks = t;
        frames.push_back(key);
    }
    return frames;
}

int SnapIndexOf(int rate) {
    for (int i = 0; i < static_cast<int>(kSnapRates.size()); ++i) {
        if (kSnapRates[i] == rate) {
            return i;
        }
    }
    return -1;
}

TEST(FrameStripTest, CellsAndTicksAtRatesThatDontDivide) {
    struct Row {
        std::uint32_t ticksPerSecond;
        int rate;
        std::uint64_t ticks;
        int cellOfTicks;
        int cell;
        std::uint64_t ticksOfCell;
    };
    const Row rows[] = {
        {1200, 1, 1199, 0, 3, 3600}, {1200, 1, 1200, 1, 0, 0},   {1000, 3, 333, 0, 1, 333},
        {1000, 3, 334, 1, 2, 667},   {1000, 3, 667, 2, 3, 1000}, {1200, 50, 23, 0, 1, 24},
        {1000, 60, 16, 0, 1, 17},    {1000, 60, 17, 1, 3, 50},   {100, 8, 12, 0, 1, 13},
        {100, 8, 13, 1, 3, 38},      {1200, 10, 839, 6, 7, 840}, {7, 15, 1, 2, 1, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.ticksPerSecond << " ticks/s at " << row.rate << "/s");
        const FrameStrip strip(row.ticksPerSecond, SnapIndexOf(row.rate));
        EXPECT_EQ(strip.Rate(), row.rate);
        EXPECT_EQ(strip.CellOfTicks(row.ticks), row.cellOfTicks);
        EXPECT_EQ(strip.TicksOfCell(row.cell), row.ticksOfCell);
    }
}

TEST(FrameStripTest, EveryCellEdgeOfEverySnapRate) {
    // 1200 ticks a second divide by every snap rate, so each cell edge is a whole tick: the tick on the
    // edge belongs to the cell it begins, the tick before to the cell before.
    for (int index = 0; index < static_cast<int>(kSnapRates.size()); ++index) {
        const FrameStrip strip(1200, index);
        for (int cell = 1; cell < 200; ++cell) {
            const std::uint64_t edge = strip.TicksOfCell(cell);
            ASSERT_EQ(edge, 1200u * static_cast<unsigned>(cell) / static_cast<unsigned>(kSnapRates[index]));
            ASSERT_EQ(strip.CellOfTicks(edge), cell);
            ASSERT_EQ(strip.CellOfTicks(edge - 1), cell - 1);
        }
    }
}

TEST(FrameStripTest, KeysLieInTheCellsWhereTheyBegin) {
    struct Row {
        int rate;
        std::vector<std::vector<int>> cellKeys;
    };
    const Row rows[] = {
        {1, {{0, 1, 2, 3}, {}, {}}},
        {10, {{0}, {1, 2}, {3}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.rate);
        FrameStrip strip(1200, SnapIndexOf(row.rate));
        strip.Rebuild(Frames({120, 60, 60, 1200}));
        EXPECT_EQ(strip.TotalTicks(), 1440u);
        EXPECT_EQ(strip.LastCell(), (1440 * row.rate + 1199) / 1200);
        EXPECT_FLOAT_EQ(strip.FrameTime(3), 0.2f);
        ASSERT_EQ(strip.CellCount(), static_cast<int>(row.cellKeys.size()));
        for (int c = 0; c < strip.CellCount(); ++c) {
            EXPECT_EQ(strip.CellKeys(c), row.cellKeys[c]) << "cell " << c;
        }
    }
    FrameStrip empty(1200, 0);
    empty.Rebuild({});
    EXPECT_EQ(empty.CellCount(), 0);
}

TEST(FrameStripTest, KeyTimeOfCellWalksTheFramesAndSnapsToWholeKeys) {
    struct Row {
        int rate;
        std::vector<std::uint32_t> ticks;
        int cell;
        float keyTime;
    };
    const Row rows[] = {
        {5, {1920, 600, 1200}, 0, 0.0f},           {5, {1920, 600, 1200}, 4, 0.5f},
        {5, {1920, 600, 1200}, 8, 1.0f},           {5, {1920, 600, 1200}, 9, 1.4f},
        {5, {1920, 600, 1200}, 10, 1.8f},          {5, {1920, 600, 1200}, 11, 2.1f},
        {5, {1920, 600, 1200}, 16, 3.0f},          {10, {120, 120, 120, 120}, 1, 1.0f},
        {10, {120, 120, 120, 120}, 2, 2.0f},       {10, {120, 120, 120, 120}, 3, 3.0f},
        {30, {120, 120, 120, 120}, 7, 2.3333333f}, {60, {40, 40, 40}, 5, 2.5f},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.rate << "/s, cell " << row.cell);
        FrameStrip strip(1200, SnapIndexOf(row.rate));
        std::vector<WirrelKey> frames;
        for (std::uint32_t t : row.ticks) {
            frames.push_back(Frames({t})[0]);
        }
        strip.Rebuild(frames);
        const float got = strip.KeyTimeOfCell(row.cell);
        if (row.keyTime == std::floor(row.keyTime)) {
            EXPECT_EQ(got, row.keyTime);
        } else {
            EXPECT_NEAR(got, row.keyTime, 1e-5f);
        }
    }
}

}  // namespace
}  // namespace kovra
