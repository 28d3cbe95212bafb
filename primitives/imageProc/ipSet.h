#pragma once
// Constant fill of a region.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixPixel.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// Fills the region (null: the tile's pixel region; clipped to the tile) with the colour r, g, b, a.
// RGB tiles drop alpha, one-component tiles take alpha only. 8-bit components store
// value * 255 + 0.5, clamped to [0, 255] and truncated.
void ipSet(IxWriteGuard const& dst, IxPixel<IxPixelCompFloat32, 4> const& colour, GeRectangle<int> const* region);
void ipSet(IxWriteGuard const& dst, CoRgbaColorTyped<float> const& colour, GeRectangle<int> const* region);

}  // namespace Orn
