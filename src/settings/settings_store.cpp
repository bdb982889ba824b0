#include "settings/settings_store.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>

namespace aurel {

namespace {

constexpr const char* kBlanks = " \t\r\n";

std::string Trim(const std::string& text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

SettingsValue::Kind KindOf(const std::string& text) {
    SettingsValue::Kind kind = SettingsValue::Kind::Int;
    for (const char c : text) {
        if (c == '.') {
            kind = SettingsValue::Kind::Float;
        } else if (!(c == '\t' || c == ' ' || c == ',' || c == '\n' || c == '\r' || c == '+' || c == '-' ||
                     (c >= '0' && c <= '9'))) {
            return SettingsValue::Kind::String;
        }
    }
    return kind;
}

// The plain text to number conversion, held to the 32-bit range.
std::int32_t ToInt(const std::string& item) {
    const long long value = std::strtoll(item.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long long>(value, INT32_MIN, INT32_MAX));
}

std::vector<std::string> SplitNumbers(const std::string& text) {
    std::vector<std::string> items;
    std::size_t start = 0;
    while (true) {
        const std::size_t comma = text.find(',', start);
        items.push_back(Trim(text.substr(start, comma - start)));
        if (comma == std::string::npos) {
            return items;
        }
        start = comma + 1;
    }
}

template <class T>
void WriteList(std::string& out, const std::vector<T>& values, auto format) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i > 0) {
            out += ", ";
        }
        out += format(values[i]);
    }
}

}  // namespace

void SettingsStore::Select(const std::string& section) {
    current_ = section;
    sections_[section];
}

const SettingsValue* SettingsStore::Find(const std::string& key) const {
    const auto section = sections_.find(current_);
    if (section == sections_.end()) {
        return nullptr;
    }
    const auto value = section->second.find(key);
    return value == section->second.end() ? nullptr : &value->second;
}

SettingsValue& SettingsStore::Put(const std::string& key, SettingsValue::Kind kind) {
    SettingsValue& value = sections_[current_][key];
    value = SettingsValue{};
    value.kind = kind;
    return value;
}

bool SettingsStore::GetInt(const std::string& key, std::int32_t& out, std::size_t index) const {
    const SettingsValue* value = Find(key);
    if (!value) {
        return false;
    }
    if (value->kind == SettingsValue::Kind::Int && index < value->ints.size()) {
        out = value->ints[index];
        return true;
    }
    // A float that no integer holds (out of range, or not a number) counts as absent.
    if (value->kind == SettingsValue::Kind::Float && index < value->floats.size() &&
        value->floats[index] >= -2147483648.0f && value->floats[index] < 2147483648.0f) {
        out = static_cast<std::int32_t>(value->floats[index]);
        return true;
    }
    return false;
}

bool SettingsStore::GetFloat(const std::string& key, float& out, std::size_t index) const {
    const SettingsValue* value = Find(key);
    if (!value) {
        return false;
    }
    if (value->kind == SettingsValue::Kind::Float && index < value->floats.size()) {
        out = value->floats[index];
        return true;
    }
    if (value->kind == SettingsValue::Kind::Int && index < value->ints.size()) {
        out = static_cast<float>(value->ints[index]);
        return true;
    }
    return false;
}

DualString SettingsStore::GetString(const std::string& key, const DualString& fallback) const {
    const SettingsValue* value = Find(key);
    if (!value || value->kind != SettingsValue::Kind::String || value->strings.empty()) {
        return fallback;
    }
    return value->strings.front();
}

std::vector<DualString> SettingsStore::GetStrings(const std::string& key) const {
    const SettingsValue* value = Find(key);
    if (!value || value->kind != SettingsValue::Kind::String) {
        return {};
    }
    return value->strings;
}

std::vector<std::int32_t> SettingsStore::GetInts(const std::string& key) const {
    const SettingsValue* value = Find(key);
    if (!value || value->kind != SettingsValue::Kind::Int) {
        return {};
    }
    return value->ints;
}

bool SettingsStore::Exists(const std::string& key) const {
    return Find(key) != nullptr;
}

void SettingsStore::SetInt(const std::string& key, std::int32_t value) {
    Put(key, SettingsValue::Kind::Int).ints = {value};
}

void SettingsStore::SetFloat(const std::string& key, float value) {
    Put(key, SettingsValue::Kind::Float).floats = {value};
}

void SettingsStore::SetString(const std::string& key, const DualString& value) {
    Put(key, SettingsValue::Kind::String).strings = {value};
}

void SettingsStore::SetStrings(const std::string& key, const std::vector<DualString>& values) {
    Put(key, SettingsValue::Kind::String).strings = values;
}

void SettingsStore::Set(const std::string& key, SettingsValue value) {
    sections_[current_][key] = std::move(value);
}

