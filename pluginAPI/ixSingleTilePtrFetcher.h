#pragma once
// A fetcher over one tile given by address; the guard must outlive the fetcher. Every position
// answers that tile.

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixScanlineTypes.h>

namespace Orn {

class IxSingleTilePtrFetcher : public IxScanlineTypes::TileFetcher {
public:
  explicit IxSingleTilePtrFetcher(IxReadGuard const* guard) : _guard(guard) { ORN_ASSERT(guard != nullptr); }

  void getRegion(GeRectangle<int>& out) override { out = _guard->getPixelRegion(); }
  IxReadGuard const& getTile(int, int) override { return *_guard; }

private:
  IxReadGuard const* _guard;
};

}  // namespace Orn
