// Conversions of four-component half tiles.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGBA16 = IxPixel<IxPixelCompFloat16, 4>;

void readBlocks(Rgba* dst, PixelRGBA16 const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0 && addressOf(dst) % 16 == 0, "( src % 16 ) == 0 && ( dst % 16 ) == 0");
  for (unsigned i = 0; i < n; i += 2) {
    __m128 lo, hi;
    halfToFloat8(_mm_load_si128(reinterpret_cast<__m128i const*>(src + i)), lo, hi);
    _mm_store_ps(&dst[i].r, lo);
    _mm_store_ps(&dst[i + 1].r, hi);
  }
}

void writeBlocks(PixelRGBA16* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0 && addressOf(dst) % 16 == 0, "( src % 16 ) == 0 && ( dst % 16 ) == 0");
  clearFlushToZero();
  for (unsigned i = 0; i < n; i += 2)
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
