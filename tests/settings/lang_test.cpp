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
