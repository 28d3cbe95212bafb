#pragma once
// Small filter nodes that exercise the pipe framework, and tiles with a known pixel function.

#include "ixPixelLoopTestUtil.h"
#include "ixScanlineTestUtil.h"

#include <orn/primitives/imageProc/ipDestNode.h>
#include <orn/primitives/imageProc/ipScanlinePipe1In.h>
#include <orn/primitives/imageProc/ipScanlinePipe2In.h>
#include <orn/primitives/imageProc/ipSourceNode.h>

#include <algorithm>
#include <bit>
#include <string>
#include <vector>

namespace OrnTest {

using Rgba = CoRgbaColorTyped<float>;
using Log = std::vector<std::string>;

inline Rgba scale(Rgba const& c, float k) { return Rgba(c.r * k, c.g * k, c.b * k, c.a * k); }
inline float scale(float v, float k) { return v * k; }
inline Rgba minus(Rgba const& a, Rgba const& b) { return Rgba(a.r - b.r, a.g - b.g, a.b - b.b, a.a - b.a); }
inline float minus(float a, float b) { return a - b; }
inline Rgba plus(Rgba const& a, Rgba const& b) { return Rgba(a.r + b.r, a.g + b.g, a.b + b.b, a.a + b.a); }
inline float plus(float a, float b) { return a + b; }

// Appends "<name><y>" to the log, if any, for each line computed.
inline void record(Log* log, char const* name, int y) {
  if (log) log->push_back(name + std::to_string(y));
}

// out = gain * in.
template <class T>
class GainNode : public IpScanlinePipe1In<T> {
public:
  GainNode(RCShdPtr<IpScanlinePipe> const& input, float gain, Log* log = nullptr, char const* name = "")
      : IpScanlinePipe1In<T>(input), _gain(gain), _log(log), _name(name) {}
  using IpScanlinePipe1In<T>::computeScanline;
  void computeScanline(IxScanline<T>& out, IxScanline<T> const& in) override {
    record(_log, _name, this->getCurrentLine());
    for (int x = out.getInterval().min; x < out.getInterval().max; ++x) out[x] = scale(in[x], _gain);
  }
  Rgba transformFillColor(Rgba const& fill) const override { return scale(fill, _gain); }

private:
  float _gain;
  Log* _log;
  char const* _name;
};

// out = in1 - in2: the order of the inputs shows.
template <class T>
class DifferenceNode : public IpScanlinePipe2In<T> {
public:
  DifferenceNode(RCShdPtr<IpScanlinePipe> const& a, RCShdPtr<IpScanlinePipe> const& b, Log* log = nullptr)
      : IpScanlinePipe2In<T>(a, b), _log(log) {}
  using IpScanlinePipe2In<T>::computeScanline;
  void computeScanline(IxScanline<T>& out, IxScanline<T> const& in1, IxScanline<T> const& in2) override {
    record(_log, "D", this->getCurrentLine());
    for (int x = out.getInterval().min; x < out.getInterval().max; ++x) out[x] = minus(in1[x], in2[x]);
  }
  Rgba transformFillColor(Rgba const& a, Rgba const& b) const override { return minus(a, b); }

private:
  Log* _log;
};

// Mean over the (2 rx + 1) x (2 ry + 1) box around each pixel. It reads 2 ry + 1 lines of its
// input, so it asks the input to keep 2 ry lines more (or what another output asked for).
template <class T>
class BoxNode : public IpScanlinePipeOutput<T> {
public:
  static RCShdPtr<IpScanlinePipe> create(RCShdPtr<IpScanlinePipe> input, int rx, int ry, Log* log = nullptr,
                                        char const* name = "B") {
    input->setExtraLinesBuffered(std::max(input->getExtraLinesBuffered(), 2 * ry));
    return new BoxNode(input, rx, ry, log, name);
  }
  void computeScanline(int y, IxScanline<T>& out) override {
    record(_log, _name, y);
    int const rx = this->getNeighX(), ry = this->getNeighY();
    for (int x = out.getInterval().min; x < out.getInterval().max; ++x) {
      T sum = T();
      for (int dy = -ry; dy <= ry; ++dy)
        for (int dx = -rx; dx <= rx; ++dx) sum = plus(sum, this->getInputScanline(0, y + dy)[x + dx]);
      out[x] = scale(sum, 1.f / float((2 * rx + 1) * (2 * ry + 1)));
    }
  }
  Rgba getFillColor() const override { return this->getInputs()[0]->getFillColor(); }

private:
  BoxNode(RCShdPtr<IpScanlinePipe> const& input, int rx, int ry, Log* log, char const* name)
      : IpScanlinePipeOutput<T>(input, rx, ry), _log(log), _name(name) {}
  Log* _log;
  char const* _name;
};

// A destination that logs "W<y>" for each row it writes.
class LoggingDest : public IpDestNode {
public:
  LoggingDest(RCShdPtr<IpScanlinePipe> const& input, Log* log) : IpDestNode(input), _log(log) {}
  void processOutputScanline(int y) override {
    record(_log, "W", y);
    IpDestNode::processOutputScanline(y);
  }

private:
  Log* _log;
};

// Component c of pixel (x, y) of the test images: exact small integers, distinct per position.
inline float pixelValue(int seed, int x, int y, int c) { return float(seed * 1000 + c * 100 + y * 10 + x); }

inline float getFloat(IxTile const& tile, int x, int y, int c) { return std::bit_cast<float>(getRaw(tile, x, y, c)); }

// A float tile over region holding pixelValue(seed, ...), or `value` everywhere when seed < 0.
inline IxTile makeFloatTile(int comps, GeRectangle<int> const& region, int seed, float value = -1.f) {
  IxTile const tile = makeTile(comps, IxPixelFormat::FLOAT32, region);
  for (int y = region.y1(); y < region.y2(); ++y)
    for (int x = region.x1(); x < region.x2(); ++x)
      for (int c = 0; c < comps; ++c)
        setRaw(tile, x, y, c, std::bit_cast<std::uint32_t>(seed < 0 ? value : pixelValue(seed, x, y, c)));
  return tile;
}

// pixelValue of a tile over [0, w) x [0, h), with coordinates clamped into it (edge padding).
inline float clampedValue(int seed, int w, int h, int x, int y, int c) {
  return pixelValue(seed, std::clamp(x, 0, w - 1), std::clamp(y, 0, h - 1), c);
}

}  // namespace OrnTest
