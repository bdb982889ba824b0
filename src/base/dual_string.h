#pragma once
// A text value held as UTF-8, with a UTF-16 twin made on first demand and cached. The UTF-8 side is the
// truth: every change goes through it, and the twin is rebuilt only when the platform asks for it.

#include <string>
#include <string_view>

namespace aurel {

class DualString {
public:
    DualString() = default;
    DualString(const char* utf8) : utf8_(utf8 ? utf8 : "") {}
    DualString(std::string utf8) : utf8_(std::move(utf8)) {}
    DualString(std::string_view utf8) : utf8_(utf8) {}

    static DualString FromUtf16(std::u16string_view utf16);

    const std::string& Utf8() const { return utf8_; }
    const char* c_str() const { return utf8_.c_str(); }
    const std::u16string& Utf16() const;

    bool empty() const { return utf8_.empty(); }
    std::size_t size() const { return utf8_.size(); }

    bool operator==(const DualString& other) const { return utf8_ == other.utf8_; }
    bool operator<(const DualString& other) const { return utf8_ < other.utf8_; }

private:
    std::string utf8_;
    mutable std::u16string utf16_;
    mutable bool utf16Valid_ = false;
};

// Conversions between the two encodings; malformed input becomes U+FFFD.
std::u16string Utf8ToUtf16(std::string_view utf8);
std::string Utf16ToUtf8(std::u16string_view utf16);

}  // namespace aurel
