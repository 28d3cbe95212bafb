// Conversions of one-component half tiles.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelA16 = IxPixel<IxPixelCompFloat16, 1>;

void readBlocks(Rgba* dst, PixelA16 const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; i += 8) {
    __m128 lo, hi;
    halfToFloat8(_mm_load_si128(reinterpret_cast<__m128i const*>(src + i)), lo, hi);
    storeAlphasAsColors(dst + i, lo);
    storeAlphasAsColors(dst + i + 4, hi);
  }
}

void writeBlocks(PixelA16* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  clearFlushToZero();
  for (unsigned i = 0; i < n; i += 8) {
    Rgba const* const s = src + i;
    __m128 const lo = alphas4(loadColor(s), loadColor(s + 1), loadColor(s + 2), loadColor(s + 3));
    __m128 const hi = alphas4(loadColor(s + 4), loadColor(s + 5), loadColor(s + 6), loadColor(s + 7));
    _mm_stream_si128(reinterpret_cast<__m128i*>(dst + i), blockToHalf8(lo, hi));
  }
  _mm_sfence();
}

}  // namespace

void readA16(float* dst, Uchar const* src, unsigned n) {
  PixelA16 const* const s = reinterpret_cast<PixelA16 const*>(src);
  for (unsigned i = 0; i < n; ++i) dst[i] = s[i][0].get();
}

void readA16(Rgba* dst, Uchar const* src, unsigned n) {
  convertInStages<8>(
      dst, reinterpret_cast<PixelA16 const*>(src), n,
      [](Rgba& d, PixelA16 const& s) { d = Rgba(0.f, 0.f, 0.f, s[0].get()); }, readBlocks);
}

// Per pixel throughout: a float line never takes the block rounding.
void writeA16(Uchar* dst, float const* src, unsigned n) {
  PixelA16* const d = reinterpret_cast<PixelA16*>(dst);
  for (unsigned i = 0; i < n; ++i) d[i][0].set(src[i]);
}

void writeA16(Uchar* dst, Rgba const* src, unsigned n) {
  convertInStages<8>(
      reinterpret_cast<PixelA16*>(dst), src, n, [](PixelA16& d, Rgba const& s) { d[0].set(s.a); }, writeBlocks);
}

}  // namespace IxConvertImp
}  // namespace Orn
