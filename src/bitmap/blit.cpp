#include "bitmap/blit.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "bitmap/blend.h"
#include "bitmap/span_shaders.h"

namespace aurel {

namespace {

// Cuts the source interval from `start` over `length` (negative when read backwards) to [0, limit), moving
// the destination interval by the same share. False when the interval misses the source.
bool ClipSourceAxis(float& start, float& length, int& dstStart, int& dstLength, int limit) {
    const auto end = start + length;
    const auto size = static_cast<float>(limit);
    if ((start < 0 && end < 0) || (start >= size && end >= size)) {
        return false;
    }
    const float ratio = static_cast<float>(dstLength) / length;
    if (start < 0) {
        const auto cut = static_cast<int>(start * ratio);
        dstStart -= cut;
        dstLength += cut;
        length += start;
        start = 0;
    } else if (start >= size) {
        const float excess = start - size;
        const auto cut = static_cast<int>(excess * ratio);
        dstStart -= cut;
        dstLength += cut;
        length += excess;
        start = size - 0.0001f;
    }
    if (start + length < 0) {
        dstLength += static_cast<int>((start + length) * -ratio);
        length = -start;
    } else if (start + length > size) {
        dstLength -= static_cast<int>((start + length - size) * ratio);
        length = size - start;
    }
    return true;
}

}  // namespace

void Blit(const IBitmap& source, float sx, float sy, float sw, float sh, IBitmap& target, int dx, int dy,
          int dw, int dh, float opacity, bool keepAlpha) {
    const int mul = OpacityMultiplier(opacity);
    if (mul == 0 || source.IsEmpty() || target.IsEmpty()) {
        return;
    }
    if (!(std::fabs(sw) > 0.00001f && std::fabs(sh) > 0.00001f) || dw == 0 || dh == 0) {
        return;
    }
    const float stepX = sw / static_cast<float>(dw);
    const float stepY = sh / static_cast<float>(dh);
    const int width = target.getWidth();
    const int height = target.getHeight();
    if ((dx < 0 && dx + dw < 0) || (dx >= width && dx + dw >= width) || (dy < 0 && dy + dh < 0) ||
        (dy >= height && dy + dh >= height)) {
        return;
    }
    if (dw < 0) {
        sx += sw, sw = -sw;
        dx += dw, dw = -dw;
    }
    if (dh < 0) {
        sy += sh, sh = -sh;
        dy += dh, dh = -dh;
    }
    if (dx >= width || dy >= height || dx + dw <= 0 || dy + dh <= 0) {
        return;
    }
    if (dx < 0) {
        sx -= static_cast<float>(dx) * stepX;
        sw += static_cast<float>(dx) * stepX;
        dw += dx, dx = 0;
    }
    if (dy < 0) {
        sy -= static_cast<float>(dy) * stepY;
        sh += static_cast<float>(dy) * stepY;
        dh += dy, dy = 0;
    }
    if (dx + dw > width) {
        sw -= static_cast<float>(dx + dw - width) * stepX;
        dw = width - dx;
    }
    if (dy + dh > height) {
        sh -= static_cast<float>(dy + dh - height) * stepY;
        dh = height - dy;
    }
    if (!ClipSourceAxis(sx, sw, dx, dw, source.getWidth()) ||
        !ClipSourceAxis(sy, sh, dy, dh, source.getHeight()) || dh < 1 || dw < 1) {
        return;
    }
    const ShadeArgs args{opacity == 1.0f && keepAlpha ? SpanShader::Plain : SpanShader::Opacity, mul, 0};
    float rowY = sy;
    for (int j = 0; j < dh; ++j, rowY += stepY) {
        const auto sourceRow = static_cast<float>(static_cast<int>(rowY));
        DrawSpan(target.Row(dy + j), dx, dw, source, sx, sourceRow, stepX, 0.0f, args);
    }
}

void Halve(IBitmap& target, const IBitmap& source) {
    if (target.IsEmpty() || source.IsEmpty()) {
        return;
    }
    const int width = std::min(target.getWidth(), source.getWidth() / 2);
    const int height = std::min(target.getHeight(), source.getHeight() / 2);
    auto quarter = [](std::uint32_t w) { return w >> 2 & 0x3F3F3F3F; };
    for (int y = 0; y < height; ++y) {
        const std::uint32_t* upper = source.Row(2 * y);
        const std::uint32_t* lower = source.Row(2 * y + 1);
        std::uint32_t* out = target.Row(y);
        for (int x = 0; x < width; ++x) {
            out[x] = quarter(upper[2 * x]) + quarter(upper[2 * x + 1]) + quarter(lower[2 * x]) +
                     quarter(lower[2 * x + 1]);
        }
    }
}

}  // namespace aurel
