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

struct PathCase {
    int from;
    int to;
    bool found;
    std::vector<IkLink> path;  // pin, up, down
};

// 0 is the root of 1 -> 2 and 3 -> 4; 5 is a second root.
TEST(BuildPath, RunsUpToTheCommonAncestorAndDownAgain) {
    const Pose pose = PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 3, 0}, {0, 0, 4}, {3, 0, 12}, {-1, 5, 5}});
    const std::vector<PathCase> cases = {
        {4, 2, true, {{2, 1, 0}, {1, 1, 0}, {0, 0, 0}, {3, 0, 1}, {4, 0, 1}}},
        {0, 2, true, {{2, 1, 0}, {1, 1, 0}, {0, 0, 0}}},
        {2, 0, true, {{0, 0, 0}, {1, 0, 1}, {2, 0, 1}}},
        {2, 2, false, {}},
        {5, 2, false, {}},
    };
    for (const PathCase& c : cases) {
        std::vector<IkLink> path{{9, 1, 1}};
        double length = -1.0;
        EXPECT_EQ(BuildPath(pose, c.from, c.to, path, length), c.found) << c.from << " to " << c.to;
        ASSERT_EQ(path.size(), c.path.size()) << c.from << " to " << c.to;
        double expectedLength = 0.0;
        for (std::size_t i = 0; i < path.size(); ++i) {
            EXPECT_EQ(path[i].pin, c.path[i].pin);
            EXPECT_EQ(path[i].up, c.path[i].up);
            EXPECT_EQ(path[i].down, c.path[i].down);
            if (path[i].up || path[i].down) {
                expectedLength += pose[path[i].pin].length;
            }
        }
        EXPECT_DOUBLE_EQ(length, expectedLength);
    }
}

struct SolveCase {
    std::string name;
    std::vector<PinAt> pins;
    std::set<int> locks;
    int hot;
    Vec2 goal;
    std::map<int, Vec2> expected;  // world positions after the solve
};

class SolveIkCases : public testing::TestWithParam<SolveCase> {};

TEST_P(SolveIkCases, ReachesWhatItCanAndKeepsLengths) {
    const SolveCase& c = GetParam();
    Pose pose = PoseAt(c.pins);
    const Pose before = pose;
    ASSERT_TRUE(SolveIk(pose, c.locks, c.hot, c.goal, 100, false));
    const std::vector<WorldPoint> world = World(pose);
    for (const auto& [pin, at] : c.expected) {
        EXPECT_LT(DistanceTo(world[pin], at.x, at.y), 1e-3f)
            << "pin " << pin << " at " << world[pin].x << ", " << world[pin].y;
    }
    for (std::size_t i = 0; i < pose.size(); ++i) {
        EXPECT_TRUE(std::isfinite(world[i].x) && std::isfinite(world[i].y)) << i;
        if (pose[i].parent >= 0) {
            EXPECT_EQ(pose[i].length, before[i].length) << i;
        }
    }
}

// A two-bone arm from the origin; a body whose pelvis (0) carries a leg (1, 2) and a spine with an arm
// (3, 4, 5); a pin with three branches.
const std::vector<PinAt> kArm = {{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}};
const std::vector<PinAt> kBody = {{-1, 0, 0}, {0, 0, -1}, {1, 0, -2}, {0, 0, 1}, {3, 1, 1}, {4, 2, 1}};
const std::vector<PinAt> kStar = {{-1, 0, 0}, {0, -1, -1}, {1, -2, -2}, {0, 1, -1},
                                  {3, 2, -2}, {0, 0, 1},   {5, 0, 2}};

