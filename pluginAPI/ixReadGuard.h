#pragma once
// Read access to a tile's pixels for the guard's lifetime.
// Pixel (x, y) lies at getOriginAddress() + y * rowBytes + x * pixel size.

#include <orn/pluginAPI/ixTile.h>

namespace Orn {

class IxWriteGuard;

class IxReadGuard {
public:
  IxReadGuard();
  IxReadGuard(IxTile const& tile);
  IxReadGuard(IxWriteGuard const& guard);
  virtual ~IxReadGuard();
  IxReadGuard(IxReadGuard const&) = default;
  IxReadGuard& operator=(IxReadGuard const&) = default;

  IxTile const& getTile() const { return _tile; }
  GeRectangle<int> const& getPixelRegion() const { return _tile.getPixelRegion(); }
  // The pixel at (x1, y1).
  unsigned char const* getBaseAddress() const { return _base; }
  // Where pixel (0, 0) would be; may lie outside the memory block.
  unsigned char const* getOriginAddress() const { return _origin; }

private:
  IxTile _tile;
  unsigned char const* _base;
  unsigned char const* _origin;
};

}  // namespace Orn
