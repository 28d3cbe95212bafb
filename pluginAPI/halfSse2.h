#pragma once
// The exact half conversions of Half::toFloat and Half::fromFloat, four values at a time with SSE2.
// Results are bit-identical to the scalar forms for every input, denormals and the modulo-32 shift
// of tiny values included, so pixel loops may use either.

#include <orn/pluginAPI/half.h>

#include <emmintrin.h>

#include <cstdint>

namespace Orn {
namespace HalfSse2 {

// Four halves, zero-extended in 32-bit lanes, to four floats.
inline __m128 toFloat(__m128i h) {
  __m128i const m = _mm_and_si128(h, _mm_set1_epi32(0x7FFF));
  __m128i const e = _mm_add_epi32(_mm_slli_epi32(m, 13), _mm_set1_epi32(0x38000000));
  // e stays below 2^31, so the signed compare is the unsigned one.
  __m128i const isNormal = _mm_cmpgt_epi32(e, _mm_set1_epi32(0x387FFFFF));
  __m128 const denormal = _mm_mul_ps(_mm_cvtepi32_ps(m), _mm_castsi128_ps(_mm_set1_epi32(0x33800000)));
  __m128i const magnitude =
      _mm_or_si128(_mm_and_si128(isNormal, e), _mm_andnot_si128(isNormal, _mm_castps_si128(denormal)));
  __m128i const sign = _mm_slli_epi32(_mm_and_si128(h, _mm_set1_epi32(0x8000)), 16);
  return _mm_castsi128_ps(_mm_or_si128(magnitude, sign));
}

// Four floats to four halves in the low 16 bits of 32-bit lanes.
inline __m128i fromFloat(__m128 value) {
  __m128i const f = _mm_castps_si128(value);
  __m128i const sign = _mm_srli_epi32(_mm_and_si128(f, _mm_set1_epi32(int(0x80000000u))), 16);
  __m128i const a = _mm_add_epi32(_mm_and_si128(f, _mm_set1_epi32(0x7FFFFFFF)), _mm_set1_epi32(0x1000));
  // a may reach 0x80000FFF (NaN payloads): compare unsigned by flipping the sign bits.
  __m128i const flip = _mm_set1_epi32(int(0x80000000u));
  __m128i const aFlipped = _mm_xor_si128(a, flip);
  __m128i const isDenormal = _mm_cmplt_epi32(aFlipped, _mm_set1_epi32(int(0x387FFFFFu ^ 0x80000000u)));

  // Below the normal range: mantissa with its hidden bit shifted right by (17 - exponent) mod 32.
  // SSE2 has no per-lane shift; multiplying the exact 24-bit integer by 2^-shift and truncating is
  // the same shift, exactly (the product never leaves the normal float range).
  __m128i const shift = _mm_and_si128(_mm_sub_epi32(_mm_set1_epi32(17), _mm_srli_epi32(a, 23)), _mm_set1_epi32(31));
  __m128i const mantissa = _mm_or_si128(_mm_and_si128(a, _mm_set1_epi32(0x7FFFFF)), _mm_set1_epi32(0x800000));
  __m128 const scale = _mm_castsi128_ps(_mm_slli_epi32(_mm_sub_epi32(_mm_set1_epi32(127), shift), 23));
  __m128i const shifted = _mm_cvttps_epi32(_mm_mul_ps(_mm_cvtepi32_ps(mantissa), scale));

  // Normal range: saturate at 65504, then rebias.
  __m128i const limit = _mm_set1_epi32(0x477FFFFF);
  __m128i const over = _mm_cmpgt_epi32(aFlipped, _mm_xor_si128(limit, flip));
  __m128i const clamped = _mm_or_si128(_mm_and_si128(over, limit), _mm_andnot_si128(over, a));
  __m128i const rebiased = _mm_sub_epi32(clamped, _mm_set1_epi32(0x38000000));

  __m128i const r = _mm_or_si128(_mm_and_si128(isDenormal, shifted), _mm_andnot_si128(isDenormal, rebiased));
  return _mm_or_si128(sign, _mm_srli_epi32(r, 13));
}

// Packs two vectors of halves in 32-bit lanes into eight 16-bit values.
inline __m128i pack(__m128i low, __m128i high) {
  // Sign-extend the 16-bit values so the signed saturating pack keeps their bits.
  low = _mm_srai_epi32(_mm_slli_epi32(low, 16), 16);
  high = _mm_srai_epi32(_mm_slli_epi32(high, 16), 16);
  return _mm_packs_epi32(low, high);
}

// Eight halves to eight floats. Blocks without denormal halves (the usual case) take a shortcut
// that builds each float from two 16-bit words; the results are the same.
inline void toFloat8(__m128i h, __m128& low, __m128& high) {
  __m128i const m = _mm_and_si128(h, _mm_set1_epi16(0x7FFF));
  __m128i const zero = _mm_cmpeq_epi16(m, _mm_setzero_si128());
  __m128i const denormal = _mm_andnot_si128(zero, _mm_cmplt_epi16(m, _mm_set1_epi16(0x400)));
  if (_mm_movemask_epi8(denormal)) {
    low = toFloat(_mm_unpacklo_epi16(h, _mm_setzero_si128()));
    high = toFloat(_mm_unpackhi_epi16(h, _mm_setzero_si128()));
    return;
  }
  // High word: sign, then magnitude >> 3 plus the exponent rebias; low word: magnitude << 13.
  __m128i const sign = _mm_and_si128(h, _mm_set1_epi16(short(0x8000)));
  __m128i const upper =
      _mm_or_si128(_mm_andnot_si128(zero, _mm_add_epi16(_mm_srli_epi16(m, 3), _mm_set1_epi16(0x3800))), sign);
  __m128i const lower = _mm_slli_epi16(m, 13);
  low = _mm_castsi128_ps(_mm_unpacklo_epi16(lower, upper));
  high = _mm_castsi128_ps(_mm_unpackhi_epi16(lower, upper));
}

// Eight floats to eight halves. Blocks whose magnitudes are zero or round into the normal half
// range take a shortcut without the denormal and saturation cases; the results are the same.
inline __m128i fromFloat8(__m128 low, __m128 high) {
  __m128i const absMask = _mm_set1_epi32(0x7FFFFFFF);
  __m128i const round = _mm_set1_epi32(0x1000);
  __m128i const fLow = _mm_castps_si128(low);
  __m128i const fHigh = _mm_castps_si128(high);
  __m128i const magLow = _mm_and_si128(fLow, absMask);
  __m128i const magHigh = _mm_and_si128(fHigh, absMask);
  __m128i const aLow = _mm_add_epi32(magLow, round);
  __m128i const aHigh = _mm_add_epi32(magHigh, round);
  // In range: 0x387FFFFF <= a <= 0x477FFFFF (signed compares: a above 2^31 fails the first).
  __m128i const below = _mm_set1_epi32(0x387FFFFF - 1);
  __m128i const above = _mm_set1_epi32(0x477FFFFF + 1);
  __m128i const zero = _mm_setzero_si128();
  __m128i const okLow = _mm_or_si128(_mm_and_si128(_mm_cmpgt_epi32(aLow, below), _mm_cmplt_epi32(aLow, above)),
                                     _mm_cmpeq_epi32(magLow, zero));
  __m128i const okHigh = _mm_or_si128(_mm_and_si128(_mm_cmpgt_epi32(aHigh, below), _mm_cmplt_epi32(aHigh, above)),
                                      _mm_cmpeq_epi32(magHigh, zero));
  if (_mm_movemask_epi8(_mm_and_si128(okLow, okHigh)) != 0xFFFF) return pack(fromFloat(low), fromFloat(high));
  // Rebias and drop the low 13 bits; zero magnitudes give 0 (their a is below the bias).
  __m128i const bias = _mm_set1_epi32(0x38000000);
  __m128i const rLow = _mm_andnot_si128(_mm_cmpeq_epi32(magLow, zero), _mm_srli_epi32(_mm_sub_epi32(aLow, bias), 13));
  __m128i const rHigh =
      _mm_andnot_si128(_mm_cmpeq_epi32(magHigh, zero), _mm_srli_epi32(_mm_sub_epi32(aHigh, bias), 13));
  __m128i const signMask = _mm_set1_epi32(int(0x80000000u));
  __m128i const hLow = _mm_or_si128(rLow, _mm_srli_epi32(_mm_and_si128(fLow, signMask), 16));
  __m128i const hHigh = _mm_or_si128(rHigh, _mm_srli_epi32(_mm_and_si128(fHigh, signMask), 16));
  return pack(hLow, hHigh);
}

// Eight halves to eight floats, and back, through memory.
inline void toFloat8(Half::Bits const* src, float* dst) {
  __m128 low, high;
  toFloat8(_mm_loadu_si128(reinterpret_cast<__m128i const*>(src)), low, high);
  _mm_storeu_ps(dst, low);
  _mm_storeu_ps(dst + 4, high);
}

inline void fromFloat8(float const* src, Half::Bits* dst) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), fromFloat8(_mm_loadu_ps(src), _mm_loadu_ps(src + 4)));
}

}  // namespace HalfSse2
}  // namespace Orn
