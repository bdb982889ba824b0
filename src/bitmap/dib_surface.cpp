#include "bitmap/dib_surface.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "base/kestrel_exception.h"

namespace aurel {

DibSurface::DibSurface(DibSurface&& other) noexcept
    : header_(std::exchange(other.header_, {})),
      section_(std::move(other.section_)),
      context_(std::move(other.context_)) {}

DibSurface& DibSurface::operator=(DibSurface&& other) noexcept {
    header_ = std::exchange(other.header_, {});
    section_ = std::move(other.section_);
    context_ = std::move(other.context_);
    return *this;
}

void DibSurface::Destroy() {
    section_.Destroy();
    context_.reset();
    header_ = {};
}

void DibSurface::Create(int width, int height, int depth) {
    height = std::abs(height);
    if (width == SectionWidth() && height == SectionHeight() && depth == Depth()) {
        return;
    }
    Destroy();
    if (width == 0 || height == 0) {
        return;
    }
    try {
        context_ = std::make_unique<DeviceContext>();
    } catch (const std::bad_alloc&) {
        throw KestrelWindowsException("Couldn't create DC for DIB in DibSurface::Create");
    }
    const std::int64_t rowBytes = (std::int64_t{depth} * width / 8 + 3) & ~std::int64_t{3};
    if (depth <= 0 || depth > 32 || !section_.Create(rowBytes, height)) {
        Destroy();
        throw KestrelWindowsException("Couldn't create BMP for DIB in DibSurface::Create");
    }
    header_.size = 40;
    header_.width = width;
    header_.height = -height;
    header_.planes = 1;
    header_.bitCount = static_cast<std::uint16_t>(depth);
    if (depth <= 8) {
        header_.palette.resize(std::size_t{1} << depth);
    }
    if (depth == 32) {
        context_->Select({reinterpret_cast<std::uint32_t*>(Bits()), width, height, Stride() / 4});
    }
}

void DibSurface::CopyFrom(const DibSurface& other) {
    if (&other == this) {
        return;
    }
    Create(other.SectionWidth(), other.SectionHeight(), other.Depth());
    header_ = other.header_;
    if (Bits()) {
        std::memcpy(Bits(), other.Bits(), static_cast<std::size_t>(Stride()) * SectionHeight());
    }
}

}  // namespace aurel
