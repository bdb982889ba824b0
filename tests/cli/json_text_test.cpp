#include "cli/json_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <random>

namespace kovra::cli {
namespace {

TEST(JsonText, FloatsReadBackToTheSameBits) {
    for (const auto& [value, text] :
         std::vector<std::pair<float, const char*>>{{1.0f, "1"},
                                                    {0.1f, "0.1"},
                                                    {-0.0f, "-0"},
                                                    {1e-45f, "1e-45"},
                                                    {1e10f, "1e+10"},
                                                    {3.4028235e38f, "3.4028235e+38"},
                                                    {NAN, "null"},
                                                    {-INFINITY, "null"}}) {
        EXPECT_EQ(JsonText(value), text);
    }
    std::mt19937 random(7);
    for (int i = 0; i < 10000; ++i) {
        const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (std::isfinite(value)) {
            const std::string text = JsonText(value);
            ASSERT_EQ(std::bit_cast<std::uint32_t>(std::strtof(text.c_str(), nullptr)),
                      std::bit_cast<std::uint32_t>(value))
                << text;
        }
    }
}

TEST(JsonText, ValuesKeepTheirOrderAndStringsStayUtf8) {
    const Json value = {{"z", {1, -2, 0.25f, true, nullptr}}, {"a\"", Json::object()}, {"e", Json::array()}};
    EXPECT_EQ(JsonText(value), R"({"z":[1,-2,0.25,true,null],"a\"":{},"e":[]})");
    for (const auto& [text, json] :
         std::vector<std::pair<std::string, const char*>>{{"q\"b\\s\n\r\t\x01", R"("q\"b\\s\n\r\t\u0001")"},
                                                          {"caf\xC3\xA9", "\"caf\xC3\xA9\""},
                                                          {"a\xFF", "\"a\xEF\xBF\xBD\""},
                                                          {"\xC0\xAF", "\"\xEF\xBF\xBD\xEF\xBF\xBD\""},
                                                          {std::string("nul\0", 4), R"("nul\u0000")"}}) {
        EXPECT_EQ(JsonText(text), json);
    }
}

}  // namespace
}  // namespace kovra::cli
