#pragma once
// Destination and a one-component source of the same depth, switched on the
// destination's component count {1, 2, 3, 4} and depth.

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixPixelLoopTemplate.h>

namespace Orn {

// Runs F<IxPixel<C, N>, IxPixel<C, 1> const>.
template <template <class, class> class F, class Args>
void ixPixelLoopDstcompDstdepthDiffNC(IxWriteGuard const& dst, GeRectangle<int> const* dstRegion,
                                      IxPixelIterBase::Order dstOrder, IxReadGuard const& src,
                                      GeRectangle<int> const* srcRegion, IxPixelIterBase::Order srcOrder,
                                      Args const& args) {
  switch (int(dst.getTile().getPixelFormat().getComps())) {
    case 1: IxPixelLoopTemplate::runTwoTiles<F, 1, 1>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    case 2: IxPixelLoopTemplate::runTwoTiles<F, 2, 1>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    case 3: IxPixelLoopTemplate::runTwoTiles<F, 3, 1>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    case 4: IxPixelLoopTemplate::runTwoTiles<F, 4, 1>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    default:
      // Nothing has been touched yet.
      Assertions::throwProgramAborted("ixPixelLoopDstcompDstdepthDiffNC", __LINE__, nullptr);
  }
}

}  // namespace Orn
