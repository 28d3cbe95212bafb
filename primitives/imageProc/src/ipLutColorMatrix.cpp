#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipLutColorMatrix.h>
#include <orn/primitives/imageProc/ixPixelLoopDstrgbDstdepthSrcdepth.h>

#include "ipLutStages.h"

namespace Orn {

namespace {

using IpLutStages::IS_BYTE;

class IpOneLutProjectiveMatrixFunctorArgs : public IxPixelFunctorArgs {
 public:
  IpOneLutProjectiveMatrixFunctorArgs(GeProjectiveMatrix3<float> const& matrix, IxGenericLut const& lut)
      : _matrix(&matrix), _lut(&lut) {}
  GeProjectiveMatrix3<float> const* _matrix;
  IxGenericLut const* _lut;
};

class IpRGBLutProjectiveMatrixFunctorArgs : public IxPixelFunctorArgs {
 public:
  IpRGBLutProjectiveMatrixFunctorArgs(GeProjectiveMatrix3<float> const& matrix, IxGenericLut const& r,
                                      IxGenericLut const& g, IxGenericLut const& b)
      : _matrix(&matrix), _luts{&r, &g, &b} {}
  GeProjectiveMatrix3<float> const* _matrix;
  IxGenericLut const* _luts[3];
};

// What the two functors share: the matrix stage and the store, per pixel or through the
// pre-combined table when both tiles are 8-bit.
template <class Dst, class Src>
class IpLutMatrixFunctorBase : public IxPixelFunctor<Dst, Src> {
 public:
  using DstComp = typename Dst::CompType;
  using SrcComp = typename std::remove_const_t<Src>::CompType;
  using Lut = IxLut<DstComp, SrcComp>;
  static constexpr bool PRECOMBINED = IS_BYTE<DstComp> && IS_BYTE<SrcComp>;

  void runContiguous(std::int32_t nbPixels, Dst* dst, Src* src) const requires(PRECOMBINED && Dst::NB_COMPS == 4) {
    _table->runRgba(nbPixels, reinterpret_cast<std::uint8_t*>(dst), reinterpret_cast<std::uint8_t const*>(src));
  }

 protected:
  IpLutMatrixFunctorBase(GeProjectiveMatrix3<float> const& matrix, Lut const& r, Lut const& g, Lut const& b)
      : _matrix(IpLutStages::scaledMatrix<DstComp, SrcComp>(matrix)), _r(r), _g(g), _b(b) {}

  // alpha(i) gives the factor of the alpha element for source alpha byte i.
  template <class Alpha>
  void buildTable(Alpha alpha) {
    if constexpr (PRECOMBINED)
      _table = std::make_unique<IpLutStages::PrecombinedTable>(
          _matrix, [&](int i) { return _r.lookup(std::uint8_t(i)); }, [&](int i) { return _g.lookup(std::uint8_t(i)); },
          [&](int i) { return _b.lookup(std::uint8_t(i)); }, alpha);
  }

  // Colour through the tables and the matrix; alphaValue is alpha before the alpha element.
  void transform(Dst& dst, Src& src, float alphaValue) const {
    if constexpr (PRECOMBINED) {
      if constexpr (Dst::NB_COMPS == 4)
        IpLutStages::PrecombinedTable::store4(&dst[0].value,
                                              _table->sum4(src[0].value, src[1].value, src[2].value, src[3].value));
      else
        IpLutStages::PrecombinedTable::store3(&dst[0].value, _table->sum3(src[0].value, src[1].value, src[2].value));
    } else {
      float const y0 = _r.lookup(src[0].value), y1 = _g.lookup(src[1].value), y2 = _b.lookup(src[2].value);
      for (int i = 0; i < 3; ++i) dst[i].value = IpLutStages::storeClamped<DstComp>(_matrix.apply(i, y0, y1, y2));
      if constexpr (Dst::NB_COMPS == 4) dst[3].value = IpLutStages::storeClamped<DstComp>(alphaValue * _matrix.alpha);
    }
  }

  IpLutStages::ScaledMatrix const _matrix;
  Lut const& _r;
  Lut const& _g;
  Lut const& _b;
  std::unique_ptr<IpLutStages::PrecombinedTable> _table;
};

template <class Dst, class Src>
class IpOneLutProjectiveMatrixFunctor : public IpLutMatrixFunctorBase<Dst, Src> {
  using Base = IpLutMatrixFunctorBase<Dst, Src>;

 public:
  explicit IpOneLutProjectiveMatrixFunctor(IpOneLutProjectiveMatrixFunctorArgs const& args)
      : Base(*args._matrix, lutOf(args), lutOf(args), lutOf(args)) {
    this->buildTable([&](int i) { return this->_r.lookup(std::uint8_t(i)); });
  }

  void operator()(Dst& dst, Src& src) const {
    if constexpr (Base::PRECOMBINED || Dst::NB_COMPS == 3)
      this->transform(dst, src, 0.f);
    else
      this->transform(dst, src, this->_r.lookup(src[3].value));
  }

 private:
  static typename Base::Lut const& lutOf(IpOneLutProjectiveMatrixFunctorArgs const& args) {
    return args._lut->template getLut<typename Base::DstComp, typename Base::SrcComp>();
  }
};

template <class Dst, class Src>
class IpRGBLutProjectiveMatrixFunctor : public IpLutMatrixFunctorBase<Dst, Src> {
  using Base = IpLutMatrixFunctorBase<Dst, Src>;

 public:
  explicit IpRGBLutProjectiveMatrixFunctor(IpRGBLutProjectiveMatrixFunctorArgs const& args)
      : Base(*args._matrix, lutOf(args, 0), lutOf(args, 1), lutOf(args, 2)) {
    this->buildTable([](int i) { return float(i); });
  }

  void operator()(Dst& dst, Src& src) const {
    if constexpr (Base::PRECOMBINED || Dst::NB_COMPS == 3)
      this->transform(dst, src, 0.f);
    else
      this->transform(dst, src, IpLutStages::workingValue<typename Base::SrcComp>(src[3].value));
  }

 private:
  static typename Base::Lut const& lutOf(IpRGBLutProjectiveMatrixFunctorArgs const& args, int c) {
    return args._luts[c]->template getLut<typename Base::DstComp, typename Base::SrcComp>();
  }
};

}  // namespace

void ipLutColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeProjectiveMatrix3<float> const& matrix,
                      IxGenericLut const& lut, GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion) {
  ORN_ASSERT(dst.getTile().getPixelFormat() == src.getTile().getPixelFormat());
  IpLutStages::checkTable(lut, dst, src);
  IpOneLutProjectiveMatrixFunctorArgs const args(matrix, lut);
  ixPixelLoopDstrgbDstdepthSrcdepth<IpOneLutProjectiveMatrixFunctor>(
      dst, dstRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS, src, srcRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS, args);
}

void ipLutColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeProjectiveMatrix3<float> const& matrix,
                      IxGenericLut const& lutR, IxGenericLut const& lutG, IxGenericLut const& lutB,
                      GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion) {
  ORN_ASSERT(dst.getTile().getPixelFormat() == src.getTile().getPixelFormat());
  IpLutStages::checkTable(lutR, dst, src);
  IpLutStages::checkTable(lutG, dst, src);
  IpLutStages::checkTable(lutB, dst, src);
  IpRGBLutProjectiveMatrixFunctorArgs const args(matrix, lutR, lutG, lutB);
  ixPixelLoopDstrgbDstdepthSrcdepth<IpRGBLutProjectiveMatrixFunctor>(
      dst, dstRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS, src, srcRegion, IxPixelIterBase::ORDER_H_XPOS_YPOS, args);
}

}  // namespace Orn
