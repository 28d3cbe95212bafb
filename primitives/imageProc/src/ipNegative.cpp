#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipNegative.h>
#include <orn/primitives/imageProc/ixIsInPlace.h>
#include <orn/primitives/imageProc/ixPixelLoopCompDepth.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepth.h>

#include <cstdint>
#include <type_traits>

namespace Orn {

namespace {

class IpNegativeFunctorArgs : public IxPixelFunctorArgs {};

template <class Dst, class Src>
class IpNegativeFunctor : public IxPixelFunctor<Dst, Src> {
 public:
  explicit IpNegativeFunctor(IpNegativeFunctorArgs const&) {}

  // In place, dst and src are the same pixel: each component is read before it is written.
  void operator()(Dst& dst, Src& src) const {
    using Comp = typename std::remove_const_t<Dst>::CompType;
    for (int i = 0; i < Dst::NB_COMPS; ++i) {
      if constexpr (std::is_same_v<Comp, IxPixelCompUInt8>)
        dst[i].value = static_cast<std::uint8_t>(~src[i].value);
      else
        dst[i].value = Comp::fromFloat(1.f - Comp::toFloat(src[i].value));
    }
  }
};

}  // namespace

void ipNegative(IxWriteGuard const& dst, IxReadGuard const& src, GeRectangle<int> const* dstRegion,
                GeRectangle<int> const* srcRegion) {
  ORN_ASSERT(dst.getTile().getPixelFormat() == src.getTile().getPixelFormat());
  IxPixelIterBase::Order dstOrder = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  IxPixelIterBase::Order srcOrder = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  bool const inPlace = ixIsInPlace(dst.getTile(), src.getTile(), dstRegion, srcRegion, dstOrder, srcOrder);
  IpNegativeFunctorArgs const args;
  if (inPlace)
    ixPixelLoopCompDepth<IpNegativeFunctor>(dst, dstRegion, dstOrder, args);
  else
    ixPixelLoopDstcompDstdepth<IpNegativeFunctor>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args);
}

}  // namespace Orn
