#include "views/dialogs/event_editing.h"

#include <gtest/gtest.h>

#include <bit>

#include "commands/editor_commands.h"
#include "doc/wirrel_doc.h"
#include "support/scripted_prompt.h"

namespace kovra {
namespace {

TEST(EventVariables, TextIsTypedAsItReads) {
    struct Case {
        std::string text;
        VarKind kind;
        std::string label;
    };
    const Case cases[] = {
        {"3", VarKind::Int, "Var 2 (int)"},
        {"-12", VarKind::Int, "Var 2 (int)"},
        {"+7", VarKind::Int, "Var 2 (int)"},
        {"3.5", VarKind::Float, "Var 2 (float)"},
        {"-.5", VarKind::Float, "Var 2 (float)"},
        {"4.", VarKind::Float, "Var 2 (float)"},
        {"99999999999", VarKind::Float, "Var 2 (float)"},
        {"x", VarKind::Invalid, "Var 2 (invalid)"},
        {"1.2.3", VarKind::Invalid, "Var 2 (invalid)"},
        {"-", VarKind::Invalid, "Var 2 (invalid)"},
        {".", VarKind::Invalid, "Var 2 (invalid)"},
        {"1e5", VarKind::Invalid, "Var 2 (invalid)"},
        {" 3", VarKind::Invalid, "Var 2 (invalid)"},
        {"", VarKind::None, "Var 2"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(KindOfVarText(c.text), c.kind) << c.text;
        EXPECT_EQ(VarRowLabel(2, c.text), c.label) << c.text;
    }
}

// Two animations: "Default" with three frames, "Walk" with two. Frame 0 triggers "Step" and "Hit",
// frame 2 "Step" again, Walk's frame 1 "Hit".
class EventEditingTest : public testing::Test {
protected:
    void SetUp() override {
        doc.Reset(true);
        Wirrel& w = doc.Wirrel();
        w.anims[0].keys.resize(3);
        doc.AddAnim("Walk", kAnimEmpty, -1);
        w.anims[1].keys.resize(2);
        w.eventNames = {MakeName("Step"), MakeName("Hit")};
        const auto integer = [](std::int32_t v) { return std::bit_cast<std::uint32_t>(v); };
        const auto real = [](float v) { return std::bit_cast<std::uint32_t>(v); };
        w.events = {{0, 2u | (1u << 2), {integer(-4), real(0.25f)}},
                    {1, 0, {}},
                    {0, 2, {integer(9)}},
                    {1, 1, {real(2.5f)}}};
        w.anims[0].keys[0].eventFirst = 0;
        w.anims[0].keys[0].eventCount = 2;
        w.anims[0].keys[2].eventFirst = 2;
        w.anims[0].keys[2].eventCount = 1;
        w.anims[1].keys[1].eventFirst = 3;
        w.anims[1].keys[1].eventCount = 1;
    }

    // The names of each frame's events, frames in order, as the document holds them.
    std::vector<std::vector<std::string>> NamesByFrame() const {
        std::vector<std::vector<std::string>> frames;
        const Wirrel& w = doc.Wirrel();
        for (const WirrelAnim& anim : w.anims) {
            for (const WirrelKey& key : anim.keys) {
                auto& names = frames.emplace_back();
                for (std::int32_t e = 0; e < key.eventCount; ++e) {
                    names.emplace_back(NameOf(w.eventNames[w.events[key.eventFirst + e].name]));
                }
            }
        }
        return frames;
    }

    void Apply(const EventEditing& editing) { CommandEditorEvents command(doc, editing.Definitions()); }

    WirrelDoc doc;
    test::ScriptedPrompt prompt;
};

TEST_F(EventEditingTest, ShowsTheFramesEventsWithTheirVariablesAsText) {
    const EventEditing editing(doc.Wirrel(), 0, 0);
    ASSERT_EQ(editing.Count(), 2);
    EXPECT_EQ(editing.Name(0), "Step");
    EXPECT_EQ(editing.Var(0, 0), "-4");
    EXPECT_EQ(editing.Var(0, 1), "0.25");
    EXPECT_EQ(editing.Var(0, 2), "");
    EXPECT_EQ(editing.Name(1), "Hit");
    EXPECT_EQ(EventEditing(doc.Wirrel(), 1, 1).Var(0, 0), "2.5");
    EXPECT_EQ(EventEditing(doc.Wirrel(), 0, 1).Count(), 0);
}

TEST_F(EventEditingTest, UnchangedDefinitionsKeepEveryEventAndValue) {
    const Wirrel before = doc.Wirrel();
    Apply(EventEditing(doc.Wirrel(), 0, 1));
    EXPECT_EQ(doc.Wirrel().eventNames, before.eventNames);
    EXPECT_EQ(doc.Wirrel().events, before.events);
    EXPECT_EQ(NamesByFrame(),
              (std::vector<std::vector<std::string>>{{"Step", "Hit"}, {}, {"Step"}, {}, {"Hit"}}));
}

TEST_F(EventEditingTest, TypedVariablesAreStoredByTheirKind) {
    EventEditing editing(doc.Wirrel(), 0, 1);
    const int row = editing.Add();
    EXPECT_EQ(editing.Name(row), "Event 1");
    EXPECT_EQ(editing.Name(editing.Add()), "Event 2");
    editing.SetName(row, "Hit");
    editing.SetVar(row, 0, "3");
    editing.SetVar(row, 1, "3.5");
    editing.SetVar(row, 2, "x");
    editing.SetVar(row, 5, "-1");
    Apply(editing);
    const WirrelKey& key = doc.Wirrel().anims[0].keys[1];
    ASSERT_EQ(key.eventCount, 2);
    const WirrelEvent& event = doc.Wirrel().events[key.eventFirst];
    EXPECT_EQ(NameOf(doc.Wirrel().eventNames[event.name]), "Hit");
    EXPECT_EQ(event.types, 2u | (1u << 2) | (2u << 10));
    EXPECT_EQ(event.vars[0], 3u);
    EXPECT_EQ(std::bit_cast<float>(event.vars[1]), 3.5f);
    EXPECT_EQ(event.vars[2], 0u);
    EXPECT_EQ(std::bit_cast<std::int32_t>(event.vars[5]), -1);
    EXPECT_EQ(NamesByFrame(), (std::vector<std::vector<std::string>>{
                                  {"Step", "Hit"}, {"Hit", "Event 2"}, {"Step"}, {}, {"Hit"}}));
}

TEST_F(EventEditingTest, RemovingAnEventOtherFramesUseAsksFirst) {
    EventEditing editing(doc.Wirrel(), 0, 0);
    prompt.Answer(aurel::kAnswerCancel);
    EXPECT_FALSE(editing.Remove(0, prompt));
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "Confirm");
    EXPECT_EQ(prompt.asked[0].text.Utf8(),
              "This event is triggered from other frames. Deleting will remove it from them all.");
    EXPECT_EQ(editing.Count(), 2);

    prompt.Answer(aurel::kAnswerOk);
    EXPECT_TRUE(editing.Remove(0, prompt));
    Apply(editing);
    EXPECT_EQ(NamesByFrame(), (std::vector<std::vector<std::string>>{{"Hit"}, {}, {}, {}, {"Hit"}}));
    EXPECT_EQ(doc.Wirrel().eventNames.size(), 1u);
    EXPECT_EQ(doc.Wirrel().anims[0].keys[2].eventFirst, -1);
}

TEST_F(EventEditingTest, RemovingAnEventOfThisFrameAloneAsksNothing) {
    EventEditing editing(doc.Wirrel(), 0, 0);
    const int row = editing.Add();
    EXPECT_TRUE(editing.Remove(row, prompt));
    EXPECT_TRUE(prompt.asked.empty());
    EXPECT_EQ(editing.Count(), 2);
}

}  // namespace
}  // namespace kovra
