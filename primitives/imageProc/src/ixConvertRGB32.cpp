// Conversions of three-component float tiles: values are copied, never clamped.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGB32 = IxPixel<IxPixelCompFloat32, 3>;

void readBlocks(Rgba* dst, PixelRGB32 const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; i += 4) {
    float const* const s = &src[i][0].value;
    // r0 g0 b0 r1 | g1 b1 r2 g2 | b2 r3 g3 b3
    __m128 const in0 = _mm_load_ps(s);
    __m128 const in1 = _mm_load_ps(s + 4);
    __m128 const in2 = _mm_load_ps(s + 8);
    __m128 const r1r1g1b1 = _mm_shuffle_ps(in0, in1, _MM_SHUFFLE(1, 0, 3, 3));
    _mm_store_ps(&dst[i].r, withOpaqueAlpha(in0));
    _mm_store_ps(&dst[i + 1].r, withOpaqueAlpha(_mm_shuffle_ps(r1r1g1b1, r1r1g1b1, _MM_SHUFFLE(3, 3, 2, 0))));
    _mm_store_ps(&dst[i + 2].r, withOpaqueAlpha(_mm_shuffle_ps(in1, in2, _MM_SHUFFLE(0, 0, 3, 2))));
    _mm_store_ps(&dst[i + 3].r, withOpaqueAlpha(_mm_shuffle_ps(in2, in2, _MM_SHUFFLE(3, 3, 2, 1))));
  }
}

void writeBlocks(PixelRGB32* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; i += 4) {
    __m128 const p0 = loadColor(src + i);
    __m128 const p1 = loadColor(src + i + 1);
    __m128 const p2 = loadColor(src + i + 2);
    __m128 const p3 = loadColor(src + i + 3);
    __m128 const b0b0r1r1 = _mm_shuffle_ps(p0, p1, _MM_SHUFFLE(0, 0, 2, 2));
    __m128 const b2b2r3r3 = _mm_shuffle_ps(p2, p3, _MM_SHUFFLE(0, 0, 2, 2));
    float* const d = &dst[i][0].value;
    _mm_stream_ps(d, _mm_shuffle_ps(p0, b0b0r1r1, _MM_SHUFFLE(2, 0, 1, 0)));      // r0 g0 b0 r1
    _mm_stream_ps(d + 4, _mm_shuffle_ps(p1, p2, _MM_SHUFFLE(1, 0, 2, 1)));        // g1 b1 r2 g2
    _mm_stream_ps(d + 8, _mm_shuffle_ps(b2b2r3r3, p3, _MM_SHUFFLE(2, 1, 2, 0)));  // b2 r3 g3 b3
  }
  _mm_sfence();
}

}  // namespace

void readRGB32(float* dst, Uchar const*, unsigned n) { readOpaqueAlpha(dst, n); }

void readRGB32(Rgba* dst, Uchar const* src, unsigned n) { readRgbRow<4, PixelRGB32>(dst, src, n, readBlocks); }

void writeRGB32(Uchar* dst, Rgba const* src, unsigned n) { writeRgbRow<4, PixelRGB32>(dst, src, n, writeBlocks); }

}  // namespace IxConvertImp
}  // namespace Orn
