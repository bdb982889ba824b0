#include "gui/i_gui_custom_control.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QWidget>

#include "gui/gui.h"
#include "settings/lang.h"
#include "support/control_harness.h"

namespace {

using namespace kestrel2::win;

constexpr aurel::Color32 kBack = 0xFF204060;
constexpr aurel::Color32 kMark = 0xFFFFCC00;

// Paints its background and a 2 x 2 mark (4 x 4 at ratio 2) where the last press was.
class Swatch : public IGuiCustomControl {
public:
    void OnPaint(aurel::ImageSurface& target) override {
        target.Clear(kBack);
        if (pressed) {
            target.FillRect(pressX, pressY, pressX + Scaled(2) - 1, pressY + Scaled(2) - 1, kMark);
        }
    }
    void OnInput(InputEvent& event) override {
        if (event.type == kInputButtonDown) {
            pressed = true;
            pressX = event.x;
            pressY = event.y;
            Redraw();
        }
        lastType = event.type;
    }
    Cursor OnCursor() override { return input.Event().x < Scaled(10) ? Cursor::Hand : Cursor::Arrow; }
    void OnTimer(int id) override { timersSeen += id; }
    void OnShow(bool shown) override { shows.push_back(shown); }
    void Count(int id) { timerCalls += id; }

    bool pressed = false;
    int pressX = 0, pressY = 0;
    int lastType = -1;
    int timersSeen = 0;
    int timerCalls = 0;
    std::vector<bool> shows;
};

TEST(CustomControl, PaintsAndTakesInputWithoutAWindow) {
    Swatch swatch;
    kovra::test::ControlHarness harness(swatch, 8, 6);
    harness.Move(2, 3).Press(kButtonLeft, 2, 3).Release(kButtonLeft, 2, 3);
    EXPECT_EQ(harness.events.size(), 3u);
    EXPECT_TRUE(harness.Matches("gui/swatch_press"));
}

TEST(CustomControl, TheBufferHasDevicePixels) {
    Swatch swatch;
    kovra::test::ControlHarness harness(swatch, 8, 6, 2.0);
    EXPECT_EQ(swatch.width, 8);
    EXPECT_EQ(swatch.ClientWidth(), 16);
    EXPECT_EQ(swatch.ClientHeight(), 12);
    EXPECT_EQ(swatch.Scaled(3), 6);
    EXPECT_EQ(swatch.Scaled(1.5f), 3.0f);
    harness.Press(kButtonLeft, 4, 6);
    EXPECT_TRUE(harness.Matches("gui/swatch_press_ratio2"));
    swatch.SetPos(0, 0, 0, 6);
    EXPECT_TRUE(swatch.surface.IsEmpty());
}

class HostedControl : public testing::Test {
protected:
    void SetUp() override {
        host.resize(200, 100);
        gui.SetWindow(Window(&host, false));
        swatch = MakeChild<Swatch>(gui, 7, 10, 10, 50, 40);
        host.show();
    }

    QWidget host;
    Gui gui;
    std::shared_ptr<Swatch> swatch;
};

TEST_F(HostedControl, TheWidgetShowsTheBufferAndFeedsTheInput) {
    QWidget* widget = swatch->window.handle();
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(gui.GetDlgControl(7), swatch.get());
    EXPECT_EQ(widget->geometry(), QRect(10, 10, 50, 40));

    QMouseEvent move(QEvent::MouseMove, QPointF(5, 6), QPointF(5, 6), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
    EXPECT_EQ(widget->cursor().shape(), Qt::PointingHandCursor);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(20, 30), QPointF(20, 30), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &press);
    EXPECT_EQ(swatch->lastType, kInputButtonDown);
    EXPECT_EQ(swatch->pressX, 20);

    const QImage shot = widget->grab().toImage();
    EXPECT_EQ(shot.pixel(0, 0), kBack.argb);
    EXPECT_EQ(shot.pixel(21, 31), kMark.argb);
    EXPECT_EQ(shot.pixel(22, 32), kBack.argb);
}

TEST_F(HostedControl, AnchoredChildrenFollowTheNativeWindow) {
    swatch->SetAnchors(true, true, true, true);
    host.resize(300, 80);
    EXPECT_EQ(swatch->width, 150);
    EXPECT_EQ(swatch->height, 20);
    EXPECT_EQ(swatch->window.handle()->size(), QSize(150, 20));
    host.resize(20, 20);
    EXPECT_EQ(swatch->width, -130);
    EXPECT_EQ(swatch->window.handle()->size(), QSize(0, 0));
    host.resize(200, 100);
    EXPECT_EQ(swatch->width, 50);
    EXPECT_EQ(swatch->height, 40);
}

TEST_F(HostedControl, ApplyLanguageRelabelsTooltipsDownTheTree) {
    aurel::SettingsStore& language = aurel::LanguageStore();
    language.Select("GUITEST");
    language.SetString("Tip", "First words");
    swatch->SetLang("GUITEST", "", "Tip");
    gui.ApplyLanguage();
    EXPECT_EQ(swatch->window.handle()->toolTip().toStdString(), "First words");

    language.Select("GUITEST");
    language.SetString("Tip", "Second words");
    gui.ApplyLanguage();
    EXPECT_EQ(swatch->window.handle()->toolTip().toStdString(), "Second words");

    swatch->SetLang("GUITEST", "", "Absent");
    gui.ApplyLanguage();
    EXPECT_EQ(swatch->window.handle()->toolTip().toStdString(), "[MISSING STRING]");

    swatch->SetLang("GUITEST", "Tip");
    EXPECT_TRUE(swatch->tooltipKey.empty());
}

TEST_F(HostedControl, TimersAndShowReachTheControl) {
    swatch->timerListeners.Add(swatch.get(), &Swatch::Count);
    swatch->SetTimer(3, 1);
    QElapsedTimer clock;
    clock.start();
    while (swatch->timersSeen == 0 && clock.elapsed() < 2000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    swatch->KillTimer(3);
    EXPECT_GE(swatch->timersSeen, 3);
    EXPECT_EQ(swatch->timerCalls, swatch->timersSeen);

    swatch->Show(false);
    swatch->Show(false);
    swatch->Show(true);
    EXPECT_EQ(swatch->shows, (std::vector<bool>{false, true}));
    EXPECT_TRUE(swatch->window.handle()->isVisible());
}

}  // namespace
