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

TEST(NormalizeAngle, FloatTurnsUseTheSinglePrecisionConstant) {
    struct Case {
        float in;
        float out;
    };
    for (const Case& c :
         std::vector<Case>{{0.0f, 0.0f},
                           {kTwoPi, 0.0f},
                           {-0.5f, kTwoPi - 0.5f},
                           {7.0f, 7.0f - kTwoPi},
                           {3.0f * kTwoPi + 1.0f, 3.0f * kTwoPi + 1.0f - kTwoPi - kTwoPi - kTwoPi},
                           {-1e-6f, kTwoPi - 1e-6f}}) {
        EXPECT_EQ(NormalizeAngle(c.in), c.out) << c.in;
    }
    const float justUnder = NormalizeAngle(-1e-6f);
    EXPECT_LT(justUnder, kTwoPi);
    EXPECT_GT(justUnder, 6.28f);
}

TEST(NormalizeAngle, DoubleTurnsUseTheSolverConstant) {
    EXPECT_EQ(NormalizeAngle(kTwoPiSolver), 0.0);
    EXPECT_EQ(NormalizeAngle(-1e-7), -1e-7 + kTwoPiSolver);
    EXPECT_LT(NormalizeAngle(-1e-7), kTwoPiSolver);
    // The float 2π lies above the double one, so it is one turn too many for the solver.
    EXPECT_EQ(NormalizeAngle(static_cast<double>(kTwoPi)), static_cast<double>(kTwoPi) - kTwoPiSolver);
    EXPECT_GT(NormalizeAngle(static_cast<double>(kTwoPi)), 0.0);
}

TEST(NormalizeAngle, ValuesNoTurnCanChangeComeBackAsTheyAre) {
    EXPECT_EQ(NormalizeAngle(1e30f), 1e30f);
    EXPECT_TRUE(std::isinf(NormalizeAngle(-INFINITY)));
    EXPECT_TRUE(std::isnan(NormalizeAngle(NAN)));
}

TEST(WorldPositions, PlacesRootsAboutTheOriginAndChildrenFromTheirParents) {
    Pose pose(2);
    pose[0] = WirrelPin{.angle = std::numbers::pi_v<float> / 2, .length = 10.0f, .flags = Root, .id = 7};
    pose[1] = WirrelPin{.angle = 0.0f, .length = 3.0f, .parent = 0, .id = 4};
    const std::vector<WorldPoint> world = World(pose);
    EXPECT_NEAR(world[0].x, 0.0f, 1e-6f);
    EXPECT_EQ(world[0].y, 10.0f);
    EXPECT_EQ(world[0].id, 7.0f);
    EXPECT_NEAR(world[1].x, 3.0f, 1e-6f);
    EXPECT_EQ(world[1].y, 10.0f);
    EXPECT_EQ(world[1].id, 4.0f);
}

TEST(WorldPositions, OrderOfTheRecordsDoesNotMatter) {
    // 3 <- 1 <- 0 <- 2, written children first.
    Pose pose(4);
    pose[2] = WirrelPin{.angle = 1.0f, .length = 2.0f, .flags = Root, .id = 0};
    pose[0] = WirrelPin{.angle = 2.0f, .length = 1.5f, .parent = 2, .id = 1};
    pose[1] = WirrelPin{.angle = 3.0f, .length = 0.5f, .parent = 0, .id = 2};
    pose[3] = WirrelPin{.angle = 4.0f, .length = 1.0f, .parent = 1, .id = 3};
    const std::vector<WorldPoint> world = World(pose);
    const float x = 2.0f * std::cos(1.0f) + 1.5f * std::cos(2.0f) + 0.5f * std::cos(3.0f) + std::cos(4.0f);
    const float y = 2.0f * std::sin(1.0f) + 1.5f * std::sin(2.0f) + 0.5f * std::sin(3.0f) + std::sin(4.0f);
    EXPECT_FLOAT_EQ(world[3].x, x);
    EXPECT_FLOAT_EQ(world[3].y, y);
}

TEST(WorldPositions, StopsOnALoopOfParents) {
    Pose pose(3);
    pose[0] = WirrelPin{.length = 1.0f, .flags = Root};
    pose[1] = WirrelPin{.length = 1.0f, .parent = 2, .id = 1};
    pose[2] = WirrelPin{.length = 1.0f, .parent = 1, .id = 2};
    const std::vector<WorldPoint> world = World(pose);
    EXPECT_EQ(world[0].x, 1.0f);
    EXPECT_FALSE(IsTree(pose));
    pose[2].parent = 0;
    EXPECT_TRUE(IsTree(pose));
    pose[2].parent = 3;
    EXPECT_FALSE(IsTree(pose));
}

