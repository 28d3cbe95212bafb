// Conversions of three-component half tiles.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGB16 = IxPixel<IxPixelCompFloat16, 3>;

void readBlocks(Rgba* dst, PixelRGB16 const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  // Each block of 8 pixels is 48 bytes; copied into a padded buffer so that every pixel can be
  // loaded as four halves.
  alignas(16) unsigned char halves[64] = {};
  __m128i const zero = _mm_setzero_si128();
  for (unsigned i = 0; i < n; i += 8) {
    __m128i const* const s = reinterpret_cast<__m128i const*>(src + i);
    for (int k = 0; k < 3; ++k) _mm_store_si128(reinterpret_cast<__m128i*>(halves) + k, _mm_load_si128(s + k));
    for (int p = 0; p < 8; ++p) {
      __m128i const rgbx = _mm_loadl_epi64(reinterpret_cast<__m128i const*>(halves + 6 * p));
      _mm_store_ps(&dst[i + p].r, withOpaqueAlpha(halfToFloat4(_mm_unpacklo_epi16(rgbx, zero))));
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

// An RGB tile has no alpha: it reads as 1 and the tile is not looked at.
void readRGB16(float* dst, Uchar const*, unsigned n) {
  for (unsigned i = 0; i < n; ++i) dst[i] = 1.f;
}

void readRGB16(Rgba* dst, Uchar const* src, unsigned n) {
  convertInStages<8>(
      dst, reinterpret_cast<PixelRGB16 const*>(src), n,
      [](Rgba& d, PixelRGB16 const& s) { d = Rgba(s[0].get(), s[1].get(), s[2].get(), 1.f); }, readBlocks);
}

void writeRGB16(Uchar* dst, Rgba const* src, unsigned n) {
  convertInStages<8>(
      reinterpret_cast<PixelRGB16*>(dst), src, n,
      [](PixelRGB16& d, Rgba const& s) {
        d[0].set(s.r);
        d[1].set(s.g);
        d[2].set(s.b);
      },
      writeBlocks);
}

}  // namespace IxConvertImp
}  // namespace Orn
