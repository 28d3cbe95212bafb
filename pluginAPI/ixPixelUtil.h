#pragma once
// Single-pixel access for code off the hot paths (padding, diagnostics).

#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixReadGuard.h>

namespace Orn {

class IxPixelUtil {
public:
  // The pixel at (x, y) of the guard's region as a colour, with the per-pixel conversions of the
  // component types: ALPHA gives (0, 0, 0, v), RGB gives (r, g, b, 1), RGBA gives (r, g, b, a).
  // Depths 8, 16 and 32; anything else aborts.
  static CoRgbaColorTyped<float> getPixelColor(IxReadGuard const& guard, int x, int y);
};

}  // namespace Orn
