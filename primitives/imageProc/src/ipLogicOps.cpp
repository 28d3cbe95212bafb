#include <orn/primitives/imageProc/ipLogicOps.h>

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixPixelLoopTemplate.h>

#include <xmmintrin.h>

#include <cstdint>
#include <type_traits>

namespace Orn {

namespace {

char const* const SOURCE_NAME = "ipLogicOps";

// The five operators with the first source in front; the odd operator values swap the sources.
// Each gives the colour numerator of one channel from the colours A, B, the alphas a, b and their
// inverses ia, ib.
struct Over {
  static float numerator(float A, float a, float B, float b, float ia, float) { return A * a + (B * b) * ia; }
};
struct In {
  static float numerator(float A, float a, float, float b, float, float) { return (A * a) * b; }
};
struct Out {
  static float numerator(float A, float a, float, float, float, float ib) { return (A * a) * ib; }
};
struct Atop {
  static float numerator(float A, float a, float B, float b, float ia, float) { return (A * a + B * ia) * b; }
};
struct Xor {
  static float numerator(float A, float a, float B, float b, float ia, float ib) { return B * (ia * b) + A * (ib * a); }
};

// Every operator's result alpha is the union a + b ia (the table's a + ia b is the same product).
inline float unionAlpha(float a, float b, float ia) { return a + b * ia; }

CoRgbaColorTyped<float> composePixel(auto rule, CoRgbaColorTyped<float> const& p, CoRgbaColorTyped<float> const& q) {
  float const ia = 1.f - p.a, ib = 1.f - q.a;
  float const alpha = unionAlpha(p.a, q.a, ia);
  float const inverse = 1.f / alpha;
  CoRgbaColorTyped<float> out(0, 0, 0, alpha);
  for (int c = 0; c < 3; ++c) out[c] = decltype(rule)::numerator(p[c], p.a, q[c], q.a, ia, ib) * inverse;
  return out;
}

class IpLogicOpsFunctorArgs : public IxPixelFunctorArgs {};

// Truncation toward zero, clamped to a byte; NaN gives 0.
inline std::uint8_t truncateToByte(float v) {
  int const t = _mm_cvttss_si32(_mm_set_ss(v));
  return std::uint8_t(t < 0 ? 0 : t > 255 ? 255 : t);
}

// Shared body of the five functors: Rule gives the numerator.
template <class Dst, class Src0, class Src1, class Rule>
class IpLogicOpsFunctor : public IxPixelFunctor2In<Dst, Src0, Src1> {
public:
  using Comp = typename std::remove_const_t<Dst>::CompType;

  explicit IpLogicOpsFunctor(IpLogicOpsFunctorArgs const&) {}

