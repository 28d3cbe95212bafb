#pragma once
// Mix of two images by a matte, in float RGBA.

#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// dst = b + (a - b) * weight on all four components, over dst's whole pixel region, without
// clamping. The weight is the matte's value when the matte has one component, its alpha
// otherwise. Outside their tiles a, b and the matte read as their fill colours. The fill colour
// of dst's guard is set first to the same mix of a's and b's fill colours by the matte's fill
// alpha. The guard must hold a tile.
void ipBlend(IxWriteGuard& dst, IxReadGuard const& a, IxReadGuard const& b, IxReadGuard const& matte);

}  // namespace Orn
