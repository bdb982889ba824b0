// Posing and solving one long chain of pins, listed parents first and children first, against copying
// the pose in the same run (times_copy: the work's time over the copy's). The work is what kovra-cli's
// pose and ik do: check that the key frames are trees, then sample the pose or solve and place the pins.
// Growth linear in the pins shows as a times_copy that stays level from 2,000 to 50,000 pins.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <random>
#include <set>
#include <vector>

#include "anim/forward.h"
#include "anim/ik_solver.h"
#include "anim/interpolate.h"

namespace {

using Clock = std::chrono::steady_clock;
using kovra::Pose;

double Seconds(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

// A chain of `count` pins, each hanging from the one before it in the chain, turning a little left and
// right. Parents first: the root is record 0. Children first: the root is the last record.
Pose Chain(int count, bool parentsFirst, float bend) {
    std::mt19937 rng(5);
    std::uniform_real_distribution<float> turn(-0.3f, 0.3f);
    Pose pose(count);
    float angle = 0.0f;
    for (int k = 0; k < count; ++k) {
        const int at = parentsFirst ? k : count - 1 - k;
        const int parent = k == 0 ? -1 : (parentsFirst ? at - 1 : at + 1);
        angle += turn(rng) + bend;
        pose[at].id = k;
        pose[at].parent = parent;
        pose[at].angle = kovra::NormalizeAngle(angle);
        pose[at].length = k == 0 ? 0.0f : 1.0f;
        pose[at].SetType(k == 0 ? kovra::Root : kovra::Bone);
    }
    return pose;
}

// Runs `work` and a copy of `pose` by turns. The copy goes into room made beforehand, so that it
// measures the memory the pose takes, not the allocator.
template <class Work>
void AgainstCopy(benchmark::State& state, const Pose& pose, Work work) {
    double workSeconds = 0;
    double copySeconds = 0;
    Pose copy = pose;
    for (auto _ : state) {
        const auto start = Clock::now();
        work();
        benchmark::ClobberMemory();
        const auto middle = Clock::now();
        copy.assign(pose.begin(), pose.end());
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
        const auto end = Clock::now();
        workSeconds += Seconds(start, middle);
        copySeconds += Seconds(middle, end);
        state.SetIterationTime(Seconds(start, middle));
    }
    state.counters["copy_us"] = benchmark::Counter(copySeconds * 1e6, benchmark::Counter::kAvgIterations);
    state.counters["times_copy"] = workSeconds / copySeconds;
    state.counters["ns_per_pin"] = benchmark::Counter(workSeconds * 1e9 / static_cast<double>(pose.size()),
                                                      benchmark::Counter::kAvgIterations);
}

void PoseChain(benchmark::State& state) {
    const auto count = static_cast<int>(state.range(0));
    const bool parentsFirst = state.range(1) != 0;
    kovra::Wirrel wirrel;
    wirrel.anims.push_back(
        {kovra::MakeName("a"), {{Chain(count, parentsFirst, 0.0f)}, {Chain(count, parentsFirst, 0.001f)}}});
    const kovra::PlayCursor cursor{.animIndex = 0, .framePos = 0.4f};
    Pose out;
    std::vector<kovra::WorldPoint> world;
    AgainstCopy(state, wirrel.anims[0].keys[0].pins, [&] {
        const bool trees =
            kovra::IsTree(wirrel.anims[0].keys[0].pins) && kovra::IsTree(wirrel.anims[0].keys[1].pins);
        kovra::EvaluatePose(wirrel, cursor, out);
        kovra::WorldPositions(out, world);
        benchmark::DoNotOptimize(trees);
        benchmark::DoNotOptimize(world.data());
    });
}

void IkChain(benchmark::State& state) {
    const auto count = static_cast<int>(state.range(0));
    const bool parentsFirst = state.range(1) != 0;
    const Pose pose = Chain(count, parentsFirst, 0.0f);
    const int end = parentsFirst ? count - 1 : 0;
    std::vector<kovra::WorldPoint> world;
    kovra::WorldPositions(pose, world);
    // The free end dragged a short way: the chain bends near its end and the solve settles.
    const kovra::Vec2 goal{world[end].x + 0.5f, world[end].y + 0.5f};
    bool solved = true;
    AgainstCopy(state, pose, [&] {
        Pose work = pose;
        solved = kovra::IsTree(work) && kovra::SolveIk(work, {}, end, goal, 100, false) && solved;
        kovra::WorldPositions(work, world);
        benchmark::DoNotOptimize(world.data());
    });
    state.counters["solved"] = solved ? 1 : 0;
}

void Sizes(benchmark::internal::Benchmark* b) {
    for (int parentsFirst : {1, 0}) {
        for (int count : {2000, 20000, 50000}) {
            b->Args({count, parentsFirst});
        }
    }
    b->ArgNames({"pins", "parents_first"});
}

}  // namespace

BENCHMARK(PoseChain)->Apply(Sizes)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(IkChain)->Apply(Sizes)->UseManualTime()->Unit(benchmark::kMillisecond);
