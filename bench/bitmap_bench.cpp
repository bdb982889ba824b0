// The bitmap layer against baselines timed in the same run: every benchmark runs its operation and its
// baseline by turns, reports the operation's time as its own and the baseline's beside it, and the ratio
// speed_vs_baseline, the baseline's time over the operation's: 1 means as fast as the baseline. Times are
// process CPU time, so that other work on a shared machine weighs on neither side.

#include <benchmark/benchmark.h>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "bitmap/image_surface.h"
#include "cpu_clock.h"

namespace {

constexpr int kWidth = 1920, kHeight = 1080;

template <class Operation, class Baseline>
void Paired(benchmark::State& state, Operation operation, Baseline baseline) {
    double operationSeconds = 0, baselineSeconds = 0;
    for (auto _ : state) {
        const double start = CpuSeconds();
        operation();
        benchmark::ClobberMemory();
        const double middle = CpuSeconds();
        baseline();
        benchmark::ClobberMemory();
        const double end = CpuSeconds();
        operationSeconds += middle - start;
        baselineSeconds += end - middle;
        state.SetIterationTime(middle - start);
    }
    state.counters["baseline_us"] =
        benchmark::Counter(baselineSeconds * 1e6, benchmark::Counter::kAvgIterations);
    state.counters["speed_vs_baseline"] = baselineSeconds / operationSeconds;
}

aurel::ImageSurface Surface(int width, int height, std::uint32_t colour) {
    aurel::ImageSurface surface;
    surface.Resize(width, height);
    surface.Clear(colour);
    return surface;
}

// An opaque texture with some variety in it.
aurel::ImageSurface Texture(int width, int height) {
    aurel::ImageSurface texture = Surface(width, height, 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            texture.Row(y)[x] = 0xFF000000u | (static_cast<std::uint32_t>(x * 7 + y * 13) & 0xFFFFFF);
        }
    }
    return texture;
}

// memcpy of `pixels` pixels between two buffers of their own.
struct Copy {
    explicit Copy(std::size_t pixels) : from(pixels, 0x12345678), to(pixels) {}
    void operator()() {
        std::memcpy(to.data(), from.data(), from.size() * 4);
        benchmark::DoNotOptimize(to.data());
    }
    std::vector<std::uint32_t> from, to;
};

// The corners of a width by height rectangle turned by `angle` about the screen's centre.
std::array<float, 8> Turned(float width, float height, float angle) {
    const float c = std::cos(angle), s = std::sin(angle);
    std::array<float, 8> corners{};
    const float xs[4] = {-width / 2, width / 2, width / 2, -width / 2};
    const float ys[4] = {-height / 2, -height / 2, height / 2, height / 2};
    for (int i = 0; i < 4; ++i) {
        corners[2 * i] = kWidth / 2.0f + xs[i] * c - ys[i] * s;
        corners[2 * i + 1] = kHeight / 2.0f + xs[i] * s + ys[i] * c;
    }
    return corners;
}

void Clear(benchmark::State& state) {
    aurel::ImageSurface s = Surface(kWidth, kHeight, 0);
    std::vector<std::uint32_t> block(s.ByteSize() / 4);
    Paired(
        state, [&] { s.Clear(0xFF336699); },
        [&] {
            std::memset(block.data(), 0x33, block.size() * 4);
            benchmark::DoNotOptimize(block.data());
        });
}

void FillRect(benchmark::State& state) {
    aurel::ImageSurface s = Surface(kWidth, kHeight, 0);
    std::vector<std::uint32_t> block(s.ByteSize() / 4);
    Paired(
        state, [&] { s.FillRect(0, 0, kWidth - 1, kHeight - 1, 0xFF336699); },
        [&] {
            std::memset(block.data(), 0x33, block.size() * 4);
            benchmark::DoNotOptimize(block.data());
        });
}

