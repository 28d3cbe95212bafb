#pragma once
// Row converters of IxConvertUtil, one source file per tile format, and the pieces they share.
// Internal to the library.
//
// A converter with a block path runs in three stages: pixels one at a time by the per-pixel rule
// until both addresses lie on a 16-byte boundary (never, when their steps cannot meet one), then
// whole blocks by the block rule, then the rest one at a time again.

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/ixPixel.h>

#include <emmintrin.h>

#include <cstdint>
#include <cstring>

namespace Orn {
namespace IxConvertImp {

using Rgba = CoRgbaColorTyped<float>;
using Uchar = unsigned char;

inline bool isAligned16(void const* p) { return (reinterpret_cast<std::uintptr_t>(p) & 15u) == 0; }
inline std::uintptr_t addressOf(void const* p) { return reinterpret_cast<std::uintptr_t>(p); }

// Runs the three stages over n pixels. Dst and Src are the pixel types, so that ++ steps one
// pixel; one(dst, src) converts a pixel, blocks(dst, src, count) a multiple of B pixels.
template <unsigned B, class Dst, class Src, class One, class Blocks>
inline void convertInStages(Dst* dst, Src* src, unsigned n, One one, Blocks blocks) {
  while (n && !(isAligned16(dst) && isAligned16(src))) {
    one(*dst++, *src++);
    --n;
  }
  unsigned const nbBlockPixels = n - n % B;
  if (nbBlockPixels) {
    blocks(dst, src, nbBlockPixels);
    dst += nbBlockPixels;
    src += nbBlockPixels;
    n -= nbBlockPixels;
  }
  while (n--) one(*dst++, *src++);
}

// Rows of three-component pixels, whatever the depth: an RGB tile has no alpha, so a colour line
// gets alpha 1 and the alpha is dropped on the way back. B and the block converters are the depth's.
template <unsigned B, class Pixel, class Blocks>
inline void readRgbRow(Rgba* dst, Uchar const* src, unsigned n, Blocks blocks) {
  convertInStages<B>(
      dst, reinterpret_cast<Pixel const*>(src), n,
      [](Rgba& d, Pixel const& s) { d = Rgba(s[0].get(), s[1].get(), s[2].get(), 1.f); }, blocks);
}

template <unsigned B, class Pixel, class Blocks>
inline void writeRgbRow(Uchar* dst, Rgba const* src, unsigned n, Blocks blocks) {
  convertInStages<B>(
      reinterpret_cast<Pixel*>(dst), src, n,
      [](Pixel& d, Rgba const& s) {
        d[0].set(s.r);
        d[1].set(s.g);
        d[2].set(s.b);
      },
      blocks);
}

// The alpha line of an RGB tile: 1 everywhere, without looking at the tile.
inline void readOpaqueAlpha(float* dst, unsigned n) {
  for (unsigned i = 0; i < n; ++i) dst[i] = 1.f;
}

// Whether the processor has AVX2 and F16C, for the paths that choose them at run time and give
// the same bits as the SSE2 ones.
inline bool hasAvx2F16c() {
  static bool const supported = [] {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("f16c");
  }();
  return supported;
}

// Half block stores produce float denormals on the way (see blockToHalf8). Turns flush-to-zero off for the thread,
// writing MXCSR only when it was on, and leaves it off.
inline void clearFlushToZero() {
  unsigned const csr = _mm_getcsr();
  if (csr & _MM_FLUSH_ZERO_ON) _mm_setcsr(csr & ~unsigned(_MM_FLUSH_ZERO_ON));
}

// Vector forms of the rules, four lanes at a time.

inline __m128 splat(float v) { return _mm_set1_ps(v); }
inline __m128i splat32(std::uint32_t v) { return _mm_set1_epi32(int(v)); }

// Bytes (zero-extended in 32-bit lanes) to floats: byte times the float with bits 0x3B808081.
inline __m128 uint8ToFloat4(__m128i bytes32) { return _mm_mul_ps(_mm_cvtepi32_ps(bytes32), splat(0.003921569f)); }

// The first four bytes of a register, zero-extended to 32-bit lanes.
inline __m128i widenBytes4(__m128i bytes) {
  __m128i const zero = _mm_setzero_si128();
  return _mm_unpacklo_epi16(_mm_unpacklo_epi8(bytes, zero), zero);
}

// The 8-bit block rule up to the 32-bit integer: min(v * 255, 255) (NaN gives 255), converted by
// the current rounding mode.
inline __m128i blockToInt32x4(__m128 v) {
  return _mm_cvtps_epi32(_mm_min_ps(_mm_mul_ps(v, splat(255.f)), splat(255.f)));
}

// Sixteen 8-bit results from four registers of 32-bit integers: saturated to 16 bits, then to
// 0..255.
inline __m128i packToUInt8x16(__m128i a, __m128i b, __m128i c, __m128i d) {
  return _mm_packus_epi16(_mm_packs_epi32(a, b), _mm_packs_epi32(c, d));
}

// Halves (zero-extended in 32-bit lanes) to floats, bit for bit as Half::toFloat.
inline __m128 halfToFloat4(__m128i h) {
  __m128i const m = _mm_and_si128(h, splat32(0x7FFFu));
  __m128i const e = _mm_add_epi32(_mm_slli_epi32(m, 13), splat32(0x38000000u));
  __m128i const normal = _mm_cmpgt_epi32(e, splat32(0x387FFFFFu));
  __m128i const denormal = _mm_castps_si128(_mm_mul_ps(_mm_cvtepi32_ps(m), splat(5.9604645e-8f)));
  __m128i const magnitude = _mm_or_si128(_mm_and_si128(normal, e), _mm_andnot_si128(normal, denormal));
  __m128i const sign = _mm_slli_epi32(_mm_and_si128(h, splat32(0x8000u)), 16);
  return _mm_castsi128_ps(_mm_or_si128(magnitude, sign));
}

// Eight halves to eight floats (lo: the first four, hi: the last four), bit for bit as
// Half::toFloat. A block without a denormal half (magnitude 1 to 1023) takes the short way in
// 16-bit lanes: the high word of a float is the magnitude shifted right 3 plus 0x3800 (zero
// kept) with the sign, the low word the magnitude shifted left 13. Others take halfToFloat4.
inline void halfToFloat8(__m128i h, __m128& lo, __m128& hi) {
  __m128i const zero = _mm_setzero_si128();
  __m128i const m = _mm_and_si128(h, _mm_set1_epi16(0x7FFF));
  __m128i const nonZero = _mm_cmpgt_epi16(m, zero);
  if (_mm_movemask_epi8(_mm_and_si128(nonZero, _mm_cmplt_epi16(m, _mm_set1_epi16(0x400))))) {
    lo = halfToFloat4(_mm_unpacklo_epi16(h, zero));
    hi = halfToFloat4(_mm_unpackhi_epi16(h, zero));
    return;
  }
  __m128i high = _mm_and_si128(nonZero, _mm_add_epi16(_mm_srli_epi16(m, 3), _mm_set1_epi16(0x3800)));
  high = _mm_or_si128(high, _mm_and_si128(h, _mm_set1_epi16(short(0x8000))));
  __m128i const low = _mm_slli_epi16(m, 13);
  lo = _mm_castsi128_ps(_mm_unpacklo_epi16(low, high));
  hi = _mm_castsi128_ps(_mm_unpackhi_epi16(low, high));
}

// The half block rule on eight floats, packed into eight halves. Needs flush-to-zero off.
inline __m128i blockToHalf8(__m128 lo, __m128 hi) {
  __m128 const limit = _mm_castsi128_ps(splat32(0x477FFFFFu));
  __m128 const rebase = _mm_castsi128_ps(splat32(0x07800000u));
  auto const magnitude = [&](__m128 f) {
    __m128i const t = _mm_and_si128(_mm_add_epi32(_mm_castps_si128(f), splat32(0x1000u)), splat32(0x7FFFFFFFu));
    __m128 const rebased = _mm_mul_ps(_mm_min_ps(_mm_castsi128_ps(t), limit), rebase);
    return _mm_srli_epi32(_mm_castps_si128(rebased), 13);
  };
  __m128i const bits = _mm_packs_epi32(magnitude(lo), magnitude(hi));
  __m128i const signs = _mm_packs_epi32(_mm_srai_epi32(_mm_castps_si128(lo), 31), _mm_srai_epi32(_mm_castps_si128(hi), 31));
  return _mm_or_si128(bits, _mm_and_si128(signs, _mm_set1_epi16(short(0x8000))));
}

// The alphas of four colours.
inline __m128 alphas4(__m128 p0, __m128 p1, __m128 p2, __m128 p3) {
  return _mm_movehl_ps(_mm_unpackhi_ps(p2, p3), _mm_unpackhi_ps(p0, p1));
}

// (0, 0, 0, lane i of v) for each of the four lanes: alpha values as colours.
inline void storeAlphasAsColors(Rgba* dst, __m128 v) {
  __m128 const alphaOnly = _mm_castsi128_ps(_mm_setr_epi32(0, 0, 0, -1));
  _mm_store_ps(&dst[0].r, _mm_and_ps(_mm_shuffle_ps(v, v, _MM_SHUFFLE(0, 0, 0, 0)), alphaOnly));
  _mm_store_ps(&dst[1].r, _mm_and_ps(_mm_shuffle_ps(v, v, _MM_SHUFFLE(1, 1, 1, 1)), alphaOnly));
  _mm_store_ps(&dst[2].r, _mm_and_ps(_mm_shuffle_ps(v, v, _MM_SHUFFLE(2, 2, 2, 2)), alphaOnly));
  _mm_store_ps(&dst[3].r, _mm_and_ps(_mm_shuffle_ps(v, v, _MM_SHUFFLE(3, 3, 3, 3)), alphaOnly));
}

// r, g, b of v with alpha 1.
inline __m128 withOpaqueAlpha(__m128 v) {
  __m128 const rgbOnly = _mm_castsi128_ps(_mm_setr_epi32(-1, -1, -1, 0));
  return _mm_or_ps(_mm_and_ps(v, rgbOnly), _mm_setr_ps(0.f, 0.f, 0.f, 1.f));
}

inline __m128 loadColor(Rgba const* p) { return _mm_load_ps(&p->r); }

// One-component 8-bit tiles.
void readA8(float* dst, Uchar const* src, unsigned n);
void readA8(Rgba* dst, Uchar const* src, unsigned n);
void writeA8(Uchar* dst, float const* src, unsigned n);
void writeA8(Uchar* dst, Rgba const* src, unsigned n);

// Three-component 8-bit tiles.
void readRGB8(float* dst, Uchar const* src, unsigned n);
void readRGB8(Rgba* dst, Uchar const* src, unsigned n);
void writeRGB8(Uchar* dst, Rgba const* src, unsigned n);

// Four-component 8-bit tiles: the block arithmetic for every pixel of a colour row.
void readRGBA8(float* dst, Uchar const* src, unsigned n);
void readRGBA8(Rgba* dst, Uchar const* src, unsigned n);
void writeRGBA8(Uchar* dst, Rgba const* src, unsigned n);

// One-component half tiles.
void readA16(float* dst, Uchar const* src, unsigned n);
void readA16(Rgba* dst, Uchar const* src, unsigned n);
void writeA16(Uchar* dst, float const* src, unsigned n);
void writeA16(Uchar* dst, Rgba const* src, unsigned n);

// Three-component half tiles.
void readRGB16(float* dst, Uchar const* src, unsigned n);
void readRGB16(Rgba* dst, Uchar const* src, unsigned n);
void writeRGB16(Uchar* dst, Rgba const* src, unsigned n);

// Four-component half tiles.
void readRGBA16(float* dst, Uchar const* src, unsigned n);
void readRGBA16(Rgba* dst, Uchar const* src, unsigned n);
void writeRGBA16(Uchar* dst, Rgba const* src, unsigned n);

// One-component float tiles.
void readA32(float* dst, Uchar const* src, unsigned n);
void readA32(Rgba* dst, Uchar const* src, unsigned n);
void writeA32(Uchar* dst, float const* src, unsigned n);
void writeA32(Uchar* dst, Rgba const* src, unsigned n);

// Three-component float tiles.
void readRGB32(float* dst, Uchar const* src, unsigned n);
void readRGB32(Rgba* dst, Uchar const* src, unsigned n);
void writeRGB32(Uchar* dst, Rgba const* src, unsigned n);

// Four-component float tiles: plain copies of 16-byte aligned rows.
void readRGBA32(float* dst, Uchar const* src, unsigned n);
void readRGBA32(Rgba* dst, Uchar const* src, unsigned n);
void writeRGBA32(Uchar* dst, Rgba const* src, unsigned n);

}  // namespace IxConvertImp
}  // namespace Orn
