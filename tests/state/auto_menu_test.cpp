#include "state/auto_menu.h"

#include <gtest/gtest.h>

#include <fstream>

#include "settings/lang.h"
#include "support/english.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

using kestrel2::win::MenuNode;

constexpr int kLine = MenuNode::kSeparator;

std::vector<int> IdsOf(const std::vector<MenuNode>& nodes) {
    std::vector<int> ids;
    for (const MenuNode& node : nodes) {
        ids.push_back(node.id);
    }
    return ids;
}

TEST(AutoMenu, TheTableBuildsEveryMenuWithItsSubmenusLinesAndDisabledEntries) {
    const AutoMenu menu(MainMenuTable());
    const std::vector<MenuNode>& top = menu.Items();
    ASSERT_EQ(top.size(), 4u);
    const std::vector<std::pair<const char*, std::vector<int>>> expected{
        {"&File", {1868, 1869, 0, kLine, 1871, 1872, 0, kLine, 1875}},
        {"&Edit", {1876, 1877, kLine, 1878, 1879, 1880, 1881, kLine, 0, 0}},
        {"&Tools", {1889, 1890, 1891, kLine, 1887, 1888, kLine, 1897, kLine, 1895, 1896}},
        {"&Help", {1898, kLine, 1899, kLine, 1900, 1901}},
    };
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(top[i].text.Utf8(), expected[i].first);
        EXPECT_EQ(IdsOf(top[i].children), expected[i].second) << expected[i].first;
    }
    EXPECT_EQ(IdsOf(menu.FindSubmenu("FileExport")->children), std::vector<int>{1873});
    EXPECT_TRUE(menu.FindSubmenu("FileOpenEx")->children.empty());
    for (const int id : {1878, 1879, 1880, 1898}) {
        EXPECT_FALSE(menu.Find(id)->enabled) << id;
    }
    for (const char* key : {"FileOpenEx", "EditLang", "EditTheme"}) {
        EXPECT_FALSE(menu.FindSubmenu(key)->enabled) << key;
    }
    EXPECT_TRUE(menu.Find(1881)->enabled);
    EXPECT_EQ(menu.Find(1895)->text.Utf8(), "Auto-detect Textures\tF5");
}

TEST(AutoMenu, ALanguageRelabelsEntriesAndKeepsTheAcceleratorNames) {
    test::TempDir dir;
    std::ofstream(dir.File("Test.txt")) << "[MAINMENU]\nFile = \"&Datei\"\nFileNew = \"&Neu\"\n";
    ASSERT_TRUE(aurel::LoadLanguageFile(aurel::DualString(dir.File("Test.txt"))));
    AutoMenu menu(MainMenuTable());
    menu.ApplyLanguage();
    test::LoadEnglish();

    EXPECT_EQ(menu.Items()[0].text.Utf8(), "&Datei");
    EXPECT_EQ(menu.Find(1868)->text.Utf8(), "&Neu\tCtrl+N");
    EXPECT_EQ(menu.Find(1869)->text.Utf8(), "[MISSING STRING]\tCtrl+O");
    EXPECT_EQ(menu.Find(1873)->text.Utf8(), "[MISSING STRING]");
}

TEST(AutoMenu, RecentFilesStandInTheirSlotAtMostEightWithALineAfterThem) {
    AutoMenu menu(MainMenuTable());
    std::vector<aurel::DualString> paths;
    for (int i = 0; i < 10; ++i) {
        paths.push_back(aurel::DualString("/art/R&D " + std::to_string(i) + ".ske"));
    }
    const std::vector<int> before{1868, 1869, 0, kLine, 1871, 1872, 0, kLine};
    const std::vector<std::pair<std::size_t, std::vector<int>>> cases{
        {10, {260, 261, 262, 263, 264, 265, 266, 267, kLine}},
        {2, {260, 261, kLine}},
        {0, {}},
    };
    for (const auto& [count, listed] : cases) {
        menu.SetRecentFiles({paths.begin(), paths.begin() + static_cast<std::ptrdiff_t>(count)});
        std::vector<int> ids = before;
        ids.insert(ids.end(), listed.begin(), listed.end());
        ids.push_back(1875);
        EXPECT_EQ(IdsOf(menu.Items()[0].children), ids) << count;
    }
    menu.SetRecentFiles({paths[3]});
    EXPECT_EQ(menu.Find(260)->text.Utf8(), "&1 /art/R&&D 3.ske");
}

TEST(AutoMenu, FileSubmenusAreEnabledExactlyWhenTheyHoldEntries) {
    AutoMenu menu(MainMenuTable());
    menu.SetSubmenuFiles("EditTheme", 868, {"Duskform", "Paleform"});
    EXPECT_TRUE(menu.FindSubmenu("EditTheme")->enabled);
    EXPECT_EQ(IdsOf(menu.FindSubmenu("EditTheme")->children), (std::vector<int>{868, 869}));
    EXPECT_EQ(menu.Find(869)->text.Utf8(), "Paleform");

    menu.SetSubmenuFiles("EditTheme", 868, {});
    EXPECT_FALSE(menu.FindSubmenu("EditTheme")->enabled);
    EXPECT_EQ(menu.Find(868), nullptr);
}

TEST(AutoMenu, RefreshAppliesTheEnablingAndCheckRules) {
    AutoMenu menu(MainMenuTable());
    menu.SetSubmenuFiles("EditLang", 368, {"English", "Deutsch", "Suomi"});
    bool canUndo = false;
    int loaded = 1;
    menu.EnableWhen(1876, [&] { return canUndo; });
    menu.CheckWhen(368, 500, [&](int i) { return i == loaded; });
    for (const bool undo : {true, false}) {
        for (const int language : {0, 2}) {
            canUndo = undo;
            loaded = language;
            menu.Refresh();
            EXPECT_EQ(menu.Find(1876)->enabled, undo);
            for (int i = 0; i < 3; ++i) {
                EXPECT_EQ(menu.Find(368 + i)->checked, i == language);
            }
        }
    }
}

}  // namespace
}  // namespace kovra
