#include "cli/subcommand.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace kovra::cli {

namespace {

template <class T>
bool ParseWhole(const std::string& text, T& value) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end;
}

}  // namespace

bool ParseIndex(const std::string& text, int& value) {
    return ParseWhole(text, value) && value >= 0;
}

bool ParseCoordinate(const std::string& text, float& value) {
    return ParseWhole(text, value) && std::isfinite(value);
}

CLI::Validator IndexText() {
    return CLI::Validator(
        [](std::string& text) {
            int value = 0;
            return ParseIndex(text, value) ? std::string() : text + " is not an index";
        },
        "INDEX", "index");
}

CLI::Validator CoordinateText() {
    return CLI::Validator(
        [](std::string& text) {
            float value = 0.0f;
            return ParseCoordinate(text, value) ? std::string() : text + " is not a finite number";
        },
        "NUMBER", "coordinate");
}

int Fail(const std::string& message) {
    std::fprintf(stderr, "kovra-cli: %s\n", message.c_str());
    return 1;
}

}  // namespace kovra::cli
