#pragma once
// Sum of two images, computed in float row by row.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// dst = srcA + srcB, component by component, over dstRgn (null: dst's pixel region), which must
// lie inside all three tiles. Tiles of one component are added as such; any other mix is added as
// RGBA (a one-component pixel as alpha, an RGB one with alpha 1) and stored to dst's format, so an
// 8-bit result is clamped on storage only.
void ipAdd(IxWriteGuard const& dst, IxReadGuard const& srcA, IxReadGuard const& srcB, GeRectangle<int> const* dstRgn);

}  // namespace Orn
