#pragma once
// Tolerances shared by keyframes, interpolators, extrapolators and time curves.

#include <bit>
#include <cstdint>

namespace Orn {

struct TcConstants {
  // Two times that differ by no more than this are the same time (1/192000000 of a time unit).
  static constexpr double kTimeTolerance = std::bit_cast<double>(std::uint64_t(0x3E365E9F80F29212));
  // 2^-49: absolute zero test of the cubic solver and of the linear extrapolators.
  static constexpr double kTangentZero = 1.7763568394002505e-15;
  // A time far in the future (a year of seconds): the next key time when there is none.
  static constexpr double kFarTime = 31536000.0;
};

}  // namespace Orn
