#pragma once
// A small JSON writer for the tool's output: compact text built value by value, with commas placed by
// the writer. Floats print in the shortest form that reads back as the same 32-bit float; strings are
// escaped, and bytes that aren't UTF-8 become U+FFFD, so the output is always valid JSON.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kovra::cli {

class JsonWriter {
public:
    JsonWriter& BeginObject();
    JsonWriter& EndObject();
    JsonWriter& BeginArray();
    JsonWriter& EndArray();
    // The key of the next value in an object.
    JsonWriter& Key(std::string_view key);

    JsonWriter& String(std::string_view text);
    // Infinities and NaN, which JSON can't hold, print as null.
    JsonWriter& Float(float value);
    JsonWriter& Int(std::int64_t value);
    JsonWriter& Bool(bool value);

    const std::string& Text() const { return text_; }

private:
    void BeforeValue();
    JsonWriter& Open(char bracket);
    JsonWriter& Close(char bracket);

    std::string text_;
    std::vector<bool> hasItems_;  // one entry for each open object or array
    bool afterKey_ = false;
};

}  // namespace kovra::cli
