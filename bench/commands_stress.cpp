// Undo and redo under stress, against baselines measured in the same run.
//
// RandomWalk: many seeds of the random walk of the command tests (each builds a document through a few
// hundred random commands, undoes them all and redoes them all, comparing the saved bytes). It reports
// the seeds run and the failures, which must be 0, and the time per command (made, undone and redone)
// beside copy_us, the time of one whole-document copy of a walk's end document: what each command would
// cost if it kept a snapshot of the whole document instead of its own small part.
//
// DragMemory: the heap that a merged forward drag of N moves over a 64-pin skeleton keeps on the stack,
// beside pose_bytes, the bytes of one pose vector. The figure must not grow with N: two pose vectors and
// the command around them.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <vector>

#include "commands/command_stack.h"
#include "commands/pin_commands.h"
#include "random_walk.h"

namespace {

// Live heap bytes of the whole program, kept by the replaced global allocation functions below.
std::int64_t liveBytes = 0;
constexpr std::size_t kHeader = 16;  // keeps malloc's alignment

void* Allocate(std::size_t size) {
    void* block = std::malloc(size + kHeader);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    *static_cast<std::size_t*>(block) = size;
    liveBytes += static_cast<std::int64_t>(size);
    return static_cast<char*>(block) + kHeader;
}

void Free(void* pointer) {
    if (pointer == nullptr) {
        return;
    }
    void* block = static_cast<char*>(pointer) - kHeader;
    liveBytes -= static_cast<std::int64_t>(*static_cast<std::size_t*>(block));
    std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* pointer) noexcept {
    Free(pointer);
}
void operator delete[](void* pointer) noexcept {
    Free(pointer);
}
void operator delete(void* pointer, std::size_t) noexcept {
    Free(pointer);
}
void operator delete[](void* pointer, std::size_t) noexcept {
    Free(pointer);
}

namespace {

using Clock = std::chrono::steady_clock;

double Seconds(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

constexpr int kWalkSteps = 500;

void RandomWalk(benchmark::State& state) {
    const auto seeds = static_cast<std::uint32_t>(state.range(0));
    int failures = 0;
    double commands = 0;
    double walkSeconds = 0;
    double copySeconds = 0;
    for (auto _ : state) {
        for (std::uint32_t seed = 1; seed <= seeds; ++seed) {
            const auto start = Clock::now();
            const kovra::test::WalkResult result = kovra::test::RunRandomWalk(seed, kWalkSteps);
            const auto walked = Clock::now();
            const kovra::Wirrel copy = result.end;
            benchmark::DoNotOptimize(copy.anims.data());
            const auto copied = Clock::now();
            if (!result.failure.empty()) {
                ++failures;
                std::fprintf(stderr, "seed %u: %s\n", seed, result.failure.c_str());
            }
            commands += static_cast<double>(result.commands);
            walkSeconds += Seconds(start, walked);
            copySeconds += Seconds(walked, copied);
        }
    }
    const double runs = static_cast<double>(state.iterations()) * seeds;
    state.counters["seeds"] = seeds;
    state.counters["steps"] = kWalkSteps;
    state.counters["failures"] = failures;
    state.counters["commands"] = commands / runs;
    state.counters["ms_per_seed"] = walkSeconds * 1e3 / runs;
    // Each command on the stack was made, undone and redone once: three passes.
    const double commandUs = walkSeconds * 1e6 / (3 * commands);
    state.counters["us_per_command"] = commandUs;
    state.counters["copy_us"] = copySeconds * 1e6 / runs;
    state.counters["times_baseline"] = commandUs / (copySeconds * 1e6 / runs);
}
BENCHMARK(RandomWalk)->Arg(1000)->Iterations(1)->Unit(benchmark::kMillisecond);

// A chain of `count` pins from a root at the origin, each a unit long.
std::vector<kovra::WirrelPin> Chain(int count) {
    std::vector<kovra::WirrelPin> pins(count);
    for (int i = 0; i < count; ++i) {
        pins[i] = kovra::WirrelPin{.angle = 0.1f * static_cast<float>(i % 7),
                                   .length = i == 0 ? 0.0f : 1.0f,
                                   .flags = i == 0 ? kovra::Root : kovra::Bone,
                                   .parent = i - 1,
                                   .id = i};
    }
    return pins;
}

void DragMemory(benchmark::State& state) {
    constexpr int kPins = 64;
    const auto moves = static_cast<int>(state.range(0));
    std::int64_t retained = 0;
    double dragSeconds = 0;
    double copySeconds = 0;
    for (auto _ : state) {
        state.PauseTiming();
        kovra::WirrelDoc doc;
        doc.Wirrel().pinNames.assign(kPins, kovra::MakeName("pin"));
        doc.CurrentKey().pins = Chain(kPins);
        kovra::SelectionTracker selection;
        selection.Add(kPins - 1, true);
        selection.Add(kPins / 2, false);
        selection.SetHot(kPins - 1, 0);
        kovra::ViewTransform view = kovra::ViewTransform::OfClient(1280, 800);
        kovra::FillPinPixels(view, doc.CurrentKey().pins);
        const kovra::Vec2 grabbed{view.pinPixels[kPins - 1].x, view.pinPixels[kPins - 1].y};
        const kovra::Vec2 pressed{grabbed.x + view.ScreenToWorld().ox, grabbed.y + view.ScreenToWorld().oy};
        kovra::CommandStack stack;
        const std::int64_t before = liveBytes;
        state.ResumeTiming();

        const auto start = Clock::now();
        for (int move = 1; move <= moves; ++move) {
            const kovra::Vec2 mouse{pressed.x - 0.05f * static_cast<float>(move), pressed.y + 0.03f * move};
            stack.AddCommand(std::make_shared<kovra::CommandPinFk>(grabbed, pressed, mouse, doc, selection,
                                                                   kovra::kDragMove, view));
            kovra::FillPinPixels(view, doc.CurrentKey().pins);
        }
        stack.FinishDrag(kovra::kKindPinFk, true);
        const auto dragged = Clock::now();
        for (int move = 1; move <= moves; ++move) {
            std::vector<kovra::WirrelPin> first = doc.CurrentKey().pins;
            std::vector<kovra::WirrelPin> second = doc.CurrentKey().pins;
            benchmark::DoNotOptimize(first.data());
            benchmark::DoNotOptimize(second.data());
        }
        const auto copied = Clock::now();

        state.PauseTiming();
        retained = liveBytes - before;
        if (stack.Size() != 1) {
            state.SkipWithError("the drag didn't merge into one command");
        }
        dragSeconds += Seconds(start, dragged);
        copySeconds += Seconds(dragged, copied);
        state.ResumeTiming();
    }
    const double totalMoves = static_cast<double>(state.iterations()) * moves;
    const double poseBytes = kPins * sizeof(kovra::WirrelPin);
    state.counters["retained_bytes"] = static_cast<double>(retained);
    state.counters["pose_bytes"] = poseBytes;
    state.counters["retained_poses"] = static_cast<double>(retained) / poseBytes;
    state.counters["us_per_move"] = dragSeconds * 1e6 / totalMoves;
    // The baseline copies the pose twice per move, the least a move that keeps two snapshots can do.
    state.counters["copy2_us"] = copySeconds * 1e6 / totalMoves;
    state.counters["times_baseline"] = dragSeconds / copySeconds;
}
BENCHMARK(DragMemory)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
