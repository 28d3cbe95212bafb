#pragma once
// Lookup tables followed by a colour matrix, in one pass.

#include <orn/base/geometryBase/geProjectiveMatrix3.h>
#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/imageProc/ixGenericLut.h>

namespace Orn {

// dst and src have one format, 3 or 4 components, 8-bit or float (half sources raise as soon as
// a pixel is processed); the tables have that depth as output and input. Red, green and blue go
// through the tables, then through the matrix in the colour sense: out_i = sum_j M_ij y_j + t_i,
// where M_ij is the element at index 4j + i of the matrix's data and t_i the one at 12 + i (the
// translation); no projective division takes place. The matrix works on the range of the depth:
// for 8 bits the 3x3 block applies to 0..255 as it stands and the translation is multiplied by
// 255. Alpha is multiplied by the element at index 15. 8-bit results are truncated and clamped,
// half and float ones are not clamped. Regions (null: the tile's pixel region) are clipped.

// Alpha goes through lut before it is multiplied.
void ipLutColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeProjectiveMatrix3<float> const& matrix,
                      IxGenericLut const& lut, GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion);

// One table per colour channel; the source alpha is multiplied as it is.
void ipLutColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeProjectiveMatrix3<float> const& matrix,
                      IxGenericLut const& lutR, IxGenericLut const& lutG, IxGenericLut const& lutB,
                      GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion);

}  // namespace Orn
