#pragma once
// The bitmap interface that every drawing routine works on: 32-bit pixels (the word 0xAARRGGBB, in memory
// blue, green, red, alpha) in rows that lie a row span apart. WrapperBitmap is the cheap, non-owning form
// that a surface builds on the stack around its own pixels for each drawing call.

#include <cstdint>

namespace aurel {

class DeviceContext;

class IBitmap {
public:
    virtual ~IBitmap() = default;

    virtual std::uint32_t* getBits() const = 0;
    virtual int getWidth() const = 0;
    virtual int getHeight() const = 0;
    // Distance between the starts of two rows, in pixels.
    virtual int getRowSpan() const = 0;
    // True when rows are stored bottom-up.
    virtual bool isFlipped() const { return false; }
    // Returns true when the size changed.
    virtual bool resize(int width, int height) = 0;
    virtual DeviceContext* getDC() const { return nullptr; }

    std::uint32_t* Row(int y) const { return getBits() + static_cast<std::ptrdiff_t>(y) * getRowSpan(); }
    bool IsEmpty() const { return getWidth() <= 0 || getHeight() <= 0 || !getBits(); }
};

class WrapperBitmap final : public IBitmap {
public:
    WrapperBitmap() = default;
    WrapperBitmap(std::uint32_t* bits, int width, int height, int rowSpan, bool flipped = false)
        : bits_(bits), width_(width), height_(height), rowSpan_(rowSpan), flipped_(flipped) {}

    std::uint32_t* getBits() const override { return bits_; }
    int getWidth() const override { return width_; }
    int getHeight() const override { return height_; }
    int getRowSpan() const override { return rowSpan_; }
    bool isFlipped() const override { return flipped_; }
    bool resize(int, int) override { return false; }

private:
    std::uint32_t* bits_ = nullptr;
    int width_ = 0;
    int height_ = 0;
    int rowSpan_ = 0;
    bool flipped_ = false;
};

}  // namespace aurel
