#pragma once
// The texture view's frame: the chequered backing and the image on show, the overlays of marks and
// mask, every texture of the image as a rectangle, the current one with its eight grips, the rubber
// band of a new texture and the mouse's pixel. Painting lays out the hit rectangles first and draws
// exactly those.

#include "base/color32.h"
#include "bitmap/image_surface.h"
#include "bitmap/text.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "settings/theme_table.h"
#include "views/texture/texture_view_state.h"

namespace kovra {

// The colours, sizes and fonts of the texture view, sizes in client pixels.
struct TextureTheme {
    aurel::Color32 border;  // the backdrop: the micro timeline's border colour
    aurel::Color32 gridColor1;
    aurel::Color32 gridColor2;
    aurel::Color32 newColor;
    aurel::Color32 newOutline;
    aurel::Color32 hotColor;
    aurel::Color32 selColor;
    aurel::Color32 selHotColor;
    aurel::Color32 selOutline;
    aurel::Color32 gripColor;
    aurel::Color32 gripHotColor;
    aurel::Color32 gripOutline;
    aurel::Color32 infoTextColor;
    aurel::TextFont infoFont;     // the mouse's pixel
    aurel::TextFont messageFont;  // the text shown in place of a missing image
    int gripSize = 9;
    int square = 32;  // the backing's squares
    float markOuter = 10.0f;
    float markInner = 3.0f;
    float ratio = 1.0f;
};

// The texture view's values of a theme; sizes grow with the screen's pixel ratio.
TextureTheme TextureThemeOf(const aurel::Theme& theme, float pixelRatio = 1.0f);

// What a frame shows besides the picture; tests leave the texts out, which depend on the machine's fonts.
struct TexturePaintOptions {
    bool texts = true;
};

// Paints the frame into `target`, whose size is the client's, and rebuilds state.hitRects.
void PaintTextureView(aurel::ImageSurface& target, const WirrelDoc& document,
                      const SelectionTracker& selection, TextureViewState& state, const TextureTheme& theme,
                      TexturePaintOptions options = {});

}  // namespace kovra
