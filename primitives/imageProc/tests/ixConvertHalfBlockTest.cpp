// Block reads of half tiles into colour lines against the exact per-value conversion, on blocks
// with and without denormal halves (which decide between the two ways of the block read).

#include <orn/primitives/imageProc/ixConvertUtil.h>

#include <orn/pluginAPI/half.h>

#include "ixScanlineTestUtil.h"

#include <bit>
#include <cstdint>
#include <random>
#include <vector>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;

class IxConvertHalfBlockTest : public IxScanlineTestBase {};

}  // namespace

TEST_F(IxConvertHalfBlockTest, EveryLayoutMatchesTheExactConversion) {
  // Values drawn from zeros of both signs, normal halves, exponent-31 halves and, in some
  // blocks of eight, a single denormal.
  std::mt19937 rng(42);
  unsigned const nbValues = 8 * 3 * 400;
  alignas(16) static Half::Bits halves[nbValues];
  for (unsigned i = 0; i < nbValues; ++i) {
    unsigned const r = rng();
    Half::Bits const sign = Half::Bits(r & 0x8000u);
    switch (r % 8) {
      case 0: halves[i] = sign; break;
      case 1: halves[i] = Half::Bits(sign | 0x7C00u | (r >> 20 & 0x3FFu)); break;
      default: halves[i] = Half::Bits(sign | (0x400u + (r >> 16) % (0x7C00u - 0x400u))); break;
    }
  }
  for (unsigned block = 0; block < nbValues / 8; block += 3) halves[8 * block + rng() % 8] = Half::Bits(1 + rng() % 1023);

  struct Layout {
    IxPixelFormat::Comps comps;
    int first;  // colour component of the first stored component
  };
  for (Layout const layout : {Layout{IxPixelFormat::ALPHA, 3}, Layout{IxPixelFormat::RGB, 0}, Layout{IxPixelFormat::RGBA, 0}}) {
    unsigned const nbPixels = nbValues / unsigned(layout.comps);
    std::vector<Rgba> colors(nbPixels);
    IxConvertUtil::readFrom(colors.data(), reinterpret_cast<unsigned char const*>(halves), nbPixels,
                            IxPixelFormat(layout.comps, IxPixelFormat::FLOAT16));
    for (unsigned p = 0; p < nbPixels; ++p) {
      for (int c = 0; c < layout.comps; ++c) {
        Half::Bits const h = halves[p * unsigned(layout.comps) + unsigned(c)];
        ASSERT_EQ(std::bit_cast<std::uint32_t>(colors[p][layout.first + c]), std::bit_cast<std::uint32_t>(Half::toFloat(h)))
            << "comps " << layout.comps << " pixel " << p << " half " << std::hex << h;
      }
      if (layout.comps == IxPixelFormat::RGB) ASSERT_EQ(colors[p].a, 1.f);
      if (layout.comps == IxPixelFormat::ALPHA) ASSERT_EQ(colors[p], Rgba(0.f, 0.f, 0.f, colors[p].a));
    }
  }
}
