#include "gui/text_drawer.h"

namespace kestrel2::win {

void TextDrawer::DrawText(std::string_view text, int x, int y, int width, int height, const Font& font) {
    const aurel::TextStyle style{horizontal, vertical, wordBreak, outline, outlineColor, outlineWidth};
    target_.DrawText(text, x, y, width, height, color, font.ToTextFont(), style);
}

}  // namespace kestrel2::win
