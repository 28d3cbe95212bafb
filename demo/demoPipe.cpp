// Scanline pipes over the test images: a tint node, a two-input mix, and a destination larger
// than the source, which the source fills by repeating its edge.

#include "demoImages.h"
#include "demoSections.h"
#include "pngWriter.h"

#include <orn/primitives/imageProc/ipDestNode.h>
#include <orn/primitives/imageProc/ipScanlinePipe1In.h>
#include <orn/primitives/imageProc/ipScanlinePipe2In.h>
#include <orn/primitives/imageProc/ipSourceNode.h>

#include <cstdio>

using namespace Orn;

namespace OrnDemo {

namespace {

using Rgba = CoRgbaColorTyped<float>;

// Multiplies red, green and blue by their own gains.
class TintNode : public IpScanlinePipe1In<Rgba> {
public:
  TintNode(RCShdPtr<IpScanlinePipe> const& input, Rgba const& gains) : IpScanlinePipe1In<Rgba>(input), _gains(gains) {}
  using IpScanlinePipe1In<Rgba>::computeScanline;
  void computeScanline(IxScanline<Rgba>& out, IxScanline<Rgba> const& in) override {
    for (int x = out.getInterval().min; x < out.getInterval().max; ++x) out[x] = transformFillColor(in[x]);
  }
  Rgba transformFillColor(Rgba const& c) const override {
    return Rgba(c.r * _gains.r, c.g * _gains.g, c.b * _gains.b, c.a);
  }

private:
  Rgba _gains;
};

// (1 - weight) * first + weight * second.
class MixNode : public IpScanlinePipe2In<Rgba> {
public:
  MixNode(RCShdPtr<IpScanlinePipe> const& a, RCShdPtr<IpScanlinePipe> const& b, float weight)
      : IpScanlinePipe2In<Rgba>(a, b), _weight(weight) {}
  using IpScanlinePipe2In<Rgba>::computeScanline;
  void computeScanline(IxScanline<Rgba>& out, IxScanline<Rgba> const& a, IxScanline<Rgba> const& b) override {
    for (int x = out.getInterval().min; x < out.getInterval().max; ++x) out[x] = transformFillColor(a[x], b[x]);
  }
  Rgba transformFillColor(Rgba const& a, Rgba const& b) const override {
    float const w = _weight;
    return Rgba(a.r + w * (b.r - a.r), a.g + w * (b.g - a.g), a.b + w * (b.b - a.b), a.a + w * (b.a - a.a));
  }

private:
  float _weight;
};

RCShdPtr<IpScanlinePipe> makeSource(IxTile const& tile) {
  return new IpSourceNode(Vector<IxReadGuard>{IxReadGuard(tile)});
}

void run(RCShdPtr<IpDestNode> const& dest, IxTile const& out, std::string const& outDir, std::string const& name) {
  IxWriteGuard dst(out);
  dest->setDstRegion(out.getPixelRegion());
  dest->process(dst);
  std::string const path = outDir + "/" + name + ".png";
  writePng(IxReadGuard(dst), path);
  std::printf("  wrote %s\n", path.c_str());
}

void runPipe(std::string const& outDir) {
  IxPixelFormat const format(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16);
  IxTile const gradient = makeGradientImage(format);
  IxTile const rings = makeRingsImage(format);
  GeRectangle<int> const image = gradient.getPixelRegion();
  Rgba const warm(1.2f, 0.8f, 0.5f, 1.f);

  RCShdPtr<IpScanlinePipe> const tinted = new TintNode(makeSource(gradient), warm);
  run(new IpDestNode(tinted), IxTile(format, image, gradient.getFillColor()), outDir, "pipe_tint");

  RCShdPtr<IpScanlinePipe> const mixed = new MixNode(new TintNode(makeSource(gradient), warm), makeSource(rings), 0.5f);
  run(new IpDestNode(mixed), IxTile(format, image, gradient.getFillColor()), outDir, "pipe_tint_mix_rings");

  // 64 pixels beyond an opaque image on every side: the source repeats its edge rows and columns.
  IxTile const opaque = makeGradientImage(IxPixelFormat(IxPixelFormat::RGB, IxPixelFormat::FLOAT16));
  GeRectangle<int> const grown(image.x1() - 64, image.x2() + 64, image.y1() - 64, image.y2() + 64);
  RCShdPtr<IpScanlinePipe> const edge = new TintNode(makeSource(opaque), warm);
  run(new IpDestNode(edge), IxTile(format, grown, gradient.getFillColor()), outDir, "pipe_tint_edge_padding");
}

SectionRegistration const pipe("Scanline pipe: tint, two-input mix, edge padding", runPipe);

}  // namespace

}  // namespace OrnDemo
