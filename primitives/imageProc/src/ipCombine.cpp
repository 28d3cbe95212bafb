#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipCombine.h>
#include <orn/primitives/imageProc/ixPixelLoopTemplate.h>

#include "ipRegionUtil.h"

namespace Orn {

namespace {

class IpCombineFunctorArgs : public IxPixelFunctorArgs {};

template <class Dst, class Src>
class IpCompineFunctor : public IxPixelFunctor4In<Dst, Src> {
 public:
  explicit IpCompineFunctor(IpCombineFunctorArgs const&) {}

  void operator()(Dst& dst, Src& r, Src& g, Src& b, Src& a) const {
    dst[0] = r[0];
    dst[1] = g[0];
    dst[2] = b[0];
    dst[3] = a[0];
  }
};

}  // namespace

void ipCombine(IxWriteGuard const& dst, IxReadGuard const& srcR, IxReadGuard const& srcG, IxReadGuard const& srcB,
               IxReadGuard const& srcA, GeRectangle<int> const* dstRegion, GeRectangle<int> const* rRegion,
               GeRectangle<int> const* gRegion, GeRectangle<int> const* bRegion, GeRectangle<int> const* aRegion) {
  ORN_ASSERT(dst.getTile().getPixelFormat().getDepth() == srcR.getTile().getPixelFormat().getDepth() && srcR.getTile().getPixelFormat().getDepth() == srcG.getTile().getPixelFormat().getDepth() && srcG.getTile().getPixelFormat().getDepth() == srcB.getTile().getPixelFormat().getDepth());
  ORN_ASSERT(dst.getTile().getPixelFormat().getComps() == 4 && srcR.getTile().getPixelFormat().getComps() == 1 && srcG.getTile().getPixelFormat().getComps() == 1 && srcB.getTile().getPixelFormat().getComps() == 1 && srcA.getTile().getPixelFormat().getComps() == 1);

  GeRectangle<int> d = IpRegionUtil::clip(dst.getTile(), dstRegion);
  GeRectangle<int> r = IpRegionUtil::clip(srcR.getTile(), rRegion);
  GeRectangle<int> g = IpRegionUtil::clip(srcG.getTile(), gRegion);
  GeRectangle<int> b = IpRegionUtil::clip(srcB.getTile(), bRegion);
  GeRectangle<int> a = IpRegionUtil::clip(srcA.getTile(), aRegion);
  IpRegionUtil::shrinkToCommonSize({&d, &r, &g, &b, &a});

  IpCombineFunctorArgs const args;
  IxPixelIterBase::Order const order = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  IxPixelLoopTemplate::switchDepth(dst.getTile().getPixelFormat(), [&]<class Comp>(std::type_identity<Comp>) {
    using DstPixel = IxPixel<Comp, 4>;
    using SrcPixel = IxPixel<Comp, 1> const;
    IpCompineFunctor<DstPixel, SrcPixel> functor(args);
    IxPixelLoopTemplate::walk(functor, IxPixelIter<DstPixel>(dst, &d, order), IxPixelIter<SrcPixel>(srcR, &r, order),
                              IxPixelIter<SrcPixel>(srcG, &g, order), IxPixelIter<SrcPixel>(srcB, &b, order),
                              IxPixelIter<SrcPixel>(srcA, &a, order));
  });
}

}  // namespace Orn
