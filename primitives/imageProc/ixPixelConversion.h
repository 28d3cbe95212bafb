#pragma once
// Whole-tile conversions for display.

#include <orn/pluginAPI/ixTile.h>

namespace Orn {

class IxPixelConversion {
public:
  // A new RGBA 8-bit tile in BGRA channel order (channel order 1) with src's region, aspect
  // ratio and fill colour, whose rows keep src's stride in pixels: row bytes are src's row
  // bytes divided by src's pixel size, times 4. The stored rows of src, gaps included, are
  // converted as one run, so the stored row length times the height must be a multiple of 16
  // (8-bit alpha), 8 (half alpha and RGB), 4 (float alpha and RGB) or 2 (half RGBA).
  // Half and float values go through the 8-bit block rule (times 255, rounded to nearest
  // even, saturated); halves are widened without care for denormals, which come out as
  // wrong small numbers and so as 0. RGB sources get alpha 255.
  // 8-bit RGB and RGBA tiles are refused: they can be displayed as they are.
  static IxTile convertToBGRA8(IxTile const& src);
};

}  // namespace Orn
