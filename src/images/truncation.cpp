#include "images/truncation.h"

#include "images/vyl_lib.h"

namespace kovra {

namespace {

// Big-endian reads within the bytes; past the end they fail.
class Reader {
public:
    Reader(const std::uint8_t* bytes, std::size_t size) : bytes_(bytes), size_(size) {}

    bool Skip(std::uint64_t count) {
        if (count > size_ - at_) {
            return false;
        }
        at_ += static_cast<std::size_t>(count);
        return true;
    }
    bool Number(int width, std::uint64_t& value) {
        if (static_cast<std::size_t>(width) > size_ - at_) {
            return false;
        }
        value = 0;
        for (int i = 0; i < width; ++i) {
            value = value << 8 | bytes_[at_++];
        }
        return true;
    }

private:
    const std::uint8_t* bytes_;
    std::size_t size_;
    std::size_t at_ = 0;
};

// After the first start-of-scan marker, 0xFF is followed only by a stuffed 0 or a restart marker, so the
// end-of-image marker can't occur by chance in the scan data.
bool JpegComplete(const std::uint8_t* bytes, std::size_t size) {
    std::size_t at = 0;
    while (at + 1 < size && !(bytes[at] == 0xFF && bytes[at + 1] == 0xDA)) {
        ++at;
    }
    for (; at + 1 < size; ++at) {
        if (bytes[at] == 0xFF && bytes[at + 1] == 0xD9) {
            return true;
        }
    }
    return false;
}

// Header, then three sections each led by its length, then the merged image: raw, or run-length coded
// with a table of the coded length of each row of each channel.
bool PsdComplete(const std::uint8_t* bytes, std::size_t size) {
    Reader read(bytes, size);
    std::uint64_t version = 0, channels = 0, height = 0, width = 0, depth = 0, length = 0, compression = 0;
    if (!read.Skip(4) || !read.Number(2, version) || !read.Skip(6) || !read.Number(2, channels) ||
        !read.Number(4, height) || !read.Number(4, width) || !read.Number(2, depth) || !read.Skip(2)) {
        return false;
    }
    const bool large = version == 2;
    for (int section = 0; section < 3; ++section) {
        const int lengthWidth = section == 2 && large ? 8 : 4;
        if (!read.Number(lengthWidth, length) || !read.Skip(length)) {
            return false;
        }
    }
    if (!read.Number(2, compression)) {
        return false;
    }
    const std::uint64_t rows = channels * height;
    if (compression == 0) {
        return read.Skip((width * depth + 7) / 8 * rows);
    }
    if (compression != 1) {
        return true;
    }
    std::uint64_t coded = 0;
    for (std::uint64_t row = 0; row < rows; ++row) {
        std::uint64_t count = 0;
        if (!read.Number(large ? 4 : 2, count)) {
            return false;
        }
        coded += count;
    }
    return read.Skip(coded);
}

// After the signature, chunks of a length, a type, the data and a check word, up to the end chunk. A chunk
// that claims more bytes than the file has is not read: the decoder would first set aside memory for all
// it claims, gigabytes for a few bytes of file.
bool PngComplete(const std::uint8_t* bytes, std::size_t size) {
    Reader read(bytes, size);
    if (!read.Skip(8)) {
        return false;
    }
    std::uint64_t length = 0, type = 0;
    constexpr std::uint64_t kEnd = 0x49454E44;  // "IEND"
    while (read.Number(4, length)) {
        if (!read.Number(4, type) || !read.Skip(length) || !read.Skip(4)) {
            return false;
        }
        if (type == kEnd) {
            return true;
        }
    }
    return true;
}

}  // namespace

bool LooksComplete(int format, const std::uint8_t* bytes, std::size_t size) {
    switch (format) {
        case kVylJpeg:
            return JpegComplete(bytes, size);
        case kVylPsd:
            return PsdComplete(bytes, size);
        case kVylPng:
            return PngComplete(bytes, size);
        default:
            return true;
    }
}

}  // namespace kovra
