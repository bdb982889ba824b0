// Loading and saving pictures through the image layer: every format, the row order, the alpha of formats
// without alpha, and the refusals of what is not a readable picture.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "images/truncation.h"
#include "images/vyl_lib.h"
#include "images/wirrel_tex_image.h"
#include "support/image_library.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

using Bytes = std::vector<std::uint8_t>;

class ImageFileTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { test::StartImageLibrary(); }

    void WriteFile(const std::string& name, const Bytes& bytes) const {
        std::ofstream(dir.File(name), std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    test::TempDir dir;
};

std::vector<std::uint32_t> PixelsOf(const aurel::ImageSurface& surface) {
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < surface.Height(); ++y) {
        pixels.insert(pixels.end(), surface.Row(y), surface.Row(y) + surface.Width());
    }
    return pixels;
}

WirrelTexImage Picture(int width, const std::vector<std::uint32_t>& pixels) {
    WirrelTexImage image;
    image.surface.Resize(width, static_cast<int>(pixels.size()) / width);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        image.surface.Row(static_cast<int>(i) / width)[i % width] = pixels[i];
    }
    return image;
}

Bytes ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// What each format keeps of a pixel.
enum class Keeps {
    Everything,
    OpaqueAndClear,  // exact where alpha is 0 or 255 (the format stores colours premultiplied)
    Colour,          // no alpha channel: the colour, with alpha 0
    BinaryAlpha,     // a palette with one transparent colour
    Approximately,   // lossy colour, no alpha channel
};

TEST_F(ImageFileTest, EveryFormatReadsBackWhatWasWritten) {
    const std::vector<std::uint32_t> written = {0xFF102030, 0x80405060, 0x00708090, 0xFFFFFFFF,
                                                0x01020304, 0xFE0A0B0C, 0xFF000000, 0xFFC0C0C0};
    const WirrelTexImage image = Picture(4, written);
    const struct {
        const char* name;
        Keeps keeps;
    } formats[] = {
        {"a.png", Keeps::Everything},  {"a.bmp", Keeps::Everything},     {"a.tga", Keeps::Everything},
        {"A.PNG", Keeps::Everything},  {"a.psd", Keeps::OpaqueAndClear}, {"a.pct", Keeps::Colour},
        {"a.gif", Keeps::BinaryAlpha}, {"a.jpg", Keeps::Approximately},  {"a.jpeg", Keeps::Approximately},
    };
    for (const auto& format : formats) {
        SCOPED_TRACE(format.name);
        ASSERT_TRUE(image.Save(dir.File(format.name)));
        WirrelTexImage back;
        ASSERT_EQ(back.Load(dir.File(format.name)), kVylOk);
        ASSERT_EQ(back.surface.Width(), 4);
        ASSERT_EQ(back.surface.Height(), 2);
        const std::vector<std::uint32_t> read = PixelsOf(back.surface);
        for (std::size_t i = 0; i < written.size(); ++i) {
            const std::uint32_t pixel = written[i];
            const std::uint32_t alpha = pixel >> 24;
            switch (format.keeps) {
                case Keeps::Everything:
                    EXPECT_EQ(read[i], pixel) << i;
                    break;
                case Keeps::OpaqueAndClear:
                    if (alpha == 0 || alpha == 0xFF) {
                        EXPECT_EQ(read[i], pixel) << i;
                    }
                    break;
                case Keeps::Colour:
                    EXPECT_EQ(read[i], pixel & 0xFFFFFF) << i;
                    break;
                case Keeps::BinaryAlpha:
                    EXPECT_EQ(read[i] >> 24, alpha >= 0x80 ? 0xFFu : 0u) << i;
                    if (alpha == 0xFF) {
                        EXPECT_EQ(read[i], pixel) << i;
                    }
                    break;
                case Keeps::Approximately:
                    EXPECT_EQ(read[i] >> 24, 0u) << i;
                    for (int shift : {0, 8, 16}) {
                        EXPECT_NEAR(read[i] >> shift & 0xFF, pixel >> shift & 0xFF, 24) << i;
                    }
                    break;
            }
        }
    }
}

