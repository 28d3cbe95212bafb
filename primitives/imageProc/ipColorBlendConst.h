#pragma once
// Mixes a flat colour into a tile with one weight for every pixel.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixPixel.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// Each component becomes old weight + colour (1 - weight): 1, 3 or 4 components, alpha included
// on 4. A one-component tile takes the colour's luminance 0.2126 r + 0.7152 g + 0.0722 b. In 8 bits
// the result is rounded (0.5 added, then truncated) and clamped to 0..255; half and float results
// are not clamped. A null region means the whole tile.
void ipColorBlendConst(IxWriteGuard const& dst, float weight, IxPixel<IxPixelCompFloat32, 4> const& colour,
                       GeRectangle<int> const* region);

}  // namespace Orn
