// Whole workspace frames and single layers, compared exactly with reference pictures in tests/data.

#include <gtest/gtest.h>

#include <string>

#include "doc/skins.h"
#include "support/png_image.h"
#include "views/workspace/paint_bones.h"
#include "views/workspace/paint_labels.h"
#include "views/workspace/paint_pins.h"
#include "views/workspace/rig.h"
#include "views/workspace/workspace_layers.h"
#include "views/workspace/workspace_paint.h"

namespace kovra {
namespace {

using test::Rig;

// Texts depend on the fonts of the machine; their placement is checked elsewhere.
constexpr unsigned kNoTexts = kAllLayers & ~kLayerTexts;

aurel::ImageSurface Paint(Rig& rig, unsigned layers = kNoTexts) {
    const WorkspaceTheme theme;
    WorkspaceBuffers buffers;
    EXPECT_TRUE(PaintWorkspace(rig.doc, rig.state, theme, WorkingColours::FromTheme(theme), DefaultEdgeFade(),
                               buffers, layers));
    return buffers.back;
}

::testing::AssertionResult Matches(const aurel::ImageSurface& surface, const std::string& name) {
    return test::MatchesReference(surface.Bitmap(), "workspace/" + name);
}

TEST(WorkspacePaint, GridAtThreeZoomsSwapsColoursAndFades) {
    struct Case {
        float zoom;
        const char* name;
    };
    // 32 pixels a unit: plain; 8: the unit lines fade; 3.2: units of four, colours swapped, fading.
    for (const Case& c :
         {Case{1.0f, "grid_zoom_1"}, Case{0.25f, "grid_zoom_025"}, Case{0.1f, "grid_zoom_01"}}) {
        Rig rig;
        rig.state.view.zoom = c.zoom;
        rig.state.view.cameraX = 0.3f / c.zoom;
        rig.state.view.cameraY = -0.2f / c.zoom;
        EXPECT_TRUE(Matches(Paint(rig, kLayerBackdrop), c.name)) << c.name;
    }
}

TEST(WorkspacePaint, AxesFarOutsideTheBufferAreClippedAway) {
    Rig rig;
    rig.state.view.cameraX = 1e6f;
    rig.state.view.cameraY = -1e6f;
    const aurel::ImageSurface frame = Paint(rig, kLayerBackdrop);
    const std::uint32_t axis = WorkspaceTheme().defGridColor0.argb;
    for (int y = 0; y < frame.Height(); ++y) {
        for (int x = 0; x < frame.Width(); ++x) {
            ASSERT_NE(frame.Row(y)[x], axis) << x << ", " << y;
        }
    }
}

TEST(WorkspacePaint, SkinnedRigDimsTheUnselectedSkin) {
    Rig rig;
    const int root = rig.Pin(-1, -1.0f, 0.0f);
    const int upper = rig.Pin(root, 0.2f, -0.5f);
    const int lower = rig.Pin(upper, 1.2f, 0.4f);
    rig.Skin(upper, 0, WirrelSkin{.scaleY = 1.5f});
    rig.Skin(lower, 1, WirrelSkin{.angle = 0.5f});
    rig.state.pinSelection.Add(lower, true);
    EXPECT_TRUE(Matches(Paint(rig), "rig_dimmed"));
}

TEST(WorkspacePaint, TailRibbonSplitsWhereItCrossesItself) {
    Rig rig;
    const int root = rig.Pin(-1, -1.5f, 0.5f);
    const int end = rig.Pin(root, -0.8f, 0.5f);
    const int segment1 = rig.Pin(end, 0.6f, 0.3f, Tail);
    const int segment2 = rig.Pin(segment1, 0.7f, -0.6f, Tail);
    const int tip = rig.Pin(segment2, -0.2f, -0.4f, Tail);
    rig.Record(segment1).flags |= kTailSegment;
    rig.Record(segment2).flags |= kTailSegment;
    rig.Record(tip).flags |= kTailEnd;
    rig.Skin(tip, 0, WirrelSkin{.scaleY = 0.8f});
    EXPECT_TRUE(Matches(Paint(rig), "tail_crossing"));
}

TEST(WorkspacePaint, BuildModeShowsOutlineGripsAndTheHotGrip) {
    Rig rig;
    const int root = rig.Pin(-1, -1.0f, 0.5f);
    const int arm = rig.Pin(root, 0.8f, -0.2f);
    rig.Skin(arm, 0, WirrelSkin{.scaleX = 1.5f, .scaleY = 1.5f, .angle = 0.3f});
    rig.state.editMode = kModeBuild;
    // The root alone is selected: it hands its grips to its only child.
    rig.state.pinSelection.Add(root, true);
    rig.state.pinSelection.SetCurrent(arm, 0);
    rig.state.pinSelection.SetHot(arm, 10);
    EXPECT_TRUE(Matches(Paint(rig), "build_grips"));
}

TEST(WorkspacePaint, CollisionRectanglesAndOverlays) {
    Rig rig;
    const int root = rig.Pin(-1, -1.0f, 0.0f);
    const int arm = rig.Pin(root, 0.5f, 0.0f);
    rig.Skin(arm, 1, WirrelSkin{.collision = 1});
    AddAabb(rig.doc.Wirrel(), rig.doc.CurrentKey(), arm, WirrelAabb{-0.5f, -1.2f, 1.5f, -0.4f, 0});
    AddAabb(rig.doc.Wirrel(), rig.doc.CurrentKey(), arm, WirrelAabb{0.8f, 0.2f, 1.8f, 1.0f, 2});
    EXPECT_TRUE(Matches(Paint(rig), "collision"));
}

// The pick buffer as a picture: pin 0 red, pin 1 green, nothing black.
aurel::ImageSurface PickPicture(const aurel::ImageSurface& pick) {
    aurel::ImageSurface out;
    out.Resize(pick.Width(), pick.Height());
    for (int y = 0; y < pick.Height(); ++y) {
        for (int x = 0; x < pick.Width(); ++x) {
            const std::uint32_t v = pick.Row(y)[x];
            out.Row(y)[x] = v == kPickNothing ? 0xFF000000u
                            : v == 1          ? 0xFFFF0000u
                            : v == 2          ? 0xFF00FF00u
                                              : 0xFFFFFFFFu;
        }
    }
    return out;
}

TEST(WorkspacePaint, SelectedSkinWinsThePickOverTheSkinAboveIt) {
    Rig rig;
    const int root = rig.Pin(-1, -1.0f, 0.0f);
    const int below = rig.Pin(root, 0.4f, 0.0f);
    const int above = rig.Pin(root, 0.6f, 0.3f);
    rig.Skin(below, 0, WirrelSkin{.scaleX = 2.0f, .scaleY = 2.0f});
    rig.Skin(above, 1, WirrelSkin{.scaleX = 2.0f, .scaleY = 2.0f});
    const WorkspaceTheme theme;
    WorkspaceBuffers buffers;
    ASSERT_TRUE(PaintWorkspace(rig.doc, rig.state, theme, WorkingColours::FromTheme(theme), DefaultEdgeFade(),
                               buffers, kNoTexts));
    const aurel::ImageSurface unselected = PickPicture(buffers.pick);
    rig.state.pinSelection.Add(below, true);
    ASSERT_TRUE(PaintWorkspace(rig.doc, rig.state, theme, WorkingColours::FromTheme(theme), DefaultEdgeFade(),
                               buffers, kNoTexts));
    EXPECT_TRUE(Matches(unselected, "pick_unselected"));
    EXPECT_TRUE(Matches(PickPicture(buffers.pick), "pick_selected_wins"));
}

TEST(WorkspacePaint, DocumentWithoutAnimationsLeavesThePicture) {
    Rig rig;
    rig.doc.Reset(false);
    const WorkspaceTheme theme;
    WorkspaceBuffers buffers;
    buffers.back = test::Filled(64, 48, 0xFF123456);
    EXPECT_FALSE(PaintWorkspace(rig.doc, rig.state, theme, WorkingColours::FromTheme(theme),
                                DefaultEdgeFade(), buffers));
    EXPECT_TRUE(Matches(buffers.back, "untouched"));
}

// Each small painter on its own, fed by hand.
TEST(WorkspacePaint, PinsBonesMarqueeAndFadeLayers) {
    aurel::ImageSurface s = test::Filled(64, 48, 0xFF404850);
    const WorkspaceTheme theme;
    BoneLayer bones{.bones = {}, .width = theme.boneWidth, .rubberBand = RubberBand{50, 40, 60, 10}};
    bones.bones.push_back(
        BoneLine{BoneShape::Wedge, 8, 8, 30, 20, theme.boneColorSel, theme.boneColorOutline});
    bones.bones.push_back(BoneLine{BoneShape::Triple, 30, 20, 40, 40, theme.boneColorAttach, {}});
    bones.bones.push_back(BoneLine{BoneShape::Line, 30, 20, 50, 5, theme.boneColorOrient, {}});
    PaintBones(s, bones);
    PinLayer pins{.pins = {},
                  .outline = theme.pinColorOutline,
                  .lockColour = theme.pinColorLock,
                  .rootColour = theme.pinColorRoot,
                  .rootRadius = theme.pinRadLg};
    pins.pins.push_back(PinDot{8.4f, 8.4f, true, theme.pinColorUnsel, 4.0f, false, true});
    pins.pins.push_back(PinDot{30.4f, 20.4f, true, theme.pinColorLock, 5.0f, true, false});
    pins.pins.push_back(PinDot{40.4f, 40.4f, false, theme.pinColorSel, 4.0f, false, true});
    PaintPins(s, pins);
    PaintMarquee(s, MarqueeBox{44, 30, 20, 36});
    DefaultEdgeFade().Draw(s);
    EXPECT_TRUE(Matches(s, "layers"));
}

}  // namespace
}  // namespace kovra
