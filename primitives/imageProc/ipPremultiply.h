#pragma once
// Straight to premultiplied colour: (r, g, b, a) becomes (r a, g a, b a, a). Tiles without alpha
// (RGB, ALPHA) are copied.

#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// dst and src have one format; src's region contains dst's, which is the region processed.
void ipPremultiply(IxWriteGuard const& dst, IxReadGuard const& src);

}  // namespace Orn
