// ipBlend: rows of a, b and the matte read into float scanlines, mixed, and written back.

#include <orn/primitives/imageProc/ipBlend.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixPaddingPolicy.h>
#include <orn/pluginAPI/ixScanline.h>

namespace Orn {

namespace {

using Rgba = CoRgbaColorTyped<float>;

IxPaddingPolicy<Rgba> paddedWithFill(IxReadGuard const& guard) {
  return IxPaddingPolicy<Rgba>(IxScanlineTypes::PADDING_COLOR, guard.getTile().getFillColor());
}

// out = b + (a - b) * w[x] on every component; the weights are one float per pixel.
void mixByValues(Rgba* out, Rgba const* a, Rgba const* b, float const* w, int n) {
  float* const o = &out->r;
  float const* const pa = &a->r;
  float const* const pb = &b->r;
  for (int i = 0; i < 4 * n; ++i) o[i] = pb[i] + (pa[i] - pb[i]) * w[i >> 2];
}

// The same with the weight taken from each matte pixel's alpha.
void mixByAlpha(Rgba* out, Rgba const* a, Rgba const* b, Rgba const* m, int n) {
  for (int i = 0; i < n; ++i) {
    float const w = m[i].a;
    out[i] = Rgba(b[i].r + (a[i].r - b[i].r) * w, b[i].g + (a[i].g - b[i].g) * w, b[i].b + (a[i].b - b[i].b) * w,
                  b[i].a + (a[i].a - b[i].a) * w);
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
