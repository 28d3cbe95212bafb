#pragma once
// Difference key of two images: a grey image of the worst channel's thresholded difference.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// For each channel c that the tiles have (channel 0 only for one-component tiles, the first three
// for RGB), d = |src0 - src1| becomes 0 when it is within the channel's threshold and d times the
// channel's gain otherwise; the largest of these values is stored in every component of dst.
//  - gain: scale / range(c) when range(c) > 0, else 1 (8 bits: that times 256 as an integer, else
//    65280, and v = (gain * d + 128) >> 8, an overflowing product counting as 255);
//  - threshold: tolerance(c) percent of full scale when use(c) is set, else full scale.
// 8-bit keys are clamped to 255; half and float keys are not clamped. The three tiles have one
// format; regions (null: the tile's pixel region) are clipped and cut to their common size.
void ipDifference(IxWriteGuard const& dst, IxReadGuard const& src0, IxReadGuard const& src1, bool useR, bool useG,
                  bool useB, bool useA, float rangeR, float rangeG, float rangeB, float rangeA, float toleranceR,
                  float toleranceG, float toleranceB, float toleranceA, float scale,
                  GeRectangle<int> const* dstRegion, GeRectangle<int> const* src0Region,
                  GeRectangle<int> const* src1Region);

}  // namespace Orn
