#include "anim/forward.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>
#include <string>
#include <vector>

#include "pose_builder.h"

namespace kovra {
namespace {

using test::PinAt;
using test::PoseAt;
using test::World;

TEST(NormalizeAngle, FloatAndSolverTurnsUseTheirOwnConstant) {
    for (const auto& [in, out] : std::vector<std::pair<float, float>>{
             {kTwoPi, 0.0f}, {-0.5f, kTwoPi - 0.5f}, {7.0f, 7.0f - kTwoPi}, {-1e-6f, kTwoPi - 1e-6f}}) {
        EXPECT_EQ(NormalizeAngle(in), out) << in;
    }
    EXPECT_LT(NormalizeAngle(-1e-6f), kTwoPi);
    EXPECT_EQ(NormalizeAngle(kTwoPiSolver), 0.0);
    EXPECT_EQ(NormalizeAngle(-1e-7), kTwoPiSolver - 1e-7);
    // The float 2π lies above the double one: one turn too many for the solver.
    EXPECT_GT(NormalizeAngle(static_cast<double>(kTwoPi)), 0.0);
}

TEST(WorldPositions, PlacesUnsortedRecordsFromTheirParents) {
    Pose pose(3);
    pose[2] = WirrelPin{.angle = std::numbers::pi_v<float> / 2, .length = 10.0f, .flags = Root, .id = 7};
    pose[1] = WirrelPin{.angle = 0.0f, .length = 3.0f, .parent = 2, .id = 4};
    pose[0] = WirrelPin{.angle = std::numbers::pi_v<float>, .length = 1.0f, .parent = 1, .id = 5};
    const std::vector<WorldPoint> world = World(pose);
    EXPECT_NEAR(world[2].x, 0.0f, 1e-6f);
    EXPECT_EQ(world[2].y, 10.0f);
    EXPECT_NEAR(world[0].x, 2.0f, 1e-6f);
    EXPECT_EQ(world[0].id, 5.0f);
    pose[2].parent = 0;  // a loop of parents ends the sweeps instead of running for ever
    EXPECT_FALSE(IsTree(pose));
    World(pose);
}

TEST(BuildChildren, HeadsHoldTheFirstChildAndLaterOnesGoBehindTheHead) {
    const Pose pose = PoseAt({{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 1, 1}, {3, 2, 2}});
    Children children;
    BuildChildren(pose, children);
    ASSERT_EQ(children.Nodes().size(), 7u);
    EXPECT_EQ(children.Nodes().capacity(), 9u);
    std::vector<int> order;
    children.ForEach(0, [&](int c) { order.push_back(c); });
    EXPECT_EQ(order, (std::vector<int>{1, 3, 2}));
    EXPECT_TRUE(children.IsEmpty(4));
}

TEST(FindPivot, ClimbsThroughSelectedAncestorsAndOrientations) {
    // A chain 0 <- 1 <- 2 <- 3 <- 4 of a root, two bones and two orientations.
    const Pose pose =
        PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {2, 3, 0, Orientation}, {3, 4, 0, Orientation}});
    struct Case {
        int pin;
        std::set<int> selection;
        int top, topParent;
    };
    for (const Case& c : std::vector<Case>{
             {0, {0}, 0, -1}, {2, {2}, 2, 1}, {2, {1, 2}, 1, 0}, {2, {0, 1, 2}, 1, 0}, {4, {4}, 2, 1}}) {
        int top = -2, topParent = -2;
        FindPivot(pose, c.pin, c.selection, top, topParent);
        EXPECT_EQ(top, c.top) << "pin " << c.pin;
        EXPECT_EQ(topParent, c.topParent) << "pin " << c.pin;
    }
}

struct TurnCase {
    std::string name;
    std::set<int> selection;
    bool rotateChildren;
    std::set<int> turned;  // the pins whose angle grows by the delta
};

class PoseForwardTurns : public testing::TestWithParam<TurnCase> {};

// Root 0; bone 1 with children 2 (a bone carrying bone 5) and 3 (an attachment carrying orientation 4).
TEST_P(PoseForwardTurns, AddTheDeltaToExactlyTheTurningPins) {
    const TurnCase& c = GetParam();
    Pose pose =
        PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {1, 1, 1, Attachment}, {3, 1, 2, Orientation}, {2, 3, 0}});
    pose[5].angle = 6.2f;  // turning it passes the seam
    const Pose before = pose;
    PoseForward(pose, *c.selection.begin(), *c.selection.rbegin(), 0.5f, 1.0f, 1.0f, c.selection,
                c.rotateChildren, false);
    for (int i = 0; i < static_cast<int>(pose.size()); ++i) {
        const float expected =
            c.turned.contains(i) ? NormalizeAngle(before[i].angle + 0.5f) : before[i].angle;
        EXPECT_EQ(pose[i].angle, expected) << "pin " << i;
        EXPECT_EQ(pose[i].length, before[i].length);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PoseForwardTurns,
    testing::Values(TurnCase{"ChildrenKeepDirectionButAttachmentsTurn", {1}, false, {1, 3, 4}},
                    TurnCase{"RotateChildrenTurnsTheSubtree", {1}, true, {1, 2, 3, 4, 5}},
                    TurnCase{"SelectedChildTurnsOnceWithRotateChildren", {1, 5}, true, {1, 2, 3, 4, 5}},
                    TurnCase{"PinsBetweenSelectedOnesTurnWithout", {1, 5}, false, {1, 2, 3, 4, 5}},
                    TurnCase{"OrientationTurnsItsOwner", {4}, false, {3, 4}}),
    [](const testing::TestParamInfo<TurnCase>& info) { return info.param.name; });

