#include <orn/primitives/imageProc/ipColorBlend.h>

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepthDiffNC.h>

#include <emmintrin.h>

#include <cstdint>
#include <type_traits>

namespace Orn {

namespace {

class IpColorBlendFunctorArgs : public IxPixelFunctorArgs {
public:
  explicit IpColorBlendFunctorArgs(CoRgbColorTyped<float> const& c) : colour(c) {}
  CoRgbColorTyped<float> colour;
};

template <class Dst, class Src>
class IpColorBlendFunctor : public IxPixelFunctor<Dst, Src> {
public:
  using Comp = typename std::remove_const_t<Dst>::CompType;
  static constexpr int N = Dst::NB_COMPS;
  // Components that take the colour; the one after them, if any, is alpha.
  static constexpr int NB_COLOUR = N < 3 ? 1 : 3;

  explicit IpColorBlendFunctor(IpColorBlendFunctorArgs const& args) {
    CoRgbColorTyped<float> const& c = args.colour;
    if constexpr (NB_COLOUR == 1) {
      _colour[0] = 0.2126f * c.r + 0.7152f * c.g + 0.0722f * c.b;
    } else {
      _colour[0] = c.r;
      _colour[1] = c.g;
      _colour[2] = c.b;
    }
    _colour[3] = 1.0f;  // what alpha moves toward
  }

  void operator()(Dst& dst, Src& matte) const {
    if constexpr (std::is_same_v<Comp, IxPixelCompUInt8>) {
      // The matte stays in 0..255: the old value is weighted by (255 - m) / 255, the colour in
      // 0..1 by m.
      int const m = matte[0].value;
      float const keep = float(255 - m) * 0.003921569f;
      float const take = float(m);
      for (int i = 0; i < NB_COLOUR; ++i) dst[i].value = truncate(float(dst[i].value) * keep + _colour[i] * take);
      if constexpr (N == 2 || N == 4) dst[N - 1].value = truncate(float(dst[N - 1].value) * keep + take);
    } else {
      float const w = Comp::toFloat(matte[0].value);
      float const keep = 1.0f - w;
      for (int i = 0; i < NB_COLOUR; ++i)
        dst[i].value = Comp::fromFloat(Comp::toFloat(dst[i].value) * keep + _colour[i] * w);
      if constexpr (N == 2 || N == 4) dst[N - 1].value = Comp::fromFloat(Comp::toFloat(dst[N - 1].value) * keep + w);
    }
  }

private:
  // Toward zero, keeping the low eight bits; out-of-range values give 0 rather than undefined
  // behaviour.
  static std::uint8_t truncate(float v) { return std::uint8_t(_mm_cvttss_si32(_mm_set_ss(v))); }

  float _colour[4];
};

}  // namespace

void ipColorBlend(IxWriteGuard const& dstImage, IxReadGuard const& alphaImage, CoRgbColorTyped<float> const& colour,
                  GeRectangle<int> const* dstRegion, GeRectangle<int> const* alphaRegion) {
  ORN_ASSERT(dstImage.getTile().getPixelFormat().getDepth() == alphaImage.getTile().getPixelFormat().getDepth());
  ORN_ASSERT(alphaImage.getTile().getPixelFormat().getComps() == 1);
  IpColorBlendFunctorArgs const args(colour);
  ixPixelLoopDstcompDstdepthDiffNC<IpColorBlendFunctor>(dstImage, dstRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS,
                                                        alphaImage, alphaRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS,
                                                        args);
}

}  // namespace Orn
