// Textured quads against Qt's raster QPainter, the engine a Qt program would otherwise draw sprites with:
// the same picture drawn opaque, at 40% opacity and turned by 30 degrees, nearest-neighbour and source
// over, into a QImage of the same size. Both sides are timed in process CPU time, by turns in one run, so
// that other work on a shared machine weighs on neither; speed_vs_qt is Qt's time over ours (above 1:
// faster than the peer).

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <QTransform>
#include <array>
#include <cmath>
#include <cstdint>

#include "bitmap/image_surface.h"
#include "cpu_clock.h"

namespace {

constexpr int kWidth = 1920, kHeight = 1080;
constexpr float kTurn = 0.5235988f;  // 30 degrees

// An opaque picture with some variety in it, in our surface and as Qt's premultiplied image.
aurel::ImageSurface Picture(int width, int height) {
    aurel::ImageSurface picture;
    picture.Resize(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.Row(y)[x] = 0xFF000000u | (static_cast<std::uint32_t>(x * 7 + y * 13) & 0xFFFFFF);
        }
    }
    return picture;
}

QImage AsQImage(const aurel::ImageSurface& picture) {
    const QImage view(reinterpret_cast<const uchar*>(picture.Row(0)), picture.Width(), picture.Height(),
                      picture.View().stride, QImage::Format_ARGB32);
    return view.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

struct Quad {
    int width, height;
    float opacity, angle;
};

// The corners of the picture turned by `angle` about the screen's centre.
std::array<float, 8> Corners(const Quad& q) {
    const float c = std::cos(q.angle), s = std::sin(q.angle);
    const float w = static_cast<float>(q.width) / 2, h = static_cast<float>(q.height) / 2;
    const float xs[4] = {-w, w, w, -w}, ys[4] = {-h, -h, h, h};
    std::array<float, 8> corners{};
    for (int i = 0; i < 4; ++i) {
        corners[2 * i] = kWidth / 2.0f + xs[i] * c - ys[i] * s;
        corners[2 * i + 1] = kHeight / 2.0f + xs[i] * s + ys[i] * c;
    }
    return corners;
}

void AgainstQt(benchmark::State& state, const Quad& q) {
    const aurel::ImageSurface picture = Picture(q.width, q.height);
    const QImage qtPicture = AsQImage(picture);
    aurel::ImageSurface ours;
    ours.Resize(kWidth, kHeight);
    ours.Clear(0xFF000000);
    QImage theirs(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    theirs.fill(0xFF000000);
    const std::array<float, 8> corners = Corners(q);
    QTransform turn;
    turn.translate(kWidth / 2.0, kHeight / 2.0);
    turn.rotateRadians(q.angle);
    double ourSeconds = 0, qtSeconds = 0;
    for (auto _ : state) {
        const double start = CpuSeconds();
        picture.DrawQuad(0, 0, static_cast<float>(q.width), static_cast<float>(q.height), ours, corners,
                         q.opacity, 0);
        benchmark::ClobberMemory();
        const double middle = CpuSeconds();
        {
            QPainter painter(&theirs);
            painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
            painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
            painter.setOpacity(q.opacity);
            painter.setTransform(turn);
            painter.drawImage(QPointF(-q.width / 2.0, -q.height / 2.0), qtPicture);
        }
        benchmark::ClobberMemory();
        const double end = CpuSeconds();
        ourSeconds += middle - start;
        qtSeconds += end - middle;
        state.SetIterationTime(middle - start);
    }
    state.counters["qt_us"] = benchmark::Counter(qtSeconds * 1e6, benchmark::Counter::kAvgIterations);
    state.counters["speed_vs_qt"] = qtSeconds / ourSeconds;
}

void Opaque(benchmark::State& state) {
    AgainstQt(state, {kWidth, kHeight, 1.0f, 0.0f});
}
void Translucent(benchmark::State& state) {
    AgainstQt(state, {kWidth, kHeight, 0.4f, 0.0f});
}
void Rotated(benchmark::State& state) {
    AgainstQt(state, {1024, 512, 1.0f, kTurn});
}

}  // namespace

BENCHMARK(Opaque)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(Translucent)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(Rotated)->UseManualTime()->Unit(benchmark::kMicrosecond);
