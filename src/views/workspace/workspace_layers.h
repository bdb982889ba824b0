#pragma once
// Turns the document, the view state and the theme into the one value each painter takes. The choices
// of the frame live here (which pins show, which skin is dimmed, what is hot); the painters only draw.

#include <vector>

#include "doc/wirrel_doc.h"
#include "views/workspace/paint_background.h"
#include "views/workspace/paint_bones.h"
#include "views/workspace/paint_grid.h"
#include "views/workspace/paint_grips.h"
#include "views/workspace/paint_labels.h"
#include "views/workspace/paint_pins.h"
#include "views/workspace/paint_skins.h"
#include "views/workspace/workspace_state.h"
#include "views/workspace/workspace_theme.h"

namespace kovra {

// Everything a layer may read, gathered once per frame.
struct FrameInput {
    const WirrelDoc& doc;
    const WorkspaceState& state;
    const WorkspaceTheme& theme;
    const WorkingColours& colours;
};

// The colour of a collision kind (0 to 7), for its overlay and its rectangles.
aurel::Color32 CollisionColour(int kind);

BackgroundLayer BackgroundOf(const FrameInput& in);
GridLayer GridOf(const FrameInput& in);
// Empty when neither skins nor collision overlays are shown.
SkinLayer SkinsOf(const FrameInput& in);
GripLayer GripsOf(const FrameInput& in);
PinLayer PinsOf(const FrameInput& in);
BoneLayer BonesOf(const FrameInput& in);
std::vector<OutlineRect> CollisionRectsOf(const FrameInput& in);
std::vector<TextItem> TextsOf(const FrameInput& in);

// Whether the grip `part` moves in the gesture that a press would begin now, with `hotPart` hot: Alt
// scales about the centre (both grips of an axis), Ctrl both ways (all four scale grips).
bool GripMovesNow(int part, int hotPart, bool ctrl, bool alt);

}  // namespace kovra
