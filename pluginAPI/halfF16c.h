#pragma once
// The exact half conversions of Half::toFloat and Half::fromFloat, eight values at a time with the
// processor's half-float instructions (F16C with AVX2), where it has them. Those instructions round
// and saturate differently from this library's rules; the functions below correct every lane where
// they differ, so results stay bit-identical to the scalar forms. Call them only from functions
// compiled for the same target (ORN_TARGET_F16C) and only when isAvailable().

#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/halfSse2.h>

#include <immintrin.h>

#define ORN_TARGET_F16C __attribute__((target("avx2,f16c")))

namespace Orn {
namespace HalfF16c {

inline bool isAvailable() {
  static bool const available = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("f16c");
  return available;
}

// The rare lanes, out of line so that the common loop keeps its constants in registers.
ORN_TARGET_F16C __attribute__((noinline, cold)) inline __m256 toFloat8Exponent31(__m128i h) {
  __m256i const wide = _mm256_cvtepu16_epi32(h);
  __m256i const m = _mm256_and_si256(wide, _mm256_set1_epi32(0x7FFF));
  __m256i const rebiased = _mm256_or_si256(_mm256_add_epi32(_mm256_slli_epi32(m, 13), _mm256_set1_epi32(0x38000000)),
                                           _mm256_slli_epi32(_mm256_and_si256(wide, _mm256_set1_epi32(0x8000)), 16));
  __m256i const exponent31 =
      _mm256_cmpeq_epi32(_mm256_and_si256(wide, _mm256_set1_epi32(0x7C00)), _mm256_set1_epi32(0x7C00));
  return _mm256_blendv_ps(_mm256_cvtph_ps(h), _mm256_castsi256_ps(rebiased), _mm256_castsi256_ps(exponent31));
}

ORN_TARGET_F16C __attribute__((noinline, cold)) inline __m128i fromFloat8Exact(__m256 value) {
  return HalfSse2::fromFloat8(_mm256_castps256_ps128(value), _mm256_extractf128_ps(value, 1));
}

// Eight halves to eight floats. The instruction widens exactly, denormals included; only the
// exponent-31 patterns differ (this library reads them as numbers, 0x7C00 as 65536), and a block
// holding one takes the plain rebias for those lanes.
ORN_TARGET_F16C inline __m256 toFloat8(__m128i h) {
  __m128i const exponent = _mm_and_si128(h, _mm_set1_epi16(0x7C00));
  __m128i const exponent31 = _mm_cmpeq_epi16(exponent, _mm_set1_epi16(0x7C00));
  if (__builtin_expect(!_mm_testz_si128(exponent31, exponent31), 0)) return toFloat8Exponent31(h);
  return _mm256_cvtph_ps(h);
}

// Eight floats to eight halves. Adding the rounding step to the bits and converting toward zero is
// the library's rounding (half-way away from zero) for normal and denormal results, and toward-zero
// overflow gives 65504 as the library's saturation does. Blocks holding a lane where the two differ
// take the exact SSE2 form: infinities and NaNs (which saturate here), and tiny magnitudes whose
// denormal shift wraps (after rounding, biased exponents 1 to 81).
ORN_TARGET_F16C inline __m128i fromFloat8(__m256 value) {
  __m256i const f = _mm256_castps_si256(value);
  __m256i const magnitude = _mm256_and_si256(f, _mm256_set1_epi32(0x7FFFFFFF));
  __m256i const special = _mm256_cmpgt_epi32(magnitude, _mm256_set1_epi32(0x7F7FEFFF));
  __m256i const wraps = _mm256_and_si256(_mm256_cmpgt_epi32(magnitude, _mm256_set1_epi32((1 << 23) - 0x1000 - 1)),
                                         _mm256_cmpgt_epi32(_mm256_set1_epi32((82 << 23) - 0x1000), magnitude));
  __m256i const slow = _mm256_or_si256(special, wraps);
  if (__builtin_expect(!_mm256_testz_si256(slow, slow), 0)) return fromFloat8Exact(value);
  __m256i const rounded = _mm256_add_epi32(f, _mm256_set1_epi32(0x1000));
  return _mm256_cvtps_ph(_mm256_castsi256_ps(rounded), _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
}

}  // namespace HalfF16c
}  // namespace Orn
