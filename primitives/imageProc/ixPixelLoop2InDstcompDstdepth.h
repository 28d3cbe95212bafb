#pragma once
// Destination and two sources of the same format, switched on the destination's
// component count {1, 3, 4} and depth.

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixPixelLoopTemplate.h>

namespace Orn {

// Runs F<P, P const, P const>. The caller makes sure that the three tiles have the same format.
template <template <class, class, class> class F, class Args>
void ixPixelLoop2InDstcompDstdepth(IxWriteGuard const& dst, GeRectangle<int> const* dstRegion,
                                   IxPixelIterBase::Order dstOrder, IxReadGuard const& src0,
                                   GeRectangle<int> const* src0Region, IxPixelIterBase::Order src0Order,
                                   IxReadGuard const& src1, GeRectangle<int> const* src1Region,
                                   IxPixelIterBase::Order src1Order, Args const& args) {
  switch (int(dst.getTile().getPixelFormat().getComps())) {
    case 1:
      IxPixelLoopTemplate::runThreeTiles<F, 1>(dst, dstRegion, dstOrder, src0, src0Region, src0Order, src1, src1Region,
                                               src1Order, args);
      return;
    case 3:
      IxPixelLoopTemplate::runThreeTiles<F, 3>(dst, dstRegion, dstOrder, src0, src0Region, src0Order, src1, src1Region,
                                               src1Order, args);
      return;
    case 4:
      IxPixelLoopTemplate::runThreeTiles<F, 4>(dst, dstRegion, dstOrder, src0, src0Region, src0Order, src1, src1Region,
                                               src1Order, args);
      return;
    default:
      // Nothing has been touched yet.
      Assertions::throwProgramAborted("ixPixelLoop2InDstcompDstdepth", __LINE__, nullptr);
  }
}

}  // namespace Orn
