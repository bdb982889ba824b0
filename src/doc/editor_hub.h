#pragma once
// What commands ask of the editor beyond the document: the edit mode, the skin tool, the selection of
// the animation list and playback. The editor state implements it; commands never see a widget.

namespace kovra {

enum EditMode : int { kModeAnimate = 0, kModeBuild = 1, kModeTextures = 2, kModeBackground = 3 };
enum SkinTool : int { kToolSkin = 0, kToolRectangle = 1, kToolTile = 2 };

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
};

}  // namespace kovra