TEST(PoseForward, LengthChangeScalesSelectedBonesAndAZeroTopGrowsFromTheNewLength) {
    Pose pose = PoseAt({{-1, -1, 0}, {0, 1, 0}, {1, 2, 0}, {2, 2, 2}});
    const Pose before = pose;
    PoseForward(pose, 1, 2, 0.0f, 2.0f, 3.0f, {0, 1, 2}, false, false);
    EXPECT_EQ(pose[1].length, before[1].length * 1.5f);
    EXPECT_EQ(pose[2].scale, 1.5f);
    EXPECT_EQ(pose[2].angle, before[2].angle);
    EXPECT_EQ(pose[0], before[0]);
    EXPECT_EQ(pose[3], before[3]);

    Pose zero = PoseAt({{-1, 0, 0}, {0, 0, 0}, {1, 1, 0}});
    PoseForward(zero, 1, 2, 0.0f, 1.0f, 0.25f, {1, 2}, false, false);
    EXPECT_EQ(zero[1].length, 25.0f);
    EXPECT_EQ(zero[2].length, 100.0f);
}

TEST(PoseForward, RootsAndRigidMovesTranslate) {
    // Roots 0 and 1 with a bone 2 on 0: the hot root turns a quarter about the origin and the other
    // selected root follows by the same displacement.
    Pose roots = PoseAt({{-1, 1, 0}, {-1, 0, 2}, {0, 2, 0}});
    PoseForward(roots, 0, 0, std::numbers::pi_v<float> / 2, 1.0f, 1.0f, {0, 1}, false, false);
    std::vector<WorldPoint> world = World(roots);
    EXPECT_NEAR(world[0].x, 0.0f, 1e-6f);
    EXPECT_NEAR(world[1].x, -1.0f, 1e-6f);
    EXPECT_NEAR(world[1].y, 3.0f, 1e-6f);
    EXPECT_NEAR(world[2].y, 1.0f, 1e-6f);

    // A rigid move leaves the children of the moved pin where they were.
    Pose rigid = PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {1, 1, 1}});
    const std::vector<WorldPoint> before = World(rigid);
    PoseForward(rigid, 1, 1, 0.0f, 1.0f, 2.0f, {1}, false, true);
    world = World(rigid);
    EXPECT_NEAR(world[1].x, 2.0f, 1e-6f);
    for (int i : {2, 3}) {
        EXPECT_NEAR(world[i].x, before[i].x, 1e-6f) << i;
        EXPECT_NEAR(world[i].y, before[i].y, 1e-6f) << i;
    }
}

TEST(DragForward, TurnStretchOrBoth) {
    // An arm from the origin to (1, 0) in a view of a pixel to a world unit with the origin at pixel (10, 0).
    const ViewTransform view{.zoom = 1.0f, .cameraX = -10.0f, .cameraY = 0.0f, .viewWidth = 20.0f,
                             .viewHeight = 20.0f, .clientWidth = 20, .clientHeight = 20,
                             .pinPixels = {{0, 0, 0}, {1, 0, 1}}};
    ASSERT_EQ(view.ScreenToWorld().sx, 1.0f);
    ASSERT_EQ(view.ScreenToWorld().ox, 20.0f);
    ASSERT_EQ(view.ScreenToWorld().oy, 10.0f);
    const ViewTransform zoomed{.zoom = 2.0f, .cameraX = 5.0f, .cameraY = 0.0f, .viewWidth = 400.0f,
                               .viewHeight = 300.0f, .clientWidth = 800, .clientHeight = 600, .pinPixels = {}};
    EXPECT_EQ(zoomed.ScreenToWorld().ox, 380.0f);
    EXPECT_EQ(zoomed.ScreenToWorld().sx, 0.25f);
    struct Case {
        int mode;
        Vec2 expected;
        float scale;
    };
    for (const Case& c :
         std::vector<Case>{{kDragRotate, {0, 1}, 1}, {kDragLength, {2, 0}, 2}, {kDragMove, {0, 2}, 2}}) {
        Pose pose = PoseAt({{-1, 0, 0}, {0, 1, 0}});
        DragForward(pose, 1, ForwardDrag{{1, 0}, {21, 10}, {20, 12}, c.mode}, view, {1}, false);
        EXPECT_NEAR(World(pose)[1].x, c.expected.x, 1e-6f) << c.mode;
        EXPECT_NEAR(World(pose)[1].y, c.expected.y, 1e-6f) << c.mode;
        EXPECT_EQ(pose[1].scale, c.scale) << c.mode;
    }
}

}  // namespace
}  // namespace kovra
