#include <orn/primitives/imageProc/ipLutGamma.h>
#include <orn/primitives/imageProc/ixPixelLoopDstrgbDstdepthSrcdepth.h>

#include "ipLutStages.h"

namespace Orn {

namespace {

class IpApplyRGBLutGammaFunctorArgs : public IxPixelFunctorArgs {
 public:
  IpApplyRGBLutGammaFunctorArgs(IxGenericLut const* const luts[3], float const gammas[3], float const gains[3]) {
    for (int c = 0; c < 3; ++c) {
      _luts[c] = luts[c];
      _gammas[c] = gammas[c];
      _gains[c] = gains[c];
    }
  }
  IxGenericLut const* _luts[3];
  float _gammas[3];
  float _gains[3];
};

template <class Dst, class Src>
class IpApplyRGBLutGammaFunctor : public IxPixelFunctor<Dst, Src> {
 public:
  using DstComp = typename Dst::CompType;
  using SrcComp = typename std::remove_const_t<Src>::CompType;
  using Lut = IxLut<DstComp, SrcComp>;

  explicit IpApplyRGBLutGammaFunctor(IpApplyRGBLutGammaFunctorArgs const& args)
      : _r(args._luts[0]->template getLut<DstComp, SrcComp>()),
        _g(args._luts[1]->template getLut<DstComp, SrcComp>()),
        _b(args._luts[2]->template getLut<DstComp, SrcComp>()) {
    for (int c = 0; c < 3; ++c) {
      _gammas[c] = args._gammas[c];
      _gains[c] = args._gains[c];
    }
  }

  void operator()(Dst& dst, Src& src) const {
    dst[0].value = channel(_r, src[0].value, 0);
    dst[1].value = channel(_g, src[1].value, 1);
    dst[2].value = channel(_b, src[2].value, 2);
    if constexpr (Dst::NB_COMPS == 4) dst[3].value = IpLutStages::convertDepth<DstComp, SrcComp>(src[3].value);
  }

 private:
  typename DstComp::Storage channel(Lut const& lut, typename SrcComp::Storage v, int c) const {
    return IpLutStages::storeWrapped<DstComp>(IpLutStages::power(lut.lookup(v), _gammas[c], _gains[c]));
  }

  Lut const& _r;
  Lut const& _g;
  Lut const& _b;
  float _gammas[3];
  float _gains[3];
};

}  // namespace

void ipLutGammaApply(IxWriteGuard const& dst, IxReadGuard const& src, IxGenericLut const& lutR,
                     IxGenericLut const& lutG, IxGenericLut const& lutB, float gammaR, float gammaG, float gammaB,
                     float gainR, float gainG, float gainB, GeRectangle<int> const* dstRegion,
                     GeRectangle<int> const* srcRegion) {
  IpLutStages::checkTable(lutR, dst, src);
  IpLutStages::checkTable(lutG, dst, src);
  IpLutStages::checkTable(lutB, dst, src);
  IxGenericLut const* const luts[3] = {&lutR, &lutG, &lutB};
  float const gammas[3] = {gammaR, gammaG, gammaB};
  float const gains[3] = {gainR, gainG, gainB};
  IpApplyRGBLutGammaFunctorArgs const args(luts, gammas, gains);
  ixPixelLoopDstrgbDstdepthSrcdepth<IpApplyRGBLutGammaFunctor>(dst, dstRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS, src,
                                                               srcRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS, args);
}

}  // namespace Orn
