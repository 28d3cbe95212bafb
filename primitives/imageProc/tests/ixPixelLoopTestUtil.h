#pragma once
// Tiles with known contents for the pixel loop and operator tests. Pixels are addressed from the
// tile's base address and stride, independently of the guards' origin arithmetic.

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/ixPixelComp.h>
#include <orn/pluginAPI/ixTile.h>
#include <orn/pluginAPI/pxRequestMgr.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <functional>
#include <vector>

namespace OrnTest {

using namespace Orn;

inline IxPixelFormat::Depth const DEPTHS[] = {IxPixelFormat::UINT8, IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32};

// rowBytes 0: the tile's own stride.
inline IxTile makeTile(int comps, IxPixelFormat::Depth depth, GeRectangle<int> const& region, int rowBytes = 0) {
  IxPixelFormat const format(IxPixelFormat::Comps(comps), depth);
  CoRgbaColorTyped<float> const fill(0.f, 0.f, 0.f, 1.f);
  return rowBytes ? IxTile(format, region, fill, rowBytes) : IxTile(format, region, fill);
}

// A format of two components, which no public constructor admits; the wider loop families still
// serve it for views made from such formats. Relies on the format being five 32-bit fields:
// comps, depth, aspect numerator and denominator, channel order.
inline IxPixelFormat makeTwoComponentFormat(IxPixelFormat::Depth depth) {
  struct Raw {
    std::int32_t comps, depth, numerator, denominator, order;
  };
  static_assert(sizeof(Raw) == sizeof(IxPixelFormat));
  return std::bit_cast<IxPixelFormat>(Raw{2, std::int32_t(depth), 1, 1, 0});
}

// Component c of pixel (x, y) as raw bits (the byte, the half or the float bits; little endian).
inline unsigned char* compAddress(IxTile const& tile, int x, int y, int c) {
  GeRectangle<int> const& r = tile.getPixelRegion();
  return tile.getBaseAddress() + std::int64_t(y - r.y1()) * tile.getRowBytes() +
         std::int64_t(x - r.x1()) * tile.getPixelFormat().getSize() + c * (tile.getPixelFormat().getDepth() / 8);
}
inline std::uint32_t getRaw(IxTile const& tile, int x, int y, int c) {
  std::uint32_t v = 0;
  std::memcpy(&v, compAddress(tile, x, y, c), std::min(4, tile.getPixelFormat().getDepth() / 8));
  return v;
}
inline void setRaw(IxTile const& tile, int x, int y, int c, std::uint32_t v) {
  std::memcpy(compAddress(tile, x, y, c), &v, std::min(4, tile.getPixelFormat().getDepth() / 8));
}

// Values whose sums, differences and negatives every rule of storage agrees on: bytes, and
// eighths in [-1, 1] for half and float tiles.
inline void fillPattern(IxTile const& tile, int seed) {
  GeRectangle<int> const& r = tile.getPixelRegion();
  IxPixelFormat::Depth const depth = tile.getPixelFormat().getDepth();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x)
      for (int c = 0; c < tile.getPixelFormat().getComps(); ++c) {
        int const k = x * 3 + y * 5 + c * 7 + seed * 11 + 100;
        float const v = float(k % 17 - 8) / 8.f;
        setRaw(tile, x, y, c,
               depth == IxPixelFormat::UINT8     ? std::uint32_t(k * 37 % 256)
               : depth == IxPixelFormat::FLOAT16 ? Half::fromFloat(v)
                                                 : std::bit_cast<std::uint32_t>(v));
      }
}

// Every component of every pixel, row by row.
inline std::vector<std::uint32_t> snapshot(IxTile const& tile) {
  std::vector<std::uint32_t> values;
  GeRectangle<int> const& r = tile.getPixelRegion();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x)
      for (int c = 0; c < tile.getPixelFormat().getComps(); ++c) values.push_back(getRaw(tile, x, y, c));
  return values;
}

// A tile of its own with the same format, region and pixels.
inline IxTile copyOf(IxTile const& tile) {
  IxTile const copy =
      makeTile(tile.getPixelFormat().getComps(), tile.getPixelFormat().getDepth(), tile.getPixelRegion());
  GeRectangle<int> const& r = tile.getPixelRegion();
  for (int y = r.y1(); y < r.y2(); ++y)
    std::memcpy(compAddress(copy, r.x1(), y, 0), compAddress(tile, r.x1(), y, 0),
                std::size_t(r.getWidth()) * tile.getPixelFormat().getSize());
  return copy;
}

// Installs a poll hook for the scope of a test and removes it on the way out.
class ScopedPollHook {
 public:
  explicit ScopedPollHook(std::function<void()> hook) { PxRequestMgr::setPollHook(std::move(hook)); }
  ~ScopedPollHook() { PxRequestMgr::setPollHook({}); }
};

}  // namespace OrnTest
