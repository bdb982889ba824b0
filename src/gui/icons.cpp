#include "gui/icons.h"

#include <QIcon>
#include <QImage>
#include <QPixmap>

namespace kestrel2::win {

namespace {

QPixmap ToPixmap(const aurel::ImageSurface& picture, double ratio) {
    const aurel::SurfaceView view = picture.View();
    const QImage image(reinterpret_cast<const uchar*>(view.bits), view.width, view.height, view.stride,
                       QImage::Format_ARGB32);
    QPixmap pixmap = QPixmap::fromImage(image.copy());
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

}  // namespace

QIcon MakeIcon(const aurel::ImageSurface& picture, const aurel::ImageSurface& checked, double ratio) {
    QIcon icon;
    if (!picture.IsEmpty()) {
        icon.addPixmap(ToPixmap(picture, ratio), QIcon::Normal, QIcon::Off);
    }
    if (!checked.IsEmpty()) {
        icon.addPixmap(ToPixmap(checked, ratio), QIcon::Normal, QIcon::On);
    }
    return icon;
}

}  // namespace kestrel2::win
