#include <orn/pluginAPI/ixTile.h>

#include <orn/base/except/assertions.h>

#include <cstdint>
#include <cstdlib>

namespace Orn {

namespace {

int defaultRowBytes(IxPixelFormat const& format, GeRectangle<int> const& region) {
  std::int64_t const width = region.getWidth() > 0 ? region.getWidth() : 0;
  std::int64_t const bytes = (width * format.getSize() + 63) / 64 * 64;
  ORN_ASSERT(bytes <= 0x7FFFFFFF);
  return int(bytes);
}

}  // namespace

IxTile::IxTile()
    : _format(IxPixelFormat::RGBA, IxPixelFormat::UINT8), _region(0, 0, 0, 0), _rowBytes(0), _base(nullptr) {}

IxTile::IxTile(IxPixelFormat const& format, GeRectangle<int> const& region, CoRgbaColorTyped<float> const& fillColor)
    : IxTile(format, region, fillColor, defaultRowBytes(format, region)) {}

IxTile::IxTile(IxPixelFormat const& format, GeRectangle<int> const& region, CoRgbaColorTyped<float> const& fillColor,
               int rowBytes)
    : _format(format), _region(region), _fillColor(fillColor), _rowBytes(rowBytes), _base(nullptr) {
  allocate();
}

void IxTile::allocate() {
  std::int64_t const width = _region.getWidth() > 0 ? _region.getWidth() : 0;
  std::int64_t const height = _region.getHeight() > 0 ? _region.getHeight() : 0;
  std::int64_t const rowSize = width * _format.getSize();
  std::int64_t const stride = std::llabs(std::int64_t(_rowBytes));
  ORN_ASSERT(isEmpty() || stride >= rowSize);
  std::int64_t const nbBytes = height > 0 ? (height - 1) * stride + rowSize : 0;
  _memory = new IxMemory(std::size_t(nbBytes));
  // With a negative stride the first row is the last one in memory.
  _base = _memory->getData() + (_rowBytes < 0 && height > 0 ? (height - 1) * stride : 0);
}

GeRectangle<int> const& IxTile::getPixelRegion() const {
  ORN_ASSERT(isValid());
  return _region;
}

int IxTile::getRowBytes() const {
  ORN_ASSERT(isValid());
  return _rowBytes;
}

IxTile IxTile::createView(IxPixelFormat const& format, GeRectangle<int> const& region, int rowBytes) const {
  ORN_ASSERT(isValid());
  IxTile view;
  view._format = format;
  view._region = region;
  view._fillColor = _fillColor;
  view._memory = _memory;
  view._rowBytes = rowBytes;
  view._base = _base;
  if (!view.isEmpty()) {
    // The first and last rows of the view, and each row's extent, lie inside the block.
    std::int64_t const rowSize = std::int64_t(region.getWidth()) * format.getSize();
    std::int64_t const lastRow = std::int64_t(region.getHeight() - 1) * rowBytes;
    std::int64_t const baseOffset = _base - _memory->getData();
    std::int64_t const low = baseOffset + (lastRow < 0 ? lastRow : 0);
    std::int64_t const high = baseOffset + (lastRow > 0 ? lastRow : 0) + rowSize;
    ORN_ASSERT(low >= 0 && high <= std::int64_t(_memory->getSize()));
  }
  return view;
}

}  // namespace Orn
