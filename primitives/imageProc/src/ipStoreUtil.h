#pragma once
// Float to byte stores of the operators that truncate rather than round.

#include <xmmintrin.h>

#include <cstdint>

namespace Orn {
namespace IpStoreUtil {

// Truncation toward zero as the processor does it: out of range and NaN give INT32_MIN.
inline std::int32_t truncate(float v) { return _mm_cvtt_ss2si(_mm_set_ss(v)); }

// Truncated, then the low eight bits: 256 stores 0, -1 stores 255.
inline std::uint8_t truncateWrap(float v) { return std::uint8_t(std::uint32_t(truncate(v)) & 0xFFu); }

// Clamped to 0..255 (NaN gives 0), then truncated.
inline std::uint8_t truncateClamp(float v) {
  float const low = v > 0.f ? v : 0.f;
  return std::uint8_t(std::int32_t(low < 255.f ? low : 255.f));
}

}  // namespace IpStoreUtil
}  // namespace Orn
