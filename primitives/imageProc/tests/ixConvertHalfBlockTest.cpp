// Block reads of half tiles into colour lines against the exact per-value conversion, on blocks
// of eight with and without a denormal half (which decides between the two ways of the block).

#include <orn/primitives/imageProc/ixConvertUtil.h>

#include <orn/pluginAPI/half.h>

#include "ixScanlineTestUtil.h"

#include <bit>
#include <cstdint>
#include <random>
#include <vector>

using namespace Orn;

class IxConvertHalfBlockTest : public IxScanlineTestBase {};

TEST_F(IxConvertHalfBlockTest, EveryLayoutMatchesTheExactConversion) {
  // Zeros of both signs, normal and exponent-31 halves; every third block gets one denormal.
  std::mt19937 rng(42);
  unsigned const nbValues = 8 * 3 * 400;
  alignas(16) static Half::Bits halves[nbValues];
  for (unsigned i = 0; i < nbValues; ++i) {
    unsigned const r = rng();
    unsigned const magnitude = r % 8 == 0 ? 0 : r % 8 == 1 ? 0x7C00u | (r >> 20 & 0x3FFu) : 0x400u + (r >> 16) % 0x7800u;
    halves[i] = Half::Bits((r & 0x8000u) | magnitude);
  }
  for (unsigned block = 0; block < nbValues / 8; block += 3) halves[8 * block + rng() % 8] = Half::Bits(1 + rng() % 1023);

  for (IxPixelFormat::Comps comps : {IxPixelFormat::ALPHA, IxPixelFormat::RGB, IxPixelFormat::RGBA}) {
    unsigned const nbPixels = nbValues / unsigned(comps);
    std::vector<CoRgbaColorTyped<float>> colors(nbPixels);
    IxConvertUtil::readFrom(colors.data(), reinterpret_cast<unsigned char const*>(halves), nbPixels,
                            IxPixelFormat(comps, IxPixelFormat::FLOAT16));
    int const first = comps == IxPixelFormat::ALPHA ? 3 : 0;  // colour component of the first stored one
    for (unsigned p = 0; p < nbPixels; ++p)
      for (int c = 0; c < comps; ++c) {
        Half::Bits const h = halves[p * unsigned(comps) + unsigned(c)];
        ASSERT_EQ(std::bit_cast<std::uint32_t>(colors[p][first + c]), std::bit_cast<std::uint32_t>(Half::toFloat(h)))
            << "comps " << comps << " pixel " << p << " half " << std::hex << h;
      }
  }
}
