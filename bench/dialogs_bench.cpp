// The pack dialog's answer to one change of the list on a sheet of 2,000 textures: Auto size with its
// trials, the pages composed, and the preview laid out, against a baseline timed in the same run: one
// plain trial at 1024 by 1024. speed_vs_baseline is the baseline's time over the change's; the change
// itself is reported in milliseconds beside the 100 ms within which a click still feels immediate.

#include <benchmark/benchmark.h>

#include <chrono>
#include <random>

#include "views/dialogs/pack_preview.h"
#include "views/dialogs/pack_session.h"

namespace {

using namespace kovra;

constexpr int kTextures = 2000;
constexpr int kImages = 4;

// Four 1024 by 1024 images holding 500 textures each, of 6 to 40 pixels a side, in rows.
void FillDocument(WirrelDoc& doc) {
    doc.Reset(true);
    std::mt19937 rng(11);
    std::uniform_int_distribution<int> side(6, 40);
    for (int i = 0; i < kImages; ++i) {
        auto image =
            std::make_shared<WirrelTexImage>(aurel::DualString("/sheet" + std::to_string(i) + ".png"));
        image->surface.Resize(1024, 1024);
        image->surface.Clear(0xFF808080u | static_cast<std::uint32_t>(i * 40));
        doc.images.push_back(image);
    }
    int x = 0, y = 0, rowHeight = 0, image = 0;
    for (int t = 0; t < kTextures; ++t) {
        const int w = side(rng);
        const int h = side(rng);
        if (x + w > 1024) {
            x = 0;
            y += rowHeight;
            rowHeight = 0;
        }
        if (y + h > 1024 || t == (image + 1) * kTextures / kImages) {
            ++image;
            x = y = rowHeight = 0;
        }
        doc.Wirrel().textures.push_back(
            WirrelTexture{.imageIndex = image, .x = x, .y = y, .width = w, .height = h});
        x += w;
        rowHeight = std::max(rowHeight, h);
    }
}

void BM_PackDialogChange(benchmark::State& state) {
    WirrelDoc doc;
    FillDocument(doc);
    PackSession session(doc);
    const std::vector<int> all = {0, 1, 2, 3};
    using Clock = std::chrono::steady_clock;
    double changeSeconds = 0, baselineSeconds = 0;
    bool checked = true;
    for (auto _ : state) {
        const auto start = Clock::now();
        checked = !checked;
        session.SetRowChecked(3, checked);
        if (session.CanPack()) {
            const auto pages = ComposePages(doc, session.Trial(), session.PageWidth(), session.PageHeight());
            benchmark::DoNotOptimize(
                ComposePackPreview(pages, session.PageWidth(), session.PageHeight(), 540, 290));
        }
        const auto middle = Clock::now();
        benchmark::DoNotOptimize(RunPackTrial(doc.Wirrel(), all, 1024, 1024));
        const auto end = Clock::now();
        const double change = std::chrono::duration<double>(middle - start).count();
        changeSeconds += change;
        baselineSeconds += std::chrono::duration<double>(end - middle).count();
        state.SetIterationTime(change);
    }
    state.counters["change_ms"] = benchmark::Counter(changeSeconds * 1e3, benchmark::Counter::kAvgIterations);
    state.counters["baseline_ms"] =
        benchmark::Counter(baselineSeconds * 1e3, benchmark::Counter::kAvgIterations);
    state.counters["speed_vs_baseline"] = baselineSeconds / changeSeconds;
    state.counters["budget_100ms_ratio"] =
        benchmark::Counter(changeSeconds * 1e3 / 100.0, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_PackDialogChange)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
