#include "views/texture/texture_paint.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "views/texture/texture_geometry.h"

namespace kovra {
namespace {

// The outline of every texture but the current one.
constexpr aurel::Color32 kOtherOutline = 0xFFFFFFFF;
constexpr aurel::Color32 kMarkOuter = 0xFF000000;
constexpr aurel::Color32 kMarkInner = 0xFFFFFFFF;
// Where the mask has a region the overlay tints the picture.
constexpr aurel::Color32 kMaskTint = 0x80FF00FF;

// Client pixels of far-off things stay within what an int holds; such pixels are clipped anyway.
constexpr float kFarPixel = 1e9f;

int Floor(float value) {
    return static_cast<int>(std::floor(std::clamp(value, -kFarPixel, kFarPixel)));
}

int Round(float value) {
    return static_cast<int>(std::lround(std::clamp(value, -kFarPixel, kFarPixel)));
}

aurel::TextFont FontOf(const aurel::FontInfo& info, int height, float ratio) {
    return aurel::TextFont{.face = info.face,
                           .size = static_cast<int>(std::lround(static_cast<float>(height) * ratio)),
                           .bold = info.bold,
                           .italic = info.italic,
                           .underline = info.underline};
}

// A filled box whose outline lies on its left and top edge and one pixel past its right and bottom: so it
// covers exactly the hit rectangle, edges included. `push` moves the far edges on.
void Box(aurel::ImageSurface& target, const TexHitRect& r, int push, aurel::Color32 fill,
         aurel::Color32 outline) {
    const int left = Floor(r.left);
    const int top = Floor(r.top);
    const int right = Floor(r.right) + push - 1;
    const int bottom = Floor(r.bottom) + push - 1;
    target.FillRect(left, top, right, bottom, fill);
    target.DrawRect(left, top, right, bottom, outline);
}

// Squares of two colours anchored to the client, so that the backing stays still under a moving image.
void PaintBacking(aurel::ImageSurface& target, int left, int top, int right, int bottom,
                  const TextureTheme& theme) {
    left = std::max(left, 0);
    top = std::max(top, 0);
    right = std::min(right, target.Width());
    bottom = std::min(bottom, target.Height());
    const int square = theme.square;
    for (int y = top / square * square; y < bottom; y += square) {
        for (int x = left / square * square; x < right; x += square) {
            const bool odd = ((x / square + y / square) & 1) != 0;
            target.FillRect(std::max(x, left), std::max(y, top), std::min(x + square, right) - 1,
                            std::min(y + square, bottom) - 1, odd ? theme.gridColor1 : theme.gridColor2);
        }
    }
}

void PaintMask(aurel::ImageSurface& target, const WirrelTexImage& image, int left, int top, int width,
               int height) {
    const TexMask& mask = image.mask;
    if (mask.cells.size() != static_cast<std::size_t>(mask.width) * mask.height || mask.cells.empty()) {
        return;
    }
    aurel::ImageSurface overlay;
    overlay.Resize(static_cast<int>(mask.width), static_cast<int>(mask.height));
    for (int y = 0; y < overlay.Height(); ++y) {
        std::uint32_t* row = overlay.Row(y);
        for (int x = 0; x < overlay.Width(); ++x) {
            row[x] = mask.At(x, y) != 0 ? kMaskTint.argb : 0u;
        }
    }
    overlay.Blit(0.0f, 0.0f, static_cast<float>(overlay.Width()), static_cast<float>(overlay.Height()),
                 target, left, top, width, height, 1.0f, true);
}

void PaintMarks(aurel::ImageSurface& target, const WirrelDoc& document, const TextureViewState& state,
                const WirrelTexImage& image, const TextureTheme& theme) {
    const ScreenMapping m = ScreenMapping::Of(state.view);
    const auto& textures = document.Wirrel().textures;
    for (const auto& [index, marks] : image.marks) {
        if (index < 0 || index >= static_cast<int>(textures.size()) ||
            textures[index].imageIndex != state.imageIndex) {
            continue;
        }
        for (const TexMark& mark : marks) {
            const float x = m.PixelX(static_cast<float>(textures[index].x) + mark.first);
            const float y = m.PixelY(static_cast<float>(textures[index].y) + mark.second);
            target.FillCircle(x, y, theme.markOuter, kMarkOuter);
            target.FillCircle(x, y, theme.markInner, kMarkInner);
        }
    }
}

void PaintRectangles(aurel::ImageSurface& target, const SelectionTracker& selection,
                     const TextureViewState& state, const TextureTheme& theme) {
    const float scale = state.view.zoom * static_cast<float>(state.view.clientWidth) / state.view.viewWidth;
    const int push = scale > 1.0f ? 1 : 0;
    const auto& rects = state.hitRects;
    for (std::size_t i = kHitOthers; i < rects.size(); ++i) {
        if (rects[i].IsNone()) {
            continue;
        }
        const bool hot = RectToTexture(static_cast<int>(i), selection.currentItem) == selection.hotItem;
        Box(target, rects[i], push, hot ? theme.hotColor : aurel::Color32(0u), kOtherOutline);
    }
    if (rects[kHitBody].IsNone()) {
        return;
    }
    const bool currentHot = selection.hotItem == selection.currentItem;
    const bool bodyHot = currentHot && selection.hotPart == kHitBody;
    Box(target, rects[kHitBody], push, bodyHot ? theme.selHotColor : theme.selColor, theme.selOutline);
    for (int grip = 0; grip < kHitBody; ++grip) {
        const bool gripHot = currentHot && selection.hotPart == grip;
        Box(target, rects[grip], 0, gripHot ? theme.gripHotColor : theme.gripColor, theme.gripOutline);
    }
}

void PaintRubberBand(aurel::ImageSurface& target, const TextureViewState& state, const TextureTheme& theme,
                     int width, int height) {
    const float scale = state.view.zoom * static_cast<float>(state.view.clientWidth) / state.view.viewWidth;
    const TexRect r =
        ScreenToImageRect(state.view, state.mouseX, state.mouseY, state.pressX, state.pressY, width, height);
    const TexHitRect box =
        ScreenRectOf(state.view, WirrelTexture{-1, r.left, r.top, r.right - r.left, r.bottom - r.top});
    Box(target, box, scale > 1.0f ? 1 : 0, theme.newColor, theme.newOutline);
}

void PaintNoSource(aurel::ImageSurface& target, const WirrelDoc& document, const TextureTheme& theme) {
    std::string text = "No texture source has been loaded yet.";
    if (!document.Wirrel().textures.empty()) {
        const auto first = document.Image(0);
        text = "Unable to find texture source \"" + (first ? first->path.Utf8() : std::string()) + "\".";
    }
    const int height = Floor(40.0f * theme.ratio);
    aurel::TextStyle centred;
    centred.horizontal = aurel::TextAlign::Centre;
    centred.vertical = aurel::TextAlign::Centre;
    target.DrawText(text, 0, target.Height() / 2 - height, target.Width(), height, theme.infoTextColor,
                    theme.messageFont, centred);
}

// Translucent fills leave their alpha in the frame; the screen must show the frame as it is, with nothing
// of an earlier one showing through.
void MakeOpaque(aurel::ImageSurface& target) {
    for (int y = 0; y < target.Height(); ++y) {
        std::uint32_t* row = target.Row(y);
        for (int x = 0; x < target.Width(); ++x) {
            row[x] |= 0xFF000000u;
        }
    }
}

void PaintMousePixel(aurel::ImageSurface& target, const TextureViewState& state, const TextureTheme& theme) {
    const int x = static_cast<int>(WorldX(state.view, static_cast<float>(state.mouseX)));
    const int y = static_cast<int>(WorldY(state.view, static_cast<float>(state.mouseY)));
    const auto r = [&theme](int size) { return Floor(static_cast<float>(size) * theme.ratio); };
    target.DrawText(std::to_string(x) + ", " + std::to_string(y), r(15), target.Height() - r(25), r(200),
                    r(20), theme.infoTextColor, theme.infoFont);
}

}  // namespace

TextureTheme TextureThemeOf(const aurel::Theme& theme, float pixelRatio) {
    const aurel::ThemeWorkspace& w = theme.workspace;
    const auto scaled = [pixelRatio](float size) { return size * pixelRatio; };
    return TextureTheme{.border = theme.timeline.microBorder,
                        .gridColor1 = w.texGridColor1,
                        .gridColor2 = w.texGridColor2,
                        .newColor = w.texNewColor,
                        .newOutline = w.texNewOutline,
                        .hotColor = w.texHotColor,
                        .selColor = w.texSelColor,
                        .selHotColor = w.texSelHotColor,
                        .selOutline = w.texSelOutline,
                        .gripColor = w.texGripColor,
                        .gripHotColor = w.texGripHotColor,
                        .gripOutline = w.texGripOutline,
                        .infoTextColor = w.infoTextColor,
                        .infoFont = FontOf(w.infoTextFont, w.infoTextFont.height, pixelRatio),
                        .messageFont = FontOf(w.infoTextFont, 11, pixelRatio),
                        .gripSize = static_cast<int>(std::lround(scaled(9.0f))),
                        .square = static_cast<int>(std::lround(scaled(32.0f))),
                        .markOuter = scaled(10.0f),
                        .markInner = scaled(3.0f),
                        .ratio = pixelRatio};
}

void PaintTextureView(aurel::ImageSurface& target, const WirrelDoc& document,
                      const SelectionTracker& selection, TextureViewState& state, const TextureTheme& theme,
                      TexturePaintOptions options) {
    target.Clear(theme.border);
    const auto image = document.Image(state.imageIndex);
    if (!image || image->surface.IsEmpty()) {
        state.hitRects.assign(kHitOthers, TexHitRect{});
        if (options.texts) {
            PaintNoSource(target, document, theme);
        }
        return;
    }
    RebuildHitRects(state, document, selection, theme.gripSize);

    const int width = image->surface.Width();
    const int height = image->surface.Height();
    const TexHitRect area = ScreenRectOf(state.view, WirrelTexture{-1, 0, 0, width, height});
    const int left = Round(area.left);
    const int top = Round(area.top);
    const int right = Round(area.right);
    const int bottom = Round(area.bottom);
    PaintBacking(target, left, top, right, bottom, theme);
    image->surface.Blit(0.0f, 0.0f, static_cast<float>(width), static_cast<float>(height), target, left, top,
                        right - left, bottom - top, 1.0f, true);

    if (state.showMask) {
        PaintMask(target, *image, left, top, right - left, bottom - top);
    }
    if (state.showMarks) {
        PaintMarks(target, document, state, *image, theme);
    }
    PaintRectangles(target, selection, state, theme);
    if (state.rubberBand) {
        PaintRubberBand(target, state, theme, width, height);
    }
    if (options.texts) {
        PaintMousePixel(target, state, theme);
    }
    MakeOpaque(target);
}

}  // namespace kovra
