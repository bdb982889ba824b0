#include "support/png_image.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace kovra::test {

namespace {

std::uint32_t Crc32(const std::string& bytes) {
    static const std::array<std::uint32_t, 256> table = [] {
        std::array<std::uint32_t, 256> t{};
        for (std::uint32_t n = 0; n < 256; ++n) {
            std::uint32_t c = n;
            for (int k = 0; k < 8; ++k) {
                c = c & 1 ? 0xEDB88320u ^ (c >> 1) : c >> 1;
            }
            t[n] = c;
        }
        return t;
    }();
    std::uint32_t crc = 0xFFFFFFFFu;
    for (unsigned char byte : bytes) {
        crc = table[(crc ^ byte) & 0xFF] ^ (crc >> 8);
    }
    return crc ^ 0xFFFFFFFFu;
}

void PutBig(std::string& out, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        out += static_cast<char>(value >> shift & 0xFF);
    }
}

void PutChunk(std::string& out, const char* type, const std::string& data) {
    PutBig(out, static_cast<std::uint32_t>(data.size()));
    const std::string body = type + data;
    out += body;
    PutBig(out, Crc32(body));
}

// A zlib stream of stored deflate blocks.
std::string Stored(const std::string& raw) {
    std::string out = "\x78\x01";
    std::size_t at = 0;
    do {
        const std::size_t length = std::min<std::size_t>(raw.size() - at, 65535);
        const bool last = at + length == raw.size();
        out += static_cast<char>(last ? 1 : 0);
        out += static_cast<char>(length & 0xFF);
        out += static_cast<char>(length >> 8);
        out += static_cast<char>(~length & 0xFF);
        out += static_cast<char>(~length >> 8 & 0xFF);
        out.append(raw, at, length);
        at += length;
    } while (at < raw.size());
    std::uint32_t a = 1, b = 0;
    for (unsigned char byte : raw) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    PutBig(out, b << 16 | a);
    return out;
}

}  // namespace

std::string EncodePng(const aurel::IBitmap& bitmap) {
    std::string header;
    PutBig(header, static_cast<std::uint32_t>(bitmap.getWidth()));
    PutBig(header, static_cast<std::uint32_t>(bitmap.getHeight()));
    header += std::string("\x08\x06\x00\x00\x00", 5);
    std::string raw;
    for (int y = 0; y < bitmap.getHeight(); ++y) {
        raw += '\0';
        for (int x = 0; x < bitmap.getWidth(); ++x) {
            const std::uint32_t p = bitmap.Row(y)[x];
            for (int shift : {16, 8, 0, 24}) {
                raw += static_cast<char>(p >> shift & 0xFF);
            }
        }
    }
    std::string png = "\x89PNG\r\n\x1a\n";
    PutChunk(png, "IHDR", header);
    PutChunk(png, "IDAT", Stored(raw));
    PutChunk(png, "IEND", "");
    return png;
}

::testing::AssertionResult MatchesReference(const aurel::IBitmap& bitmap, const std::string& name) {
    const std::filesystem::path reference = std::filesystem::path(KOVRA_TEST_DATA) / (name + ".png");
    const std::string drawn = EncodePng(bitmap);
    if (std::getenv("KOVRA_UPDATE_REFERENCES")) {
        std::filesystem::create_directories(reference.parent_path());
        std::ofstream(reference, std::ios::binary) << drawn;
        return ::testing::AssertionSuccess();
    }
    std::ifstream in(reference, std::ios::binary);
    const std::string expected((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (drawn == expected) {
        return ::testing::AssertionSuccess();
    }
    const std::filesystem::path actual =
        std::filesystem::temp_directory_path() /
        ("kovra-" + std::filesystem::path(name).filename().string() + ".actual.png");
    std::ofstream(actual, std::ios::binary) << drawn;
    return ::testing::AssertionFailure()
           << "the drawing differs from " << reference << "; it is in " << actual;
}

}  // namespace kovra::test
