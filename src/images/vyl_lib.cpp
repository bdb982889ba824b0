#include "images/vyl_lib.h"

#include <magick/MagickCore.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "images/truncation.h"

namespace kovra {

namespace {

constexpr MagickSizeType kMaxSide = 16384;
constexpr MagickSizeType kGiB = MagickSizeType{1} << 30;
// The largest stream a load reads into memory: a 32-bit picture at the largest size, uncompressed.
constexpr std::uint64_t kMaxStreamBytes = std::uint64_t{0xFFFFFFFF};
// Rows travel to the caller in bands of at most this many bytes.
constexpr std::uint64_t kBandBytes = std::uint64_t{1} << 22;

struct Coder {
    const char* read;
    const char* write;
};

// The codec library's names for each format; PNG is always written with its alpha channel, so that a
// picture that happens to be opaque reads back the same.
Coder CoderOf(int format) {
    switch (format) {
        case kVylBmp:
            return {"BMP", "BMP"};
        case kVylTga:
            return {"TGA", "TGA"};
        case kVylJpeg:
            return {"JPEG", "JPEG"};
        case kVylGif:
            return {"GIF", "GIF"};
        case kVylPng:
            return {"PNG", "PNG32"};
        case kVylPct:
            return {"PICT", "PICT"};
        case kVylPsd:
            return {"PSD", "PSD"};
        default:
            return {nullptr, nullptr};
    }
}

int FormatOfName(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || name.find_first_of("/\\", dot) != std::string_view::npos) {
        return kVylUnknown;
    }
    std::string extension(name.substr(dot + 1));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(c | 0x20); });
    static constexpr std::pair<std::string_view, int> kExtensions[] = {
        {"bmp", kVylBmp},   {"png", kVylPng}, {"tga", kVylTga}, {"jpg", kVylJpeg},
        {"jpeg", kVylJpeg}, {"gif", kVylGif}, {"pct", kVylPct}, {"psd", kVylPsd}};
    for (const auto& [known, format] : kExtensions) {
        if (extension == known) {
            return format;
        }
    }
    return kVylUnknown;
}

// PICT files start with 512 bytes of nothing in particular, then the picture's size and frame, then the
// version opcode.
constexpr std::size_t kPictVersionAt = 522;

int FormatOfBytes(const std::uint8_t* head, std::size_t length) {
    const auto startsWith = [&](std::string_view mark) {
        return length >= mark.size() && std::memcmp(head, mark.data(), mark.size()) == 0;
    };
    if (startsWith("\x89PNG\r\n\x1a\n")) {
        return kVylPng;
    }
    if (startsWith("\xFF\xD8\xFF")) {
        return kVylJpeg;
    }
    if (startsWith("GIF87a") || startsWith("GIF89a")) {
        return kVylGif;
    }
    if (startsWith("8BPS")) {
        return kVylPsd;
    }
    if (startsWith("BM")) {
        return kVylBmp;
    }
    if (length >= kPictVersionAt + 4) {
        const std::uint8_t* version = head + kPictVersionAt;
        const bool v1 = version[0] == 0x11 && version[1] == 0x01;
        const bool v2 = version[0] == 0x00 && version[1] == 0x11 && version[2] == 0x02 && version[3] == 0xFF;
        if (v1 || v2) {
            return kVylPct;
        }
    }
    return kVylUnknown;
}

// The stream's length, with the position put back where it was.
bool StreamLength(const VylStream& stream, std::uint64_t& length) {
    std::uint64_t at = 0;
    if (stream.tell(stream.handle, at) != kVylOk ||
        stream.seek(stream.handle, 0, aurel::kSeekEnd) != kVylOk) {
        return false;
    }
    const bool told = stream.tell(stream.handle, length) == kVylOk;
    return stream.seek(stream.handle, static_cast<std::int64_t>(at), aurel::kSeekStart) == kVylOk && told;
}

int FormatOfStream(const VylStream& stream) {
    std::uint64_t at = 0;
    std::uint64_t length = 0;
    if (stream.tell(stream.handle, at) != kVylOk || !StreamLength(stream, length) || length < at) {
        return kVylUnknown;
    }
    std::uint8_t head[kPictVersionAt + 4] = {};
    const auto count = static_cast<std::uint32_t>(std::min<std::uint64_t>(sizeof head, length - at));
    const bool read = stream.read(stream.handle, count, head) == kVylOk;
    stream.seek(stream.handle, static_cast<std::int64_t>(at), aurel::kSeekStart);
    return read ? FormatOfBytes(head, count) : kVylUnknown;
}

