#pragma once
// Colour matrix over a tile: out_i = sum_j M_ij c_j + t_i for the three colour channels, a colour
// being a column vector (r, g, b) (see IpColorMatrix for the storage of each matrix type).

#include <orn/base/geometryBase/geLinearMatrix3.h>
#include <orn/base/geometryBase/geProjectiveMatrix3.h>
#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// dst and src have the same format, 3 or 4 components of any depth; regions as in the pixel loops
// (null: the tile's pixel region; clipped to the tiles). The colour part is the matrix's upper left
// 3x3 block with its translation t_i at index 12 + i (element (row i, column j) at index 4 j + i).
// Alpha becomes a times the bottom right element; the rest of the last row and of the fourth
// column is not used, and nothing is divided by w. 8-bit results are truncated and saturated to
// 0..255; half and float ones are not clamped.
void ipApplyColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeProjectiveMatrix3<float> const& matrix,
                        GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion);

// The same with a linear matrix, element (row i, column j) at m(i, j), and alpha copied.
void ipApplyColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeLinearMatrix3<float> const& matrix,
                        GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion);

}  // namespace Orn
