#include <orn/primitives/imageProc/ipSet.h>
#include <orn/primitives/imageProc/ixPixelLoopCompDepth.h>

#include <cstdint>
#include <type_traits>

namespace Orn {

namespace {

class IpSetFunctorArgs : public IxPixelFunctorArgs {
 public:
  IpSetFunctorArgs(float r, float g, float b, float a) : _colour{r, g, b, a} {}
  float _colour[4];
};

template <class Dst, class Src>
class IpSetFunctor : public IxPixelFunctor<Dst, Src> {
 public:
  using Comp = typename Dst::CompType;

  // The stored pixel is made once: alpha alone for one component, the colour for three.
  explicit IpSetFunctor(IpSetFunctorArgs const& args) {
    for (int i = 0; i < Dst::NB_COMPS; ++i)
      _pixel[i].value = Comp::fromFloat(Dst::NB_COMPS == 1 ? args._colour[3] : args._colour[i]);
  }

  void operator()(Dst& dst, Src&) const { dst = _pixel; }

  void runContiguous(std::int32_t nbPixels, Dst* dst, Src*) const {
    for (std::int32_t i = 0; i < nbPixels; ++i) dst[i] = _pixel;
  }

 private:
  Dst _pixel;
};

void set(IxWriteGuard const& dst, float r, float g, float b, float a, GeRectangle<int> const* region) {
  IpSetFunctorArgs const args(r, g, b, a);
  ixPixelLoopCompDepth<IpSetFunctor>(dst, region, IxPixelIterBase::ORDER_H_XPOS_YPOS, args);
}

}  // namespace

void ipSet(IxWriteGuard const& dst, IxPixel<IxPixelCompFloat32, 4> const& colour, GeRectangle<int> const* region) {
  set(dst, colour[0].value, colour[1].value, colour[2].value, colour[3].value, region);
}

void ipSet(IxWriteGuard const& dst, CoRgbaColorTyped<float> const& colour, GeRectangle<int> const* region) {
  set(dst, colour.r, colour.g, colour.b, colour.a, region);
}

}  // namespace Orn
