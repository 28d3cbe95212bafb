// Row converters of IxConvertUtil: reads into float and RGBA float lines and writes back, for
// every depth and layout, on 4096-pixel rows that stay in the cache and over a 4096x2160 tile
// row by row. Each figure stands beside memcpy of the same bytes: the bytes of the float form,
// which is the larger side of every conversion (4 bytes a pixel for float lines, 16 for RGBA
// lines). The half conversions also stand beside the processor's own F16C conversion where the
// processor has it, as a reference only: its rounding differs from the library's rules.

#include "benchTiles.h"

#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/imageProc/ixConvertServices.h>
#include <orn/primitives/imageProc/ixConvertUtil.h>

#include <benchmark/benchmark.h>

#include <immintrin.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;
constexpr int WIDTH = OrnBench::WIDTH;
constexpr int HEIGHT = OrnBench::HEIGHT;

// 64-byte aligned memory, as tiles and scanline buffers have.
struct AlignedBuffer {
  explicit AlignedBuffer(std::size_t nbBytes)
      : data(static_cast<unsigned char*>(std::aligned_alloc(64, (nbBytes + 63) / 64 * 64))) {
    std::memset(data, 0, nbBytes);
  }
  ~AlignedBuffer() { std::free(data); }
  AlignedBuffer(AlignedBuffer const&) = delete;
  AlignedBuffer& operator=(AlignedBuffer const&) = delete;
  template <class T>
  T* as() const {
    return reinterpret_cast<T*>(data);
  }
  unsigned char* data;
};

// A line of values in [0, 1].
template <class T>
void fillLine(T* line, int n) {
  for (int i = 0; i < n; ++i) {
    float const v = float((i * 7) % 256) / 255.f;
    if constexpr (std::is_same_v<T, float>)
      line[i] = v;
    else
      line[i] = Rgba(v, 1.f - v, 0.5f * v, 1.f);
  }
}

std::int64_t lineBytes(bool rgba) { return std::int64_t(WIDTH) * (rgba ? 16 : 4); }

// One tile row in cache: read into a line, again and again.
template <class T>
void readRow(benchmark::State& state, IxPixelFormat format) {
  IxConvertServices::configureSSE();
  IxTile const tile = OrnBench::makeTile(IxPixelFormat(format.getComps(), format.getDepth()));
  AlignedBuffer const row(std::size_t(WIDTH) * format.getSize());
  std::memcpy(row.data, IxReadGuard(tile).getBaseAddress(), std::size_t(WIDTH) * format.getSize());
  AlignedBuffer const line(std::size_t(WIDTH) * sizeof(T));
  for (auto _ : state) {
    IxConvertUtil::readFrom(line.as<T>(), row.data, WIDTH, format);
    benchmark::DoNotOptimize(line.data);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * WIDTH * std::int64_t(sizeof(T)));
}

// One line written to one tile row, again and again.
template <class T>
void writeRow(benchmark::State& state, IxPixelFormat format) {
  IxConvertServices::configureSSE();
  AlignedBuffer const row(std::size_t(WIDTH) * format.getSize());
  AlignedBuffer const line(std::size_t(WIDTH) * sizeof(T));
  fillLine(line.as<T>(), WIDTH);
  for (auto _ : state) {
    IxConvertUtil::writeTo(row.data, line.as<T const>(), WIDTH, format);
    benchmark::DoNotOptimize(row.data);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * WIDTH * std::int64_t(sizeof(T)));
}

// Every row of a 4096x2160 tile into one line.
template <class T>
void readTile(benchmark::State& state, IxPixelFormat format) {
  IxConvertServices::configureSSE();
  IxTile const tile = OrnBench::makeTile(format);
  IxReadGuard const guard(tile);
  AlignedBuffer const line(std::size_t(WIDTH) * sizeof(T));
  for (auto _ : state) {
    for (int y = 0; y < HEIGHT; ++y)
      IxConvertUtil::readFrom(line.as<T>(), guard.getBaseAddress() + std::int64_t(y) * tile.getRowBytes(), WIDTH,
                              format);
    benchmark::DoNotOptimize(line.data);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t(HEIGHT) * WIDTH * std::int64_t(sizeof(T)));
}

// One line to every row of a 4096x2160 tile.
template <class T>
void writeTile(benchmark::State& state, IxPixelFormat format) {
  IxConvertServices::configureSSE();
  IxTile const tile = OrnBench::makeTile(format);
  IxWriteGuard const guard(tile);
  AlignedBuffer const line(std::size_t(WIDTH) * sizeof(T));
  fillLine(line.as<T>(), WIDTH);
  for (auto _ : state) {
    for (int y = 0; y < HEIGHT; ++y)
      IxConvertUtil::writeTo(guard.getBaseAddress() + std::int64_t(y) * tile.getRowBytes(), line.as<T const>(), WIDTH,
                             format);
    benchmark::DoNotOptimize(guard.getBaseAddress());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t(HEIGHT) * WIDTH * std::int64_t(sizeof(T)));
}

void memcpyRow(benchmark::State& state, bool rgba) { OrnBench::runMemcpy(state, std::size_t(lineBytes(rgba))); }
void memcpyTile(benchmark::State& state, bool rgba) {
  OrnBench::runMemcpy(state, std::size_t(lineBytes(rgba)) * HEIGHT);
}

// The processor's half conversions, eight values at a time, over nbValues values.
__attribute__((target("avx2,f16c"))) void f16cToFloat(float* dst, Half::Bits const* src, std::size_t nbValues) {
  for (std::size_t i = 0; i < nbValues; i += 8)
    _mm256_store_ps(dst + i, _mm256_cvtph_ps(_mm_load_si128(reinterpret_cast<__m128i const*>(src + i))));
}

