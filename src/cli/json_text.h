#pragma once
// The tool's JSON output: documents are built as nlohmann values (keys in the order they were added) and
// printed compactly. Floats print in the shortest form that reads back as the same 32-bit float (1, not
// 1.0), and infinities and NaN, which JSON can't hold, as null. Bytes of a string that aren't UTF-8 become
// U+FFFD, so the output is always valid JSON.

#include <nlohmann/json.hpp>
#include <string>

namespace kovra::cli {

using Json = nlohmann::ordered_json;

// `value` as compact JSON text. Every float in it is taken to hold a 32-bit float.
std::string JsonText(const Json& value);

// Prints `value` on stdout, one line.
void PrintJson(const Json& value);

}  // namespace kovra::cli
