#include "anim/ik_solver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "pose_builder.h"

namespace kovra {
namespace {

using test::DistanceTo;
using test::PinAt;
using test::PoseAt;
using test::World;

TEST(BuildPath, RunsUpToTheCommonAncestorAndDownAgain) {
    // 0 is the root of 1 -> 2 and of 3 -> 4, with bones 1, 2, 4, 8 long; 5 is a second root.
    const Pose pose = PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 3, 0}, {0, 0, 4}, {3, 0, 12}, {-1, 5, 5}});
    // Each link written as its pin followed by "u" (up), "d" (down) or nothing; no path when empty.
    for (const auto& [from, to, written, length] :
         std::vector<std::tuple<int, int, std::string, double>>{{4, 2, "2u 1u 0 3d 4d ", 15.0},
                                                                {0, 2, "2u 1u 0 ", 3.0},
                                                                {2, 0, "0 1d 2d ", 3.0},
                                                                {2, 2, "", 0.0},
                                                                {5, 2, "", 0.0}}) {
        std::vector<IkLink> path{{9, 1, 1}};
        double sum = -1.0;
        EXPECT_EQ(BuildPath(pose, from, to, path, sum), !written.empty()) << from << " to " << to;
        std::string text;
        for (const IkLink& link : path) {
            text += std::to_string(link.pin) + (link.up ? "u" : "") + (link.down ? "d" : "") + " ";
        }
        EXPECT_EQ(text, written);
        EXPECT_EQ(sum, length);
    }
}

struct SolveCase {
    std::string name;
    std::vector<PinAt> pins;
    std::set<int> locks;
    int hot;
    Vec2 goal;
    std::map<int, Vec2> expected;  // world positions after the solve
    bool rotateSideTrees = false;
};

class SolveIkCases : public testing::TestWithParam<SolveCase> {};

TEST_P(SolveIkCases, ReachesWhatItCanAndKeepsLengths) {
    const SolveCase& c = GetParam();
    Pose pose = PoseAt(c.pins);
    const Pose before = pose;
    ASSERT_TRUE(SolveIk(pose, c.locks, c.hot, c.goal, 100, c.rotateSideTrees));
    const std::vector<WorldPoint> world = World(pose);
    for (const auto& [pin, at] : c.expected) {
        EXPECT_LT(DistanceTo(world[pin], at.x, at.y), 1e-3f) << "pin " << pin;
    }
    for (std::size_t i = 0; i < pose.size(); ++i) {
        EXPECT_TRUE(std::isfinite(world[i].x) && std::isfinite(world[i].y)) << i;
        EXPECT_TRUE(pose[i].parent < 0 || pose[i].length == before[i].length) << i;
    }
}

