#include <orn/primitives/imageProc/ipLut.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepthSrcdepth.h>
#include <orn/primitives/imageProc/ixPixelLoopDstrgbDstdepthSrcdepth.h>

#include "ipLutPaths.h"
#include "ipLutStages.h"

#include <vector>

namespace Orn {

namespace {

using IxPixelIterBase::ORDER_H_XPOS_YPOS;

class IpApplyOneLutFunctorArgs : public IxPixelFunctorArgs {
 public:
  explicit IpApplyOneLutFunctorArgs(IxGenericLut const& lut) : _lut(&lut), _pairs(nullptr), _wide(false) {}
  IxGenericLut const* _lut;
  // For large byte-to-byte calls: entry (b1 << 8) | b0 holds the results of bytes b0 and b1 in
  // its low and high byte, so that one lookup maps two bytes.
  std::uint16_t const* _pairs;
  // Byte-to-byte rows go through the wide loop.
  bool _wide;
};

// Below this many components a table of byte pairs costs more to build than it saves.
constexpr std::int64_t MIN_COMPONENTS_FOR_PAIRS = std::int64_t(1) << 20;

std::vector<std::uint16_t> makePairTable(IxGenericLut const& lut) {
  std::uint8_t const* const table = static_cast<std::uint8_t const*>(lut.getTable());
  std::vector<std::uint16_t> pairs(65536);
  for (int high = 0; high < 256; ++high)
    for (int low = 0; low < 256; ++low)
      pairs[std::size_t(high << 8 | low)] = std::uint16_t(table[low] | table[high] << 8);
  return pairs;
}

template <class Dst, class Src>
class IpApplyOneLutFunctor : public IxPixelFunctor<Dst, Src> {
 public:
  using DstComp = typename Dst::CompType;
  using SrcComp = typename std::remove_const_t<Src>::CompType;
  using Lut = IxLut<DstComp, SrcComp>;

  explicit IpApplyOneLutFunctor(IpApplyOneLutFunctorArgs const& args)
      : _lut(args._lut->template getLut<DstComp, SrcComp>()), _pairs(args._pairs), _wide(args._wide) {}

  void operator()(Dst& dst, Src& src) const {
    for (int i = 0; i < Dst::NB_COMPS; ++i) dst[i].value = IpLutStages::storeClamped<DstComp>(_lut.lookup(src[i].value));
  }

  // Bytes to bytes: the entries are the stored values.
  void runContiguous(std::int32_t nbPixels, Dst* dst, Src* src) const
    requires(IpLutStages::IS_BYTE<DstComp> && IpLutStages::IS_BYTE<SrcComp>)
  {
    std::uint8_t* out = reinterpret_cast<std::uint8_t*>(dst);
    std::uint8_t const* in = reinterpret_cast<std::uint8_t const*>(src);
    std::uint8_t const* const table = _lut.entries;
    std::int32_t const n = nbPixels * Dst::NB_COMPS;
    if (_wide) {
      IpLutPaths::lookupBytesWide(table, out, in, n);
      return;
    }
    std::int32_t i = 0;
    if (_pairs) {
      for (; i + 8 <= n; i += 8) {
        std::uint64_t word;
        std::memcpy(&word, in + i, 8);
        std::uint64_t const result =
            std::uint64_t(_pairs[word & 0xFFFF]) | std::uint64_t(_pairs[(word >> 16) & 0xFFFF]) << 16 |
            std::uint64_t(_pairs[(word >> 32) & 0xFFFF]) << 32 | std::uint64_t(_pairs[word >> 48]) << 48;
        std::memcpy(out + i, &result, 8);
      }
    } else {
      for (; i + 8 <= n; i += 8) {
        std::uint64_t word;
        std::memcpy(&word, in + i, 8);
        std::uint64_t result = 0;
        for (int k = 0; k < 8; ++k) result |= std::uint64_t(table[(word >> (8 * k)) & 0xFF]) << (8 * k);
        std::memcpy(out + i, &result, 8);
      }
    }
    for (; i < n; ++i) out[i] = table[in[i]];
  }

 private:
  Lut const& _lut;
  std::uint16_t const* _pairs;
  bool _wide;
};

class IpApplyRGBLutFunctorArgs : public IxPixelFunctorArgs {
 public:
  IpApplyRGBLutFunctorArgs(IxGenericLut const& r, IxGenericLut const& g, IxGenericLut const& b) : _luts{&r, &g, &b} {}
  IxGenericLut const* _luts[3];
};

template <class Dst, class Src>
class IpApplyRGBLutFunctor : public IxPixelFunctor<Dst, Src> {
 public:
  using DstComp = typename Dst::CompType;
  using SrcComp = typename std::remove_const_t<Src>::CompType;
  using Lut = IxLut<DstComp, SrcComp>;

