// ipAdd and ipSubtract: the same road through float scanlines, with a different line operation.

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixPaddingPolicy.h>
#include <orn/pluginAPI/ixScanline.h>
#include <orn/pluginAPI/ixScanlineUtil.h>
#include <orn/primitives/imageProc/ipAdd.h>
#include <orn/primitives/imageProc/ipSubtract.h>

namespace Orn {

namespace {

template <class T>
using LineOperation = void (*)(IxScanline<T>&, IxScanline<T> const&, IxScanline<T> const&, GeInterval<int> const*);

// Reads both sources' rows, combines them and writes the result, row after row. The region lies
// inside every tile, so the reads need no padding.
template <class T>
void combineRows(IxWriteGuard const& dst, IxReadGuard const& srcA, IxReadGuard const& srcB,
                 GeRectangle<int> const& region, T const& fill, LineOperation<T> operation) {
  GeInterval<int> const& xs = region.getSlab(0);
  IxPaddingPolicy<T> const padding(IxScanlineTypes::NOOP, fill);
  IxScanline<T> out(xs, padding);
  IxScanline<T> a(xs, padding);
  IxScanline<T> b(xs, padding);
  for (int y = region.y1(); y < region.y2(); ++y) {
    a.readFrom(srcA, y);
    b.readFrom(srcB, y);
    operation(out, a, b, nullptr);
    out.writeTo(dst, y);
  }
}

enum class Operation { ADD, SUBTRACT };

void combine(IxWriteGuard const& dst, IxReadGuard const& srcA, IxReadGuard const& srcB, GeRectangle<int> const* dstRgn,
             Operation operation) {
  GeRectangle<int> const region = dstRgn ? *dstRgn : dst.getPixelRegion();
  ORN_ASSERT_TEXT(dst.getPixelRegion().contains(region), "dst.getPixelRegion().contains( dstRgn )");
  ORN_ASSERT_TEXT(srcA.getPixelRegion().contains(region), "srcA.getPixelRegion().contains( dstRgn )");
  ORN_ASSERT_TEXT(srcB.getPixelRegion().contains(region), "srcB.getPixelRegion().contains( dstRgn )");

  bool const add = operation == Operation::ADD;
  if (dst.getTile().getPixelFormat().getComps() == IxPixelFormat::ALPHA &&
      srcA.getTile().getPixelFormat().getComps() == IxPixelFormat::ALPHA &&
      srcB.getTile().getPixelFormat().getComps() == IxPixelFormat::ALPHA) {
    combineRows<float>(dst, srcA, srcB, region, 0.f,
                       add ? &IxScanlineUtil::addScanlines<float> : &IxScanlineUtil::subtractScanlines<float>);
  } else {
    using Rgba = CoRgbaColorTyped<float>;
    combineRows<Rgba>(dst, srcA, srcB, region, Rgba(0.f, 0.f, 0.f, 1.f),
                      add ? &IxScanlineUtil::addScanlines<Rgba> : &IxScanlineUtil::subtractScanlines<Rgba>);
  }
}

}  // namespace

void ipAdd(IxWriteGuard const& dst, IxReadGuard const& srcA, IxReadGuard const& srcB, GeRectangle<int> const* dstRgn) {
  combine(dst, srcA, srcB, dstRgn, Operation::ADD);
}

void ipSubtract(IxWriteGuard const& dst, IxReadGuard const& srcA, IxReadGuard const& srcB,
                GeRectangle<int> const* dstRgn) {
  combine(dst, srcA, srcB, dstRgn, Operation::SUBTRACT);
}

}  // namespace Orn
