#pragma once
// One read-only tile, switched on its component count {1, 3, 4} and depth.

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixPixelLoopTemplate.h>

namespace Orn {

// Runs F<P const, P const> over the tile, each pixel passed twice.
template <template <class, class> class F, class Args>
void ixPixelLoopCompDepthConst(IxReadGuard const& src, GeRectangle<int> const* srcRegion,
                               IxPixelIterBase::Order srcOrder, Args const& args) {
  switch (int(src.getTile().getPixelFormat().getComps())) {
    case 1: IxPixelLoopTemplate::runOneTile<F, 1>(src, srcRegion, srcOrder, args); return;
    case 3: IxPixelLoopTemplate::runOneTile<F, 3>(src, srcRegion, srcOrder, args); return;
    case 4: IxPixelLoopTemplate::runOneTile<F, 4>(src, srcRegion, srcOrder, args); return;
    default:
      // Nothing has been touched yet.
      Assertions::throwProgramAborted("ixPixelLoopCompDepthConst", __LINE__, nullptr);
  }
}

}  // namespace Orn
