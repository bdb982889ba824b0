#pragma once
// One frame of the workspace: the pose step, then the layers in their order (background and grid,
// skins with the pick buffer, Build's outlines and grips, pins, bones and the rubber band, collision
// rectangles, texts, the marquee, the edge fade) into the back buffer. The pick buffer is rebuilt with
// every frame, so a hover test reads what the user last saw.

#include "bitmap/image_surface.h"
#include "doc/wirrel_doc.h"
#include "views/workspace/edge_fade.h"
#include "views/workspace/workspace_state.h"
#include "views/workspace/workspace_theme.h"

namespace kovra {

struct WorkspaceBuffers {
    aurel::ImageSurface back;
    aurel::ImageSurface pick;  // a pin index per pixel, kPickNothing elsewhere
};

// The layers of a frame, to leave some out: the tool's sprite of a frame is the skins alone on a clear
// background.
enum WorkspaceLayer : unsigned {
    kLayerBackdrop = 1u << 0,  // background fill and picture, grid and axes; else the buffer is cleared
    kLayerSkins = 1u << 1,
    kLayerGrips = 1u << 2,
    kLayerPins = 1u << 3,
    kLayerBones = 1u << 4,
    kLayerCollision = 1u << 5,
    kLayerTexts = 1u << 6,
    kLayerMarquee = 1u << 7,
    kLayerFade = 1u << 8,
    kAllLayers = (1u << 9) - 1,
};

// The frame's fade along the edges, in the default shadow colours.
EdgeFade DefaultEdgeFade();

// Paints the frame into `buffers`, sized to the client first. A document without animations paints
// nothing: the previous picture stays. Answers whether a frame was painted.
bool PaintWorkspace(const WirrelDoc& doc, WorkspaceState& state, const WorkspaceTheme& theme,
                    const WorkingColours& colours, const EdgeFade& fade, WorkspaceBuffers& buffers,
                    unsigned layers = kAllLayers);

}  // namespace kovra
