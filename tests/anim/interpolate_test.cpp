#include "anim/interpolate.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "pose_builder.h"

namespace kovra {
namespace {

using test::PoseAt;
using test::World;

Pose Interpolated(const Pose& a, const Pose& b, float t) {
    Pose out;
    Interpolate(out, a, b, t);
    return out;
}

void ExpectSameWorld(const Pose& a, const Pose& b, float tolerance) {
    const std::vector<WorldPoint> wa = World(a), wb = World(b);
    ASSERT_EQ(wa.size(), wb.size());
    for (std::size_t i = 0; i < wa.size(); ++i) {
        EXPECT_LT(test::DistanceTo(wa[i], wb[i].x, wb[i].y), tolerance) << "pin " << wa[i].id;
    }
}

TEST(Interpolate, AnglesTakeTheShorterWayRelativeToTheParent) {
    constexpr float kDegree = std::numbers::pi_v<float> / 180.0f;
    for (const auto& [parentAngle, from, to, t, expected] :
         std::vector<std::array<float, 5>>{{0, 350, 10, 0.5f, 0},
                                           {0, 10, 350, 0.5f, 0},
                                           {1, 350, 10, 0.25f, 355},
                                           {2, 170, 190, 0.5f, 180},
                                           {6, 0, 90, 0.25f, 22.5f}}) {
        // Root 0, bone 1 on it at the parent angle, bone 2 on bone 1.
        Pose a = PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}});
        a[1].angle = parentAngle;
        Pose b = a;
        a[2].angle = NormalizeAngle(parentAngle + from * kDegree);
        b[2].angle = NormalizeAngle(parentAngle + to * kDegree);
        const Pose out = Interpolated(a, b, t);
        const float gap = std::fmod(std::fabs(out[2].angle - parentAngle - expected * kDegree), kTwoPi);
        EXPECT_LT(std::min(gap, kTwoPi - gap), 1e-5f) << from << " to " << to;  // the shorter way round
        EXPECT_EQ(out[2].flags & kPinMark, 0u);
    }
}

// Pin 5 hangs off 2 in the first frame and off 4 in the second, where its parent's chain stands elsewhere.
// The second frame comes as it is and with its records in reverse order: pins are matched by id.
TEST(Interpolate, AReparentedBoneRunsFromTheFirstPoseToTheSecondWithoutAJump) {
    const Pose a = PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {0, 0, 1}, {3, -1, 1}, {2, 3, 0}});
    const Pose b = PoseAt({{-1, 0, 0}, {0, 1, 1}, {1, 1, 2}, {0, 0, 1}, {3, -1, 1}, {4, -2, 2}});
    Pose reversed(b.rbegin(), b.rend());
    for (WirrelPin& pin : reversed) {
        pin.parent = pin.parent < 0 ? -1 : 5 - pin.parent;
    }
    for (const Pose& second : {b, reversed}) {
        ExpectSameWorld(Interpolated(a, second, 0.0f), a, 1e-6f);
        ExpectSameWorld(Interpolated(a, second, 1.0f), b, 1e-5f);
        const WorldPoint almost = World(Interpolated(a, second, 0.999f))[5];
        EXPECT_LT(test::DistanceTo(almost, World(b)[5].x, World(b)[5].y), 0.01f);
    }
    EXPECT_EQ(Interpolated(a, b, 0.0f)[5].parent, 2);
}

TEST(Interpolate, RootsGoStraightInXAndY) {
    Pose a = PoseAt({{-1, 2, 0}});
    a[0].scale = 3.0f;
    const Pose out = Interpolated(a, PoseAt({{-1, 0, 2}}), 0.5f);
    EXPECT_NEAR(out[0].angle, std::numbers::pi_v<float> / 4, 1e-6f);
    EXPECT_NEAR(out[0].length, std::sqrt(2.0f), 1e-6f);
    EXPECT_EQ(out[0].scale, 0.0f);
}