__attribute__((target("avx2,f16c"))) void f16cFromFloat(Half::Bits* dst, float const* src, std::size_t nbValues) {
  for (std::size_t i = 0; i < nbValues; i += 8)
    _mm_stream_si128(reinterpret_cast<__m128i*>(dst + i),
                     _mm256_cvtps_ph(_mm256_load_ps(src + i), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
  _mm_sfence();
}

// F16C on rows of RGBA halves: 4 values a pixel, counted as the RGBA float bytes.
void f16cReadRow(benchmark::State& state) {
  std::size_t const nbValues = std::size_t(WIDTH) * 4;
  AlignedBuffer const row(nbValues * 2);
  AlignedBuffer const line(nbValues * 4);
  for (auto _ : state) {
    f16cToFloat(line.as<float>(), row.as<Half::Bits const>(), nbValues);
    benchmark::DoNotOptimize(line.data);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * lineBytes(true));
}

void f16cWriteRow(benchmark::State& state) {
  std::size_t const nbValues = std::size_t(WIDTH) * 4;
  AlignedBuffer const row(nbValues * 2);
  AlignedBuffer const line(nbValues * 4);
  fillLine(line.as<Rgba>(), WIDTH);
  for (auto _ : state) {
    f16cFromFloat(row.as<Half::Bits>(), line.as<float const>(), nbValues);
    benchmark::DoNotOptimize(row.data);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * lineBytes(true));
}

void f16cReadTile(benchmark::State& state) {
  IxTile const tile = OrnBench::makeTile(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16));
  IxReadGuard const guard(tile);
  AlignedBuffer const line(std::size_t(WIDTH) * 16);
  for (auto _ : state) {
    for (int y = 0; y < HEIGHT; ++y)
      f16cToFloat(line.as<float>(),
                  reinterpret_cast<Half::Bits const*>(guard.getBaseAddress() + std::int64_t(y) * tile.getRowBytes()),
                  std::size_t(WIDTH) * 4);
    benchmark::DoNotOptimize(line.data);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t(HEIGHT) * lineBytes(true));
}

void f16cWriteTile(benchmark::State& state) {
  IxTile const tile = OrnBench::makeTile(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16));
  IxWriteGuard const guard(tile);
  AlignedBuffer const line(std::size_t(WIDTH) * 16);
  fillLine(line.as<Rgba>(), WIDTH);
  for (auto _ : state) {
    for (int y = 0; y < HEIGHT; ++y)
      f16cFromFloat(reinterpret_cast<Half::Bits*>(guard.getBaseAddress() + std::int64_t(y) * tile.getRowBytes()),
                    line.as<float const>(), std::size_t(WIDTH) * 4);
    benchmark::DoNotOptimize(guard.getBaseAddress());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t(HEIGHT) * lineBytes(true));
}

std::string nameOf(IxPixelFormat const& format) {
  char const* comps = format.getComps() == IxPixelFormat::ALPHA ? "A" : format.getComps() == IxPixelFormat::RGB ? "RGB" : "RGBA";
  return comps + std::to_string(int(format.getDepth()));
}

// Names read <direction><Row|Tile>/<tile format>/<line form>, the references memcpy<Row|Tile>/<line form>.
int registerAll() {
  using benchmark::RegisterBenchmark;
  __builtin_cpu_init();  // needed before __builtin_cpu_supports in a static initialiser
  for (bool tile : {false, true}) {
    std::string const size = tile ? "Tile" : "Row";
    auto const unit = tile ? benchmark::kMillisecond : benchmark::kMicrosecond;
    for (bool rgba : {false, true}) {
      std::string const form = rgba ? "rgba" : "float";
      RegisterBenchmark(("memcpy" + size + "/" + form).c_str(), tile ? memcpyTile : memcpyRow, rgba)->Unit(unit);
      for (IxPixelFormat::Depth depth : {IxPixelFormat::UINT8, IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32}) {
        for (IxPixelFormat::Comps comps : {IxPixelFormat::ALPHA, IxPixelFormat::RGB, IxPixelFormat::RGBA}) {
          IxPixelFormat const format(comps, depth);
          std::string const suffix = size + "/" + nameOf(format) + "/" + form;
          if (rgba) {
            RegisterBenchmark(("read" + suffix).c_str(), tile ? readTile<Rgba> : readRow<Rgba>, format)->Unit(unit);
            RegisterBenchmark(("write" + suffix).c_str(), tile ? writeTile<Rgba> : writeRow<Rgba>, format)->Unit(unit);
          } else {
            RegisterBenchmark(("read" + suffix).c_str(), tile ? readTile<float> : readRow<float>, format)->Unit(unit);
            // A float line writes one-component tiles only.
            if (comps == IxPixelFormat::ALPHA)
              RegisterBenchmark(("write" + suffix).c_str(), tile ? writeTile<float> : writeRow<float>, format)
                  ->Unit(unit);
          }
        }
      }
    }
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("f16c")) {
      RegisterBenchmark(("f16cRead" + size + "/RGBA16/rgba").c_str(), tile ? f16cReadTile : f16cReadRow)->Unit(unit);
      RegisterBenchmark(("f16cWrite" + size + "/RGBA16/rgba").c_str(), tile ? f16cWriteTile : f16cWriteRow)->Unit(unit);
    }
  }
  return 0;
}

int const registered = registerAll();

}  // namespace
