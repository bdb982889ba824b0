// Paint of the timeline against the 16.7 ms of a frame at 60 Hz, and against a memcpy of the same back
// buffer timed in the same run. frame_vs_paint is how many paints fit in one frame: the goal is 10.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include "base/prompt.h"
#include "doc/editor_hub.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "views/timeline/micro_timeline.h"
#include "views/timeline/timeline_view.h"

namespace {

constexpr double kFrameSeconds = 1.0 / 60.0;

class StillHub : public kovra::EditorHub {
public:
    int EditMode() const override { return 0; }
    void SetEditMode(int) override {}
    int SkinTool() const override { return 0; }
    void SetSkinTool(int) override {}
    int AnimListSelection() const override { return 0; }
    void SetAnimListSelection(int) override {}
    bool IsPlaying() const override { return false; }
    void StopPlayback() override {}
    kovra::WorkGrid Grid() const override { return {}; }
    void SetGrid(const kovra::WorkGrid&) override {}
    aurel::Color32 BackgroundColor() const override { return {}; }
    void SetBackgroundColor(aurel::Color32) override {}
    void SetBackgroundLoaded(bool) override {}
};

struct Scene {
    Scene(int pins, int frames) {
        doc.Reset(true);
        for (int i = 0; i < pins; ++i) {
            doc.AddPin(0.1f * static_cast<float>(i), 1.0f, i - 1, "pin" + std::to_string(i));
        }
        std::vector<kovra::WirrelKey>& keys = doc.CurrentAnim().keys;
        for (kovra::WirrelPin& pin : keys[0].pins) {
            pin.flags &= ~kovra::kPinHidden;
        }
        keys[0].ticks = 240;
        for (int i = 1; i < frames; ++i) {
            kovra::WirrelKey key = keys[0];
            for (kovra::WirrelPin& pin : key.pins) {
                pin.angle += 0.01f * static_cast<float>(i);
            }
            keys.push_back(key);
        }
    }

    kovra::WirrelDoc doc;
    StillHub hub;
    kovra::SelectionTracker selection;
    aurel::SilentPrompt prompt;
};

void PaintAgainstFrame(benchmark::State& state, kovra::TimelineView& view, int width, int height,
                       bool restrip) {
    using Clock = std::chrono::steady_clock;
    aurel::ImageSurface target;
    target.Resize(width, height);
    std::vector<std::uint32_t> copy(static_cast<std::size_t>(width) * height);
    view.SetSize(width, height);
    view.Paint(target);
    double paintSeconds = 0, copySeconds = 0;
    for (auto _ : state) {
        if (restrip) {
            view.InvalidateStrip();
        }
        const auto start = Clock::now();
        view.Paint(target);
        benchmark::ClobberMemory();
        const auto middle = Clock::now();
        std::memcpy(copy.data(), target.Row(0), copy.size() * 4);
        benchmark::ClobberMemory();
        const auto end = Clock::now();
        const double paint = std::chrono::duration<double>(middle - start).count();
        paintSeconds += paint;
        copySeconds += std::chrono::duration<double>(end - middle).count();
        state.SetIterationTime(paint);
    }
    const auto n = static_cast<double>(state.iterations());
    state.counters["memcpy_us"] = copySeconds / n * 1e6;
    state.counters["frame_vs_paint"] = kFrameSeconds / (paintSeconds / n);
}

// 1920 x 120, 200 key frames: the hover repaint over the kept strip, and the strip redrawn.
void BM_StripHover(benchmark::State& state) {
    Scene scene(12, 200);
    kovra::TimelineView view(scene.doc, scene.hub, scene.selection, scene.prompt);
    PaintAgainstFrame(state, view, 1920, 120, false);
}
BENCHMARK(BM_StripHover)->UseManualTime()->Unit(benchmark::kMicrosecond);

void BM_StripRedrawn(benchmark::State& state) {
    Scene scene(12, 200);
    kovra::TimelineView view(scene.doc, scene.hub, scene.selection, scene.prompt);
    PaintAgainstFrame(state, view, 1920, 120, true);
}
BENCHMARK(BM_StripRedrawn)->UseManualTime()->Unit(benchmark::kMicrosecond);

// The extended view with 64 lanes of the least height over 200 key frames: the hover repaint over the
// kept lanes, and the lanes drawn again, as a drag in a lane does at each move.
void Lanes64(benchmark::State& state, bool restrip) {
    Scene scene(64, 200);
    kovra::TimelineView view(scene.doc, scene.hub, scene.selection, scene.prompt);
    view.SetExtended(true);
    const int height = 43 + 64 * kovra::kMinLaneHeight + 61 + 16;
    view.SetSize(1920, height);
    view.Sync();
    view.Micro().SetLaneHeights(0, true);
    PaintAgainstFrame(state, view, 1920, height, restrip);
}

void BM_Lanes64(benchmark::State& state) {
    Lanes64(state, false);
}
BENCHMARK(BM_Lanes64)->UseManualTime()->Unit(benchmark::kMicrosecond);

void BM_Lanes64Redrawn(benchmark::State& state) {
    Lanes64(state, true);
}
BENCHMARK(BM_Lanes64Redrawn)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
