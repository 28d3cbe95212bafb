// Conversions of four-component half tiles.

#include "ixConvertImp.h"

#include <immintrin.h>

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGBA16 = IxPixel<IxPixelCompFloat16, 4>;

// Groups of four pixels through the processor's own half conversion, which gives the same bits as
// Half::toFloat for zeros and normal halves. A group with a denormal or an exponent-31 half (which
// Half::toFloat reads as a number, not as an infinity or NaN) goes the SSE2 way. Returns the
// number of pixels done, a multiple of 4.
__attribute__((target("avx2,f16c"))) unsigned readGroupsF16c(Rgba* dst, PixelRGBA16 const* src, unsigned n) {
  __m256i const mask = _mm256_set1_epi16(0x7FFF);
  __m256i const lastDenormal = _mm256_set1_epi16(0x3FF);
  __m256i const lastFinite = _mm256_set1_epi16(0x7BFF);
  unsigned i = 0;
  for (; i + 4 <= n; i += 4) {
    __m256i const h = _mm256_loadu_si256(reinterpret_cast<__m256i const*>(src + i));
    __m256i const m = _mm256_and_si256(h, mask);
    __m256i const normal = _mm256_andnot_si256(_mm256_cmpgt_epi16(m, lastFinite), _mm256_cmpgt_epi16(m, lastDenormal));
    __m256i const usable = _mm256_or_si256(normal, _mm256_cmpeq_epi16(m, _mm256_setzero_si256()));
    if (_mm256_movemask_epi8(usable) == -1) {
      _mm256_storeu_ps(&dst[i].r, _mm256_cvtph_ps(_mm256_castsi256_si128(h)));
      _mm256_storeu_ps(&dst[i + 2].r, _mm256_cvtph_ps(_mm256_extracti128_si256(h, 1)));
    } else {
      for (unsigned k = 0; k < 4; k += 2) {
        __m128 lo, hi;
        halfToFloat8(_mm_load_si128(reinterpret_cast<__m128i const*>(src + i + k)), lo, hi);
        _mm_store_ps(&dst[i + k].r, lo);
        _mm_store_ps(&dst[i + k + 1].r, hi);
      }
    }
  }
  return i;
}

void readBlocks(Rgba* dst, PixelRGBA16 const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0 && addressOf(dst) % 16 == 0, "( src % 16 ) == 0 && ( dst % 16 ) == 0");
  for (unsigned i = hasAvx2F16c() ? readGroupsF16c(dst, src, n) : 0; i < n; i += 2) {
    __m128 lo, hi;
    halfToFloat8(_mm_load_si128(reinterpret_cast<__m128i const*>(src + i)), lo, hi);
    _mm_store_ps(&dst[i].r, lo);
    _mm_store_ps(&dst[i + 1].r, hi);
  }
}

// The half block rule of blockToHalf8 on groups of four pixels in 256-bit registers: the same
// operations in the same MXCSR mode, so the same bits. Returns the number of pixels done, a
// multiple of 4.
__attribute__((target("avx2"))) inline __m256i halfMagnitude8(__m256 f) {
  __m256i const t =
      _mm256_and_si256(_mm256_add_epi32(_mm256_castps_si256(f), _mm256_set1_epi32(0x1000)), _mm256_set1_epi32(0x7FFFFFFF));
  __m256 const limit = _mm256_castsi256_ps(_mm256_set1_epi32(0x477FFFFF));
  __m256 const rebase = _mm256_castsi256_ps(_mm256_set1_epi32(0x07800000));
  return _mm256_srli_epi32(_mm256_castps_si256(_mm256_mul_ps(_mm256_min_ps(_mm256_castsi256_ps(t), limit), rebase)), 13);
}

__attribute__((target("avx2"))) unsigned writeGroupsAvx2(PixelRGBA16* dst, Rgba const* src, unsigned n) {
  unsigned i = 0;
  for (; i + 4 <= n; i += 4) {
    __m256 const a = _mm256_loadu_ps(&src[i].r);
    __m256 const b = _mm256_loadu_ps(&src[i + 2].r);
    // Packing works within 128-bit lanes: the quarters come out as a0-3 b0-3 a4-7 b4-7.
    __m256i const bits = _mm256_packs_epi32(halfMagnitude8(a), halfMagnitude8(b));
    __m256i const signs = _mm256_packs_epi32(_mm256_srai_epi32(_mm256_castps_si256(a), 31),
                                             _mm256_srai_epi32(_mm256_castps_si256(b), 31));
    __m256i const halves = _mm256_permute4x64_epi64(
        _mm256_or_si256(bits, _mm256_and_si256(signs, _mm256_set1_epi16(short(0x8000)))), _MM_SHUFFLE(3, 1, 2, 0));
    _mm_stream_si128(reinterpret_cast<__m128i*>(dst + i), _mm256_castsi256_si128(halves));
    _mm_stream_si128(reinterpret_cast<__m128i*>(dst + i + 2), _mm256_extracti128_si256(halves, 1));
  }
  return i;
}

void writeBlocks(PixelRGBA16* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0 && addressOf(dst) % 16 == 0, "( src % 16 ) == 0 && ( dst % 16 ) == 0");
  clearFlushToZero();
  for (unsigned i = hasAvx2F16c() ? writeGroupsAvx2(dst, src, n) : 0; i < n; i += 2)
    _mm_stream_si128(reinterpret_cast<__m128i*>(dst + i), blockToHalf8(loadColor(src + i), loadColor(src + i + 1)));
  _mm_sfence();
}

}  // namespace

void readRGBA16(float* dst, Uchar const* src, unsigned n) {
  PixelRGBA16 const* const s = reinterpret_cast<PixelRGBA16 const*>(src);
  for (unsigned i = 0; i < n; ++i) dst[i] = s[i][3].get();
}

void readRGBA16(Rgba* dst, Uchar const* src, unsigned n) {
  convertInStages<2>(
      dst, reinterpret_cast<PixelRGBA16 const*>(src), n,
      [](Rgba& d, PixelRGBA16 const& s) { d = Rgba(s[0].get(), s[1].get(), s[2].get(), s[3].get()); }, readBlocks);
}

void writeRGBA16(Uchar* dst, Rgba const* src, unsigned n) {
  convertInStages<2>(
      reinterpret_cast<PixelRGBA16*>(dst), src, n,
      [](PixelRGBA16& d, Rgba const& s) {
        for (int c = 0; c < 4; ++c) d[c].set(s[c]);
      },
      writeBlocks);
}

}  // namespace IxConvertImp
}  // namespace Orn
