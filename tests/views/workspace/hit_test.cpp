// The hover test reads the painted frame: pins first (selected ones before the rest), then the pick
// buffer, then bone lines.

#include <gtest/gtest.h>

#include "views/workspace/rig.h"
#include "views/workspace/workspace_frame.h"
#include "views/workspace/workspace_hit.h"
#include "views/workspace/workspace_paint.h"

namespace kovra {
namespace {

class WorkspaceHit : public ::testing::Test {
protected:
    WorkspaceHit() {
        root = rig.Pin(-1, -1.0f, 0.0f);
        skinned = rig.Pin(root, 0.5f, 0.0f);
        bare = rig.Pin(skinned, 1.4f, 0.9f);
        twin = rig.Pin(skinned, 1.4f, 0.9f);
        rig.Skin(skinned, 1);
    }

    Hit At(float wx, float wy) {
        const WorkspaceTheme theme;
        EXPECT_TRUE(PaintWorkspace(rig.doc, rig.state, theme, WorkingColours::FromTheme(theme),
                                   DefaultEdgeFade(), buffers, kAllLayers & ~kLayerTexts));
        const ScreenMapping map = ScreenMapping::Of(rig.state.view);
        return HoverTest(rig.doc, rig.state, buffers.pick, theme.pinRadSm, static_cast<int>(map.PixelX(wx)),
                         static_cast<int>(map.PixelY(wy)));
    }

    test::Rig rig;
    WorkspaceBuffers buffers;
    int root = 0;
    int skinned = 0;
    int bare = 0;
    int twin = 0;
};

TEST_F(WorkspaceHit, PinsThenSkinsThenBoneLines) {
    EXPECT_EQ(At(-1.0f, 0.0f), (Hit{root, 0}));
    EXPECT_EQ(At(-0.1f, 0.1f), (Hit{skinned, 4}));
    EXPECT_EQ(At(0.95f, 0.45f), (Hit{bare, 3}));
    EXPECT_EQ(At(1.4f, 0.9f), (Hit{bare, 0}));
    EXPECT_EQ(At(-1.5f, 1.2f), (Hit{}));
    rig.state.pinSelection.Add(twin, true);
    EXPECT_EQ(At(1.4f, 0.9f), (Hit{twin, 0}));
}

TEST_F(WorkspaceHit, OutsideTheBufferNothingIsHot) {
    At(0.0f, 0.0f);
    EXPECT_EQ(HoverTest(rig.doc, rig.state, buffers.pick, 4.0f, -3, 10), (Hit{}));
    EXPECT_EQ(HoverTest(rig.doc, rig.state, buffers.pick, 4.0f, 10, 48), (Hit{}));
}

TEST_F(WorkspaceHit, HiddenPinsShowWithShiftButNotWithoutTheBoneView) {
    rig.Record(bare).flags |= kPinHidden;
    EXPECT_EQ(At(1.4f, 0.9f), (Hit{twin, 0}));
    rig.Record(twin).flags |= kPinHidden;
    EXPECT_EQ(At(1.4f, 0.9f), (Hit{}));
    rig.state.shiftDown = true;
    EXPECT_EQ(At(1.4f, 0.9f), (Hit{bare, 0}));
    rig.doc.viewFlags[kViewBones] = false;
    EXPECT_EQ(At(1.4f, 0.9f), (Hit{}));
    EXPECT_EQ(At(-1.0f, 0.0f), (Hit{}));
    EXPECT_EQ(At(-0.1f, 0.1f), (Hit{skinned, 4}));
}

TEST(WorkspaceGeometry, SegmentDistanceClampsToTheEnds) {
    struct Case {
        float x, y, expected;
    };
    for (const Case& c : {Case{5, 3, 3}, Case{-4, 0, 4}, Case{13, 4, 5}, Case{10, 0, 0}}) {
        EXPECT_FLOAT_EQ(SegmentDistance(c.x, c.y, 0, 0, 10, 0), c.expected) << c.x << ", " << c.y;
    }
    EXPECT_FLOAT_EQ(SegmentDistance(3, 4, 0, 0, 0, 0), 5.0f);
}

TEST(WorkspaceGeometry, CameraClampsAndZoomsWithoutZooming) {
    ViewTransform view = ViewTransform::OfClient(64, 48);
    CameraLimits limits{.minX = -10, .minY = -10, .maxX = 10, .maxY = 10, .minZoom = 0.5f};
    AddZoom(view, limits, -0.9f);
    EXPECT_FLOAT_EQ(view.zoom, 0.5f);
    SetCamera(view, limits, 9.0f, -20.0f);
    EXPECT_FLOAT_EQ(view.cameraX, 10.0f - 2.0f);  // half the span: 2 units / 0.5 zoom / 2
    EXPECT_FLOAT_EQ(view.cameraY, -10.0f + 1.5f);
    Pan(view, limits, 16.0f, 0.0f);
    EXPECT_FLOAT_EQ(view.cameraX, 7.0f);
    ResizeView(view, 128, 48);
    EXPECT_FLOAT_EQ(view.viewWidth, 4.0f);
    EXPECT_FLOAT_EQ(ScreenMapping::Of(view).ppuX, 16.0f);
    ResetView(view, limits);
    EXPECT_EQ(view.zoom, 1.0f);
    EXPECT_EQ(view.cameraX, 0.0f);
    EXPECT_FLOAT_EQ(WorldX(view, 64.0f + 32.0f), 1.0f);
}

}  // namespace
}  // namespace kovra
