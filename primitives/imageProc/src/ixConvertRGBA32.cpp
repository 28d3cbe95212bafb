// Conversions of four-component float tiles. A colour row is a plain copy; both addresses must
// lie on 16-byte boundaries, as they do for tiles with 16-byte multiple strides.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

using PixelRGBA32 = IxPixel<IxPixelCompFloat32, 4>;

// Copies in a falling ladder of 16, 8, 4, 2 and 1 pixels; rows written to a tile go by
// non-temporal stores.
template <bool TO_TILE>
void copyRow(Rgba* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0 && addressOf(src) % 16 == 0, "dst % 16 == 0 && src % 16 == 0");
  auto const copy = [&](unsigned count) {
    for (unsigned k = 0; k < count; ++k) {
      __m128 const p = loadColor(src + k);
      if constexpr (TO_TILE)
        _mm_stream_ps(&dst[k].r, p);
      else
        _mm_store_ps(&dst[k].r, p);
    }
    dst += count;
    src += count;
  };
  for (; n >= 16; n -= 16) copy(16);
  for (unsigned step : {8u, 4u, 2u, 1u})
    if (n & step) copy(step);
  if constexpr (TO_TILE) _mm_sfence();
}

}  // namespace

void readRGBA32(float* dst, Uchar const* src, unsigned n) {
  PixelRGBA32 const* const s = reinterpret_cast<PixelRGBA32 const*>(src);
  for (unsigned i = 0; i < n; ++i) dst[i] = s[i][3].value;
}

void readRGBA32(Rgba* dst, Uchar const* src, unsigned n) {
  copyRow<false>(dst, reinterpret_cast<Rgba const*>(src), n);
}

void writeRGBA32(Uchar* dst, Rgba const* src, unsigned n) {
  copyRow<true>(reinterpret_cast<Rgba*>(dst), src, n);
}

}  // namespace IxConvertImp
}  // namespace Orn
