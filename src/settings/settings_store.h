#pragma once
// The small text format of the user's state, the language files and the theme files, held in memory as
// sections of typed keys. Each value is a list of integers, of floats or of strings. Get and set work on
// the section chosen last with Select.
//
//   # comment            ; comment too
//   [Section]
//   Key = 1, 2, 3
//   Other = 1.5
//   Name = "a, b", "c"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/dual_string.h"
#include "settings/bin_stream.h"

namespace aurel {

struct SettingsValue {
    enum class Kind { Int, Float, String };
    Kind kind = Kind::Int;
    std::vector<std::int32_t> ints;
    std::vector<float> floats;
    std::vector<DualString> strings;
};

class SettingsStore {
public:
    using Section = std::map<std::string, SettingsValue>;

    // Makes `section` current, creating it if needed.
    void Select(const std::string& section);

    // Numbers are read across the two numeric kinds; false when the key or the index is absent, or the
    // value is of another kind.
    bool GetInt(const std::string& key, std::int32_t& out, std::size_t index = 0) const;
    bool GetFloat(const std::string& key, float& out, std::size_t index = 0) const;
    // The first string of the key, or `fallback` when it has none.
    DualString GetString(const std::string& key, const DualString& fallback) const;
    std::vector<DualString> GetStrings(const std::string& key) const;
    // The integers of the key, empty when absent or not numeric.
    std::vector<std::int32_t> GetInts(const std::string& key) const;
    bool Exists(const std::string& key) const;

    void SetInt(const std::string& key, std::int32_t value);
    void SetFloat(const std::string& key, float value);
    void SetString(const std::string& key, const DualString& value);
    void SetStrings(const std::string& key, const std::vector<DualString>& values);
    void Set(const std::string& key, SettingsValue value);

    // No settings, language or theme file is larger; a bigger one is not read.
    static constexpr std::int64_t kFileLimit = std::int64_t{64} << 20;

    // Adds what the stream holds from its position on to the store; a later duplicate key wins.
    void Load(BinReader& stream);
    bool Save(BinStream& stream) const;
    void Clear();

    const std::map<std::string, Section>& Sections() const { return sections_; }

private:
    const SettingsValue* Find(const std::string& key) const;
    SettingsValue& Put(const std::string& key, SettingsValue::Kind kind);

    std::map<std::string, Section> sections_;
    std::string current_;
};

// The pieces of the text format, exposed for the reader and its tests.
namespace settings_text {

// Takes the line that starts at `pos` without its end (CR, LF, CRLF or LFCR) and moves `pos` past the
// end; false when nothing is left.
bool NextLine(std::string_view text, std::size_t& pos, std::string_view& line);

// Result of parsing one line.
enum LineKind { kIgnored = 0, kSection = 1, kComment = 2, kInts = 3, kFloats = 4, kStrings = 5 };

// Parses one line into the store (a section header selects the section); answers what the line was.
LineKind ParseLine(SettingsStore& store, std::string_view line);

// Splits a value text into items: quoted items may hold commas, bare items end at a comma.
std::vector<std::string> SplitStrings(const std::string& text);

// A float with six significant digits, as printf's %g writes it: 2, 0.333333, 1e-07.
std::string FormatFloat(float value);

}  // namespace settings_text

}  // namespace aurel
