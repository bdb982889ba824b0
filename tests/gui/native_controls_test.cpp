#include <gtest/gtest.h>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QToolBar>
#include <QUrl>
#include <QWidget>

#include "gui/gui.h"
#include "gui/gui_button.h"
#include "gui/gui_combo_box.h"
#include "gui/gui_edit.h"
#include "gui/gui_scrollbar.h"
#include "gui/gui_toolbar.h"
#include "gui/virtual_keys.h"
#include "settings/lang.h"

namespace {

using namespace kestrel2::win;

// Counts what a control reports: change and command listeners, focus and keys.
struct Listener {
    void Change(int id) { changes.push_back(id); }
    void RootKey(int key, bool down) { keys.push_back(down ? key : -key); }
    void Drop(const aurel::DualString& path) { drops.push_back(path.Utf8()); }
    void Command(int id) { commands.push_back(id); }
    void Focus(int id) { focuses.push_back(id); }
    void Key(int id, int key) { keys.push_back(id * 1000 + key); }
    std::vector<int> changes, commands, focuses, keys;
    std::vector<std::string> drops;
};

TEST(ScrollPosition, EveryCodeMovesWithinTheRange) {
    const struct {
        int code, position, track;
        std::optional<int> expected;
    } cases[] = {
        // Range 0 to 30, page 5: the last position is 26.
        {kScrollLineUp, 10, 0, 9},
        {kScrollLineDown, 10, 0, 11},
        {kScrollPageUp, 10, 0, 5},
        {kScrollPageDown, 10, 0, 15},
        {kScrollThumbPosition, 10, 17, 17},
        {kScrollThumbTrack, 10, 18, 18},
        {kScrollTop, 10, 0, 10},
        {kScrollBottom, 10, 0, 10},
        {kScrollEnd, 10, 17, std::nullopt},
        {9, 10, 17, 10},
        {kScrollLineUp, 0, 0, 0},
        {kScrollPageUp, 3, 0, 0},
        {kScrollLineDown, 26, 0, 26},
        {kScrollPageDown, 24, 0, 26},
        {kScrollThumbTrack, 10, 40, 26},
        {kScrollThumbPosition, 10, -3, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ScrollPosition(c.code, c.position, c.track, 5, 0, 30), c.expected)
            << "code " << c.code << " from " << c.position;
    }
}

class NativeControl : public testing::Test {
protected:
    void SetUp() override {
        host.resize(300, 200);
        gui.SetWindow(Window(&host, false));
        gui.commandListeners.Add(&listener, &Listener::Command);
        host.show();
    }
    template <class T>
    std::shared_ptr<T> Make(int id, std::shared_ptr<T> control) {
        control->Create(gui, id, 10, 10, 120, 24);
        gui.AddChild(control);
        control->changeListeners.Add(&listener, &Listener::Change);
        return control;
    }

