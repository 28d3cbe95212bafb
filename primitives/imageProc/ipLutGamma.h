#pragma once
// Lookup tables with a power stage per channel.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/imageProc/ixGenericLut.h>

namespace Orn {

// Red, green and blue through their tables, then each through gain * x^gamma where x > 0 and 0
// elsewhere; alpha converted in depth only. 3 or 4 components, the tables' depths being dst's
// (output) and src's (input), as for ipLutApply. 8-bit destinations work on 0..255 and store the
// truncated result's low eight bits; half sources raise as soon as a pixel is processed.
void ipLutGammaApply(IxWriteGuard const& dst, IxReadGuard const& src, IxGenericLut const& lutR,
                     IxGenericLut const& lutG, IxGenericLut const& lutB, float gammaR, float gammaG, float gammaB,
                     float gainR, float gainG, float gainB, GeRectangle<int> const* dstRegion,
                     GeRectangle<int> const* srcRegion);

}  // namespace Orn
