#pragma once
// Conversion of pixels between formats.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// Converts region (null: dst's pixel region) of src into dst's format, row by row through the row
// converters: a one-component pixel maps to alpha, RGB reads alpha as 1 and drops it on storage,
// and the depth rules of the converters apply. ALPHA COMPLEX converts only to ALPHA COMPLEX. The
// region must lie inside both tiles.
void ipFormatChange(IxWriteGuard const& dst, IxReadGuard const& src, GeRectangle<int> const* region);

}  // namespace Orn
