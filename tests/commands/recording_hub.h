#pragma once
// An EditorHub for tests: it keeps what commands set and counts what they ask. Stopping playback runs
// `onStop`, which a test can use to record the stop on a stack as the editor does.

#include <functional>

#include "doc/editor_hub.h"

namespace kovra::test {

class RecordingHub : public EditorHub {
public:
    int EditMode() const override { return editMode; }
    void SetEditMode(int mode) override { editMode = mode; }
    int SkinTool() const override { return skinTool; }
    void SetSkinTool(int tool) override { skinTool = tool; }
    int AnimListSelection() const override { return animListSelection; }
    void SetAnimListSelection(int index) override { animListSelection = index; }
    bool IsPlaying() const override { return playing; }
    void StopPlayback() override {
        playing = false;
        ++stops;
        if (onStop) {
            onStop();
        }
    }

    int editMode = kModeAnimate;
    int skinTool = kToolSkin;
    int animListSelection = 0;
    bool playing = false;
    int stops = 0;
    std::function<void()> onStop;
};

}  // namespace kovra::test