struct ExceptionDeleter {
    void operator()(ExceptionInfo* e) const { DestroyExceptionInfo(e); }
};
struct ImageInfoDeleter {
    void operator()(ImageInfo* info) const { DestroyImageInfo(info); }
};
struct ImageListDeleter {
    void operator()(Image* image) const { DestroyImageList(image); }
};
using ExceptionPtr = std::unique_ptr<ExceptionInfo, ExceptionDeleter>;
using ImageInfoPtr = std::unique_ptr<ImageInfo, ImageInfoDeleter>;
using ImagePtr = std::unique_ptr<Image, ImageListDeleter>;

// An image-info that names the coder outright, so that the codec library never guesses a format (and
// never hands the bytes to one of its many other readers).
ImageInfoPtr InfoFor(const char* coder) {
    ImageInfoPtr info(AcquireImageInfo());
    CopyMagickString(info->magick, coder, MaxTextExtent);
    CopyMagickString(info->filename, (std::string(coder) + ":").c_str(), MaxTextExtent);
    info->affirm = MagickTrue;
    return info;
}

int ReadAll(const VylStream& stream, std::vector<std::uint8_t>& bytes) {
    std::uint64_t at = 0;
    std::uint64_t length = 0;
    if (stream.tell(stream.handle, at) != kVylOk || !StreamLength(stream, length) || length < at ||
        length - at > kMaxStreamBytes) {
        return kVylStreamFailed;
    }
    bytes.resize(length - at);
    return stream.read(stream.handle, static_cast<std::uint32_t>(bytes.size()), bytes.data());
}

// The first picture of the bytes, upright, or null.
ImagePtr Decode(const char* coder, const std::vector<std::uint8_t>& bytes, ExceptionInfo* exception) {
    if (bytes.empty()) {
        return nullptr;
    }
    ImageInfoPtr info = InfoFor(coder);
    info->number_scenes = 1;
    ImagePtr image(BlobToImage(info.get(), bytes.data(), bytes.size(), exception));
    // A damaged file may still give a picture, made up where the data ran out: it is refused.
    const bool damaged = exception->severity >= ErrorException || exception->severity == CorruptImageWarning;
    if (!image || damaged || image->columns == 0 || image->rows == 0 || image->columns > kMaxSide ||
        image->rows > kMaxSide) {
        return nullptr;
    }
    // Some formats only tag their row order (a TGA stored bottom row first); the rows are turned here.
    if (image->orientation != UndefinedOrientation && image->orientation != TopLeftOrientation) {
        ImagePtr upright(AutoOrientImage(image.get(), image->orientation, exception));
        if (!upright) {
            return nullptr;
        }
        upright->orientation = TopLeftOrientation;
        image = std::move(upright);
    }
    return image;
}

// Hands the picture to the caller in bands of rows. A picture without an alpha channel gets alpha 0 on
// every pixel: that is what tells a colour key apart from real transparency.
int Deliver(const Image& image, VylImageState& state, ExceptionInfo* exception) {
    const VylImageCallbacks& callbacks = *state.callbacks;
    const VylImageDesc desc{static_cast<std::uint32_t>(image.columns),
                            static_cast<std::uint32_t>(image.rows)};
    if (int result = callbacks.createSurface(state.user, desc); result != kVylOk) {
        return result;
    }
    const std::uint64_t rowBytes = std::uint64_t{desc.width} * 4;
    const std::uint64_t bandRows =
        std::max<std::uint64_t>(1, std::min<std::uint64_t>(desc.height, kBandBytes / rowBytes));
    const std::uint64_t bandBytes = bandRows * rowBytes;
    if (int result = callbacks.allocate(&state.rows, static_cast<std::uint32_t>(bandBytes),
                                        static_cast<std::uint32_t>(bandBytes >> 32));
        result != kVylOk) {
        return result;
    }
    auto* band = static_cast<std::uint8_t*>(state.rows);
    for (std::uint64_t y = 0; y < desc.height; y += bandRows) {
        const auto rows = static_cast<std::size_t>(std::min<std::uint64_t>(bandRows, desc.height - y));
        if (!ExportImagePixels(&image, 0, static_cast<ssize_t>(y), desc.width, rows, "BGRA", CharPixel, band,
                               exception)) {
            return kVylDecodeFailed;
        }
        if (!image.matte) {
            for (std::size_t i = 3; i < rows * rowBytes; i += 4) {
                band[i] = 0;
            }
        }
        callbacks.storeRows(state.user, band, 0, static_cast<int>(y), static_cast<int>(desc.width),
                            static_cast<int>(rows), 0, static_cast<int>(rowBytes));
    }
    return kVylOk;
}

bool WantsFixedLayout(const VylPixelFormat& pixels) {
    static constexpr int kLayout[7] = {0, 8, 4, 4, 0, 8, 0};
    return std::equal(std::begin(kLayout), std::end(kLayout), std::begin(pixels.values));
}

}  // namespace

