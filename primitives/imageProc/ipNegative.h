#pragma once
// Negative of an image: each component, alpha included, becomes one minus itself.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// dst = 1 - src over the regions (null: the tile's pixel region), clipped to each tile. The two
// tiles have the same format; they may be the same pixels, or overlapping views of one memory.
// 8-bit components are complemented (255 - v); half and float ones are computed in float.
void ipNegative(IxWriteGuard const& dst, IxReadGuard const& src, GeRectangle<int> const* dstRegion,
                GeRectangle<int> const* srcRegion);

}  // namespace Orn
