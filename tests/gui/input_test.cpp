#include "gui/input.h"

#include <gtest/gtest.h>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <vector>

#include "gui/input_translator.h"
#include "gui/virtual_keys.h"

namespace {

using namespace kestrel2::win;

// Keeps a copy of every event an Input sends.
class Recorder {
public:
    explicit Recorder(Input& input) { input.listeners.Add(this, &Recorder::Take); }
    void Take(InputEvent& event) { events.push_back(event); }
    std::vector<int> Types() const {
        std::vector<int> types;
        for (const InputEvent& e : events) {
            types.push_back(e.type);
        }
        return types;
    }
    std::vector<InputEvent> events;
};

TEST(Input, FocusLossReleasesHeldKeysThenButtonsInOrder) {
    Input input;
    Recorder recorder(input);
    input.KeyDown('A', false);
    input.KeyDown(kVkControl, false);
    input.KeyDown(kVkShift, false);
    input.MouseMove(5, 5, true);
    input.ButtonDown(kButtonRight, 5, 5, false, {true, true, false});
    input.ButtonDown(kButtonLeft, 5, 5, false, {true, true, false});
    input.MouseMove(9, 7, true);
    recorder.events.clear();

    input.FocusLost();
    ASSERT_EQ(recorder.Types(), (std::vector<int>{1, 1, 1, 5, 5}));
    EXPECT_EQ(recorder.events[0].key, kVkShift);
    EXPECT_EQ(recorder.events[1].key, kVkControl);
    EXPECT_EQ(recorder.events[2].key, 'A');
    EXPECT_EQ(recorder.events[3].button, kButtonLeft);
    EXPECT_EQ(recorder.events[4].button, kButtonRight);
    EXPECT_EQ(recorder.events[4].buttons[kButtonLeft], 0);
    const InputEvent& after = input.Event();
    EXPECT_FALSE(input.Captured());
    EXPECT_EQ(after.keys[kVkControl] + after.keys[kVkShift] + after.keys['A'], 0);
    EXPECT_EQ(after.dragging, 0);
}

TEST(Input, PressesReportModifiersTheKeyTableMissedFirst) {
    Input input;
    Recorder recorder(input);
    input.ButtonDown(kButtonLeft, 3, 4, false, Modifiers{true, true, true});
    ASSERT_EQ(recorder.Types(), (std::vector<int>{0, 0, 0, 4}));
    EXPECT_EQ(recorder.events[0].key, kVkControl);
    EXPECT_EQ(recorder.events[1].key, kVkShift);
    EXPECT_EQ(recorder.events[2].key, kVkMenu);
    input.ButtonUp(kButtonLeft, 3, 4);
    recorder.events.clear();
    input.ButtonDown(kButtonLeft, 3, 4, false, Modifiers{true, false, false});
    EXPECT_EQ(recorder.Types(), (std::vector<int>{4}));
}

TEST(Input, MovesDragsAndReleases) {
    Input input;
    Recorder recorder(input);
    input.MouseMove(10, 10, true);
    input.MouseMove(-3, 12, false);  // outside, nothing held: the mouse left
    input.ButtonDown(kButtonLeft, 10, 10, false, {});
    input.MouseMove(14, 7, true);
    input.MouseMove(-6, 2, false);  // held: still a move
    input.ButtonUp(kButtonLeft, -6, 2);
    ASSERT_EQ(recorder.Types(), (std::vector<int>{3, 2, 4, 3, 3, 5}));
    EXPECT_EQ(recorder.events[1].x, 10);
    const InputEvent& drag = recorder.events[3];
    EXPECT_EQ(drag.dx, 4);
    EXPECT_EQ(drag.dy, -3);
    EXPECT_EQ(drag.pressX, 10);
    EXPECT_EQ(drag.dragX, 14);
    EXPECT_EQ(drag.dragY, 7);
    EXPECT_EQ(drag.dragging, 1);
    EXPECT_EQ(recorder.events[4].dx, -20);
    const InputEvent& up = recorder.events[5];
    EXPECT_EQ(up.dragging, 1);
    EXPECT_EQ(up.pressed, 0);
    EXPECT_EQ(up.buttons[kButtonLeft], 0);
    EXPECT_EQ(input.Event().dragging, 0);
    EXPECT_EQ(input.Event().dragX, 0);
}

TEST(Input, KeysKeepTheirTableAndRepeat) {
    Input input;
    Recorder recorder(input);
    input.KeyDown(kVkDelete, false);
    input.KeyDown(kVkDelete, true);
    input.KeyUp(kVkDelete);
    ASSERT_EQ(recorder.Types(), (std::vector<int>{0, 0, 1}));
    EXPECT_EQ(recorder.events[0].keys[kVkDelete], 1);
    EXPECT_EQ(recorder.events[0].keyIsDown, 1);
    EXPECT_EQ(recorder.events[0].repeat, 0);
    EXPECT_EQ(recorder.events[1].repeat, 1);
    EXPECT_EQ(recorder.events[2].keys[kVkDelete], 0);
    EXPECT_EQ(recorder.events[2].keyIsDown, 0);
}

TEST(VirtualKeys, TheTableGivesWindowsCodes) {
    const struct {
        int qtKey;
        bool keypad;
        int expected;
    } cases[] = {
        {Qt::Key_Control, false, 0x11}, {Qt::Key_Shift, false, 0x10},    {Qt::Key_Alt, false, 0x12},
        {Qt::Key_Delete, false, 0x2E},  {Qt::Key_Escape, false, 0x1B},   {Qt::Key_Return, false, 0x0D},
        {Qt::Key_Enter, true, 0x0D},    {Qt::Key_Tab, false, 0x09},      {Qt::Key_Space, false, 0x20},
        {Qt::Key_PageUp, false, 0x21},  {Qt::Key_PageDown, false, 0x22}, {Qt::Key_Left, false, 0x25},
        {Qt::Key_Down, false, 0x28},    {Qt::Key_A, false, 0x41},        {Qt::Key_Z, false, 0x5A},
        {Qt::Key_4, false, 0x34},       {Qt::Key_4, true, 0x64},         {Qt::Key_F1, false, 0x70},
        {Qt::Key_F7, false, 0x76},      {Qt::Key_Period, false, 0xBE},   {Qt::Key_Period, true, 0x6E},
        {Qt::Key_Plus, true, 0x6B},     {Qt::Key_Exclam, false, '1'},    {Qt::Key_BracketLeft, false, 0xDB},
        {Qt::Key_Home, true, 0x24},     {Qt::Key_unknown, false, 0},     {Qt::Key_VolumeUp, false, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(VirtualKeyFromQt(c.qtKey, c.keypad), c.expected) << std::hex << c.qtKey;
    }
}

// The platform side: synthetic Qt events through the translator.
class Translated : public testing::Test {
protected:
    void Send(QEvent&& event) { translator.Feed(event, 100, 80, 1.0); }
    void Mouse(QEvent::Type type, QPointF at, Qt::MouseButton button, quint64 time,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier, double ratio = 1.0) {
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
        QMouseEvent event(type, at, at, button, held, modifiers);
        event.setTimestamp(time);
        translator.Feed(event, 100, 80, ratio);
    }

    Input input;
    Recorder recorder{input};
    InputTranslator translator{input};
};

TEST_F(Translated, TheSecondClickOfADoubleClickIsType7WithNoPressBeforeIt) {
    Mouse(QEvent::MouseButtonPress, {20, 20}, Qt::LeftButton, 1000);
    Mouse(QEvent::MouseButtonRelease, {20, 20}, Qt::LeftButton, 1050);
    Mouse(QEvent::MouseButtonPress, {21, 20}, Qt::LeftButton, 1100);
    Mouse(QEvent::MouseButtonDblClick, {21, 20}, Qt::LeftButton, 1100);
    Mouse(QEvent::MouseButtonRelease, {21, 20}, Qt::LeftButton, 1150);
    // A third quick press starts over; so do a late press and a press of another button.
    Mouse(QEvent::MouseButtonPress, {21, 20}, Qt::LeftButton, 1200);
    Mouse(QEvent::MouseButtonRelease, {21, 20}, Qt::LeftButton, 1210);
    Mouse(QEvent::MouseButtonPress, {21, 20}, Qt::RightButton, 1250);
    Mouse(QEvent::MouseButtonRelease, {21, 20}, Qt::RightButton, 1260);
    Mouse(QEvent::MouseButtonPress, {21, 20}, Qt::RightButton, 9000);
    EXPECT_EQ(recorder.Types(), (std::vector<int>{4, 5, 7, 5, 4, 5, 4, 5, 4}));
}

TEST_F(Translated, TheWheelReportsAtTheLastMove) {
    Send(QMouseEvent(QEvent::MouseMove, QPointF(10, 20), QPointF(10, 20), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier));
    Send(QWheelEvent(QPointF(50, 60), QPointF(50, 60), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false));
    Send(QWheelEvent(QPointF(50, 60), QPointF(50, 60), QPoint(), QPoint(120, 0), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false));
    ASSERT_EQ(recorder.Types(), (std::vector<int>{3, 6, 6}));
    EXPECT_EQ(recorder.events[1].x, 10);
    EXPECT_EQ(recorder.events[1].y, 20);
    EXPECT_EQ(recorder.events[1].dy, -120);
    EXPECT_EQ(recorder.events[1].dx, 0);
    EXPECT_EQ(recorder.events[2].dx, -120);
    EXPECT_EQ(recorder.events[2].dy, 0);
}

TEST_F(Translated, KeysModifiersLeavingAndPixelRatio) {
    Send(QKeyEvent(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier));
    Send(QKeyEvent(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier, QString(), true));
    Send(QKeyEvent(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true));
    Send(QKeyEvent(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier));
    Mouse(QEvent::MouseButtonPress, {10.5, 4.25}, Qt::MiddleButton, 10, Qt::ControlModifier, 2.0);
    Mouse(QEvent::MouseButtonRelease, {10.5, 4.25}, Qt::MiddleButton, 20, Qt::NoModifier, 2.0);
    Send(QEvent(QEvent::Leave));
    ASSERT_EQ(recorder.Types(), (std::vector<int>{0, 0, 1, 0, 4, 5, 2}));
    EXPECT_EQ(recorder.events[1].repeat, 1);
    EXPECT_EQ(recorder.events[3].key, kVkControl);
    const InputEvent& press = recorder.events[4];
    EXPECT_EQ(press.button, kButtonMiddle);
    EXPECT_EQ(press.x, 21);
    EXPECT_EQ(press.y, 8);
    EXPECT_EQ(press.keys[kVkControl], 1);
}

TEST_F(Translated, FocusLossDuringADragDeliversTheReleases) {
    Send(QKeyEvent(QEvent::KeyPress, Qt::Key_Control, Qt::ControlModifier));
    Mouse(QEvent::MouseButtonPress, {5, 5}, Qt::LeftButton, 10, Qt::ControlModifier);
    Send(QMouseEvent(QEvent::MouseMove, QPointF(30, 5), QPointF(30, 5), Qt::NoButton, Qt::LeftButton,
                     Qt::ControlModifier));
    Send(QFocusEvent(QEvent::FocusOut, Qt::ActiveWindowFocusReason));
    ASSERT_EQ(recorder.Types(), (std::vector<int>{0, 4, 3, 1, 5}));
    EXPECT_EQ(recorder.events[4].x, 30);
    EXPECT_FALSE(input.Captured());
}

}  // namespace
