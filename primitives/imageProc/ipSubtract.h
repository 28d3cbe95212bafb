#pragma once
// Difference of two images, computed in float row by row.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// dst = srcA - srcB, under the same rules as ipAdd.
void ipSubtract(IxWriteGuard const& dst, IxReadGuard const& srcA, IxReadGuard const& srcB,
                GeRectangle<int> const* dstRgn);

}  // namespace Orn
