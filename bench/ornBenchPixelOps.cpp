// ipNegative and ipAdd on 4096x2160 RGBA tiles, each beside memcpy of the same bytes.
// Bytes processed count what the operator reads plus what it writes, as memcpy's do (one read,
// one write of the copied bytes); compare the bytes-per-second columns.

#include "benchTiles.h"

#include <orn/primitives/imageProc/ipAdd.h>
#include <orn/primitives/imageProc/ipNegative.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

#include <benchmark/benchmark.h>

using namespace Orn;

namespace {

IxPixelFormat rgba(IxPixelFormat::Depth depth) { return IxPixelFormat(IxPixelFormat::RGBA, depth); }

std::size_t tileBytes(IxPixelFormat const& format) {
  return std::size_t(OrnBench::WIDTH) * OrnBench::HEIGHT * format.getSize();
}

void negative(benchmark::State& state, IxPixelFormat::Depth depth) {
  IxPixelFormat const format = rgba(depth);
  IxTile const src = OrnBench::makeTile(format);
  IxTile const dst = OrnBench::makeTile(format);
  IxReadGuard const in(src);
  IxWriteGuard const out(dst);
  for (auto _ : state) {
    ipNegative(out, in, nullptr, nullptr);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(tileBytes(format)));
}

// memcpy of one tile's bytes: the reference for a one-source operator.
void memcpyTile(benchmark::State& state, IxPixelFormat::Depth depth) {
  OrnBench::runMemcpy(state, tileBytes(rgba(depth)));
}

void add(benchmark::State& state, IxPixelFormat::Depth depth) {
  IxScanlineImpFactories::install();
  IxPixelFormat const format = rgba(depth);
  IxTile const a = OrnBench::makeTile(format);
  IxTile const b = OrnBench::makeTile(format);
  IxTile const dst = OrnBench::makeTile(format);
  for (auto _ : state) {
    ipAdd(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(b), nullptr);
    benchmark::ClobberMemory();
  }
  // Three tiles touched: counted as one and a half copies of a tile, the same bytes as a memcpy of
  // 1.5 tiles reads and writes.
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(tileBytes(format)) * 3 / 2);
}

void memcpyOneAndHalfTiles(benchmark::State& state, IxPixelFormat::Depth depth) {
  OrnBench::runMemcpy(state, tileBytes(rgba(depth)) * 3 / 2);
}

}  // namespace

BENCHMARK_CAPTURE(memcpyTile, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(negative, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(memcpyTile, rgbaHalf, IxPixelFormat::FLOAT16)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(negative, rgbaHalf, IxPixelFormat::FLOAT16)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(memcpyTile, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(negative, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(memcpyOneAndHalfTiles, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(add, rgbaFloat, IxPixelFormat::FLOAT32)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(memcpyOneAndHalfTiles, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(add, rgba8, IxPixelFormat::UINT8)->Unit(benchmark::kMillisecond);
