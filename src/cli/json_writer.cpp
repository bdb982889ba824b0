#include "cli/json_writer.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace kovra::cli {

namespace {

// Length of the well-formed UTF-8 character at `at`, 0 when the bytes there aren't one.
std::size_t Utf8Length(std::string_view text, std::size_t at) {
    const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at);
    std::size_t length = 0;
    unsigned char low = 0x80;  // the range of the second byte, narrowed against overlong forms and surrogates
    unsigned char high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        low = lead == 0xE0 ? 0xA0 : 0x80;
        high = lead == 0xED ? 0x9F : 0xBF;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        low = lead == 0xF0 ? 0x90 : 0x80;
        high = lead == 0xF4 ? 0x8F : 0xBF;
    }
    if (length == 0 || at + length > text.size() || byte(at + 1) < low || byte(at + 1) > high) {
        return 0;
    }
    for (std::size_t i = 2; i < length; ++i) {
        if (byte(at + i) < 0x80 || byte(at + i) > 0xBF) {
            return 0;
        }
    }
    return length;
}

void AppendEscaped(std::string& out, std::string_view text) {
    out += '"';
    for (std::size_t i = 0; i < text.size();) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        if (c >= 0x80) {
            const std::size_t length = Utf8Length(text, i);
            if (length == 0) {
                out += "\\ufffd";
                ++i;
            } else {
                out.append(text, i, length);
                i += length;
            }
            continue;
        }
        switch (c) {
            case '"':
                out += "\\\"";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            default:
                if (c < 0x20) {
                    char escaped[8];
                    std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
                    out += escaped;
                } else {
                    out += static_cast<char>(c);
                }
        }
        ++i;
    }
    out += '"';
}

}  // namespace

void JsonWriter::BeforeValue() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (!hasItems_.empty()) {
        if (hasItems_.back()) {
            text_ += ',';
        }
        hasItems_.back() = true;
    }
}

JsonWriter& JsonWriter::Open(char bracket) {
    BeforeValue();
    text_ += bracket;
    hasItems_.push_back(false);
    return *this;
}

JsonWriter& JsonWriter::Close(char bracket) {
    text_ += bracket;
    hasItems_.pop_back();
    return *this;
}

JsonWriter& JsonWriter::BeginObject() {
    return Open('{');
}
JsonWriter& JsonWriter::EndObject() {
    return Close('}');
}
JsonWriter& JsonWriter::BeginArray() {
    return Open('[');
}
JsonWriter& JsonWriter::EndArray() {
    return Close(']');
}

JsonWriter& JsonWriter::Key(std::string_view key) {
    BeforeValue();
    AppendEscaped(text_, key);
    text_ += ':';
    afterKey_ = true;
    return *this;
}

JsonWriter& JsonWriter::String(std::string_view text) {
    BeforeValue();
    AppendEscaped(text_, text);
    return *this;
}

JsonWriter& JsonWriter::Float(float value) {
    BeforeValue();
    if (!std::isfinite(value)) {
        text_ += "null";
        return *this;
    }
    char digits[32];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value);
    text_.append(digits, end.ptr);
    return *this;
}

JsonWriter& JsonWriter::Int(std::int64_t value) {
    BeforeValue();
    text_ += std::to_string(value);
    return *this;
}

JsonWriter& JsonWriter::Bool(bool value) {
    BeforeValue();
    text_ += value ? "true" : "false";
    return *this;
}

}  // namespace kovra::cli
