#pragma once
// Draws text into a surface with the settings of the window layer: a colour, the alignment in the box
// along each axis, an optional outline band round the letters, and word breaking.

#include <string_view>

#include "base/color32.h"
#include "bitmap/image_surface.h"
#include "gui/font.h"

namespace kestrel2::win {

class TextDrawer {
public:
    explicit TextDrawer(aurel::ImageSurface& target) : target_(target) {}

    void DrawText(std::string_view text, int x, int y, int width, int height, const Font& font);

    aurel::Color32 color = 0xFF000000;
    aurel::TextAlign horizontal = aurel::TextAlign::Near;  // 0 left, 1 right, 2 centre
    aurel::TextAlign vertical = aurel::TextAlign::Near;    // 0 top, 1 bottom, 2 centre
    bool outline = false;
    aurel::Color32 outlineColor = 0xFF000000;
    int outlineWidth = 1;
    bool wordBreak = false;

private:
    aurel::ImageSurface& target_;
};

}  // namespace kestrel2::win
