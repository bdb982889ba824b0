#include "bitmap/blit.h"

#include <gtest/gtest.h>

#include <cstring>

#include "bitmap/image_surface.h"
#include "pictures.h"
#include "support/png_image.h"

using kovra::test::Filled;
using kovra::test::MatchesReference;

const aurel::ImageSurface kTexture = kovra::test::Texture();

TEST(Blit, ScaledCopiesClipAtAllFourEdges) {
    aurel::ImageSurface s = Filled(24, 24, 0xFF202020);
    kTexture.Blit(0, 0, 8, 8, s, -5, -5, 16, 16, 1.0f, true);
    kTexture.Blit(0, 0, 8, 8, s, 13, -6, 16, 16, 1.0f, true);
    kTexture.Blit(0, 0, 8, 8, s, -6, 13, 16, 16, 1.0f, true);
    kTexture.Blit(0, 0, 8, 8, s, 14, 14, 16, 16, 1.0f, true);
    EXPECT_TRUE(MatchesReference(s.Bitmap(), "bitmap/blit_edges"));
}

TEST(Blit, NegativeSizesReadTheSourceFromTheFarSide) {
    aurel::ImageSurface s = Filled(28, 10, 0xFF202020);
    kTexture.Blit(0, 0, 8, 8, s, 9, 1, -8, 8, 1.0f, true);     // mirrored left to right
    kTexture.Blit(0, 0, 8, 8, s, 10, 9, 8, -8, 1.0f, true);    // upside down
    kTexture.Blit(0, 0, 8, 8, s, 30, 9, -12, -8, 1.0f, true);  // both, clipped on the right
    EXPECT_TRUE(MatchesReference(s.Bitmap(), "bitmap/blit_mirrored"));
}

TEST(Blit, OpacityMovesTheAlphaAndKeepAlphaLeavesIt) {
    aurel::ImageSurface s = Filled(30, 13, 0x40102030);
    kTexture.Blit(0, 0, 8, 8, s, 0, 0, 5, 5, 0.5f, false);
    kTexture.Blit(0, 0, 8, 8, s, 6, 0, 13, 13, 1.0f, false);
    kTexture.Blit(0, 0, 8, 8, s, 20, 0, 9, 11, 1.0f, true);
    EXPECT_TRUE(MatchesReference(s.Bitmap(), "bitmap/blit_opacity"));
}

TEST(Blit, SourceRectanglesBeyondTheSourceAreCut) {
    aurel::ImageSurface s = Filled(34, 16, 0xFF202020);
    kTexture.Blit(-4, -4, 16, 16, s, 0, 0, 16, 16, 1.0f, true);  // the source lands in the middle
    kTexture.Blit(4, 2, 8, 8, s, 17, 0, 16, 16, 1.0f, true);     // runs off the source's right and bottom
    kTexture.Blit(12, 10, -8, -8, s, 17, 0, 8, 8, 1.0f, true);   // read backwards from beyond the corner
    EXPECT_TRUE(MatchesReference(s.Bitmap(), "bitmap/blit_source_clip"));
}

TEST(Blit, EmptySourcesAndTargetsDrawNothing) {
    const aurel::ImageSurface before = Filled(8, 8, 0xFF202020);
    aurel::ImageSurface s = before;
    kTexture.Blit(0, 0, 0.000001f, 8, s, 0, 0, 8, 8, 1.0f, true);
    kTexture.Blit(0, 0, 8, 8, s, 0, 0, 0, 8, 1.0f, true);
    kTexture.Blit(0, 0, 8, 8, s, 0, 0, 8, 8, 0.0f, false);
    kTexture.Blit(0, 0, 8, 8, s, 8, 0, 8, 8, 1.0f, true);  // just right of the surface
    aurel::ImageSurface().Blit(0, 0, 8, 8, s, 0, 0, 8, 8, 1.0f, true);
    EXPECT_EQ(std::memcmp(s.Row(0), before.Row(0), s.ByteSize()), 0);
}

TEST(Blit, RescaleReplacesThePixelsWithTheGeneralBlit) {
    aurel::ImageSurface s = kovra::test::Texture();
    s.Rescale(12, 6);
    ASSERT_EQ(s.Width(), 12);
    ASSERT_EQ(s.Height(), 6);
    EXPECT_TRUE(MatchesReference(s.Bitmap(), "bitmap/rescale"));
}

TEST(Blit, HalveSumsTheQuartersOfEachBlock) {
    aurel::ImageSurface source;
    source.Resize(5, 4);
    const std::uint32_t block[2][2] = {{0xFF0000FF, 0x80808080}, {0x04040404, 0x00000003}};
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 5; ++x) {
            source.Row(y)[x] = block[y % 2][x % 2];
        }
    }
    aurel::ImageSurface half = Filled(3, 3, 0x11111111);
    half.Halve(source);
    // 0x3F00003F + 0x20202020 + 0x01010101 + 0: the low two bits of every byte go first.
    EXPECT_EQ(half.Row(0)[0], 0x60212160u);
    EXPECT_EQ(half.Row(1)[1], 0x60212160u);
    EXPECT_EQ(half.Row(0)[2], 0x11111111u);  // capped to half of 5 columns
    EXPECT_EQ(half.Row(2)[0], 0x11111111u);  // and half of 4 rows
}
