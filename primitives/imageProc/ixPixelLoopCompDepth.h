#pragma once
// One tile read and written, switched on its component count {1, 3, 4} and depth.

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixPixelLoopTemplate.h>

namespace Orn {

// Runs F<P, P> over the tile, each pixel passed as destination and source.
template <template <class, class> class F, class Args>
void ixPixelLoopCompDepth(IxWriteGuard const& dst, GeRectangle<int> const* dstRegion, IxPixelIterBase::Order dstOrder,
                          Args const& args) {
  switch (int(dst.getTile().getPixelFormat().getComps())) {
    case 1: IxPixelLoopTemplate::runOneTile<F, 1>(dst, dstRegion, dstOrder, args); return;
    case 3: IxPixelLoopTemplate::runOneTile<F, 3>(dst, dstRegion, dstOrder, args); return;
    case 4: IxPixelLoopTemplate::runOneTile<F, 4>(dst, dstRegion, dstOrder, args); return;
    default:
      // Nothing has been touched yet.
      Assertions::throwProgramAborted("ixPixelLoopCompDepth", __LINE__, nullptr);
  }
}

}  // namespace Orn