TEST_F(ImageFileTest, SavingNeedsAKnownExtensionAndPixels) {
    const WirrelTexImage image = Picture(1, {0xFF000000});
    EXPECT_FALSE(image.Save(dir.File("a.xyz")));
    EXPECT_FALSE(image.Save(dir.File("noextension")));
    EXPECT_FALSE(WirrelTexImage().Save(dir.File("empty.png")));
    EXPECT_FALSE(image.Save(dir.File("missing/folder/a.png")));
    EXPECT_TRUE(std::filesystem::is_empty(dir.Path()));
}

// The same 4 x 2 picture, stored without an alpha channel by an image program.
TEST_F(ImageFileTest, FormatsWithoutAlphaGiveAlphaZeroEverywhere) {
    const std::vector<std::uint32_t> expected = {0xFF00FF, 0x0AC81E, 0xFF00FF, 0xFF00FF,
                                                 0xFF00FF, 0xFF00FF, 0xFF00FF, 0x0000FA};
    for (const char* name : {"rgb.png", "rgb24.bmp", "rgb.gif", "rgb.jpg"}) {
        SCOPED_TRACE(name);
        WirrelTexImage image;
        ASSERT_EQ(image.Load(std::string(KOVRA_TEST_DATA) + "/images/" + name), kVylOk);
        const std::vector<std::uint32_t> read = PixelsOf(image.surface);
        ASSERT_EQ(read.size(), expected.size());
        for (std::size_t i = 0; i < read.size(); ++i) {
            EXPECT_EQ(read[i] >> 24, 0u) << i;
            if (std::string(name) != "rgb.jpg") {
                EXPECT_EQ(read[i], expected[i]) << i;
            }
        }
    }
}

// A TGA file of 2 x 2 pixels: 18 header bytes, then the rows as the descriptor orders them.
Bytes Tga(int bits, std::uint8_t descriptor, const std::vector<std::uint8_t>& rows) {
    Bytes bytes = {0,         0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 2, 0, static_cast<std::uint8_t>(bits),
                   descriptor};
    bytes.insert(bytes.end(), rows.begin(), rows.end());
    return bytes;
}

TEST_F(ImageFileTest, TgaRowsArriveUpright) {
    // Blue, green; red, white, as the picture is seen.
    const struct {
        const char* name;
        Bytes file;
        std::vector<std::uint32_t> pixels;
    } cases[] = {
        {"bottom-up 24-bit",
         Tga(24, 0x00, {0, 0, 255, 255, 255, 255, /**/ 255, 0, 0, 0, 255, 0}),
         {0x0000FF, 0x00FF00, 0xFF0000, 0xFFFFFF}},
        {"top-down 24-bit",
         Tga(24, 0x20, {255, 0, 0, 0, 255, 0, /**/ 0, 0, 255, 255, 255, 255}),
         {0x0000FF, 0x00FF00, 0xFF0000, 0xFFFFFF}},
        {"bottom-up 32-bit with alpha",
         Tga(32, 0x08, {0, 0, 255, 64, 255, 255, 255, 255, /**/ 255, 0, 0, 0, 0, 255, 0, 128}),
         {0x000000FF, 0x8000FF00, 0x40FF0000, 0xFFFFFFFF}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        WriteFile("t.tga", c.file);
        WirrelTexImage image;
        ASSERT_EQ(image.Load(dir.File("t.tga")), kVylOk);
        EXPECT_EQ(PixelsOf(image.surface), c.pixels);
    }
}

std::uint32_t Crc32(const Bytes& bytes, std::size_t from) {
    std::uint32_t crc = 0xFFFFFFFFu;
    for (std::size_t i = from; i < bytes.size(); ++i) {
        crc ^= bytes[i];
        for (int k = 0; k < 8; ++k) {
            crc = crc & 1 ? 0xEDB88320u ^ (crc >> 1) : crc >> 1;
        }
    }
    return ~crc;
}

void PutBig(Bytes& out, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        out.push_back(static_cast<std::uint8_t>(value >> shift));
    }
}

