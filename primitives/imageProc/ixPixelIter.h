#pragma once
// What a typed loop holds per tile: the counts and byte steps of a walk over a clipped region in a
// given order, and the address of the first pixel of the current line. Walking costs one add per
// pixel whatever the order or the stride, so flips and views cost nothing per pixel.

#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/imageProc/ixPixelIterBase.h>

#include <cstdint>
#include <type_traits>

namespace Orn {

// Moves an address by a signed byte count. Done on integers: a walk's addresses may step one
// pixel or one line past the memory block (and the origin may lie anywhere) before being dropped.
template <class Byte>
inline Byte* ixAdvanceAddress(Byte* address, std::int64_t bytes) {
  return reinterpret_cast<Byte*>(reinterpret_cast<std::uintptr_t>(address) + std::uintptr_t(bytes));
}

// The pixels of one line, walked by the inner loop.
template <class Pixel>
class IxPixelCursor {
 public:
  using Byte = std::conditional_t<std::is_const_v<Pixel>, unsigned char const, unsigned char>;

  IxPixelCursor(Byte* address, std::int32_t step) : _address(address), _step(step) {}

  Pixel& operator*() const { return *reinterpret_cast<Pixel*>(_address); }
  void next() { _address = ixAdvanceAddress(_address, _step); }

 private:
  Byte* _address;
  std::int32_t _step;
};

template <class Pixel>
class IxPixelIter : public IxPixelIterBase {
 public:
  using PixelType = Pixel;
  using Byte = std::conditional_t<std::is_const_v<Pixel>, unsigned char const, unsigned char>;

  // The walk over region (null: the whole tile), clipped to the guard's tile, in the given order.
  IxPixelIter(IxWriteGuard const& guard, GeRectangle<int> const* region, Order order) {
    setUp(guard.getTile(), guard.getOriginAddress(), region, order);
  }
  // Reading guards give read-only pixels only.
  IxPixelIter(IxReadGuard const& guard, GeRectangle<int> const* region, Order order) requires std::is_const_v<Pixel> {
    setUp(guard.getTile(), guard.getOriginAddress(), region, order);
  }

  std::int32_t getMajorCount() const { return _majorCount; }
  std::int32_t getMajorStep() const { return _majorStep; }
  std::int32_t getMinorCount() const { return _minorCount; }
  std::int32_t getMinorStep() const { return _minorStep; }
  Byte* getLineAddress() const { return _line; }

  IxPixelCursor<Pixel> getLineCursor() const { return IxPixelCursor<Pixel>(_line, _minorStep); }
  void nextLine() { _line = ixAdvanceAddress(_line, _majorStep); }

 private:
  void setUp(IxTile const& tile, Byte* origin, GeRectangle<int> const* request, Order order) {
    GeRectangle<int> const region = clipRegion(tile.getPixelRegion(), request);
    std::int32_t const pixelBytes = tile.getPixelFormat().getSize();
    std::int32_t const rowBytes = tile.getRowBytes();
    bool const xPositive = isIterOrderXPositive(order);
    bool const yPositive = isIterOrderYPositive(order);
    std::int32_t const xStep = xPositive ? pixelBytes : -pixelBytes;
    std::int32_t const yStep = yPositive ? rowBytes : -rowBytes;
    if (isIterOrderHorizontalMinor(order)) {
      _majorCount = region.getHeight();
      _majorStep = yStep;
      _minorCount = region.getWidth();
      _minorStep = xStep;
    } else {
      _majorCount = region.getWidth();
      _majorStep = xStep;
      _minorCount = region.getHeight();
      _minorStep = yStep;
    }
    std::int64_t const x = xPositive ? region.x1() : std::int64_t(region.x2()) - 1;
    std::int64_t const y = yPositive ? region.y1() : std::int64_t(region.y2()) - 1;
    _line = ixAdvanceAddress(origin, x * pixelBytes + y * rowBytes);
  }

  std::int32_t _majorCount;
  std::int32_t _majorStep;
  std::int32_t _minorCount;
  std::int32_t _minorStep;
  Byte* _line;
};

}  // namespace Orn
