// Whole texture view frames compared exactly with reference pictures in tests/data, and the geometry
// that painting and hover share.

#include <gtest/gtest.h>

#include "support/png_image.h"
#include "views/texture/texture_bench.h"
#include "views/texture/texture_geometry.h"

namespace kovra {
namespace {

using test::TextureBench;

::testing::AssertionResult Matches(const TextureBench& bench, const std::string& name) {
    return test::MatchesReference(bench.frame.Bitmap(), "texture/" + name);
}

TEST(TexturePaint, ThreeTexturesWithTheHotGripBodyOrOtherTexture) {
    TextureBench bench;  // zoom 2: right and bottom edges are pushed on by a pixel
    bench.AddTexture(2, 6, 12, 10);
    bench.AddTexture(20, 16, 16, 12);
    bench.AddTexture(44, 30, 14, 14);
    bench.selection.SetCurrent(1, 0);
    bench.selection.SetHot(1, kGripBottomRight);
    bench.Paint();
    EXPECT_TRUE(Matches(bench, "three_textures"));
    // Translucent fills leave no alpha behind: nothing of an earlier frame may show through on screen.
    for (int y = 0; y < bench.frame.Height(); ++y) {
        for (int x = 0; x < bench.frame.Width(); ++x) {
            ASSERT_EQ(bench.frame.Row(y)[x] >> 24, 0xFFu) << x << ", " << y;
        }
    }

    // The body hot, and a texture on another image left out.
    bench.doc.Wirrel().textures.push_back(WirrelTexture{1, 0, 0, 64, 48});
    bench.selection.SetHot(1, kHitBody);
    bench.Paint();
    EXPECT_TRUE(Matches(bench, "current_body_hot"));

    bench.selection.SetHot(2, -1);
    bench.Paint();
    EXPECT_TRUE(Matches(bench, "other_hot"));
}

TEST(TexturePaint, RubberBandOfANewTextureAtZoomOne) {
    TextureBench bench(64, 48, 120, 90, 1.0f);
    bench.AddTexture(4, 8, 10, 10);
    bench.Press(kestrel2::win::kButtonRight, bench.X(30.0f), bench.Y(10.0f));
    bench.Move(bench.X(12.0f), bench.Y(40.0f));
    EXPECT_TRUE(Matches(bench, "rubber_band"));
}

TEST(TexturePaint, MarksAndMaskOverlays) {
    TextureBench bench(64, 48, 120, 90, 1.0f);
    bench.AddTexture(4, 8, 24, 20);
    bench.AddTexture(36, 10, 20, 30);
    auto image = bench.doc.Image(0);
    image->marks[0] = {{2.0f, 3.0f}, {14.0f, 12.0f}};
    image->marks[1] = {{10.0f, 20.0f}};
    image->mask.width = 64;
    image->mask.height = 48;
    image->mask.stride = 64 * 4;
    image->mask.cells.assign(64 * 48, 0);
    for (int y = 10; y < 40; ++y) {
        for (int x = 36; x < 56; ++x) {
            image->mask.cells[static_cast<std::size_t>(y) * 64 + x] = 1;
        }
    }
    bench.state.showMarks = true;
    bench.state.showMask = true;
    bench.Paint();
    EXPECT_TRUE(Matches(bench, "marks_and_mask"));
}

TEST(TextureGeometry, GripsSitOnTheEdgesAndArePaintedWhereTheyAreHit) {
    const TexHitRect body{100.0f, 50.0f, 140.0f, 70.0f};
    struct Case {
        int grip;
        float left, top;
    };
    const Case cases[] = {
        {kGripTop, 116, 46},       {kGripBottom, 116, 65},      {kGripRight, 135, 56},
        {kGripLeft, 96, 56},       {kGripTopLeft, 96, 46},      {kGripTopRight, 135, 46},
        {kGripBottomLeft, 96, 65}, {kGripBottomRight, 135, 65},
    };
    for (const Case& c : cases) {
        const TexHitRect r = GripRect(body, c.grip, 9);
        EXPECT_EQ(r.left, c.left) << c.grip;
        EXPECT_EQ(r.top, c.top) << c.grip;
        EXPECT_EQ(r.right - r.left, 8.0f) << c.grip;
        EXPECT_EQ(r.bottom - r.top, 8.0f) << c.grip;
    }

    // In a frame, every pixel of a grip's hit rectangle holds the grip's fill or outline colour.
    TextureBench bench;
    bench.AddTexture(20, 16, 16, 12);
    bench.selection.SetCurrent(0, 0);
    bench.Paint();
    for (int grip = 0; grip < kHitBody; ++grip) {
        const TexHitRect& r = bench.state.hitRects[grip];
        for (int y = static_cast<int>(r.top); y <= static_cast<int>(r.bottom); ++y) {
            for (int x = static_cast<int>(r.left); x <= static_cast<int>(r.right); ++x) {
                const std::uint32_t pixel = bench.frame.Row(y)[x];
                ASSERT_TRUE(pixel == bench.theme.gripColor.argb || pixel == bench.theme.gripOutline.argb)
                    << "grip " << grip << " at " << x << ", " << y;
            }
        }
        EXPECT_EQ(HitIndex(bench.state.hitRects, static_cast<int>(r.left), static_cast<int>(r.top)), grip);
    }
}

TEST(TextureGeometry, OtherTexturesFollowTheCurrentOnesNineInTextureOrder) {
    TextureBench bench;
    bench.AddTexture(0, 4, 8, 8);
    bench.AddTexture(10, 4, 8, 8);
    bench.AddTexture(30, 4, 8, 8);
    bench.doc.Wirrel().textures.push_back(WirrelTexture{3, 0, 0, 8, 8});
    bench.selection.SetCurrent(1, 0);
    bench.Paint();
    ASSERT_EQ(bench.state.hitRects.size(), 12u);
    EXPECT_EQ(RectToTexture(10, 1), 2);
    EXPECT_EQ(bench.state.hitRects[9].left, static_cast<float>(bench.X(0.0f)));
    EXPECT_EQ(bench.state.hitRects[10].left, static_cast<float>(bench.X(30.0f)));
    EXPECT_TRUE(bench.state.hitRects[11].IsNone());  // on another image
    EXPECT_EQ(bench.state.hitRects[kHitBody].left, static_cast<float>(bench.X(10.0f)));
    EXPECT_EQ(bench.state.hitRects[kHitBody].right, static_cast<float>(bench.X(18.0f)));
}

TEST(TextureGeometry, ScreenPointsBecomeImagePixelsClampedAndNeverEmpty) {
    TextureBench bench;  // image pixel x at client 2x + 16, y at 2y + 12
    struct Case {
        int ax, ay, bx, by;
        TexRect expected;
    };
    const Case cases[] = {
        {37, 29, 57, 73, {10, 8, 21, 31}},       // half pixels: both pixels under the points
        {36, 28, 56, 72, {9, 7, 20, 30}},        // on borders: the first point takes its pixel before
        {57, 73, 37, 29, {10, 8, 21, 31}},       // the other way round
        {0, 0, 159, 119, {0, 0, 64, 48}},        // past every edge
        {150, 110, 159, 119, {63, 47, 64, 48}},  // wholly past the far corner: one pixel
        {40, 40, 40, 40, {11, 13, 12, 14}},      // one point on a border: the pixel before it
    };
    for (const Case& c : cases) {
        const TexRect r = ScreenToImageRect(bench.state.view, c.ax, c.ay, c.bx, c.by, 64, 48);
        EXPECT_EQ(r.left, c.expected.left) << c.ax << ", " << c.ay;
        EXPECT_EQ(r.top, c.expected.top) << c.ax << ", " << c.ay;
        EXPECT_EQ(r.right, c.expected.right) << c.ax << ", " << c.ay;
        EXPECT_EQ(r.bottom, c.expected.bottom) << c.ax << ", " << c.ay;
    }
}

}  // namespace
}  // namespace kovra
