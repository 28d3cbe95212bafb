#pragma once
// Spreads a one-component image into chosen channels of a colour image.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

#include <cstdint>

namespace Orn {

// The channels that receive the source component; every other channel is written as zero.
enum Separate : std::int32_t {
  SEPARATE_RED = 0,    // (s, 0, 0, 0)
  SEPARATE_GREEN = 1,  // (0, s, 0, 0)
  SEPARATE_BLUE = 2,   // (0, 0, s, 0)
  SEPARATE_ALPHA = 3,  // (0, 0, 0, s)
  SEPARATE_ALL = 4     // (s, s, s, s)
};

// dstImage (3 or 4 components; RGB keeps the first three of the pattern) from srcImage (one
// component of the same depth). Regions (null: the tile's pixel region) are clipped to their tiles
// and cut to their common size. A value of which outside the enumeration aborts.
void ipSeparate(IxWriteGuard const& dstImage, IxReadGuard const& srcImage, Separate which,
                GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion);

}  // namespace Orn
