#pragma once
// A rectangular block of pixels in memory: a value that shares its memory when copied.
// Pixel (x, y) of the region lies at base + (y - y1) * rowBytes + (x - x1) * pixel size.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixMemory.h>
#include <orn/pluginAPI/ixPixelFormat.h>

namespace Orn {

class IxTile {
public:
  // An invalid tile: no memory.
  IxTile();
  // Allocates memory for the region; rows are padded to a multiple of 64 bytes.
  IxTile(IxPixelFormat const& format, GeRectangle<int> const& region, CoRgbaColorTyped<float> const& fillColor);
  // The same with a given stride, which may exceed the row; a negative stride stores rows bottom up.
  IxTile(IxPixelFormat const& format, GeRectangle<int> const& region, CoRgbaColorTyped<float> const& fillColor,
         int rowBytes);

  // A tile over the same memory and base address with its own format, region and stride.
  IxTile createView(IxPixelFormat const& format, GeRectangle<int> const& region, int rowBytes) const;

  IxPixelFormat const& getPixelFormat() const { return _format; }
  GeRectangle<int> const& getPixelRegion() const;
  int getRowBytes() const;
  CoRgbaColorTyped<float> const& getFillColor() const { return _fillColor; }
  void setFillColor(CoRgbaColorTyped<float> const& fillColor) { _fillColor = fillColor; }

  bool isValid() const { return !_memory.isNull(); }
  bool isEmpty() const { return _region.x2() <= _region.x1() || _region.y2() <= _region.y1(); }

  // Address of the first stored pixel, the one at (x1, y1).
  unsigned char* getBaseAddress() const { return _base; }
  RCShdPtr<IxMemory> const& getMemory() const { return _memory; }

  // The same memory block and the same base address.
  friend bool operator==(IxTile const& a, IxTile const& b) {
    return a._memory.get() == b._memory.get() && a._base == b._base;
  }
  friend bool operator!=(IxTile const& a, IxTile const& b) { return !(a == b); }

private:
  void allocate();

  IxPixelFormat _format;
  GeRectangle<int> _region;
  CoRgbaColorTyped<float> _fillColor;
  RCShdPtr<IxMemory> _memory;
  int _rowBytes;
  unsigned char* _base;
};

}  // namespace Orn