void VylLibInit() {
    MagickCoreGenesis(nullptr, MagickFalse);
    // A file that declares a huge picture is refused before its pixels are allocated.
    SetMagickResourceLimit(WidthResource, kMaxSide);
    SetMagickResourceLimit(HeightResource, kMaxSide);
    SetMagickResourceLimit(AreaResource, kMaxSide * kMaxSide);
    SetMagickResourceLimit(MemoryResource, 2 * kGiB);
    SetMagickResourceLimit(MapResource, 2 * kGiB);
    SetMagickResourceLimit(DiskResource, 4 * kGiB);
    // The program has one thread; the codec library must not start its own.
    SetMagickResourceLimit(ThreadResource, 1);
}

void VylLibExit() {
    MagickCoreTerminus();
}

int VylUtilGetFileFormat(const char* name, const VylStream* stream) {
    const int sniffed = stream ? FormatOfStream(*stream) : kVylUnknown;
    if (sniffed != kVylUnknown) {
        return sniffed;
    }
    return name ? FormatOfName(name) : kVylUnknown;
}

int VylImageInit(VylImageState& state, const VylImageCallbacks& callbacks, void* user) {
    state = VylImageState{};
    state.callbacks = &callbacks;
    state.user = user;
    return kVylOk;
}

void VylUtilSetFormat(VylPixelFormat& format, int a, int b, int c, int d, int e, int f, int g) {
    format = VylPixelFormat{{a, b, c, d, e, f, g}};
}

int VylImageLoad(int format, const VylStream& stream, VylImageState& state, std::uint32_t options,
                 const VylPixelFormat& pixels) {
    state.options = options;
    const Coder coder = CoderOf(format);
    if (!coder.read) {
        return kVylNoFormat;
    }
    if (!WantsFixedLayout(pixels)) {
        return kVylBadPixelFormat;
    }
    std::vector<std::uint8_t> bytes;
    if (int result = ReadAll(stream, bytes); result != kVylOk) {
        return result;
    }
    if (!LooksComplete(format, bytes.data(), bytes.size())) {
        return kVylDecodeFailed;
    }
    ExceptionPtr exception(AcquireExceptionInfo());
    ImagePtr image = Decode(coder.read, bytes, exception.get());
    if (!image) {
        return kVylDecodeFailed;
    }
    state.width = static_cast<std::uint32_t>(image->columns);
    state.height = static_cast<std::uint32_t>(image->rows);
    return Deliver(*image, state, exception.get());
}

int VylImageSave(int format, const VylStream& stream, VylImageState& state, std::uint32_t options) {
    state.options = options;
    const Coder coder = CoderOf(format);
    if (!coder.write) {
        return kVylNoFormat;
    }
    if (state.width == 0 || state.height == 0 || state.width > kMaxSide || state.height > kMaxSide) {
        return kVylEncodeFailed;
    }
    const std::uint64_t bytes = std::uint64_t{state.width} * state.height * 4;
    if (int result = state.callbacks->allocate(&state.rows, static_cast<std::uint32_t>(bytes),
                                               static_cast<std::uint32_t>(bytes >> 32));
        result != kVylOk) {
        return result;
    }
    state.callbacks->fetchRows(state.user, state.rows, 0, 0, static_cast<int>(state.width),
                               static_cast<int>(state.height), 0, static_cast<int>(state.width * 4));
    ExceptionPtr exception(AcquireExceptionInfo());
    ImagePtr image(
        ConstituteImage(state.width, state.height, "BGRA", CharPixel, state.rows, exception.get()));
    if (!image) {
        return kVylEncodeFailed;
    }
    image->depth = 8;
    // Rows go out top row first, and the file says so (a TGA otherwise claims the bottom row first).
    image->orientation = TopLeftOrientation;
    ImageInfoPtr info = InfoFor(coder.write);
    info->orientation = TopLeftOrientation;
    CopyMagickString(image->magick, coder.write, MaxTextExtent);
    std::size_t length = 0;
    void* blob = ImageToBlob(info.get(), image.get(), &length, exception.get());
    if (!blob) {
        return kVylEncodeFailed;
    }
    const int result = length <= kMaxStreamBytes
                           ? stream.write(stream.handle, static_cast<std::uint32_t>(length), blob)
                           : kVylEncodeFailed;
    RelinquishMagickMemory(blob);
    return result;
}

void VylImageFree(VylImageState& state) {
    if (state.rows && state.callbacks) {
        state.callbacks->allocate(&state.rows, 0, 0);
    }
    state.rows = nullptr;
}

int VylImageGetBpp(const VylImageDesc&) {
    // Whatever the file holds, the program's surfaces have four 8-bit channels.
    return 32;
}

}  // namespace kovra
