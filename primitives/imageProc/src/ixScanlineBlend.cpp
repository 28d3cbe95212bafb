// The blend modes. Each mode is one small class whose arithmetic is written once as a template
// over a lane type: a float for single values, four floats in an SSE2 register, or eight in an
// AVX register. BlendUtil<Op> builds the four entry points from it, so the vector loops run
// exactly the scalar operations.

#include <orn/primitives/imageProc/ixScanlineBlend.h>

#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/floatUtil.h>
#include <orn/primitives/color/coHsvColor.h>

#include "ixScanlineBlendPaths.h"

#include <immintrin.h>

#include <atomic>
#include <cmath>
#include <cstdint>
#include <mutex>
#include <vector>

namespace Orn {

namespace {

using Rgb = CoRgbColorTyped<float>;
using Rgba = CoRgbaColorTyped<float>;

// ---------------------------------------------------------------------------------------------
// Lane operations. Every helper exists for float and for F4 with the same meaning, including on
// NaN: min and max follow std::min / std::max (the first argument wins unless the second is
// strictly smaller / larger), and a selection takes one of two values already computed.

struct F4 {
  __m128 v;
};

inline F4 operator+(F4 x, F4 y) { return {_mm_add_ps(x.v, y.v)}; }
inline F4 operator-(F4 x, F4 y) { return {_mm_sub_ps(x.v, y.v)}; }
inline F4 operator*(F4 x, F4 y) { return {_mm_mul_ps(x.v, y.v)}; }
inline F4 operator/(F4 x, F4 y) { return {_mm_div_ps(x.v, y.v)}; }

// A lane mask: all bits set where a condition holds.
struct M4 {
  __m128 v;
};

template <class V>
struct Lane;

template <>
struct Lane<float> {
  using Mask = bool;
  static float k(float c) { return c; }
  static bool gt(float x, float y) { return x > y; }
  static bool lt(float x, float y) { return x < y; }
  static bool both(bool p, bool q) { return p && q; }
  static bool either(bool p, bool q) { return p || q; }
  static float select(bool m, float x, float y) { return m ? x : y; }
  static float min(float x, float y) { return y < x ? y : x; }
  static float max(float x, float y) { return x < y ? y : x; }
  static float abs(float x) { return std::fabs(x); }
  static float sqrt(float x) { return std::sqrt(x); }
  static bool isRelZero(float x) { return FloatUtil::isRelZero(x); }
  static float screen(float a, float b) {
    double const limit = double(min(b, 1.0f));
    return float(double(b) + double(a) * (1.0 - limit));
  }
};

template <>
struct Lane<F4> {
  using Mask = M4;
  static F4 k(float c) { return {_mm_set1_ps(c)}; }
  static M4 gt(F4 x, F4 y) { return {_mm_cmpgt_ps(x.v, y.v)}; }
  static M4 lt(F4 x, F4 y) { return {_mm_cmplt_ps(x.v, y.v)}; }
  static M4 both(M4 p, M4 q) { return {_mm_and_ps(p.v, q.v)}; }
  static M4 either(M4 p, M4 q) { return {_mm_or_ps(p.v, q.v)}; }
  static F4 select(M4 m, F4 x, F4 y) { return {_mm_or_ps(_mm_and_ps(m.v, x.v), _mm_andnot_ps(m.v, y.v))}; }
  // minps/maxps return their second operand unless the first wins strictly.
  static F4 min(F4 x, F4 y) { return {_mm_min_ps(y.v, x.v)}; }
  static F4 max(F4 x, F4 y) { return {_mm_max_ps(y.v, x.v)}; }
  static F4 abs(F4 x) { return {_mm_andnot_ps(_mm_set1_ps(-0.0f), x.v)}; }
  static F4 sqrt(F4 x) { return {_mm_sqrt_ps(x.v)}; }
  // The relative zero test of FloatUtil reduces to x == 0 (either sign, or a denormal read as
  // zero): under round-to-nearest, e = |x| * epsilon is below |x| for every other finite x, so
  // neither e >= x for a positive x nor e + x >= 0 for a negative one can hold, and NaN and the
  // infinities fail both.
  static M4 isRelZero(F4 x) { return {_mm_cmpeq_ps(x.v, _mm_setzero_ps())}; }
  // Each half widened to double, combined there and rounded once, as the scalar form does.
  static F4 screen(F4 a, F4 b) {
    __m128 const limit = _mm_min_ps(_mm_set1_ps(1.0f), b.v);  // 1 < b ? 1 : b, so a NaN b stays
    __m128d const one = _mm_set1_pd(1.0);
    auto half = [&](__m128 av, __m128 bv, __m128 lv) {
      __m128d const ad = _mm_cvtps_pd(av);
      __m128d const bd = _mm_cvtps_pd(bv);
      __m128d const ld = _mm_cvtps_pd(lv);
      return _mm_cvtpd_ps(_mm_add_pd(bd, _mm_mul_pd(ad, _mm_sub_pd(one, ld))));
    };
    __m128 const low = half(a.v, b.v, limit);
    __m128 const high = half(_mm_movehl_ps(a.v, a.v), _mm_movehl_ps(b.v, b.v), _mm_movehl_ps(limit, limit));
    return {_mm_movelh_ps(low, high)};
  }
};

// ---------------------------------------------------------------------------------------------
// The modes. apply(a, b) is the per-channel formula, listed once here and defined for the SSE2
// lanes below and for the AVX lanes further down; HSV modes instead give rgb(a, b).

#define ORN_BLEND_LANE_OPS(X)                                                                          \
  X(BlendNormal, a)                                                                                    \
  X(BlendAverage, (a + b) * L::k(0.5f))                                                                \
  X(BlendAdd, a + b)                                                                                   \
  X(BlendSubtract, b - a)                                                                              \
  X(BlendDarken, L::min(a, b))                                                                         \
  X(BlendMultiply, a * b)                                                                              \
  X(BlendColorBurn, L::select(L::isRelZero(a), L::k(0.0f), L::k(1.0f) - (L::k(1.0f) - b) / a))        \
  X(BlendLinearBurn, L::max(a + b - L::k(1.0f), L::k(0.0f)))                                          \
  X(BlendLighten, L::max(a, b))                                                                        \
  X(BlendScreen, L::screen(a, b))                                                                      \
  X(BlendColorDodge, b / (L::k(1.0f) - a))                                                             \
  X(BlendLinearDodge, L::min(a + b, L::k(1.0f)))                                                       \
  X(BlendSpotlight, a * b * L::k(2.0f))                                                                \
  X(BlendSpotlightBlend, a * b + b)                                                                    \
  X(BlendOverlay, L::select(L::gt(b, L::k(0.5f)),                                                      \
                            L::k(1.0f) - L::k(2.0f) * (L::k(1.0f) - a) * (L::k(1.0f) - b),            \
                            L::k(2.0f) * a * b))                                                       \
  X(BlendSoftLight, L::select(L::gt(a, L::k(0.5f)), b + (L::k(2.0f) * a - L::k(1.0f)) * (L::sqrt(b) - b), \
                              b * (L::k(2.0f) * a * (L::k(1.0f) - b) + b)))                            \
  X(BlendHardLight, L::select(L::gt(a, L::k(0.5f)),                                                    \
                              L::k(1.0f) - L::k(2.0f) * (L::k(1.0f) - a) * (L::k(1.0f) - b),          \
                              L::k(2.0f) * a * b))                                                     \
  X(BlendPinLight, L::select(L::either(L::both(L::gt(a, L::k(0.5f)), L::gt(a, b)),                     \
                                       L::both(L::lt(a, L::k(0.5f)), L::lt(a, b))),                    \
                             a, b))                                                                    \
  X(BlendHardMix, L::select(L::gt(a + b, L::k(1.0f)), L::k(1.0f), L::k(0.0f)))                        \
  X(BlendDifference, L::abs(a - b))                                                                    \
  X(BlendExclusion, a + b - L::k(2.0f) * a * b)

#define ORN_DEFINE_LANE_OP(Name, expression) \
  struct Name {                              \
    static constexpr bool HSV = false;       \
    template <class V>                       \
    static V apply(V a, V b) {               \
      using L [[maybe_unused]] = Lane<V>;    \
      (void)a;                               \
      (void)b;                               \
      return expression;                     \
    }                                        \
  };

ORN_BLEND_LANE_OPS(ORN_DEFINE_LANE_OP)

// Saturation and value by the reduced route of the HSV modes: a colour whose channels are all
// equal has saturation 0 and value 0, whatever its level. So taking the value of a grey gives
// black; this is the modes' long-standing behaviour and is kept.
struct SatValue {
  float s;
  float v;
};

SatValue reducedSatValue(Rgb const& c) {
  float maxV = c.r;
  if (c.g > maxV) maxV = c.g;
  if (c.b > maxV) maxV = c.b;
  float minV = c.r;
  if (c.g < minV) minV = c.g;
  if (c.b < minV) minV = c.b;
  if (minV >= maxV) return {0.0f, 0.0f};
  return {(maxV - minV) / maxV, maxV};
}

CoHsvColor fullHsv(Rgb const& c) {
  CoHsvColor hsv;
  hsv.convertFromRgb(c);
  return hsv;
}

struct BlendHue {
  static constexpr bool HSV = true;
  static Rgb rgb(Rgb const& a, Rgb const& b) {
    SatValue const sv = reducedSatValue(b);
    return CoHsvColor(fullHsv(a).h, sv.s, sv.v).convertToRgb();
  }
};

struct BlendSaturation {
  static constexpr bool HSV = true;
  static Rgb rgb(Rgb const& a, Rgb const& b) {
    CoHsvColor const hsvB = fullHsv(b);
    return CoHsvColor(hsvB.h, reducedSatValue(a).s, hsvB.v).convertToRgb();
  }
};

struct BlendColor {
  static constexpr bool HSV = true;
  static Rgb rgb(Rgb const& a, Rgb const& b) {
    CoHsvColor const hsvA = fullHsv(a);
    return CoHsvColor(hsvA.h, hsvA.s, reducedSatValue(b).v).convertToRgb();
  }
};

struct BlendValue {
  static constexpr bool HSV = true;
  static Rgb rgb(Rgb const& a, Rgb const& b) {
    CoHsvColor const hsvB = fullHsv(b);
    return CoHsvColor(hsvB.h, hsvB.s, reducedSatValue(a).v).convertToRgb();
  }
};

// ---------------------------------------------------------------------------------------------
// Entry points of one mode.

template <class T>
GeInterval<int> checkedInterval(IxScanline<T> const& dst, IxScanline<T> const& srcA, IxScanline<T> const& srcB,
                                GeInterval<int> const* interval) {
  GeInterval<int> const dstInterval = interval ? *interval : dst.getInterval();
  ORN_ASSERT_TEXT(dst.getInterval().contains(dstInterval), "dst.getInterval().contains( dstInterval )");
  ORN_ASSERT_TEXT(srcA.getInterval().contains(dstInterval), "srcA.getInterval().contains( dstInterval )");
  ORN_ASSERT_TEXT(srcB.getInterval().contains(dstInterval), "srcB.getInterval().contains( dstInterval )");
  return dstInterval;
}

inline F4 load(float const* p) { return {_mm_loadu_ps(p)}; }

// Lane 3 (alpha) of an RGBA pixel.
inline __m128 alphaLane() { return _mm_castsi128_ps(_mm_set_epi32(-1, 0, 0, 0)); }

// One RGBA pixel through a mode; AlphaFromB: the result's alpha is b's, otherwise dst keeps its own.
template <class Op, bool AlphaFromB>
inline void blendPixel(Rgba* d, Rgba const* a, Rgba const* b) {
  float* const out = &d->r;
  F4 const pb = load(&b->r);
  F4 const colour = Op::apply(load(&a->r), pb);
  F4 const keep = AlphaFromB ? pb : load(out);
  _mm_storeu_ps(out, Lane<F4>::select(M4{alphaLane()}, keep, colour).v);
}

template <class Op>
void blendFloats4(float* d, float const* a, float const* b, int x, int end) {
  // Scalar until the destination is 16-byte aligned, then four at a time.
  for (; x < end && (reinterpret_cast<std::uintptr_t>(d + x) & 15) != 0; ++x) d[x] = Op::apply(a[x], b[x]);
  for (; x + 4 <= end; x += 4) _mm_store_ps(d + x, Op::apply(load(a + x), load(b + x)).v);
  for (; x < end; ++x) d[x] = Op::apply(a[x], b[x]);
}

template <class Op, bool AlphaFromB>
void blendRgba4(Rgba* d, Rgba const* a, Rgba const* b, int n) {
  for (int i = 0; i < n; ++i) blendPixel<Op, AlphaFromB>(d + i, a + i, b + i);
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// The same modes eight lanes wide, compiled for AVX and used only where the processor has it.
// The operations are the same IEEE single and double operations in the same order, so the
// results are those of the SSE2 and scalar forms.

#pragma GCC push_options
#pragma GCC target("avx")

namespace {
namespace avx {

struct F8 {
  __m256 v;
};

inline F8 operator+(F8 x, F8 y) { return {_mm256_add_ps(x.v, y.v)}; }
inline F8 operator-(F8 x, F8 y) { return {_mm256_sub_ps(x.v, y.v)}; }
inline F8 operator*(F8 x, F8 y) { return {_mm256_mul_ps(x.v, y.v)}; }
inline F8 operator/(F8 x, F8 y) { return {_mm256_div_ps(x.v, y.v)}; }

struct M8 {
  __m256 v;
};

template <class V>
struct Lane;

template <>
struct Lane<F8> {
  static F8 k(float c) { return {_mm256_set1_ps(c)}; }
  static M8 gt(F8 x, F8 y) { return {_mm256_cmp_ps(x.v, y.v, _CMP_GT_OQ)}; }
  static M8 lt(F8 x, F8 y) { return {_mm256_cmp_ps(x.v, y.v, _CMP_LT_OQ)}; }
  static M8 both(M8 p, M8 q) { return {_mm256_and_ps(p.v, q.v)}; }
  static M8 either(M8 p, M8 q) { return {_mm256_or_ps(p.v, q.v)}; }
  static F8 select(M8 m, F8 x, F8 y) {
    return {_mm256_or_ps(_mm256_and_ps(m.v, x.v), _mm256_andnot_ps(m.v, y.v))};
  }
  static F8 min(F8 x, F8 y) { return {_mm256_min_ps(y.v, x.v)}; }
  static F8 max(F8 x, F8 y) { return {_mm256_max_ps(y.v, x.v)}; }
  static F8 abs(F8 x) { return {_mm256_andnot_ps(_mm256_set1_ps(-0.0f), x.v)}; }
  static F8 sqrt(F8 x) { return {_mm256_sqrt_ps(x.v)}; }
  // As for four lanes: x == 0.
  static M8 isRelZero(F8 x) { return {_mm256_cmp_ps(x.v, _mm256_setzero_ps(), _CMP_EQ_OQ)}; }
  // b + a * (1 - min(b, 1)) on four lanes widened to double. The min is taken after widening,
  // which is exact and picks the same value (b when b is NaN), and saves a conversion.
  static __m128 screenHalf(__m128 a, __m128 b) {
    __m256d const one = _mm256_set1_pd(1.0);
    __m256d const ad = _mm256_cvtps_pd(a);
    __m256d const bd = _mm256_cvtps_pd(b);
    __m256d const ld = _mm256_min_pd(one, bd);
    return _mm256_cvtpd_ps(_mm256_add_pd(bd, _mm256_mul_pd(ad, _mm256_sub_pd(one, ld))));
  }
  static F8 screen(F8 a, F8 b) {
    __m128 const low = screenHalf(_mm256_castps256_ps128(a.v), _mm256_castps256_ps128(b.v));
    __m128 const high = screenHalf(_mm256_extractf128_ps(a.v, 1), _mm256_extractf128_ps(b.v, 1));
    return {_mm256_insertf128_ps(_mm256_castps128_ps256(low), high, 1)};
  }
};

ORN_BLEND_LANE_OPS(ORN_DEFINE_LANE_OP)

inline F8 load(float const* p) { return {_mm256_loadu_ps(p)}; }

// Op: the mode for the scalar ends; Op8: the same mode eight wide.
template <class Op, class Op8>
void blendFloats8(float* d, float const* a, float const* b, int x, int end) {
  for (; x < end && (reinterpret_cast<std::uintptr_t>(d + x) & 31) != 0; ++x) d[x] = Op::apply(a[x], b[x]);
  for (; x + 8 <= end; x += 8) _mm256_store_ps(d + x, Op8::apply(load(a + x), load(b + x)).v);
  for (; x < end; ++x) d[x] = Op::apply(a[x], b[x]);
}

template <class Op8, bool AlphaFromB>
inline void blendTwoPixels(Rgba* d, Rgba const* a, Rgba const* b) {
  float* const out = &d->r;
  F8 const pb = load(&b->r);
  F8 const colour = Op8::apply(load(&a->r), pb);
  __m256 const keep = AlphaFromB ? pb.v : _mm256_loadu_ps(out);
  _mm256_storeu_ps(out, _mm256_blend_ps(colour.v, keep, 0x88));
}

// Four pixels per step as two independent vectors, so the latencies of the slower modes
// overlap; then two, and an odd last pixel goes the four-wide way.
template <class Op, class Op8, bool AlphaFromB>
void blendRgba8(Rgba* d, Rgba const* a, Rgba const* b, int n) {
  int i = 0;
  for (; i + 4 <= n; i += 4) {
    blendTwoPixels<Op8, AlphaFromB>(d + i, a + i, b + i);
    blendTwoPixels<Op8, AlphaFromB>(d + i + 2, a + i + 2, b + i + 2);
  }
  for (; i + 2 <= n; i += 2) {
    float* const out = &d[i].r;
    F8 const pb = load(&b[i].r);
    F8 const colour = Op8::apply(load(&a[i].r), pb);
    __m256 const keep = AlphaFromB ? pb.v : _mm256_loadu_ps(out);
    _mm256_storeu_ps(out, _mm256_blend_ps(colour.v, keep, 0x88));
  }
  if (i < n) blendPixel<Op, AlphaFromB>(d + i, a + i, b + i);
}

}  // namespace avx
}  // namespace

#pragma GCC pop_options

namespace {

// The eight-wide form of each per-channel mode.
template <class Op>
struct Wide;

#define ORN_DEFINE_WIDE(Name, expression) \
  template <>                             \
  struct Wide<Name> {                     \
    using type = avx::Name;               \
  };

ORN_BLEND_LANE_OPS(ORN_DEFINE_WIDE)

#undef ORN_DEFINE_WIDE
#undef ORN_DEFINE_LANE_OP
#undef ORN_BLEND_LANE_OPS

bool const wideAvailable = [] {
  __builtin_cpu_init();  // this runs among the static initialisers
  return __builtin_cpu_supports("avx") != 0;
}();
std::atomic<bool> wideEnabled{wideAvailable};

template <class Op>
class BlendUtil final : public IxScanlineBlend::Imp {
public:
  float blend(float a, float b) const override {
    if constexpr (Op::HSV)
      return a;
    else
      return Op::apply(a, b);
  }

  Rgb blend(Rgb const& a, Rgb const& b) const override {
    if constexpr (Op::HSV)
      return Op::rgb(a, b);
    else
      return Rgb(Op::apply(a.r, b.r), Op::apply(a.g, b.g), Op::apply(a.b, b.b));
  }

  void blend(IxScanline<float>& dst, IxScanline<float> const& srcA, IxScanline<float> const& srcB,
             GeInterval<int> const* interval) const override {
    GeInterval<int> const range = checkedInterval(dst, srcA, srcB, interval);
    if (range.isEmpty()) return;
    float* const d = dst.getOrigin();
    float const* const a = srcA.getOrigin();
    float const* const b = srcB.getOrigin();
    if constexpr (Op::HSV) {
      for (int x = range.min; x < range.max; ++x) d[x] = a[x];
    } else if (wideEnabled.load(std::memory_order_relaxed)) {
      avx::blendFloats8<Op, typename Wide<Op>::type>(d, a, b, range.min, range.max);
    } else {
      blendFloats4<Op>(d, a, b, range.min, range.max);
    }
  }

  void blend(IxScanline<Rgba>& dst, IxScanline<Rgba> const& srcA, IxScanline<Rgba> const& srcB,
             GeInterval<int> const* interval, bool alpha) const override {
    GeInterval<int> const range = checkedInterval(dst, srcA, srcB, interval);
    if (range.isEmpty()) return;
    Rgba* const d = dst.getOrigin() + range.min;
    Rgba const* const a = srcA.getOrigin() + range.min;
    Rgba const* const b = srcB.getOrigin() + range.min;
    int const n = range.max - range.min;
    if constexpr (Op::HSV) {
      if (alpha)
        blendRgbaHsv<true>(d, a, b, n);
      else
        blendRgbaHsv<false>(d, a, b, n);
    } else if (wideEnabled.load(std::memory_order_relaxed)) {
      using Op8 = typename Wide<Op>::type;
      if (alpha)
        avx::blendRgba8<Op, Op8, true>(d, a, b, n);
      else
        avx::blendRgba8<Op, Op8, false>(d, a, b, n);
    } else {
      if (alpha)
        blendRgba4<Op, true>(d, a, b, n);
      else
        blendRgba4<Op, false>(d, a, b, n);
    }
  }

private:
  template <bool AlphaFromB>
  static void blendRgbaHsv(Rgba* d, Rgba const* a, Rgba const* b, int n) {
    for (int i = 0; i < n; ++i) {
      Rgb const c = Op::rgb(Rgb(a[i].r, a[i].g, a[i].b), Rgb(b[i].r, b[i].g, b[i].b));
      d[i].r = c.r;
      d[i].g = c.g;
      d[i].b = c.b;
      if constexpr (AlphaFromB) d[i].a = b[i].a;
    }
  }
};

// ---------------------------------------------------------------------------------------------
// The table: one operation object per mode, in mode order, deleted when the process ends.

struct BlendTable {
  std::vector<IxScanlineBlend::Imp*> blendOp;
  ~BlendTable() {
    for (IxScanlineBlend::Imp* imp : blendOp) delete imp;
    blendOp.clear();
    blendOp.shrink_to_fit();
  }
};

BlendTable& table() {
  static BlendTable instance;
  return instance;
}

std::once_flag tableBuilt;

void buildTable() {
  std::vector<IxScanlineBlend::Imp*>& blendOp = table().blendOp;
  blendOp.push_back(new BlendUtil<BlendNormal>);
  blendOp.push_back(new BlendUtil<BlendAverage>);
  blendOp.push_back(new BlendUtil<BlendAdd>);
  blendOp.push_back(new BlendUtil<BlendSubtract>);
  blendOp.push_back(new BlendUtil<BlendDarken>);
  blendOp.push_back(new BlendUtil<BlendMultiply>);
  blendOp.push_back(new BlendUtil<BlendColorBurn>);
  blendOp.push_back(new BlendUtil<BlendLinearBurn>);
  blendOp.push_back(new BlendUtil<BlendLighten>);
  blendOp.push_back(new BlendUtil<BlendScreen>);
  blendOp.push_back(new BlendUtil<BlendColorDodge>);
  blendOp.push_back(new BlendUtil<BlendLinearDodge>);
  blendOp.push_back(new BlendUtil<BlendSpotlight>);
  blendOp.push_back(new BlendUtil<BlendSpotlightBlend>);
  blendOp.push_back(new BlendUtil<BlendOverlay>);
  blendOp.push_back(new BlendUtil<BlendSoftLight>);
  blendOp.push_back(new BlendUtil<BlendHardLight>);
  blendOp.push_back(new BlendUtil<BlendPinLight>);
  blendOp.push_back(new BlendUtil<BlendHardMix>);
  blendOp.push_back(new BlendUtil<BlendDifference>);
  blendOp.push_back(new BlendUtil<BlendExclusion>);
  blendOp.push_back(new BlendUtil<BlendHue>);
  blendOp.push_back(new BlendUtil<BlendSaturation>);
  blendOp.push_back(new BlendUtil<BlendColor>);
  blendOp.push_back(new BlendUtil<BlendValue>);
  ORN_ASSERT_TEXT(blendOp.size() == std::size_t(IxScanlineBlend::NB_BLEND_OPS), "blendOp.size() == NB_BLEND_OPS");
}

char const* const BLEND_OP_NAMES[IxScanlineBlend::NB_BLEND_OPS] = {
    "Normal",      "Average",     "Add",        "Subtract",     "Darken",          "Multiply",   "Color Burn",
    "Linear Burn", "Lighten",     "Screen",     "Color Dodge",  "Linear Dodge",    "Spotlight",  "Spotlight Blend",
    "Overlay",     "Soft Light",  "Hard Light", "Pin Light",    "Hard Mix",        "Difference", "Exclusion",
    "Hue",         "Saturation",  "Color",      "Value"};

}  // namespace

IxScanlineBlend::Imp::~Imp() = default;

void IxScanlineBlend::initialize() { std::call_once(tableBuilt, buildTable); }

IxScanlineBlend::IxScanlineBlend(BlendOp op) {
  // The package builds the table at start; a handle made before that builds it here.
  std::call_once(tableBuilt, buildTable);
  _imp = table().blendOp[std::size_t(op)];
}

bool IxScanlineBlendPaths::isWideAvailable() { return wideAvailable; }

bool IxScanlineBlendPaths::isWideEnabled() { return wideEnabled.load(); }

bool IxScanlineBlendPaths::setWideEnabled(bool enabled) { return wideEnabled.exchange(enabled && wideAvailable); }

char const* IxScanlineBlend::getBlendOpName(BlendOp op) { return BLEND_OP_NAMES[op]; }

RCShdPtr<PiEnumPolicy const> IxScanlineBlend::createInputPolicy(bool hsvModes, BlendOp defaultOp, bool animatable) {
  PiEnumPolicy::Builder builder;
  for (int op = BLEND_NORMAL; op <= BLEND_EXCLUSION; ++op) builder.addPair(op, BLEND_OP_NAMES[op]);
  builder.setDefaultValue(defaultOp);
  builder.setAnimatable(animatable);
  if (hsvModes)
    for (int op = BLEND_HUE; op <= BLEND_VALUE; ++op) builder.addPair(op, BLEND_OP_NAMES[op]);
  return builder.create();
}

}  // namespace Orn
