#include "random_walk.h"

#include <gtest/gtest.h>

#include "support/english.h"

namespace kovra {
namespace {

// A few seeds here; the stress program under bench/ runs many more.
TEST(RandomWalkTest, UndoingEverythingGivesTheStartAndRedoingEverythingTheEnd) {
    test::LoadEnglish();
    for (const std::uint32_t seed : {1u, 2u, 3u, 4u}) {
        const test::WalkResult result = test::RunRandomWalk(seed, 300);
        EXPECT_EQ(result.failure, "") << "seed " << seed;
        EXPECT_TRUE(result.undoneToStart) << "seed " << seed;
        EXPECT_TRUE(result.redoneToEnd) << "seed " << seed;
        EXPECT_GT(result.commands, 100u) << "seed " << seed;
    }
}

}  // namespace
}  // namespace kovra
