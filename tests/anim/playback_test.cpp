#include "anim/playback.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace kovra {
namespace {

// An animation whose key frames last the given ticks, at the document's 1200 ticks per second.
WirrelAnim Anim(std::string_view name, const std::vector<std::uint32_t>& ticks) {
    WirrelAnim anim;
    anim.name = MakeName(name);
    for (std::uint32_t t : ticks) {
        anim.keys.emplace_back().ticks = t;
    }
    return anim;
}

// A document playing the first of its animations, recording the frame changes it tells its listeners.
class PlaybackTest : public testing::Test {
protected:
    void SetUp() override { doc_.onFrameChanged.Add(this, &PlaybackTest::OnFrameChanged); }

    void SetAnims(const std::vector<WirrelAnim>& anims) {
        Wirrel wirrel;
        wirrel.anims = anims;
        doc_.SetWirrel(wirrel);
        doc_.cursor = PlayCursor{.animIndex = 0, .animName = anims[0].name};
    }

    void OnFrameChanged(int from, int to) { changes_.emplace_back(from, to); }

    WirrelDoc doc_;
    std::vector<std::pair<int, int>> changes_;
};

TEST_F(PlaybackTest, AdvanceStepsInTheCurrentFramesDurationAndTellsTheListeners) {
    SetAnims({Anim("walk", {1200, 2400, 0})});
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
    using Case = std::tuple<std::vector<std::uint32_t>, float, float, float>;  // ticks, from, seconds, to
    for (const auto& [ticks, from, seconds, to] :
         std::vector<Case>{{{1200, 1200, 1200}, 2.9f, 0.2f, 0.1f},
                           {{1200, 1200, 1200}, 2.5f, 0.499999f, 0.0f},
                           {{1200, 1200}, 0.5f, 4.0f, 0.5f},
                           {{1200}, 0.75f, 0.5f, 0.25f},
                           {{1200}, 0.5f, 0.49999f, 0.0f}}) {
        SetAnims({Anim("walk", ticks)});
        doc_.cursor.framePos = from;
        doc_.cursor.frameIndex = static_cast<std::uint32_t>(from);
        Advance(doc_, seconds);
        EXPECT_NEAR(doc_.cursor.framePos, to, 1e-6f) << from << " + " << seconds;
        EXPECT_GE(doc_.cursor.framePos, 0.0f);
        EXPECT_EQ(doc_.cursor.frameIndex, static_cast<std::uint32_t>(to));
    }
}

TEST_F(PlaybackTest, ATransitionAdvancesTheAnimationLeftAndEnds) {
    SetAnims({Anim("walk", {1200, 1200}), Anim("run", {2400, 2400, 2400})});
    doc_.cursor = PlayCursor{.animIndex = 0, .animName = MakeName("walk"), .otherAnimName = MakeName("run"),
                             .otherFramePos = 2.5f, .blending = true};
    Advance(doc_, 0.6f);
    // The animation left moves by the seconds themselves, not by its frames' durations.
    EXPECT_NEAR(doc_.cursor.otherFramePos, 0.1f, 1e-6f);
    EXPECT_EQ(doc_.cursor.blendPos, 0.6f);
    EXPECT_TRUE(doc_.cursor.blending);
    Advance(doc_, 0.39999f);
    EXPECT_FALSE(doc_.cursor.blending);
}

TEST_F(PlaybackTest, SwitchAnimationRemembersTheOneLeft) {
    SetAnims({Anim("walk", {1200, 1200}), Anim("run", {1200})});
    doc_.cursor = PlayCursor{.animIndex = 0, .animName = MakeName("walk"), .frameIndex = 1, .framePos = 1.5f,
                             .blending = true, .blendLength = 4.0f};
    SwitchAnimation(doc_, 1);
    const PlayCursor& c = doc_.cursor;
    EXPECT_EQ(std::tuple(c.animIndex, NameOf(c.animName), c.frameIndex, c.framePos),
              std::tuple(1, "run", 0u, 0.0f));
    EXPECT_EQ(std::tuple(NameOf(c.otherAnimName), c.otherFrameIndex, c.otherFramePos),
              std::tuple("walk", 1u, 1.5f));
    EXPECT_EQ(std::tuple(c.blending, c.blendPos, c.blendLength), std::tuple(false, 0.0f, 1.0f));
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
    EXPECT_EQ(grid.SecondsToTicks(0.099f), 24);  // rounded, not cut
    EXPECT_EQ(grid.SnapCells(3000), 13);
    EXPECT_EQ(grid.SnapCells(2880), 12);
    EXPECT_EQ(grid.DisplayedTicks(13), 3120);

    EXPECT_EQ(grid.SnapPositions(Anim("", {1920, 1080, 1200})), (std::vector<std::int64_t>{0, 8, 12}));
    // Six frames of 700 ticks sum to a hair under 3.5 seconds in single precision; the seventh still
    // starts on cell 7.
    EXPECT_EQ(SnapGrid(1, 1200).SnapPositions(Anim("", std::vector<std::uint32_t>(7, 700))).back(), 7);
}

TEST(SnapGrid, PositionOfSnapFindsTheFrameAndTheWayIntoIt) {
    const WirrelAnim anim = Anim("", {1200, 2400, 1200});
    for (const auto& [x, p] : std::vector<std::pair<float, float>>{
             {0.5f, 0.5f}, {2.0f, 1.5f}, {3.5f, 2.5f}, {0.999995f, 1.0f}, {5.0f, 3.0f}}) {
        EXPECT_FLOAT_EQ(SnapGrid(0, 1200).PositionOfSnap(anim, x), p) << x;
    }
}

}  // namespace
}  // namespace kovra
