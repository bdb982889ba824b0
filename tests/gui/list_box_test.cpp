#include "gui/gui_list_box.h"

#include <gtest/gtest.h>
#include <QWidget>

#include "gui/gui.h"
#include "gui/virtual_keys.h"
#include "support/control_harness.h"
#include "support/scripted_prompt.h"

namespace {

using namespace kestrel2::win;

class HostedList : public testing::Test {
protected:
    void SetUp() override {
        host.resize(300, 200);
        gui.SetWindow(Window(&host, false));
        list = MakeChild<GuiListBox>(gui, 5009, 0, 0, 120, 58, prompt);
        list->changeListeners.Add(this, &HostedList::Selected);
        list->editListeners.Add(this, &HostedList::Edited);
        list->keyListeners.Add(this, &HostedList::Key);
        for (const char* name : {"walk", "run", "jump", "idle", "fall"}) {
            list->AddItem(name, 0, list->GetCount() * 10);
        }
        host.show();
    }
    void Selected(int id) {
        log.push_back("sel " + std::to_string(id) + " " + std::to_string(list->GetSel()));
    }
    void Edited(int id, int index, const aurel::DualString& text) {
        log.push_back("edit " + std::to_string(id) + " " + std::to_string(index) + " " + text.Utf8());
    }
    void Key(int id, int key, bool down) {
        log.push_back("key " + std::to_string(id) + " " + std::to_string(key) + (down ? " down" : " up"));
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (int i = 0; i < list->GetCount(); ++i) {
            names.push_back(list->Item(i).text.Utf8());
        }
        return names;
    }

    QWidget host;
    Gui gui;
    kovra::test::ScriptedPrompt prompt;
    std::shared_ptr<GuiListBox> list;
    std::vector<std::string> log;
};

TEST_F(HostedList, ItemsKeepTheSelectionThroughInsertAndRemove) {
    list->SetSel(2);
    list->InsertItem(0, "crouch", 7, 99);
    EXPECT_EQ(list->GetSel(), 3);
    EXPECT_EQ(list->Item(0).id, 7);
    EXPECT_EQ(list->Item(0).value, 99);
    list->RemoveItem(1);
    EXPECT_EQ(list->GetSel(), 2);
    EXPECT_EQ(list->Item(2).text.Utf8(), "jump");
    list->RemoveItem(2);
    EXPECT_EQ(list->GetSel(), -1);
    list->SetSel(17);
    EXPECT_EQ(list->GetSel(), -1);
    EXPECT_EQ(Names(), (std::vector<std::string>{"crouch", "run", "idle", "fall"}));
    EXPECT_TRUE(log.empty());
    list->Clear();
    EXPECT_EQ(list->GetCount(), 0);
}

TEST_F(HostedList, ClicksSelectOnceAndTheWheelScrolls) {
    kovra::test::ControlHarness harness(*list, 120, 58);
    harness.Move(20, 1 + 18 + 5);
    EXPECT_EQ(list->HotItem(), 1);
    harness.Press(kButtonLeft, 20, 1 + 18 + 5).Release(kButtonLeft, 20, 24);
    harness.Press(kButtonLeft, 20, 1 + 18 + 5);
    harness.Press(kButtonLeft, 20, 57);  // the part of a row below the list's third
    EXPECT_EQ(log, (std::vector<std::string>{"sel 5009 1", "sel 5009 3"}));
    harness.Wheel(-120).Wheel(-120).Wheel(-120);
    EXPECT_EQ(list->ItemAt(20, 5), 2);  // three rows fit, five items: two steps down at most
    harness.Wheel(120);
    EXPECT_EQ(list->ItemAt(20, 5), 1);
    list->input.MouseLeave();
    EXPECT_EQ(list->HotItem(), -1);
    harness.KeyDown(kVkDelete).KeyUp(kVkDelete).Key(0x41);
    EXPECT_EQ(log.size(), 4u);
    EXPECT_EQ(log[2], "key 5009 46 down");
    EXPECT_EQ(log[3], "key 5009 46 up");
}

TEST_F(HostedList, InPlaceEditsAreCheckedBeforeTheyAreStored) {
    kovra::test::ControlHarness harness(*list, 120, 58);
    harness.DoubleClick(kButtonLeft, 20, 5);
    EXPECT_EQ(list->EditIndex(), -1);  // not editable yet
    list->SetEditable(true);
    list->SetMaxLength(6);
    list->AddValidator([](int, const aurel::DualString& text) -> std::optional<std::string> {
        if (text.Utf8().empty()) {
            return std::string("empty");
        }
        return std::nullopt;
    });
    const std::pair<std::string, std::string> refused[] = {
        {"run", "There is already an item named \"run\""},
        {"sprint2", "This string can be no more than 6 characters long."},
        {"", "empty"},
    };
    for (const auto& [text, message] : refused) {
        harness.DoubleClick(kButtonLeft, 20, 5);
        ASSERT_EQ(list->EditIndex(), 0);
        list->itemEdit->SetText(text);
        list->itemEdit->FocusLost();
        EXPECT_EQ(list->Item(0).text.Utf8(), "walk");
        ASSERT_FALSE(prompt.asked.empty());
        EXPECT_EQ(prompt.asked.back().title.Utf8(), "Invalid Input");
        EXPECT_EQ(prompt.asked.back().text.Utf8(), message);
    }
    harness.DoubleClick(kButtonLeft, 20, 5);
    list->itemEdit->SetText("sprint");
    list->itemEdit->KeyPressed(kVkReturn);
    harness.DoubleClick(kButtonLeft, 20, 5);
    list->itemEdit->SetText("other");
    list->itemEdit->KeyPressed(kVkEscape);
    EXPECT_FALSE(list->itemEdit->IsVisible());
    EXPECT_EQ(Names()[0], "sprint");
    // The double click's first press selected the row.
    EXPECT_EQ(log, (std::vector<std::string>{"sel 5009 0", "edit 5009 0 sprint"}));
    EXPECT_EQ(prompt.asked.size(), 3u);
}

TEST(ListPaint, SelectedAndHotRows) {
    kovra::test::ScriptedPrompt prompt;
    GuiListBox list(prompt);
    kovra::test::ControlHarness harness(list, 90, 60);
    list.AddItem("Alpha", 1);
    list.AddItem("Beta", 2);
    list.AddItem("Gamma", 3);
    list.SetSel(1);
    harness.Move(10, 45);
    EXPECT_TRUE(harness.Matches("gui/list_rows"));
}

}  // namespace
