#include "views/nav/gui_sub_panel_skin.h"

#include <algorithm>

#include "gui/gui_preview.h"
#include "settings/lang.h"
#include "settings/theme.h"

namespace kovra {

using kestrel2::win::InputEvent;

GuiSubPanelSkin::GuiSubPanelSkin(WirrelDoc& document, SelectionTracker& textureSelection,
                                 SelectionTracker& imageSelection)
    : document_(document), textureSelection_(textureSelection), imageSelection_(imageSelection) {}

std::vector<int> GuiSubPanelSkin::PaletteTextures() const {
    std::vector<int> found;
    const auto& textures = document_.Wirrel().textures;
    for (std::size_t i = 0; i < textures.size(); ++i) {
        if (textures[i].imageIndex == imageSelection_.currentItem) {
            found.push_back(static_cast<int>(i));
        }
    }
    return found;
}

int GuiSubPanelSkin::TextureAt(int x, int y) const {
    const int left = Scaled(10);
    if (x < left || x >= ClientWidth() - Scaled(28) || y < Scaled(kPaletteTop) ||
        y >= Scaled(PaletteBottom())) {
        return -1;
    }
    const int cell = std::max(1, Scaled(CellSize()));
    const int column = (x - left) / cell;
    const int row = (y - Scaled(kPaletteTop) + scroll_) / cell;
    const std::vector<int> textures = PaletteTextures();
    const std::size_t index = static_cast<std::size_t>(row * 3 + column);
    return column < 3 && index < textures.size() ? textures[index] : -1;
}

void GuiSubPanelSkin::OnInput(InputEvent& event) {
    GuiSubPanel::OnInput(event);
    if (collapsed) {
        return;
    }
    switch (event.type) {
        case kestrel2::win::kInputButtonDown:
            if (event.button == kestrel2::win::kButtonLeft) {
                const int texture = TextureAt(event.x, event.y);
                if (texture >= 0) {
                    textureSelection_.SetCurrent(texture, 0);
                    dragTexture_ = texture;
                    Redraw();
                }
            }
            break;
        case kestrel2::win::kInputMouseMove:
            if (event.dragging && dragTexture_ >= 0) {
                offerListeners.Call(dragTexture_);
            }
            break;
        case kestrel2::win::kInputButtonUp:
            if (event.button == kestrel2::win::kButtonLeft && dragTexture_ >= 0) {
                const int texture = dragTexture_;
                dragTexture_ = -1;
                const bool inside =
                    event.x >= 0 && event.y >= 0 && event.x < ClientWidth() && event.y < ClientHeight();
                offerListeners.Call(-1);
                if (!inside) {
                    dropListeners.Call(texture, event.x, event.y);
                }
            }
            break;
        case kestrel2::win::kInputWheel: {
            const int rows = (static_cast<int>(PaletteTextures().size()) + 2) / 3;
            const int cell = Scaled(CellSize());
            const int limit = std::max(0, rows * cell - Scaled(PaletteBottom() - kPaletteTop));
            const int scroll = std::clamp(scroll_ + (event.dy > 0 ? cell : -cell), 0, limit);
            if (scroll != scroll_) {
                scroll_ = scroll;
                Redraw();
            }
            break;
        }
        default:
            break;
    }
}

void GuiSubPanelSkin::PaintMessage(aurel::ImageSurface& target, const std::string& first,
                                   const std::string& second) {
    aurel::TextFont face = font.ToTextFont();
    face.size = Scaled(font.size);
    aurel::TextStyle style;
    style.horizontal = aurel::TextAlign::Centre;
    style.vertical = aurel::TextAlign::Centre;
    style.wordBreak = true;
    const std::string text = second.empty() ? first : first + "\n" + second;
    target.DrawText(text, Scaled(10), Scaled(kPaletteTop), ClientWidth() - Scaled(38),
                    Scaled(PaletteBottom() - kPaletteTop), aurel::CurrentTheme().ui.labelFontColor, face,
                    style);
}

void GuiSubPanelSkin::OnPaintBody(aurel::ImageSurface& target) {
    const aurel::ThemeUi& ui = aurel::CurrentTheme().ui;
    const int image = imageSelection_.currentItem;
    const auto picture = image >= 0 ? document_.Image(image) : nullptr;
    const int top = Scaled(kPaletteTop);
    const int bottom = Scaled(PaletteBottom());
    target.FillRect(Scaled(10) - 1, top - 1, ClientWidth() - Scaled(28), bottom, ui.listBg);
    target.DrawRect(Scaled(10) - 1, top - 1, ClientWidth() - Scaled(28), bottom, ui.listBorder);
    if (image < 0) {
        return;
    }
    if (!picture || picture->surface.IsEmpty()) {
        PaintMessage(target, aurel::Lang("MESSAGES", "TxMissLine1").Utf8(),
                     aurel::Lang("MESSAGES", "TxMissLine2").Utf8());
        return;
    }
    const std::vector<int> textures = PaletteTextures();
    if (textures.empty()) {
        PaintMessage(target, aurel::Lang("MESSAGES", "TxNone").Utf8(), "");
        return;
    }
    const int cell = Scaled(CellSize());
    const int inset = Scaled(2);
    for (std::size_t i = 0; i < textures.size(); ++i) {
        const int cx = Scaled(10) + static_cast<int>(i % 3) * cell;
        const int cy = top + static_cast<int>(i / 3) * cell - scroll_;
        if (cy + cell <= top || cy >= bottom) {
            continue;
        }
        const WirrelTexture& texture = document_.Wirrel().textures[static_cast<std::size_t>(textures[i])];
        if (textures[i] == textureSelection_.currentItem) {
            target.FillRect(cx, std::max(cy, top), cx + cell - 1, std::min(cy + cell - 1, bottom - 1),
                            ui.listSel);
        }
        const auto place = kestrel2::win::PlacePreview(texture.width, texture.height, cell - 2 * inset,
                                                       cell - 2 * inset, kestrel2::win::PreviewScale::Shrink);
        const int dy = cy + inset + place.y;
        // Rows of a thumbnail scrolled past the palette's edges are cut off.
        const int shownTop = std::max(dy, top);
        const int shownBottom = std::min(dy + place.height, bottom);
        if (place.width <= 0 || shownBottom <= shownTop) {
            continue;
        }
        const float rowScale = static_cast<float>(texture.height) / static_cast<float>(place.height);
        picture->surface.Blit(
            static_cast<float>(texture.x),
            static_cast<float>(texture.y) + static_cast<float>(shownTop - dy) * rowScale,
            static_cast<float>(texture.width), static_cast<float>(shownBottom - shownTop) * rowScale, target,
            cx + inset + place.x, shownTop, place.width, shownBottom - shownTop, 1.0f, false);
    }
}

}  // namespace kovra
