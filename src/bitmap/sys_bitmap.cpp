#include "bitmap/sys_bitmap.h"

#include <algorithm>

namespace aurel {

SysBitmap::SysBitmap(int width, int height) : context_(std::make_unique<DeviceContext>()) {
    resize(width, height);
}

std::uint32_t* SysBitmap::getBits() const {
    return reinterpret_cast<std::uint32_t*>(section_.Bits());
}

bool SysBitmap::resize(int width, int height) {
    width = std::max(width, 0);
    height = std::max(height, 0);
    if (width == width_ && height == height_) {
        return false;
    }
    width_ = width;
    height_ = height;
    if (width != 0 && height != 0 && width <= allocatedWidth_ && height <= allocatedHeight_ && getBits()) {
        return true;
    }
    const std::int64_t roundedWidth = (std::int64_t{width} + 3) & ~std::int64_t{3};
    section_.Destroy();
    context_->Select({});
    allocatedWidth_ = allocatedHeight_ = 0;
    if (roundedWidth == 0 || height == 0) {
        return false;
    }
    if (!section_.Create(roundedWidth * 4, height)) {
        width_ = height_ = 0;
        return true;
    }
    allocatedWidth_ = static_cast<int>(roundedWidth);
    allocatedHeight_ = height;
    context_->Select({getBits(), allocatedWidth_, allocatedHeight_, allocatedWidth_});
    return true;
}

}  // namespace aurel
