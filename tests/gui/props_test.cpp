#include "gui/gui_props.h"

#include <gtest/gtest.h>
#include <QWidget>

#include "gui/gui.h"
#include "support/control_harness.h"
#include "support/scripted_prompt.h"

namespace {

using namespace kestrel2::win;

TEST(PropsValidation, EveryRowTypeWithGoodBadAndLongInput) {
    const boost::any length = 5u;
    const boost::any floats = std::pair<float, float>(-1.5f, 360.0f);
    const boost::any ints = std::pair<int, int>(1, 64);
    const std::string notFloat = "This is not a valid floating point number.";
    const std::string notInt = "This is not a valid integer.";
    const std::string floatRange = "This floating point value must be within the range (-1.5 - 360)";
    const std::string intRange = "This integer must be within the range (1 - 64)";
    struct Case {
        int type;
        const boost::any& constraint;
        std::string text;
        bool allowEmpty;
        std::string refusal;  // empty when accepted
    };
    const boost::any none;
    const Case cases[] = {
        {kPropString, length, "abcd", true, ""},
        {kPropString, length, "abcde", true, "This string can be no more than 5 characters long."},
        {kPropString, length, "", false, ""},
        {kPropFloat, none, "2.5", true, ""},
        {kPropFloat, none, "-.5", true, ""},
        {kPropFloat, none, "+7", true, ""},
        {kPropFloat, none, "1.2.3", true, notFloat},
        {kPropFloat, none, "1e5", true, notFloat},
        {kPropFloat, none, "-", true, notFloat},
        {kPropFloat, none, ".", true, notFloat},
        {kPropFloat, none, "", true, ""},
        {kPropFloat, none, "", false, notFloat},
        {kPropFloatRange, floats, "-1.5", true, ""},
        {kPropFloatRange, floats, "360", true, ""},
        {kPropFloatRange, floats, "360.01", true, floatRange},
        {kPropFloatRange, floats, "-2", true, floatRange},
        {kPropFloatRange, floats, "abc", true, notFloat},
        {kPropFloatRange, floats, "", true, ""},
        {kPropInt, none, "-12", true, ""},
        {kPropInt, none, "1.0", true, notInt},
        {kPropInt, none, "12a", true, notInt},
        {kPropInt, none, "", false, notInt},
        {kPropIntRange, ints, "1", true, ""},
        {kPropIntRange, ints, "64", true, ""},
        {kPropIntRange, ints, "65", true, intRange},
        {kPropIntRange, ints, "0", true, intRange},
        {kPropIntRange, ints, " 3", true, notInt},
        {kPropIntRange, ints, "", true, ""},
    };
    for (const Case& c : cases) {
        const auto refusal = ValidateProp(c.type, c.constraint, c.text, c.allowEmpty);
        const std::string got = refusal ? refusal->text : "";
        EXPECT_EQ(got, c.refusal) << "type " << c.type << " text '" << c.text << "'";
        if (refusal) {
            EXPECT_EQ(refusal->title, "Invalid input");
        }
    }
}

TEST(PropsLayout, RowsStackWithGapsForSeparatorsAndScaleWithTheRatio) {
    std::vector<PropRow> rows(4);
    rows[0].type = kPropTitle;
    rows[1].type = kPropFloat;
    rows[2].type = kPropSeparator;
    rows[3].type = kPropColor;
    rows[3].nameColumnWidth = 50;
    const auto at1 = LayOutPropRows(rows, 160, 1.0);
    ASSERT_EQ(at1.size(), 3u);
    EXPECT_EQ(at1[0].top, 1);
    EXPECT_EQ(at1[0].bottom, 18);
    EXPECT_EQ(at1[1].top, 20);
    EXPECT_EQ(at1[2].row, 3);
    EXPECT_EQ(at1[2].top, 20 + 19 + 6);
    EXPECT_EQ(at1[2].valueLeft, 50);
    EXPECT_EQ(at1[2].valueRight, 155);
    const auto at2 = LayOutPropRows(rows, 320, 2.0);
    EXPECT_EQ(at2[2].top, 2 * at1[2].top);
    EXPECT_EQ(at2[2].bottom - at2[2].top + 1, 36);
    EXPECT_EQ(PropRowsHeight(rows), 2 + 3 * 19 + 6);
}

// A grid hosted in a window, so its overlay edit is a real text box.
class HostedProps : public testing::Test {
protected:
    void SetUp() override {
        host.resize(300, 200);
        gui.SetWindow(Window(&host, false));
        props = MakeChild<GuiProps>(gui, 5015, 0, 0, 160, 120, prompt);
        props->AddChangeListener(this, &HostedProps::Changed);
        props->AddRow("Title", kPropTitle, "");
        props->AddRow("Angle", kPropFloatRange, "10", std::pair<float, float>(0.0f, 360.0f));
        props->AddRow("Count", kPropInt, "3");
        props->AddRow("Name", kPropString, "bone", 8u);
        props->AddRow("Color", kPropColor, "", aurel::Color32(10, 20, 30));
        host.show();
    }
    void Changed(int id, int row, const aurel::DualString& text) {
        changes.push_back(std::to_string(id) + ":" + std::to_string(row) + "=" + text.Utf8());
    }
    // The middle of a row's band, at ratio 1.
    static int RowY(int row) { return 1 + row * 19 + 9; }

