#pragma once
// 16-bit float storage and its two exact conversions. Both are integer work on the bits: no
// table, no special case for infinity or NaN. Exponent-31 halves read as ordinary numbers
// (0x7C00 is 65536.0) and every overflow stores as 65504.0 (0x7BFF).

#include <cstdint>
#include <cstring>

namespace Orn {

class Half {
public:
  using Bits = std::uint16_t;

  Half() : _bits(0) {}
  explicit Half(float f) : _bits(fromFloat(f)) {}
  static Half fromBits(Bits bits) {
    Half h;
    h._bits = bits;
    return h;
  }

  Bits getBits() const { return _bits; }
  operator float() const { return toFloat(_bits); }

  static inline float toFloat(Bits h);
  static inline Bits fromFloat(float f);

private:
  Bits _bits;
};

inline float Half::toFloat(Bits h) {
  std::uint32_t const m = h & 0x7FFFu;
  std::uint32_t e = (m << 13) + 0x38000000u;
  if (!(e > 0x387FFFFFu)) {
    // Denormal half (or zero): the integer mantissa times 2^-24.
    float const denormal = float(int(m)) * 5.9604645e-8f;
    std::memcpy(&e, &denormal, 4);
  }
  e |= std::uint32_t(h & 0x8000u) << 16;
  float f;
  std::memcpy(&f, &e, 4);
  return f;
}

inline Half::Bits Half::fromFloat(float value) {
  std::uint32_t f;
  std::memcpy(&f, &value, 4);
  std::uint32_t const sign = (f & 0x80000000u) >> 16;
  // Adding half an output step rounds half-way cases away from zero.
  std::uint32_t const a = (f & 0x7FFFFFFFu) + 0x1000u;
  std::uint32_t r;
  if (a < 0x387FFFFFu) {
    // Below the smallest normal half: shift the mantissa with its hidden bit. The count is taken
    // modulo 32, as the processor does, so very small exponents wrap to a small shift.
    std::uint32_t const shift = (17u - (a >> 23)) & 31u;
    r = ((a & 0x7FFFFFu) | 0x800000u) >> shift;
  } else {
    // Saturates every overflow, infinities and NaNs included, to 65504.
    r = (a < 0x477FFFFFu ? a : 0x477FFFFFu) - 0x38000000u;
  }
  return Bits(sign | (r >> 13));
}

}  // namespace Orn
