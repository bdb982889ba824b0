#pragma once
// A colour as the word 0xAARRGGBB: the pixel format of every surface and of theme colours. In memory the
// bytes are blue, green, red, alpha; alpha is straight, not premultiplied.

#include <cstdint>

namespace aurel {

struct Color32 {
    std::uint32_t argb = 0;

    constexpr Color32() = default;
    constexpr Color32(std::uint32_t word) : argb(word) {}
    constexpr Color32(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a = 255)
        : argb(std::uint32_t{a} << 24 | std::uint32_t{r} << 16 | std::uint32_t{g} << 8 | b) {}

    constexpr std::uint8_t A() const { return static_cast<std::uint8_t>(argb >> 24); }
    constexpr std::uint8_t R() const { return static_cast<std::uint8_t>(argb >> 16); }
    constexpr std::uint8_t G() const { return static_cast<std::uint8_t>(argb >> 8); }
    constexpr std::uint8_t B() const { return static_cast<std::uint8_t>(argb); }

    constexpr bool operator==(const Color32&) const = default;
};

}  // namespace aurel
