#include "gui/gui_preview.h"

#include <algorithm>
#include <cmath>

#include "settings/theme.h"

namespace kestrel2::win {

PreviewPlace PlacePreview(int imageWidth, int imageHeight, int frameWidth, int frameHeight,
                          PreviewScale mode) {
    if (imageWidth <= 0 || imageHeight <= 0 || frameWidth <= 0 || frameHeight <= 0) {
        return {};
    }
    double scale = std::min(static_cast<double>(frameWidth) / imageWidth,
                            static_cast<double>(frameHeight) / imageHeight);
    if (mode == PreviewScale::Shrink) {
        scale = std::min(scale, 1.0);
    }
    const int w = std::max(1, static_cast<int>(std::lround(imageWidth * scale)));
    const int h = std::max(1, static_cast<int>(std::lround(imageHeight * scale)));
    return PreviewPlace{(frameWidth - w) / 2, (frameHeight - h) / 2, w, h};
}

void GuiPreview::SetImage(std::shared_ptr<const aurel::ImageSurface> image) {
    image_ = std::move(image);
    Redraw();
}

void GuiPreview::SetScaleMode(PreviewScale mode) {
    mode_ = mode;
    Redraw();
}

void GuiPreview::OnPaint(aurel::ImageSurface& target) {
    const aurel::ThemeUi& ui = aurel::CurrentTheme().ui;
    const int w = target.Width();
    const int h = target.Height();
    target.Clear(ui.listBg);
    target.DrawRect(0, 0, w - 2, h - 2, ui.listBorder);
    if (!image_ || image_->IsEmpty()) {
        return;
    }
    const int border = Scaled(2);
    const PreviewPlace place =
        PlacePreview(image_->Width(), image_->Height(), w - 2 * border, h - 2 * border, mode_);
    image_->Blit(0.0f, 0.0f, static_cast<float>(image_->Width()), static_cast<float>(image_->Height()),
                 target, border + place.x, border + place.y, place.width, place.height, 1.0f, false);
}

}  // namespace kestrel2::win
