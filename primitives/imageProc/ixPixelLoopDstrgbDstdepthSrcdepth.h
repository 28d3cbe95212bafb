#pragma once
// Colour destination and a source with the same component count, switched on the
// destination's component count {3, 4}, then on the depth of each tile.

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixPixelLoopTemplate.h>

namespace Orn {

// Runs F<IxPixel<DstComp, N>, IxPixel<SrcComp, N> const>.
template <template <class, class> class F, class Args>
void ixPixelLoopDstrgbDstdepthSrcdepth(IxWriteGuard const& dst, GeRectangle<int> const* dstRegion,
                                       IxPixelIterBase::Order dstOrder, IxReadGuard const& src,
                                       GeRectangle<int> const* srcRegion, IxPixelIterBase::Order srcOrder,
                                       Args const& args) {
  switch (int(dst.getTile().getPixelFormat().getComps())) {
    case 3:
      IxPixelLoopTemplate::runTwoTilesSrcDepth<F, 3>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args);
      return;
    case 4:
      IxPixelLoopTemplate::runTwoTilesSrcDepth<F, 4>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args);
      return;
    default:
      // Nothing has been touched yet.
      Assertions::throwProgramAborted("ixPixelLoopDstrgbDstdepthSrcdepth", __LINE__, nullptr);
  }
}

}  // namespace Orn
