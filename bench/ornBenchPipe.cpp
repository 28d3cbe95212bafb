// A three-node scanline pipe (source, one pointwise gain node, destination) over a 4096x2160 float
// RGBA image, beside memcpy of one tile. Like a one-source operator, the pipe reads one tile and
// writes one: its bytes processed are one tile's, as a memcpy of that tile counts them.

#include "benchTiles.h"

#include <orn/primitives/imageProc/ipDestNode.h>
#include <orn/primitives/imageProc/ipScanlinePipe1In.h>
#include <orn/primitives/imageProc/ipSourceNode.h>
#include <orn/primitives/imageProc/ixConvertServices.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

#include <benchmark/benchmark.h>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;

// out = gain * in on every component.
class GainNode : public IpScanlinePipe1In<Rgba> {
public:
  GainNode(RCShdPtr<IpScanlinePipe> const& input, float gain) : IpScanlinePipe1In<Rgba>(input), _gain(gain) {}
  using IpScanlinePipe1In<Rgba>::computeScanline;
  void computeScanline(IxScanline<Rgba>& out, IxScanline<Rgba> const& in) override {
    Rgba const* src = &in[out.getInterval().min];
    float const g = _gain;
    for (Rgba* dst = out.getBegin(); dst != out.getEnd(); ++dst, ++src)
      *dst = Rgba(src->r * g, src->g * g, src->b * g, src->a * g);
  }
  Rgba transformFillColor(Rgba const& c) const override { return Rgba(c.r * _gain, c.g * _gain, c.b * _gain, c.a * _gain); }

private:
  float _gain;
};

IxPixelFormat const FORMAT(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32);

std::size_t tileBytes() { return std::size_t(OrnBench::WIDTH) * OrnBench::HEIGHT * FORMAT.getSize(); }

void pipeGain(benchmark::State& state) {
  IxScanlineImpFactories::install();
  IxConvertServices::configureSSE();
  IxTile const src = OrnBench::makeTile(FORMAT);
  IxTile const out = OrnBench::makeTile(FORMAT);
  RCShdPtr<IpScanlinePipe> const source = new IpSourceNode(Vector<IxReadGuard>{IxReadGuard(src)});
  RCShdPtr<IpDestNode> const dest = new IpDestNode(new GainNode(source, 0.5f));
  IxWriteGuard dst(out);
  for (auto _ : state) {
    dest->setDstRegion(out.getPixelRegion());
    dest->process(dst);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(tileBytes()));
}

void memcpyTile(benchmark::State& state) { OrnBench::runMemcpy(state, tileBytes()); }

}  // namespace

BENCHMARK(memcpyTile)->Unit(benchmark::kMillisecond);
BENCHMARK(pipeGain)->Unit(benchmark::kMillisecond);
