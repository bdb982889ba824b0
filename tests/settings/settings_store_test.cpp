#include "settings/settings_store.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using aurel::DualString;
using aurel::MemoryStream;
using aurel::SettingsStore;
using aurel::SettingsValue;

namespace {

MemoryStream StreamOf(const std::string& text) {
    return MemoryStream({text.begin(), text.end()});
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t pos = 0;
    std::string_view line;
    while (aurel::settings_text::NextLine(text, pos, line)) {
        lines.emplace_back(line);
    }
    return lines;
}

struct ValueCase {
    std::string line;
    SettingsValue::Kind kind;
    std::vector<std::int32_t> ints;
    std::vector<float> floats;
    std::vector<std::string> strings;
};

}  // namespace

TEST(SettingsLineReader, EveryLineEndEndsOneLine) {
    EXPECT_EQ(Lines("a\r\nb\n\rc\rd\ne"), (std::vector<std::string>{"a", "b", "c", "d", "e"}));
    // Two ends of the same kind are two lines, so the empty line between them survives.
    EXPECT_EQ(Lines("a\n\nb\r\rc"), (std::vector<std::string>{"a", "", "b", "", "c"}));
    EXPECT_EQ(Lines("a\r\n\r\nb"), (std::vector<std::string>{"a", "", "b"}));
    EXPECT_EQ(Lines("last\r"), (std::vector<std::string>{"last"}));
    EXPECT_TRUE(Lines("").empty());
}

TEST(SettingsLineReader, LinesLongerThanTheBufferStayWhole) {
    const std::string longValue(1000, 'x');
    const std::vector<std::string> lines = Lines("k = \"" + longValue + "\"\r\nnext = 1");
    ASSERT_EQ(lines.size(), 2u);
    SettingsStore store;
    aurel::settings_text::ParseLine(store, lines[0]);
    EXPECT_EQ(store.GetString("k", "").Utf8(), longValue);
}

TEST(SettingsParser, ValueKindsFollowTheCharactersOfTheValue) {
    const std::vector<ValueCase> cases = {
        {"x = 1, 2, 3", SettingsValue::Kind::Int, {1, 2, 3}, {}, {}},
        {"x = -4,+5", SettingsValue::Kind::Int, {-4, 5}, {}, {}},
        {"x = 1.5", SettingsValue::Kind::Float, {}, {1.5f}, {}},
        {"x=0.25, -2.", SettingsValue::Kind::Float, {}, {0.25f, -2.0f}, {}},
        {"x = abc", SettingsValue::Kind::String, {}, {}, {"abc"}},
        {"x = 1a", SettingsValue::Kind::String, {}, {}, {"1a"}},
        {"x = \"a, b\", \"c\"", SettingsValue::Kind::String, {}, {}, {"a, b", "c"}},
        {"x = a, b", SettingsValue::Kind::String, {}, {}, {"a", "b"}},
        {"x = \"\", \"d\"", SettingsValue::Kind::String, {}, {}, {"d"}},
        {"x: \"colon\"", SettingsValue::Kind::String, {}, {}, {"colon"}},
        {"  x = y = z  ", SettingsValue::Kind::String, {}, {}, {"y = z"}},
    };
    for (const ValueCase& c : cases) {
        SCOPED_TRACE(c.line);
        SettingsStore store;
        store.Select("S");
        aurel::settings_text::ParseLine(store, c.line);
        const SettingsValue& value = store.Sections().at("S").at("x");
        EXPECT_EQ(value.kind, c.kind);
        EXPECT_EQ(value.ints, c.ints);
        EXPECT_EQ(value.floats, c.floats);
        std::vector<std::string> strings;
        for (const DualString& s : value.strings) {
            strings.push_back(s.Utf8());
        }
        EXPECT_EQ(strings, c.strings);
    }
}

TEST(SettingsParser, SectionsCommentsAndDuplicates) {
    MemoryStream stream = StreamOf(
        "top = 1\r\n"
        "[ Name ]\r\n"
        "  # a = 1\r\n"
        "; b = 2\r\n"
        "no separator here\r\n"
        "c = 3\r\n"
        "c = 4\r\n"
        "[Other]]\r\n"
        "d = 5\r\n");
    SettingsStore store;
    store.Load(stream);
    EXPECT_EQ(store.Sections().at("").size(), 1u);
    store.Select("Name");
    EXPECT_FALSE(store.Exists("a"));
    EXPECT_FALSE(store.Exists("b"));
    std::int32_t c = 0;
    EXPECT_TRUE(store.GetInt("c", c));
    EXPECT_EQ(c, 4);  // the last duplicate wins
    EXPECT_EQ(store.Sections().at("Name").size(), 1u);
    store.Select("Other]");  // the name runs to the last bracket
    EXPECT_TRUE(store.Exists("d"));
}

