#include "bitmap/span_shaders.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <random>
#include <vector>

namespace {

std::uint32_t RandomPixel(std::mt19937& random) {
    // Clear and opaque pixels are common in textures and take their own paths in the shaders.
    const std::uint32_t alphas[] = {0x00, 0xFF, static_cast<std::uint32_t>(random() & 0xFF)};
    return alphas[random() % 3] << 24 | static_cast<std::uint32_t>(random() & 0xFFFFFF);
}

}  // namespace

TEST(SpanShaders, VectorLoopWritesTheSameBytesAsTheScalarForm) {
    std::mt19937 random(20240611);
    constexpr int kSourceWidth = 37, kSourceHeight = 23;
    std::vector<std::uint32_t> source(kSourceWidth * kSourceHeight);
    for (std::uint32_t& p : source)
        p = RandomPixel(random);

    const aurel::SpanShader shaders[] = {aurel::SpanShader::Plain, aurel::SpanShader::Opacity,
                                         aurel::SpanShader::Tint, aurel::SpanShader::Mask};
    for (int trial = 0; trial < 8000; ++trial) {
        const aurel::ShadeArgs args{shaders[trial % 4], static_cast<int>(random() % 257),
                                    RandomPixel(random)};
        const int offset = static_cast<int>(random() % 4);
        int count = static_cast<int>(random() % 60);
        // Samples from one point of the source to another, all inside it, in the three ways the vector loop
        // tells apart: anywhere, along a row, and along a row one texel per pixel.
        auto coordinate = [&](int size) { return static_cast<int>(random() % (size << 16)); };
        const int u0 = coordinate(kSourceWidth), u1 = coordinate(kSourceWidth);
        const int v0 = coordinate(kSourceHeight), v1 = coordinate(kSourceHeight);
        const int steps = std::max(count - 1, 1);
        auto step = [steps](int from, int to) { return static_cast<std::uint32_t>((to - from) / steps); };
        aurel::SpanSamples samples{
            source.data(), kSourceWidth, static_cast<std::uint32_t>(u0), static_cast<std::uint32_t>(v0),
            step(u0, u1),  step(v0, v1)};
        const int walk = trial / 4 % 3;
        if (walk > 0) {
            samples.dv = 0;
        }
        if (walk == 2) {
            count = std::min(count, kSourceWidth);
            samples.u = static_cast<std::uint32_t>(random() % ((kSourceWidth - count + 1) << 16));
            samples.du = 0x10000;
        }

        alignas(16) std::array<std::uint32_t, 68> vector{}, scalar{};
        for (std::uint32_t& p : vector)
            p = RandomPixel(random);
        scalar = vector;
        // Every other trial also flags a second row, at its own alignment, in the same pass; the scalar
        // form gets it from the mask shader on the same samples.
        std::array<std::uint32_t, 69> flags{}, scalarFlags{};
        for (std::uint32_t& p : flags)
            p = random();
        scalarFlags = flags;
        const int maskOffset = static_cast<int>(random() % 5);
        const aurel::MaskRow mask{trial % 2 ? flags.data() + maskOffset : nullptr,
                                  static_cast<std::uint32_t>(random())};
        aurel::SpanSamples scalarSamples = samples;
        aurel::SpanSamples maskSamples = samples;
        aurel::ShadeSpan(vector.data() + offset, count, samples, args, mask);
        aurel::ShadeSpanScalar(scalar.data() + offset, count, scalarSamples, args);
        if (mask.pixels != nullptr) {
            aurel::ShadeSpanScalar(scalarFlags.data() + maskOffset, count, maskSamples,
                                   {aurel::SpanShader::Mask, 256, mask.flag});
        }
        ASSERT_EQ(vector, scalar) << "trial " << trial << ", shader " << static_cast<int>(args.shader)
                                  << ", offset " << offset << ", count " << count;
        ASSERT_EQ(flags, scalarFlags) << "trial " << trial << ", mask offset " << maskOffset;
    }
}

TEST(SpanShaders, DrawSpanSkipsPixelsWhoseSamplesLieOutsideTheSource) {
    std::vector<std::uint32_t> source{0xFF000001, 0xFF000002, 0xFF000003, 0xFF000004};
    const aurel::WrapperBitmap bitmap(source.data(), 4, 1, 4);
    const aurel::ShadeArgs copy{aurel::SpanShader::Opacity, 256, 0};

    std::vector<std::uint32_t> row(8, 0);
    aurel::DrawSpan(row.data(), 0, 8, bitmap, -2.0f, 0.0f, 1.0f, 0.0f, copy);
    EXPECT_EQ(row, (std::vector<std::uint32_t>{0, 0, 0xFF000001, 0xFF000002, 0xFF000003, 0xFF000004, 0, 0}));

    std::vector<std::uint32_t> backward(8, 0);
    aurel::DrawSpan(backward.data(), 1, 6, bitmap, 4.5f, 0.0f, -0.5f, 0.0f, copy);  // starts past the right
    EXPECT_EQ(backward,
              (std::vector<std::uint32_t>{0, 0, 0, 0xFF000004, 0xFF000004, 0xFF000003, 0xFF000003, 0}));

    std::vector<std::uint32_t> belowSource(4, 0);
    aurel::DrawSpan(belowSource.data(), 0, 4, bitmap, 0.0f, 1.0f, 1.0f, 0.0f, copy);
    EXPECT_EQ(belowSource, std::vector<std::uint32_t>(4, 0));
}
