#pragma once
// A device-independent bitmap with its pixels: a bitmap information header, the pixel block and the drawing
// context it is selected into. Rows run top-down; a row is ((depth * width) / 8 + 3) with the two low bits
// cleared bytes long. The header keeps the height negated, as a top-down bitmap's header does.

#include <cstdint>
#include <memory>
#include <vector>

#include "bitmap/device_context.h"
#include "bitmap/dib_section.h"

namespace aurel {

struct DibHeader {
    std::int32_t size = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint16_t planes = 0;
    std::uint16_t bitCount = 0;
    std::uint32_t compression = 0;
    // One entry per colour at depths up to 8 bits; the pixels the program draws never use it.
    std::vector<std::uint32_t> palette;
};

class DibSurface {
public:
    DibSurface() = default;
    DibSurface(const DibSurface&) = delete;
    DibSurface& operator=(const DibSurface&) = delete;
    DibSurface(DibSurface&& other) noexcept;
    DibSurface& operator=(DibSurface&& other) noexcept;
    virtual ~DibSurface() = default;

    // Makes fresh zeroed pixels of the size and depth; does nothing when they are already so. A width or
    // height of 0 leaves an empty surface. Throws KestrelWindowsException when the context or the pixels
    // can't be made, leaving the surface without pixels.
    void Create(int width, int height, int depth);

    const DibHeader& Header() const { return header_; }
    int SectionWidth() const { return header_.width; }
    int SectionHeight() const { return header_.height < 0 ? -header_.height : header_.height; }
    int Depth() const { return header_.bitCount; }
    // Bytes from one row to the next.
    int Stride() const { return ((Depth() * SectionWidth()) / 8 + 3) & ~3; }
    std::byte* Bits() const { return section_.Bits(); }
    DeviceContext* Context() const { return context_.get(); }

protected:
    // A deep copy of the other's header and pixels.
    void CopyFrom(const DibSurface& other);

private:
    void Destroy();

    DibHeader header_;
    DibSection section_;
    std::unique_ptr<DeviceContext> context_;
};

}  // namespace aurel
