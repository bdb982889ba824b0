#pragma once
// Images for texture tests, drawn in memory from rows of characters: '.' is a transparent pixel, '#'
// an opaque one, 'k' the background colour of a colour-keyed sheet, any other letter an opaque pixel of
// its own colour; 'h' is half transparent, 'r' a red of alpha 0 (a sprite on a sheet without alpha). And the
// document as its writer saves it, for byte-exact undo checks.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "doc/wirrel_doc.h"
#include "doc/wirrel_writer.h"
#include "images/wirrel_tex_image.h"

namespace kovra::test {

constexpr std::uint32_t kKeyColour = 0x00FF00FFu;  // magenta with alpha 0, as a decoder without alpha gives

inline std::uint32_t PixelOf(char c) {
    switch (c) {
        case '.':
            return 0;
        case '#':
            return 0xFF204060u;
        case 'k':
            return kKeyColour;
        case 'h':
            return 0x80112233u;
        case 'r':
            return 0x00C02020u;
        default:
            return 0xFF000000u | static_cast<std::uint32_t>(c) * 0x010101u;
    }
}

inline std::shared_ptr<WirrelTexImage> Sheet(const std::vector<std::string>& rows) {
    auto image = std::make_shared<WirrelTexImage>();
    const int height = static_cast<int>(rows.size());
    const int width = height == 0 ? 0 : static_cast<int>(rows[0].size());
    image->surface.Resize(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image->surface.Row(y)[x] = PixelOf(rows[y][x]);
        }
    }
    return image;
}

// A sheet of one word everywhere.
inline std::shared_ptr<WirrelTexImage> Plain(int width, int height, std::uint32_t word) {
    auto image = std::make_shared<WirrelTexImage>();
    image->surface.Resize(width, height);
    image->surface.Clear(word);
    return image;
}

inline std::vector<std::uint8_t> Saved(const WirrelDoc& doc) {
    std::vector<WirrelImageRecord> images;
    for (std::size_t i = 0; i < doc.images.size(); ++i) {
        const auto& image = doc.images[i];
        images.push_back({image ? image->path : aurel::DualString{}, static_cast<std::int32_t>(i),
                          image ? image->colorKey : 0u});
    }
    return WriteWirrel(doc.Wirrel(), images, {});
}

}  // namespace kovra::test
