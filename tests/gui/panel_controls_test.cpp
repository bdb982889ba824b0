#include <gtest/gtest.h>
#include <QWidget>

#include "gui/gui.h"
#include "gui/gui_button.h"
#include "gui/gui_label.h"
#include "gui/gui_preview.h"
#include "gui/gui_sub_panel.h"
#include "support/control_harness.h"
#include "support/english.h"

namespace {

using namespace kestrel2::win;

TEST(SubPanel, ABarClickFoldsTheBodyAndTellsTheOwner) {
    QWidget host;
    host.resize(200, 300);
    Gui gui;
    gui.SetWindow(Window(&host, false));
    auto panel = MakeChild<GuiSubPanel>(gui, 5002, 6, 10, 160, 90);
    panel->SetFullHeight(90);
    auto button = MakeChild<GuiButton>(*panel, 5010, 10, 30, 60, 22);
    std::vector<int> commands;
    struct Owner {
        std::vector<int>& seen;
        void Command(int id) { seen.push_back(id); }
    } owner{commands};
    gui.commandListeners.Add(&owner, &Owner::Command);
    host.show();

    kovra::test::ControlHarness harness(*panel, 160, 90);
    harness.Press(kButtonLeft, 50, 40);  // the body: nothing
    EXPECT_FALSE(panel->IsCollapsed());
    harness.Press(kButtonLeft, 50, 5);
    EXPECT_TRUE(panel->IsCollapsed());
    EXPECT_EQ(panel->height, GuiSubPanel::BarHeight());
    EXPECT_FALSE(button->IsVisible());
    harness.Press(kButtonLeft, 50, 5);
    EXPECT_EQ(panel->height, 90);
    EXPECT_TRUE(button->IsVisible());
    EXPECT_EQ(commands, (std::vector<int>{5002, 5002}));
}

TEST(SubPanel, PaintsBarAndBodyAtBothRatios) {
    kovra::test::LoadEnglish();
    for (const double ratio : {1.0, 2.0}) {
        GuiSubPanel panel;
        panel.SetLang("NAV", "AnimPanel");
        kovra::test::ControlHarness harness(panel, 120, 50, ratio);
        panel.SetFullHeight(50);
        harness.Move(10, 5);
        EXPECT_TRUE(harness.Matches(ratio == 1.0 ? "gui/sub_panel_hot" : "gui/sub_panel_hot_ratio2"));
    }
}

TEST(Label, ShowsThroughToItsDrawnParent) {
    GuiSubPanel panel;
    kovra::test::ControlHarness panelHarness(panel, 100, 60);
    panel.SetFullHeight(60);
    panel.Paint();
    auto label = std::make_shared<GuiLabel>();
    label->SetLabel("Z: 3");
    label->horizontal = aurel::TextAlign::Centre;
    panel.AddChild(label);
    kovra::test::ControlHarness harness(*label, 60, 20);
    label->SetPos(10, 30, 60, 20);
    EXPECT_TRUE(harness.Matches("gui/label_on_panel"));
    EXPECT_EQ(label->Label().Utf8(), "Z: 3");
}

TEST(Preview, PicturesAreCentredAndFitted) {
    struct Case {
        int iw, ih, fw, fh;
        PreviewScale mode;
        PreviewPlace expected;
    };
    const Case cases[] = {
        {100, 50, 50, 50, PreviewScale::Fit, {0, 12, 50, 25}},
        {10, 20, 40, 40, PreviewScale::Fit, {10, 0, 20, 40}},
        {10, 20, 40, 40, PreviewScale::Shrink, {15, 10, 10, 20}},
        {400, 400, 40, 30, PreviewScale::Shrink, {5, 0, 30, 30}},
        {0, 20, 40, 40, PreviewScale::Fit, {0, 0, 0, 0}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(PlacePreview(c.iw, c.ih, c.fw, c.fh, c.mode), c.expected) << c.iw << "x" << c.ih;
    }

    auto picture = std::make_shared<aurel::ImageSurface>();
    picture->Resize(4, 2);
    picture->Clear(aurel::Color32(200, 30, 30));
    picture->FillRect(2, 0, 3, 1, aurel::Color32(30, 30, 200));
    GuiPreview preview;
    kovra::test::ControlHarness harness(preview, 24, 20);
    preview.SetImage(picture);
    EXPECT_TRUE(harness.Matches("gui/preview_fit"));
}

}  // namespace