void SettingsStore::Clear() {
    sections_.clear();
    current_.clear();
}

void SettingsStore::Load(BinReader& stream) {
    // The text is read whole and split in memory.
    const std::int64_t start = stream.Tell();
    if (start < 0 || !stream.Seek(0, kSeekEnd)) {
        return;
    }
    const std::int64_t end = stream.Tell();
    if (end < start || end - start > kFileLimit || !stream.Seek(start, kSeekStart)) {
        return;
    }
    std::string text(static_cast<std::size_t>(end - start), '\0');
    if (!stream.Read(text.size(), text.data())) {
        return;
    }
    std::size_t pos = 0;
    std::string_view line;
    while (settings_text::NextLine(text, pos, line)) {
        settings_text::ParseLine(*this, line);
    }
}

bool SettingsStore::Save(BinStream& stream) const {
    std::string out;
    bool first = true;
    for (const auto& [name, section] : sections_) {
        if (!first) {
            out += "\r\n";
        }
        first = false;
        out += "[" + name + "]\r\n";
        for (const auto& [key, value] : section) {
            out += key + " = ";
            switch (value.kind) {
                case SettingsValue::Kind::Int:
                    WriteList(out, value.ints, [](std::int32_t v) { return std::to_string(v); });
                    break;
                case SettingsValue::Kind::Float:
                    WriteList(out, value.floats, settings_text::FormatFloat);
                    break;
                case SettingsValue::Kind::String:
                    WriteList(out, value.strings, [](const DualString& v) { return "\"" + v.Utf8() + "\""; });
                    break;
            }
            out += "\r\n";
        }
    }
    return stream.Write(out.size(), out.data());
}

namespace settings_text {

bool NextLine(std::string_view text, std::size_t& pos, std::string_view& line) {
    if (pos >= text.size()) {
        return false;
    }
    const std::size_t end = std::min(text.find_first_of("\r\n", pos), text.size());
    line = text.substr(pos, end - pos);
    pos = end + 1;
    // The other end character of a pair belongs to this line's end.
    if (end < text.size() && pos < text.size() && text[pos] != text[end] &&
        (text[pos] == '\r' || text[pos] == '\n')) {
        ++pos;
    }
    return true;
}

LineKind ParseLine(SettingsStore& store, std::string_view raw) {
    const std::size_t first = raw.find_first_not_of(kBlanks);
    if (first == std::string::npos) {
        return kIgnored;
    }
    const std::string line(raw.substr(first));
    if (line[0] == '#' || line[0] == ';') {
        return kComment;
    }
    if (line[0] == '[') {
        const std::size_t close = line.rfind(']');
        const std::size_t length = close == 0 ? std::string::npos : close - 1;
        store.Select(Trim(line.substr(1, length)));
        return kSection;
    }
    const std::size_t separator = line.find_first_of(":=");
    if (separator == std::string::npos) {
        return kIgnored;
    }
    const std::string key = Trim(line.substr(0, separator));
    const std::string text = Trim(line.substr(separator + 1));
    SettingsValue value;
    value.kind = KindOf(text);
    switch (value.kind) {
        case SettingsValue::Kind::Int:
            for (const std::string& item : SplitNumbers(text)) {
                value.ints.push_back(ToInt(item));
            }
            store.Set(key, std::move(value));
            return kInts;
        case SettingsValue::Kind::Float:
            for (const std::string& item : SplitNumbers(text)) {
                value.floats.push_back(std::strtof(item.c_str(), nullptr));
            }
            store.Set(key, std::move(value));
            return kFloats;
        case SettingsValue::Kind::String:
            for (const std::string& item : SplitStrings(text)) {
                value.strings.emplace_back(item);
            }
            store.Set(key, std::move(value));
            return kStrings;
    }
    return kIgnored;
}

std::vector<std::string> SplitStrings(const std::string& text) {
    std::vector<std::string> items;
    std::size_t pos = 0;
    const auto add = [&](std::size_t from, std::size_t to) {
        if (to > from) {
            items.push_back(text.substr(from, to - from));
        }
    };
    while (pos < text.size()) {
        const std::size_t stop = text.find_first_of(",\"", pos);
        if (stop == std::string::npos) {
            add(pos, text.size());
            break;
        }
        if (text[stop] == '"') {
            const std::size_t close = text.find('"', stop + 1);
            add(stop + 1, close == std::string::npos ? text.size() : close);
            if (close == std::string::npos) {
                break;
            }
            pos = close + 1;
            continue;
        }
        add(pos, stop);
        pos = text.find_first_not_of(" \t", stop + 1);
        if (pos == std::string::npos) {
            break;
        }
    }
    return items;
}

std::string FormatFloat(float value) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%g", value);
    return buffer;
}

}  // namespace settings_text

}  // namespace aurel
