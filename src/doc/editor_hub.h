#pragma once
// What commands ask of the editor beyond the document: the edit mode, the skin tool, the selection of
// the animation list, playback, and the workspace's grid and background colour, which the editor keeps
// across documents. The editor state implements it; commands never see a widget.

#include <cstdint>

#include "base/color32.h"

namespace kovra {

enum EditMode : int { kModeAnimate = 0, kModeBuild = 1, kModeTextures = 2, kModeBackground = 3 };
enum SkinTool : int { kToolSkin = 0, kToolRectangle = 1, kToolTile = 2 };

// The workspace grid: how many lines make one stronger line across and down, its three colours, and
// whether it is drawn. The workspace reads these working values, never the theme's defaults.
struct WorkGrid {
    std::int32_t stepX = 10;
    std::int32_t stepY = 10;
    aurel::Color32 color0;
    aurel::Color32 color1;
    aurel::Color32 origin;
    bool enabled = true;
    bool operator==(const WorkGrid&) const = default;
};

class EditorHub {
public:
    virtual ~EditorHub() = default;

    virtual int EditMode() const = 0;
    virtual void SetEditMode(int mode) = 0;
    virtual int SkinTool() const = 0;
    virtual void SetSkinTool(int tool) = 0;
    // The row selected in the animation list, -1 for none.
    virtual int AnimListSelection() const = 0;
    virtual void SetAnimListSelection(int index) = 0;
    virtual bool IsPlaying() const = 0;
    // Stops playback where it is; a stop away from where it began records itself on the stack.
    virtual void StopPlayback() = 0;
    virtual WorkGrid Grid() const = 0;
    virtual void SetGrid(const WorkGrid& grid) = 0;
    // The colour the workspace is filled with before anything is drawn.
    virtual aurel::Color32 BackgroundColor() const = 0;
    virtual void SetBackgroundColor(aurel::Color32 colour) = 0;
    // Tells the views whether the document now has a background picture.
    virtual void SetBackgroundLoaded(bool loaded) = 0;
};

}  // namespace kovra
