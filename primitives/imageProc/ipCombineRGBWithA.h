#pragma once
// The colour of one image with the alpha of another.

#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// Over dst's pixel region: red, green and blue from rgb, alpha from alpha (a one-component tile
// gives its component, an RGB tile 1), stored in dst's format. The three tiles may have any
// formats; pixels outside a source count as transparent black.
void ipCombineRGBWithA(IxWriteGuard const& dst, IxReadGuard const& rgb, IxReadGuard const& alpha);

}  // namespace Orn
