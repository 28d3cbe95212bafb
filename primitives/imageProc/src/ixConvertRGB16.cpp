// Conversions of three-component half tiles.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGB16 = IxPixel<IxPixelCompFloat16, 3>;

void readBlocks(Rgba* dst, PixelRGB16 const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  // Each block of 8 pixels is 24 halves in three registers, r0 g0 b0 r1 | g1 b1 r2 g2 | b2 r3 ...,
  // widened to six float vectors and regrouped four pixels at a time.
  for (unsigned i = 0; i < n; i += 8) {
    __m128i const* const s = reinterpret_cast<__m128i const*>(src + i);
    __m128 f[6];
    for (int k = 0; k < 3; ++k) halfToFloat8(_mm_load_si128(s + k), f[2 * k], f[2 * k + 1]);
    for (int q = 0; q < 2; ++q) {
      __m128 const a = f[3 * q], b = f[3 * q + 1], c = f[3 * q + 2];
      __m128 const ab = _mm_shuffle_ps(a, b, _MM_SHUFFLE(1, 0, 3, 3));  // r1 r1 g1 b1
      Rgba* const d = dst + i + 4 * q;
      _mm_store_ps(&d[0].r, withOpaqueAlpha(a));
      _mm_store_ps(&d[1].r, withOpaqueAlpha(_mm_shuffle_ps(ab, ab, _MM_SHUFFLE(3, 3, 2, 1))));
      _mm_store_ps(&d[2].r, withOpaqueAlpha(_mm_shuffle_ps(b, c, _MM_SHUFFLE(0, 0, 3, 2))));
      _mm_store_ps(&d[3].r, withOpaqueAlpha(_mm_shuffle_ps(c, c, _MM_SHUFFLE(3, 3, 2, 1))));
    }
  }
}

void writeBlocks(PixelRGB16* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  clearFlushToZero();
  // Eight pixels are converted to four halves each, then packed to 48 bytes.
  alignas(16) Half::Bits rgba[32];
  alignas(16) Half::Bits rgb[24];
  for (unsigned i = 0; i < n; i += 8) {
    Rgba const* const s = src + i;
    for (int k = 0; k < 4; ++k)
      _mm_store_si128(reinterpret_cast<__m128i*>(rgba) + k, blockToHalf8(loadColor(s + 2 * k), loadColor(s + 2 * k + 1)));
    for (int p = 0; p < 8; ++p) std::memcpy(rgb + 3 * p, rgba + 4 * p, 6);
    __m128i* const d = reinterpret_cast<__m128i*>(dst + i);
    for (int k = 0; k < 3; ++k) _mm_stream_si128(d + k, _mm_load_si128(reinterpret_cast<__m128i const*>(rgb) + k));
  }
  _mm_sfence();
}

}  // namespace

void readRGB16(float* dst, Uchar const*, unsigned n) { readOpaqueAlpha(dst, n); }

void readRGB16(Rgba* dst, Uchar const* src, unsigned n) { readRgbRow<8, PixelRGB16>(dst, src, n, readBlocks); }

void writeRGB16(Uchar* dst, Rgba const* src, unsigned n) { writeRgbRow<8, PixelRGB16>(dst, src, n, writeBlocks); }

}  // namespace IxConvertImp
}  // namespace Orn