    QWidget host;
    Gui gui;
    Listener listener;
};

TEST_F(NativeControl, TheScrollbarReportsOnlyNewPositions) {
    auto bar = Make(5, std::make_shared<GuiScrollbar>(false));
    bar->SetRange(0, 30);
    bar->SetPage(5);
    bar->SetPos(25);
    auto* native = qobject_cast<QScrollBar*>(bar->window.handle());
    ASSERT_NE(native, nullptr);
    EXPECT_EQ(native->maximum(), 26);
    native->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    native->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    native->triggerAction(QAbstractSlider::SliderToMinimum);
    EXPECT_EQ(bar->GetPos(), 26);
    EXPECT_EQ(native->value(), 26);
    native->triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(bar->GetPos(), 21);
    bar->Scroll(kScrollEnd, 3);
    EXPECT_EQ(listener.changes, (std::vector<int>{5, 5}));
    EXPECT_TRUE(listener.commands.empty());
}

TEST_F(NativeControl, TheEditReportsOnceOnLeavingAlsoWhenUnchanged) {
    auto edit = Make(9, std::make_shared<GuiEdit>());
    edit->focusListeners.Add(&listener, &Listener::Focus);
    edit->keyListeners.Add(&listener, &Listener::Key);
    QWidget* box = edit->window.handle();
    EXPECT_EQ(edit->GetText().Utf8(), "Text...");
    edit->SetText("12");

    QFocusEvent in(QEvent::FocusIn, Qt::MouseFocusReason);
    QFocusEvent out(QEvent::FocusOut, Qt::MouseFocusReason);
    QCoreApplication::sendEvent(box, &in);
    EXPECT_EQ(edit->LastAccepted().Utf8(), "12");
    QCoreApplication::sendEvent(box, &out);
    EXPECT_EQ(listener.changes, (std::vector<int>{9}));
    EXPECT_EQ(listener.commands, (std::vector<int>{9}));

    QCoreApplication::sendEvent(box, &in);
    qobject_cast<QLineEdit*>(box)->insert("5");
    EXPECT_EQ(listener.changes.size(), 1u);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(box, &enter);
    QCoreApplication::sendEvent(box, &escape);
    EXPECT_EQ(listener.keys, (std::vector<int>{9000 + kVkReturn, 9000 + kVkEscape}));
    EXPECT_EQ(listener.changes.size(), 1u);
    QCoreApplication::sendEvent(box, &out);
    EXPECT_EQ(listener.changes, (std::vector<int>{9, 9}));
    EXPECT_EQ(edit->LastAccepted().Utf8(), "125");
    EXPECT_EQ(listener.focuses, (std::vector<int>{9, 9}));
    EXPECT_TRUE(edit->IsTextBox());
}

TEST_F(NativeControl, AnAttachedEditLeavesEscToItsDialog) {
    auto line = new QLineEdit(&host);
    GuiEdit edit;
    edit.Attach(Window(line, false), 4);
    edit.keyListeners.Add(&listener, &Listener::Key);
    EXPECT_FALSE(edit.KeyPressed(kVkEscape));
    EXPECT_TRUE(edit.KeyPressed(kVkReturn));
    EXPECT_EQ(listener.keys, (std::vector<int>{4000 + kVkReturn}));
}

TEST_F(NativeControl, CheckboxStatesAndRadioGroups) {
    auto box = Make(3, std::make_shared<GuiCheckbox>());
    auto* native = qobject_cast<QCheckBox*>(box->window.handle());
    EXPECT_EQ(box->GetCheck(), kUnchecked);
    box->SetCheck(kMixed);
    EXPECT_EQ(native->checkState(), Qt::PartiallyChecked);
    native->click();
    EXPECT_EQ(box->GetCheck(), kChecked);
    native->click();
    EXPECT_EQ(box->GetCheck(), kUnchecked);
    box->SetCheck(kChecked);
    EXPECT_EQ(native->checkState(), Qt::Checked);
    EXPECT_EQ(listener.changes, (std::vector<int>{3, 3}));

    auto first = Make(10, std::make_shared<GuiRadio>(1));
    auto second = Make(11, std::make_shared<GuiRadio>(1));
    auto other = Make(12, std::make_shared<GuiRadio>(2));
    first->SetCheck(kChecked);
    other->SetCheck(kChecked);
    qobject_cast<QAbstractButton*>(second->window.handle())->click();
    EXPECT_EQ(first->GetCheck(), kUnchecked);
    EXPECT_EQ(second->GetCheck(), kChecked);
    EXPECT_EQ(other->GetCheck(), kChecked);
    EXPECT_EQ(listener.changes, (std::vector<int>{3, 3, 11}));
    EXPECT_EQ(listener.commands, (std::vector<int>{3, 3, 11}));
}

TEST_F(NativeControl, TheComboBoxReportsEachChoiceAndRelabels) {
    aurel::SettingsStore& language = aurel::LanguageStore();
    language.Select("COMBOTEST");
    language.SetString("Linear", "Linear");
    auto combo = Make(20, std::make_shared<GuiComboBox>());
    combo->SetLang("COMBOTEST", "");
    combo->AddLangString("Linear");
    combo->AddString("Plain");
    combo->SetSel(1);
    auto* native = qobject_cast<QComboBox*>(combo->window.handle());
    EXPECT_EQ(native->currentIndex(), 1);
    emit native->activated(0);
    emit native->activated(0);
    EXPECT_EQ(combo->GetSel(), 0);
    EXPECT_EQ(listener.changes, (std::vector<int>{20, 20}));

    language.Select("COMBOTEST");
    language.SetString("Linear", "Straight");
    gui.ApplyLanguage();
    EXPECT_EQ(native->itemText(0).toStdString(), "Straight");
    EXPECT_EQ(native->itemText(1).toStdString(), "Plain");
    EXPECT_EQ(native->currentIndex(), 0);
}

TEST_F(NativeControl, ToolbarButtonsCheckRadioAndTooltips) {
    aurel::SettingsStore& language = aurel::LanguageStore();
    language.Select("TOOLTEST");
    language.SetString("Grid", "Show the grid");
    auto bar = Make(30, std::make_shared<GuiToolbar>());
    bar->SetLang("TOOLTEST", "");
    bar->AddButton({101, "Grid", {}, {}, ToolStyle::Check});
    bar->AddButton({102, "Move", {}, {}, ToolStyle::Radio});
    bar->AddButton({103, "Turn", {}, {}, ToolStyle::Radio});
    bar->AddSeparator();
    bar->AddButton({104, "Zoom", {}, {}, ToolStyle::Radio});
    bar->SetButtonState(102, true);
    bar->SetButtonState(104, true);
    gui.ApplyLanguage();

    auto* native = qobject_cast<QToolBar*>(bar->window.handle());
    const QList<QAction*> actions = native->actions();
    ASSERT_EQ(actions.size(), 5);
    EXPECT_EQ(actions[0]->toolTip().toStdString(), "Show the grid");
    EXPECT_EQ(actions[1]->toolTip().toStdString(), "[MISSING STRING]");
    EXPECT_EQ(native->widgetForAction(actions[0])->size(), QSize(23, 23));

    actions[0]->trigger();
    actions[2]->trigger();
    EXPECT_TRUE(bar->GetButtonState(101));
    EXPECT_FALSE(bar->GetButtonState(102));
    EXPECT_TRUE(bar->GetButtonState(103));
    EXPECT_TRUE(bar->GetButtonState(104));
    EXPECT_TRUE(actions[2]->isChecked());
    EXPECT_FALSE(actions[1]->isChecked());
    actions[2]->trigger();
    EXPECT_TRUE(actions[2]->isChecked());
    actions[0]->trigger();
    EXPECT_FALSE(bar->GetButtonState(101));
    EXPECT_EQ(listener.changes, (std::vector<int>{101, 103, 103, 101}));
    EXPECT_EQ(listener.commands, listener.changes);
}

TEST_F(NativeControl, UntakenKeysAndDroppedFilesReachTheRoot) {
    gui.keyListeners.Add(&listener, &Listener::RootKey);
    gui.dropListeners.Add(&listener, &Listener::Drop);
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QKeyEvent repeatUp(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier, QString(), true);
    QKeyEvent up(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(&host, &down);
    QCoreApplication::sendEvent(&host, &repeatUp);
    QCoreApplication::sendEvent(&host, &up);
    EXPECT_EQ(listener.keys, (std::vector<int>{kVkDelete, -kVkDelete}));

    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/tmp/walk.ske"), QUrl("https://example.org/x.ske")});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&host, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&host, &drop);
    EXPECT_EQ(listener.drops, (std::vector<std::string>{"/tmp/walk.ske"}));
}

}  // namespace
