#pragma once
// Two read-only tiles of the same format, switched on the first one's component count
// {1, 2, 3, 4} and depth. The first tile drives the walk.

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixPixelLoopTemplate.h>

namespace Orn {

// Runs F<P const, P const> with the first tile's pixel first.
template <template <class, class> class F, class Args>
void ixPixelLoopDstcompDstdepthConst(IxReadGuard const& dst, GeRectangle<int> const* dstRegion,
                                     IxPixelIterBase::Order dstOrder, IxReadGuard const& src,
                                     GeRectangle<int> const* srcRegion, IxPixelIterBase::Order srcOrder,
                                     Args const& args) {
  switch (int(dst.getTile().getPixelFormat().getComps())) {
    case 1: IxPixelLoopTemplate::runTwoTiles<F, 1, 1>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    case 2: IxPixelLoopTemplate::runTwoTiles<F, 2, 2>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    case 3: IxPixelLoopTemplate::runTwoTiles<F, 3, 3>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    case 4: IxPixelLoopTemplate::runTwoTiles<F, 4, 4>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args); return;
    default:
      // Nothing has been touched yet.
      Assertions::throwProgramAborted("ixPixelLoopDstcompDstdepthConst", __LINE__, nullptr);
  }
}

}  // namespace Orn
