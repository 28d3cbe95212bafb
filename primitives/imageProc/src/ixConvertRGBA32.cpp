// Conversions of four-component float tiles. A colour row is a plain copy; both addresses must
// lie on 16-byte boundaries, as they do for tiles with 16-byte multiple strides.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGBA32 = IxPixel<IxPixelCompFloat32, 4>;

void copyRow(Rgba* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0 && addressOf(src) % 16 == 0, "dst % 16 == 0 && src % 16 == 0");
  std::memcpy(dst, src, std::size_t(n) * sizeof(Rgba));
}

}  // namespace

void readRGBA32(float* dst, Uchar const* src, unsigned n) {
  PixelRGBA32 const* const s = reinterpret_cast<PixelRGBA32 const*>(src);
  for (unsigned i = 0; i < n; ++i) dst[i] = s[i][3].value;
}

void readRGBA32(Rgba* dst, Uchar const* src, unsigned n) {
  copyRow(dst, reinterpret_cast<Rgba const*>(src), n);
}

void writeRGBA32(Uchar* dst, Rgba const* src, unsigned n) {
  copyRow(reinterpret_cast<Rgba*>(dst), src, n);
}

}  // namespace IxConvertImp
}  // namespace Orn
