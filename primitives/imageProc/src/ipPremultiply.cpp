#include <orn/primitives/imageProc/ipPremultiply.h>
#include <orn/primitives/imageProc/ipUnpremultiply.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixPaddingPolicy.h>
#include <orn/pluginAPI/ixScanline.h>
#include <orn/primitives/imageProc/ipCopy.h>

#include <emmintrin.h>

#include <cstdint>

namespace Orn {

namespace {

// (v, v, v, 1) from a vector holding v in every lane.
inline __m128 withAlphaLaneOne(__m128 v) {
  __m128 const colourLanes = _mm_castsi128_ps(_mm_setr_epi32(-1, -1, -1, 0));
  return _mm_or_ps(_mm_and_ps(colourLanes, v), _mm_setr_ps(0.f, 0.f, 0.f, 1.f));
}

inline __m128 broadcastAlpha(__m128 p) { return _mm_shuffle_ps(p, p, _MM_SHUFFLE(3, 3, 3, 3)); }

// Per-pixel arithmetic on one (r, g, b, a) vector. The same function serves every pixel of a row
// (lead-in, blocks of four, tail) and the scanline path, so a pixel's result does not depend on
// where it lies.
// Four pixels one by one: the block form of a per-pixel operation with nothing to share.
template <class Pixel>
struct PixelByPixel {
  void block(__m128 (&p)[4]) const {
    for (__m128& v : p) v = static_cast<Pixel const&>(*this)(v);
  }
};

struct PremultiplyPixel : PixelByPixel<PremultiplyPixel> {
  // Alpha multiplies by exactly 1.0.
  __m128 operator()(__m128 p) const { return _mm_mul_ps(p, withAlphaLaneOne(broadcastAlpha(p))); }
};

// The processor's reciprocal estimate refined by one Newton step, written x = (r + r) - v r r.
inline __m128 reciprocal(__m128 v) {
  __m128 const r = _mm_rcp_ps(v);
  return _mm_sub_ps(_mm_add_ps(r, r), _mm_mul_ps(_mm_mul_ps(v, r), r));
}

// Lanes whose magnitude is infinite or NaN become 0.
inline __m128 zeroNonFinite(__m128 v) {
  __m128i const magnitude = _mm_and_si128(_mm_castps_si128(v), _mm_set1_epi32(0x7FFFFFFF));
  __m128i const finite = _mm_cmplt_epi32(magnitude, _mm_set1_epi32(0x7F800000));
  return _mm_and_ps(v, _mm_castsi128_ps(finite));
}

// d = a where |a| >= 1e-8 (bits 0x322BCC77), else 0, in every lane: a bit mask, no branch.
inline __m128 thresholdAlpha(__m128 a) {
  __m128 const magnitude = _mm_and_ps(a, _mm_castsi128_ps(_mm_set1_epi32(0x7FFFFFFF)));
  __m128 const keep = _mm_cmpge_ps(magnitude, _mm_castsi128_ps(_mm_set1_epi32(0x322BCC77)));
  return _mm_and_ps(a, keep);
}

struct UnpremultiplyPixel {
  __m128 operator()(__m128 p) const {
    return zeroNonFinite(_mm_mul_ps(p, reciprocal(withAlphaLaneOne(thresholdAlpha(broadcastAlpha(p))))));
  }

  // The reciprocals of four pixels from one vector of their four alphas, and the alpha lane's
  // reciprocal of 1.0 taken once: every lane sees the same instructions on the same value as in
  // the one-pixel form, so the bits are the same at a third of the work.
  void block(__m128 (&p)[4]) const {
    __m128 const alphas = _mm_movehl_ps(_mm_unpackhi_ps(p[2], p[3]), _mm_unpackhi_ps(p[0], p[1]));
    __m128 const x = reciprocal(thresholdAlpha(alphas));
    __m128 const one = reciprocal(_mm_set1_ps(1.f));
    // (x_i, x_i, x_i, one) for each pixel i.
    __m128 const low = _mm_shuffle_ps(x, one, _MM_SHUFFLE(0, 0, 1, 0));   // x0 x1 one one
    __m128 const high = _mm_shuffle_ps(x, one, _MM_SHUFFLE(0, 0, 3, 2));  // x2 x3 one one
    p[0] = zeroNonFinite(_mm_mul_ps(p[0], _mm_shuffle_ps(low, low, _MM_SHUFFLE(2, 0, 0, 0))));
    p[1] = zeroNonFinite(_mm_mul_ps(p[1], _mm_shuffle_ps(low, low, _MM_SHUFFLE(2, 1, 1, 1))));
    p[2] = zeroNonFinite(_mm_mul_ps(p[2], _mm_shuffle_ps(high, high, _MM_SHUFFLE(2, 0, 0, 0))));
    p[3] = zeroNonFinite(_mm_mul_ps(p[3], _mm_shuffle_ps(high, high, _MM_SHUFFLE(2, 1, 1, 1))));
  }
};

struct UnpremultiplyOverPixel : PixelByPixel<UnpremultiplyOverPixel> {
  __m128 background;  // (r0, g0, b0, 0)

