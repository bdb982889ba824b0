#include "settings/lang.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/temp_dir.h"

TEST(Lang, LooksUpWordsAndShowsMissingOnes) {
    kovra::test::TempDir dir;
    const std::string path = dir.File("English.txt");
    std::ofstream(path) << "[COMMON]\r\nDefault = \"Default\"\r\n[MESSAGES]\r\nTwo = \"one\\ntwo\\n\"\r\n";

    ASSERT_TRUE(aurel::LoadLanguageFile(path));
    EXPECT_EQ(aurel::Lang("COMMON", "Default").Utf8(), "Default");
    EXPECT_EQ(aurel::Lang("MESSAGES", "Two").Utf8(), "one\ntwo\n");
    EXPECT_EQ(aurel::Lang("MESSAGES", "Absent").Utf8(), "[MISSING STRING]");
    EXPECT_EQ(aurel::Lang("NOSECTION", "Default").Utf8(), "[MISSING STRING]");

    EXPECT_FALSE(aurel::LoadLanguageFile(dir.File("missing.txt")));
    EXPECT_EQ(aurel::Lang("COMMON", "Default").Utf8(), "Default");  // unchanged

    // The shipped English file parses and names the words the document needs.
    ASSERT_TRUE(aurel::LoadLanguageFile(KOVRA_DATA "/Lang/English.txt"));
    EXPECT_EQ(aurel::Lang("COMMON", "PlaySound").Utf8(), "PlaySound");
}

TEST(Lang, LoadLanguageRelabelsAndRemembersTheChoice) {
    struct Counter {
        int calls = 0;
        void Count() { ++calls; }
    } counter;
    aurel::LanguageListeners().Add(&counter, &Counter::Count);
    kovra::test::TempDir dir;
    std::ofstream(dir.File("English.txt")) << "[MAINMENU]\nFile = \"&File\"\n";
    std::ofstream(dir.File("Deutsch.txt")) << "[MAINMENU]\nFile = \"&Datei\"\n";
    aurel::SettingsStore settings;

    ASSERT_TRUE(aurel::LoadLanguage(dir.File("English.txt"), "English", settings));
    EXPECT_EQ(aurel::Lang("MAINMENU", "File").Utf8(), "&File");
    ASSERT_TRUE(aurel::LoadLanguage(dir.File("Deutsch.txt"), "Deutsch", settings));
    EXPECT_EQ(aurel::Lang("MAINMENU", "File").Utf8(), "&Datei");
    EXPECT_EQ(counter.calls, 2);
    EXPECT_EQ(aurel::LoadedLanguagePath().Utf8(), dir.File("Deutsch.txt"));
    settings.Select("App");
    EXPECT_EQ(settings.GetString("Language", "").Utf8(), "Deutsch");

    EXPECT_FALSE(aurel::LoadLanguage(dir.File("Missing.txt"), "Missing", settings));
    EXPECT_EQ(aurel::Lang("MAINMENU", "File").Utf8(), "&Datei");
    EXPECT_EQ(counter.calls, 2);
    EXPECT_EQ(aurel::LoadedLanguagePath().Utf8(), dir.File("Deutsch.txt"));
    EXPECT_EQ(settings.GetString("Language", "").Utf8(), "Deutsch");
    aurel::LanguageListeners().Remove(&counter, &Counter::Count);
}
