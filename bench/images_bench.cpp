// Loading a 4096 x 4096 PNG sprite sheet through the image layer, against a memcpy of its pixels timed in
// the same run: the load's time is reported as its own, the copy's beside it, and speed_vs_baseline is
// the copy's time over the load's (0.05 means the load takes twenty copies' time).

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <cstring>
#include <vector>

#include "images/vyl_lib.h"
#include "images/wirrel_tex_image.h"

namespace {

constexpr int kSide = 4096;

// A sheet of sprites on a transparent background: one sprite of 20 to 60 pixels a side in each 64 x 64
// cell, 4096 sprites in all, each with a gradient so that the file is not trivially compressible.
const std::vector<std::uint8_t>& SheetPng() {
    static const std::vector<std::uint8_t> png = [] {
        kovra::VylLibInit();
        kovra::WirrelTexImage sheet;
        sheet.surface.Resize(kSide, kSide);
        for (int y = 0; y < kSide; ++y) {
            std::uint32_t* row = sheet.surface.Row(y);
            for (int x = 0; x < kSide; ++x) {
                const int cell = (y / 64) * 64 + x / 64;
                const int size = 20 + cell * 7 % 41;
                const bool inside = x % 64 < size && y % 64 < size;
                row[x] =
                    inside ? 0xFF000000u | static_cast<std::uint32_t>(x * 3 + y * 5 + cell) % 0xFFFFFF : 0;
            }
        }
        std::vector<std::uint8_t> bytes(static_cast<std::size_t>(kSide) * kSide * 5);
        bytes.resize(sheet.SaveMemory(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
        return bytes;
    }();
    return png;
}

void BM_LoadPngSheet(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    const std::vector<std::uint8_t>& png = SheetPng();
    std::vector<std::uint8_t> from(static_cast<std::size_t>(kSide) * kSide * 4, 0x5A);
    std::vector<std::uint8_t> to(from.size());
    double loadSeconds = 0;
    double copySeconds = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        kovra::WirrelTexImage image;
        if (!image.LoadMemory(png.data(), png.size())) {
            state.SkipWithError("the sheet did not load");
            return;
        }
        benchmark::DoNotOptimize(image.surface.Row(0));
        const auto middle = Clock::now();
        std::memcpy(to.data(), from.data(), to.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
        const auto end = Clock::now();
        const double loadTime = std::chrono::duration<double>(middle - start).count();
        loadSeconds += loadTime;
        copySeconds += std::chrono::duration<double>(end - middle).count();
        state.SetIterationTime(loadTime);
    }
    state.counters["png_bytes"] = static_cast<double>(png.size());
    state.counters["baseline_us"] = benchmark::Counter(copySeconds * 1e6, benchmark::Counter::kAvgIterations);
    state.counters["speed_vs_baseline"] = copySeconds / loadSeconds;
}
BENCHMARK(BM_LoadPngSheet)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace
