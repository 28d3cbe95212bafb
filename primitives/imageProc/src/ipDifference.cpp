#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipDifference.h>
#include <orn/primitives/imageProc/ixPixelLoop2InDstcompDstdepth.h>

#include "ipRegionUtil.h"
#include "ipStoreUtil.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <type_traits>

namespace Orn {

namespace {

// Gains and thresholds per channel, in the float and in the 8-bit forms.
class IpDifferenceFunctorArgs : public IxPixelFunctorArgs {
 public:
  IpDifferenceFunctorArgs(bool const use[4], float const range[4], float const tolerance[4], float scale) {
    for (int c = 0; c < 4; ++c) {
      _gain[c] = range[c] > 0.f ? scale / range[c] : 1.f;
      _threshold[c] = use[c] ? float(0.01 * double(tolerance[c])) : 1.f;
      _gain8[c] = range[c] > 0.f ? IpStoreUtil::truncate(float(double(scale / range[c]) * 256.0)) : 65280;
      _threshold8[c] = use[c] ? std::int32_t(std::floor(2.55 * double(tolerance[c]) + 0.5)) : 255;
    }
  }

  float _gain[4];
  float _threshold[4];
  std::int32_t _gain8[4];
  std::int32_t _threshold8[4];
};

template <class Dst, class Src0, class Src1>
class IpDifferenceFunctor : public IxPixelFunctor2In<Dst, Src0, Src1> {
 public:
  using Comp = typename std::remove_const_t<Dst>::CompType;
  // One-component tiles use channel 0's settings; RGBA ones use all four.
  static constexpr int NB_CHANNELS = Dst::NB_COMPS;

  explicit IpDifferenceFunctor(IpDifferenceFunctorArgs const& args) {
    for (int c = 0; c < 4; ++c) {
      _gain[c] = args._gain[c];
      _threshold[c] = args._threshold[c];
      _gain8[c] = args._gain8[c];
      _threshold8[c] = args._threshold8[c];
    }
  }

  void operator()(Dst& dst, Src0& a, Src1& b) const {
    if constexpr (std::is_same_v<Comp, IxPixelCompUInt8>) {
      std::int32_t key = 0;
      for (int c = 0; c < NB_CHANNELS; ++c) {
        std::int32_t const d = std::abs(std::int32_t(a[c].value) - std::int32_t(b[c].value));
        if (d <= _threshold8[c]) continue;
        // The product is formed in 32 bits; one that overflows into the sign saturates the key.
        std::int32_t const scaled = std::int32_t(std::uint32_t(_gain8[c]) * std::uint32_t(d) + 128u);
        std::int32_t const v = scaled < 0 ? 255 : scaled >> 8;
        if (v > key) key = v;
      }
      std::uint8_t const stored = std::uint8_t(key < 255 ? key : 255);
      for (int i = 0; i < Dst::NB_COMPS; ++i) dst[i].value = stored;
    } else {
      float key = value(a, b, 0);
      for (int c = 1; c < NB_CHANNELS; ++c) {
        float const v = value(a, b, c);
        if (v > key) key = v;
      }
      typename Comp::Storage const stored = Comp::fromFloat(key);
      for (int i = 0; i < Dst::NB_COMPS; ++i) dst[i].value = stored;
    }
  }

 private:
  float value(Src0& a, Src1& b, int c) const {
    float const d = std::fabs(Comp::toFloat(a[c].value) - Comp::toFloat(b[c].value));
    return _threshold[c] >= d ? 0.f : d * _gain[c];
  }

  float _gain[4];
  float _threshold[4];
  std::int32_t _gain8[4];
  std::int32_t _threshold8[4];
};

}  // namespace

void ipDifference(IxWriteGuard const& dst, IxReadGuard const& src0, IxReadGuard const& src1, bool useR, bool useG,
                  bool useB, bool useA, float rangeR, float rangeG, float rangeB, float rangeA, float toleranceR,
                  float toleranceG, float toleranceB, float toleranceA, float scale,
                  GeRectangle<int> const* dstRegion, GeRectangle<int> const* src0Region,
                  GeRectangle<int> const* src1Region) {
  ORN_ASSERT(dst.getTile().getPixelFormat() == src0.getTile().getPixelFormat() && dst.getTile().getPixelFormat() == src1.getTile().getPixelFormat());
  bool const use[4] = {useR, useG, useB, useA};
  float const range[4] = {rangeR, rangeG, rangeB, rangeA};
  float const tolerance[4] = {toleranceR, toleranceG, toleranceB, toleranceA};
  IpDifferenceFunctorArgs const args(use, range, tolerance, scale);
  GeRectangle<int> d = IpRegionUtil::clip(dst.getTile(), dstRegion);
  GeRectangle<int> a = IpRegionUtil::clip(src0.getTile(), src0Region);
  GeRectangle<int> b = IpRegionUtil::clip(src1.getTile(), src1Region);
  IpRegionUtil::shrinkToCommonSize({&d, &a, &b});
  IxPixelIterBase::Order const order = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  ixPixelLoop2InDstcompDstdepth<IpDifferenceFunctor>(dst, &d, order, src0, &a, order, src1, &b, order, args);
}

}  // namespace Orn
