// What the texts layer writes, and where: names, read-outs, the mouse position and events. The
// letters themselves depend on the machine's fonts, so the items are checked, not the pixels.

#include <gtest/gtest.h>

#include <cstring>

#include "views/workspace/rig.h"
#include "views/workspace/workspace_frame.h"
#include "views/workspace/workspace_layers.h"

namespace kovra {
namespace {

std::vector<TextItem> Texts(test::Rig& rig, float pixelRatio = 1.0f) {
    const WorkspaceTheme theme{.pixelRatio = pixelRatio};
    const WorkingColours colours = WorkingColours::FromTheme(theme);
    PoseStep(rig.doc, rig.state, theme.pinRadSm);
    return TextsOf(FrameInput{rig.doc, rig.state, theme, colours});
}

TEST(WorkspaceTexts, HotPinGetsItsNameAndReadOutInDegreesFromZeroTo360) {
    test::Rig rig;
    const int root = rig.Pin(-1, 1.0f, -1.0f);
    const int arm = rig.Pin(root, 1.0f, -2.0f);  // straight up: 270 degrees
    rig.Record(arm).angle = -1.5707964f;         // the same direction, stored negative
    rig.state.mouseX = 32;
    rig.state.mouseY = 24;
    rig.state.pinSelection.SetHot(arm, 0);
    const std::vector<TextItem> texts = Texts(rig);
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[0].text, "P1");
    EXPECT_EQ(texts[1].text, "Angle: 270\nLength: 1");
    EXPECT_EQ(texts[1].height, 40);
    EXPECT_EQ(texts[1].x, texts[0].x);
    EXPECT_EQ(texts[2].text, "0, 0");
    EXPECT_EQ(texts[2].y, 48 - 25);
    rig.state.pinSelection.SetHot(root, 0);
    EXPECT_EQ(Texts(rig)[1].text, "Pos: 1, -1");
    rig.state.editMode = kModeBuild;
    EXPECT_EQ(Texts(rig).size(), 2u);  // no read-outs outside Animate
}

TEST(WorkspaceTexts, BoxesGrowWithThePixelRatioAsTheFontsDo) {
    test::Rig rig;
    const int root = rig.Pin(-1, 1.0f, -1.0f);
    rig.state.pinSelection.SetHot(root, 0);
    const std::vector<TextItem> one = Texts(rig);
    const std::vector<TextItem> two = Texts(rig, 2.0f);
    ASSERT_EQ(one.size(), 3u);
    ASSERT_EQ(two.size(), 3u);
    for (std::size_t i = 0; i < one.size(); ++i) {
        EXPECT_EQ(two[i].width, 2 * one[i].width) << one[i].text;
        EXPECT_EQ(two[i].height, 2 * one[i].height) << one[i].text;
    }
    EXPECT_EQ(two[1].x + two[1].width / 2, one[1].x + one[1].width / 2) << "the read-out stays centred";
    EXPECT_EQ(two[2].y, 48 - 50);
}

TEST(WorkspaceTexts, EventsOfTheFrameWithTheirVariables) {
    test::Rig rig;
    Wirrel& w = rig.doc.Wirrel();
    w.eventNames.push_back(MakeName("Step"));
    WirrelEvent event{.name = static_cast<std::uint32_t>(w.eventNames.size() - 1), .types = 2 | 1 << 2};
    const float half = 0.5f;
    std::memcpy(&event.vars[0], &half, sizeof half);
    event.vars[1] = static_cast<std::uint32_t>(-3);
    w.events.push_back(event);
    rig.doc.CurrentKey().eventFirst = 0;
    rig.doc.CurrentKey().eventCount = 1;
    const std::vector<TextItem> texts = Texts(rig);
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[1].text, "Step   0.5   -3\n");
    EXPECT_EQ(texts[1].width, 64 - 32);
}

}  // namespace
}  // namespace kovra
