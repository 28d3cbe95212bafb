#pragma once
// Destination and a source of the same format, switched on the destination's
// component count {1, 3, 4} and depth.

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixPixelLoopTemplate.h>

namespace Orn {

// Runs F<P, P const>. The caller makes sure that both tiles have the same format.
template <template <class, class> class F, class Args>
void ixPixelLoopDstcompDstdepth(IxWriteGuard const& dst, GeRectangle<int> const* dstRegion,
                                IxPixelIterBase::Order dstOrder, IxReadGuard const& src,
                                GeRectangle<int> const* srcRegion, IxPixelIterBase::Order srcOrder, Args const& args) {
  switch (int(dst.getTile().getPixelFormat().getComps())) {
    case 1: IxPixelLoopTemplate::runTwoTiles<F, 1, 1>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    case 3: IxPixelLoopTemplate::runTwoTiles<F, 3, 3>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    case 4: IxPixelLoopTemplate::runTwoTiles<F, 4, 4>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    default:
      // Nothing has been touched yet.
      Assertions::throwProgramAborted("ixPixelLoopDstcompDstdepth", __LINE__, nullptr);
  }
}

}  // namespace Orn
