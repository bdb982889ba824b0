#pragma once
// The editor as command tests see it: a hub that keeps what commands set (stopping playback runs
// `onStop`, with which a test records the stop on a stack as the editor does), and everything a command
// may change, captured as values that compare.

#include <functional>
#include <tuple>

#include "doc/editor_hub.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"

namespace kovra::test {

struct RecordingHub : EditorHub {
    int EditMode() const override { return editMode; }
    void SetEditMode(int mode) override { editMode = mode; }
    int SkinTool() const override { return skinTool; }
    void SetSkinTool(int tool) override { skinTool = tool; }
    int AnimListSelection() const override { return animListSelection; }
    void SetAnimListSelection(int index) override { animListSelection = index; }
    bool IsPlaying() const override { return playing; }
    void StopPlayback() override {
        playing = false;
        if (onStop) {
            onStop();
        }
    }
    WorkGrid Grid() const override { return grid; }
    void SetGrid(const WorkGrid& g) override { grid = g; }
    aurel::Color32 BackgroundColor() const override { return backgroundColor; }
    void SetBackgroundColor(aurel::Color32 colour) override { backgroundColor = colour; }
    void SetBackgroundLoaded(bool loaded) override { backgroundLoaded = loaded; }

    int editMode = kModeAnimate;
    int skinTool = kToolSkin;
    int animListSelection = 0;
    bool playing = false;
    std::function<void()> onStop;
    WorkGrid grid{.stepX = 5, .stepY = 5, .color0 = 0xFF202020, .color1 = 0xFF404040, .origin = 0xFF0000FF};
    aurel::Color32 backgroundColor = 0xFF808080;
    bool backgroundLoaded = false;
};

inline auto CursorOf(const PlayCursor& c) {
    return std::make_tuple(c.animIndex, c.animName, c.frameIndex, c.framePos, c.otherAnimName,
                           c.otherFrameIndex, c.otherFramePos, c.blending, c.blendPos, c.blendLength);
}

// The tables, the play cursor, the snap setting, the pin selection and what the hub keeps.
inline auto StateOf(const WirrelDoc& doc, const SelectionTracker& selection, const RecordingHub& hub) {
    return std::make_tuple(doc.Wirrel(), CursorOf(doc.cursor), doc.snapFrames, selection.hotItem,
                           selection.hotPart, selection.Snapshot(), hub.animListSelection, hub.editMode,
                           hub.skinTool, hub.grid, hub.backgroundColor, hub.backgroundLoaded);
}

}  // namespace kovra::test
