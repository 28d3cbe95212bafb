#include "benchTiles.h"

#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/ixPixelComp.h>
#include <orn/pluginAPI/ixWriteGuard.h>

#include <cstdint>
#include <cstring>
#include <vector>

using namespace Orn;

namespace OrnBench {

Orn::IxTile makeTile(IxPixelFormat const& format) {
  IxTile tile(format, GeRectangle<int>(0, WIDTH, 0, HEIGHT), CoRgbaColorTyped<float>(0, 0, 0, 1));
  IxWriteGuard const guard(tile);
  int const nbValues = WIDTH * format.getComps();
  for (int y = 0; y < HEIGHT; ++y) {
    unsigned char* row = guard.getBaseAddress() + std::int64_t(y) * tile.getRowBytes();
    for (int i = 0; i < nbValues; ++i) {
      float const v = float((i * 7 + y * 13) % 256) / 255.f;
      switch (format.getDepth()) {
        case IxPixelFormat::UINT8: row[i] = IxPixelCompUInt8::fromFloat(v); break;
        case IxPixelFormat::FLOAT16: reinterpret_cast<Half::Bits*>(row)[i] = Half::fromFloat(v); break;
        default: reinterpret_cast<float*>(row)[i] = v; break;
      }
    }
  }
  return tile;
}

void runMemcpy(benchmark::State& state, std::size_t nbBytes) {
  std::vector<unsigned char> src(nbBytes, 1), dst(nbBytes);
  for (auto _ : state) {
    std::memcpy(dst.data(), src.data(), nbBytes);
    benchmark::DoNotOptimize(dst.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(nbBytes));
}

}  // namespace OrnBench
