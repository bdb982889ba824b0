#pragma once
// An EditorHub for tests that keeps what commands set. Stopping playback runs `onStop`, with which a
// test records the stop on a stack as the editor does.

#include <functional>

#include "doc/editor_hub.h"

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

    int editMode = kModeAnimate;
    int skinTool = kToolSkin;
    int animListSelection = 0;
    bool playing = false;
    std::function<void()> onStop;
};

}  // namespace kovra::test