// A PNG file that declares the size and holds no pixel data to speak of.
Bytes PngHeaderOnly(std::uint32_t width, std::uint32_t height) {
    Bytes png = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    const auto chunk = [&png](const char* type, const Bytes& data) {
        PutBig(png, static_cast<std::uint32_t>(data.size()));
        const std::size_t start = png.size();
        png.insert(png.end(), type, type + 4);
        png.insert(png.end(), data.begin(), data.end());
        PutBig(png, Crc32(png, start));
    };
    Bytes header;
    PutBig(header, width);
    PutBig(header, height);
    header.insert(header.end(), {8, 6, 0, 0, 0});
    chunk("IHDR", header);
    chunk("IDAT", {0x78, 0x9C, 0x63, 0x00, 0x00, 0x00, 0x01, 0x00, 0x01});
    chunk("IEND", {});
    return png;
}

TEST_F(ImageFileTest, WhatIsNotAReadablePictureLeavesTheSurfaceEmpty) {
    const WirrelTexImage good = Picture(2, {0xFF112233, 0xFF445566, 0xFF778899, 0xFFAABBCC});
    ASSERT_TRUE(good.Save(dir.File("good.png")));
    const Bytes png = ReadBytes(dir.File("good.png"));
    WriteFile("truncated.png", Bytes(png.begin(), png.begin() + static_cast<long>(png.size()) / 2));
    WriteFile("text.png", Bytes{'h', 'e', 'l', 'l', 'o'});
    WriteFile("svg.png", Bytes{'<', 's', 'v', 'g', '/', '>'});
    WriteFile("empty.bmp", Bytes{});
    WriteFile("huge.png", PngHeaderOnly(100000, 100000));
    WriteFile("wide.png", PngHeaderOnly(20000, 1));
    ASSERT_EQ(mkfifo(dir.File("pipe.png").c_str(), 0600), 0);
    const struct {
        const char* name;
        int code;  // -1: any failure
    } cases[] = {{"missing.png", kVylCannotOpen},
                 {".", kVylCannotOpen},
                 {"pipe.png", kVylCannotOpen},
                 {"truncated.png", -1},
                 {"text.png", -1},
                 {"svg.png", -1},
                 {"empty.bmp", -1},
                 {"huge.png", -1},
                 {"wide.png", -1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        WirrelTexImage image;
        ASSERT_EQ(image.Load(dir.File("good.png")), kVylOk);
        const int code = image.Load(dir.File(c.name));
        if (c.code == -1) {
            EXPECT_NE(code, kVylOk);
            EXPECT_NE(code, kVylCannotOpen);
        } else {
            EXPECT_EQ(code, c.code);
        }
        EXPECT_TRUE(image.surface.IsEmpty());
        if (c.code != -1) {
            continue;
        }
        const Bytes bytes = ReadBytes(dir.File(c.name));
        ASSERT_EQ(image.Load(dir.File("good.png")), kVylOk);
        EXPECT_FALSE(image.LoadMemory(bytes.data(), bytes.size()));
        EXPECT_TRUE(image.surface.IsEmpty());
    }
}

TEST_F(ImageFileTest, ATruncatedFileOfAnyFormatIsRefused) {
    std::vector<std::uint32_t> pixels(64 * 64);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        pixels[i] = 0xFF000000u | static_cast<std::uint32_t>(i * 2654435761u >> 8);
    }
    const WirrelTexImage image = Picture(64, pixels);
    for (const char* name : {"t.png", "t.bmp", "t.tga", "t.jpg", "t.gif", "t.pct", "t.psd"}) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(image.Save(dir.File(name)));
        std::filesystem::resize_file(dir.File(name), std::filesystem::file_size(dir.File(name)) * 3 / 5);
        WirrelTexImage back;
        EXPECT_NE(back.Load(dir.File(name)), kVylOk);
        EXPECT_TRUE(back.surface.IsEmpty());
    }
}

