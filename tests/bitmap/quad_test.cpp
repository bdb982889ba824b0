#include "bitmap/quad.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <random>

#include "bitmap/image_surface.h"
#include "bitmap/sys_bitmap.h"
#include "pictures.h"
#include "support/png_image.h"

namespace {

using kovra::test::Filled;
using kovra::test::MatchesReference;
using Corners = std::array<float, 8>;

// The corners of a square of the given side about (cx, cy), turned by `angle` radians: top left, top
// right, bottom right, bottom left before turning.
Corners Square(float cx, float cy, float side, float angle) {
    const float c = std::cos(angle) * side / 2, s = std::sin(angle) * side / 2;
    return {cx - c + s, cy - s - c, cx + c + s, cy + s - c, cx + c - s, cy + s + c, cx - c - s, cy - s + c};
}

const aurel::ImageSurface kTexture = kovra::test::Texture();

}  // namespace

TEST(Quad, CrossesTheSurfaceEdgesAndMapsCornersOneToOne) {
    aurel::ImageSurface s = Filled(32, 32, 0xFF304050);
    kTexture.DrawQuad(0, 0, 8, 8, s, Square(3, 4, 20, 0.5f), 1.0f, 0);      // past the left and top
    kTexture.DrawQuad(0, 0, 8, 8, s, Square(28, 27, 16, -0.35f), 1.0f, 0);  // past the right and bottom
    kTexture.DrawQuad(0, 0, 8, 8, s, Square(16, 16, 8, 0), 1.0f, 0);        // scale 1, on the grid
    // The source's corners turned round and its top rows left out: the picture is flipped both ways.
    const Corners source{8, 8, 0, 8, 0, 2, 8, 2};
    kTexture.DrawQuadMapped(source, s, Corners{22, 2, 30, 2, 30, 12, 22, 12}, 1.0f, 0);
    EXPECT_TRUE(MatchesReference(s.Bitmap(), "bitmap/quad_edges"));
}

TEST(Quad, OpacityAndTintPasses) {
    aurel::ImageSurface s = Filled(36, 14, 0x80204060);
    kTexture.DrawQuad(0, 0, 8, 8, s, Square(6, 7, 10, 0.2f), 0.4f, 0);
    kTexture.DrawQuad(0, 0, 8, 8, s, Square(18, 7, 10, 0.2f), 1.0f, 0x80FF0000);
    kTexture.DrawQuad(0, 0, 8, 8, s, Square(30, 7, 10, 0.2f), 0.4f, 0xFF00FF00);
    EXPECT_TRUE(MatchesReference(s.Bitmap(), "bitmap/quad_opacity_tint"));
}

TEST(Quad, MaskWritesTheFlagAndTheIndexFormFillsAPickBuffer) {
    aurel::ImageSurface s = Filled(20, 20, 0xFF000000);
    kTexture.DrawQuadMask(0, 0, 8, 8, s, Square(10, 10, 16, 0.6f), 0xFFFF00FF);
    EXPECT_TRUE(MatchesReference(s.Bitmap(), "bitmap/quad_mask"));

    aurel::SysBitmap pick(17, 15);
    for (int y = 0; y < pick.getHeight(); ++y) {  // all bits set: nothing there
        std::fill_n(pick.Row(y), pick.getWidth(), 0xFFFFFFFFu);
    }
    aurel::DrawQuadMask(kTexture.Bitmap(), 0, 0, 8, 8, pick, Square(6, 6, 12, -0.3f), 3);
    aurel::DrawQuadMappedMask(kTexture.Bitmap(), Corners{0, 0, 8, 0, 8, 8, 0, 8}, pick,
                              Corners{9, 9, 17, 7, 16, 15, 8, 14}, 4);
    EXPECT_TRUE(MatchesReference(pick, "bitmap/quad_index"));
}

// The picture and its pick buffer drawn in one scan come out as the two drawn one after the other, for
// quads across every edge, at every kind of opacity, and with a mask too small to share the scan.
TEST(Quad, PictureAndMaskInOneScanMatchTheTwoCalls) {
    std::mt19937 random(77);
    std::uniform_real_distribution<float> place(-20.0f, 60.0f), side(0.0f, 50.0f), angle(-4.0f, 4.0f);
    struct Case {
        float opacity;
        int maskWidth, maskHeight;
    };
    const Case cases[] = {{1.0f, 41, 37}, {0.4f, 41, 37}, {0.0f, 41, 37}, {0.7f, 40, 37}, {1.0f, 41, 20}};
    for (const Case& c : cases) {
        for (int trial = 0; trial < 300; ++trial) {
            const Corners corners = Square(place(random), place(random), side(random), angle(random));
            const Corners source{0.5f, 0, 7.99f, 1, 7, 7.99f, 0, 6};
            aurel::ImageSurface picture = Filled(41, 37, 0xFF405060),
                                mask = Filled(c.maskWidth, c.maskHeight, ~0u);
            aurel::ImageSurface pictureApart = picture, maskApart = mask;
            aurel::WrapperBitmap pictureBits = picture.Bitmap(), maskBits = mask.Bitmap();
            aurel::DrawQuadMappedWithMask(kTexture.Bitmap(), source, pictureBits, maskBits, corners,
                                          c.opacity, static_cast<std::uint32_t>(trial));
            kTexture.DrawQuadMapped(source, pictureApart, corners, c.opacity, 0);
            aurel::WrapperBitmap apartBits = maskApart.Bitmap();
            aurel::DrawQuadMappedMask(kTexture.Bitmap(), source, apartBits, corners,
                                      static_cast<std::uint32_t>(trial));
            ASSERT_EQ(std::memcmp(picture.Row(0), pictureApart.Row(0), picture.ByteSize()), 0)
                << "opacity " << c.opacity << ", trial " << trial;
            ASSERT_EQ(std::memcmp(mask.Row(0), maskApart.Row(0), mask.ByteSize()), 0)
                << "opacity " << c.opacity << ", trial " << trial;
        }
    }
}

TEST(Quad, DegenerateOrHiddenQuadsDrawNothing) {
    const aurel::ImageSurface before = Filled(16, 16, 0xFF102030);
    aurel::ImageSurface s = before;
    kTexture.DrawQuad(0, 0, 8, 8, s, Corners{1, 5.2f, 14, 5.2f, 12, 5.7f, 2, 5.9f}, 1.0f, 0);  // one row
    kTexture.DrawQuad(0, 0, 8, 8, s, Square(8, -12, 10, 0.3f), 1.0f, 0);                       // above
    kTexture.DrawQuad(0, 0, 8, 8, s, Square(8, 30, 10, 0.3f), 1.0f, 0);                        // below
    kTexture.DrawQuad(0, 0, 8, 8, s, Square(8, 8, 10, 0.3f), 0.0f, 0xFFFF0000);                // opacity 0
    EXPECT_EQ(std::memcmp(s.Row(0), before.Row(0), s.ByteSize()), 0);
}
