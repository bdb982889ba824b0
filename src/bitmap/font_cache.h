#pragma once
// The faces that text is drawn with, each at one pixel size, and the glyphs rendered from them so far. Both
// are kept for the life of the program: a label drawn every frame renders each letter once.

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "bitmap/text.h"

namespace aurel {

// A rendered glyph: its coverage, 0 to 255, row by row, placed relative to the pen on the baseline.
struct Glyph {
    int left = 0;  // from the pen to the first column
    int top = 0;   // from the baseline up to the first row
    int width = 0;
    int rows = 0;
    int advance = 0;
    std::vector<std::uint8_t> coverage;
};

class FontFace {
public:
    // Takes the face over. Emboldening and slanting stand in for a bold or italic face the system lacks.
    FontFace(FT_Face face, bool embolden, bool slant);
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    const Glyph& GetGlyph(char32_t code);
    int Ascent() const;
    int LineHeight() const;
    // The underline's top, below the baseline, and its thickness.
    int UnderlineOffset() const;
    int UnderlineThickness() const;

private:
    struct FaceDone {
        void operator()(FT_Face face) const { FT_Done_Face(face); }
    };
    std::unique_ptr<FT_FaceRec_, FaceDone> face_;
    bool embolden_;
    bool slant_;
    std::unordered_map<char32_t, Glyph> glyphs_;
};

class FontCache {
public:
    static FontCache& Instance();

    // The face for a font, opened on first use; null when the engine or a matching font is missing.
    FontFace* Find(const TextFont& font);

private:
    FontCache();
    ~FontCache();
    FontCache(const FontCache&) = delete;
    FontCache& operator=(const FontCache&) = delete;

    std::unique_ptr<FontFace> Open(const TextFont& font);

    FT_Library library_ = nullptr;
    FcConfig* config_ = nullptr;
    std::map<std::tuple<std::string, int, bool, bool>, std::unique_ptr<FontFace>> faces_;
};

}  // namespace aurel
