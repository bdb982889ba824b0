#pragma once
// Text drawn into a bitmap by the platform font engine: FreeType, with faces found through fontconfig.
// Faces the system lacks, such as "Segoe UI" or "Arial", resolve to its best sans-serif face.

#include <string>
#include <string_view>

#include "base/color32.h"
#include "bitmap/device_context.h"

namespace aurel {

struct TextFont {
    std::string face = "Segoe UI";
    int size = 12;  // the height of a line, ascent plus descent, in pixels
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

// Where text sits along one axis of its box: at the near edge (left or top), the far edge (right or
// bottom) or the centre.
enum class TextAlign { Near = 0, Far = 1, Centre = 2 };

struct TextStyle {
    TextAlign horizontal = TextAlign::Near;
    TextAlign vertical = TextAlign::Near;
    // Breaks lines between words to fit the box's width; line feeds always break.
    bool wordBreak = false;
    // A band of outlineColor, outlineWidth pixels wide, round the letters and under them; the band's alpha
    // is its opacity.
    bool outline = false;
    Color32 outlineColor;
    int outlineWidth = 1;
};

// Draws UTF-8 text into the box (x, y, width, height) of the bitmap selected into the context, clipped to
// the box. Letters take the colour bytes of `colour` by their coverage, as the font engine draws them;
// afterwards every pixel of the box gets the colour's alpha byte, its colour bytes untouched.
void DrawText(DeviceContext& context, std::string_view text, int x, int y, int width, int height,
              Color32 colour, const TextFont& font, const TextStyle& style);

}  // namespace aurel
