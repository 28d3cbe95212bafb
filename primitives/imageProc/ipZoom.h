#pragma once
// Nearest-pixel scaling of one region onto another.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// Fills dstRegion of dst from srcRegion of src (null: the tile's pixel region), each destination
// pixel taking the source pixel under its centre: destination column i of a region of width W
// reads source column floor((i + 0.5) * srcW / W), and likewise for rows. The tiles have the same
// depth and component count, the regions lie inside their tiles. An empty source region leaves
// dst as it was.
void ipZoom(IxWriteGuard const& dst, IxReadGuard const& src, GeRectangle<int> const* dstRegion,
            GeRectangle<int> const* srcRegion);

}  // namespace Orn
