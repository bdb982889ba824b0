#include "anim/playback.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace kovra {
namespace {

// A document whose animations have key frames of the given ticks, at 1200 ticks per second.
class PlaybackTest : public testing::Test {
protected:
    void SetUp() override { doc_.onFrameChanged.Add(this, &PlaybackTest::OnFrameChanged); }

    void SetAnims(const std::vector<std::pair<std::string, std::vector<std::uint32_t>>>& anims) {
        Wirrel wirrel;
        for (const auto& [name, ticks] : anims) {
            WirrelAnim anim;
            anim.name = MakeName(name);
            for (std::uint32_t t : ticks) {
                anim.keys.emplace_back().ticks = t;
            }
            wirrel.anims.push_back(anim);
        }
        doc_.SetWirrel(wirrel);
        doc_.cursor = PlayCursor{.animIndex = 0, .animName = MakeName(anims[0].first)};
    }

    void OnFrameChanged(int from, int to) { changes_.emplace_back(from, to); }

    WirrelDoc doc_;
    std::vector<std::pair<int, int>> changes_;
};

TEST_F(PlaybackTest, AdvanceStepsInTheCurrentFramesDurationAndTellsTheListeners) {
    SetAnims({{"walk", {1200, 2400, 0}}});
    doc_.Wirrel().anims[0].speed = 0.5f;
    Advance(doc_, 1.0f);
    EXPECT_EQ(doc_.cursor.framePos, 0.5f);
    EXPECT_TRUE(changes_.empty());
    // Measured in frame 0's one second, although the step ends in frame 1 of two seconds.
    Advance(doc_, 2.0f);
    EXPECT_EQ(doc_.cursor.framePos, 1.5f);
    EXPECT_EQ(doc_.cursor.frameIndex, 1u);
    EXPECT_EQ(changes_, (std::vector<std::pair<int, int>>{{0, 1}}));
    Advance(doc_, 0.0f);
    EXPECT_EQ(changes_.size(), 1u);
    // A frame without duration doesn't move.
    doc_.SetFrame(2);
    Advance(doc_, 1.0f);
    EXPECT_EQ(doc_.cursor.framePos, 2.0f);
}

TEST_F(PlaybackTest, AdvanceLoopsBackIntoTheAnimation) {
    struct Case {
        std::vector<std::uint32_t> ticks;
        float from, seconds, to;
    };
    for (const Case& c : std::vector<Case>{{{1200, 1200, 1200}, 2.9f, 0.2f, 0.1f},
                                           {{1200, 1200, 1200}, 2.5f, 0.499999f, 0.0f},
                                           {{1200, 1200}, 0.5f, 4.0f, 0.5f},
                                           {{1200}, 0.75f, 0.5f, 0.25f},
                                           {{1200}, 0.5f, 0.49999f, 0.0f}}) {
        SetAnims({{"walk", c.ticks}});
        doc_.cursor.framePos = c.from;
        doc_.cursor.frameIndex = static_cast<std::uint32_t>(c.from);
        Advance(doc_, c.seconds);
        EXPECT_NEAR(doc_.cursor.framePos, c.to, 1e-6f) << c.from << " + " << c.seconds;
        EXPECT_GE(doc_.cursor.framePos, 0.0f);
        EXPECT_EQ(doc_.cursor.frameIndex, static_cast<std::uint32_t>(c.to));
    }
}

TEST_F(PlaybackTest, ATransitionAdvancesTheAnimationLeftAndEnds) {
    SetAnims({{"walk", {1200, 1200}}, {"run", {2400, 2400, 2400}}});
    doc_.cursor.otherAnimName = MakeName("run");
    doc_.cursor.otherFramePos = 2.5f;
    doc_.cursor.blending = true;
    Advance(doc_, 0.6f);
    // The animation left moves by the seconds themselves, not by its frames' durations.
    EXPECT_NEAR(doc_.cursor.otherFramePos, 0.1f, 1e-6f);
    EXPECT_EQ(doc_.cursor.blendPos, 0.6f);
    EXPECT_TRUE(doc_.cursor.blending);
    Advance(doc_, 0.39999f);
    EXPECT_FALSE(doc_.cursor.blending);
}

TEST_F(PlaybackTest, SwitchAnimationRemembersTheOneLeft) {
    SetAnims({{"walk", {1200, 1200}}, {"run", {1200}}});
    doc_.cursor = PlayCursor{.animIndex = 0, .animName = MakeName("walk"), .frameIndex = 1, .framePos = 1.5f};
    doc_.cursor.blending = true;
    doc_.cursor.blendLength = 4.0f;
    SwitchAnimation(doc_, 1);
    const PlayCursor& c = doc_.cursor;
    EXPECT_EQ(c.animIndex, 1);
    EXPECT_EQ(NameOf(c.animName), "run");
    EXPECT_EQ(c.framePos, 0.0f);
    EXPECT_EQ(NameOf(c.otherAnimName), "walk");
    EXPECT_EQ(c.otherFrameIndex, 1u);
    EXPECT_EQ(c.otherFramePos, 1.5f);
    EXPECT_FALSE(c.blending);
    EXPECT_EQ(c.blendLength, 1.0f);
    // Switching to the current animation changes nothing; switching to none empties the name.
    doc_.cursor.framePos = 0.5f;
    SwitchAnimation(doc_, 1);
    EXPECT_EQ(c.framePos, 0.5f);
    SwitchAnimation(doc_, -1);
    EXPECT_EQ(NameOf(c.animName), "");
    EXPECT_EQ(NameOf(c.otherAnimName), "run");
}

TEST(SnapGrid, ConvertsBetweenTicksAndSnapCells) {
    const SnapGrid grid(4, 1200);
    EXPECT_EQ(grid.Rate(), 5);
    EXPECT_EQ(grid.TicksToSnaps(600), 2.5f);
    EXPECT_EQ(grid.SecondsToTicks(2.5f), 600);
    EXPECT_EQ(grid.SecondsToTicks(0.1f), 24);
    EXPECT_EQ(grid.SnapCells(3000), 13);
    EXPECT_EQ(grid.SnapCells(2880), 12);
    EXPECT_EQ(grid.DisplayedTicks(13), 3120);

    WirrelAnim anim;
    for (std::uint32_t t : {1920, 1080, 1200}) {
        anim.keys.emplace_back().ticks = t;
    }
    EXPECT_EQ(grid.SnapPositions(anim), (std::vector<std::int64_t>{0, 8, 12}));
    // Six frames of 700 ticks sum to a hair under 3.5 seconds in single precision; the seventh still
    // starts on cell 7.
    WirrelAnim even;
    even.keys.resize(7);
    for (WirrelKey& key : even.keys) {
        key.ticks = 700;
    }
    EXPECT_EQ(SnapGrid(1, 1200).SnapPositions(even).back(), 7);
}

TEST(SnapGrid, PositionOfSnapFindsTheFrameAndTheWayIntoIt) {
    WirrelAnim anim;
    for (std::uint32_t t : {1200, 2400, 1200}) {
        anim.keys.emplace_back().ticks = t;
    }
    for (const auto& [x, p] : std::vector<std::pair<float, float>>{
             {0.5f, 0.5f}, {2.0f, 1.5f}, {3.5f, 2.5f}, {0.999995f, 1.0f}, {5.0f, 3.0f}}) {
        EXPECT_FLOAT_EQ(SnapGrid(0, 1200).PositionOfSnap(anim, x), p) << x;
    }
}

}  // namespace
}  // namespace kovra
