#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/pxRequestMgr.h>
#include <orn/primitives/imageProc/ipFormatChange.h>
#include <orn/primitives/imageProc/ixConvertUtil.h>

#include <complex>
#include <cstdint>
#include <vector>

namespace Orn {

namespace {

// Each row goes through a float line of type T.
template <class T>
void convertRows(IxWriteGuard const& dst, IxReadGuard const& src, GeRectangle<int> const& region) {
  IxPixelFormat const& dstFormat = dst.getTile().getPixelFormat();
  IxPixelFormat const& srcFormat = src.getTile().getPixelFormat();
  unsigned const nbPixels = unsigned(region.getWidth());
  std::vector<T> line(nbPixels);
  std::int64_t const dstOffset = std::int64_t(region.x1()) * dstFormat.getSize();
  std::int64_t const srcOffset = std::int64_t(region.x1()) * srcFormat.getSize();
  PxRequestMgr& requests = PxRequestMgr::getInstance();
  for (int y = region.y1(); y < region.y2(); ++y) {
    IxConvertUtil::readFrom(line.data(), src.getOriginAddress() + srcOffset + std::int64_t(y) * src.getTile().getRowBytes(),
                            nbPixels, srcFormat);
    IxConvertUtil::writeTo(dst.getOriginAddress() + dstOffset + std::int64_t(y) * dst.getTile().getRowBytes(),
                           line.data(), nbPixels, dstFormat);
    requests.poll();
  }
}

}  // namespace

void ipFormatChange(IxWriteGuard const& dst, IxReadGuard const& src, GeRectangle<int> const* region) {
  GeRectangle<int> const rgn = region ? *region : dst.getPixelRegion();
  ORN_ASSERT_TEXT(dst.getPixelRegion().contains(rgn), "dst.getPixelRegion().contains( region )");
  ORN_ASSERT_TEXT(src.getPixelRegion().contains(rgn), "src.getPixelRegion().contains( region )");
  if (rgn.isEmpty()) return;
  bool const dstComplex = dst.getTile().getPixelFormat().getDepth() == IxPixelFormat::COMPLEX;
  bool const srcComplex = src.getTile().getPixelFormat().getDepth() == IxPixelFormat::COMPLEX;
  ORN_ASSERT(dstComplex == srcComplex);
  if (dstComplex)
    convertRows<std::complex<float>>(dst, src, rgn);
  else
    convertRows<CoRgbaColorTyped<float>>(dst, src, rgn);
}

}  // namespace Orn
