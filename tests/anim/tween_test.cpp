#include "anim/tween.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "anim/forward.h"

namespace kovra {
namespace {

constexpr float T = NAN;        // a key frame where the pin is tweened
constexpr float kStale = 5.0f;  // the angle of a tweened record before it is recomputed

// One column per key frame: its ticks, the pin's angle where it is keyed (T where it is tweened), and its
// angle after the retween of key frame `edited`.
struct TweenCase {
    std::string name;
    int edited;
    std::vector<std::uint32_t> ticks;
    std::vector<float> keys, expected;
};

class RetweenCases : public testing::TestWithParam<TweenCase> {};

// Key frames of a root (id 0) and a bone on it (id 1), the two records swapped in odd frames.
TEST_P(RetweenCases, RecomputesTheInBetweensUpToTheNearestKeys) {
    const TweenCase& c = GetParam();
    std::vector<WirrelKey> frames;
    for (std::size_t k = 0; k < c.ticks.size(); ++k) {
        const bool keyed = !std::isnan(c.keys[k]);
        const WirrelPin root{.length = 1.0f, .flags = Root, .id = 0};
        WirrelPin bone{.angle = keyed ? c.keys[k] : kStale, .length = 2.0f, .flags = keyed ? 0 : kPinTweened};
        bone.parent = static_cast<int>(k % 2);
        bone.id = 1;
        frames.push_back(
            WirrelKey{.pins = k % 2 == 0 ? Pose{root, bone} : Pose{bone, root}, .ticks = c.ticks[k]});
    }
    const std::vector<WirrelKey> before = frames;
    Retween(frames, c.edited, 1);
    for (std::size_t k = 0; k < frames.size(); ++k) {
        // Only the bone's angle changes: its parent index and flags stay those of its own frame.
        const int index = static_cast<int>((k + 1) % 2);
        EXPECT_NEAR(frames[k].pins[index].angle, c.expected[k], 1e-6f) << "frame " << k;
        frames[k].pins[index].angle = before[k].pins[index].angle;
        EXPECT_EQ(frames[k], before[k]) << "frame " << k;
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, RetweenCases, testing::Values(
    TweenCase{"KeyedInFramesZeroAndNine", 9,
              {100, 100,  100,  100,  300,  100,  100,  100,  100,  100},
              {0,   T,    T,    T,    T,    T,    T,    T,    T,    1.1f},
              {0,   0.1f, 0.2f, 0.3f, 0.4f, 0.7f, 0.8f, 0.9f, 1.0f, 1.1f}},
    TweenCase{"FrameZeroOnlyTweensForward", 0,
              {100, 100,  100,  100,  100,  100,    100},
              {0,   T,    T,    T,    0.8f, T,      2},
              {0,   0.2f, 0.4f, 0.6f, 0.8f, kStale, 2}},
    // Frames 0 and 1 lie between the keys of frames 4 and 2 only by wrapping round.
    TweenCase{"LastFrameDoesNotWrapForward", 4,
              {100,    100,    100, 100,  100},
              {T,      T,      1,   T,    2},
              {kStale, kStale, 1,   1.5f, 2}},
    TweenCase{"KeyInTheMiddleTweensBothSides", 2,
              {100, 100,  100, 100,  100},
              {0,   T,    1,   T,    2},
              {0,   0.5f, 1,   1.5f, 2}},
    TweenCase{"OnlyKeyWrapsAroundToItself", 3,
              {100,  200,  300,  400,  500},
              {T,    T,    T,    1.5f, T},
              {1.5f, 1.5f, 1.5f, 1.5f, 1.5f}},
    TweenCase{"AFrameOfNoDurationTakesItsPredecessorsEnd", 3,
              {100, 0,     100,   100},
              {0,   T,     T,     0.3f},
              {0,   0.15f, 0.15f, 0.3f}}),
    [](const testing::TestParamInfo<TweenCase>& info) { return info.param.name; });
// clang-format on

}  // namespace
}  // namespace kovra
