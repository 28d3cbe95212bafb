#pragma once
// Copy of pixels between two tiles of one pixel layout.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// Copies srcRegion of src onto dstRegion of dst (null: the tile's pixel region) and returns
// true. Returns false, copying nothing, when the tiles differ in depth or component count, when
// the regions differ in size, or when a region does not lie inside its tile. The two may be
// overlapping parts of one memory.
bool ipCopy(IxWriteGuard const& dst, IxReadGuard const& src, GeRectangle<int> const* dstRegion,
            GeRectangle<int> const* srcRegion);

}  // namespace Orn
