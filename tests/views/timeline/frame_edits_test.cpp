#include "views/timeline/frame_edits.h"

#include <gtest/gtest.h>

#include <utility>

namespace kovra {
namespace {

// Frames named by their eventFirst, so that a test can follow them through a move.
std::vector<WirrelKey> Named(std::initializer_list<std::pair<int, std::uint32_t>> list) {
    std::vector<WirrelKey> frames;
    for (const auto& [name, ticks] : list) {
        WirrelKey key;
        key.eventFirst = name;
        key.ticks = ticks;
        frames.push_back(key);
    }
    return frames;
}

std::vector<std::pair<int, std::uint32_t>> Names(const std::vector<WirrelKey>& frames) {
    std::vector<std::pair<int, std::uint32_t>> out;
    for (const WirrelKey& key : frames) {
        out.emplace_back(key.eventFirst, key.ticks);
    }
    return out;
}

TEST(FrameEditsTest, MoveAndCopyWithAndWithoutRipple) {
    struct Row {
        const char* what;
        KeyMove move;
        std::vector<std::pair<int, std::uint32_t>> after;
        int placed;
    };
    const Row rows[] = {
        {"move into the frame before", {1, 15, false, false}, {{0, 15}, {1, 5}, {2, 10}}, 1},
        {"move into the frame after", {1, 25, false, false}, {{0, 20}, {2, 5}, {1, 5}}, 2},
        {"move onto a key replaces it", {1, 20, false, false}, {{0, 20}, {1, 10}}, 1},
        {"copy", {1, 25, true, false}, {{0, 10}, {1, 10}, {2, 5}, {1, 5}}, 3},
        {"move past the end", {2, 40, false, false}, {{0, 10}, {1, 30}, {2, 10}}, 2},
        {"the first key's time goes to the next", {0, 25, false, false}, {{1, 20}, {2, 5}, {0, 5}}, 2},
        {"ripple move closes and opens the gap", {1, 15, false, true}, {{0, 10}, {2, 5}, {1, 15}}, 2},
        {"ripple move past the end", {1, 25, false, true}, {{0, 10}, {2, 15}, {1, 10}}, 2},
        {"ripple copy opens a gap", {1, 5, true, true}, {{0, 5}, {1, 15}, {1, 10}, {2, 10}}, 1},
        {"ripple insert before a key",
         {2, 10, false, true, DropMode::Insert},
         {{0, 10}, {2, 10}, {1, 10}},
         1},
        {"ripple replace", {2, 10, false, true, DropMode::Replace}, {{0, 10}, {2, 10}}, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        std::vector<WirrelKey> frames = Named({{0, 10}, {1, 10}, {2, 10}});
        EXPECT_EQ(MoveKey(frames, row.move), row.placed);
        EXPECT_EQ(Names(frames), row.after);
    }
}

TEST(FrameEditsTest, ResizeRemovesFromTheEndOrLengthensOneFrame) {
    struct Row {
        std::uint64_t ticks;
        int fromFrame;
        bool ok;
        std::vector<std::pair<int, std::uint32_t>> after;
    };
    const Row rows[] = {
        {25, -1, true, {{0, 10}, {1, 10}, {2, 5}}},
        {20, -1, true, {{0, 10}, {1, 10}}},
        {5, -1, true, {{0, 5}}},
        {40, -1, true, {{0, 10}, {1, 10}, {2, 20}}},
        {40, 0, true, {{0, 20}, {1, 10}, {2, 10}}},
        {0, -1, false, {{0, 10}, {1, 10}, {2, 10}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.ticks);
        std::vector<WirrelKey> frames = Named({{0, 10}, {1, 10}, {2, 10}});
        EXPECT_EQ(ResizeFrames(frames, row.ticks, row.fromFrame), row.ok);
        EXPECT_EQ(Names(frames), row.after);
    }
}

TEST(FrameEditsTest, KeyBetweenSplitsTheFrameThatHoldsTheTick) {
    std::vector<WirrelKey> frames = Named({{0, 100}, {1, 300}});
    WirrelPin root;
    root.SetType(Root);
    root.length = 1.0f;
    frames[0].pins = {root};
    root.length = 3.0f;
    frames[1].pins = {root};
    int previous = -1;
    const WirrelKey mid = KeyBetween(frames, 50, previous);
    EXPECT_EQ(previous, 0);
    EXPECT_EQ(mid.ticks, 50u);
    ASSERT_EQ(mid.pins.size(), 1u);
    EXPECT_NEAR(mid.pins[0].length, 2.0f, 1e-5f);
    // In the last frame the pose runs back towards the first.
    const WirrelKey wrap = KeyBetween(frames, 325, previous);
    EXPECT_EQ(previous, 1);
    EXPECT_EQ(wrap.ticks, 75u);
    EXPECT_NEAR(wrap.pins[0].length, 1.5f, 1e-5f);
}

}  // namespace
}  // namespace kovra
