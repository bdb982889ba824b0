#pragma once
// The arithmetic of blend mode 0, the one mode the program draws with. Channels are bytes held in ints; a
// multiplier k runs from 0 (leave the pixel) to 256 (take the new value). Right shifts of negative
// differences are arithmetic, and every result is stored to its byte without clamping.

#include <cstdint>

#include "base/color32.h"

namespace aurel {

// An opacity as a multiplier: times 256, truncated; opacities outside 0 to 1 are held to that range.
inline int OpacityMultiplier(float opacity) {
    if (!(opacity > 0.0f)) {
        return 0;
    }
    return opacity >= 1.0f ? 256 : static_cast<int>(opacity * 256.0f);
}

// The multiplier of a colour word: its alpha byte as an opacity. Alpha 255 gives 256, every other alpha
// gives itself.
inline int ColorMultiplier(Color32 colour) {
    return OpacityMultiplier(colour.A() * 0.003921569f);
}

namespace blend {

inline int Byte(std::uint32_t word, int shift) {
    return static_cast<int>(word >> shift & 0xFF);
}
inline std::uint32_t Place(int value, int shift) {
    return (static_cast<std::uint32_t>(value) & 0xFF) << shift;
}
inline std::uint32_t Half(std::uint32_t w) {
    return w >> 1 & 0x7F7F7F7F;
}
inline std::uint32_t Quarter(std::uint32_t w) {
    return w >> 2 & 0x3F3F3F3F;
}

// A byte moved toward a target by m / 256.
inline int Toward(int old, int target, int m) {
    return old + ((target - old) * m >> 8);
}

// The per-byte fill of an uncommon k: each byte goes to (old - c) * (256 - k) / 256 + c, where c is the
// colour's byte, and for the alpha byte k itself.
inline std::uint32_t FillBytes(std::uint32_t pixel, std::uint32_t colour, int k) {
    auto mix = [k](int old, int c) { return (old - c) * (256 - k) / 256 + c; };
    return Place(mix(Byte(pixel, 0), Byte(colour, 0)), 0) | Place(mix(Byte(pixel, 8), Byte(colour, 8)), 8) |
           Place(mix(Byte(pixel, 16), Byte(colour, 16)), 16) | Place(mix(Byte(pixel, 24), k), 24);
}

}  // namespace blend

// A pixel filled with a colour at multiplier k. The common multipliers work on whole words, all four bytes
// included: 256 replaces the pixel, 128, 64 and 192 mix halves and quarters.
inline std::uint32_t BlendColor(std::uint32_t pixel, std::uint32_t colour, int k) {
    using namespace blend;
    switch (k) {
        case 0:
            return pixel;
        case 256:
            return colour;
        case 128:
            return Half(pixel) + Half(colour);
        case 64:
            return Half(pixel) + Quarter(pixel) + Quarter(colour);
        case 192:
            return Quarter(pixel) + Quarter(colour) + Half(colour);
        default:
            return FillBytes(pixel, colour, k);
    }
}

// Fills `count` pixels with a colour at multiplier k, choosing the form once for the whole run.
void FillSpan(std::uint32_t* pixels, int count, std::uint32_t colour, int k);

// Source over destination, the destination's alpha kept: each colour byte moves by (source alpha + 1).
inline std::uint32_t BlendKeepAlpha(std::uint32_t dst, std::uint32_t src) {
    using namespace blend;
    const int m = Byte(src, 24) + 1;
    return (dst & 0xFF000000) | Place(Toward(Byte(dst, 0), Byte(src, 0), m), 0) |
           Place(Toward(Byte(dst, 8), Byte(src, 8), m), 8) |
           Place(Toward(Byte(dst, 16), Byte(src, 16), m), 16);
}

// Source over destination at an opacity multiplier: the colour bytes move by ((source alpha + 1) * mul)
// >> 8, the alpha byte by mul, so that at mul 256 the destination takes the source's alpha.
inline std::uint32_t BlendOpacity(std::uint32_t dst, std::uint32_t src, int mul) {
    using namespace blend;
    const int m = (Byte(src, 24) + 1) * mul >> 8;
    return Place(Toward(Byte(dst, 0), Byte(src, 0), m), 0) | Place(Toward(Byte(dst, 8), Byte(src, 8), m), 8) |
           Place(Toward(Byte(dst, 16), Byte(src, 16), m), 16) |
           Place(Toward(Byte(dst, 24), Byte(src, 24), mul), 24);
}

// Where the source has alpha, the colour bytes move toward the tint's by (tint alpha + 1); alpha is kept.
inline std::uint32_t BlendTint(std::uint32_t dst, std::uint32_t src, std::uint32_t tint) {
    using namespace blend;
    if ((src >> 24) == 0) {
        return dst;
    }
    const int m = Byte(tint, 24) + 1;
    return (dst & 0xFF000000) | Place(Toward(Byte(dst, 0), Byte(tint, 0), m), 0) |
           Place(Toward(Byte(dst, 8), Byte(tint, 8), m), 8) |
           Place(Toward(Byte(dst, 16), Byte(tint, 16), m), 16);
}

// Where the source has alpha, the destination becomes the flag word.
inline std::uint32_t BlendMask(std::uint32_t dst, std::uint32_t src, std::uint32_t flag) {
    return (src >> 24) == 0 ? dst : flag;
}

}  // namespace aurel
