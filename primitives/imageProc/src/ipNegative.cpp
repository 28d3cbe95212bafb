#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipNegative.h>
#include <orn/primitives/imageProc/ixIsInPlace.h>
#include <orn/primitives/imageProc/ixPixelLoopCompDepth.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepth.h>
#include <orn/pluginAPI/halfF16c.h>
#include <orn/pluginAPI/halfSse2.h>

#include <cstdint>
#include <type_traits>

namespace Orn {

namespace {

class IpNegativeFunctorArgs : public IxPixelFunctorArgs {};

// 1 - v over n half values, eight at a time, through the processor's half instructions corrected
// to the exact conversions; returns how many values it did.
ORN_TARGET_F16C std::int32_t negateHalvesF16c(Half::Bits* out, Half::Bits const* in, std::int32_t n) {
  __m256 const one = _mm256_set1_ps(1.f);
  std::int32_t i = 0;
  for (; i + 8 <= n; i += 8) {
    __m256 const v = HalfF16c::toFloat8(_mm_loadu_si128(reinterpret_cast<__m128i const*>(in + i)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i), HalfF16c::fromFloat8(_mm256_sub_ps(one, v)));
  }
  return i;
}

// The same with SSE2 only.
std::int32_t negateHalvesSse2(Half::Bits* out, Half::Bits const* in, std::int32_t n) {
  __m128 const one = _mm_set1_ps(1.f);
  std::int32_t i = 0;
  for (; i + 8 <= n; i += 8) {
    __m128 low, high;
    HalfSse2::toFloat8(_mm_loadu_si128(reinterpret_cast<__m128i const*>(in + i)), low, high);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i), HalfSse2::fromFloat8(_mm_sub_ps(one, low), _mm_sub_ps(one, high)));
  }
  return i;
}

template <class Dst, class Src>
class IpNegativeFunctor : public IxPixelFunctor<Dst, Src> {
 public:
  using Comp = typename std::remove_const_t<Dst>::CompType;

  explicit IpNegativeFunctor(IpNegativeFunctorArgs const&) {}

  // In place, dst and src are the same pixel: each component is read before it is written.
  void operator()(Dst& dst, Src& src) const {
    for (int i = 0; i < Dst::NB_COMPS; ++i) dst[i].value = negate(src[i].value);
  }

  // Contiguous half pixels, eight components at a time through vector forms of the same exact
  // conversions; a block is read whole before it is written, which in place changes nothing.
  void runContiguous(std::int32_t nbPixels, Dst* dst, Src* src) const requires std::is_same_v<Comp, IxPixelCompFloat16> {
    std::int32_t const nbValues = nbPixels * Dst::NB_COMPS;
    auto* out = reinterpret_cast<Half::Bits*>(dst);
    auto const* in = reinterpret_cast<Half::Bits const*>(src);
    std::int32_t i = HalfF16c::isAvailable() ? negateHalvesF16c(out, in, nbValues) : negateHalvesSse2(out, in, nbValues);
    for (; i < nbValues; ++i) out[i] = negate(in[i]);
  }

 private:
  // 8 bits: 255 - b, exact as the complement. Other depths: 1 - v in float, alpha included.
  static typename Comp::Storage negate(typename Comp::Storage v) {
    if constexpr (std::is_same_v<Comp, IxPixelCompUInt8>)
      return static_cast<std::uint8_t>(~v);
    else
      return Comp::fromFloat(1.f - Comp::toFloat(v));
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
