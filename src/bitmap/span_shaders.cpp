#include "bitmap/span_shaders.h"

#include <emmintrin.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "bitmap/blend.h"

namespace aurel {

namespace {

std::uint32_t Next(SpanSamples& s) {
    const std::uint32_t pixel =
        s.bits[static_cast<std::ptrdiff_t>(s.v >> 16) * s.rowSpan + static_cast<std::ptrdiff_t>(s.u >> 16)];
    s.u += s.du;
    s.v += s.dv;
    return pixel;
}

template <SpanShader kShader>
std::uint32_t ShadePixel(std::uint32_t dst, std::uint32_t src, const ShadeArgs& args) {
    if constexpr (kShader == SpanShader::Plain) {
        return BlendKeepAlpha(dst, src);
    } else if constexpr (kShader == SpanShader::Opacity) {
        return BlendOpacity(dst, src, args.mul);
    } else if constexpr (kShader == SpanShader::Tint) {
        return BlendTint(dst, src, args.word);
    } else {
        return BlendMask(dst, src, args.word);
    }
}

template <SpanShader kShader>
void ScalarRun(std::uint32_t* pixels, int count, SpanSamples& samples, const ShadeArgs& args) {
    for (int i = 0; i < count; ++i) {
        pixels[i] = ShadePixel<kShader>(pixels[i], Next(samples), args);
    }
}

// How the samples of a span move: anywhere, along one source row, or along a row one texel per pixel.
enum class Walk { Free, AlongRow, Straight };

// The next four samples. Each lane's coordinates are worked out from the span's on their own, so that
// the four reads don't wait for one another; in 32-bit arithmetic they are the same as four steps.
template <Walk kWalk>
[[gnu::always_inline]] inline __m128i NextFour(SpanSamples& s) {
    const std::uint32_t u = s.u, du = s.du;
    s.u = u + 4 * du;
    if constexpr (kWalk == Walk::Straight) {
        const std::uint32_t* at = s.bits + static_cast<std::ptrdiff_t>(s.v >> 16) * s.rowSpan + (u >> 16);
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    } else if constexpr (kWalk == Walk::AlongRow) {
        const std::uint32_t* row = s.bits + static_cast<std::ptrdiff_t>(s.v >> 16) * s.rowSpan;
        return _mm_set_epi32(static_cast<int>(row[(u + 3 * du) >> 16]),
                             static_cast<int>(row[(u + 2 * du) >> 16]), static_cast<int>(row[(u + du) >> 16]),
                             static_cast<int>(row[u >> 16]));
    } else {
        const std::uint32_t v = s.v, dv = s.dv;
        s.v = v + 4 * dv;
        const auto at = [&s](std::uint32_t pu, std::uint32_t pv) {
            return static_cast<int>(s.bits[static_cast<std::ptrdiff_t>(pv >> 16) * s.rowSpan +
                                           static_cast<std::ptrdiff_t>(pu >> 16)]);
        };
        return _mm_set_epi32(at(u + 3 * du, v + 3 * dv), at(u + 2 * du, v + 2 * dv), at(u + du, v + dv),
                             at(u, v));
    }
}

// The constants of one span, made once.
struct Vectors {
    __m128i mul;         // the opacity multiplier in each 32-bit lane
    __m128i word;        // the tint or flag in each lane
    __m128i tintM;       // tint alpha + 1 in each lane
    __m128i alphaLanes;  // the 16-bit lanes that hold alpha bytes after widening
    __m128i alphaM;      // the alpha lanes' multiplier: mul for Opacity, else 0 (alpha kept)
    __m128i alphaBytes;  // 0xFF000000 in each lane
    __m128i maskFlag;    // the mask row's flag in each lane
};

// Per-pixel multipliers in 32-bit lanes, spread over the four 16-bit channel lanes of each pixel: pixels
// 0 and 1 in `lo`, 2 and 3 in `hi`. The alpha lanes take the alpha multiplier instead.
void Spread(__m128i m32, const Vectors& k, __m128i& lo, __m128i& hi) {
    const __m128i m16 = _mm_packs_epi32(m32, m32);
    const __m128i pairs = _mm_unpacklo_epi16(m16, m16);
    lo = _mm_or_si128(_mm_andnot_si128(k.alphaLanes, _mm_unpacklo_epi32(pairs, pairs)), k.alphaM);
    hi = _mm_or_si128(_mm_andnot_si128(k.alphaLanes, _mm_unpackhi_epi32(pairs, pairs)), k.alphaM);
}

// (old * (256 - m) + target * m) >> 8 in 16-bit lanes, which equals old + ((target - old) * m >> 8) with
// an arithmetic shift; every term stays below 65536.
__m128i Mix16(__m128i old, __m128i target, __m128i m) {
    const __m128i rest = _mm_sub_epi16(_mm_set1_epi16(256), m);
    return _mm_srli_epi16(_mm_add_epi16(_mm_mullo_epi16(old, rest), _mm_mullo_epi16(target, m)), 8);
}

__m128i Mix(__m128i dst, __m128i target, __m128i m32, const Vectors& k) {
    __m128i mLo, mHi;
    Spread(m32, k, mLo, mHi);
    const __m128i zero = _mm_setzero_si128();
    const __m128i lo = Mix16(_mm_unpacklo_epi8(dst, zero), _mm_unpacklo_epi8(target, zero), mLo);
    const __m128i hi = Mix16(_mm_unpackhi_epi8(dst, zero), _mm_unpackhi_epi8(target, zero), mHi);
    return _mm_packus_epi16(lo, hi);
}

// `flag` where the source's alpha is not 0, `dst` elsewhere.
__m128i Flag(__m128i dst, __m128i src, __m128i flag) {
    const __m128i clear = _mm_cmpeq_epi32(_mm_srli_epi32(src, 24), _mm_setzero_si128());
    return _mm_or_si128(_mm_and_si128(clear, dst), _mm_andnot_si128(clear, flag));
}

template <SpanShader kShader>
__m128i ShadeFour(__m128i dst, __m128i src, const Vectors& k) {
    const __m128i alpha = _mm_srli_epi32(src, 24);
    if constexpr (kShader == SpanShader::Plain) {
        // Four opaque pixels simply replace the colour bytes.
        const __m128i opaque = _mm_cmpeq_epi32(_mm_and_si128(src, k.alphaBytes), k.alphaBytes);
        if (_mm_movemask_epi8(opaque) == 0xFFFF) {
            return _mm_or_si128(_mm_andnot_si128(k.alphaBytes, src), _mm_and_si128(k.alphaBytes, dst));
        }
        return Mix(dst, src, _mm_add_epi32(alpha, _mm_set1_epi32(1)), k);
    } else if constexpr (kShader == SpanShader::Opacity) {
        // (alpha + 1) * mul fits 32 bits; madd multiplies the low 16-bit halves, the high ones being 0.
        const __m128i m = _mm_srli_epi32(_mm_madd_epi16(_mm_add_epi32(alpha, _mm_set1_epi32(1)), k.mul), 8);
        return Mix(dst, src, m, k);
    } else if constexpr (kShader == SpanShader::Tint) {
        const __m128i clear = _mm_cmpeq_epi32(alpha, _mm_setzero_si128());
        return Mix(dst, k.word, _mm_andnot_si128(clear, k.tintM), k);
    } else {
        return Flag(dst, src, k.word);
    }
}

template <SpanShader kShader, bool kMasked, Walk kWalk>
int VectorLoop(std::uint32_t* pixels, std::uint32_t* mask, int count, SpanSamples& samples,
               const Vectors& k) {
    SpanSamples s = samples;
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        auto* group = reinterpret_cast<__m128i*>(pixels + i);
        const __m128i src = NextFour<kWalk>(s);
        _mm_store_si128(group, ShadeFour<kShader>(_mm_load_si128(group), src, k));
        if constexpr (kMasked) {
            auto* flags = reinterpret_cast<__m128i*>(mask + i);
            _mm_storeu_si128(flags, Flag(_mm_loadu_si128(flags), src, k.maskFlag));
        }
    }
    samples = s;
    return i;
}

// Fewer than four pixels, shaded as one group: the missing lanes sample the first pixel's texel and are
// not written back.
template <SpanShader kShader, bool kMasked>
void PartialGroup(std::uint32_t* pixels, std::uint32_t* mask, int count, SpanSamples& samples,
                  const Vectors& k) {
    alignas(16) std::uint32_t dst[4] = {}, src[4] = {}, flags[4] = {};
    for (int i = 0; i < count; ++i) {
        dst[i] = pixels[i];
        src[i] = Next(samples);
        if constexpr (kMasked) {
            flags[i] = mask[i];
        }
    }
    for (int i = count; i < 4; ++i) {
        src[i] = src[0];
    }
    const __m128i in = _mm_load_si128(reinterpret_cast<const __m128i*>(src));
    const auto out = [](std::uint32_t* lanes, __m128i value) {
        _mm_store_si128(reinterpret_cast<__m128i*>(lanes), value);
    };
    out(dst, ShadeFour<kShader>(_mm_load_si128(reinterpret_cast<const __m128i*>(dst)), in, k));
    if constexpr (kMasked) {
        out(flags, Flag(_mm_load_si128(reinterpret_cast<const __m128i*>(flags)), in, k.maskFlag));
    }
    for (int i = 0; i < count; ++i) {
        pixels[i] = dst[i];
        if constexpr (kMasked) {
            mask[i] = flags[i];
        }
    }
}

template <SpanShader kShader, bool kMasked>
void VectorRun(std::uint32_t* pixels, int count, SpanSamples& samples, const ShadeArgs& args, MaskRow mask) {
    const Vectors k{
        _mm_set1_epi32(args.mul),
        _mm_set1_epi32(static_cast<int>(args.word)),
        _mm_set1_epi32(static_cast<int>(args.word >> 24) + 1),
        _mm_set_epi16(-1, 0, 0, 0, -1, 0, 0, 0),
        kShader == SpanShader::Opacity ? _mm_set_epi16(args.mul, 0, 0, 0, args.mul, 0, 0, 0)
                                       : _mm_setzero_si128(),
        _mm_set1_epi32(static_cast<int>(0xFF000000u)),
        _mm_set1_epi32(static_cast<int>(mask.flag)),
    };
    const auto maskAt = [&mask](int i) { return kMasked ? mask.pixels + i : nullptr; };
    int i = 0;
    while (i < count && reinterpret_cast<std::uintptr_t>(pixels + i) % 16 != 0) {
        ++i;
    }
    // Pixels that are not 4-byte aligned never reach an aligned group: all of them go one group at a time.
    for (int done = 0; done < i; done += 4) {
        PartialGroup<kShader, kMasked>(pixels + done, maskAt(done), std::min(i - done, 4), samples, k);
    }
    if (samples.dv != 0) {
        i += VectorLoop<kShader, kMasked, Walk::Free>(pixels + i, maskAt(i), count - i, samples, k);
    } else if (samples.du == 0x10000) {
        i += VectorLoop<kShader, kMasked, Walk::Straight>(pixels + i, maskAt(i), count - i, samples, k);
    } else {
        i += VectorLoop<kShader, kMasked, Walk::AlongRow>(pixels + i, maskAt(i), count - i, samples, k);
    }
    if (i < count) {
        PartialGroup<kShader, kMasked>(pixels + i, maskAt(i), count - i, samples, k);
    }
}

template <SpanShader kShader>
void Shade(std::uint32_t* pixels, int count, SpanSamples& samples, const ShadeArgs& args, MaskRow mask) {
    if (mask.pixels != nullptr) {
        VectorRun<kShader, true>(pixels, count, samples, args, mask);
    } else {
        VectorRun<kShader, false>(pixels, count, samples, args, mask);
    }
}

// The pixels i of [first, last] with 0 <= start + i * step < limit; first passes last when there are none.
void KeepInside(std::int64_t start, std::int64_t step, std::int64_t limit, std::int64_t& first,
                std::int64_t& last) {
    auto floorDiv = [](std::int64_t a, std::int64_t b) {
        const std::int64_t q = a / b;
        return (a % b != 0 && (a < 0) != (b < 0)) ? q - 1 : q;
    };
    auto ceilDiv = [&](std::int64_t a, std::int64_t b) { return -floorDiv(-a, b); };
    if (step == 0) {
        if (start < 0 || start >= limit) {
            last = first - 1;
        }
        return;
    }
    if (step > 0) {
        first = std::max(first, ceilDiv(-start, step));
        last = std::min(last, floorDiv(limit - 1 - start, step));
    } else {
        first = std::max(first, ceilDiv(limit - 1 - start, step));
        last = std::min(last, floorDiv(-start, step));
    }
}

bool FitsFixedPoint(float value) {
    return std::fabs(value) < 32768.0f;
}

}  // namespace

