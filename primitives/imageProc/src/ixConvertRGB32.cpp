// Conversions of three-component float tiles: values are copied, never clamped.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGB32 = IxPixel<IxPixelCompFloat32, 3>;

void readBlocks(Rgba* dst, PixelRGB32 const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; ++i) dst[i] = Rgba(src[i][0].value, src[i][1].value, src[i][2].value, 1.f);
}

void writeBlocks(PixelRGB32* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; ++i) {
    dst[i][0].value = src[i].r;
    dst[i][1].value = src[i].g;
    dst[i][2].value = src[i].b;
  }
}

}  // namespace

// An RGB tile has no alpha: it reads as 1 and the tile is not looked at.
void readRGB32(float* dst, Uchar const*, unsigned n) {
  for (unsigned i = 0; i < n; ++i) dst[i] = 1.f;
}

void readRGB32(Rgba* dst, Uchar const* src, unsigned n) {
  convertInStages<4>(
      dst, reinterpret_cast<PixelRGB32 const*>(src), n,
      [](Rgba& d, PixelRGB32 const& s) { d = Rgba(s[0].value, s[1].value, s[2].value, 1.f); }, readBlocks);
}

void writeRGB32(Uchar* dst, Rgba const* src, unsigned n) {
  convertInStages<4>(
      reinterpret_cast<PixelRGB32*>(dst), src, n,
      [](PixelRGB32& d, Rgba const& s) {
        d[0].value = s.r;
        d[1].value = s.g;
        d[2].value = s.b;
      },
      writeBlocks);
}

}  // namespace IxConvertImp
}  // namespace Orn
