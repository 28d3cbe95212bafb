// ipBlend: rows of a, b and the matte read into float scanlines, mixed, and written back.

#include <orn/primitives/imageProc/ipBlend.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixPaddingPolicy.h>
#include <orn/pluginAPI/ixScanline.h>

#include <emmintrin.h>

namespace Orn {

namespace {

using Rgba = CoRgbaColorTyped<float>;

IxPaddingPolicy<Rgba> paddedWithFill(IxReadGuard const& guard) {
  return IxPaddingPolicy<Rgba>(IxScanlineTypes::PADDING_COLOR, guard.getTile().getFillColor());
}

// b + (a - b) * w on the four components of one pixel.
inline void mixPixel(Rgba* out, Rgba const* a, Rgba const* b, __m128 w) {
  __m128 const pb = _mm_loadu_ps(&b->r);
  _mm_storeu_ps(&out->r, _mm_add_ps(pb, _mm_mul_ps(_mm_sub_ps(_mm_loadu_ps(&a->r), pb), w)));
}

// The weights are one float per pixel.
void mixByValues(Rgba* out, Rgba const* a, Rgba const* b, float const* w, int n) {
  for (int i = 0; i < n; ++i) mixPixel(out + i, a + i, b + i, _mm_set1_ps(w[i]));
}

// The weight is each matte pixel's alpha.
void mixByAlpha(Rgba* out, Rgba const* a, Rgba const* b, Rgba const* m, int n) {
  for (int i = 0; i < n; ++i) {
    __m128 const pm = _mm_loadu_ps(&m[i].r);
    mixPixel(out + i, a + i, b + i, _mm_shuffle_ps(pm, pm, _MM_SHUFFLE(3, 3, 3, 3)));
  }
}

}  // namespace

void ipBlend(IxWriteGuard& dst, IxReadGuard const& a, IxReadGuard const& b, IxReadGuard const& matte) {
  IxTile const& dstTile = dst.getTile();
  ORN_ASSERT_TEXT(dstTile.isValid(), "isValid()");

  // The fill colour lives in the guard's own copy of the tile, which the caller lends us
  // writable by passing the guard itself.
  Rgba const& fillA = a.getTile().getFillColor();
  Rgba const& fillB = b.getTile().getFillColor();
  float const m = matte.getTile().getFillColor().a;
  const_cast<IxTile&>(dstTile).setFillColor(Rgba((fillA.r - fillB.r) * m + fillB.r, (fillA.g - fillB.g) * m + fillB.g,
                                                 (fillA.b - fillB.b) * m + fillB.b, (fillA.a - fillB.a) * m + fillB.a));

  GeRectangle<int> const region = dst.getPixelRegion();
  if (region.isEmpty()) return;
  GeInterval<int> const xs = region.getSlab(0);
  int const n = xs.max - xs.min;
  IxScanline<Rgba> lineA(xs, paddedWithFill(a));
  IxScanline<Rgba> lineB(xs, paddedWithFill(b));
  IxScanline<Rgba> out(xs, IxPaddingPolicy<Rgba>(IxScanlineTypes::NOOP, Rgba()));

  if (matte.getTile().getPixelFormat().getComps() == IxPixelFormat::ALPHA) {
    IxScanline<float> weights(xs, IxPaddingPolicy<float>(IxScanlineTypes::PADDING_COLOR, m));
    for (int y = region.y1(); y < region.y2(); ++y) {
      lineA.readFrom(a, y);
      lineB.readFrom(b, y);
      weights.readFrom(matte, y);
      mixByValues(out.getBegin(), lineA.getBegin(), lineB.getBegin(), weights.getBegin(), n);
      out.writeTo(dst, y);
    }
  } else {
    IxScanline<Rgba> weights(xs, paddedWithFill(matte));
    for (int y = region.y1(); y < region.y2(); ++y) {
      lineA.readFrom(a, y);
      lineB.readFrom(b, y);
      weights.readFrom(matte, y);
      mixByAlpha(out.getBegin(), lineA.getBegin(), lineB.getBegin(), weights.getBegin(), n);
      out.writeTo(dst, y);
    }
  }
}

}  // namespace Orn