void ShadeSpanScalar(std::uint32_t* pixels, int count, SpanSamples& samples, const ShadeArgs& args) {
    switch (args.shader) {
        case SpanShader::Plain:
            return ScalarRun<SpanShader::Plain>(pixels, count, samples, args);
        case SpanShader::Opacity:
            return ScalarRun<SpanShader::Opacity>(pixels, count, samples, args);
        case SpanShader::Tint:
            return ScalarRun<SpanShader::Tint>(pixels, count, samples, args);
        case SpanShader::Mask:
            return ScalarRun<SpanShader::Mask>(pixels, count, samples, args);
    }
}

void ShadeSpan(std::uint32_t* pixels, int count, SpanSamples samples, const ShadeArgs& args, MaskRow mask) {
    switch (args.shader) {
        case SpanShader::Plain:
            return Shade<SpanShader::Plain>(pixels, count, samples, args, mask);
        case SpanShader::Opacity:
            return Shade<SpanShader::Opacity>(pixels, count, samples, args, mask);
        case SpanShader::Tint:
            return Shade<SpanShader::Tint>(pixels, count, samples, args, mask);
        case SpanShader::Mask:
            return Shade<SpanShader::Mask>(pixels, count, samples, args, mask);
    }
}

SpanSource SpanSource::Of(const IBitmap& bitmap) {
    if (bitmap.IsEmpty()) {
        return {};
    }
    return {bitmap.getBits(), bitmap.getWidth(), bitmap.getHeight(), bitmap.getRowSpan()};
}

