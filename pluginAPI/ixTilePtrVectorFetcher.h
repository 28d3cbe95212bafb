#pragma once
// A fetcher over a list of tiles given by address; the guards must outlive the fetcher.
// The region is the bounding box of the non-empty tiles. Where tiles overlap, the first tile of
// the list that covers the point wins. Asking for a point that no tile covers raises.

#include <orn/base/containers/vector.h>
#include <orn/pluginAPI/ixScanlineTypes.h>

namespace Orn {

class IxTilePtrVectorFetcher : public IxScanlineTypes::TileFetcher {
public:
  explicit IxTilePtrVectorFetcher(Vector<IxReadGuard const*> const& guards);

  void getRegion(GeRectangle<int>& out) override;
  IxReadGuard const& getTile(int x, int y) override;

private:
  Vector<IxReadGuard const*> _guards;
};

}  // namespace Orn
