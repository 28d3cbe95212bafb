#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipDissolve.h>
#include <orn/primitives/imageProc/ixPixelLoop2InDstcompDstdepth.h>

#include "ipRegionUtil.h"
#include "ipStoreUtil.h"

#include <cstdint>
#include <type_traits>

namespace Orn {

namespace {

class IpDissolveFunctorArgs : public IxPixelFunctorArgs {
 public:
  explicit IpDissolveFunctorArgs(float factor) : _factor(factor) {}
  float _factor;
};

template <class Dst, class Src0, class Src1>
class IpDissolveFunctor : public IxPixelFunctor2In<Dst, Src0, Src1> {
 public:
  using Comp = typename std::remove_const_t<Dst>::CompType;

  explicit IpDissolveFunctor(IpDissolveFunctorArgs const& args)
      : _factor(args._factor), _complement(1.f - args._factor) {}

  void operator()(Dst& dst, Src0& a, Src1& b) const {
    for (int i = 0; i < Dst::NB_COMPS; ++i) dst[i].value = mix(a[i].value, b[i].value);
  }

 private:
  typename Comp::Storage mix(typename Comp::Storage a, typename Comp::Storage b) const {
    if constexpr (std::is_same_v<Comp, IxPixelCompUInt8>) {
      // Bytes as 0..255; the truncated sum keeps its low eight bits.
      float const pa = float(a) * _factor;
      float const pb = float(b) * _complement;
      return IpStoreUtil::truncateWrap(pa + pb);
    } else {
      float const pa = Comp::toFloat(a) * _factor;
      float const pb = Comp::toFloat(b) * _complement;
      return Comp::fromFloat(pa + pb);
    }
  }

  float _factor;
  float _complement;
};

}  // namespace

void ipDissolve(IxWriteGuard const& dst, IxReadGuard const& src0, IxReadGuard const& src1, float factor,
                GeRectangle<int> const* dstRegion, GeRectangle<int> const* src0Region,
                GeRectangle<int> const* src1Region) {
  ORN_ASSERT(dst.getTile().getPixelFormat() == src0.getTile().getPixelFormat() && dst.getTile().getPixelFormat() == src1.getTile().getPixelFormat());
  GeRectangle<int> d = IpRegionUtil::clip(dst.getTile(), dstRegion);
  GeRectangle<int> a = IpRegionUtil::clip(src0.getTile(), src0Region);
  GeRectangle<int> b = IpRegionUtil::clip(src1.getTile(), src1Region);
  IpRegionUtil::shrinkToCommonSize({&d, &a, &b});
  IpDissolveFunctorArgs const args(factor);
  IxPixelIterBase::Order const order = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  ixPixelLoop2InDstcompDstdepth<IpDissolveFunctor>(dst, &d, order, src0, &a, order, src1, &b, order, args);
}

}  // namespace Orn
