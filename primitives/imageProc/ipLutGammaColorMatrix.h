#pragma once
// Lookup tables, a power stage and a colour matrix, in one pass.

#include <orn/base/geometryBase/geProjectiveMatrix3.h>
#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/imageProc/ixGenericLut.h>

namespace Orn {

// As ipLutColorMatrix, with the power stage between the tables and the matrix: each table value x
// becomes gain * x^gamma where x > 0 and 0 elsewhere. For 8 bits the stage works on 0..255 as it
// stands (callers fold that into the gain); results are truncated and clamped to 0..255.

// One table and one power for every channel; alpha goes through both before it is multiplied by
// the matrix's alpha element.
void ipLutGammaColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeProjectiveMatrix3<float> const& matrix,
                           IxGenericLut const& lut, float gamma, float gain, GeRectangle<int> const* dstRegion,
                           GeRectangle<int> const* srcRegion);

// A table and a power per colour channel; the source alpha is multiplied as it is.
void ipLutGammaColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeProjectiveMatrix3<float> const& matrix,
                           IxGenericLut const& lutR, IxGenericLut const& lutG, IxGenericLut const& lutB, float gammaR,
                           float gammaG, float gammaB, float gainR, float gainG, float gainB,
                           GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion);

}  // namespace Orn
