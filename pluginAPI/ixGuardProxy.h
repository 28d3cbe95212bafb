#pragma once
// Objects that stand for a guard to be acquired later: the holder hands out the proxy, and the
// user asks it for the guard when it needs the pixels.

#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

class IxGuardProxy {
public:
  IxGuardProxy() = default;
  virtual ~IxGuardProxy() = default;
  IxGuardProxy(IxGuardProxy const&) = delete;
  IxGuardProxy& operator=(IxGuardProxy const&) = delete;
};

// A proxy of write access to a tile.
class IxWriteGuardProxy : public IxGuardProxy {
public:
  // The guard, acquired on the first request and kept for the proxy's life.
  virtual IxWriteGuard const& getGuard() const = 0;
};

}  // namespace Orn
