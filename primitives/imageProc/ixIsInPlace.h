#pragma once
// Decides how a two-tile pixel loop may run when destination and source may share memory.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixTile.h>
#include <orn/primitives/imageProc/ixPixelIterBase.h>

namespace Orn {

// True when dst and src are the same pixels with the same region (null: the tile's own) and the
// same stride: a one-tile loop over dst alone does the work. False otherwise; when the two share
// memory, the orders are changed where needed so that a two-tile loop walking them never writes a
// pixel before it has been read. Different tiles return false with the orders untouched.
// Raises when the regions differ in size, and when overlapping walks are not horizontal minor.
bool ixIsInPlace(IxTile const& dst, IxTile const& src, GeRectangle<int> const* dstRegion,
                 GeRectangle<int> const* srcRegion, IxPixelIterBase::Order& dstOrder, IxPixelIterBase::Order& srcOrder);

}  // namespace Orn
