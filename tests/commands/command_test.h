#pragma once
// The common ground of command tests: a document whose animation "Default" has three frames of two
// small trees (frame 1 current) and whose animation "Walk" is a copy, a pin selection, a view and a
// recording hub; and the round trip that every command must pass: after construction, undo gives back
// the state before exactly, redo the state after, and undo the state before again.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "commands/pin_commands.h"
#include "doc_state.h"
#include "support/english.h"
#include "support/scripted_prompt.h"

namespace kovra::test {

// Root 0 at the origin with the chain 1 (straight up, 2 long) and 2 (3 long, along x); root 3 at (-5, 0)
// with the attachment 4. Ids are the indices.
inline std::vector<WirrelPin> TwoTrees() {
    return {WirrelPin{.angle = 0.0f, .length = 0.0f, .flags = Root, .parent = -1, .id = 0},
            WirrelPin{.angle = 1.5707964f, .length = 2.0f, .flags = Bone, .parent = 0, .id = 1},
            WirrelPin{.angle = 0.0f, .length = 3.0f, .flags = Bone, .parent = 1, .id = 2},
            WirrelPin{.angle = 3.1415927f, .length = 5.0f, .flags = Root, .parent = -1, .id = 3},
            WirrelPin{.angle = 4.712389f, .length = 1.0f, .flags = Attachment, .parent = 3, .id = 4}};
}

class CommandTest : public testing::Test {
protected:
    static void SetUpTestSuite() { LoadEnglish(); }

    void SetUp() override {
        doc.Reset(true);
        doc.Wirrel().pinNames = {MakeName("hip"), MakeName("leg"), MakeName("foot"), MakeName("box"),
                                 MakeName("lid")};
        doc.CurrentAnim().keys.assign(3, WirrelKey{.pins = TwoTrees(), .ticks = 600});
        for (std::uint32_t k = 0; k < 3; ++k) {
            Keys()[k].pins[2].angle = 0.25f * k;
            Keys()[k].ticks += 100 * k;
        }
        doc.AddAnim("Walk", kAnimCopy, -1);
        Select(0, 0);
        doc.SetFrame(1);
        selection = SelectionTracker{};
        selection.Add(2, true);
        selection.Add(4, false);
        selection.SetHot(2, 1);
        hub = RecordingHub{};
        view = ViewTransform::OfClient(640, 480);
        FillPinPixels(view, Pins());
    }

    std::vector<WirrelKey>& Keys() { return doc.CurrentAnim().keys; }
    std::vector<WirrelPin>& Pins() { return doc.CurrentKey().pins; }
    void Select(int anim, std::uint32_t frame) {
        doc.cursor.animIndex = anim;
        doc.cursor.animName = doc.Wirrel().anims[anim].name;
        doc.SetFrame(frame);
    }
    DocState State() const { return DocState(doc, selection, hub); }

    template <class Make>
    void ExpectRoundTrip(Make make) {
        const DocState before = State();
        const std::shared_ptr<ICommand> command = make();
        const DocState after = State();
        command->Undo();
        EXPECT_TRUE(State() == before) << "first undo of " << command->label.Utf8();
        command->Redo();
        EXPECT_TRUE(State() == after) << "redo of " << command->label.Utf8();
        command->Undo();
        EXPECT_TRUE(State() == before) << "second undo of " << command->label.Utf8();
    }

    WirrelDoc doc;
    SelectionTracker selection;
    RecordingHub hub;
    ViewTransform view;
    ScriptedPrompt prompt;
};

}  // namespace kovra::test
