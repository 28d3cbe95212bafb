#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipSeparate.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepthDiffNC.h>

#include "ipRegionUtil.h"

namespace Orn {

namespace {

class IpSeparateFunctorArgs : public IxPixelFunctorArgs {};

// The source component goes to the channels of Mask (bit i: channel i), zero to the others.
template <unsigned Mask, class Dst, class Src>
class IpSeparateFunctorBase : public IxPixelFunctor<Dst, Src> {
 public:
  void operator()(Dst& dst, Src& src) const {
    auto const s = src[0].value;
    for (int i = 0; i < Dst::NB_COMPS; ++i) dst[i].value = ((Mask >> i) & 1u) ? s : decltype(s)(0);
  }
};

template <class Dst, class Src>
class IpSeparateFunctorRed : public IpSeparateFunctorBase<0x1, Dst, Src> {
 public:
  explicit IpSeparateFunctorRed(IpSeparateFunctorArgs const&) {}
};

template <class Dst, class Src>
class IpSeparateFunctorGreen : public IpSeparateFunctorBase<0x2, Dst, Src> {
 public:
  explicit IpSeparateFunctorGreen(IpSeparateFunctorArgs const&) {}
};

template <class Dst, class Src>
class IpSeparateFunctorBlue : public IpSeparateFunctorBase<0x4, Dst, Src> {
 public:
  explicit IpSeparateFunctorBlue(IpSeparateFunctorArgs const&) {}
};

template <class Dst, class Src>
class IpSeparateFunctorAlpha : public IpSeparateFunctorBase<0x8, Dst, Src> {
 public:
  explicit IpSeparateFunctorAlpha(IpSeparateFunctorArgs const&) {}
};

template <class Dst, class Src>
class IpSeparateFunctorAll : public IpSeparateFunctorBase<0xF, Dst, Src> {
 public:
  explicit IpSeparateFunctorAll(IpSeparateFunctorArgs const&) {}
};

}  // namespace

void ipSeparate(IxWriteGuard const& dstImage, IxReadGuard const& srcImage, Separate which,
                GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion) {
  int const dstNbComp = dstImage.getTile().getPixelFormat().getComps();
  ORN_ASSERT(dstImage.getTile().getPixelFormat().getDepth() == srcImage.getTile().getPixelFormat().getDepth());
  ORN_ASSERT(dstNbComp >= 3);
  ORN_ASSERT(srcImage.getTile().getPixelFormat().getComps() == 1);

  GeRectangle<int> d = IpRegionUtil::clip(dstImage.getTile(), dstRegion);
  GeRectangle<int> s = IpRegionUtil::clip(srcImage.getTile(), srcRegion);
  IpRegionUtil::shrinkToCommonSize({&d, &s});
  IpSeparateFunctorArgs const args;
  IxPixelIterBase::Order const order = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  switch (which) {
    case SEPARATE_RED:
      ixPixelLoopDstcompDstdepthDiffNC<IpSeparateFunctorRed>(dstImage, &d, order, srcImage, &s, order, args);
      return;
    case SEPARATE_GREEN:
      ixPixelLoopDstcompDstdepthDiffNC<IpSeparateFunctorGreen>(dstImage, &d, order, srcImage, &s, order, args);
      return;
    case SEPARATE_BLUE:
      ixPixelLoopDstcompDstdepthDiffNC<IpSeparateFunctorBlue>(dstImage, &d, order, srcImage, &s, order, args);
      return;
    case SEPARATE_ALPHA:
      ixPixelLoopDstcompDstdepthDiffNC<IpSeparateFunctorAlpha>(dstImage, &d, order, srcImage, &s, order, args);
      return;
    case SEPARATE_ALL:
      ixPixelLoopDstcompDstdepthDiffNC<IpSeparateFunctorAll>(dstImage, &d, order, srcImage, &s, order, args);
      return;
  }
  ORN_ABORT(nullptr);
}

}  // namespace Orn