void DrawSpan(std::uint32_t* row, int x, int count, const SpanSource& source, float u, float v, float du,
              float dv, const ShadeArgs& args, MaskRow mask) {
    if (count <= 0 || source.bits == nullptr) {
        return;
    }
    if (count == 1) {
        du = dv = 0;
    }
    const float lastU = u + du * static_cast<float>(count - 1);
    const float lastV = v + dv * static_cast<float>(count - 1);
    if (!(FitsFixedPoint(u) && FitsFixedPoint(v) && FitsFixedPoint(lastU) && FitsFixedPoint(lastV))) {
        return;
    }
    const auto fixedU = static_cast<std::int64_t>(u * 65536.0f);
    const auto fixedV = static_cast<std::int64_t>(v * 65536.0f);
    const auto stepU = static_cast<std::int64_t>(du * 65536.0f);
    const auto stepV = static_cast<std::int64_t>(dv * 65536.0f);
    const std::int64_t limitU = std::int64_t{std::min(source.width, 32767)} << 16;
    const std::int64_t limitV = std::int64_t{std::min(source.height, 32767)} << 16;
    std::int64_t first = 0, last = count - 1;
    // Samples step evenly, so when the first and the last lie inside the source all of them do.
    const auto inside = [last](std::int64_t start, std::int64_t step, std::int64_t limit) {
        const std::int64_t end = start + last * step;
        return start >= 0 && start < limit && end >= 0 && end < limit;
    };
    if (!inside(fixedU, stepU, limitU) || !inside(fixedV, stepV, limitV)) {
        KeepInside(fixedU, stepU, limitU, first, last);
        KeepInside(fixedV, stepV, limitV, first, last);
        if (first > last) {
            return;
        }
    }
    const bool single = first == last;
    const SpanSamples samples{source.bits,
                              source.rowSpan,
                              static_cast<std::uint32_t>(fixedU + first * stepU),
                              static_cast<std::uint32_t>(fixedV + first * stepV),
                              single ? 0u : static_cast<std::uint32_t>(stepU),
                              single ? 0u : static_cast<std::uint32_t>(stepV)};
    if (mask.pixels != nullptr) {
        mask.pixels += x + first;
    }
    ShadeSpan(row + x + first, static_cast<int>(last - first + 1), samples, args, mask);
}

void DrawSpan(std::uint32_t* row, int x, int count, const IBitmap& source, float u, float v, float du,
              float dv, const ShadeArgs& args) {
    DrawSpan(row, x, count, SpanSource::Of(source), u, v, du, dv, args);
}

}  // namespace aurel
