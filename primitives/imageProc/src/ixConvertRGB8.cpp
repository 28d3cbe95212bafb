// Conversions of three-component 8-bit tiles.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGB8 = IxPixel<IxPixelCompUInt8, 3>;

void readBlocks(Rgba* dst, PixelRGB8 const* src, unsigned nbPixels) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0 && addressOf(src) % 16 == 0 && nbPixels % 16 == 0,
                  "dst % 16 == 0 && src % 16 == 0 && nbPixels % 16 == 0");
  for (unsigned i = 0; i < nbPixels; ++i) dst[i] = Rgba(src[i][0].get(), src[i][1].get(), src[i][2].get(), 1.f);
}

void writeBlocks(PixelRGB8* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; ++i) {
    dst[i][0].value = blockToUInt8(src[i].r);
    dst[i][1].value = blockToUInt8(src[i].g);
    dst[i][2].value = blockToUInt8(src[i].b);
  }
}

}  // namespace

// An RGB tile has no alpha: it reads as 1 and the tile is not looked at.
void readRGB8(float* dst, Uchar const*, unsigned n) {
  for (unsigned i = 0; i < n; ++i) dst[i] = 1.f;
}

void readRGB8(Rgba* dst, Uchar const* src, unsigned n) {
  convertInStages<16>(
      dst, reinterpret_cast<PixelRGB8 const*>(src), n,
      [](Rgba& d, PixelRGB8 const& s) { d = Rgba(s[0].get(), s[1].get(), s[2].get(), 1.f); }, readBlocks);
}

void writeRGB8(Uchar* dst, Rgba const* src, unsigned n) {
  convertInStages<16>(
      reinterpret_cast<PixelRGB8*>(dst), src, n,
      [](PixelRGB8& d, Rgba const& s) {
        d[0].set(s.r);
        d[1].set(s.g);
        d[2].set(s.b);
      },
      writeBlocks);
}

}  // namespace IxConvertImp
}  // namespace Orn
