#pragma once
// Equality of two images.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>

namespace Orn {

// True when the two regions (null: the tile's pixel region) hold equal pixels. The same tile
// (same memory and base address) is equal to itself whatever the regions. Tiles of different
// depth, component count or aspect ratio, and regions of different sizes, are unequal.
// 8-bit and half components must be equal as values; float components may differ by one part in
// 8388608 of the larger magnitude. A NaN is never equal.
bool ipCmp(IxReadGuard const& a, IxReadGuard const& b, GeRectangle<int> const* aRegion,
           GeRectangle<int> const* bRegion);

}  // namespace Orn