INSTANTIATE_TEST_SUITE_P(
    EdgeCases, SolveIkCases,
    testing::Values(
        SolveCase{"NoLockHeldAtTheRoot", kArm, {}, 2, {1, 1}, {{0, {0, 0}}, {2, {1, 1}}}},
        SolveCase{
            "UnreachableLeavesTheArmStraight", kArm, {}, 2, {0, 5}, {{0, {0, 0}}, {1, {0, 1}}, {2, {0, 2}}}},
        SolveCase{"LockOnAnotherBranch", kBody, {2}, 5, {2.5f, 0.5f}, {{2, {0, -2}}, {5, {2.5f, 0.5f}}}},
        SolveCase{"LockBetweenHotPinAndLock",
                  {{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {2, 3, 0}, {3, 4, 0}},
                  {0, 2},
                  4,
                  {3, 1.5f},
                  {{0, {0, 0}}, {1, {1, 0}}, {2, {2, 0}}, {4, {3, 1.5f}}}},
        SolveCase{"JunctionBetweenTwoLocksAndTheTarget",
                  kStar,
                  {2, 4},
                  6,
                  {0.5f, 1.5f},
                  {{2, {-2, -2}}, {4, {2, -2}}, {6, {0.5f, 1.5f}}}},
        SolveCase{"JunctionWithTheTargetOutOfReach", kStar, {2, 4}, 6, {0, 9}, {{2, {-2, -2}}, {4, {2, -2}}}},
        SolveCase{"ZeroLengthBone",
                  {{-1, 0, 0}, {0, 1, 0}, {1, 1, 0}, {2, 2, 0}},
                  {},
                  3,
                  {1.5f, 0.8f},
                  {{0, {0, 0}}, {3, {1.5f, 0.8f}}}}),
    [](const testing::TestParamInfo<SolveCase>& info) { return info.param.name; });

TEST(SolveIk, AncestorOfALockAndATargetOnDifferentBranchesMoves) {
    Pose pose = PoseAt(kBody);
    ASSERT_TRUE(SolveIk(pose, {2}, 5, {3.5f, -0.5f}, 100, false));
    const std::vector<WorldPoint> world = World(pose);
    EXPECT_LT(DistanceTo(world[5], 3.5f, -0.5f), 1e-3f);
    EXPECT_GT(DistanceTo(world[0], 0, 0), 0.1f);
}

TEST(SolveIk, ATargetOnALockedPinDividesByNothing) {
    Pose pose = PoseAt(kArm);
    ASSERT_TRUE(SolveIk(pose, {1}, 2, {1, 0}, 100, false));
    const std::vector<WorldPoint> world = World(pose);
    EXPECT_LT(DistanceTo(world[1], 1, 0), 1e-6f);
    // The bone has no direction left; its angle is that of a zero vector.
    EXPECT_EQ(pose[2].angle, 0.0f);
    EXPECT_EQ(pose[2].length, 1.0f);
}

TEST(SolveIk, RefusesWithoutAHotPinOrWhenDraggingTheHeldRoot) {
    Pose pose = PoseAt(kArm);
    const Pose before = pose;
    EXPECT_FALSE(SolveIk(pose, {}, -1, {1, 1}, 100, false));
    EXPECT_FALSE(SolveIk(pose, {}, 0, {1, 1}, 100, false));
    EXPECT_EQ(pose, before);
}

// An arm 0-1-2 with a thumb (3) off the elbow and a finger (4) off the hand.
TEST(SolveIk, SideTreesTranslateOrTurnWithTheirBone) {
    for (bool rotate : {false, true}) {
        Pose pose = PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {1, 1, 0.5f}, {2, 2.5f, 0}});
        const std::vector<WorldPoint> before = World(pose);
        ASSERT_TRUE(SolveIk(pose, {}, 2, {1, 1}, 100, rotate));
        const std::vector<WorldPoint> after = World(pose);
        ASSERT_LT(DistanceTo(after[2], 1, 1), 1e-3f);
        // The thumb turns with the bone from the elbow to the root, the finger with the one from the
        // hand to the elbow.
        for (const auto& [side, owner, next] : {std::tuple{3, 1, 0}, std::tuple{4, 2, 1}}) {
            const float oldDir =
                std::atan2(before[next].y - before[owner].y, before[next].x - before[owner].x);
            const float newDir = std::atan2(after[next].y - after[owner].y, after[next].x - after[owner].x);
            const float turn = rotate ? newDir - oldDir : 0.0f;
            const float ox = before[side].x - before[owner].x;
            const float oy = before[side].y - before[owner].y;
            const float ex = after[owner].x + ox * std::cos(turn) - oy * std::sin(turn);
            const float ey = after[owner].y + ox * std::sin(turn) + oy * std::cos(turn);
            EXPECT_LT(DistanceTo(after[side], ex, ey), 1e-4f) << "rotate " << rotate << " side " << side;
        }
    }
}

// Properties over random skeletons, parents not sorted before children.
class SolveIkProperties : public testing::TestWithParam<int> {
protected:
    void SetUp() override { rng_.seed(GetParam()); }

