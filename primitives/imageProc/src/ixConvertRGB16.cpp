// Conversions of three-component half tiles.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGB16 = IxPixel<IxPixelCompFloat16, 3>;

void readBlocks(Rgba* dst, PixelRGB16 const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; ++i) dst[i] = Rgba(src[i][0].get(), src[i][1].get(), src[i][2].get(), 1.f);
}

void writeBlocks(PixelRGB16* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  clearFlushToZero();
  for (unsigned i = 0; i < n; ++i) {
    dst[i][0].value = blockToHalf(src[i].r);
    dst[i][1].value = blockToHalf(src[i].g);
    dst[i][2].value = blockToHalf(src[i].b);
  }
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
