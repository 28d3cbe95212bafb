#pragma once
// Shared vocabulary of scanlines: how a read pads outside its source tiles, and the source of
// tiles that a read walks over.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/ixReadGuard.h>

#include <cstdint>

namespace Orn {

class IxScanlineTypes {
public:
  // What a read produces for positions outside the region of its source tiles.
  enum PaddingType : std::int32_t {
    PADDING_COLOR = 0,        // the policy's fill colour
    PADDING_REPEAT_EDGE = 1,  // the nearest pixel inside, per axis
    PADDING_PERIODIC = 2,     // the region repeated endlessly
    PADDING_MIRROR = 3,       // the region repeated, every other copy reversed, edge pixel doubled
    NOOP = 4                  // none: the reader promises to stay inside the region in x
  };

  // A source of tiles. A scanline read asks for the bounding region once, then for the tile that
  // covers each run of pixels it copies.
  class TileFetcher {
  public:
    virtual ~TileFetcher() = default;
    // The bounding region of all tiles; empty when there is none.
    virtual void getRegion(GeRectangle<int>& out) = 0;
    // A tile that covers (x, y). The guard must stay alive while the fetcher does.
    virtual IxReadGuard const& getTile(int x, int y) = 0;
  };
};

}  // namespace Orn
