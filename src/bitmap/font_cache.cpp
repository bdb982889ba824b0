#include "bitmap/font_cache.h"

#include FT_SYNTHESIS_H

#include <algorithm>
#include <cstring>

namespace aurel {

namespace {

struct PatternDestroy {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternDestroy>;

const FcChar8* Text(const char* s) {
    return reinterpret_cast<const FcChar8*>(s);
}

}  // namespace

FontFace::FontFace(FT_Face face, bool embolden, bool slant)
    : face_(face), embolden_(embolden), slant_(slant) {}

const Glyph& FontFace::GetGlyph(char32_t code) {
    const auto found = glyphs_.find(code);
    if (found != glyphs_.end()) {
        return found->second;
    }
    Glyph& glyph = glyphs_[code];
    FT_GlyphSlot slot = face_->glyph;
    if (FT_Load_Char(face_.get(), code, FT_LOAD_DEFAULT) != 0) {
        return glyph;
    }
    if (embolden_) {
        FT_GlyphSlot_Embolden(slot);
    }
    if (slant_) {
        FT_GlyphSlot_Oblique(slot);
    }
    glyph.advance = static_cast<int>((slot->advance.x + 32) >> 6);
    if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0 || slot->bitmap.pitch < 0) {
        return glyph;
    }
    const FT_Bitmap& bitmap = slot->bitmap;
    glyph.left = slot->bitmap_left;
    glyph.top = slot->bitmap_top;
    glyph.width = static_cast<int>(bitmap.width);
    glyph.rows = static_cast<int>(bitmap.rows);
    glyph.coverage.resize(static_cast<std::size_t>(glyph.width) * glyph.rows);
    for (int row = 0; row < glyph.rows; ++row) {
        std::memcpy(&glyph.coverage[static_cast<std::size_t>(row) * glyph.width],
                    bitmap.buffer + row * bitmap.pitch, glyph.width);
    }
    return glyph;
}

int FontFace::Ascent() const {
    return static_cast<int>(face_->size->metrics.ascender >> 6);
}

int FontFace::LineHeight() const {
    return static_cast<int>((face_->size->metrics.ascender - face_->size->metrics.descender) >> 6);
}

int FontFace::UnderlineOffset() const {
    return static_cast<int>(-FT_MulFix(face_->underline_position, face_->size->metrics.y_scale) >> 6);
}

int FontFace::UnderlineThickness() const {
    const FT_Long thickness = FT_MulFix(face_->underline_thickness, face_->size->metrics.y_scale);
    return std::max(1, static_cast<int>((thickness + 32) >> 6));
}

FontCache& FontCache::Instance() {
    static FontCache cache;
    return cache;
}

FontCache::FontCache() {
    if (FT_Init_FreeType(&library_) != 0) {
        library_ = nullptr;
    }
    config_ = FcInitLoadConfigAndFonts();
}

FontCache::~FontCache() {
    faces_.clear();
    if (library_) {
        FT_Done_FreeType(library_);
    }
    if (config_) {
        FcConfigDestroy(config_);
    }
}

FontFace* FontCache::Find(const TextFont& font) {
    auto key = std::make_tuple(font.face, font.size, font.bold, font.italic);
    auto found = faces_.find(key);
    if (found == faces_.end()) {
        found = faces_.emplace(std::move(key), Open(font)).first;
    }
    return found->second.get();
}

std::unique_ptr<FontFace> FontCache::Open(const TextFont& font) {
    if (!library_ || !config_ || font.size <= 0) {
        return nullptr;
    }
    // The family asked for, then the system's sans-serif for a face it lacks.
    Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, Text(font.face.c_str()));
    FcPatternAddString(pattern.get(), FC_FAMILY, Text("sans-serif"));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, font.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern.get(), FC_SLANT, font.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(config_, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(config_, pattern.get(), &result));
    FcChar8* file = nullptr;
    if (!match || FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch) {
        return nullptr;
    }
    int index = 0, weight = FC_WEIGHT_REGULAR, slant = FC_SLANT_ROMAN;
    FcPatternGetInteger(match.get(), FC_INDEX, 0, &index);
    FcPatternGetInteger(match.get(), FC_WEIGHT, 0, &weight);
    FcPatternGetInteger(match.get(), FC_SLANT, 0, &slant);

    FT_Face face = nullptr;
    if (FT_New_Face(library_, reinterpret_cast<const char*>(file), index, &face) != 0) {
        return nullptr;
    }
    auto opened = std::make_unique<FontFace>(face, font.bold && weight < FC_WEIGHT_DEMIBOLD,
                                             font.italic && slant == FC_SLANT_ROMAN);
    // The size is the line's height, ascent plus descent, as the toolkit's fonts are measured.
    FT_Size_RequestRec request{FT_SIZE_REQUEST_TYPE_REAL_DIM, 0, font.size * 64, 0, 0};
    if (FT_Request_Size(face, &request) != 0) {
        return nullptr;
    }
    return opened;
}

}  // namespace aurel
