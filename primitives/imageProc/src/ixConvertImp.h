#pragma once
// Row converters of IxConvertUtil, one source file per tile format, and the pieces they share.
// Internal to the library.
//
// A converter with a block path runs in three stages: pixels one at a time by the per-pixel rule
// until both addresses lie on a 16-byte boundary (never, when their steps cannot meet one), then
// whole blocks by the block rule, then the rest one at a time again.

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/ixPixel.h>

#include <emmintrin.h>

#include <bit>
#include <cstdint>
#include <cstring>

namespace Orn {
namespace IxConvertImp {

using Rgba = CoRgbaColorTyped<float>;
using Uchar = unsigned char;

inline bool isAligned16(void const* p) { return (reinterpret_cast<std::uintptr_t>(p) & 15u) == 0; }
inline std::uintptr_t addressOf(void const* p) { return reinterpret_cast<std::uintptr_t>(p); }

// Runs the three stages over n pixels. Dst and Src are the pixel types, so that ++ steps one
// pixel; one(dst, src) converts a pixel, blocks(dst, src, count) a multiple of B pixels.
template <unsigned B, class Dst, class Src, class One, class Blocks>
inline void convertInStages(Dst* dst, Src* src, unsigned n, One one, Blocks blocks) {
  while (n && !(isAligned16(dst) && isAligned16(src))) {
    one(*dst++, *src++);
    --n;
  }
  unsigned const nbBlockPixels = n - n % B;
  if (nbBlockPixels) {
    blocks(dst, src, nbBlockPixels);
    dst += nbBlockPixels;
    src += nbBlockPixels;
    n -= nbBlockPixels;
  }
  while (n--) one(*dst++, *src++);
}

// 8-bit store of the block paths: min(v * 255, 255) (NaN gives 255), converted by the current
// rounding mode (to nearest even under the package's MXCSR), saturated to 16 bits, then to 0..255.
inline std::uint8_t blockToUInt8(float v) {
  float const scaled = v * 255.f;
  float const limited = scaled < 255.f ? scaled : 255.f;
  int i = _mm_cvtss_si32(_mm_set_ss(limited));
  i = i < -32768 ? -32768 : (i > 32767 ? 32767 : i);
  return std::uint8_t(i < 0 ? 0 : (i > 255 ? 255 : i));
}

// Half store of the block paths. Differs from Half::fromFloat for denormal results, which it
// rounds correctly through a float multiply by 2^-112. Needs flush-to-zero off: see
// clearFlushToZero.
inline Half::Bits blockToHalf(float value) {
  std::uint32_t f;
  std::memcpy(&f, &value, 4);
  std::uint32_t const t = (f + 0x1000u) & 0x7FFFFFFFu;
  float tf;
  std::memcpy(&tf, &t, 4);
  float const limit = std::bit_cast<float>(0x477FFFFFu);
  float const limited = tf < limit ? tf : limit;
  float const rebased = limited * std::bit_cast<float>(0x07800000u);
  std::uint32_t r;
  std::memcpy(&r, &rebased, 4);
  std::int32_t h = std::int32_t(r >> 13);
  h = h > 32767 ? 32767 : h;
  return Half::Bits(std::uint32_t(h) | ((f >> 16) & 0x8000u));
}

// Half block stores produce float denormals on the way. Turns flush-to-zero off for the thread,
// writing MXCSR only when it was on, and leaves it off.
inline void clearFlushToZero() {
  unsigned const csr = _mm_getcsr();
  if (csr & _MM_FLUSH_ZERO_ON) _mm_setcsr(csr & ~unsigned(_MM_FLUSH_ZERO_ON));
}

// One-component 8-bit tiles.
void readA8(float* dst, Uchar const* src, unsigned n);
void readA8(Rgba* dst, Uchar const* src, unsigned n);
void writeA8(Uchar* dst, float const* src, unsigned n);
void writeA8(Uchar* dst, Rgba const* src, unsigned n);

// Three-component 8-bit tiles.
void readRGB8(float* dst, Uchar const* src, unsigned n);
void readRGB8(Rgba* dst, Uchar const* src, unsigned n);
void writeRGB8(Uchar* dst, Rgba const* src, unsigned n);

// Four-component 8-bit tiles: the block arithmetic for every pixel of a colour row.
void readRGBA8(float* dst, Uchar const* src, unsigned n);
void readRGBA8(Rgba* dst, Uchar const* src, unsigned n);
void writeRGBA8(Uchar* dst, Rgba const* src, unsigned n);

// One-component half tiles.
void readA16(float* dst, Uchar const* src, unsigned n);
void readA16(Rgba* dst, Uchar const* src, unsigned n);
void writeA16(Uchar* dst, float const* src, unsigned n);
void writeA16(Uchar* dst, Rgba const* src, unsigned n);

// Three-component half tiles.
void readRGB16(float* dst, Uchar const* src, unsigned n);
void readRGB16(Rgba* dst, Uchar const* src, unsigned n);
void writeRGB16(Uchar* dst, Rgba const* src, unsigned n);

// Four-component half tiles.
void readRGBA16(float* dst, Uchar const* src, unsigned n);
void readRGBA16(Rgba* dst, Uchar const* src, unsigned n);
void writeRGBA16(Uchar* dst, Rgba const* src, unsigned n);

// One-component float tiles.
void readA32(float* dst, Uchar const* src, unsigned n);
void readA32(Rgba* dst, Uchar const* src, unsigned n);
void writeA32(Uchar* dst, float const* src, unsigned n);
void writeA32(Uchar* dst, Rgba const* src, unsigned n);

// Three-component float tiles.
void readRGB32(float* dst, Uchar const* src, unsigned n);
void readRGB32(Rgba* dst, Uchar const* src, unsigned n);
void writeRGB32(Uchar* dst, Rgba const* src, unsigned n);

// Four-component float tiles: plain copies of 16-byte aligned rows.
void readRGBA32(float* dst, Uchar const* src, unsigned n);
void readRGBA32(Rgba* dst, Uchar const* src, unsigned n);
void writeRGBA32(Uchar* dst, Rgba const* src, unsigned n);

}  // namespace IxConvertImp
}  // namespace Orn
