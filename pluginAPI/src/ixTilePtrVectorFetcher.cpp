#include <orn/pluginAPI/ixTilePtrVectorFetcher.h>

#include <orn/base/except/assertions.h>

#include <algorithm>

namespace Orn {

IxTilePtrVectorFetcher::IxTilePtrVectorFetcher(Vector<IxReadGuard const*> const& guards) : _guards(guards) {
  for (IxReadGuard const* guard : _guards) ORN_ASSERT(guard != nullptr);
}

void IxTilePtrVectorFetcher::getRegion(GeRectangle<int>& out) {
  bool found = false;
  out = GeRectangle<int>(0, 0, 0, 0);
  for (IxReadGuard const* guard : _guards) {
    GeRectangle<int> const& r = guard->getPixelRegion();
    if (r.isEmpty()) continue;
    if (!found) {
      out = r;
      found = true;
      continue;
    }
    out = GeRectangle<int>(std::min(out.x1(), r.x1()), std::max(out.x2(), r.x2()), std::min(out.y1(), r.y1()),
                           std::max(out.y2(), r.y2()));
  }
}

IxReadGuard const& IxTilePtrVectorFetcher::getTile(int x, int y) {
  // A linear scan keeps the first-covering-tile rule and leaves the fetcher free of state, so
  // that several threads may share it.
  for (IxReadGuard const* guard : _guards)
    if (guard->getPixelRegion().contains(x, y)) return *guard;
  Assertions::throwAssertionFailed(__FILE__, __LINE__, "a tile of the fetcher covers the requested point");
}

}  // namespace Orn