TEST(SettingsStore, NumbersReadAcrossKindsAndIndexes) {
    SettingsStore store;
    store.Select("A");
    store.SetFloat("f", 2.75f);
    store.SetStrings("s", {"one"});
    aurel::settings_text::ParseLine(store, "list = 7, 8");
    std::int32_t i = 0;
    float f = 0;
    EXPECT_TRUE(store.GetInt("f", i));
    EXPECT_EQ(i, 2);
    EXPECT_TRUE(store.GetFloat("list", f, 1));
    EXPECT_EQ(f, 8.0f);
    EXPECT_FALSE(store.GetInt("list", i, 2));
    EXPECT_FALSE(store.GetInt("s", i));
    EXPECT_FALSE(store.GetInt("missing", i));
    EXPECT_EQ(store.GetString("f", "fallback").Utf8(), "fallback");
}

TEST(SettingsWriter, WritesTheExactTextAndReadsItBack) {
    SettingsStore store;
    store.Select("B");
    store.SetInt("Width", 800);
    store.SetFloat("Scale", 1.0f);
    store.SetFloat("Third", 1.0f / 3.0f);
    store.SetFloat("Tiny", 0.00001234f);
    store.Select("A");
    store.SetStrings("MRU", {"/a, b.ske", "/c.ske"});
    store.Select("B");
    aurel::settings_text::ParseLine(store, "Pair = -1, 2");

    MemoryStream out;
    ASSERT_TRUE(store.Save(out));
    const std::string text(out.Bytes().begin(), out.Bytes().end());
    EXPECT_EQ(text,
              "[A]\r\n"
              "MRU = \"/a, b.ske\", \"/c.ske\"\r\n"
              "\r\n"
              "[B]\r\n"
              "Pair = -1, 2\r\n"
              "Scale = 1\r\n"
              "Third = 0.333333\r\n"
              "Tiny = 1.234e-05\r\n"
              "Width = 800\r\n");

    // Read back, a float without a point is an integer and one with an exponent a string.
    MemoryStream in(out.Bytes());
    SettingsStore again;
    again.Load(in);
    EXPECT_EQ(again.Sections().size(), 2u);
    again.Select("B");
    float scale = 0;
    EXPECT_TRUE(again.GetFloat("Scale", scale));
    EXPECT_EQ(scale, 1.0f);
    EXPECT_FALSE(again.GetFloat("Tiny", scale));
    EXPECT_EQ(again.Sections().at("B").at("Third").floats, std::vector<float>{0.333333f});

    for (const auto& [value, text] : std::vector<std::pair<float, std::string>>{{2.0f, "2"},
                                                                                {1e-07f, "1e-07"},
                                                                                {-1234567.0f, "-1.23457e+06"},
                                                                                {0.5f, "0.5"},
                                                                                {100000.0f, "100000"}}) {
        EXPECT_EQ(aurel::settings_text::FormatFloat(value), text);
    }
}

TEST(SettingsStore, NumbersOutsideTheirRangeAreHeldOrRefused) {
    SettingsStore store;
    store.Select("A");
    aurel::settings_text::ParseLine(store, "big = 99999999999, -99999999999, 2147483647");
    EXPECT_EQ(store.GetInts("big"), (std::vector<std::int32_t>{2147483647, -2147483647 - 1, 2147483647}));
    aurel::settings_text::ParseLine(store, "far = 3000000000.0, -2147483648.0");
    std::int32_t i = 0;
    EXPECT_FALSE(store.GetInt("far", i));
    EXPECT_TRUE(store.GetInt("far", i, 1));
    EXPECT_EQ(i, -2147483647 - 1);
}

TEST(SettingsStore, LoadsFromWhereTheStreamStandsWithEveryKindOfLineEnd) {
    const std::string text = "skipped\n[A]\r\n\n\n\r\rx = 1\n\ry = \"two\"";
    MemoryStream stream = StreamOf(text);
    ASSERT_TRUE(stream.Seek(8, aurel::kSeekStart));
    SettingsStore store;
    store.Load(stream);
    EXPECT_EQ(store.Sections().size(), 1u);
    store.Select("A");
    EXPECT_EQ(store.GetInts("x"), std::vector<std::int32_t>{1});
    EXPECT_EQ(store.GetString("y", "").Utf8(), "two");
}
