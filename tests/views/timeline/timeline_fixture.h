#pragma once
// A document with one animation of three one-second key frames and two pins, a timeline view bound to
// a command stack as the editor binds it, and helpers that script mouse and keys into the view.

#include <memory>

#include "commands/command_stack.h"
#include "doc/editor_hub.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "doc/wirrel_writer.h"
#include "gui/input_event.h"
#include "support/scripted_prompt.h"
#include "views/timeline/timeline_view.h"

namespace kovra::test {

class FakeHub : public EditorHub {
public:
    int EditMode() const override { return 0; }
    void SetEditMode(int) override {}
    int SkinTool() const override { return 0; }
    void SetSkinTool(int) override {}
    int AnimListSelection() const override { return 0; }
    void SetAnimListSelection(int) override {}
    bool IsPlaying() const override { return playing; }
    void StopPlayback() override { playing = false; }
    WorkGrid Grid() const override { return {}; }
    void SetGrid(const WorkGrid&) override {}
    aurel::Color32 BackgroundColor() const override { return {}; }
    void SetBackgroundColor(aurel::Color32) override {}
    void SetBackgroundLoaded(bool) override {}

    bool playing = false;
};

class TimelineFixture {
public:
    explicit TimelineFixture(int width = 900, int height = 120);

    // The document as its file would hold it.
    std::vector<std::uint8_t> Bytes() const;
    std::vector<std::uint32_t> Ticks() const;

    void Move(int x, int y);
    void Press(int button, int x, int y);
    void Release(int button, int x, int y);
    void KeyDown(int key);
    void KeyUp(int key);
    void Drag(int fromX, int fromY, int toX, int toY, int steps);
    void Click(int x, int y);
    void Wheel(int dy);

    WirrelDoc doc;
    FakeHub hub;
    SelectionTracker selection;
    ScriptedPrompt prompt;
    CommandStack stack;
    std::unique_ptr<TimelineView> view;
    kestrel2::win::InputEvent event;
    int keysPassedOn = 0;

private:
    void Send(int type);
    void PassedOn(const kestrel2::win::InputEvent&) { ++keysPassedOn; }
};

}  // namespace kovra::test
