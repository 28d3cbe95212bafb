#include <orn/primitives/imageProc/ixPixelConversion.h>

#include "ixConvertBGRA8.h"

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

IxTile IxPixelConversion::convertToBGRA8(IxTile const& src) {
  ORN_ASSERT(src.isValid());
  ORN_ASSERT(!src.isEmpty());
  IxReadGuard const srcGuard(src);
  // Rows stored bottom up have no run from the base address.
  ORN_ASSERT(src.getRowBytes() > 0);

  // Whole stored rows, gaps included, as one run.
  IxPixelFormat const& srcFormat = src.getPixelFormat();
  GeRectangle<int> const& region = src.getPixelRegion();
  unsigned int const rowPixels = unsigned(src.getRowBytes()) / unsigned(srcFormat.getSize());
  unsigned int const nbPixels = unsigned(region.y2() - region.y1()) * rowPixels;

  IxPixelFormat const format(IxPixelFormat::RGBA, IxPixelFormat::UINT8, srcFormat.getAspectRatio(),
                             IxPixelFormat::ORDER_BGRA);
  int const rowBytes = int(rowPixels * 4);
  // The memory holds whole rows of rowPixels, the last one included, so that the run fits; the
  // tile handed out is the view of src's region over it.
  IxTile const rows(format, GeRectangle<int>(region.x1(), region.x1() + int(rowPixels), region.y1(), region.y2()),
                    src.getFillColor(), rowBytes);
  IxTile const result = rows.createView(format, region, rowBytes);
  {
    IxWriteGuard const dstGuard(result);
    // The stride gap after src's last row need not be part of its memory.
    IxMemory const& memory = *src.getMemory();
    std::size_t const srcBytes = memory.getSize() - std::size_t(srcGuard.getBaseAddress() - memory.getData());
    IxConvertBGRA8::convert(dstGuard.getBaseAddress(), srcGuard.getBaseAddress(), nbPixels, srcBytes, srcFormat);
  }
  return result;
}

}  // namespace Orn
