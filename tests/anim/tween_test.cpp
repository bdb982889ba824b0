#include "anim/tween.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "anim/forward.h"

namespace kovra {
namespace {

constexpr float kStale = 5.0f;  // the angle of a tweened record before it is recomputed

struct TweenCase {
    std::string name;
    std::vector<std::uint32_t> ticks;  // one per key frame
    std::vector<float> keys;           // the pin's angle in each key frame; NAN where it is tweened
    int edited;
    std::vector<float> expected;  // the pin's angle in each key frame afterwards
};

// Key frames with a root (id 0) and a bone on it (id 1); in odd frames the two records are swapped.
std::vector<WirrelKey> FramesOf(const TweenCase& c) {
    std::vector<WirrelKey> frames;
    for (std::size_t k = 0; k < c.ticks.size(); ++k) {
        const bool keyed = !std::isnan(c.keys[k]);
        WirrelPin root{.length = 1.0f, .flags = Root, .id = 0};
        WirrelPin bone{
            .angle = keyed ? c.keys[k] : kStale, .length = 2.0f, .flags = keyed ? 0 : kPinTweened, .id = 1};
        WirrelKey key;
        key.ticks = c.ticks[k];
        if (k % 2 == 0) {
            bone.parent = 0;
            key.pins = {root, bone};
        } else {
            bone.parent = 1;
            key.pins = {bone, root};
        }
        frames.push_back(key);
    }
    return frames;
}

class RetweenCases : public testing::TestWithParam<TweenCase> {};

TEST_P(RetweenCases, RecomputesTheInBetweensUpToTheNearestKeys) {
    const TweenCase& c = GetParam();
    std::vector<WirrelKey> frames = FramesOf(c);
    const std::vector<WirrelKey> before = frames;
    Retween(frames, c.edited, 1);
    for (std::size_t k = 0; k < frames.size(); ++k) {
        const int index = IndexOfId(frames[k].pins, 1, -1);
        const WirrelPin& pin = frames[k].pins[index];
        const WirrelPin& old = before[k].pins[index];
        EXPECT_NEAR(pin.angle, c.expected[k], 1e-6f) << "frame " << k;
        EXPECT_EQ(pin.parent, old.parent) << "frame " << k;
        EXPECT_EQ(pin.flags & kPinTweened, old.flags & kPinTweened) << "frame " << k;
        EXPECT_EQ(pin.length, 2.0f);
        EXPECT_EQ(frames[k].pins[1 - index], before[k].pins[1 - index]) << "the root moved in frame " << k;
    }
}

const float kTweened = NAN;

INSTANTIATE_TEST_SUITE_P(Cases, RetweenCases,
                         testing::Values(TweenCase{"KeyedInFramesZeroAndNine",
                                                   {100, 100, 100, 100, 300, 100, 100, 100, 100, 100},
                                                   {0.0f, kTweened, kTweened, kTweened, kTweened, kTweened,
                                                    kTweened, kTweened, kTweened, 1.1f},
                                                   9,
                                                   {0.0f, 0.1f, 0.2f, 0.3f, 0.4f, 0.7f, 0.8f, 0.9f, 1.0f,
                                                    1.1f}},
                                         TweenCase{"FrameZeroOnlyTweensForward",
                                                   {100, 100, 100, 100, 100, 100, 100},
                                                   {0.0f, kTweened, kTweened, kTweened, 0.8f, kTweened, 2.0f},
                                                   0,
                                                   {0.0f, 0.2f, 0.4f, 0.6f, 0.8f, kStale, 2.0f}},
                                         TweenCase{"LastFrameDoesNotWrapForward",
                                                   {100, 100, 100, 100, 100},
                                                   {0.0f, kTweened, 1.0f, kTweened, 2.0f},
                                                   4,
                                                   {0.0f, kStale, 1.0f, 1.5f, 2.0f}},
                                         TweenCase{"OnlyKeyWrapsAroundToItself",
                                                   {100, 200, 300, 400, 500},
                                                   {kTweened, kTweened, kTweened, 1.5f, kTweened},
                                                   3,
                                                   {1.5f, 1.5f, 1.5f, 1.5f, 1.5f}},
                                         TweenCase{"AFrameOfNoDurationTakesItsPredecessorsEnd",
                                                   {100, 0, 100, 100},
                                                   {0.0f, kTweened, kTweened, 0.3f},
                                                   3,
                                                   {0.0f, 0.15f, 0.15f, 0.3f}},
                                         TweenCase{"KeyInTheMiddleTweensBothSides",
                                                   {100, 100, 100, 100, 100},
                                                   {0.0f, kTweened, 1.0f, kTweened, 2.0f},
                                                   2,
                                                   {0.0f, 0.5f, 1.0f, 1.5f, 2.0f}}),
                         [](const testing::TestParamInfo<TweenCase>& info) { return info.param.name; });

TEST(Tween, NothingHappensUnlessTheStartComesFirst) {
    TweenCase c{"", {100, 100, 100}, {0.0f, kTweened, 1.0f}, 0, {}};
    std::vector<WirrelKey> frames = FramesOf(c);
    const std::vector<WirrelKey> before = frames;
    Tween(frames, 2, 2, 1);
    Tween(frames, 2, 0, 1);
    EXPECT_EQ(frames, before);
}

}  // namespace
}  // namespace kovra
