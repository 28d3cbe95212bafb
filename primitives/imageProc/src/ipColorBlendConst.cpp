#include <orn/primitives/imageProc/ipColorBlendConst.h>

#include <orn/primitives/imageProc/ixPixelLoopCompDepth.h>

#include <type_traits>

namespace Orn {

namespace {

class IpColorBlendConstFunctorArgs : public IxPixelFunctorArgs {
public:
  IpColorBlendConstFunctorArgs(float w, IxPixel<IxPixelCompFloat32, 4> const& c) : weight(w), colour(c) {}
  float weight;
  IxPixel<IxPixelCompFloat32, 4> colour;
};

template <class Dst, class Src>
class IpColorBlendConstFunctor : public IxPixelFunctor<Dst, Src> {
public:
  using Comp = typename std::remove_const_t<Dst>::CompType;
  static constexpr int N = Dst::NB_COMPS;
  static constexpr bool IS_8BIT = std::is_same_v<Comp, IxPixelCompUInt8>;

  explicit IpColorBlendConstFunctor(IpColorBlendConstFunctorArgs const& args) : _weight(args.weight) {
    IxPixel<IxPixelCompFloat32, 4> const& c = args.colour;
    float colour[4] = {c[0].value, c[1].value, c[2].value, c[3].value};
    if constexpr (N == 1) colour[0] = 0.2126f * c[0].value + 0.7152f * c[1].value + 0.0722f * c[2].value;
    // The colour's share is fixed for the call; in 8 bits it is brought to 0..255 here.
    float const share = 1.0f - _weight;
    for (int i = 0; i < 4; ++i) _colourTerm[i] = IS_8BIT ? colour[i] * share * 255.0f : colour[i] * share;
  }

  void operator()(Dst& dst, Src&) const {
    for (int i = 0; i < N; ++i) {
      if constexpr (IS_8BIT) {
        double const v = double(float(dst[i].value) * _weight + _colourTerm[i]) + 0.5;
        dst[i].value = typename Comp::Storage(v > 0.0 ? (v < 255.0 ? v : 255.0) : 0.0);
      } else {
        dst[i].value = Comp::fromFloat(Comp::toFloat(dst[i].value) * _weight + _colourTerm[i]);
      }
    }
  }

private:
  float _weight;
  float _colourTerm[4];
};

}  // namespace

void ipColorBlendConst(IxWriteGuard const& dst, float weight, IxPixel<IxPixelCompFloat32, 4> const& colour,
                       GeRectangle<int> const* region) {
  IpColorBlendConstFunctorArgs const args(weight, colour);
  ixPixelLoopCompDepth<IpColorBlendConstFunctor>(dst, region, IxPixelIterBase::ORDER_H_XPOS_YPOS, args);
}

}  // namespace Orn
