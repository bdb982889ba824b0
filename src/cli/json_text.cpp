#include "cli/json_text.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace kovra::cli {

namespace {

void AppendFloat(std::string& out, double value) {
    if (!std::isfinite(value)) {
        out += "null";
        return;
    }
    char digits[32];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, static_cast<float>(value));
    out.append(digits, end.ptr);
}

void Append(std::string& out, const Json& value) {
    switch (value.type()) {
        case Json::value_t::object: {
            out += '{';
            const char* comma = "";
            for (const auto& [key, item] : value.items()) {
                out += comma;
                Append(out, Json(key));
                out += ':';
                Append(out, item);
                comma = ",";
            }
            out += '}';
            break;
        }
        case Json::value_t::array: {
            out += '[';
            const char* comma = "";
            for (const Json& item : value) {
                out += comma;
                Append(out, item);
                comma = ",";
            }
            out += ']';
            break;
        }
        case Json::value_t::number_float:
            AppendFloat(out, value.get<double>());
            break;
        default:
            out += value.dump(-1, ' ', false, Json::error_handler_t::replace);
    }
}

}  // namespace

std::string JsonText(const Json& value) {
    std::string out;
    Append(out, value);
    return out;
}

void PrintJson(const Json& value) {
    const std::string text = JsonText(value) + "\n";
    std::fwrite(text.data(), 1, text.size(), stdout);
}

}  // namespace kovra::cli
