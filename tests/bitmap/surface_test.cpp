#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

#include "base/kestrel_exception.h"
#include "bitmap/dib_surface.h"
#include "bitmap/image_surface.h"
#include "bitmap/sys_bitmap.h"
#include "pictures.h"

TEST(DibSurface, CreateFollowsTheStrideRuleTopDown) {
    struct Case {
        int width, height, depth, stride;
    } cases[] = {{3, 5, 32, 12}, {3, -5, 24, 12}, {10, 2, 8, 12}, {10, 2, 1, 4}, {7, 1, 16, 16}};
    for (const Case& c : cases) {
        aurel::DibSurface surface;
        surface.Create(c.width, c.height, c.depth);
        EXPECT_EQ(surface.Stride(), c.stride) << c.width << "x" << c.height << "@" << c.depth;
        EXPECT_EQ(surface.Header().height, -std::abs(c.height));
        EXPECT_EQ(surface.Header().bitCount, c.depth);
        EXPECT_EQ(surface.Header().palette.size(), c.depth <= 8 ? 1u << c.depth : 0u);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(surface.Bits()) % 16, 0u);
    }
}

TEST(DibSurface, SameSizeKeepsThePixelsAndZeroSizeEmptiesTheSurface) {
    aurel::DibSurface surface;
    surface.Create(4, 4, 32);
    std::byte* bits = surface.Bits();
    bits[5] = std::byte{7};
    surface.Create(4, -4, 32);
    EXPECT_EQ(surface.Bits(), bits);
    EXPECT_EQ(bits[5], std::byte{7});

    surface.Create(0, 4, 32);
    EXPECT_EQ(surface.Bits(), nullptr);
    EXPECT_EQ(surface.Header().bitCount, 0);
}

TEST(DibSurface, FailuresRaiseTheWindowsExceptionAndLeaveNoPixels) {
    aurel::showExceptionBoxes = false;
    for (const auto& [width, height, depth] :
         std::vector<std::array<int, 3>>{{100000, 100000, 32}, {-3, 4, 32}, {3, 4, 0}}) {
        aurel::DibSurface surface;
        try {
            surface.Create(width, height, depth);
            ADD_FAILURE() << width << "x" << height << "@" << depth << " was created";
        } catch (const aurel::KestrelWindowsException& e) {
            EXPECT_STREQ(e.what(), "Couldn't create BMP for DIB in DibSurface::Create");
        }
        EXPECT_EQ(surface.Bits(), nullptr);
        EXPECT_EQ(surface.Context(), nullptr);
    }
    aurel::showExceptionBoxes = true;
}

TEST(SysBitmap, GrowsOnlyKeepsItsRoundedRowSpanAndEmptiesWhenASectionFails) {
    aurel::SysBitmap bitmap(5, 3);
    EXPECT_EQ(bitmap.getRowSpan(), 8);
    EXPECT_FALSE(bitmap.resize(5, 3));
    std::uint32_t* bits = bitmap.getBits();

    EXPECT_TRUE(bitmap.resize(2, 2));  // smaller: same block, same span
    EXPECT_EQ(bitmap.getBits(), bits);
    EXPECT_EQ(bitmap.getRowSpan(), 8);
    EXPECT_TRUE(bitmap.resize(7, 3));  // still fits the rounded width
    EXPECT_EQ(bitmap.getBits(), bits);

    EXPECT_TRUE(bitmap.resize(9, 3));
    EXPECT_EQ(bitmap.getRowSpan(), 12);
    EXPECT_EQ(bitmap.getDC()->Selected().getBits(), bitmap.getBits());

    EXPECT_FALSE(bitmap.resize(0, 3));
    EXPECT_EQ(bitmap.getBits(), nullptr);
    EXPECT_TRUE(bitmap.IsEmpty());

    EXPECT_TRUE(bitmap.resize(100000, 100000));
    EXPECT_EQ(bitmap.getBits(), nullptr);
    EXPECT_EQ(bitmap.getWidth(), 0);
    EXPECT_EQ(bitmap.getHeight(), 0);
}

TEST(ImageSurface, ResizeResetAndPixelAccess) {
    aurel::ImageSurface surface;
    EXPECT_TRUE(surface.IsEmpty());
    surface.Resize(3, 2);
    EXPECT_EQ(surface.View().stride, 12);
    EXPECT_EQ(surface.ByteSize(), 24u);
    EXPECT_EQ(surface.Row(1), surface.Row(0) + 3);

    surface.Row(1)[2] = 0x11223344;
    aurel::Color32 pixel;
    EXPECT_TRUE(surface.GetPixel(2, 1, pixel));
    EXPECT_EQ(pixel, aurel::Color32(0x11223344));
    EXPECT_FALSE(surface.GetPixel(3, 0, pixel));
    EXPECT_FALSE(surface.GetPixel(0, -1, pixel));

    surface.Reset();
    EXPECT_TRUE(surface.IsEmpty());
    surface.FillRect(0, 0, 5, 5, 0xFFFFFFFF);  // drawing on an empty surface does nothing
}

TEST(ImageSurface, CopiesAreDeepAndMovesCarryThePixelsAndTheViewTarget) {
    aurel::ImageSurface a = kovra::test::Filled(2, 3, 0xFF102030);
    aurel::ImageSurface b(a);
    EXPECT_NE(b.Row(0), a.Row(0));
    EXPECT_EQ(std::memcmp(b.Row(0), a.Row(0), a.ByteSize()), 0);
    aurel::ImageSurface& alias = a;
    a = alias;  // self-assignment keeps the pixels
    EXPECT_EQ(a.Row(2)[1], 0xFF102030u);

    std::uint32_t* bits = a.Row(0);
    aurel::ImageSurface moved(std::move(a));
    EXPECT_EQ(moved.Row(0), bits);
    EXPECT_TRUE(a.IsEmpty());
    aurel::ImageSurface view(&moved);
    aurel::ImageSurface target;
    target = std::move(view);
    EXPECT_EQ(target.Row(0), bits);
}

TEST(ImageSurface, ViewsReadAnotherSurfaceUntilAssigned) {
    aurel::ImageSurface owner;
    owner.Resize(4, 4);
    aurel::ImageSurface view(&owner);
    EXPECT_EQ(view.Row(0), owner.Row(0));

    view.Resize(6, 5);  // resizes what it reads
    EXPECT_EQ(owner.Width(), 6);
    view.Clear(0xFFABCDEF);
    EXPECT_EQ(owner.Row(4)[5], 0xFFABCDEFu);

    aurel::ImageSurface copy(view);  // copies what the view shows
    EXPECT_EQ(copy.Width(), 6);
    EXPECT_NE(copy.Row(0), owner.Row(0));

    aurel::ImageSurface other;
    other.Resize(1, 1);
    view.Attach(other);
    EXPECT_EQ(view.Width(), 1);
    view = copy;  // now it reads its own pixels
    EXPECT_EQ(view.Width(), 6);
    EXPECT_NE(view.Row(0), copy.Row(0));
    EXPECT_EQ(other.Width(), 1);
}
