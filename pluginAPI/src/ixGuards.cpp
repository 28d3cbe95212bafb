#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

#include <cstdint>

namespace Orn {

unsigned char* ixComputeOriginAddress(IxTile const& tile) {
  if (!tile.isValid()) return nullptr;
  GeRectangle<int> const& region = tile.getPixelRegion();
  std::int64_t const offset = std::int64_t(region.y1()) * tile.getRowBytes() +
                              std::int64_t(region.x1()) * tile.getPixelFormat().getSize();
  // Integer arithmetic: the origin may lie outside the block, which pointer arithmetic forbids.
  return reinterpret_cast<unsigned char*>(reinterpret_cast<std::uintptr_t>(tile.getBaseAddress()) -
                                          std::uintptr_t(offset));
}

IxReadGuard::IxReadGuard() : _base(nullptr), _origin(nullptr) {}

IxReadGuard::IxReadGuard(IxTile const& tile)
    : _tile(tile), _base(tile.getBaseAddress()), _origin(ixComputeOriginAddress(tile)) {}

IxReadGuard::IxReadGuard(IxWriteGuard const& guard)
    : _tile(guard.getTile()), _base(guard.getBaseAddress()), _origin(guard.getOriginAddress()) {}

IxReadGuard::~IxReadGuard() = default;

IxWriteGuard::IxWriteGuard() : _base(nullptr), _origin(nullptr) {}

IxWriteGuard::IxWriteGuard(IxTile const& tile)
    : _tile(tile), _base(tile.getBaseAddress()), _origin(ixComputeOriginAddress(tile)) {}

IxWriteGuard::~IxWriteGuard() = default;

}  // namespace Orn
