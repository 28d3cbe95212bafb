#pragma once
// The walk that fills one row of pixels from the tiles of a fetcher, with padding outside their
// bounding region. Scanline reads and cropping share it.

#include <orn/base/geometryBase/geInterval.h>
#include <orn/pluginAPI/ixPaddingPolicy.h>
#include <orn/pluginAPI/ixScanlineTypes.h>

namespace Orn {

class IxTilingUtil {
public:
  // Fills positions [interval.min, interval.max) of the row at `origin` (position x at origin + x)
  // from row y. Both policies must have the same fill colour. The fetcher is asked for the tile
  // at the start of each run; the run goes on to that tile's end (or the line's) and is converted
  // from that tile's own format. T: float, CoRgbaColorTyped<float>, std::complex<float>.
  template <class T>
  static void readLine(T* origin, GeInterval<int> const& interval, int y, IxScanlineTypes::TileFetcher& fetcher,
                       IxPaddingPolicy<T> const& paddingPolicyX, IxPaddingPolicy<T> const& paddingPolicyY);

  // Position p folded into [lo, hi) by repeating the range endlessly.
  static int mapPeriodic(int p, int lo, int hi);
  // Position p folded into [lo, hi) by repeating it with every other copy reversed, the edge
  // pixels doubled (... lo+1 lo | lo lo+1 ... hi-1 | hi-1 hi-2 ...). reversed tells whether p
  // lies in a reversed copy, where increasing p walks the range downward.
  static int mapMirror(int p, int lo, int hi, bool& reversed);
};

}  // namespace Orn
