#pragma once
// Write access to a tile's pixels for the guard's lifetime. Passed to operators by constant
// reference: a constant guard still gives writable pixels.

#include <orn/pluginAPI/ixTile.h>

namespace Orn {

class IxWriteGuard {
public:
  IxWriteGuard();
  IxWriteGuard(IxTile const& tile);
  virtual ~IxWriteGuard();
  IxWriteGuard(IxWriteGuard const&) = default;
  IxWriteGuard& operator=(IxWriteGuard const&) = default;

  IxTile const& getTile() const { return _tile; }
  GeRectangle<int> const& getPixelRegion() const { return _tile.getPixelRegion(); }
  unsigned char* getBaseAddress() const { return _base; }
  unsigned char* getOriginAddress() const { return _origin; }

private:
  IxTile _tile;
  unsigned char* _base;
  unsigned char* _origin;
};

// Address of pixel (0, 0) of a tile, computed in 64 bits on sign-extended operands.
unsigned char* ixComputeOriginAddress(IxTile const& tile);

}  // namespace Orn
