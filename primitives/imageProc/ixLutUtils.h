#pragma once
// Fills of 8-bit to 8-bit lookup tables. Tables of other depths are refused at their first entry.

#include <orn/primitives/imageProc/ixGenericLut.h>

namespace Orn {

class IxLutUtils {
 public:
  // Entry i = pow(i / 255, 1 / gamma) * 255 + 0.5, clamped to 0..255 and truncated, in single
  // precision (i / 255 being i times 0.003921569). gamma must exceed the smallest normal float.
  static void fillGammaTable(IxGenericLut& lut, float gamma);
  // Entry i = i * gain + offset * 255, clamped to 0..255 and truncated.
  static void fillLinearTable(IxGenericLut& lut, float gain, float offset);
};

}  // namespace Orn