  void operator()(Dst& dst, Src0& p, Src1& q) const {
    if constexpr (std::is_same_v<Comp, IxPixelCompUInt8>) {
      // Colours and the result alpha on the byte scale; a, b, ia, ib as fractions.
      float const a = IxPixelCompUInt8::toFloat(p[3].value), b = IxPixelCompUInt8::toFloat(q[3].value);
      float const ia = 1.f - a, ib = 1.f - b;
      float const alpha = float(p[3].value) + float(q[3].value) * ia;
      float const scale = 255.f / alpha;
      for (int c = 0; c < 3; ++c)
        dst[c].value = truncateToByte(Rule::numerator(float(p[c].value), a, float(q[c].value), b, ia, ib) * scale);
      dst[3].value = truncateToByte(alpha);
    } else {
      float const a = Comp::toFloat(p[3].value), b = Comp::toFloat(q[3].value);
      float const ia = 1.f - a, ib = 1.f - b;
      float const alpha = unionAlpha(a, b, ia);
      float const inverse = 1.f / alpha;
      float colour[3];
      for (int c = 0; c < 3; ++c)
        colour[c] = Rule::numerator(Comp::toFloat(p[c].value), a, Comp::toFloat(q[c].value), b, ia, ib) * inverse;
      for (int c = 0; c < 3; ++c) dst[c].value = Comp::fromFloat(colour[c]);
      dst[3].value = Comp::fromFloat(alpha);
    }
  }
};

template <class D, class S0, class S1>
class IpLogicOpsFunctorAoverB : public IpLogicOpsFunctor<D, S0, S1, Over> {
  using IpLogicOpsFunctor<D, S0, S1, Over>::IpLogicOpsFunctor;
};
template <class D, class S0, class S1>
class IpLogicOpsFunctorAinB : public IpLogicOpsFunctor<D, S0, S1, In> {
  using IpLogicOpsFunctor<D, S0, S1, In>::IpLogicOpsFunctor;
};
template <class D, class S0, class S1>
class IpLogicOpsFunctorAoutB : public IpLogicOpsFunctor<D, S0, S1, Out> {
  using IpLogicOpsFunctor<D, S0, S1, Out>::IpLogicOpsFunctor;
};
template <class D, class S0, class S1>
class IpLogicOpsFunctorAatopB : public IpLogicOpsFunctor<D, S0, S1, Atop> {
  using IpLogicOpsFunctor<D, S0, S1, Atop>::IpLogicOpsFunctor;
};
template <class D, class S0, class S1>
class IpLogicOpsFunctorAxorB : public IpLogicOpsFunctor<D, S0, S1, Xor> {
  using IpLogicOpsFunctor<D, S0, S1, Xor>::IpLogicOpsFunctor;
};

template <template <class, class, class> class F>
void walk(IxWriteGuard const& dst, GeRectangle<int> const* dstRegion, IxReadGuard const& first,
          GeRectangle<int> const* firstRegion, IxReadGuard const& second, GeRectangle<int> const* secondRegion) {
  IpLogicOpsFunctorArgs const args;
  IxPixelIterBase::Order const order = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  IxPixelLoopTemplate::runThreeTiles<F, 4>(dst, dstRegion, order, first, firstRegion, order, second, secondRegion,
                                           order, args);
}

}  // namespace

CoRgbaColorTyped<float> IpLogicOps::process(CoRgbaColorTyped<float> const& a, CoRgbaColorTyped<float> const& b,
                                            Operator op) {
  switch (op) {
    case A_OVER_B: return composePixel(Over(), a, b);
    case B_OVER_A: return composePixel(Over(), b, a);
    case A_IN_B: return composePixel(In(), a, b);
    case B_IN_A: return composePixel(In(), b, a);
    case A_OUT_B: return composePixel(Out(), a, b);
    case B_OUT_A: return composePixel(Out(), b, a);
    case A_ATOP_B: return composePixel(Atop(), a, b);
    case B_ATOP_A: return composePixel(Atop(), b, a);
    case A_XOR_B: return composePixel(Xor(), a, b);
  }
  Assertions::throwProgramAborted(SOURCE_NAME, __LINE__, nullptr);
}

void IpLogicOps::process(IxWriteGuard const& dstImage, IxReadGuard const& srcImageA, IxReadGuard const& srcImageB,
                         Operator op, GeRectangle<int> const* dstRegion, GeRectangle<int> const* aRegion,
                         GeRectangle<int> const* bRegion) {
  ORN_ASSERT(dstImage.getTile().getPixelFormat() == srcImageA.getTile().getPixelFormat() && dstImage.getTile().getPixelFormat() == srcImageB.getTile().getPixelFormat());
  ORN_ASSERT(dstImage.getTile().getPixelFormat().getComps() == 4);
  switch (op) {
    case A_OVER_B: return walk<IpLogicOpsFunctorAoverB>(dstImage, dstRegion, srcImageA, aRegion, srcImageB, bRegion);
    case B_OVER_A: return walk<IpLogicOpsFunctorAoverB>(dstImage, dstRegion, srcImageB, bRegion, srcImageA, aRegion);
    case A_IN_B: return walk<IpLogicOpsFunctorAinB>(dstImage, dstRegion, srcImageA, aRegion, srcImageB, bRegion);
    case B_IN_A: return walk<IpLogicOpsFunctorAinB>(dstImage, dstRegion, srcImageB, bRegion, srcImageA, aRegion);
    case A_OUT_B: return walk<IpLogicOpsFunctorAoutB>(dstImage, dstRegion, srcImageA, aRegion, srcImageB, bRegion);
    case B_OUT_A: return walk<IpLogicOpsFunctorAoutB>(dstImage, dstRegion, srcImageB, bRegion, srcImageA, aRegion);
    case A_ATOP_B: return walk<IpLogicOpsFunctorAatopB>(dstImage, dstRegion, srcImageA, aRegion, srcImageB, bRegion);
    case B_ATOP_A: return walk<IpLogicOpsFunctorAatopB>(dstImage, dstRegion, srcImageB, bRegion, srcImageA, aRegion);
    case A_XOR_B: return walk<IpLogicOpsFunctorAxorB>(dstImage, dstRegion, srcImageA, aRegion, srcImageB, bRegion);
  }
  Assertions::throwProgramAborted(SOURCE_NAME, __LINE__, nullptr);
}

}  // namespace Orn
