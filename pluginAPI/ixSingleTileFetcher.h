#pragma once
// A fetcher over one tile, holding its own copy of the guard. Every position answers that tile.

#include <orn/pluginAPI/ixScanlineTypes.h>

namespace Orn {

class IxSingleTileFetcher : public IxScanlineTypes::TileFetcher {
public:
  explicit IxSingleTileFetcher(IxReadGuard const& guard) : _guard(guard) {}

  void getRegion(GeRectangle<int>& out) override { out = _guard.getPixelRegion(); }
  IxReadGuard const& getTile(int, int) override { return _guard; }

private:
  IxReadGuard _guard;
};

}  // namespace Orn
