// Quarter turns, lookup tables and a lookup with a colour matrix on 4096x2160 tiles, each beside
// memcpy of the same bytes. Bytes processed count one tile per call for the operators and for
// memcpy alike (each reads one tile and writes one); compare the bytes-per-second columns.

#include "benchTiles.h"

#include <orn/primitives/imageProc/ipLut.h>
#include <orn/primitives/imageProc/ipLutColorMatrix.h>
#include <orn/primitives/imageProc/ipOrient.h>
#include <orn/primitives/imageProc/ixLutUtils.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>

using namespace Orn;

namespace {

IxPixelFormat rgba(IxPixelFormat::Depth depth) { return IxPixelFormat(IxPixelFormat::RGBA, depth); }

std::int64_t tileBytes(IxPixelFormat const& format) {
  return std::int64_t(OrnBench::WIDTH) * OrnBench::HEIGHT * format.getSize();
}

void memcpyTile(benchmark::State& state, IxPixelFormat::Depth depth) {
  OrnBench::runMemcpy(state, std::size_t(tileBytes(rgba(depth))));
}

void rotate(benchmark::State& state, IpRotate rotation) {
  IxPixelFormat const format = rgba(IxPixelFormat::UINT8);
  IxTile const src = OrnBench::makeTile(format);
  bool const quarter = rotation == IP_ROTATE_90 || rotation == IP_ROTATE_270;
  GeRectangle<int> const region = quarter ? GeRectangle<int>(0, OrnBench::HEIGHT, 0, OrnBench::WIDTH)
                                          : GeRectangle<int>(0, OrnBench::WIDTH, 0, OrnBench::HEIGHT);
  IxTile const dst(format, region, CoRgbaColorTyped<float>(0, 0, 0, 1));
  IxReadGuard const in(src);
  IxWriteGuard const out(dst);
  for (auto _ : state) {
    ipRotate(out, in, rotation);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * tileBytes(format));
}

void lutApply(benchmark::State& state, IxPixelFormat::Depth depth) {
  IxPixelFormat const format = rgba(depth);
  IxTile const src = OrnBench::makeTile(format);
  IxTile const dst = OrnBench::makeTile(format);
  IxGenericLut lut(format, format);
  if (depth == IxPixelFormat::UINT8) {
    IxLutUtils::fillGammaTable(lut, 2.2f);
  } else {
    float* const entries = static_cast<float*>(lut.getTable());
    for (int i = 0; i < lut.getNbEntries(); ++i) entries[i] = float(i) / float(lut.getNbEntries() - 1) * 0.9f;
  }
  IxReadGuard const in(src);
  IxWriteGuard const out(dst);
  for (auto _ : state) {
    ipLutApply(out, in, lut, nullptr, nullptr);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * tileBytes(format));
}

// Smooth ramps in red, green and blue with a grain of +-8 per component: unlike the pattern of
// makeTile, whose green and blue follow red, such a frame meets most pairs of green and blue.
IxTile makeGrainTile(IxPixelFormat const& format) {
  IxTile const tile = OrnBench::makeTile(format);
  IxWriteGuard const guard(tile);
  std::uint32_t seed = 1;
  for (int y = 0; y < OrnBench::HEIGHT; ++y) {
    unsigned char* const row = guard.getBaseAddress() + std::int64_t(y) * tile.getRowBytes();
    for (int x = 0; x < OrnBench::WIDTH; ++x) {
      int const ramps[4] = {x * 255 / OrnBench::WIDTH, y * 255 / OrnBench::HEIGHT,
                            (x + y) * 255 / (OrnBench::WIDTH + OrnBench::HEIGHT), 255};
      for (int c = 0; c < 4; ++c) {
        seed = seed * 1664525u + 1013904223u;
        row[4 * x + c] = std::uint8_t(std::clamp(ramps[c] + int(seed >> 28) - 8, 0, 255));
      }
    }
  }
  return tile;
}

void lutColorMatrix(benchmark::State& state, bool grain) {
  IxPixelFormat const format = rgba(IxPixelFormat::UINT8);
  IxTile const src = grain ? makeGrainTile(format) : OrnBench::makeTile(format);
  IxTile const dst = OrnBench::makeTile(format);
  IxGenericLut lut(format, format);
  IxLutUtils::fillGammaTable(lut, 2.2f);
  // A saturation of 0.8 with a small lift: every element of the block in use.
  GeProjectiveMatrix3<float> matrix;
  float const weights[3] = {0.2126f, 0.7152f, 0.0722f};
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) matrix.getData()[4 * j + i] = 0.2f * weights[j] + (i == j ? 0.8f : 0.f);
    matrix.getData()[12 + i] = 0.02f;
  }
  IxReadGuard const in(src);
  IxWriteGuard const out(dst);
  for (auto _ : state) {
    ipLutColorMatrix(out, in, matrix, lut, nullptr, nullptr);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * tileBytes(format));
}

}  // namespace

BENCHMARK_CAPTURE(memcpyTile, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rotate, rgba8_0, IP_ROTATE_0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rotate, rgba8_90, IP_ROTATE_90)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rotate, rgba8_180, IP_ROTATE_180)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rotate, rgba8_270, IP_ROTATE_270)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lutApply, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lutColorMatrix, rgba8, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lutColorMatrix, rgba8_grain, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(memcpyTile, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lutApply, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
