#pragma once
// One image of the document: its picture and the file it came from. Images are shared by pointer, so
// that a command that removes one can put the very same object back on undo.

#include <cstdint>

#include "base/dual_string.h"
#include "bitmap/image_surface.h"

namespace kovra {

class WirrelTexImage {
public:
    WirrelTexImage() = default;
    explicit WirrelTexImage(aurel::DualString sourcePath, std::uint32_t key = 0)
        : path(std::move(sourcePath)), colorKey(key) {}

    aurel::DualString path;      // absolute in memory
    std::uint32_t colorKey = 0;  // saved in the document beside the path
    aurel::ImageSurface surface;  // the pixels as drawn
};

}  // namespace kovra
