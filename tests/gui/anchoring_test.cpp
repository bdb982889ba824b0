#include "gui/anchoring.h"

#include <gtest/gtest.h>

#include "gui/i_gui_custom_control.h"
#include "support/control_harness.h"

namespace {

using kestrel2::win::Anchors;
using kestrel2::win::Box;

struct AnchorCase {
    const char* name;
    Anchors anchors;
    int parentWidth, parentHeight;
    Box expected;
};

TEST(Anchoring, KeepsTheMarginsOfTheAnchoredSides) {
    // A 100 x 50 child at (10, 20) in a 400 x 300 parent: margins 290 right and 230 bottom.
    const Box child{10, 20, 100, 50};
    const kestrel2::win::Margins margins = kestrel2::win::MeasureMargins(child, 400, 300);
    EXPECT_EQ(margins.right, 290);
    EXPECT_EQ(margins.bottom, 230);
    const AnchorCase cases[] = {
        {"none", {}, 500, 400, {10, 20, 100, 50}},
        {"left top", {true, true, false, false}, 500, 400, {10, 20, 100, 50}},
        {"right moves", {false, false, true, false}, 500, 400, {110, 20, 100, 50}},
        {"bottom moves", {false, false, false, true}, 500, 400, {10, 120, 100, 50}},
        {"left right stretches", {true, false, true, false}, 500, 400, {10, 20, 200, 50}},
        {"top bottom stretches", {false, true, false, true}, 500, 400, {10, 20, 100, 150}},
        {"right bottom", {false, false, true, true}, 300, 200, {-90, -80, 100, 50}},
        {"all sides grow", {true, true, true, true}, 640, 480, {10, 20, 340, 230}},
        {"all sides to zero", {true, true, true, true}, 300, 300, {10, 20, 0, 50}},
        {"all sides below zero", {true, true, true, true}, 250, 150, {10, 20, -50, -100}},
    };
    for (const AnchorCase& c : cases) {
        EXPECT_EQ(kestrel2::win::AnchorBox(child, c.anchors, margins, c.parentWidth, c.parentHeight),
                  c.expected)
            << c.name;
    }
}

class Panel : public kestrel2::win::IGuiCustomControl {
public:
    void OnPaint(aurel::ImageSurface& target) override { target.Clear(0xFF336699); }
    void OnInput(kestrel2::win::InputEvent&) override {}
    void OnResize() override { ++resizes; }
    int resizes = 0;
};

TEST(Anchoring, ATreeShrinksAChildBelowZeroAndGrowsItBack) {
    Panel parent;
    kovra::test::ControlHarness harness(parent, 400, 300);
    auto stretched = std::make_shared<Panel>();
    stretched->SetId(1);
    stretched->SetPos(10, 20, 100, 50);
    parent.AddChild(stretched);
    stretched->SetAnchors(true, true, true, true);
    auto corner = std::make_shared<Panel>();
    corner->SetId(2);
    corner->SetPos(380, 290, 10, 5);
    parent.AddChild(corner);
    corner->SetAnchors(false, false, true, true);
    const int resizesBefore = stretched->resizes;

    parent.SetPos(0, 0, 250, 150);
    EXPECT_EQ((Box{stretched->x, stretched->y, stretched->width, stretched->height}),
              (Box{10, 20, -50, -100}));
    EXPECT_TRUE(stretched->surface.IsEmpty());
    EXPECT_EQ((Box{corner->x, corner->y, corner->width, corner->height}), (Box{230, 140, 10, 5}));

    parent.SetPos(0, 0, 400, 300);
    EXPECT_EQ((Box{stretched->x, stretched->y, stretched->width, stretched->height}), (Box{10, 20, 100, 50}));
    EXPECT_EQ(stretched->ClientWidth(), 100);
    EXPECT_EQ(stretched->ClientHeight(), 50);
    EXPECT_EQ(stretched->resizes, resizesBefore + 2);
    EXPECT_EQ((Box{corner->x, corner->y, corner->width, corner->height}), (Box{380, 290, 10, 5}));
}

}  // namespace
