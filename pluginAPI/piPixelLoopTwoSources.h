#pragma once
// A plug-in style loop over a destination and two sources of any formats: each row of the
// sources is read into float RGBA, a step combines the two rows into the destination's row, and
// the row is stored to the destination's format. Pixels outside a source read as transparent
// black. The request manager is polled after every row.
//
// The step is any object with
//   void processLine(CoRgbaColorTyped<float>* dst, CoRgbaColorTyped<float> const* src0,
//                    CoRgbaColorTyped<float> const* src1, int nbPixels);
// Scanlines need their implementation factories, installed when the image packages start.

#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixPaddingPolicy.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixScanline.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/pluginAPI/pxRequestMgr.h>

namespace Orn {

class PiPixelLoopTwoSources {
 public:
  // Runs the step over region (null: dst's pixel region), which must lie inside dst.
  template <class Proc>
  static void run(IxWriteGuard const& dst, IxReadGuard const& src0, IxReadGuard const& src1,
                  GeRectangle<int> const* region, Proc& proc) {
    using Rgba = CoRgbaColorTyped<float>;
    GeRectangle<int> const rgn = region ? *region : dst.getPixelRegion();
    ORN_ASSERT_TEXT(dst.getPixelRegion().contains(rgn), "dst.getPixelRegion().contains( region )");
    if (rgn.isEmpty()) return;
    GeInterval<int> const& xs = rgn.getSlab(0);
    IxPaddingPolicy<Rgba> const padding(IxScanlineTypes::PADDING_COLOR, Rgba(0.f, 0.f, 0.f, 0.f));
    IxScanline<Rgba> out(xs, IxPaddingPolicy<Rgba>(IxScanlineTypes::NOOP, Rgba(0.f, 0.f, 0.f, 0.f)));
    IxScanline<Rgba> in0(xs, padding);
    IxScanline<Rgba> in1(xs, padding);
    PxRequestMgr& requests = PxRequestMgr::getInstance();
    for (int y = rgn.y1(); y < rgn.y2(); ++y) {
      in0.readFrom(src0, y);
      in1.readFrom(src1, y);
      Rgba const* const a = in0.getBegin();
      Rgba const* const b = in1.getBegin();
      proc.processLine(out.getBegin(), a, b, rgn.getWidth());
      out.writeTo(dst, y);
      requests.poll();
    }
  }
};

}  // namespace Orn
