#pragma once
// Paints a flat colour into a tile through a matte.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/coRgbColorTyped.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// With w the matte's value in 0..1, each colour component c of dstImage becomes
// c (1 - w) + colour w, and alpha a (second component of 2, fourth of 4) becomes a (1 - w) + w.
// A one- or two-component tile takes the colour's luminance 0.2126 r + 0.7152 g + 0.0722 b.
// alphaImage has one component and dstImage's depth. In 8 bits the result is truncated and only
// its low eight bits are kept: no clamp, no rounding. Regions as in the pixel loops.
void ipColorBlend(IxWriteGuard const& dstImage, IxReadGuard const& alphaImage, CoRgbColorTyped<float> const& colour,
                  GeRectangle<int> const* dstRegion, GeRectangle<int> const* alphaRegion);

}  // namespace Orn
