#pragma once
// A framed picture: the list background, a border, and a shared image inside, centred and scaled to fit
// the frame. In the shrink mode a picture smaller than the frame keeps its size.

#include <memory>

#include "gui/i_gui_custom_control.h"

namespace kestrel2::win {

enum class PreviewScale { Fit, Shrink };

class GuiPreview : public IGuiCustomControl {
public:
    // The picture shown, or null for an empty frame.
    void SetImage(std::shared_ptr<const aurel::ImageSurface> image);
    const std::shared_ptr<const aurel::ImageSurface>& Image() const { return image_; }
    void SetScaleMode(PreviewScale mode);

    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(InputEvent&) override {}

private:
    std::shared_ptr<const aurel::ImageSurface> image_;
    PreviewScale mode_ = PreviewScale::Fit;
};

// Where a picture of the size lands in a frame of the size: centred, scaled to fit and keeping its
// proportions; in the shrink mode never enlarged. x, y, width, height.
struct PreviewPlace {
    int x = 0, y = 0, width = 0, height = 0;
    bool operator==(const PreviewPlace&) const = default;
};
PreviewPlace PlacePreview(int imageWidth, int imageHeight, int frameWidth, int frameHeight,
                          PreviewScale mode);

}  // namespace kestrel2::win