  __m128 operator()(__m128 p) const {
    __m128 const divisor = withAlphaLaneOne(broadcastAlpha(p));
    __m128 const behind = _mm_mul_ps(_mm_sub_ps(_mm_set1_ps(1.f), divisor), background);
    return zeroNonFinite(_mm_mul_ps(reciprocal(divisor), _mm_sub_ps(p, behind)));
  }
};

// A float RGBA row in place or between rows: per pixel up to the destination's next 64-byte
// boundary, then four pixels per iteration, then the rest.
template <class Pixel>
void processRow(float* dst, float const* src, int nbPixels, Pixel const& pixel) {
  int i = 0;
  std::uintptr_t const misalign = reinterpret_cast<std::uintptr_t>(dst) & 63;
  int const leadIn = misalign ? int((64 - misalign) / 16) : 0;
  for (; i < nbPixels && i < leadIn; ++i) _mm_storeu_ps(dst + 4 * i, pixel(_mm_loadu_ps(src + 4 * i)));
  for (; i + 4 <= nbPixels; i += 4) {
    _mm_prefetch(reinterpret_cast<char const*>(src + 4 * i) + 256, _MM_HINT_T0);
    __m128 p[4] = {_mm_loadu_ps(src + 4 * i), _mm_loadu_ps(src + 4 * i + 4), _mm_loadu_ps(src + 4 * i + 8),
                   _mm_loadu_ps(src + 4 * i + 12)};
    pixel.block(p);
    _mm_storeu_ps(dst + 4 * i, p[0]);
    _mm_storeu_ps(dst + 4 * i + 4, p[1]);
    _mm_storeu_ps(dst + 4 * i + 8, p[2]);
    _mm_storeu_ps(dst + 4 * i + 12, p[3]);
  }
  for (; i < nbPixels; ++i) _mm_storeu_ps(dst + 4 * i, pixel(_mm_loadu_ps(src + 4 * i)));
}

// The frame shared by the three operators.
template <class Pixel>
void run(IxWriteGuard const& dst, IxReadGuard const& src, Pixel const& pixel) {
  IxPixelFormat const& format = dst.getTile().getPixelFormat();
  ORN_ASSERT(format == src.getTile().getPixelFormat());
  ORN_ASSERT(dst.getTile().isValid());
  ORN_ASSERT(src.getTile().isValid());
  GeRectangle<int> const& dstRgn = dst.getPixelRegion();
  GeRectangle<int> const& srcRgn = src.getPixelRegion();
  ORN_ASSERT(srcRgn.contains( dstRgn ));
  if (dstRgn.isEmpty()) return;

  // Without alpha there is nothing to do but copy.
  if (format.getComps() != IxPixelFormat::RGBA) {
    ipCopy(dst, src, &dstRgn, &dstRgn);
    return;
  }

  int const width = dstRgn.getWidth();
  int const pixelSize = format.getSize();
  if (format.getDepth() == IxPixelFormat::FLOAT32) {
    for (int y = dstRgn.y1(); y < dstRgn.y2(); ++y) {
      auto* out = reinterpret_cast<float*>(dst.getOriginAddress() + std::int64_t(y) * dst.getTile().getRowBytes() +
                                           std::int64_t(dstRgn.x1()) * pixelSize);
      auto const* in = reinterpret_cast<float const*>(src.getOriginAddress() +
                                                      std::int64_t(y) * src.getTile().getRowBytes() +
                                                      std::int64_t(dstRgn.x1()) * pixelSize);
      processRow(out, in, width, pixel);
    }
    return;
  }

  // 8-bit and half: through RGBA float scanlines and the row converters.
  IxPaddingPolicy<CoRgbaColorTyped<float>> const policy(IxScanlineTypes::NOOP, CoRgbaColorTyped<float>(0, 0, 0, 1));
  GeInterval<int> const interval = dstRgn.getSlab(0);
  IxScanline<CoRgbaColorTyped<float>> in(interval, policy);
  IxScanline<CoRgbaColorTyped<float>> out(interval, policy);
  for (int y = dstRgn.y1(); y < dstRgn.y2(); ++y) {
    in.readFrom(src, y);
    processRow(&out.getBegin()->r, &in.getBegin()->r, width, pixel);
    out.writeTo(dst, y);
  }
}

}  // namespace

void ipPremultiply(IxWriteGuard const& dst, IxReadGuard const& src) { run(dst, src, PremultiplyPixel()); }

void ipUnpremultiply(IxWriteGuard const& dst, IxReadGuard const& src) { run(dst, src, UnpremultiplyPixel()); }

void ipUnpremultiply(IxWriteGuard const& dst, IxReadGuard const& src, CoRgbColorTyped<float> const& background) {
  run(dst, src, UnpremultiplyOverPixel{{}, _mm_setr_ps(background.r, background.g, background.b, 0.f)});
}

}  // namespace Orn
