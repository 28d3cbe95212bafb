#pragma once
// Regions of the two- and three-tile operators. The pixel loops clip each region to its own tile
// and let the destination's walk drive the others; an operator that takes several regions brings
// them to one size first, so that no source is walked beyond its clipped region.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixTile.h>
#include <orn/primitives/imageProc/ixPixelIterBase.h>

#include <algorithm>
#include <initializer_list>

namespace Orn {
namespace IpRegionUtil {

// The region a loop walks on a tile for a requested region (null: the whole tile).
inline GeRectangle<int> clip(IxTile const& tile, GeRectangle<int> const* region) {
  return IxPixelIterBase::clipRegion(tile.getPixelRegion(), region);
}

// Shrinks every region to the smallest width and height among them, keeping each one's corner.
inline void shrinkToCommonSize(std::initializer_list<GeRectangle<int>*> regions) {
  int width = (*regions.begin())->getWidth();
  int height = (*regions.begin())->getHeight();
  for (GeRectangle<int> const* r : regions) {
    width = std::min(width, r->getWidth());
    height = std::min(height, r->getHeight());
  }
  width = std::max(width, 0);
  height = std::max(height, 0);
  for (GeRectangle<int>* r : regions) *r = GeRectangle<int>(r->x1(), r->x1() + width, r->y1(), r->y1() + height);
}

}  // namespace IpRegionUtil
}  // namespace Orn
