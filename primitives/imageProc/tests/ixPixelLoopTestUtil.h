#pragma once
// Tiles with known contents for the pixel loop and operator tests. Pixels are addressed from the
// tile's base address and stride, independently of the guards' origin arithmetic.

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/ixTile.h>
#include <orn/pluginAPI/pxRequestMgr.h>

#include <bit>
#include <cstdint>
#include <cstring>
#include <functional>
#include <vector>

namespace OrnTest {

using namespace Orn;

inline IxTile makeTile(IxPixelFormat::Comps comps, IxPixelFormat::Depth depth, GeRectangle<int> const& region) {
  return IxTile(IxPixelFormat(comps, depth), region, CoRgbaColorTyped<float>(0.f, 0.f, 0.f, 1.f));
}

inline IxTile makeTile(IxPixelFormat::Comps comps, IxPixelFormat::Depth depth, GeRectangle<int> const& region,
                       int rowBytes) {
  return IxTile(IxPixelFormat(comps, depth), region, CoRgbaColorTyped<float>(0.f, 0.f, 0.f, 1.f), rowBytes);
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

inline unsigned char* pixelAddress(IxTile const& tile, int x, int y) {
  GeRectangle<int> const& r = tile.getPixelRegion();
  return tile.getBaseAddress() + std::int64_t(y - r.y1()) * tile.getRowBytes() +
         std::int64_t(x - r.x1()) * tile.getPixelFormat().getSize();
}

inline int compBytes(IxTile const& tile) { return int(tile.getPixelFormat().getDepth()) / 8; }

// Component c of pixel (x, y) as raw bits: the byte, the half bits or the float bits.
inline std::uint32_t getRaw(IxTile const& tile, int x, int y, int c) {
  unsigned char const* p = pixelAddress(tile, x, y) + c * compBytes(tile);
  switch (compBytes(tile)) {
    case 1:
      return *p;
    case 2: {
      std::uint16_t v;
      std::memcpy(&v, p, 2);
      return v;
    }
    default: {
      std::uint32_t v;
      std::memcpy(&v, p, 4);
      return v;
    }
  }
}

inline void setRaw(IxTile const& tile, int x, int y, int c, std::uint32_t value) {
  unsigned char* p = pixelAddress(tile, x, y) + c * compBytes(tile);
  switch (compBytes(tile)) {
    case 1:
      *p = std::uint8_t(value);
      break;
    case 2: {
      std::uint16_t v = std::uint16_t(value);
      std::memcpy(p, &v, 2);
      break;
    }
    default:
      std::memcpy(p, &value, 4);
      break;
  }
}

// A value for component c of (x, y) that differs between neighbours, of the tile's depth: bytes
// over 0..255, halves and floats spread over [-1.5, 2.5] with fractions that halves can't hold.
inline std::uint32_t patternRaw(IxPixelFormat::Depth depth, int x, int y, int c, int seed) {
  int const k = x * 7 + y * 13 + c * 29 + seed * 31;
  float const f = -1.5f + float(((k % 97) + 97) % 97) * 0.0413f;
  switch (depth) {
    case IxPixelFormat::UINT8:
      return std::uint32_t(((k % 256) + 256) % 256);
    case IxPixelFormat::FLOAT16:
      return Half::fromFloat(f);
    default:
      return std::bit_cast<std::uint32_t>(f);
  }
}

inline void fillPattern(IxTile const& tile, int seed) {
  GeRectangle<int> const& r = tile.getPixelRegion();
  int const nbComps = tile.getPixelFormat().getComps();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x)
      for (int c = 0; c < nbComps; ++c)
        setRaw(tile, x, y, c, patternRaw(tile.getPixelFormat().getDepth(), x, y, c, seed));
}

// Every component of every pixel, row by row.
inline std::vector<std::uint32_t> snapshot(IxTile const& tile) {
  std::vector<std::uint32_t> values;
  GeRectangle<int> const& r = tile.getPixelRegion();
  int const nbComps = tile.getPixelFormat().getComps();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x)
      for (int c = 0; c < nbComps; ++c) values.push_back(getRaw(tile, x, y, c));
  return values;
}

// Installs a poll hook for the scope of a test and removes it on the way out.
class ScopedPollHook {
 public:
  explicit ScopedPollHook(std::function<void()> hook) { PxRequestMgr::setPollHook(std::move(hook)); }
  ~ScopedPollHook() { PxRequestMgr::setPollHook({}); }
  ScopedPollHook(ScopedPollHook const&) = delete;
  ScopedPollHook& operator=(ScopedPollHook const&) = delete;
};

}  // namespace OrnTest