TEST(BuildChildren, HeadsHoldTheFirstChildAndLaterOnesGoBehindTheHead) {
    // 0 has children 1, 2, 3 in that order; 3 has child 4.
    const Pose pose = PoseAt({{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 1, 1}, {3, 2, 2}});
    Children children;
    BuildChildren(pose, children);
    const std::vector<Children::Node>& nodes = children.Nodes();
    ASSERT_EQ(nodes.size(), 7u);
    EXPECT_EQ(nodes.capacity(), 9u);
    EXPECT_EQ(nodes[0].item, 1);
    EXPECT_EQ(nodes[1].item, -1);
    EXPECT_EQ(nodes[3].item, 4);
    std::vector<int> order;
    children.ForEach(0, [&](int c) { order.push_back(c); });
    EXPECT_EQ(order, (std::vector<int>{1, 3, 2}));
    EXPECT_TRUE(children.IsEmpty(4));
}

TEST(IsAnchored, RootsAndHiddenBonesAttachmentsAndTails) {
    struct Case {
        PinType type;
        bool hidden;
        bool anchored;
    };
    for (const Case& c : std::vector<Case>{{Root, false, true},
                                           {Root, true, true},
                                           {Bone, false, false},
                                           {Bone, true, true},
                                           {Attachment, true, true},
                                           {Tail, true, true},
                                           {Tracker, true, false},
                                           {Orientation, true, false}}) {
        WirrelPin pin;
        pin.SetType(c.type);
        pin.flags |= c.hidden ? kPinHidden : 0;
        EXPECT_EQ(IsAnchored(pin), c.anchored) << c.type << " hidden " << c.hidden;
    }
}

// 0 root, 1 bone, 2 bone, 3 orientation, 4 orientation: a chain 0 <- 1 <- 2 <- 3 <- 4.
TEST(FindPivot, ClimbsThroughSelectedAncestorsAndOrientations) {
    const Pose pose =
        PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {2, 3, 0, Orientation}, {3, 4, 0, Orientation}});
    struct Case {
        int pin;
        std::set<int> selection;
        int top;
        int topParent;
    };
    for (const Case& c : std::vector<Case>{{0, {0}, 0, -1},
                                           {2, {2}, 2, 1},
                                           {2, {1, 2}, 1, 0},
                                           {2, {0, 1, 2}, 1, 0},
                                           {4, {4}, 2, 1},
                                           {4, {1, 4}, 1, 0}}) {
        int top = -2;
        int topParent = -2;
        FindPivot(pose, c.pin, c.selection, top, topParent);
        EXPECT_EQ(top, c.top) << "pin " << c.pin;
        EXPECT_EQ(topParent, c.topParent) << "pin " << c.pin;
    }
}