    int Uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(rng_); }
    float Coordinate() { return std::uniform_real_distribution<float>(-10.0f, 10.0f)(rng_); }
    float Angle() { return std::uniform_real_distribution<float>(0.0f, 6.28f)(rng_); }

    std::mt19937 rng_;
};

TEST_P(SolveIkProperties, BoneLengthsNeverChange) {
    const int count = Uniform(2, 24);
    Pose pose = test::RandomSkeleton(rng_, count);
    std::set<int> locks;
    for (int k = Uniform(0, 3); k > 0; --k) {
        locks.insert(Uniform(0, count - 1));
    }
    const int hot = Uniform(0, count - 1);
    const Vec2 goal{Coordinate(), Coordinate()};
    const Pose before = pose;

    if (!SolveIk(pose, locks, hot, goal, 100, GetParam() % 2 == 0)) {
        EXPECT_EQ(pose, before);
        return;
    }
    const std::vector<WorldPoint> world = World(pose);
    for (int i = 0; i < count; ++i) {
        EXPECT_TRUE(std::isfinite(world[i].x) && std::isfinite(world[i].y)) << i;
        if (pose[i].parent >= 0) {
            EXPECT_EQ(pose[i].length, before[i].length) << i;
        }
    }
}

TEST_P(SolveIkProperties, LockedPinStaysPut) {
    const int count = Uniform(2, 24);
    Pose pose = test::RandomSkeleton(rng_, count);
    const int lock = Uniform(0, count - 1);
    int hot = Uniform(0, count - 1);
    while (hot == lock) {
        hot = Uniform(0, count - 1);
    }
    const WorldPoint held = World(pose)[lock];
    ASSERT_TRUE(SolveIk(pose, {lock}, hot, {Coordinate(), Coordinate()}, 100, GetParam() % 2 == 0));
    EXPECT_LT(DistanceTo(World(pose)[lock], held.x, held.y), 1e-3f);
}

// The goal is where the hot pin stands in another pose of the bones below `held`, which keeps its place
// (as the root without a lock, or locked), and at least a tenth of the path's reach inside the band the
// path can reach. Near the edges of that band the reaching creeps, so more passes are allowed than a
// drag step gets.
TEST_P(SolveIkProperties, ReachableTargetIsReached) {
    const int count = Uniform(4, 24);
    Pose pose = test::RandomSkeleton(rng_, count);
    const std::vector<WorldPoint> before = World(pose);
    int hot = -1;
    int held = -1;
    WorldPoint goal;
    for (int attempt = 0; attempt < 200 && hot < 0; ++attempt) {
        const int pin = Uniform(0, count - 1);
        std::vector<int> ancestors;
        for (int p = pose[pin].parent; p >= 0; p = pose[p].parent) {
            ancestors.push_back(p);
        }
        if (ancestors.size() < 2) {
            continue;
        }
        const int anchor = ancestors[Uniform(1, static_cast<int>(ancestors.size()) - 1)];
        float reach = 0.0f;
        float longest = 0.0f;
        for (int p = pin; p != anchor; p = pose[p].parent) {
            reach += pose[p].length;
            longest = std::max(longest, pose[p].length);
        }
        const float inner = std::max(0.0f, 2.0f * longest - reach);
        Pose other = pose;
        for (int i = 0; i < count; ++i) {
            for (int p = other[i].parent; p >= 0; p = other[p].parent) {
                if (p == anchor) {
                    other[i].angle = Angle();
                    break;
                }
            }
        }
        const WorldPoint at = World(other)[pin];
        const float distance = DistanceTo(at, before[anchor].x, before[anchor].y);
        if (distance > inner + 0.1f * reach && distance < 0.9f * reach) {
            hot = pin;
            held = anchor;
            goal = at;
        }
    }
    ASSERT_GE(hot, 0) << "no set-up found";

    const std::set<int> locks = pose[held].parent >= 0 ? std::set<int>{held} : std::set<int>{};
    ASSERT_TRUE(SolveIk(pose, locks, hot, {goal.x, goal.y}, 1000, false));
    const std::vector<WorldPoint> world = World(pose);
    EXPECT_LT(DistanceTo(world[hot], goal.x, goal.y), 1e-3f);
    EXPECT_LT(DistanceTo(world[held], before[held].x, before[held].y), 1e-3f);
}

INSTANTIATE_TEST_SUITE_P(Seeds, SolveIkProperties, testing::Range(1, 201));

}  // namespace
}  // namespace kovra
