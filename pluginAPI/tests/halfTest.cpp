#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/ixPixelComp.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

using namespace Orn;

namespace {
float fromBits(std::uint32_t b) { return std::bit_cast<float>(b); }
}  // namespace

TEST(Half, ReadsExponent31AsNumbersAndDenormalsExactly) {
  EXPECT_EQ(Half::toFloat(0x7C00), 65536.f);
  EXPECT_EQ(Half::toFloat(0x7FFF), 131008.f);
  EXPECT_EQ(Half::toFloat(0x0001), 5.9604645e-8f);
  EXPECT_EQ(Half::toFloat(0x03FF), 1023.f * 5.9604645e-8f);
  EXPECT_EQ(Half::toFloat(0x0400), std::ldexp(1.f, -14));
  EXPECT_EQ(Half::toFloat(0x3C00), 1.f);
  EXPECT_EQ(Half::toFloat(0xBC00), -1.f);
  EXPECT_TRUE(std::signbit(Half::toFloat(0x8000)));
  EXPECT_EQ(Half::toFloat(0x8000), 0.f);
}

TEST(Half, StoresWithSaturationAndAwayFromZeroRounding) {
  EXPECT_EQ(Half::fromFloat(0.f), 0x0000);
  EXPECT_EQ(Half::fromFloat(-0.f), 0x8000);
  EXPECT_EQ(Half::fromFloat(1.f), 0x3C00);
  EXPECT_EQ(Half::fromFloat(65504.f), 0x7BFF);
  EXPECT_EQ(Half::fromFloat(65519.f), 0x7BFF);
  EXPECT_EQ(Half::fromFloat(65536.f), 0x7BFF);
  EXPECT_EQ(Half::fromFloat(1e10f), 0x7BFF);
  EXPECT_EQ(Half::fromFloat(-1e10f), 0xFBFF);
  EXPECT_EQ(Half::fromFloat(std::numeric_limits<float>::infinity()), 0x7BFF);
  EXPECT_EQ(Half::fromFloat(std::numeric_limits<float>::quiet_NaN()), 0x7BFF);
  EXPECT_EQ(Half::fromFloat(-std::numeric_limits<float>::quiet_NaN()), 0xFBFF);
  // 1 + 2^-11 is half-way between 1 and the next half: rounds away from zero, not to even.
  EXPECT_EQ(Half::fromFloat(1.f + std::ldexp(1.f, -11)), 0x3C01);
  EXPECT_EQ(Half::fromFloat(-(1.f + std::ldexp(1.f, -11))), 0xBC01);
  // Just below half-way rounds down.
  EXPECT_EQ(Half::fromFloat(std::nextafter(1.f + std::ldexp(1.f, -11), 0.f)), 0x3C00);
}

TEST(Half, DenormalStoresShiftModulo32) {
  // Smallest normal and the denormals just under it.
  EXPECT_EQ(Half::fromFloat(std::ldexp(1.f, -14)), 0x0400);
  EXPECT_EQ(Half::fromFloat(std::ldexp(1.f, -15)), 0x0200);
  EXPECT_EQ(Half::fromFloat(std::ldexp(1.f, -24)), 0x0001);
  // The rounding add works at the scale of a normal half, before the shift: 2^-25 and
  // 1.5 * 2^-24 truncate instead of rounding to the nearest denormal.
  EXPECT_EQ(Half::fromFloat(std::ldexp(1.f, -25)), 0x0000);
  EXPECT_EQ(Half::fromFloat(std::ldexp(1.5f, -24)), 0x0001);
  // Biased exponent 81, zero mantissa: the shift wraps to 0 and gives 0x0400, not 0.
  EXPECT_EQ(Half::fromFloat(fromBits(81u << 23)), 0x0400);
  // Exponents 71..81 wrap, and so do 39..49 and 7..17: every biased exponent below the normal range.
  for (std::uint32_t e = 71; e <= 81; ++e) {
    std::uint32_t const shift = (17u - e) & 31u;
    EXPECT_EQ(Half::fromFloat(fromBits(e << 23)), Half::Bits((0x800000u >> shift) >> 13)) << e;
    EXPECT_EQ(Half::fromFloat(fromBits((e - 32) << 23)), Half::fromFloat(fromBits(e << 23))) << e;
    EXPECT_EQ(Half::fromFloat(fromBits((e - 64) << 23)), Half::fromFloat(fromBits(e << 23))) << e;
  }
  EXPECT_NE(Half::fromFloat(fromBits(10u << 23)), 0);
}

TEST(Half, EveryNormalHalfRoundTrips) {
  for (std::uint32_t h = 0; h < 0x10000; ++h) {
    if ((h & 0x7C00) == 0x7C00) continue;  // exponent 31 reads beyond the largest stored value
    EXPECT_EQ(Half::fromFloat(Half::toFloat(Half::Bits(h))), h) << std::hex << h;
  }
}

TEST(PixelComp, UInt8PerPixelRule) {
  EXPECT_EQ(IxPixelCompUInt8::fromFloat(1.f), 255);
  EXPECT_EQ(IxPixelCompUInt8::fromFloat(0.5f), 128);
  EXPECT_EQ(IxPixelCompUInt8::fromFloat(-0.1f), 0);
  EXPECT_EQ(IxPixelCompUInt8::fromFloat(300.f), 255);
  EXPECT_EQ(IxPixelCompUInt8::fromFloat(-5.f), 0);
  EXPECT_EQ(IxPixelCompUInt8::fromFloat(std::numeric_limits<float>::quiet_NaN()), 0);
  // Ties round up: 2.5 / 255 stores as 3.
  EXPECT_EQ(IxPixelCompUInt8::fromFloat(2.5f / 255.f), 3);
  EXPECT_EQ(std::bit_cast<std::uint32_t>(IxPixelCompUInt8::toFloat(1)), 0x3B808081u);
  for (int v = 0; v < 256; ++v) EXPECT_EQ(IxPixelCompUInt8::fromFloat(IxPixelCompUInt8::toFloat(v)), v);
}
