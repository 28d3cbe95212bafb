#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixLutUtils.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace Orn {

namespace {

using ByteLut = IxLut<IxPixelCompUInt8, IxPixelCompUInt8>;

// The 8-bit to 8-bit table, or the abort that any other table gets at its first entry.
ByteLut& byteTable(IxGenericLut& lut) {
  if (lut.getOutputDepth() != IxPixelFormat::UINT8 || lut.getInputDepth() != IxPixelFormat::UINT8)
    Assertions::throwProgramAborted("ixLut", __LINE__, nullptr);
  return lut.getLut<IxPixelCompUInt8, IxPixelCompUInt8>();
}

std::uint8_t clampTruncate(float v) {
  float const low = v > 0.f ? v : 0.f;
  return std::uint8_t(low < 255.f ? low : 255.f);
}

}  // namespace

void IxLutUtils::fillGammaTable(IxGenericLut& lut, float gamma) {
  ORN_ASSERT(gamma > std::numeric_limits<float>::min());
  ByteLut& table = byteTable(lut);
  float const exponent = 1.f / gamma;
  for (int i = 0; i < 256; ++i)
    table.entries[i] = clampTruncate(std::pow(float(i) * 0.003921569f, exponent) * 255.f + 0.5f);
}

void IxLutUtils::fillLinearTable(IxGenericLut& lut, float gain, float offset) {
  ByteLut& table = byteTable(lut);
  float const shift = offset * 255.f;
  for (int i = 0; i < 256; ++i) table.entries[i] = clampTruncate(float(i) * gain + shift);
}

}  // namespace Orn
