#pragma once
// The span shaders behind textured quads and blits. A span is a run of destination pixels on one row; each
// takes the source pixel at (u >> 16, v >> 16), the 16.16 coordinates growing by du and dv per pixel, and
// blends it in one of four ways. The main loop works on 16-byte-aligned groups of four pixels with SSE2;
// the pixels before the first aligned group and after the last one are shaded as one group of four too,
// its missing lanes left out when the pixels are written back. The bytes written are the same as the
// scalar form's. A span may also write a flag word into a second row wherever its samples have alpha, so
// that a picture and its pick buffer are drawn from one pass over the samples.

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

// The second row of a span: `pixels` (null for none) take `flag` wherever the sample's alpha is not 0.
struct MaskRow {
    std::uint32_t* pixels = nullptr;
    std::uint32_t flag = 0;
};

// A source bitmap's pixels as the spans read them, fetched from the bitmap once for many spans.
struct SpanSource {
    const std::uint32_t* bits = nullptr;
    int width = 0;
    int height = 0;
    int rowSpan = 0;

    static SpanSource Of(const IBitmap& bitmap);
};

void ShadeSpan(std::uint32_t* pixels, int count, SpanSamples samples, const ShadeArgs& args,
               MaskRow mask = {});
// The same, one pixel at a time: the form the vector loop must match.
void ShadeSpanScalar(std::uint32_t* pixels, int count, SpanSamples& samples, const ShadeArgs& args);

// Shades `count` pixels of a destination row from x on, with samples starting at the float source
// coordinates (u, v) and growing by (du, dv). Only the pixels whose samples fall inside the source are
// drawn; 16.16 fixed point limits the source to its first 32767 rows and columns. The mask row, when
// given, is the start of the second target's row: its pixels from x on go with the span's.
void DrawSpan(std::uint32_t* row, int x, int count, const SpanSource& source, float u, float v, float du,
              float dv, const ShadeArgs& args, MaskRow mask = {});
void DrawSpan(std::uint32_t* row, int x, int count, const IBitmap& source, float u, float v, float du,
              float dv, const ShadeArgs& args);

}  // namespace aurel
