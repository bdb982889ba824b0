#pragma once
// The span shaders behind textured quads and blits. A span is a run of destination pixels on one row; each
// takes the source pixel at (u >> 16, v >> 16), the 16.16 coordinates growing by du and dv per pixel, and
// blends it in one of four ways. The main loop works on 16-byte-aligned groups of four pixels with SSE2,
// after a scalar prologue that reaches the alignment and before a scalar tail; the bytes written are the
// same as the scalar form's.

#include <cstdint>

#include "bitmap/bitmap.h"

namespace aurel {

enum class SpanShader {
    Plain,    // source over destination, the destination's alpha kept (BlendKeepAlpha)
    Opacity,  // source over destination at an opacity multiplier (BlendOpacity)
    Tint,     // colour moved toward a tint where the source has alpha (BlendTint)
    Mask,     // a flag word written where the source has alpha (BlendMask)
};

struct ShadeArgs {
    SpanShader shader = SpanShader::Plain;
    int mul = 256;           // the opacity multiplier, 0 to 256
    std::uint32_t word = 0;  // the tint or the flag
};

// Where a span's samples come from, in 16.16 fixed point. The caller makes sure that every sample of the
// span lies inside the source.
struct SpanSamples {
    const std::uint32_t* bits;
    int rowSpan;
    std::uint32_t u, v, du, dv;
};

void ShadeSpan(std::uint32_t* pixels, int count, SpanSamples samples, const ShadeArgs& args);
// The same, one pixel at a time: the form the vector loop must match.
void ShadeSpanScalar(std::uint32_t* pixels, int count, SpanSamples& samples, const ShadeArgs& args);

// Shades `count` pixels of a destination row from x on, with samples starting at the float source
// coordinates (u, v) and growing by (du, dv). Only the pixels whose samples fall inside the source are
// drawn; 16.16 fixed point limits the source to its first 32767 rows and columns.
void DrawSpan(std::uint32_t* row, int x, int count, const IBitmap& source, float u, float v, float du,
              float dv, const ShadeArgs& args);

}  // namespace aurel
