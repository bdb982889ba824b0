#include "base/dual_string.h"

#include <gtest/gtest.h>

using aurel::DualString;

TEST(DualString, TwinsAgreeAcrossAllEncodingLengths) {
    // One, two, three and four byte sequences; the last needs a surrogate pair in UTF-16.
    const DualString s("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(s.Utf16(), (std::u16string{u'a', 0x00E9, 0x20AC, 0xD83D, 0xDE00}));
    EXPECT_EQ(DualString::FromUtf16(s.Utf16()).Utf8(), s.Utf8());
    EXPECT_EQ(s.size(), 10u);
}

TEST(DualString, MalformedInputBecomesReplacementCharacters) {
    EXPECT_EQ(DualString("\xC3").Utf16(), std::u16string(1, 0xFFFD));          // cut short
    EXPECT_EQ(DualString("\xC0\xAF").Utf16(), std::u16string(1, 0xFFFD));      // overlong
    EXPECT_EQ(DualString("\xED\xA0\x80").Utf16(), std::u16string(1, 0xFFFD));  // encoded surrogate
    EXPECT_EQ(aurel::Utf16ToUtf8(std::u16string(1, 0xD800)), "\xEF\xBF\xBD");   // lone surrogate
}

TEST(DualString, TwinFollowsAssignment) {
    DualString s("first");
    EXPECT_EQ(s.Utf16(), u"first");
    s = DualString("second");
    EXPECT_EQ(s.Utf16(), u"second");
}
