// Conversions of one-component 8-bit tiles.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelA8 = IxPixel<IxPixelCompUInt8, 1>;

void readBlocks(Rgba* dst, PixelA8 const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; ++i) dst[i] = Rgba(0.f, 0.f, 0.f, src[i][0].get());
}

void writeBlocks(PixelA8* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; ++i) dst[i][0].value = blockToUInt8(src[i].a);
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