// A chunk whose length runs past the end of the file, before or after the pixel data, refuses the file
// before the decoder sets aside what the chunk claims.
TEST_F(ImageFileTest, APngChunkLongerThanTheFileIsRefused) {
    const WirrelTexImage image = Picture(2, {0xFF102030, 0xFF405060, 0xFF708090, 0xFFA0B0C0});
    std::array<std::uint8_t, 4096> buffer{};
    const std::uint32_t size = image.SaveMemory(buffer.data(), buffer.size());
    ASSERT_GT(size, 33u);
    const Bytes png(buffer.begin(), buffer.begin() + size);
    const auto withText = [&png](std::size_t at, std::uint32_t claimed) {
        const std::uint8_t text[] = {'t', 'E', 'X', 't', 'a', 0, 'b', 0, 0, 0, 0};
        Bytes bytes(png.begin(), png.begin() + static_cast<std::ptrdiff_t>(at));
        for (int shift : {24, 16, 8, 0}) {
            bytes.push_back(static_cast<std::uint8_t>(claimed >> shift));
        }
        bytes.insert(bytes.end(), std::begin(text), std::end(text));
        bytes.insert(bytes.end(), png.begin() + static_cast<std::ptrdiff_t>(at), png.end());
        return bytes;
    };
    const std::size_t afterHeader = 33, beforeEnd = png.size() - 12;
    WirrelTexImage back;
    ASSERT_TRUE(LooksComplete(kVylPng, png.data(), png.size()));
    ASSERT_TRUE(back.LoadMemory(png.data(), png.size()));
    const std::pair<std::size_t, std::uint32_t> cases[] = {
        {afterHeader, 0x61646174u}, {beforeEnd, 0x7FFFFFF0u}, {beforeEnd, 40u}};
    for (const auto& [at, claimed] : cases) {
        SCOPED_TRACE(claimed);
        const Bytes bytes = withText(at, claimed);
        EXPECT_FALSE(LooksComplete(kVylPng, bytes.data(), bytes.size()));
        EXPECT_FALSE(back.LoadMemory(bytes.data(), bytes.size()));
        EXPECT_TRUE(back.surface.IsEmpty());
    }
}

TEST_F(ImageFileTest, MemorySavesArePngAndFitTheBuffer) {
    const WirrelTexImage image = Picture(3, {0xFF102030, 0x00000000, 0x80FFFFFF});
    std::array<std::uint8_t, 4096> buffer{};
    const std::uint32_t size = image.SaveMemory(buffer.data(), buffer.size());
    ASSERT_GT(size, 8u);

    WirrelTexImage back;
    ASSERT_TRUE(back.LoadMemory(buffer.data(), size));
    EXPECT_EQ(PixelsOf(back.surface), PixelsOf(image.surface));

    EXPECT_EQ(image.SaveMemory(buffer.data(), size - 1), 0u);
    EXPECT_EQ(image.SaveMemory(buffer.data(), 0), 0u);
    EXPECT_EQ(WirrelTexImage().SaveMemory(buffer.data(), buffer.size()), 0u);
}

TEST(VylMemoryStream, StaysWithinItsBlock) {
    std::array<std::uint8_t, 8> block{1, 2, 3, 4, 5, 6, 7, 8};
    VylMemoryStream record{block.data(), block.size()};
    const VylStream stream = VylMemoryCallbacks(record);
    std::array<std::uint8_t, 8> out{};
    ASSERT_EQ(stream.read(stream.handle, 6, out.data()), kVylOk);
    EXPECT_EQ(stream.read(stream.handle, 3, out.data()), kVylStreamFailed);
    EXPECT_EQ(record.position, 6u);
    EXPECT_EQ(stream.write(stream.handle, 2, out.data()), kVylOk);
    EXPECT_EQ(block[6], 1);
    EXPECT_EQ(record.highWater, 8u);
    EXPECT_EQ(stream.write(stream.handle, 1, out.data()), kVylStreamFailed);

    const struct {
        std::int64_t offset;
        int origin;
        int code;
        std::uint32_t position;
    } seeks[] = {{0, 0, kVylOk, 0},           {8, 0, kVylOk, 8},          {9, 0, kVylStreamFailed, 8},
                 {-3, 2, kVylOk, 5},          {-1, 1, kVylOk, 4},         {-5, 1, kVylStreamFailed, 4},
                 {1, 2, kVylStreamFailed, 4}, {0, 3, kVylStreamFailed, 4}};
    for (const auto& s : seeks) {
        EXPECT_EQ(stream.seek(stream.handle, s.offset, s.origin), s.code) << s.offset << " " << s.origin;
        std::uint64_t at = 0;
        stream.tell(stream.handle, at);
        EXPECT_EQ(at, s.position) << s.offset << " " << s.origin;
    }
    EXPECT_EQ(record.highWater, 8u);
}

}  // namespace
}  // namespace kovra
