#include <orn/pluginAPI/pxRequestMgr.h>
#include <orn/primitives/imageProc/ipCopy.h>

#include <cstdint>
#include <cstring>

namespace Orn {

bool ipCopy(IxWriteGuard const& dst, IxReadGuard const& src, GeRectangle<int> const* dstRegion,
            GeRectangle<int> const* srcRegion) {
  IxPixelFormat const& format = dst.getTile().getPixelFormat();
  IxPixelFormat const& srcFormat = src.getTile().getPixelFormat();
  if (format.getDepth() != srcFormat.getDepth() || format.getComps() != srcFormat.getComps()) return false;
  GeRectangle<int> const d = dstRegion ? *dstRegion : dst.getPixelRegion();
  GeRectangle<int> const s = srcRegion ? *srcRegion : src.getPixelRegion();
  if (d.getWidth() != s.getWidth() || d.getHeight() != s.getHeight()) return false;
  if (d.isEmpty()) return true;
  if (!dst.getPixelRegion().contains(d) || !src.getPixelRegion().contains(s)) return false;

  std::int64_t const pixelBytes = format.getSize();
  std::int64_t const dstStride = dst.getTile().getRowBytes();
  std::int64_t const srcStride = src.getTile().getRowBytes();
  std::size_t const lineBytes = std::size_t(d.getWidth()) * std::size_t(pixelBytes);
  unsigned char* dstLine = dst.getOriginAddress() + d.x1() * pixelBytes + d.y1() * dstStride;
  unsigned char const* srcLine = src.getOriginAddress() + s.x1() * pixelBytes + s.y1() * srcStride;
  int const nbLines = d.getHeight();
  // Within one memory, a destination lying after the source is copied from its last row up, so
  // that no source row is overwritten before it is read; memmove takes care of each row.
  bool const backward = dstLine > srcLine;
  PxRequestMgr& requests = PxRequestMgr::getInstance();
  for (int i = 0; i < nbLines; ++i) {
    int const line = backward ? nbLines - 1 - i : i;
    std::memmove(dstLine + line * dstStride, srcLine + line * srcStride, lineBytes);
    requests.poll();
  }
  return true;
}

}  // namespace Orn
