// ipApplyColorMatrix on 4096x2160 RGBA tiles in each depth, beside memcpy of the same bytes.
// Bytes processed count the source tile once, as memcpy's count the copied bytes once; compare
// the bytes-per-second columns.

#include "benchTiles.h"

#include <orn/primitives/imageProc/ipApplyColorMatrix.h>
#include <orn/primitives/imageProc/ipColorMatrix.h>

#include <benchmark/benchmark.h>

using namespace Orn;

namespace {

IxPixelFormat rgba(IxPixelFormat::Depth depth) { return IxPixelFormat(IxPixelFormat::RGBA, depth); }

std::size_t tileBytes(IxPixelFormat const& format) {
  return std::size_t(OrnBench::WIDTH) * OrnBench::HEIGHT * format.getSize();
}

// A typical correction: saturation and a luminance-preserving hue turn, then contrast about
// mid-grey (which brings a translation), with alpha scaled.
GeProjectiveMatrix3<float> makeCorrection() {
  GeLinearMatrix3<float> const linear =
      IpColorMatrix::makeSaturation(1.2f) * IpColorMatrix::makeLumPreservingHueRotation(0.3f);
  GeAffineMatrix3<float> const contrast = IpColorMatrix::makeContrast(1.1f);
  GeProjectiveMatrix3<float> m;
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) m.getData()[4 * j + i] = contrast.getData()[4 * i + i] * linear(i, j);
    m.getData()[12 + i] = contrast.getData()[12 + i];
  }
  m(3, 3) = 0.9f;
  return m;
}

void applyProjective(benchmark::State& state, IxPixelFormat::Depth depth) {
  IxPixelFormat const format = rgba(depth);
  IxTile const src = OrnBench::makeTile(format);
  IxTile const dst = OrnBench::makeTile(format);
  IxReadGuard const in(src);
  IxWriteGuard const out(dst);
  GeProjectiveMatrix3<float> const matrix = makeCorrection();
  for (auto _ : state) {
    ipApplyColorMatrix(out, in, matrix, nullptr, nullptr);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(tileBytes(format)));
}

void applyLinear(benchmark::State& state, IxPixelFormat::Depth depth) {
  IxPixelFormat const format = rgba(depth);
  IxTile const src = OrnBench::makeTile(format);
  IxTile const dst = OrnBench::makeTile(format);
  IxReadGuard const in(src);
  IxWriteGuard const out(dst);
  GeLinearMatrix3<float> const matrix = IpColorMatrix::makeLumPreservingHueRotation(0.3f);
  for (auto _ : state) {
    ipApplyColorMatrix(out, in, matrix, nullptr, nullptr);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(tileBytes(format)));
}

void memcpyTile(benchmark::State& state, IxPixelFormat::Depth depth) {
  OrnBench::runMemcpy(state, tileBytes(rgba(depth)));
}

}  // namespace

BENCHMARK_CAPTURE(memcpyTile, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(applyProjective, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(applyLinear, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(memcpyTile, rgbaHalf, IxPixelFormat::FLOAT16)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(applyProjective, rgbaHalf, IxPixelFormat::FLOAT16)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(memcpyTile, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(applyProjective, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(applyLinear, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
