#pragma once
// Uniform random numbers in [0, 1) from a 64-bit linear congruential generator whose state goes
// through a mixing function before use (the low bits of a power-of-two LCG are weak on their own).
// The sequence depends only on the seed. Period 2^64; 53 random bits per value.

#include <cstdint>
#include <limits>
#include <type_traits>

namespace Orn {

template <class T>
class RnStdUniformRng {
  static_assert(std::is_floating_point_v<T>, "RnStdUniformRng gives floating-point values");

public:
  static constexpr std::uint64_t DEFAULT_SEED = 0x2545F4914F6CDD1DULL;

  explicit RnStdUniformRng(std::uint64_t seed = DEFAULT_SEED) { setSeed(seed); }

  void setSeed(std::uint64_t seed) {
    _state = 0;
    advance();
    _state += seed;
    advance();
  }

  // The next value, in [0, 1).
  T eval() {
    std::uint64_t const bits = mix(advance()) >> 11;
    T const value = T(double(bits) * 0x1.0p-53);
    // Rounding to a narrower type may reach 1.
    return value < T(1) ? value : T(1) - std::numeric_limits<T>::epsilon() / 2;
  }

private:
  // Steps the LCG (multiplier and increment of Knuth's MMIX) and returns the former state.
  std::uint64_t advance() {
    std::uint64_t const old = _state;
    _state = old * 6364136223846793005ULL + 1442695040888963407ULL;
    return old;
  }

  static std::uint64_t mix(std::uint64_t z) {
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
  }

  std::uint64_t _state;
};

}  // namespace Orn
