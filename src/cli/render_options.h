#pragma once
// What kovra-cli render needs beyond its arguments: the picture's size and camera read from the command
// line, the play cursor placed on the animation asked for, and the frame painted by the workspace's own
// painter, so that the tool's picture is the editor's.

#include <string>

#include "doc/wirrel_doc.h"
#include "views/workspace/workspace_paint.h"
#include "views/workspace/workspace_theme.h"

namespace kovra::cli {

// The picture's size in pixels and the camera: the world point at its centre and the zoom.
struct RenderView {
    int width = 512;
    int height = 512;
    float zoom = 1.0f;
    float centerX = 0.0f;
    float centerY = 0.0f;
};

// Reads "WxH" (each side 1 to kMaxRenderSide), a positive zoom and "X,Y"; on a text it can't read, one
// line on stderr says which and the answer is false.
constexpr int kMaxRenderSide = 16384;
bool ParseRenderView(const std::string& size, const std::string& zoom, const std::string& center,
                     RenderView& view);

// Makes the animation `name` current at the play position `framePos` (2.5: half way from key frame 2
// to 3); false after one line on stderr when there is no such animation or position.
bool PlaceCursor(WirrelDoc& doc, const std::string& name, float framePos);

// Paints the current frame as the workspace shows it in animate mode with nothing selected and no
// mouse over it (so without its texts), or only the skins on a clear background: for those the
// document's skin view is turned on and its collision view off. False when the pose can't be evaluated.
bool PaintFrame(WirrelDoc& doc, const RenderView& view, const WorkspaceTheme& theme, bool skinsOnly,
                WorkspaceBuffers& buffers);

}  // namespace kovra::cli
