#include "views/workspace/workspace_paint.h"

#include "views/workspace/paint_grid.h"
#include "views/workspace/workspace_frame.h"
#include "views/workspace/workspace_layers.h"

namespace kovra {
namespace {

// The window shows the frame without its alpha: translucent words that the grid writes straight into
// the buffer, and lines that moved the alpha toward their own, show as their colour.
void MakeOpaque(aurel::ImageSurface& surface) {
    const aurel::SurfaceView view = surface.View();
    for (int y = 0; y < view.height; ++y) {
        std::uint32_t* row = surface.Row(y);
        for (int x = 0; x < view.width; ++x) {
            row[x] |= 0xFF000000u;
        }
    }
}

}  // namespace

EdgeFade DefaultEdgeFade() {
    return EdgeFade({0x60000000, 0x60000000, 0x40000000, 0x40000000});
}

bool PaintWorkspace(const WirrelDoc& doc, WorkspaceState& state, const WorkspaceTheme& theme,
                    const WorkingColours& colours, const EdgeFade& fade, WorkspaceBuffers& buffers,
                    unsigned layers) {
    const int width = state.view.clientWidth;
    const int height = state.view.clientHeight;
    if (doc.Wirrel().anims.empty() || width <= 0 || height <= 0) {
        return false;
    }
    if (!PoseStep(doc, state, theme.pinRadSm)) {
        return false;
    }
    for (aurel::ImageSurface* surface : {&buffers.back, &buffers.pick}) {
        if (surface->Width() != width || surface->Height() != height) {
            surface->Resize(width, height);
        }
    }
    buffers.pick.Clear(kPickNothing);
    const FrameInput in{doc, state, theme, colours};
    const auto on = [layers](unsigned layer) { return (layers & layer) != 0; };
    if (on(kLayerBackdrop)) {
        PaintBackground(buffers.back, BackgroundOf(in));
        if (colours.gridOn) {
            PaintGrid(buffers.back, GridOf(in));
        }
    } else {
        buffers.back.Clear(aurel::Color32());
    }
    if (on(kLayerSkins)) {
        PaintSkins(buffers.back, buffers.pick, SkinsOf(in));
    }
    if (on(kLayerGrips)) {
        PaintGrips(buffers.back, GripsOf(in));
    }
    if (on(kLayerPins)) {
        PaintPins(buffers.back, PinsOf(in));
    }
    if (on(kLayerBones)) {
        PaintBones(buffers.back, BonesOf(in));
    }
    if (on(kLayerCollision)) {
        PaintCollisionRects(buffers.back, CollisionRectsOf(in));
    }
    if (on(kLayerTexts)) {
        PaintTexts(buffers.back, TextsOf(in));
    }
    if (on(kLayerMarquee) && state.marquee) {
        PaintMarquee(buffers.back, MarqueeBox{state.pressX, state.pressY, state.mouseX, state.mouseY});
    }
    if (on(kLayerFade)) {
        fade.Draw(buffers.back);
    }
    if (on(kLayerBackdrop)) {
        MakeOpaque(buffers.back);
    }
    return true;
}

}  // namespace kovra
