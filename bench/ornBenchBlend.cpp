// Blend modes over one 4096-pixel RGBA float scanline (in cache), beside plain copies of that
// scanline (memcpy, and the library's pixel-by-pixel scanline copy); ipBlend on 4096x2160 RGBA float tiles with a one-component matte, beside memcpy.
// Compare the times per iteration of a mode and of copyScanline, and for ipBlend the
// bytes-per-second columns.

#include "benchTiles.h"

#include <orn/pluginAPI/ixScanline.h>
#include <orn/pluginAPI/ixScanlineUtil.h>
#include <orn/primitives/imageProc/ipBlend.h>
#include <orn/primitives/imageProc/ixConvertServices.h>
#include <orn/primitives/imageProc/ixScanlineBlend.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;

constexpr int NB_PIXELS = 4096;
constexpr std::size_t LINE_BYTES = NB_PIXELS * sizeof(Rgba);

void setUp() {
  IxConvertServices::configureSSE();
  IxScanlineImpFactories::install();
  IxScanlineBlend::initialize();
}

// Three scanlines with values spread over [0, 1], away from the special cases.
struct Lines {
  IxPaddingPolicy<Rgba> padding{IxScanlineTypes::NOOP, Rgba()};
  IxScanline<Rgba> a{GeInterval<int>(0, NB_PIXELS), padding};
  IxScanline<Rgba> b{GeInterval<int>(0, NB_PIXELS), padding};
  IxScanline<Rgba> dst{GeInterval<int>(0, NB_PIXELS), padding};
  Lines() {
    for (int x = 0; x < NB_PIXELS; ++x) {
      a[x] = Rgba(float(x % 97 + 1) / 98.f, float(x % 89 + 1) / 90.f, float(x % 83 + 1) / 84.f, 0.5f);
      b[x] = Rgba(float(x % 79 + 1) / 80.f, float(x % 73 + 1) / 74.f, float(x % 71 + 1) / 72.f, 0.75f);
      dst[x] = Rgba();
    }
  }
};

void copyScanline(benchmark::State& state) {
  setUp();
  Lines lines;
  for (auto _ : state) {
    std::memcpy(lines.dst.getBegin(), lines.a.getBegin(), LINE_BYTES);
    benchmark::DoNotOptimize(lines.dst.getBegin());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(LINE_BYTES));
}

// The library's own scanline copy, pixel by pixel.
void copyScanlineUtil(benchmark::State& state) {
  setUp();
  Lines lines;
  for (auto _ : state) {
    IxScanlineUtil::copy(lines.dst, lines.a);
    benchmark::DoNotOptimize(lines.dst.getBegin());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(LINE_BYTES));
}

void blendScanline(benchmark::State& state, IxScanlineBlend::BlendOp op) {
  setUp();
  Lines lines;
  IxScanlineBlend const mode(op);
  for (auto _ : state) {
    mode.blend(lines.dst, lines.a, lines.b, nullptr, true);
    benchmark::DoNotOptimize(lines.dst.getBegin());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(LINE_BYTES));
}

int const registered = [] {
  benchmark::RegisterBenchmark("copyScanline", copyScanline);
  benchmark::RegisterBenchmark("copyScanlineUtil", copyScanlineUtil);
  for (int op = 0; op < IxScanlineBlend::NB_BLEND_OPS; ++op) {
    std::string name = std::string("blendScanline/") + IxScanlineBlend::getBlendOpName(IxScanlineBlend::BlendOp(op));
    for (char& c : name)
      if (c == ' ') c = '_';
    benchmark::RegisterBenchmark(name.c_str(), blendScanline, IxScanlineBlend::BlendOp(op));
  }
  return 0;
}();

std::size_t rgbaTileBytes() {
  return std::size_t(OrnBench::WIDTH) * OrnBench::HEIGHT *
         IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32).getSize();
}

// Reads two RGBA tiles and a one-component matte (a quarter of a tile), writes one RGBA tile:
// counted as the bytes that a memcpy of 1.625 tiles reads and writes.
void blendTiles(benchmark::State& state) {
  setUp();
  IxTile const a = OrnBench::makeTile(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32));
  IxTile const b = OrnBench::makeTile(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32));
  IxTile const matte = OrnBench::makeTile(IxPixelFormat(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32));
  IxTile const dst = OrnBench::makeTile(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32));
  IxReadGuard const inA(a), inB(b), inMatte(matte);
  IxWriteGuard out(dst);
  for (auto _ : state) {
    ipBlend(out, inA, inB, inMatte);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(rgbaTileBytes() * 13 / 8));
}

void memcpyTiles(benchmark::State& state) { OrnBench::runMemcpy(state, rgbaTileBytes() * 13 / 8); }

}  // namespace

BENCHMARK(memcpyTiles)->Unit(benchmark::kMillisecond);
BENCHMARK(blendTiles)->Unit(benchmark::kMillisecond);
