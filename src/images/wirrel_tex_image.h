#pragma once
// One image of the document: its picture, the mask of connected regions that detection labels, the
// pixels from before a colour key was turned into alpha, the key, the file it came from, and per texture
// the marks the texture view shows. Images are shared by pointer, so that a command that removes one can
// put the very same object back on undo.

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "base/dual_string.h"
#include "bitmap/image_surface.h"

namespace kovra {

// One unsigned cell a pixel: 0 empty, a small positive number the label of a connected region.
struct TexMask {
    std::uint32_t stride = 0;  // bytes a row: width times four
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<std::uint32_t> cells;  // replaced at each detection
    std::uint32_t spare = 0;           // stays 0

    std::uint32_t At(int x, int y) const { return cells[static_cast<std::size_t>(y) * width + x]; }
    // As At, but 0 outside the mask, also before any detection has made cells.
    std::uint32_t CellAt(int x, int y) const {
        const bool inside = x >= 0 && y >= 0 && static_cast<std::uint32_t>(x) < width &&
                            static_cast<std::uint32_t>(y) < height &&
                            cells.size() == static_cast<std::size_t>(width) * height;
        return inside ? At(x, y) : 0;
    }
};

// A mark of a texture: where a region reaching into it starts, relative to its rectangle.
using TexMark = std::pair<float, float>;

class WirrelTexImage {
public:
    WirrelTexImage() = default;
    explicit WirrelTexImage(aurel::DualString sourcePath, std::uint32_t key = 0)
        : path(std::move(sourcePath)), colorKey(key) {}

    aurel::ImageSurface surface;  // the pixels as drawn and packed
    TexMask mask;
    aurel::DualString path;       // absolute in memory
    aurel::ImageSurface unkeyed;  // the pixels before a colour key became alpha; else empty
    std::uint32_t colorKey = 0;   // 0xRRGGBB of the converted key, 0 for none
    std::map<std::int32_t, std::vector<TexMark>> marks;  // by texture index

    // The library's result code, 0 for success, 35 when the file can't be opened. The surface is empty
    // after any failure.
    int Load(const aurel::DualString& file);
    // An image stored inside a document; the surface is empty after a failure.
    bool LoadMemory(const void* data, std::size_t size);
    // The format follows from the file name's extension.
    bool Save(const aurel::DualString& file) const;
    // PNG into the buffer; the bytes written, 0 on failure (a buffer too small included).
    std::uint32_t SaveMemory(void* buffer, std::uint32_t size) const;

    // Recomputes the marks of texture `index`, whose rectangle lies on this image.
    void UpdateMarks(std::int32_t index, int x, int y, int width, int height);
    void EraseMarks(std::int32_t index) { marks.erase(index); }
    void ClearMarks() { marks.clear(); }
};

}  // namespace kovra
