#include "demoImages.h"

#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/imageProc/ixConvertUtil.h>

#include <cmath>
#include <functional>
#include <vector>

using namespace Orn;

namespace OrnDemo {

namespace {

// Fills a tile row by row through the row converters from an RGBA float function of (u, v).
IxTile makeImage(IxPixelFormat const& format, std::function<CoRgbaColorTyped<float>(float, float)> const& colorAt) {
  IxTile tile(format, GeRectangle<int>(0, IMAGE_SIZE, 0, IMAGE_SIZE), CoRgbaColorTyped<float>(0, 0, 0, 0));
  IxWriteGuard const guard(tile);
  std::vector<CoRgbaColorTyped<float>> row(IMAGE_SIZE);
  for (int y = 0; y < IMAGE_SIZE; ++y) {
    for (int x = 0; x < IMAGE_SIZE; ++x)
      row[x] = colorAt((x + 0.5f) / IMAGE_SIZE, (y + 0.5f) / IMAGE_SIZE);
    IxConvertUtil::writeTo(guard.getBaseAddress() + std::int64_t(y) * tile.getRowBytes(), row.data(), IMAGE_SIZE,
                           format);
  }
  return tile;
}

}  // namespace

IxTile makeGradientImage(IxPixelFormat const& format) {
  return makeImage(format, [](float u, float v) {
    float const d = std::hypot(u - 0.5f, v - 0.5f);
    float const alpha = std::clamp((0.42f - d) * 12.f, 0.f, 1.f);
    return CoRgbaColorTyped<float>(u, v, 1.f - 0.5f * (u + v), alpha);
  });
}

IxTile makeRingsImage(IxPixelFormat const& format) {
  return makeImage(format, [](float u, float v) {
    float const d = std::hypot(u - 0.35f, v - 0.6f);
    float const ring = 0.5f + 0.5f * std::cos(d * 40.f);
    return CoRgbaColorTyped<float>(ring * 0.6f, 0.3f * ring, 0.5f * (1.f - ring), ring);
  });
}

}  // namespace OrnDemo
