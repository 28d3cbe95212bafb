#pragma once
// Lookup tables applied to images.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/imageProc/ixGenericLut.h>

namespace Orn {

// Every table has the depth of dst as output and the depth of src as input; dst and src have the
// same component count. Sources of 8 bits index the table, float sources interpolate in it; half
// sources are not served and raise as soon as a pixel is processed. Tables for 8-bit
// destinations yield 0..255. Regions (null: the tile's pixel region) are clipped to their tiles.

// Every component, alpha included, through lut. 8-bit results are truncated and clamped.
void ipLutApply(IxWriteGuard const& dst, IxReadGuard const& src, IxGenericLut const& lut,
                GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion);

// Red, green and blue through their tables; alpha converted in depth only. 3 or 4 components.
void ipLutApply(IxWriteGuard const& dst, IxReadGuard const& src, IxGenericLut const& lutR, IxGenericLut const& lutG,
                IxGenericLut const& lutB, GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion);

// Every component, alpha included, through lut and then the power stage: gain * x^gamma where
// x > 0, 0 elsewhere. 8-bit destinations work on 0..255 (callers fold that into the gain), and
// their results are truncated with only the low eight bits stored.
void ipLutApply(IxWriteGuard const& dst, IxReadGuard const& src, IxGenericLut const& lut, float gamma, float gain,
                GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion);

}  // namespace Orn