TEST(Interpolate, HiddenPinsKeepTheirRelativeAngle) {
    Pose a = PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 1, 1}, {2, 1, 2}});
    a[1].angle = 1.0f;
    a[2].angle = 1.5f;
    a[2].flags |= kPinHidden;
    const Pose out = Interpolated(a, a, 0.5f);
    EXPECT_EQ(out[1].flags & kPinMark, 0u);
    EXPECT_EQ(out[2].flags & kPinMark, kPinMark);
    EXPECT_NEAR(out[2].angle, 0.5f, 1e-6f);
    EXPECT_EQ(out[3].flags & kPinMark, kPinMark);  // its child can't resolve either and stays relative
}

// An animation of the given poses, each a key frame of 1200 ticks.
WirrelAnim AnimationOf(std::string_view name, const std::vector<Pose>& poses) {
    WirrelAnim anim;
    anim.name = MakeName(name);
    for (const Pose& pose : poses) {
        anim.keys.push_back(WirrelKey{.pins = pose, .ticks = 1200});
    }
    return anim;
}

// Walk has key frames with its root at (0, 0), (4, 0) and (2, 0), jump one with it at (0, 8), stand one of
// three pins.
TEST(EvaluatePose, SamplesTheKeyFramesAroundThePlayPosition) {
    const Pose stand = PoseAt({{-1, 1, 0}, {0, 2, 1}, {1, 2, 3}});
    Wirrel wirrel;
    wirrel.anims = {AnimationOf("walk", {PoseAt({{-1, 0, 0}}), PoseAt({{-1, 4, 0}}), PoseAt({{-1, 2, 0}})}),
                    AnimationOf("jump", {PoseAt({{-1, 0, 8}})}), AnimationOf("stand", {stand})};
    Pose out;
    ASSERT_TRUE(EvaluatePose(wirrel, PlayCursor{.animIndex = 0, .frameIndex = 2, .framePos = 2.25f}, out));
    EXPECT_NEAR(World(out)[0].x, 1.5f, 1e-6f);  // the last frame runs toward the first
    // A transition a quarter of the way from jump to walk, at (2, 0).
    const PlayCursor blending{.animIndex = 0, .framePos = 0.5f, .otherAnimName = MakeName("jump"), .blending = true,
                              .blendPos = 0.25f};
    ASSERT_TRUE(EvaluatePose(wirrel, blending, out));
    EXPECT_LT(test::DistanceTo(World(out)[0], 0.5f, 6.0f), 1e-6f);
    ASSERT_TRUE(EvaluatePose(wirrel, PlayCursor{.animIndex = 2, .framePos = 0.7f}, out));
    ExpectSameWorld(out, stand, 1e-6f);  // a single frame stands
    EXPECT_FALSE(EvaluatePose(wirrel, PlayCursor{.animIndex = 0, .frameIndex = 3}, out));
}

TEST(EvaluateSkins, OneRecordPerPinLinearWithoutTheShorterArc) {
    // Pin 0 has no skin and then skin 1; pin 1 goes from skin 0 to skin 1; pin 2 has skin 0 and then none.
    Pose first = PoseAt({{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}});
    Pose second = first;
    first[1].skin = first[2].skin = 0;
    second[0].skin = second[1].skin = 1;
    Wirrel wirrel;
    wirrel.anims = {AnimationOf("walk", {first, second})};
    wirrel.skins = {
        WirrelSkin{.texture = 2, .offsetX = 0, .offsetY = 2, .scaleX = 1, .scaleY = 1, .angle = 6.0f},
        WirrelSkin{.texture = 4, .offsetX = 10, .offsetY = 0, .scaleX = 2, .scaleY = 3, .angle = 0.2f}};
    std::vector<WirrelSkin> skins;
    ASSERT_TRUE(EvaluateSkins(wirrel, PlayCursor{.animIndex = 0, .framePos = 0.5f}, skins));
    ASSERT_EQ(skins.size(), 3u);
    EXPECT_EQ(skins[0], WirrelSkin{});
    EXPECT_EQ(
        skins[1],
        (WirrelSkin{.texture = 2, .offsetX = 5, .offsetY = 1, .scaleX = 1.5f, .scaleY = 2, .angle = 3.1f}));
    EXPECT_EQ(skins[2], wirrel.skins[0]);
}

}  // namespace
}  // namespace kovra