void DrawQuad(benchmark::State& state, float opacity) {
    const aurel::ImageSurface texture = Texture(kWidth, kHeight);
    aurel::ImageSurface s = Surface(kWidth, kHeight, 0xFF000000);
    const std::array<float, 8> corners = Turned(kWidth, kHeight, 0);
    Copy copy(std::size_t{kWidth} * kHeight);
    Paired(
        state, [&] { texture.DrawQuad(0, 0, kWidth, kHeight, s, corners, opacity, 0); }, copy);
}

void DrawQuadOpaque(benchmark::State& state) {
    DrawQuad(state, 1.0f);
}
void DrawQuadOpacity(benchmark::State& state) {
    DrawQuad(state, 0.4f);
}

// A 1024 x 512 texture turned by 30 degrees, wholly on screen: the same number of pixels as the memcpy.
void DrawQuadRotated(benchmark::State& state) {
    const aurel::ImageSurface texture = Texture(1024, 512);
    aurel::ImageSurface s = Surface(kWidth, kHeight, 0xFF000000);
    const std::array<float, 8> corners = Turned(1024, 512, 0.5235988f);
    Copy copy(std::size_t{1024} * 512);
    Paired(
        state, [&] { texture.DrawQuad(0, 0, 1024, 512, s, corners, 1.0f, 0); }, copy);
}

void BlitScaled(benchmark::State& state) {
    const aurel::ImageSurface texture = Texture(kWidth / 2, kHeight / 2);
    aurel::ImageSurface s = Surface(kWidth, kHeight, 0xFF000000);
    Copy copy(std::size_t{kWidth} * kHeight);
    Paired(
        state, [&] { texture.Blit(0, 0, kWidth / 2, kHeight / 2, s, 0, 0, kWidth, kHeight, 1.0f, true); },
        copy);
}

// The baseline renders the same letters with FreeType on every call, the least that drawing without a glyph
// cache would cost.
class UncachedGlyphs {
public:
    explicit UncachedGlyphs(int size) {
        FT_Init_FreeType(&library_);
        FcPattern* pattern = FcNameParse(reinterpret_cast<const FcChar8*>("sans-serif"));
        FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
        FcDefaultSubstitute(pattern);
        FcResult result;
        FcPattern* match = FcFontMatch(nullptr, pattern, &result);
        FcChar8* file = nullptr;
        FcPatternGetString(match, FC_FILE, 0, &file);
        FT_New_Face(library_, reinterpret_cast<const char*>(file), 0, &face_);
        FcPatternDestroy(match);
        FcPatternDestroy(pattern);
        FT_Size_RequestRec request{FT_SIZE_REQUEST_TYPE_REAL_DIM, 0, size * 64, 0, 0};
        FT_Request_Size(face_, &request);
    }
    ~UncachedGlyphs() {
        FT_Done_Face(face_);
        FT_Done_FreeType(library_);
    }
    void Render(const std::string& text) {
        for (char c : text) {
            FT_Load_Char(face_, static_cast<unsigned char>(c), FT_LOAD_RENDER);
            benchmark::DoNotOptimize(face_->glyph->bitmap.buffer);
        }
    }

private:
    FT_Library library_ = nullptr;
    FT_Face face_ = nullptr;
};

void DrawText(benchmark::State& state) {
    constexpr std::string_view kLabel = "Bone 12: upper arm, left (IK on) 0:24.50";
    static_assert(kLabel.size() == 40);
    const std::string label(kLabel);
    aurel::TextFont font;
    font.size = 13;
    aurel::ImageSurface s = Surface(400, 24, 0xFF000000);
    UncachedGlyphs glyphs(font.size);
    Paired(
        state, [&] { s.DrawText(label, 0, 0, 400, 24, 0xFFFFFFFF, font); }, [&] { glyphs.Render(label); });
}

}  // namespace

BENCHMARK(Clear)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(FillRect)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(DrawQuadOpaque)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(DrawQuadOpacity)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(DrawQuadRotated)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(BlitScaled)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(DrawText)->UseManualTime()->Unit(benchmark::kMicrosecond);
