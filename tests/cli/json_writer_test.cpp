#include "cli/json_writer.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <random>

namespace kovra::cli {
namespace {

TEST(JsonWriter, FloatsReadBackToTheSameBits) {
    for (const auto& [value, text] :
         std::vector<std::pair<float, const char*>>{{1.0f, "1"},
                                                    {0.1f, "0.1"},
                                                    {-0.0f, "-0"},
                                                    {1e-45f, "1e-45"},
                                                    {3.4028235e38f, "3.4028235e+38"},
                                                    {NAN, "null"},
                                                    {-INFINITY, "null"}}) {
        EXPECT_EQ(JsonWriter().Float(value).Text(), text);
    }
    std::mt19937 random(7);
    for (int i = 0; i < 10000; ++i) {
        const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (std::isfinite(value)) {
            const std::string text = JsonWriter().Float(value).Text();
            ASSERT_EQ(std::bit_cast<std::uint32_t>(std::strtof(text.c_str(), nullptr)),
                      std::bit_cast<std::uint32_t>(value))
                << text;
        }
    }
}

TEST(JsonWriter, StringsAreEscapedAndAlwaysUtf8) {
    for (const auto& [text, json] : std::vector<std::pair<std::string, const char*>>{
             {"plain", R"("plain")"},
             {"q\"b\\s\n\r\t\x01", R"("q\"b\\s\n\r\t\u0001")"},
             {"caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", "\"caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80\""},
             {"\xFF", R"("\ufffd")"},
             {"a\xC3", R"("a\ufffd")"},
             {"\xC0\xAF", R"("\ufffd\ufffd")"},
             {"\xED\xA0\x80", R"("\ufffd\ufffd\ufffd")"},
             {std::string("nul\0", 4), R"("nul\u0000")"}}) {
        EXPECT_EQ(JsonWriter().String(text).Text(), json);
    }
    EXPECT_EQ(JsonWriter().BeginObject().Key("k\"").Int(1).EndObject().Text(), R"({"k\"":1})");
}

}  // namespace
}  // namespace kovra::cli
