#pragma once
// Four one-component images into the channels of one RGBA image.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// dst's red, green, blue and alpha take the components of srcR, srcG, srcB and srcA as they are,
// without conversion. dst has four components and the sources one; dst, srcR, srcG and srcB have
// one depth (srcA is read as if it had it too). Regions (null: the tile's pixel region) are
// clipped to their tiles and cut to their common size.
void ipCombine(IxWriteGuard const& dst, IxReadGuard const& srcR, IxReadGuard const& srcG, IxReadGuard const& srcB,
               IxReadGuard const& srcA, GeRectangle<int> const* dstRegion, GeRectangle<int> const* rRegion,
               GeRectangle<int> const* gRegion, GeRectangle<int> const* bRegion, GeRectangle<int> const* aRegion);

}  // namespace Orn
