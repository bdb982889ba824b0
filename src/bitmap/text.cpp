#include "bitmap/text.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "base/dual_string.h"
#include "bitmap/blend.h"
#include "bitmap/font_cache.h"

namespace aurel {

namespace {

std::u32string Decode(std::string_view utf8) {
    const std::u16string utf16 = Utf8ToUtf16(utf8);
    std::u32string out;
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        const char32_t unit = utf16[i];
        if (unit >= 0xD800 && unit < 0xDC00 && i + 1 < utf16.size()) {
            out += 0x10000 + ((unit - 0xD800) << 10) + (utf16[++i] - 0xDC00);
        } else if (unit != U'\r') {
            out += unit;
        }
    }
    return out;
}

int Measure(FontFace& face, std::u32string_view line) {
    int width = 0;
    for (char32_t code : line) {
        width += face.GetGlyph(code).advance;
    }
    return width;
}

// The text cut into lines at line feeds and, with word break, between words wherever the next word would
// pass the box's width.
std::vector<std::u32string> Layout(FontFace& face, const std::u32string& text, int width, bool wordBreak) {
    std::vector<std::u32string> lines;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t feed = std::min(text.find(U'\n', start), text.size());
        const std::u32string_view paragraph(text.data() + start, feed - start);
        start = feed + 1;
        if (!wordBreak) {
            lines.emplace_back(paragraph);
            continue;
        }
        std::u32string line;
        std::size_t word = 0;
        while (word <= paragraph.size()) {
            const std::size_t space = std::min(paragraph.find(U' ', word), paragraph.size());
            const std::u32string_view next = paragraph.substr(word, space - word);
            word = space + 1;
            std::u32string joined = line.empty() ? std::u32string(next) : line + U' ' + std::u32string(next);
            if (!line.empty() && Measure(face, joined) > width) {
                lines.push_back(std::move(line));
                joined = next;
            }
            line = std::move(joined);
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

int Align(TextAlign align, int room, int used) {
    switch (align) {
        case TextAlign::Near:
            return 0;
        case TextAlign::Far:
            return room - used;
        case TextAlign::Centre:
            return (room - used) / 2;
    }
    return 0;
}

// Coverage of the letters over the visible part of the box, one byte per pixel.
class Mask {
public:
    Mask(int left, int top, int right, int bottom)
        : left_(left),
          top_(top),
          width_(right - left),
          height_(bottom - top),
          cover_(static_cast<std::size_t>(width_) * height_) {}

    int Width() const { return width_; }
    int Height() const { return height_; }
    std::uint8_t At(int x, int y) const { return cover_[static_cast<std::size_t>(y) * width_ + x]; }

    // Adds coverage at bitmap position (x, y), keeping the larger where letters overlap.
    void Add(int x, int y, std::uint8_t value) {
        x -= left_, y -= top_;
        if (x >= 0 && y >= 0 && x < width_ && y < height_) {
            std::uint8_t& cell = cover_[static_cast<std::size_t>(y) * width_ + x];
            cell = std::max(cell, value);
        }
    }

    // The largest coverage within `radius` of each pixel: the band round the letters.
    Mask Grown(int radius) const {
        Mask grown(left_, top_, left_ + width_, top_ + height_);
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                const std::uint8_t value = At(x, y);
                for (int dy = -radius; value && dy <= radius; ++dy) {
                    for (int dx = -radius; dx <= radius; ++dx) {
                        if (dx * dx + dy * dy <= radius * radius) {
                            grown.Add(left_ + x + dx, top_ + y + dy, value);
                        }
                    }
                }
            }
        }
        return grown;
    }

    // Moves the colour bytes of the bitmap toward the colour by coverage times mul / 256.
    void Paint(IBitmap& target, Color32 colour, int mul) const {
        for (int y = 0; y < height_; ++y) {
            std::uint32_t* row = target.Row(top_ + y) + left_;
            for (int x = 0; x < width_; ++x) {
                const int cover = At(x, y);
                const int m = (cover + (cover >> 7)) * mul >> 8;
                if (m > 0) {
                    using namespace blend;
                    const std::uint32_t p = row[x];
                    row[x] = (p & 0xFF000000) | Place(Toward(Byte(p, 0), colour.B(), m), 0) |
                             Place(Toward(Byte(p, 8), colour.G(), m), 8) |
                             Place(Toward(Byte(p, 16), colour.R(), m), 16);
                }
            }
        }
    }

private:
    int left_, top_, width_, height_;
    std::vector<std::uint8_t> cover_;
};

void Typeset(FontFace& face, const std::u32string& text, int x, int y, int width, int height,
             const TextFont& font, const TextStyle& style, Mask& mask) {
    const std::vector<std::u32string> lines = Layout(face, text, width, style.wordBreak);
    const int lineHeight = face.LineHeight();
    int baseline =
        y + Align(style.vertical, height, lineHeight * static_cast<int>(lines.size())) + face.Ascent();
    for (const std::u32string& line : lines) {
        const int lineWidth = Measure(face, line);
        int pen = x + Align(style.horizontal, width, lineWidth);
        if (font.underline) {
            const int top = baseline + face.UnderlineOffset();
            for (int row = top; row < top + face.UnderlineThickness(); ++row) {
                for (int column = pen; column < pen + lineWidth; ++column) {
                    mask.Add(column, row, 255);
                }
            }
        }
        for (char32_t code : line) {
            const Glyph& glyph = face.GetGlyph(code);
            for (int row = 0; row < glyph.rows; ++row) {
                for (int column = 0; column < glyph.width; ++column) {
                    mask.Add(pen + glyph.left + column, baseline - glyph.top + row,
                             glyph.coverage[static_cast<std::size_t>(row) * glyph.width + column]);
                }
            }
            pen += glyph.advance;
        }
        baseline += lineHeight;
    }
}

}  // namespace

void DrawText(DeviceContext& context, std::string_view text, int x, int y, int width, int height,
              Color32 colour, const TextFont& font, const TextStyle& style) {
    IBitmap& target = context.Selected();
    if (target.IsEmpty()) {
        return;
    }
    const int left = std::max(x, 0);
    const int top = std::max(y, 0);
    const int right = std::min(x + width, target.getWidth());
    const int bottom = std::min(y + height, target.getHeight());
    if (left >= right || top >= bottom) {
        return;
    }
    if (FontFace* face = FontCache::Instance().Find(font)) {
        Mask mask(left, top, right, bottom);
        Typeset(*face, Decode(text), x, y, width, height, font, style, mask);
        if (style.outline && style.outlineWidth > 0) {
            mask.Grown(style.outlineWidth)
                .Paint(target, style.outlineColor, ColorMultiplier(style.outlineColor));
        }
        mask.Paint(target, colour, 256);
    }
    for (int row = top; row < bottom; ++row) {
        std::uint32_t* pixels = target.Row(row);
        for (int column = left; column < right; ++column) {
            pixels[column] = (pixels[column] & 0x00FFFFFF) | std::uint32_t{colour.A()} << 24;
        }
    }
}

}  // namespace aurel
