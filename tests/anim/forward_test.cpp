#include "anim/forward.h"

#include <gtest/gtest.h>

#include <numbers>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "pose_builder.h"

namespace kovra {
namespace {

using test::DistanceTo;
using test::PoseAt;
using test::World;

// The float wrap is the document's, tested with it; the solver's turns use the double constant.
TEST(NormalizeAngle, SolverTurnsUseTheirOwnConstant) {
    EXPECT_EQ(NormalizeAngle(kTwoPiSolver), 0.0);
    EXPECT_EQ(NormalizeAngle(-1e-7), kTwoPiSolver - 1e-7);
    EXPECT_GT(NormalizeAngle(static_cast<double>(kTwoPi)), 0.0);  // the float 2π is one turn too many
}

TEST(WorldPositions, PlacesUnsortedRecordsFromTheirParents) {
    Pose pose(3);
    pose[2] = WirrelPin{.angle = std::numbers::pi_v<float> / 2, .length = 10.0f, .flags = Root, .id = 7};
    pose[1] = WirrelPin{.angle = 0.0f, .length = 3.0f, .parent = 2, .id = 4};
    pose[0] = WirrelPin{.angle = std::numbers::pi_v<float>, .length = 1.0f, .parent = 1, .id = 5};
    const WorldPoint tip = World(pose)[0];
    EXPECT_NEAR(tip.x, 2.0f, 1e-6f);
    EXPECT_NEAR(tip.y, 10.0f, 1e-6f);
    EXPECT_EQ(tip.id, 5.0f);
    pose[2].parent = 0;  // a loop of parents ends the sweeps instead of running for ever
    EXPECT_FALSE(IsTree(pose));
    World(pose);
}

TEST(BuildChildren, HeadsHoldTheFirstChildAndLaterOnesGoBehindTheHead) {
    Children children;
    BuildChildren(PoseAt({{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 1, 1}, {3, 2, 2}}), children);
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
    for (const auto& [pin, selection, top, topParent] : std::vector<std::tuple<int, std::set<int>, int, int>>{
             {0, {0}, 0, -1}, {2, {2}, 2, 1}, {2, {1, 2}, 1, 0}, {2, {0, 1, 2}, 1, 0}, {4, {4}, 2, 1}}) {
        std::pair<int, int> found{-2, -2};
        FindPivot(pose, pin, selection, found.first, found.second);
        EXPECT_EQ(found, std::pair(top, topParent)) << "pin " << pin;
    }
}

// Root 0; bone 1 with children 2 (a bone carrying bone 5) and 3 (an attachment carrying orientation 4).
TEST(PoseForward, AddsTheDeltaToExactlyTheTurningPins) {
    for (const auto& [what, selection, rotateChildren, turned] :
         std::vector<std::tuple<std::string, std::set<int>, bool, std::set<int>>>{
             {"children keep direction but attachments turn", {1}, false, {1, 3, 4}},
             {"rotate children turns the subtree", {1}, true, {1, 2, 3, 4, 5}},
             {"a selected child turns once with rotate children", {1, 5}, true, {1, 2, 3, 4, 5}},
             {"pins between selected ones turn without", {1, 5}, false, {1, 2, 3, 4, 5}},
             {"an orientation turns its owner", {4}, false, {3, 4}}}) {
        Pose pose = PoseAt(
            {{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {1, 1, 1, Attachment}, {3, 1, 2, Orientation}, {2, 3, 0}});
        pose[5].angle = 6.2f;  // turning it passes the seam
        Pose expected = pose;
        for (int i : turned) {
            expected[i].angle = NormalizeAngle(expected[i].angle + 0.5f);
        }
        PoseForward(pose, *selection.begin(), *selection.rbegin(), 0.5f, 1.0f, 1.0f, selection,
                    rotateChildren, false);
        EXPECT_EQ(pose, expected) << what;
    }
}

TEST(PoseForward, LengthChangeScalesSelectedBonesAndAZeroTopGrowsFromTheNewLength) {
    Pose pose = PoseAt({{-1, -1, 0}, {0, 1, 0}, {1, 2, 0}, {2, 2, 2}});
    Pose expected = pose;
    expected[1].length *= 1.5f;
    expected[2].length *= 1.5f;
    expected[1].scale = expected[2].scale = 1.5f;
    PoseForward(pose, 1, 2, 0.0f, 2.0f, 3.0f, {0, 1, 2}, false, false);
    EXPECT_EQ(pose, expected);  // the root and the unselected pin 3 stay as they were

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
    EXPECT_LT(DistanceTo(world[0], 0, 1), 1e-6f);
    EXPECT_LT(DistanceTo(world[1], -1, 3), 1e-6f);
    EXPECT_LT(DistanceTo(world[2], 1, 1), 1e-6f);

    // A rigid move leaves the children of the moved pin where they were.
    Pose rigid = PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {1, 1, 1}});
    const std::vector<WorldPoint> before = World(rigid);
    PoseForward(rigid, 1, 1, 0.0f, 1.0f, 2.0f, {1}, false, true);
    world = World(rigid);
    EXPECT_NEAR(world[1].x, 2.0f, 1e-6f);
    for (int i : {2, 3}) {
        EXPECT_LT(DistanceTo(world[i], before[i].x, before[i].y), 1e-6f) << i;
    }
}

TEST(DragForward, TurnStretchOrBoth) {
    const ViewTransform zoomed{.zoom = 2.0f, .cameraX = 5.0f, .viewWidth = 400.0f, .clientWidth = 800, .pinPixels = {}};
    EXPECT_EQ(zoomed.ScreenToWorld().ox, 380.0f);
    EXPECT_EQ(zoomed.ScreenToWorld().sx, 0.25f);
    // An arm from the origin to (1, 0) in a view of a pixel to a world unit, the origin at pixel (20, 10).
    const ViewTransform view{.cameraX = -10.0f, .viewWidth = 20.0f, .viewHeight = 20.0f, .clientWidth = 20,
                             .clientHeight = 20, .pinPixels = {{0, 0, 0}, {1, 0, 1}}};
    for (const auto& [mode, x, y, scale] : std::vector<std::tuple<int, float, float, float>>{
             {kDragRotate, 0, 1, 1}, {kDragLength, 2, 0, 2}, {kDragMove, 0, 2, 2}}) {
        Pose pose = PoseAt({{-1, 0, 0}, {0, 1, 0}});
        DragForward(pose, 1, ForwardDrag{{1, 0}, {21, 10}, {20, 12}, mode}, view, {1}, false);
        EXPECT_NEAR(World(pose)[1].x, x, 1e-6f) << mode;
        EXPECT_NEAR(World(pose)[1].y, y, 1e-6f) << mode;
        EXPECT_EQ(pose[1].scale, scale) << mode;
    }
}

}  // namespace
}  // namespace kovra
