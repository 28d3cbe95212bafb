#pragma once
// Pixel values as text, for debugging.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>

#include <ostream>

namespace Orn {

// Both forms write a header line, "<title>: <comps> x <depth> bits, region [x1, x2) x [y1, y2)",
// for the region (null: the tile's pixel region) clipped to the tile, then the pixels, each as
// its components separated by spaces (bytes as integers, half and float as values).
// This form writes one line per row, "y <y>:" followed by the row's pixels separated by " | ".
void ipPrint(std::ostream& out, IxReadGuard const& tile, char const* title, GeRectangle<int> const* region);
// This form writes one line per pixel, "(x, y) = " followed by the pixel.
void ipPrint(IxReadGuard const& tile, std::ostream& out, char const* title, GeRectangle<int> const* region);

}  // namespace Orn