  explicit IpApplyRGBLutFunctor(IpApplyRGBLutFunctorArgs const& args)
      : _r(args._luts[0]->template getLut<DstComp, SrcComp>()),
        _g(args._luts[1]->template getLut<DstComp, SrcComp>()),
        _b(args._luts[2]->template getLut<DstComp, SrcComp>()) {}

  void operator()(Dst& dst, Src& src) const {
    dst[0].value = IpLutStages::storeClamped<DstComp>(_r.lookup(src[0].value));
    dst[1].value = IpLutStages::storeClamped<DstComp>(_g.lookup(src[1].value));
    dst[2].value = IpLutStages::storeClamped<DstComp>(_b.lookup(src[2].value));
    if constexpr (Dst::NB_COMPS == 4) dst[3].value = IpLutStages::convertDepth<DstComp, SrcComp>(src[3].value);
  }

 private:
  Lut const& _r;
  Lut const& _g;
  Lut const& _b;
};

class IpApplyOneLutGammaFunctorArgs : public IxPixelFunctorArgs {
 public:
  IpApplyOneLutGammaFunctorArgs(IxGenericLut const& lut, float gamma, float gain)
      : _lut(&lut), _gamma(gamma), _gain(gain) {}
  IxGenericLut const* _lut;
  float _gamma;
  float _gain;
};

template <class Dst, class Src>
class IpApplyOneLutGammaFunctor : public IxPixelFunctor<Dst, Src> {
 public:
  using DstComp = typename Dst::CompType;
  using SrcComp = typename std::remove_const_t<Src>::CompType;
  using Lut = IxLut<DstComp, SrcComp>;

  explicit IpApplyOneLutGammaFunctor(IpApplyOneLutGammaFunctorArgs const& args)
      : _lut(args._lut->template getLut<DstComp, SrcComp>()), _gamma(args._gamma), _gain(args._gain) {}

  void operator()(Dst& dst, Src& src) const {
    for (int i = 0; i < Dst::NB_COMPS; ++i)
      dst[i].value = IpLutStages::storeWrapped<DstComp>(IpLutStages::power(_lut.lookup(src[i].value), _gamma, _gain));
  }

 private:
  Lut const& _lut;
  float _gamma;
  float _gain;
};

}  // namespace

void ipLutApply(IxWriteGuard const& dst, IxReadGuard const& src, IxGenericLut const& lut,
                GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion) {
  IpLutStages::checkTable(lut, dst, src);
  IpApplyOneLutFunctorArgs args(lut);
  std::vector<std::uint16_t> pairs;
  if (lut.getOutputDepth() == IxPixelFormat::UINT8 && lut.getInputDepth() == IxPixelFormat::UINT8) {
    // The wide loop keeps the whole table in registers; the pair table only serves the narrow one.
    args._wide = IpLutPaths::isWideEnabled();
    GeRectangle<int> const region = IxPixelIterBase::clipRegion(dst.getPixelRegion(), dstRegion);
    if (!args._wide && std::int64_t(region.getWidth()) * region.getHeight() *
                               dst.getTile().getPixelFormat().getComps() >=
                           MIN_COMPONENTS_FOR_PAIRS) {
      pairs = makePairTable(lut);
      args._pairs = pairs.data();
    }
  }
  ixPixelLoopDstcompDstdepthSrcdepth<IpApplyOneLutFunctor>(dst, dstRegion, ORDER_H_XPOS_YPOS, src, srcRegion,
                                                           ORDER_H_XPOS_YPOS, args);
}

void ipLutApply(IxWriteGuard const& dst, IxReadGuard const& src, IxGenericLut const& lutR, IxGenericLut const& lutG,
                IxGenericLut const& lutB, GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion) {
  IpLutStages::checkTable(lutR, dst, src);
  IpLutStages::checkTable(lutG, dst, src);
  IpLutStages::checkTable(lutB, dst, src);
  IpApplyRGBLutFunctorArgs const args(lutR, lutG, lutB);
  ixPixelLoopDstrgbDstdepthSrcdepth<IpApplyRGBLutFunctor>(dst, dstRegion, ORDER_H_XPOS_YPOS, src, srcRegion,
                                                          ORDER_H_XPOS_YPOS, args);
}

void ipLutApply(IxWriteGuard const& dst, IxReadGuard const& src, IxGenericLut const& lut, float gamma, float gain,
                GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion) {
  IpLutStages::checkTable(lut, dst, src);
  IpApplyOneLutGammaFunctorArgs const args(lut, gamma, gain);
  ixPixelLoopDstcompDstdepthSrcdepth<IpApplyOneLutGammaFunctor>(dst, dstRegion, ORDER_H_XPOS_YPOS, src, srcRegion,
                                                                ORDER_H_XPOS_YPOS, args);
}

}  // namespace Orn
