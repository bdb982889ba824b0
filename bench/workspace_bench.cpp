// A whole workspace frame of a big rig at full-screen size, against a memcpy of the back buffer timed in
// the same run, and as a share of a 60 Hz display frame (16.7 ms). Both are timed in process CPU time, so
// that other work on a shared machine doesn't count as the frame's.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <string>

#include "cpu_clock.h"
#include "views/workspace/workspace_paint.h"

namespace {

constexpr int kWidth = 1920, kHeight = 1080;
constexpr double kDisplayFrame = 1.0 / 60.0;

// An image of 8 x 8 textures of 64 x 64 pixels, opaque with clear corners.
std::shared_ptr<kovra::WirrelTexImage> SpriteSheet() {
    auto image = std::make_shared<kovra::WirrelTexImage>();
    image->surface.Resize(512, 512);
    for (int y = 0; y < 512; ++y) {
        for (int x = 0; x < 512; ++x) {
            const int cx = x % 64 - 32;
            const int cy = y % 64 - 32;
            const std::uint32_t alpha = cx * cx + cy * cy < 30 * 30 ? 0xFF : 0;
            image->surface.Row(y)[x] = alpha << 24 | (static_cast<std::uint32_t>(x * 7 + y * 13) & 0xFFFFFF);
        }
    }
    return image;
}

// 20 arms of 10 skinned bones, and 10 tails of five pins, spread over the screen.
void BuildRig(kovra::WirrelDoc& doc) {
    doc.Reset(true);
    doc.Wirrel().pixelsPerUnit = 64;
    doc.SetImage(-1, SpriteSheet());
    for (int t = 0; t < 64; ++t) {
        doc.Wirrel().textures.push_back(kovra::WirrelTexture{0, t % 8 * 64, t / 8 * 64, 64, 64});
    }
    const auto skin = [&doc](int pin, int texture, float angle) {
        doc.Wirrel().skins.push_back(
            kovra::WirrelSkin{.texture = texture, .scaleX = 1.5f, .scaleY = 1.5f, .angle = angle});
        doc.CurrentKey().pins[pin].skin = static_cast<int>(doc.Wirrel().skins.size() - 1);
    };
    for (int arm = 0; arm < 20; ++arm) {
        const float x = -26.0f + 13.0f * static_cast<float>(arm % 5);
        const float y = -12.0f + 8.0f * static_cast<float>(arm / 5);
        int parent = doc.AddPin(std::atan2(y, x), std::hypot(x, y), -1, "Arm");
        for (int bone = 0; bone < 10; ++bone) {
            parent = doc.AddPin(0.3f * static_cast<float>(bone + arm), 1.1f, parent, "Bone");
            skin(parent, (arm * 10 + bone) % 64, 0.2f * static_cast<float>(bone));
        }
    }
    for (int tail = 0; tail < 10; ++tail) {
        int parent = doc.AddPin(0.6f * static_cast<float>(tail), 14.0f, -1, "Tail");
        parent = doc.AddPin(0.0f, 1.0f, parent, "End");
        for (int segment = 0; segment < 4; ++segment) {
            parent = doc.AddPin(0.5f * static_cast<float>(segment), 1.2f, parent, "Segment");
            kovra::WirrelPin& pin = doc.CurrentKey().pins[parent];
            pin.SetType(kovra::Tail);
            pin.flags |= segment == 3 ? kovra::kTailEnd : kovra::kTailSegment;
        }
        skin(parent, tail, 0.0f);
    }
}

void WorkspaceFrame(benchmark::State& state) {
    kovra::WirrelDoc doc;
    BuildRig(doc);
    kovra::WorkspaceState view;
    view.view = kovra::ViewTransform::OfClient(kWidth, kHeight);
    view.pinSelection.Add(5, true);
    const kovra::WorkspaceTheme theme;
    const kovra::EdgeFade fade = kovra::DefaultEdgeFade();
    kovra::WorkspaceBuffers buffers;
    std::vector<std::uint32_t> copy(static_cast<std::size_t>(kWidth) * kHeight);
    double paintSeconds = 0, copySeconds = 0;
    for (auto _ : state) {
        const double start = CpuSeconds();
        kovra::PaintWorkspace(doc, view, theme, kovra::WorkingColours::FromTheme(theme), fade, buffers);
        benchmark::ClobberMemory();
        const double middle = CpuSeconds();
        std::memcpy(copy.data(), buffers.back.Row(0), copy.size() * 4);
        benchmark::ClobberMemory();
        const double end = CpuSeconds();
        paintSeconds += middle - start;
        copySeconds += end - middle;
        state.SetIterationTime(middle - start);
    }
    state.counters["memcpy_us"] = benchmark::Counter(copySeconds * 1e6, benchmark::Counter::kAvgIterations);
    state.counters["speed_vs_memcpy"] = copySeconds / paintSeconds;
    state.counters["share_of_display_frame"] =
        benchmark::Counter(paintSeconds / kDisplayFrame, benchmark::Counter::kAvgIterations);
}

}  // namespace

BENCHMARK(WorkspaceFrame)->UseManualTime()->Unit(benchmark::kMillisecond);
