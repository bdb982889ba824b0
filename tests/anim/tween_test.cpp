#include "anim/tween.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "anim/forward.h"

namespace kovra {
namespace {

constexpr float kTweened = NAN;  // a key frame where the pin is tweened
constexpr float kStale = 5.0f;   // the angle of a tweened record before it is recomputed

struct Frame {
    std::uint32_t ticks;
    float key;       // the pin's angle where it is keyed
    float expected;  // its angle after the retween
};

struct TweenCase {
    std::string name;
    int edited;
    std::vector<Frame> frames;
};

class RetweenCases : public testing::TestWithParam<TweenCase> {};

// Key frames of a root (id 0) and a bone on it (id 1), the two records swapped in odd frames.
TEST_P(RetweenCases, RecomputesTheInBetweensUpToTheNearestKeys) {
    const TweenCase& c = GetParam();
    std::vector<WirrelKey> frames(c.frames.size());
    for (std::size_t k = 0; k < frames.size(); ++k) {
        const bool keyed = !std::isnan(c.frames[k].key);
        WirrelPin root{.length = 1.0f, .flags = Root, .id = 0};
        WirrelPin bone{
            .angle = keyed ? c.frames[k].key : kStale, .length = 2.0f, .flags = keyed ? 0 : kPinTweened};
        bone.parent = static_cast<int>(k % 2);
        bone.id = 1;
        frames[k].pins = k % 2 == 0 ? Pose{root, bone} : Pose{bone, root};
        frames[k].ticks = c.frames[k].ticks;
    }
    const std::vector<WirrelKey> before = frames;
    Retween(frames, c.edited, 1);
    for (std::size_t k = 0; k < frames.size(); ++k) {
        const int index = static_cast<int>((k + 1) % 2);
        const WirrelPin& pin = frames[k].pins[index];
        EXPECT_NEAR(pin.angle, c.frames[k].expected, 1e-6f) << "frame " << k;
        EXPECT_EQ(pin.parent, before[k].pins[index].parent) << "frame " << k;
        EXPECT_EQ(pin.flags, before[k].pins[index].flags) << "frame " << k;
        EXPECT_EQ(frames[k].pins[1 - index], before[k].pins[1 - index]) << "the root changed in frame " << k;
    }
}

constexpr float T = kTweened;

// clang-format off: one key frame per column
INSTANTIATE_TEST_SUITE_P(
    Cases, RetweenCases,
    testing::Values(TweenCase{"KeyedInFramesZeroAndNine",
                              9,
                              {{100, 0, 0},
                               {100, T, 0.1f},
                               {100, T, 0.2f},
                               {100, T, 0.3f},
                               {300, T, 0.4f},
                               {100, T, 0.7f},
                               {100, T, 0.8f},
                               {100, T, 0.9f},
                               {100, T, 1.0f},
                               {100, 1.1f, 1.1f}}},
                    TweenCase{"FrameZeroOnlyTweensForward",
                              0,
                              {{100, 0, 0},
                               {100, T, 0.2f},
                               {100, T, 0.4f},
                               {100, T, 0.6f},
                               {100, 0.8f, 0.8f},
                               {100, T, kStale},
                               {100, 2, 2}}},
                    TweenCase{"LastFrameDoesNotWrapForward",
                              4,
                              {{100, 0, 0}, {100, T, kStale}, {100, 1, 1}, {100, T, 1.5f}, {100, 2, 2}}},
                    TweenCase{"KeyInTheMiddleTweensBothSides",
                              2,
                              {{100, 0, 0}, {100, T, 0.5f}, {100, 1, 1}, {100, T, 1.5f}, {100, 2, 2}}},
                    TweenCase{
                        "OnlyKeyWrapsAroundToItself",
                        3,
                        {{100, T, 1.5f}, {200, T, 1.5f}, {300, T, 1.5f}, {400, 1.5f, 1.5f}, {500, T, 1.5f}}},
                    TweenCase{"AFrameOfNoDurationTakesItsPredecessorsEnd",
                              3,
                              {{100, 0, 0}, {0, T, 0.15f}, {100, T, 0.15f}, {100, 0.3f, 0.3f}}}),
    [](const testing::TestParamInfo<TweenCase>& info) { return info.param.name; });
// clang-format on

}  // namespace
}  // namespace kovra
