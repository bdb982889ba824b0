#pragma once
// The common ground of command tests: a document, the pin selection and a recording hub, and the round
// trip that every command must pass: after construction, undo gives back the state before exactly,
// redo the state after, and undo the state before again.

#include <gtest/gtest.h>

#include <memory>

#include "commands/command.h"
#include "doc_state.h"
#include "support/english.h"

namespace kovra::test {

class CommandTest : public testing::Test {
protected:
    static void SetUpTestSuite() { LoadEnglish(); }

    DocState State() const { return Capture(doc, selection, hub); }

    template <class Make>
    auto ExpectRoundTrip(Make make) {
        const DocState before = State();
        auto command = make();
        const DocState after = State();
        command->Undo();
        EXPECT_EQ(State(), before) << "after the first undo of '" << command->label.Utf8() << "'";
        command->Redo();
        EXPECT_EQ(State(), after) << "after the redo of '" << command->label.Utf8() << "'";
        command->Undo();
        EXPECT_EQ(State(), before) << "after the second undo of '" << command->label.Utf8() << "'";
        command->Redo();
        return command;
    }

    WirrelDoc doc;
    SelectionTracker selection;
    RecordingHub hub;
};

}  // namespace kovra::test
