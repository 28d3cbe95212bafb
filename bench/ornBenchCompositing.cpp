// Premultiplication and logic compositing on 4096x2160 tiles, beside memcpy of the same bytes.

#include "benchTiles.h"

#include <orn/primitives/imageProc/ipLogicOps.h>
#include <orn/primitives/imageProc/ipPremultiply.h>
#include <orn/primitives/imageProc/ipUnpremultiply.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

#include <benchmark/benchmark.h>

using namespace Orn;

namespace {

std::size_t tileBytes(IxPixelFormat const& format) {
  return std::size_t(OrnBench::WIDTH) * OrnBench::HEIGHT * format.getSize();
}

template <class Operator>
void oneSource(benchmark::State& state, IxPixelFormat::Depth depth, Operator op) {
  IxScanlineImpFactories::install();
  IxPixelFormat const format(IxPixelFormat::RGBA, depth);
  IxTile const src = OrnBench::makeTile(format);
  IxTile const dst = OrnBench::makeTile(format);
  for (auto _ : state) {
    op(IxWriteGuard(dst), IxReadGuard(src));
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(tileBytes(format)));
}

void premultiply(benchmark::State& state, IxPixelFormat::Depth depth) {
  oneSource(state, depth, [](IxWriteGuard const& d, IxReadGuard const& s) { ipPremultiply(d, s); });
}

void unpremultiply(benchmark::State& state, IxPixelFormat::Depth depth) {
  oneSource(state, depth, [](IxWriteGuard const& d, IxReadGuard const& s) { ipUnpremultiply(d, s); });
}

void memcpyTile(benchmark::State& state, IxPixelFormat::Depth depth) {
  OrnBench::runMemcpy(state, tileBytes(IxPixelFormat(IxPixelFormat::RGBA, depth)));
}

// Two sources and a destination: counted as one and a half tile copies, as memcpy of 1.5 tiles.
void over(benchmark::State& state) {
  IxPixelFormat const format(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32);
  IxTile const a = OrnBench::makeTile(format);
  IxTile const b = OrnBench::makeTile(format);
  IxTile const dst = OrnBench::makeTile(format);
  for (auto _ : state) {
    IpLogicOps::process(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(b), IpLogicOps::A_OVER_B, nullptr, nullptr,
                        nullptr);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(tileBytes(format)) * 3 / 2);
}

void memcpyOneAndHalfTiles(benchmark::State& state) {
  OrnBench::runMemcpy(state, tileBytes(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32)) * 3 / 2);
}

}  // namespace

BENCHMARK_CAPTURE(memcpyTile, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(premultiply, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(unpremultiply, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(memcpyTile, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(premultiply, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(unpremultiply, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK(memcpyOneAndHalfTiles)->Unit(benchmark::kMillisecond);
BENCHMARK(over)->Unit(benchmark::kMillisecond);
