#pragma once
// A bitmap with a drawing context of its own, for targets that are resized often (the pick buffer of the
// workspace, for one). Its memory only ever grows: a smaller size keeps the block and its row span. The
// allocated width is rounded up to a multiple of 4 pixels.

#include <memory>

#include "bitmap/bitmap.h"
#include "bitmap/device_context.h"
#include "bitmap/dib_section.h"

namespace aurel {

class SysBitmap final : public IBitmap {
public:
    SysBitmap(int width, int height);

    std::uint32_t* getBits() const override;
    int getWidth() const override { return width_; }
    int getHeight() const override { return height_; }
    int getRowSpan() const override { return allocatedWidth_; }
    bool resize(int width, int height) override;
    DeviceContext* getDC() const override { return context_.get(); }

private:
    int width_ = 0;
    int height_ = 0;
    std::unique_ptr<DeviceContext> context_;
    DibSection section_;
    int allocatedWidth_ = 0;
    int allocatedHeight_ = 0;
};

}  // namespace aurel
