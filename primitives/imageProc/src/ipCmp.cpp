#include <orn/primitives/imageProc/ipCmp.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepthConst.h>

#include "ipRegionUtil.h"

#include <cmath>
#include <type_traits>

namespace Orn {

namespace {

class IpCmpFunctorArgs : public IxPixelFunctorArgs {
 public:
  explicit IpCmpFunctorArgs(bool* equal) : _equal(equal) {}
  bool* _equal;
};

template <class A, class B>
class IpCmpFunctor : public IxPixelFunctor<A, B> {
 public:
  using Comp = typename std::remove_const_t<A>::CompType;

  explicit IpCmpFunctor(IpCmpFunctorArgs const& args) : _equal(args._equal) {}

  // Every pixel is compared: the walk has no early exit.
  void operator()(A& a, B& b) const {
    bool same = true;
    for (int i = 0; i < A::NB_COMPS; ++i) same = same && isEqual(a[i].value, b[i].value);
    *_equal = *_equal && same;
  }

 private:
  static bool isEqual(typename Comp::Storage a, typename Comp::Storage b) {
    if constexpr (std::is_same_v<Comp, IxPixelCompUInt8>) {
      return a == b;
    } else if constexpr (std::is_same_v<Comp, IxPixelCompFloat16>) {
      return Comp::toFloat(a) == Comp::toFloat(b);
    } else {
      // Relative tolerance of one epsilon of the larger magnitude; infinities only match exactly.
      float const absA = std::fabs(a), absB = std::fabs(b);
      float m = absA > absB ? absA : absB;
      if (std::isinf(m)) m = 0.f;
      float const e = m * 1.1920929e-7f;
      float const smaller = a < b ? a : b;
      float const larger = a < b ? b : a;
      return smaller + e >= larger && !std::isnan(a) && !std::isnan(b);
    }
  }

  bool* _equal;
};

}  // namespace

bool ipCmp(IxReadGuard const& a, IxReadGuard const& b, GeRectangle<int> const* aRegion,
           GeRectangle<int> const* bRegion) {
  if (a.getTile() == b.getTile()) return true;
  IxPixelFormat const& formatA = a.getTile().getPixelFormat();
  IxPixelFormat const& formatB = b.getTile().getPixelFormat();
  if (formatA != formatB) return false;
  GeRectangle<int> const requestA = aRegion ? *aRegion : a.getPixelRegion();
  GeRectangle<int> const requestB = bRegion ? *bRegion : b.getPixelRegion();
  if (requestA.getWidth() != requestB.getWidth() || requestA.getHeight() != requestB.getHeight()) return false;
  // Regions that reach out of their tiles by different amounts cannot be compared pixel for pixel.
  GeRectangle<int> clippedA = IpRegionUtil::clip(a.getTile(), &requestA);
  GeRectangle<int> clippedB = IpRegionUtil::clip(b.getTile(), &requestB);
  if (clippedA.getWidth() != clippedB.getWidth() || clippedA.getHeight() != clippedB.getHeight()) return false;
  bool equal = true;
  IpCmpFunctorArgs const args(&equal);
  IxPixelIterBase::Order const order = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  ixPixelLoopDstcompDstdepthConst<IpCmpFunctor>(a, &clippedA, order, b, &clippedB, order, args);
  return equal;
}

}  // namespace Orn
