#include "gui/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

#include <cstring>

namespace kestrel2::win {

bool ClipboardHasImage() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasImage();
}

bool GetClipboardImage(aurel::ImageSurface& out) {
    const QImage image = QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_ARGB32);
    if (image.isNull()) {
        return false;
    }
    out.Resize(image.width(), image.height());
    for (int y = 0; y < image.height(); ++y) {
        std::memcpy(out.Row(y), image.constScanLine(y), static_cast<std::size_t>(image.width()) * 4);
    }
    return true;
}

}  // namespace kestrel2::win