    QWidget host;
    Gui gui;
    kovra::test::ScriptedPrompt prompt;
    std::shared_ptr<GuiProps> props;
    std::vector<std::string> changes;
};

TEST_F(HostedProps, TheEditFollowsTheMouseAndCommitsOnTheNextRow) {
    kovra::test::ControlHarness harness(*props, 160, 120);
    harness.Move(100, RowY(1));
    EXPECT_EQ(props->EditRow(), 1);
    EXPECT_TRUE(props->overlayEdit->IsVisible());
    EXPECT_EQ(props->overlayEdit->GetText().Utf8(), "10");
    EXPECT_EQ(props->overlayEdit->x, 72 + 3);
    EXPECT_EQ(props->overlayEdit->y, 20 + 1);

    props->overlayEdit->SetText("45.5");
    harness.Move(100, RowY(2));
    EXPECT_EQ(props->GetValue(1).Utf8(), "45.5");
    EXPECT_EQ(props->EditRow(), 2);
    // The same text again sends nothing; Enter commits what was typed.
    props->overlayEdit->KeyPressed(0x0D);
    props->overlayEdit->SetText("-4");
    props->overlayEdit->KeyPressed(0x0D);
    EXPECT_EQ(changes, (std::vector<std::string>{"5015:1=45.5", "5015:2=-4"}));
    EXPECT_TRUE(prompt.asked.empty());

    // A title row is hot but never edited.
    harness.Move(100, RowY(0));
    EXPECT_EQ(props->HotRow(), 0);
    EXPECT_EQ(props->EditRow(), -1);
}

TEST_F(HostedProps, ARefusedValueRestoresTheRowAndSendsNothing) {
    kovra::test::ControlHarness harness(*props, 160, 120);
    const std::pair<int, std::string> wrong[] = {{1, "400"}, {1, "1..2"}, {2, "x"}, {3, "eightchr"}};
    for (const auto& [row, text] : wrong) {
        harness.Move(100, RowY(row));
        const std::string before = props->GetValue(row).Utf8();
        props->overlayEdit->SetText(text);
        props->overlayEdit->FocusLost();
        EXPECT_EQ(props->GetValue(row).Utf8(), before);
        EXPECT_EQ(props->overlayEdit->GetText().Utf8(), before);
        harness.Move(100, RowY(4));
    }
    EXPECT_TRUE(changes.empty());
    ASSERT_EQ(prompt.asked.size(), 4u);
    EXPECT_EQ(prompt.asked[0].text.Utf8(), "This floating point value must be within the range (0 - 360)");
    EXPECT_EQ(prompt.asked[3].text.Utf8(), "This string can be no more than 8 characters long.");

    // An empty number is let through for the listener to decide.
    harness.Move(100, RowY(2));
    props->overlayEdit->SetText("");
    props->overlayEdit->FocusLost();
    EXPECT_EQ(changes, (std::vector<std::string>{"5015:2="}));
}

TEST_F(HostedProps, ColourRowsUseTheChooserAndOtherRowsRefuseColours) {
    kovra::test::ControlHarness harness(*props, 160, 120);
    std::vector<aurel::Color32> answers = {aurel::Color32(10, 20, 30), aurel::Color32(1, 2, 3)};
    bool confirm = true;
    props->chooseColour = [&](aurel::Color32& colour) {
        colour = answers.front();
        answers.erase(answers.begin());
        return confirm;
    };
    harness.Move(100, RowY(4));
    EXPECT_EQ(props->ColourRow(), 4);
    harness.Press(kButtonLeft, 100, RowY(4));  // the same colour: nothing
    harness.Press(kButtonLeft, 100, RowY(4));
    EXPECT_EQ(props->GetColor(4), aurel::Color32(1, 2, 3));
    EXPECT_EQ(changes, (std::vector<std::string>{"5015:4=#010203"}));
    confirm = false;
    answers = {aurel::Color32(9, 9, 9)};
    harness.Press(kButtonLeft, 100, RowY(4));
    EXPECT_EQ(props->GetColor(4), aurel::Color32(1, 2, 3));

    props->SetColor(2, aurel::Color32(1, 1, 1));
    EXPECT_EQ(props->GetColor(1), aurel::Color32(0, 0, 0));
    ASSERT_EQ(prompt.asked.size(), 2u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "Invalid input");
    EXPECT_EQ(prompt.asked[0].text.Utf8(), "This is not a color property. Can't set color.");
    EXPECT_EQ(prompt.asked[1].title.Utf8(), "Error");
    EXPECT_EQ(prompt.asked[1].text.Utf8(), "This is not a color property. Can't get color.");
    EXPECT_EQ(props->GetValue(2).Utf8(), "3");
}

TEST_F(HostedProps, ClearAndDisableEndTheEditWithoutStoringIt) {
    kovra::test::ControlHarness harness(*props, 160, 120);
    harness.Move(100, RowY(2));
    props->overlayEdit->SetText("77");
    props->SetEnabled(2, false);
    EXPECT_EQ(props->EditRow(), -1);
    harness.Move(100, RowY(1)).Move(100, RowY(2));
    EXPECT_EQ(props->EditRow(), -1);
    harness.Move(100, RowY(1));
    props->overlayEdit->SetText("5");
    props->Clear();
    EXPECT_EQ(props->RowCount(), 0);
    EXPECT_FALSE(props->overlayEdit->IsVisible());
    EXPECT_TRUE(changes.empty());
}

TEST(PropsPaint, EveryRowKindAtBothRatios) {
    kovra::test::ScriptedPrompt prompt;
    for (const double ratio : {1.0, 2.0}) {
        GuiProps props(prompt);
        kovra::test::ControlHarness harness(props, 150, 100, ratio);
        props.AddRow("Grid", kPropTitle, "");
        props.AddRow("Interval", kPropInt, "5");
        props.AddRow("Off", kPropFloat, "1.5");
        props.SetEnabled(2, false);
        props.AddRow("", kPropSeparator, "");
        props.AddRow("Color", kPropColor, "", aurel::Color32(200, 40, 40));
        harness.Move(100, static_cast<int>((1 + 3 * 19 + 6 + 9) * ratio));
        EXPECT_EQ(props.ColourRow(), 4);
        EXPECT_TRUE(harness.Matches(ratio == 1.0 ? "gui/props_rows" : "gui/props_rows_ratio2"));
    }
}

}  // namespace