// 0 root; 1 bone with children 2 (bone, with child 5) and 3 (attachment, with orientation child 4).
const std::vector<PinAt> kTree = {
    {-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {1, 1, 1, Attachment}, {3, 1, 2, Orientation}, {2, 3, 0}};

struct TurnCase {
    std::string name;
    std::set<int> selection;
    bool rotateChildren;
    std::set<int> turned;  // the pins whose angle grows by the delta
};

class PoseForwardTurns : public testing::TestWithParam<TurnCase> {};

TEST_P(PoseForwardTurns, AddTheDeltaToExactlyTheTurningPins) {
    const TurnCase& c = GetParam();
    Pose pose = PoseAt(kTree);
    pose[5].angle = 6.2f;  // turning it passes the seam
    const Pose before = pose;
    const float delta = 0.5f;
    PoseForward(pose, *c.selection.begin(), *c.selection.rbegin(), delta, 1.0f, 1.0f, c.selection,
                c.rotateChildren, false);
    for (int i = 0; i < static_cast<int>(pose.size()); ++i) {
        const float expected =
            c.turned.contains(i) ? NormalizeAngle(before[i].angle + delta) : before[i].angle;
        EXPECT_EQ(pose[i].angle, expected) << "pin " << i;
        EXPECT_GE(pose[i].angle, 0.0f);
        EXPECT_LT(pose[i].angle, kTwoPi);
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

TEST(PoseForward, LengthChangeScalesEverySelectedBoneButNotRoots) {
    Pose pose = PoseAt({{-1, -1, 0}, {0, 1, 0}, {1, 2, 0}, {2, 2, 2}});
    pose[2].scale = 2.0f;
    const Pose before = pose;
    PoseForward(pose, 1, 2, 0.0f, 2.0f, 3.0f, {0, 1, 2}, false, false);
    for (int i : {1, 2}) {
        EXPECT_EQ(pose[i].length, before[i].length * 1.5f);
        EXPECT_EQ(pose[i].scale, before[i].scale * 1.5f);
        EXPECT_EQ(pose[i].angle, before[i].angle);
    }
    EXPECT_EQ(pose[0], before[0]);
    EXPECT_EQ(pose[3], before[3]);
}

TEST(PoseForward, ZeroLengthTopTakesTheNewLengthTimesAHundred) {
    Pose pose = PoseAt({{-1, 0, 0}, {0, 0, 0}, {1, 1, 0}});
    PoseForward(pose, 1, 2, 0.0f, 1.0f, 0.25f, {1, 2}, false, false);
    EXPECT_EQ(pose[1].length, 25.0f);
    EXPECT_EQ(pose[2].length, 100.0f);
}

TEST(PoseForward, MovingARootCarriesTheOtherSelectedRoots) {
    // Roots 0 and 1, with a bone 2 on 0.
    Pose pose = PoseAt({{-1, 1, 0}, {-1, 0, 2}, {0, 2, 0}});
    PoseForward(pose, 0, 0, std::numbers::pi_v<float> / 2, 1.0f, 1.0f, {0, 1}, false, false);
    const std::vector<WorldPoint> world = World(pose);
    // The hot root turns a quarter about the origin, (1, 0) to (0, 1), and the other root follows by the
    // same displacement.
    EXPECT_NEAR(world[0].x, 0.0f, 1e-6f);
    EXPECT_NEAR(world[0].y, 1.0f, 1e-6f);
    EXPECT_NEAR(world[1].x, -1.0f, 1e-6f);
    EXPECT_NEAR(world[1].y, 3.0f, 1e-6f);
    EXPECT_NEAR(world[2].x, 1.0f, 1e-6f);
    EXPECT_NEAR(world[2].y, 1.0f, 1e-6f);
}

TEST(PoseForward, RigidMoveLeavesUnselectedChildrenWhereTheyWere) {
    // Root 0 with bone 1, which carries bones 2 and 3.
    Pose pose = PoseAt({{-1, 0, 0}, {0, 1, 0}, {1, 2, 0}, {1, 1, 1}});
    const std::vector<WorldPoint> before = World(pose);
    PoseForward(pose, 1, 1, 0.0f, 1.0f, 2.0f, {1}, false, true);
    const std::vector<WorldPoint> after = World(pose);
    EXPECT_NEAR(after[1].x, 2.0f, 1e-6f);
    for (int i : {0, 2, 3}) {
        EXPECT_NEAR(after[i].x, before[i].x, 1e-6f) << i;
        EXPECT_NEAR(after[i].y, before[i].y, 1e-6f) << i;
    }
}

TEST(ScreenToWorld, ScaleAndOriginOfTheView) {
    const ScreenScale s = ScreenToWorld(ViewGeometry{.zoom = 2.0f,
                                                     .panX = 5.0f,
                                                     .panY = -2.5f,
                                                     .worldWidth = 400.0f,
                                                     .worldHeight = 300.0f,
                                                     .pixelWidth = 800,
                                                     .pixelHeight = 600});
    EXPECT_EQ(s.sx, 0.25f);
    EXPECT_EQ(s.sy, 0.25f);
    EXPECT_EQ(s.ox, 400.0f - 20.0f);
    EXPECT_EQ(s.oy, 300.0f + 10.0f);
}

struct DragCase {
    std::string name;
    int mode;
    Vec2 pixelNow;
    Vec2 expected;  // where the hot pin ends
    float scale;    // its skin scale afterwards
};

class DragForwardModes : public testing::TestWithParam<DragCase> {};

// An arm from the origin to (1, 0); the view maps a pixel to a world unit with the origin at pixel (10, 0).
TEST_P(DragForwardModes, TurnStretchOrBoth) {
    const DragCase& c = GetParam();
    Pose pose = PoseAt({{-1, 0, 0}, {0, 1, 0}});
    const ScreenScale view{.sx = 1.0f, .sy = 1.0f, .ox = 10.0f, .oy = 0.0f};
    DragForward(pose, 1, ForwardDrag{{1, 0}, {11, 0}, c.pixelNow, c.mode}, view, {1}, false);
    const std::vector<WorldPoint> world = World(pose);
    EXPECT_NEAR(world[1].x, c.expected.x, 1e-6f);
    EXPECT_NEAR(world[1].y, c.expected.y, 1e-6f);
    EXPECT_EQ(pose[1].scale, c.scale);
}

INSTANTIATE_TEST_SUITE_P(Modes, DragForwardModes,
                         testing::Values(DragCase{"Rotate", kDragRotate, {10, 2}, {0, 1}, 1.0f},
                                         DragCase{"Length", kDragLength, {10, 2}, {2, 0}, 2.0f},
                                         DragCase{"Move", kDragMove, {10, 2}, {0, 2}, 2.0f}),
                         [](const testing::TestParamInfo<DragCase>& info) { return info.param.name; });

TEST(DragForward, ARootFollowsTheMouse) {
    Pose pose = PoseAt({{-1, 2, 0}});
    DragForward(pose, 0, ForwardDrag{{2, 0}, {2, 0}, {2, 1}, kDragMove}, ScreenScale{}, {0}, false);
    EXPECT_NEAR(World(pose)[0].x, 2.0f, 1e-6f);
    EXPECT_NEAR(World(pose)[0].y, 1.0f, 1e-6f);
}

}  // namespace
}  // namespace kovra
