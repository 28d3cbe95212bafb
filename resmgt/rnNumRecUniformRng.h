#pragma once
// Uniform random numbers in [0, 1) from the Park-Miller "minimal standard" generator
// (s <- 16807 s mod 2^31 - 1) with a Bays-Durham shuffle of 32 entries, which breaks the serial
// correlation of consecutive values. The sequence depends only on the seed.

#include <cstdint>
#include <limits>
#include <type_traits>

namespace Orn {

template <class T>
class RnNumRecUniformRng {
  static_assert(std::is_floating_point_v<T>, "RnNumRecUniformRng gives floating-point values");

public:
  static constexpr std::int32_t MODULUS = 2147483647;  // 2^31 - 1
  static constexpr std::int32_t MULTIPLIER = 16807;
  static constexpr int TABLE_SIZE = 32;

  explicit RnNumRecUniformRng(std::uint32_t seed = 1) { setSeed(seed); }

  // Any seed is accepted; it is folded into the generator's range [1, 2^31 - 2].
  void setSeed(std::uint32_t seed) {
    _state = std::int32_t(seed % std::uint32_t(MODULUS - 1)) + 1;
    // Run a few steps first, then fill the shuffle table from its end.
    for (int j = TABLE_SIZE + 7; j >= 0; --j) {
      _state = nextState(_state);
      if (j < TABLE_SIZE) _table[j] = _state;
    }
    _last = _table[0];
  }

  // The next value, in [0, 1).
  T eval() {
    _state = nextState(_state);
    int const slot = int(_last / BUCKET);
    _last = _table[slot];
    _table[slot] = _state;
    T const value = T(double(_last) / double(MODULUS));
    // _last < MODULUS, but rounding to float may reach 1.
    return value < T(1) ? value : T(1) - std::numeric_limits<T>::epsilon() / 2;
  }

  // One step of the minimal standard generator, for a state in [1, 2^31 - 2].
  static std::int32_t nextState(std::int32_t state) {
    return std::int32_t(std::int64_t(state) * MULTIPLIER % MODULUS);
  }

private:
  // Width of the range of values that select one table slot.
  static constexpr std::int32_t BUCKET = 1 + (MODULUS - 1) / TABLE_SIZE;

  std::int32_t _state;
  std::int32_t _last;
  std::int32_t _table[TABLE_SIZE];
};

}  // namespace Orn
