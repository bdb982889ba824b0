// Posing must not depend on the order in which key frames list their records: parents may come after
// their children. (Interpolation compares parent positions across the two frames, so both are listed
// in the same new order.)

#include <gtest/gtest.h>

#include <bit>
#include <map>
#include <random>

#include "anim/interpolate.h"
#include "pose_builder.h"

namespace kovra {
namespace {

// The records of `pose` listed in the order `order` gives, parent links following their records.
Pose Reordered(const Pose& pose, const std::vector<int>& order) {
    std::vector<int> place(pose.size());
    for (std::size_t k = 0; k < order.size(); ++k) {
        place[order[k]] = static_cast<int>(k);
    }
    Pose out(pose.size());
    for (std::size_t k = 0; k < order.size(); ++k) {
        out[k] = pose[order[k]];
        if (out[k].parent >= 0) {
            out[k].parent = place[out[k].parent];
        }
    }
    return out;
}

std::vector<int> Shuffled(std::size_t count, std::mt19937& rng) {
    std::vector<int> order(count);
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), rng);
    return order;
}

// Every value a posed record carries, by pin id, as bits.
std::map<int, std::vector<std::uint32_t>> ById(const Pose& pose) {
    std::map<int, std::vector<std::uint32_t>> out;
    for (const WirrelPin& pin : pose) {
        out[pin.id] = {std::bit_cast<std::uint32_t>(pin.angle), std::bit_cast<std::uint32_t>(pin.length),
                       std::bit_cast<std::uint32_t>(pin.scale), pin.flags};
    }
    return out;
}

std::map<int, std::vector<std::uint32_t>> ById(const std::vector<WorldPoint>& world) {
    std::map<int, std::vector<std::uint32_t>> out;
    for (const WorldPoint& p : world) {
        out[static_cast<int>(p.id)] = {std::bit_cast<std::uint32_t>(p.x), std::bit_cast<std::uint32_t>(p.y)};
    }
    return out;
}

TEST(RecordOrder, EveryPinIsPosedToTheSameBitsInAnyOrder) {
    std::mt19937 rng(31);
    for (int run = 0; run < 40; ++run) {
        SCOPED_TRACE(run);
        const int count = 2 + run * 5;
        const Pose a = test::RandomSkeleton(rng, count);
        Pose b = a;
        for (WirrelPin& pin : b) {
            pin.angle = NormalizeAngle(pin.angle + std::uniform_real_distribution<float>(-3, 3)(rng));
            pin.scale = std::uniform_real_distribution<float>(0.5f, 2.0f)(rng);
        }
        // Some pins hang elsewhere in b, some are roots there, some are hidden in a.
        Pose hidden = a;
        for (int i = 0; i < count; ++i) {
            const int dice = std::uniform_int_distribution<int>(0, 9)(rng);
            if (dice == 0 && b[i].parent >= 0 && b[b[i].parent].parent >= 0) {
                b[i].parent = b[b[i].parent].parent;
            } else if (dice == 1 && b[i].parent >= 0) {
                b[i].SetType(Root);
            } else if (dice == 2) {
                hidden[i].flags |= kPinHidden;
            }
        }
        ASSERT_TRUE(IsTree(b));
        const float t = std::uniform_real_distribution<float>(0, 1)(rng);
        Pose expected;
        Interpolate(expected, hidden, b, t);
        const auto expectedWorld = ById(test::World(a));

        for (int shuffle = 0; shuffle < 3; ++shuffle) {
            const std::vector<int> order = Shuffled(a.size(), rng);
            const Pose a2 = Reordered(hidden, order);
            const Pose b2 = Reordered(b, order);
            ASSERT_TRUE(IsTree(a2));
            Pose out;
            Interpolate(out, a2, b2, t);
            EXPECT_EQ(ById(out), ById(expected));
            EXPECT_EQ(ById(test::World(Reordered(a, Shuffled(a.size(), rng)))), expectedWorld);
        }
    }
}

TEST(RecordOrder, LongChainsInBothOrders) {
    constexpr int kCount = 50000;
    for (bool parentsFirst : {true, false}) {
        Pose chain(kCount);
        for (int k = 0; k < kCount; ++k) {
            const int at = parentsFirst ? k : kCount - 1 - k;
            chain[at] = WirrelPin{.angle = 0.0f, .length = 1.0f, .id = k};
            chain[at].parent = k == 0 ? -1 : (parentsFirst ? at - 1 : at + 1);
            chain[at].SetType(k == 0 ? Root : Bone);
        }
        EXPECT_TRUE(IsTree(chain));
        const std::vector<WorldPoint> world = test::World(chain);
        EXPECT_EQ(world[parentsFirst ? kCount - 1 : 0].x, static_cast<float>(kCount));
        Pose out;
        Interpolate(out, chain, chain, 0.5f);
        Pose expected = chain;
        expected[parentsFirst ? 0 : kCount - 1].scale = 0.0f;  // as interpolated roots have
        EXPECT_TRUE(ById(out) == ById(expected));
        // A loop closed at the top: no record leads to a top any more.
        chain[parentsFirst ? 0 : kCount - 1].parent = parentsFirst ? kCount - 1 : 0;
        EXPECT_FALSE(IsTree(chain));
    }
}

TEST(RecordOrder, RecordsOnLoopsOrBrokenLinksStayAtTheOrigin) {
    // 0 root, 1 under 0; 2 and 3 a loop with 4 below it; 5 under a record that doesn't exist, 6 below it.
    Pose pose(7);
    const int parents[7] = {-1, 0, 3, 2, 3, 9, 5};
    for (int i = 0; i < 7; ++i) {
        pose[i] = WirrelPin{.angle = 0.0f, .length = 1.0f, .parent = parents[i], .id = 10 + i};
    }
    EXPECT_FALSE(IsTree(pose));
    const std::vector<WorldPoint> world = test::World(pose);
    const std::vector<float> xs = {1, 2, 0, 0, 0, 0, 0};
    const std::vector<float> ids = {10, 11, 0, 0, 0, 0, 0};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(world[i].x, xs[i]) << i;
        EXPECT_EQ(world[i].id, ids[i]) << i;
    }
    for (const std::vector<int>& links : std::vector<std::vector<int>>{{-1, 0, 1}, {2, 0, 1}, {-1, 1, 0}}) {
        Pose tree(3);
        for (int i = 0; i < 3; ++i) {
            tree[i].parent = links[i];
        }
        EXPECT_EQ(IsTree(tree), links[0] == -1 && links[1] == 0) << links[0] << links[1] << links[2];
    }
}

}  // namespace
}  // namespace kovra
