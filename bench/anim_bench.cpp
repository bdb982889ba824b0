// The animation core against baselines timed in the same run. Pose sampling and world positions run by
// turns with a plain copy of the same pose vector and report times_baseline, their time over the copy's.
// The solver is measured against the 16.7 ms of one display frame and reports share_of_frame.

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

constexpr double kDisplayFrameSeconds = 1.0 / 60.0;

double Seconds(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

// A skeleton of `count` pins in long branching chains: each pin hangs off one of the four before it.
Pose Skeleton(int count, unsigned seed) {
    std::mt19937 rng(seed);
    std::uniform_real_distribution<float> angle(0.0f, 6.28f);
    std::uniform_real_distribution<float> length(0.5f, 1.5f);
    Pose pose(count);
    for (int i = 0; i < count; ++i) {
        pose[i].id = i;
        pose[i].angle = angle(rng);
        pose[i].length = length(rng);
        pose[i].parent = i == 0 ? -1 : std::uniform_int_distribution<int>(std::max(0, i - 4), i - 1)(rng);
        pose[i].SetType(i == 0 ? kovra::Root : kovra::Bone);
    }
    return pose;
}

// Runs `operation` and a copy of `pose` by turns.
template <class Operation>
void AgainstCopy(benchmark::State& state, const Pose& pose, Operation operation) {
    double operationSeconds = 0;
    double copySeconds = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        operation();
        benchmark::ClobberMemory();
        const auto middle = Clock::now();
        Pose copy = pose;
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
        const auto end = Clock::now();
        operationSeconds += Seconds(start, middle);
        copySeconds += Seconds(middle, end);
        state.SetIterationTime(Seconds(start, middle));
    }
    state.counters["copy_us"] = benchmark::Counter(copySeconds * 1e6, benchmark::Counter::kAvgIterations);
    state.counters["times_baseline"] = operationSeconds / copySeconds;
}

void EvaluatePose256(benchmark::State& state) {
    kovra::Wirrel wirrel;
    kovra::WirrelAnim anim;
    for (unsigned seed : {1u, 2u}) {
        kovra::WirrelKey key;
        key.pins = Skeleton(256, 7);
        // The same tree in both frames, with other angles in the second.
        if (seed == 2) {
            for (kovra::WirrelPin& pin : key.pins) {
                pin.angle = kovra::NormalizeAngle(pin.angle + 0.7f);
            }
        }
        anim.keys.push_back(key);
    }
    wirrel.anims.push_back(anim);
    const kovra::PlayCursor cursor{.animIndex = 0, .framePos = 0.4f};
    Pose out;
    AgainstCopy(state, anim.keys[0].pins, [&] {
        kovra::EvaluatePose(wirrel, cursor, out);
        benchmark::DoNotOptimize(out.data());
    });
}

void WorldPositions256(benchmark::State& state) {
    const Pose pose = Skeleton(256, 7);
    std::vector<kovra::WorldPoint> world;
    AgainstCopy(state, pose, [&] {
        kovra::WorldPositions(pose, world);
        benchmark::DoNotOptimize(world.data());
    });
}

// One solve on 64 pins with two pins locked and a third dragged to `reach` times its own position plus a
// small step, starting each time from the same pose.
void SolveIk64(benchmark::State& state, unsigned seed, const std::set<int>& locks, int hot, float reach) {
    const Pose pose = Skeleton(64, seed);
    std::vector<kovra::WorldPoint> world;
    kovra::WorldPositions(pose, world);
    const kovra::Vec2 goal{world[hot].x * reach + 0.3f, world[hot].y * reach - 0.2f};

    double seconds = 0;
    bool result = true;
    for (auto _ : state) {
        Pose solved = pose;
        const auto start = Clock::now();
        result = kovra::SolveIk(solved, locks, hot, goal, 100, false) && result;
        benchmark::DoNotOptimize(solved.data());
        const auto end = Clock::now();
        seconds += Seconds(start, end);
        state.SetIterationTime(Seconds(start, end));
    }
    state.counters["frame_us"] = kDisplayFrameSeconds * 1e6;
    state.counters["share_of_frame"] =
        benchmark::Counter(seconds / kDisplayFrameSeconds, benchmark::Counter::kAvgIterations);
    state.counters["solved"] = result ? 1 : 0;
}

// Three leaves of one skeleton: the locks on two branches, the dragged pin on a third, with a junction
// between them.
void SolveIk64Near(benchmark::State& state) {
    SolveIk64(state, 11, {2, 35}, 63, 1.0f);
}

void SolveIk64OutOfReach(benchmark::State& state) {
    SolveIk64(state, 11, {2, 35}, 63, 20.0f);
}

// The slowest of 12000 random set-ups of this kind (two leaves locked, a third dragged): the junction
// never settles, so the solve runs all its passes, each with all its inner passes.
void SolveIk64SlowestFound(benchmark::State& state) {
    SolveIk64(state, 2992, {10, 37}, 21, 20.0f);
}

}  // namespace

BENCHMARK(EvaluatePose256)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(WorldPositions256)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(SolveIk64Near)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(SolveIk64OutOfReach)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(SolveIk64SlowestFound)->UseManualTime()->Unit(benchmark::kMicrosecond);