// A two-bone arm from the origin, straight and bent; the arm with a thumb (3) off the elbow and a finger (4)
// off the hand; five pins in a line; a line with a zero-length bone; a body whose pelvis (0) carries a leg
// (1, 2) and a spine with an arm (3, 4, 5); a pin with three branches.
const std::vector<PinAt> kArm = {{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}};
const std::vector<PinAt> kBent = {{-1, 0, 0}, {0, 1, 0}, {1, 1, 1}};
const std::vector<PinAt> kHand = {{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {1, 1, 0.5f}, {2, 2.5f, 0}};
const std::vector<PinAt> kLine = {{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {2, 3, 0}, {3, 4, 0}};
const std::vector<PinAt> kZero = {{-1, 0, 0}, {0, 1, 0}, {1, 1, 0}, {2, 2, 0}};
const std::vector<PinAt> kBody = {{-1, 0, 0}, {0, 0, -1}, {1, 0, -2}, {0, 0, 1}, {3, 1, 1}, {4, 2, 1}};
const std::vector<PinAt> kStar = {{-1, 0, 0}, {0, -1, -1}, {1, -2, -2}, {0, 1, -1},
                                  {3, 2, -2}, {0, 0, 1},   {5, 0, 2}};

// Out of the arm's reach from where the pelvis stands, a target on another branch than the lock moves
// the pelvis, their common ancestor. A target on the locked pin leaves the bone to it without direction:
// it takes that of a zero vector. The hand's bone turns a quarter, and the finger moves with the hand,
// turned with the bone or not.
INSTANTIATE_TEST_SUITE_P(
    EdgeCases, SolveIkCases,
    testing::Values(
        SolveCase{"NoLockHeldAtTheRoot", kArm, {}, 2, {1, 1}, {{0, {0, 0}}, {2, {1, 1}}}},
        SolveCase{"UnreachableStraight", kArm, {}, 2, {0, 5}, {{0, {0, 0}}, {1, {0, 1}}, {2, {0, 2}}}},
        SolveCase{"LockOnAnotherBranch", kBody, {2}, 5, {3.5f, -0.5f}, {{2, {0, -2}}, {5, {3.5f, -0.5f}}}},
        SolveCase{"TargetOnTheLockedPin", kBent, {1}, 2, {1, 0}, {{1, {1, 0}}, {2, {2, 0}}}},
        SolveCase{"InnerLock", kLine, {0, 2}, 4, {3, 1.5f}, {{0, {0, 0}}, {1, {1, 0}}, {4, {3, 1.5f}}}},
        SolveCase{
            "Junction", kStar, {2, 4}, 6, {0.5f, 1.5f}, {{2, {-2, -2}}, {4, {2, -2}}, {6, {0.5f, 1.5f}}}},
        SolveCase{"JunctionOutOfReach", kStar, {2, 4}, 6, {0, 9}, {{2, {-2, -2}}, {4, {2, -2}}}},
        SolveCase{"ZeroLengthBone", kZero, {}, 3, {1.5f, 0.8f}, {{0, {0, 0}}, {3, {1.5f, 0.8f}}}},
        SolveCase{"SideTreesTranslate", kHand, {}, 2, {1, 1}, {{3, {1, 0.5f}}, {4, {1.5f, 1}}}},
        SolveCase{
            "SideTreesTurnWithTheirBone", kHand, {}, 2, {1, 1}, {{3, {1, 0.5f}}, {4, {1, 1.5f}}}, true}),
    [](const testing::TestParamInfo<SolveCase>& info) { return info.param.name; });

TEST(SolveIk, RefusesWithoutAHotPinOrWhenDraggingTheHeldRoot) {
    Pose pose = PoseAt(kArm);
    const Pose before = pose;
    EXPECT_FALSE(SolveIk(pose, {}, -1, {1, 1}, 100, false));
    EXPECT_FALSE(SolveIk(pose, {}, 0, {1, 1}, 100, false));
    EXPECT_EQ(pose, before);
}

// Properties over random skeletons, parents not sorted before children.
class SolveIkProperties : public testing::TestWithParam<int> {
protected:
    int Uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(rng_); }
    float Real(float low, float high) { return std::uniform_real_distribution<float>(low, high)(rng_); }

    std::mt19937 rng_{static_cast<std::mt19937::result_type>(GetParam())};
};

// Whatever the locks and the goal, no bone changes its length; a single lock keeps its place.
TEST_P(SolveIkProperties, BoneLengthsNeverChangeAndALockStaysPut) {
    const int count = Uniform(2, 24);
    Pose pose = test::RandomSkeleton(rng_, count);
    std::set<int> locks;
    for (int k = Uniform(0, 3); k > 0; --k) {
        locks.insert(Uniform(0, count - 1));
    }
    const int hot = Uniform(0, count - 1);
    const Pose before = pose;
    const std::vector<WorldPoint> worldBefore = World(pose);
    if (!SolveIk(pose, locks, hot, {Real(-10, 10), Real(-10, 10)}, 100, GetParam() % 2 == 0)) {
        EXPECT_EQ(pose, before);
        return;
    }
    const std::vector<WorldPoint> world = World(pose);
    for (int i = 0; i < count; ++i) {
        EXPECT_TRUE(std::isfinite(world[i].x) && std::isfinite(world[i].y)) << i;
        EXPECT_TRUE(pose[i].parent < 0 || pose[i].length == before[i].length) << i;
    }
    if (locks.size() == 1 && *locks.begin() != hot) {
        const int lock = *locks.begin();
        EXPECT_LT(DistanceTo(world[lock], worldBefore[lock].x, worldBefore[lock].y), 1e-3f);
    }
}

// A pin below the pin held (the root without a lock, or a locked one) is dragged to a point of the band the
// bones between them can reach, a tenth of their length inside its edges (one bone has no band): near the
// edges the reaching creeps, so more passes are allowed than a drag step gets.
TEST_P(SolveIkProperties, ReachableTargetIsReached) {
    const int count = Uniform(6, 24);
    Pose pose = test::RandomSkeleton(rng_, count);
    const std::vector<WorldPoint> before = World(pose);
    for (int attempt = 0; attempt < 100; ++attempt) {
        const int hot = Uniform(0, count - 1);
        // Up to a random ancestor or the root, whichever comes first; the bones on the way form the path.
        int held = hot;
        float reach = 0.0f, longest = 0.0f;
        for (int up = Uniform(2, 8); up > 0 && pose[held].parent >= 0; --up) {
            reach += pose[held].length;
            longest = std::max(longest, pose[held].length);
            held = pose[held].parent;
        }
        const float inner = std::max(0.0f, 2.0f * longest - reach) + 0.1f * reach;
        if (inner >= 0.9f * reach) {
            continue;
        }
        const float r = Real(inner, 0.9f * reach);
        const float a = Real(0.0f, 6.28f);
        const Vec2 goal{before[held].x + r * std::cos(a), before[held].y + r * std::sin(a)};
        const std::set<int> locks = pose[held].parent >= 0 ? std::set<int>{held} : std::set<int>{};
        ASSERT_TRUE(SolveIk(pose, locks, hot, goal, 1000, false));
        const std::vector<WorldPoint> world = World(pose);
        EXPECT_LT(DistanceTo(world[hot], goal.x, goal.y), 1e-3f);
        EXPECT_LT(DistanceTo(world[held], before[held].x, before[held].y), 1e-3f);
        return;
    }
    FAIL() << "no set-up found";
}

INSTANTIATE_TEST_SUITE_P(Seeds, SolveIkProperties, testing::Range(1, 401));

}  // namespace
}  // namespace kovra
