#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/pxRequestMgr.h>
#include <orn/primitives/imageProc/ipZoom.h>

#include <cstdint>
#include <cstring>
#include <vector>

namespace Orn {

namespace {

// Source offset, from the source region's start, of each of nbDst destination positions.
std::vector<std::int64_t> nearestOffsets(int nbDst, int nbSrc, std::int64_t step) {
  std::vector<std::int64_t> offsets(static_cast<std::size_t>(nbDst));
  for (int i = 0; i < nbDst; ++i)
    offsets[std::size_t(i)] = (std::int64_t(2 * std::int64_t(i) + 1) * nbSrc / (2 * std::int64_t(nbDst))) * step;
  return offsets;
}

}  // namespace

void ipZoom(IxWriteGuard const& dst, IxReadGuard const& src, GeRectangle<int> const* dstRegion,
            GeRectangle<int> const* srcRegion) {
  IxPixelFormat const& format = dst.getTile().getPixelFormat();
  ORN_ASSERT(format.getDepth() == src.getTile().getPixelFormat().getDepth() && format.getComps() == src.getTile().getPixelFormat().getComps());
  GeRectangle<int> const d = dstRegion ? *dstRegion : dst.getPixelRegion();
  GeRectangle<int> const s = srcRegion ? *srcRegion : src.getPixelRegion();
  ORN_ASSERT_TEXT(dst.getPixelRegion().contains(d), "dst.getPixelRegion().contains( dstRegion )");
  ORN_ASSERT_TEXT(src.getPixelRegion().contains(s), "src.getPixelRegion().contains( srcRegion )");
  if (d.isEmpty() || s.isEmpty()) return;

  std::size_t const pixelBytes = std::size_t(format.getSize());
  std::int64_t const dstStride = dst.getTile().getRowBytes();
  std::int64_t const srcStride = src.getTile().getRowBytes();
  std::vector<std::int64_t> const columns = nearestOffsets(d.getWidth(), s.getWidth(), std::int64_t(pixelBytes));
  std::vector<std::int64_t> const rows = nearestOffsets(d.getHeight(), s.getHeight(), srcStride);
  unsigned char const* const srcCorner =
      src.getOriginAddress() + std::int64_t(s.x1()) * std::int64_t(pixelBytes) + std::int64_t(s.y1()) * srcStride;
  PxRequestMgr& requests = PxRequestMgr::getInstance();
  for (int j = 0; j < d.getHeight(); ++j) {
    unsigned char* out =
        dst.getOriginAddress() + std::int64_t(d.x1()) * std::int64_t(pixelBytes) + std::int64_t(d.y1() + j) * dstStride;
    unsigned char const* const in = srcCorner + rows[std::size_t(j)];
    for (std::int64_t column : columns) {
      std::memcpy(out, in + column, pixelBytes);
      out += pixelBytes;
    }
    requests.poll();
  }
}

}  // namespace Orn
