// Conversions of one-component 8-bit tiles.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelA8 = IxPixel<IxPixelCompUInt8, 1>;

void readBlocks(Rgba* dst, PixelA8 const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  __m128i const zero = _mm_setzero_si128();
  for (unsigned i = 0; i < n; i += 16) {
    __m128i const bytes = _mm_load_si128(reinterpret_cast<__m128i const*>(src + i));
    __m128i const words[2] = {_mm_unpacklo_epi8(bytes, zero), _mm_unpackhi_epi8(bytes, zero)};
    for (int w = 0; w < 2; ++w) {
      storeAlphasAsColors(dst + i + 8 * w, uint8ToFloat4(_mm_unpacklo_epi16(words[w], zero)));
      storeAlphasAsColors(dst + i + 8 * w + 4, uint8ToFloat4(_mm_unpackhi_epi16(words[w], zero)));
    }
  }
}

void writeBlocks(PixelA8* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; i += 16) {
    Rgba const* const s = src + i;
    __m128i q[4];
    for (int k = 0; k < 4; ++k)
      q[k] = blockToInt32x4(
          alphas4(loadColor(s + 4 * k), loadColor(s + 4 * k + 1), loadColor(s + 4 * k + 2), loadColor(s + 4 * k + 3)));
    _mm_stream_si128(reinterpret_cast<__m128i*>(dst + i), packToUInt8x16(q[0], q[1], q[2], q[3]));
  }
  _mm_sfence();
}

}  // namespace

void readA8(float* dst, Uchar const* src, unsigned n) {
  for (unsigned i = 0; i < n; ++i) dst[i] = IxPixelCompUInt8::toFloat(src[i]);
}

void readA8(Rgba* dst, Uchar const* src, unsigned n) {
  convertInStages<16>(
      dst, reinterpret_cast<PixelA8 const*>(src), n,
      [](Rgba& d, PixelA8 const& s) { d = Rgba(0.f, 0.f, 0.f, s[0].get()); }, readBlocks);
}

// Per pixel throughout: a float line never takes the block rounding.
void writeA8(Uchar* dst, float const* src, unsigned n) {
  for (unsigned i = 0; i < n; ++i) dst[i] = IxPixelCompUInt8::fromFloat(src[i]);
}

void writeA8(Uchar* dst, Rgba const* src, unsigned n) {
  convertInStages<16>(
      reinterpret_cast<PixelA8*>(dst), src, n, [](PixelA8& d, Rgba const& s) { d[0].set(s.a); }, writeBlocks);
}

}  // namespace IxConvertImp
}  // namespace Orn
