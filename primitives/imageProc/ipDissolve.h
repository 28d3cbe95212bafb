#pragma once
// Cross-dissolve of two images.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// dst = src0 * factor + src1 * (1 - factor), component by component, alpha included. The three
// tiles have one format. Regions (null: the tile's pixel region) are clipped to their tiles and
// then cut to their common size. 8-bit components are mixed as the floats 0..255 and truncated
// without clamp, so a factor outside [0, 1] wraps around.
void ipDissolve(IxWriteGuard const& dst, IxReadGuard const& src0, IxReadGuard const& src1, float factor,
                GeRectangle<int> const* dstRegion, GeRectangle<int> const* src0Region,
                GeRectangle<int> const* src1Region);

}  // namespace Orn
