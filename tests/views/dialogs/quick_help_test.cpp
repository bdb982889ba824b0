#include "views/dialogs/quick_help.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "doc/editor_hub.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

TEST(QuickHelp, FindsThePageUnderItsKey) {
    QuickHelp help;
    help.SetText(
        "Intro\n[ModeSkin]\nDrop a texture.\nDrag grips.\n[ModeAnimate] trailing\nPose it.\r\n[Last]");
    struct Case {
        const char* key;
        std::optional<std::string> page;
    };
    const Case cases[] = {
        {"ModeSkin", "Drop a texture.\nDrag grips.\n"},
        {"ModeAnimate", "Pose it.\n"},
        {"Last", ""},
        {"ModeTextures", std::nullopt},
        {"Mode", std::nullopt},
        {"", std::nullopt},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(help.Page(c.key), c.page) << c.key;
    }
}

TEST(QuickHelp, ReadsTheWholeFileAndAMissingFileIsEmpty) {
    test::TempDir dir;
    std::ofstream(dir.File("QuickHelp.nfo"), std::ios::binary) << "[A]\nalpha\n[B]\nbeta";
    QuickHelp help;
    help.Load(dir.File("QuickHelp.nfo"));
    EXPECT_EQ(help.Page("B"), "beta");
    help.Load(dir.File("absent.nfo"));
    EXPECT_EQ(help.Page("A"), std::nullopt);
}

// Every key the editor hands the help has a page in the shipped file.
TEST(QuickHelp, TheShippedFileHasAPagePerMode) {
    QuickHelp help;
    help.Load(std::string(KOVRA_DATA) + "/QuickHelp.nfo");
    const std::pair<int, int> modes[] = {{kModeAnimate, kToolSkin},    {kModeBuild, kToolSkin},
                                         {kModeBuild, kToolRectangle}, {kModeBuild, kToolTile},
                                         {kModeTextures, kToolSkin},   {kModeBackground, kToolTile}};
    std::set<std::string> keys = {QuickHelpKey(kModeAnimate, kToolSkin, false)};
    for (const auto& [mode, tool] : modes) {
        keys.insert(QuickHelpKey(mode, tool, true));
    }
    EXPECT_EQ(keys.size(), 7u);
    for (const std::string& key : keys) {
        const std::optional<std::string> page = help.Page(key);
        ASSERT_TRUE(page.has_value()) << key;
        EXPECT_GT(page->size(), 40u) << key;
    }
}

}  // namespace
}  // namespace kovra
