#include <orn/pluginAPI/halfF16c.h>
#include <orn/pluginAPI/halfSse2.h>

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <random>
#include <vector>

using namespace Orn;

TEST(HalfSse2, ReadsEveryHalfAsTheScalarRule) {
  std::vector<Half::Bits> halves(0x10000);
  for (std::uint32_t h = 0; h < 0x10000; ++h) halves[h] = Half::Bits(h);
  std::vector<float> floats(0x10000);
  for (std::size_t i = 0; i < halves.size(); i += 8) HalfSse2::toFloat8(&halves[i], &floats[i]);
  for (std::uint32_t h = 0; h < 0x10000; ++h)
    ASSERT_EQ(std::bit_cast<std::uint32_t>(floats[h]), std::bit_cast<std::uint32_t>(Half::toFloat(Half::Bits(h))))
        << std::hex << h;
}

TEST(HalfSse2, StoresAsTheScalarRuleAcrossAllExponents) {
  // Every exponent with both signs, mantissas at the rounding boundaries and at random, NaNs and
  // infinities: the vector form must agree bit for bit.
  std::vector<std::uint32_t> patterns;
  std::mt19937 random(7);
  for (std::uint32_t sign : {0u, 0x80000000u})
    for (std::uint32_t exponent = 0; exponent < 256; ++exponent)
      for (std::uint32_t mantissa : {0u, 0xFFFu, 0x1000u, 0x1FFFu, 0x7FEFFFu, 0x7FF000u, 0x7FFFFFu})
        patterns.push_back(sign | exponent << 23 | mantissa);
  for (int i = 0; i < 200000; ++i) patterns.push_back(random());
  while (patterns.size() % 8) patterns.push_back(0);

  std::vector<float> floats(patterns.size());
  for (std::size_t i = 0; i < patterns.size(); ++i) floats[i] = std::bit_cast<float>(patterns[i]);
  std::vector<Half::Bits> halves(patterns.size());
  for (std::size_t i = 0; i < floats.size(); i += 8) HalfSse2::fromFloat8(&floats[i], &halves[i]);
  for (std::size_t i = 0; i < floats.size(); ++i)
    ASSERT_EQ(halves[i], Half::fromFloat(floats[i])) << std::hex << patterns[i];
}

namespace {

ORN_TARGET_F16C void toFloatF16c(Half::Bits const* src, float* dst, std::size_t n) {
  for (std::size_t i = 0; i < n; i += 8)
    _mm256_storeu_ps(dst + i, HalfF16c::toFloat8(_mm_loadu_si128(reinterpret_cast<__m128i const*>(src + i))));
}

ORN_TARGET_F16C void fromFloatF16c(float const* src, Half::Bits* dst, std::size_t n) {
  for (std::size_t i = 0; i < n; i += 8)
    _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + i), HalfF16c::fromFloat8(_mm256_loadu_ps(src + i)));
}

}  // namespace

// The processor's half instructions, corrected, under both floating-point modes a thread may have
// (default, and flush-to-zero with denormals-are-zero as the library sets at start-up).
TEST(HalfF16c, AgreesWithTheScalarRulesInEveryMode) {
  if (!HalfF16c::isAvailable()) GTEST_SKIP() << "no F16C/AVX2";
  std::vector<Half::Bits> halves(0x10000);
  for (std::uint32_t h = 0; h < 0x10000; ++h) halves[h] = Half::Bits(h);
  std::vector<std::uint32_t> patterns;
  std::mt19937 random(11);
  for (std::uint32_t sign : {0u, 0x80000000u})
    for (std::uint32_t exponent = 0; exponent < 256; ++exponent)
      for (std::uint32_t mantissa : {0u, 1u, 0xFFFu, 0x1000u, 0x1FFFu, 0x7FEFFFu, 0x7FF000u, 0x7FFFFFu})
        patterns.push_back(sign | exponent << 23 | mantissa);
  for (int i = 0; i < 200000; ++i) patterns.push_back(random());
  // Blocks of ordinary values only, so the fast conversion runs without the wrap fallback.
  for (int i = 0; i < 200000; ++i) patterns.push_back((random() & 0x80000000u) | (82u + random() % 174u) << 23 | (random() & 0x7FFFFFu));
  while (patterns.size() % 8) patterns.push_back(0);
  std::vector<float> floats(patterns.size());
  for (std::size_t i = 0; i < patterns.size(); ++i) floats[i] = std::bit_cast<float>(patterns[i]);

  unsigned int const saved = _mm_getcsr();
  for (unsigned int mode : {0x1F80u, 0x9FC0u}) {
    _mm_setcsr(mode);
    std::vector<float> read(halves.size());
    toFloatF16c(halves.data(), read.data(), halves.size());
    std::vector<Half::Bits> written(floats.size());
    fromFloatF16c(floats.data(), written.data(), floats.size());
    _mm_setcsr(saved);
    for (std::uint32_t h = 0; h < 0x10000; ++h)
      ASSERT_EQ(std::bit_cast<std::uint32_t>(read[h]), std::bit_cast<std::uint32_t>(Half::toFloat(Half::Bits(h))))
          << std::hex << h << " mode " << mode;
    for (std::size_t i = 0; i < floats.size(); ++i)
      ASSERT_EQ(written[i], Half::fromFloat(floats[i])) << std::hex << patterns[i] << " mode " << mode;
  }
}
