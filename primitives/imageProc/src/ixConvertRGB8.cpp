// Conversions of three-component 8-bit tiles.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGB8 = IxPixel<IxPixelCompUInt8, 3>;

void readBlocks(Rgba* dst, PixelRGB8 const* src, unsigned nbPixels) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0 && addressOf(src) % 16 == 0 && nbPixels % 16 == 0,
                  "dst % 16 == 0 && src % 16 == 0 && nbPixels % 16 == 0");
  // Each block of 16 pixels is 48 bytes; copied into a padded buffer so that every pixel can be
  // loaded as four bytes.
  alignas(16) unsigned char bytes[64] = {};
  for (unsigned i = 0; i < nbPixels; i += 16) {
    __m128i const* const s = reinterpret_cast<__m128i const*>(src + i);
    for (int k = 0; k < 3; ++k) _mm_store_si128(reinterpret_cast<__m128i*>(bytes) + k, _mm_load_si128(s + k));
    for (int p = 0; p < 16; ++p) {
      std::int32_t rgbx;
      std::memcpy(&rgbx, bytes + 3 * p, 4);
      _mm_store_ps(&dst[i + p].r, withOpaqueAlpha(uint8ToFloat4(widenBytes4(_mm_cvtsi32_si128(rgbx)))));
    }
  }
}

void writeBlocks(PixelRGB8* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  // Sixteen pixels are converted to four-byte pixels, then packed to 48 bytes.
  alignas(16) unsigned char rgba[64];
  alignas(16) unsigned char rgb[48];
  for (unsigned i = 0; i < n; i += 16) {
    Rgba const* const s = src + i;
    for (int k = 0; k < 4; ++k) {
      __m128i const q = packToUInt8x16(blockToInt32x4(loadColor(s + 4 * k)), blockToInt32x4(loadColor(s + 4 * k + 1)),
                                       blockToInt32x4(loadColor(s + 4 * k + 2)), blockToInt32x4(loadColor(s + 4 * k + 3)));
      _mm_store_si128(reinterpret_cast<__m128i*>(rgba) + k, q);
    }
    for (int p = 0; p < 16; ++p) std::memcpy(rgb + 3 * p, rgba + 4 * p, 3);
    __m128i* const d = reinterpret_cast<__m128i*>(dst + i);
    for (int k = 0; k < 3; ++k) _mm_stream_si128(d + k, _mm_load_si128(reinterpret_cast<__m128i const*>(rgb) + k));
  }
  _mm_sfence();
}

}  // namespace

void readRGB8(float* dst, Uchar const*, unsigned n) { readOpaqueAlpha(dst, n); }

void readRGB8(Rgba* dst, Uchar const* src, unsigned n) { readRgbRow<16, PixelRGB8>(dst, src, n, readBlocks); }

void writeRGB8(Uchar* dst, Rgba const* src, unsigned n) { writeRgbRow<16, PixelRGB8>(dst, src, n, writeBlocks); }

}  // namespace IxConvertImp
}  // namespace Orn
