#include "settings/theme.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/temp_dir.h"

using aurel::Color32;
using aurel::CurrentTheme;
using aurel::FontInfo;
using aurel::SettingsStore;
using aurel::Theme;

namespace {

SettingsStore StoreOf(const std::string& text) {
    aurel::MemoryStream stream({text.begin(), text.end()});
    SettingsStore store;
    store.Load(stream);
    return store;
}

void Write(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

struct Counter {
    int calls = 0;
    void Count() { ++calls; }
};

}  // namespace

TEST(ThemeColor, ListsOfThreeOrFourBytesElseTheFallback) {
    SettingsStore store = StoreOf(
        "[S]\nRgb = 10, 20, 30\nRgba = 10, 20, 30, 40\nClamped = -5, 300, 0, 999\n"
        "Two = 1, 2\nFive = 1, 2, 3, 4, 5\nFloats = 1.0, 2.0, 3.0\nText = \"red\"\n");
    const Color32 fallback(0x12345678);
    const std::vector<std::pair<std::string, Color32>> cases = {
        {"Rgb", Color32(10, 20, 30)},
        {"Rgba", Color32(10, 20, 30, 40)},
        {"Clamped", Color32(0, 255, 0, 255)},
        {"Two", fallback},
        {"Five", fallback},
        {"Floats", fallback},
        {"Text", fallback},
        {"Absent", fallback},
    };
    for (const auto& [key, expected] : cases) {
        EXPECT_EQ(aurel::ThemeColor(store, "S", key, fallback).argb, expected.argb) << key;
    }
}

TEST(ThemeFont, FaceHeightAndStylesInAnyOrder) {
    SettingsStore store = StoreOf(
        "[S]\nPlain = \"Arial\", \"14\"\nStyled = \"Arial\", \"9\", \"UNDERLINE=TRUE\", \"BOLD=TRUE\", "
        "\"ITALIC=TRUE\", \"BOLD=FALSE\"\nFaceOnly = \"Mono\"\nBadHeight = \"Mono\", \"big\", "
        "\"ITALIC=TRUE\"\n"
        "Number = 12\n");
    const FontInfo fallback{"Segoe UI", 20, true, true, true};
    const std::vector<std::pair<std::string, FontInfo>> cases = {
        {"Plain", {"Arial", 14, false, false, false}},
        {"Styled", {"Arial", 9, false, true, true}},
        {"FaceOnly", {"Mono", 20, false, false, false}},
        {"BadHeight", {"Mono", 20, false, true, false}},
        {"Number", fallback},
        {"Absent", fallback},
    };
    for (const auto& [key, expected] : cases) {
        EXPECT_EQ(aurel::ThemeFont(store, "S", key, fallback), expected) << key;
    }
}

TEST(ReadTheme, EachKeyFallsBackToTheValueBefore) {
    SettingsStore first = StoreOf(
        "[WORKSPACE]\nBoneColor = 1, 2, 3\nBoneWidth = 3\nPinRadSm = 6.5\n[PANELS]\nPadding = 9.75\n"
        "EditModeAnimIco = \"Mine/Anim.png\"\n[UI]\nPanelBarFont = \"Arial\", \"10\"\n");
    Theme theme;
    aurel::ReadTheme(first, theme);
    Theme expected;
    expected.workspace.boneColor = Color32(1, 2, 3);
    expected.workspace.boneWidth = 3.0f;
    expected.workspace.pinRadSm = 6.5f;
    expected.panels.padding = 9;
    expected.icons.editModeAnimIco = "Mine/Anim.png";
    expected.ui.panelBarFont = FontInfo{"Arial", 10};
    EXPECT_EQ(theme, expected);

    // Keys left out, or of a kind that doesn't fit, keep what the first store gave.
    SettingsStore second = StoreOf(
        "[WORKSPACE]\nBoneColorHot = 4, 5, 6\nBoneWidth = \"wide\"\nPinRadSm = 1, 2\n[PANELS]\nPadding = "
        "\"x\"\n");
    aurel::ReadTheme(second, theme);
    expected.workspace.boneColorHot = Color32(4, 5, 6);
    expected.workspace.pinRadSm = 1.0f;
    EXPECT_EQ(theme, expected);
}

TEST(LoadTheme, AFileWithOnlyBoneColorChangesOnlyThat) {
    kovra::test::TempDir dir;
    const std::string path = dir.File("Bones.txt");
    Write(path, "[WORKSPACE]\r\nBoneColor = 200, 100, 50, 128\r\n");
    Counter counter;
    aurel::ThemeListeners().Add(&counter, &Counter::Count);
    SettingsStore settings;

    Theme expected = CurrentTheme();
    ASSERT_TRUE(aurel::LoadTheme(path, "Bones", settings));
    expected.workspace.boneColor = Color32(200, 100, 50, 128);
    EXPECT_EQ(CurrentTheme(), expected);
    EXPECT_EQ(counter.calls, 1);
    EXPECT_EQ(aurel::LoadedThemePath().Utf8(), path);
    settings.Select("App");
    EXPECT_EQ(settings.GetString("Theme", "").Utf8(), "Bones");

    // A file that can't be opened changes nothing at all.
    EXPECT_FALSE(aurel::LoadTheme(dir.File("Missing.txt"), "Missing", settings));
    EXPECT_EQ(CurrentTheme(), expected);
    EXPECT_EQ(counter.calls, 1);
    EXPECT_EQ(aurel::LoadedThemePath().Utf8(), path);
    EXPECT_EQ(settings.GetString("Theme", "").Utf8(), "Bones");
    aurel::ThemeListeners().Remove(&counter, &Counter::Count);
}

TEST(RefreshTheme, PicksUpAFileRewrittenOnDisk) {
    kovra::test::TempDir dir;
    const std::string path = dir.File("Live.txt");
    Write(path, "[WORKSPACE]\nBoneColor = 1, 1, 1\n");
    SettingsStore settings;
    ASSERT_TRUE(aurel::LoadTheme(path, "Live", settings));
    EXPECT_FALSE(aurel::RefreshTheme(settings));

    // A longer file.
    Write(path, "[WORKSPACE]\nBoneColor = 20, 20, 20\n");
    EXPECT_TRUE(aurel::RefreshTheme(settings));
    EXPECT_EQ(CurrentTheme().workspace.boneColor, Color32(20, 20, 20));
    EXPECT_FALSE(aurel::RefreshTheme(settings));

    // The same size, told apart by its modification time alone.
    const auto time = std::filesystem::last_write_time(path);
    Write(path, "[WORKSPACE]\nBoneColor = 30, 30, 30\n");
    std::filesystem::last_write_time(path, time + std::chrono::seconds(1));
    EXPECT_TRUE(aurel::RefreshTheme(settings));
    EXPECT_EQ(CurrentTheme().workspace.boneColor, Color32(30, 30, 30));
    EXPECT_EQ(aurel::LoadedThemePath().Utf8(), path);

    // A file that went away is not loaded, and the values stay.
    std::filesystem::remove(path);
    EXPECT_FALSE(aurel::RefreshTheme(settings));
    EXPECT_EQ(CurrentTheme().workspace.boneColor, Color32(30, 30, 30));
}

TEST(ThemeIconPath, TheThemeFolderAndTheLargePictureAboveRatioOne) {
    kovra::test::TempDir dir;
    const std::string path = dir.File("Icons.txt");
    Write(path, "[PANELS]\n");
    SettingsStore settings;
    ASSERT_TRUE(aurel::LoadTheme(path, "Icons", settings));
    const std::string folder = dir.Path().string() + "/";
    EXPECT_EQ(aurel::ThemeIconPath("Set/Play.png", 1.0).Utf8(), folder + "Set/Play.png");
    EXPECT_EQ(aurel::ThemeIconPath("Set/Play.png", 2.0).Utf8(), folder + "Set/Play@2x.png");
    EXPECT_EQ(aurel::ThemeIconPath("my.set/Play", 1.5).Utf8(), folder + "my.set/Play@2x");
}

// The shipped themes name every key, and the default theme's file holds exactly the program's defaults.
TEST(ShippedThemes, NameEveryKeyAndPaleformIsTheDefault) {
    for (const std::string name : {"Paleform", "Duskform"}) {
        SettingsStore settings;
        ASSERT_TRUE(aurel::LoadTheme(KOVRA_DATA "/Themes/" + name + ".txt", name, settings)) << name;
        for (const auto& [section, key] : aurel::ThemeKeys()) {
            aurel::ThemeStore().Select(section);
            EXPECT_TRUE(aurel::ThemeStore().Exists(key)) << name << ": " << section << " " << key;
        }
    }
    // The Duskform values are current now; Paleform read over them gives the defaults back.
    SettingsStore settings;
    ASSERT_NE(CurrentTheme(), Theme{});
    ASSERT_TRUE(aurel::LoadTheme(KOVRA_DATA "/Themes/Paleform.txt", "Paleform", settings));
    EXPECT_EQ(CurrentTheme(), Theme{});
}
