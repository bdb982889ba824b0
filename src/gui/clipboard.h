#pragma once
// The system clipboard's picture, for pasting an image into the document.

#include "bitmap/image_surface.h"

namespace kestrel2::win {

bool ClipboardHasImage();
// Copies the clipboard's picture into `out`, 32 bits with its alpha; false when there is none.
bool GetClipboardImage(aurel::ImageSurface& out);

}  // namespace kestrel2::win
