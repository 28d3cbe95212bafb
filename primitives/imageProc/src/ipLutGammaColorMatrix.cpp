#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipLutGammaColorMatrix.h>
#include <orn/primitives/imageProc/ixPixelLoopDstrgbDstdepthSrcdepth.h>

#include "ipLutStages.h"

#include <array>

namespace Orn {

namespace {

class IpOneLutGGProjectiveMatrixFunctorArgs : public IxPixelFunctorArgs {
 public:
  IpOneLutGGProjectiveMatrixFunctorArgs(GeProjectiveMatrix3<float> const& matrix, IxGenericLut const& lut, float gamma,
                                        float gain)
      : _matrix(&matrix), _lut(&lut), _gamma(gamma), _gain(gain) {}
  GeProjectiveMatrix3<float> const* _matrix;
  IxGenericLut const* _lut;
  float _gamma;
  float _gain;
};

class IpRGBLutGGProjectiveMatrixFunctorArgs : public IxPixelFunctorArgs {
 public:
  IpRGBLutGGProjectiveMatrixFunctorArgs(GeProjectiveMatrix3<float> const& matrix, IxGenericLut const* const luts[3],
                                        float const gammas[3], float const gains[3])
      : _matrix(&matrix) {
    for (int c = 0; c < 3; ++c) {
      _luts[c] = luts[c];
      _gammas[c] = gammas[c];
      _gains[c] = gains[c];
    }
  }
  GeProjectiveMatrix3<float> const* _matrix;
  IxGenericLut const* _luts[3];
  float _gammas[3];
  float _gains[3];
};

// Lookup, power and matrix per pixel; the power stage rules out a pre-combined table.
template <class Dst, class Src>
class IpLutGGMatrixFunctorBase : public IxPixelFunctor<Dst, Src> {
 public:
  using DstComp = typename Dst::CompType;
  using SrcComp = typename std::remove_const_t<Src>::CompType;
  using Lut = IxLut<DstComp, SrcComp>;

 protected:
  IpLutGGMatrixFunctorBase(GeProjectiveMatrix3<float> const& matrix, Lut const* const luts[3], float const gammas[3],
                           float const gains[3])
      : _matrix(IpLutStages::scaledMatrix<DstComp, SrcComp>(matrix)), _r(*luts[0]), _g(*luts[1]), _b(*luts[2]) {
    for (int c = 0; c < 3; ++c) {
      _gammas[c] = gammas[c];
      _gains[c] = gains[c];
    }
  }

  float stage(Lut const& lut, typename SrcComp::Storage v, int c) const {
    return IpLutStages::power(lut.lookup(v), _gammas[c], _gains[c]);
  }

  void transform(Dst& dst, Src& src, float alphaValue) const {
    float const y0 = stage(_r, src[0].value, 0), y1 = stage(_g, src[1].value, 1), y2 = stage(_b, src[2].value, 2);
    for (int i = 0; i < 3; ++i) dst[i].value = IpLutStages::storeClamped<DstComp>(_matrix.apply(i, y0, y1, y2));
    if constexpr (Dst::NB_COMPS == 4) dst[3].value = IpLutStages::storeClamped<DstComp>(alphaValue * _matrix.alpha);
  }

  IpLutStages::ScaledMatrix const _matrix;
  Lut const& _r;
  Lut const& _g;
  Lut const& _b;
  float _gammas[3];
  float _gains[3];
};

template <class Dst, class Src>
class IpOneLutGGProjectiveMatrixFunctor : public IpLutGGMatrixFunctorBase<Dst, Src> {
  using Base = IpLutGGMatrixFunctorBase<Dst, Src>;

 public:
  explicit IpOneLutGGProjectiveMatrixFunctor(IpOneLutGGProjectiveMatrixFunctorArgs const& args)
      : IpOneLutGGProjectiveMatrixFunctor(args, &args._lut->template getLut<typename Base::DstComp, typename Base::SrcComp>()) {}

  void operator()(Dst& dst, Src& src) const {
    if constexpr (Dst::NB_COMPS == 4)
      this->transform(dst, src, this->stage(this->_r, src[3].value, 0));
    else
      this->transform(dst, src, 0.f);
  }

 private:
  IpOneLutGGProjectiveMatrixFunctor(IpOneLutGGProjectiveMatrixFunctorArgs const& args, typename Base::Lut const* lut)
      : Base(*args._matrix, std::array<typename Base::Lut const*, 3>{lut, lut, lut}.data(),
             std::array<float, 3>{args._gamma, args._gamma, args._gamma}.data(),
             std::array<float, 3>{args._gain, args._gain, args._gain}.data()) {}
};

template <class Dst, class Src>
class IpRGBLutGGProjectiveMatrixFunctor : public IpLutGGMatrixFunctorBase<Dst, Src> {
  using Base = IpLutGGMatrixFunctorBase<Dst, Src>;

 public:
  explicit IpRGBLutGGProjectiveMatrixFunctor(IpRGBLutGGProjectiveMatrixFunctorArgs const& args)
      : Base(*args._matrix,
             std::array<typename Base::Lut const*, 3>{&lutOf(args, 0), &lutOf(args, 1), &lutOf(args, 2)}.data(),
             args._gammas, args._gains) {}

  void operator()(Dst& dst, Src& src) const {
    if constexpr (Dst::NB_COMPS == 4)
      this->transform(dst, src, IpLutStages::workingValue<typename Base::SrcComp>(src[3].value));
    else
      this->transform(dst, src, 0.f);
  }

 private:
  static typename Base::Lut const& lutOf(IpRGBLutGGProjectiveMatrixFunctorArgs const& args, int c) {
    return args._luts[c]->template getLut<typename Base::DstComp, typename Base::SrcComp>();
  }
};

}  // namespace

void ipLutGammaColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeProjectiveMatrix3<float> const& matrix,
                           IxGenericLut const& lut, float gamma, float gain, GeRectangle<int> const* dstRegion,
                           GeRectangle<int> const* srcRegion) {
  ORN_ASSERT(dst.getTile().getPixelFormat() == src.getTile().getPixelFormat());
  IpLutStages::checkTable(lut, dst, src);
  IpOneLutGGProjectiveMatrixFunctorArgs const args(matrix, lut, gamma, gain);
  ixPixelLoopDstrgbDstdepthSrcdepth<IpOneLutGGProjectiveMatrixFunctor>(
      dst, dstRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS, src, srcRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS, args);
}

void ipLutGammaColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeProjectiveMatrix3<float> const& matrix,
                           IxGenericLut const& lutR, IxGenericLut const& lutG, IxGenericLut const& lutB, float gammaR,
                           float gammaG, float gammaB, float gainR, float gainG, float gainB,
                           GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion) {
  ORN_ASSERT(dst.getTile().getPixelFormat() == src.getTile().getPixelFormat());
  IpLutStages::checkTable(lutR, dst, src);
  IpLutStages::checkTable(lutG, dst, src);
  IpLutStages::checkTable(lutB, dst, src);
  IxGenericLut const* const luts[3] = {&lutR, &lutG, &lutB};
  float const gammas[3] = {gammaR, gammaG, gammaB};
  float const gains[3] = {gainR, gainG, gainB};
  IpRGBLutGGProjectiveMatrixFunctorArgs const args(matrix, luts, gammas, gains);
  ixPixelLoopDstrgbDstdepthSrcdepth<IpRGBLutGGProjectiveMatrixFunctor>(
      dst, dstRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS, src, srcRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS, args);
}

}  // namespace Orn
