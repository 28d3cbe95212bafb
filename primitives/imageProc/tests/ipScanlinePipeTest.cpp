// Scanline pipes built from small test nodes: a gain, a difference of two inputs, a box mean with
// a neighbourhood, and a destination that logs its writes.

#include "ixPixelLoopTestUtil.h"
#include "ixScanlineTestUtil.h"

#include <orn/primitives/imageProc/ipDestNode.h>
#include <orn/primitives/imageProc/ipScanlinePipe1In.h>
#include <orn/primitives/imageProc/ipScanlinePipe2In.h>
#include <orn/primitives/imageProc/ipSourceNode.h>

#include <algorithm>
#include <bit>
#include <stdexcept>
#include <string>
#include <vector>

namespace OrnTest {

namespace {

using Rgba = CoRgbaColorTyped<float>;
using Log = std::vector<std::string>;

int const W = 5;
int const H = 4;
GeRectangle<int> const FULL(0, W, 0, H);
Rgba const FILL(0.25f, 0.5f, 0.75f, 1.f);
float const SENTINEL = -1.f;

Rgba scale(Rgba const& c, float k) { return Rgba(c.r * k, c.g * k, c.b * k, c.a * k); }
float scale(float v, float k) { return v * k; }
Rgba minus(Rgba const& a, Rgba const& b) { return Rgba(a.r - b.r, a.g - b.g, a.b - b.b, a.a - b.a); }
Rgba plus(Rgba const& a, Rgba const& b) { return Rgba(a.r + b.r, a.g + b.g, a.b + b.b, a.a + b.a); }
float plus(float a, float b) { return a + b; }

// "<node name><line>" for every line computed or written, in order.
Log events;

// out = gain * in.
template <class T>
class GainNode : public IpScanlinePipe1In<T> {
public:
  GainNode(RCShdPtr<IpScanlinePipe> const& input, float gain, char const* name = "G")
      : IpScanlinePipe1In<T>(input), _gain(gain), _name(name) {}
  using IpScanlinePipe1In<T>::computeScanline;
  void computeScanline(IxScanline<T>& out, IxScanline<T> const& in) override {
    events.push_back(_name + std::to_string(this->getCurrentLine()));
    for (int x = out.getInterval().min; x < out.getInterval().max; ++x) out[x] = scale(in[x], _gain);
  }
  Rgba transformFillColor(Rgba const& fill) const override { return scale(fill, _gain); }

private:
  float _gain;
  char const* _name;
};

// out = in1 - in2: the order of the inputs shows.
template <class T>
class DifferenceNode : public IpScanlinePipe2In<T> {
public:
  DifferenceNode(RCShdPtr<IpScanlinePipe> const& a, RCShdPtr<IpScanlinePipe> const& b) : IpScanlinePipe2In<T>(a, b) {}
  using IpScanlinePipe2In<T>::computeScanline;
  void computeScanline(IxScanline<T>& out, IxScanline<T> const& in1, IxScanline<T> const& in2) override {
    events.push_back("D" + std::to_string(this->getCurrentLine()));
    for (int x = out.getInterval().min; x < out.getInterval().max; ++x) out[x] = minus(in1[x], in2[x]);
  }
  Rgba transformFillColor(Rgba const& a, Rgba const& b) const override { return minus(a, b); }
};

// Mean over the (2 rx + 1) x (2 ry + 1) box around each pixel. It reads 2 ry + 1 lines of its
// input, so it asks the input to keep 2 ry lines more (or what another output asked for).
template <class T>
class BoxNode : public IpScanlinePipeOutput<T> {
public:
  static RCShdPtr<IpScanlinePipe> create(RCShdPtr<IpScanlinePipe> input, int rx, int ry, char const* name = "B") {
    input->setExtraLinesBuffered(std::max(input->getExtraLinesBuffered(), 2 * ry));
    return new BoxNode(input, rx, ry, name);
  }
  void computeScanline(int y, IxScanline<T>& out) override {
    events.push_back(_name + std::to_string(y));
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
  BoxNode(RCShdPtr<IpScanlinePipe> const& input, int rx, int ry, char const* name)
      : IpScanlinePipeOutput<T>(input, rx, ry), _name(name) {}
  char const* _name;
};

// A destination that logs "W<y>" for each row it writes.
class LoggingDest : public IpDestNode {
public:
  using IpDestNode::IpDestNode;
  void processOutputScanline(int y) override {
    events.push_back("W" + std::to_string(y));
    IpDestNode::processOutputScanline(y);
  }
};

// Component c of pixel (x, y) of the test images: exact small integers, distinct per position.
float pixelValue(int seed, int x, int y, int c) { return float(seed * 1000 + c * 100 + y * 10 + x); }

// pixelValue with coordinates clamped into FULL (edge padding).
float clampedValue(int seed, int x, int y, int c) {
  return pixelValue(seed, std::clamp(x, 0, W - 1), std::clamp(y, 0, H - 1), c);
}

float getFloat(IxTile const& tile, int x, int y, int c) { return std::bit_cast<float>(getRaw(tile, x, y, c)); }

// A float tile over FULL holding pixelValue(seed, ...), or SENTINEL everywhere when seed < 0.
IxTile makeFloatTile(int comps, int seed) {
  IxTile const tile = makeTile(comps, IxPixelFormat::FLOAT32, FULL);
  for (int y = 0; y < H; ++y)
    for (int x = 0; x < W; ++x)
      for (int c = 0; c < comps; ++c)
        setRaw(tile, x, y, c, std::bit_cast<std::uint32_t>(seed < 0 ? SENTINEL : pixelValue(seed, x, y, c)));
  return tile;
}

class IpScanlinePipeTest : public IxScanlineTestBase {
protected:
  void SetUp() override {
    IxScanlineTestBase::SetUp();
    events.clear();
  }
  // A source over one float tile of test image `seed`, whose fill colour is FILL.
  static RCShdPtr<IpSourceNode> makeSource(int seed, int comps = 4) {
    IxTile tile = makeFloatTile(comps, seed);
    tile.setFillColor(FILL);
    return new IpSourceNode(Vector<IxReadGuard>{IxReadGuard(tile)});
  }
  static IxTile makeSentinelTile(int comps = 4) { return makeFloatTile(comps, -1); }

  // dst holds expected(x, y, c) inside region and is untouched elsewhere.
  template <class F>
  static void expectImage(IxTile const& dst, GeRectangle<int> const& region, F const& expected) {
    for (int y = 0; y < H; ++y)
      for (int x = 0; x < W; ++x)
        for (int c = 0; c < dst.getPixelFormat().getComps(); ++c)
          EXPECT_FLOAT_EQ(getFloat(dst, x, y, c), region.contains(x, y) ? expected(x, y, c) : SENTINEL)
              << "at " << x << ", " << y << ", " << c;
  }

  // Mean of image `seed` over the box of radii rx, ry, edges repeated, summed as BoxNode does.
  static float boxMean(int seed, int rx, int ry, int x, int y, int c) {
    float sum = 0.f;
    for (int dy = -ry; dy <= ry; ++dy)
      for (int dx = -rx; dx <= rx; ++dx) sum += clampedValue(seed, x + dx, y + dy, c);
    return sum * (1.f / float((2 * rx + 1) * (2 * ry + 1)));
  }
};

TEST_F(IpScanlinePipeTest, PointwiseChainWritesItsRegionPollsOncePerComputedLineAndCarriesTheFill) {
  RCShdPtr<IpSourceNode> const source = makeSource(1);
  RCShdPtr<IpScanlinePipe> const gain = new GainNode<Rgba>(source, 2.f);
  RCShdPtr<IpDestNode> const dest = new IpDestNode(gain);
  auto const doubled = [](int x, int y, int c) { return 2.f * pixelValue(1, x, y, c); };
  int polls = 0;
  ScopedPollHook const hook([&] { ++polls; });

  GeRectangle<int> const part(1, 4, 1, 3);
  IxTile const out = makeSentinelTile();
  IxWriteGuard dst(out);
  dest->setDstRegion(part);
  dest->process(dst);
  expectImage(out, part, doubled);
  EXPECT_EQ(polls, 2);  // the gain node's two lines; reading and writing don't poll
  EXPECT_EQ(dst.getTile().getFillColor(), scale(FILL, 2.f));
  EXPECT_EQ(source->getBufferSize(), 1);
  EXPECT_EQ(gain->getBufferSize(), 1);

  // A poll that throws abandons the run: the rows written so far stay.
  polls = 0;
  PxRequestMgr::setPollHook([&] {
    if (++polls == 3) throw std::runtime_error("abandoned");
  });
  IxTile const second = makeSentinelTile();
  IxWriteGuard dst2(second);
  dest->setDstRegion(FULL);
  EXPECT_THROW(dest->process(dst2), std::runtime_error);
  expectImage(second, GeRectangle<int>(0, W, 0, 2), doubled);
  // A new region makes the graph usable again.
  PxRequestMgr::setPollHook({});
  dest->setDstRegion(FULL);
  dest->process(dst2);
  expectImage(second, FULL, doubled);
}

TEST_F(IpScanlinePipeTest, NeighbourhoodGrowsTheSourceRegionReadsPaddedRowsAndSizesTheRing) {
  RCShdPtr<IpSourceNode> const source = makeSource(1);
  RCShdPtr<IpScanlinePipe> const box = BoxNode<Rgba>::create(source, 1, 2);
  RCShdPtr<IpDestNode> const dest = new IpDestNode(box);
  // 4: the box's own request; 100: more than the 8 rows the source reads.
  for (int extra : {4, 100}) {
    source->setExtraLinesBuffered(extra);
    IxTile const out = makeSentinelTile();
    IxWriteGuard dst(out);
    dest->setDstRegion(FULL);
    dest->process(dst);
    expectImage(out, FULL, [](int x, int y, int c) { return boxMean(1, 1, 2, x, y, c); });
    EXPECT_EQ(source->getDstRegion(), GeRectangle<int>(-1, W + 1, -2, H + 2));
    EXPECT_EQ(source->getExtraLinesBuffered(), extra);
    EXPECT_EQ(source->getBufferSize(), std::min(extra + 1, H + 4));
    EXPECT_EQ(box->getBufferSize(), 1);
    EXPECT_EQ(box->getAccumulatedDelay(), 2);
  }
}

TEST_F(IpScanlinePipeTest, InputThatRunsAheadOfItsSiblingKeepsMoreLines) {
  RCShdPtr<IpSourceNode> const ahead = makeSource(1);
  RCShdPtr<IpSourceNode> const behind = makeSource(2);
  RCShdPtr<IpScanlinePipe> const late = BoxNode<Rgba>::create(behind, 0, 2);
  RCShdPtr<IpScanlinePipe> const difference = new DifferenceNode<Rgba>(ahead, late);
  RCShdPtr<IpDestNode> const dest = new IpDestNode(difference);
  auto const expected = [](int x, int y, int c) { return pixelValue(1, x, y, c) - boxMean(2, 0, 2, x, y, c); };

  IxTile const out = makeSentinelTile();
  IxWriteGuard dst(out);
  dest->setDstRegion(FULL);
  dest->process(dst);
  expectImage(out, FULL, expected);
  EXPECT_EQ(difference->getAccumulatedDelay(), 2);
  EXPECT_EQ(ahead->getBufferSize(), 3);
  EXPECT_EQ(late->getBufferSize(), 1);
  EXPECT_EQ(behind->getBufferSize(), 5);

  // An output delay above the radius is what the node lags by; it survives new regions.
  late->setOutputDelay(3);
  dest->setDstRegion(FULL);
  EXPECT_EQ(late->getAccumulatedDelay(), 3);
  EXPECT_EQ(difference->getAccumulatedDelay(), 3);
  IxTile const second = makeSentinelTile();
  IxWriteGuard dst2(second);
  dest->process(dst2);
  expectImage(second, FULL, expected);
  EXPECT_EQ(ahead->getBufferSize(), 4);

  EXPECT_EQ(conditionOf([&] { dest->process(dst2, Vector<IxReadGuard>{IxReadGuard(out)}); }), "nInputs == 1");
}

TEST_F(IpScanlinePipeTest, NodeWithTwoOutputsServesTheUnionAndPushesEachLineDepthFirst) {
  RCShdPtr<IpSourceNode> const source = makeSource(1);
  RCShdPtr<IpScanlinePipe> const shared = new GainNode<Rgba>(source, 1.f);
  RCShdPtr<IpScanlinePipe> const tall = BoxNode<Rgba>::create(shared, 1, 1);
  RCShdPtr<IpScanlinePipe> const wide = BoxNode<Rgba>::create(shared, 2, 0, "H");
  RCShdPtr<IpDestNode> const dest = new LoggingDest(new DifferenceNode<Rgba>(tall, wide));
  IxTile const out = makeSentinelTile();
  IxWriteGuard dst(out);
  dest->setDstRegion(FULL);
  dest->process(dst);

  expectImage(out, FULL, [](int x, int y, int c) { return boxMean(1, 1, 1, x, y, c) - boxMean(1, 2, 0, x, y, c); });
  EXPECT_EQ(shared->getOutputs(), (Vector<IpScanlinePipe*>{tall.get(), wide.get()}));
  EXPECT_EQ(shared->getDstRegion(), GeRectangle<int>(-2, W + 2, -1, H + 1));
  EXPECT_EQ(wide->getDstRegion(), FULL);
  EXPECT_EQ(shared->getBufferSize(), 3);  // the tall box reads three of its lines
  EXPECT_EQ(wide->getBufferSize(), 2);    // one line ahead of the tall box
  EXPECT_EQ(tall->getBufferSize(), 1);
  // Each line of the shared node goes to the tall box (and on to the destination) before the
  // wide one; the tall box and the difference wait for the lines they need.
  Log const expected = {"G-1", "G0", "H0", "G1", "B0", "D0", "W0", "H1", "G2", "B1", "D1",
                        "W1",  "H2", "G3", "B2", "D2", "W2", "H3", "G4", "B3", "D3", "W3"};
  EXPECT_EQ(events, expected);
}

TEST_F(IpScanlinePipeTest, GraphReachingOneSourceByTwoPathsListsItOnce) {
  RCShdPtr<IpSourceNode> const source = new IpSourceNode();
  RCShdPtr<IpScanlinePipe> const twice = new GainNode<Rgba>(source, 2.f);
  RCShdPtr<IpScanlinePipe> const fivefold = new GainNode<Rgba>(source, 5.f);
  RCShdPtr<IpDestNode> const dest = new IpDestNode(new DifferenceNode<Rgba>(twice, fivefold));
  Vector<IpSourceNode*> sources;
  dest->getAllInputs(sources);
  EXPECT_EQ(sources, Vector<IpSourceNode*>{source.get()});

  IxTile input = makeFloatTile(4, 1);
  input.setFillColor(FILL);
  IxTile const out = makeSentinelTile();
  IxWriteGuard dst(out);
  dest->setDstRegion(FULL);
  dest->process(dst, Vector<IxReadGuard>{IxReadGuard(input)});
  expectImage(out, FULL, [](int x, int y, int c) { return 2.f * pixelValue(1, x, y, c) - 5.f * pixelValue(1, x, y, c); });
  EXPECT_EQ(dst.getTile().getFillColor(), minus(scale(FILL, 2.f), scale(FILL, 5.f)));
}

TEST_F(IpScanlinePipeTest, AlphaPipeRunsOnFloatLines) {
  RCShdPtr<IpSourceNode> const source = makeSource(1, 1);
  source->setOutputComps(IxPixelFormat::ALPHA);
  RCShdPtr<IpScanlinePipe> const box = BoxNode<float>::create(source, 1, 1);
  RCShdPtr<IpScanlinePipe> const gain = new GainNode<float>(box, 0.5f);
  RCShdPtr<IpDestNode> const dest = new IpDestNode(gain);
  IxTile const out = makeSentinelTile(1);
  IxWriteGuard dst(out);
  dest->setDstRegion(FULL);
  dest->process(dst);
  expectImage(out, FULL, [](int x, int y, int c) { return boxMean(1, 1, 1, x, y, c) * 0.5f; });
  EXPECT_EQ(dst.getTile().getFillColor(), scale(FILL, 0.5f));

  // An RGBA destination asks the float node for RGBA lines, which it doesn't have.
  IxWriteGuard rgba(makeSentinelTile(4));
  dest->setDstRegion(FULL);
  EXPECT_EQ(conditionOf([&] { dest->process(rgba); }), "! _outputCacheRgba.isNull()");
}

TEST_F(IpScanlinePipeTest, ContractViolationsRaiseAndAnEmptyRegionDoesNothing) {
  RCShdPtr<IpScanlinePipe> const none;
  RCShdPtr<IpSourceNode> const source = new IpSourceNode();  // no tiles: reading it would raise
  EXPECT_EQ(conditionOf([&] { GainNode<Rgba> node(none, 1.f); }), "! input.isNull()");
  EXPECT_EQ(conditionOf([&] { DifferenceNode<Rgba> node(none, source); }), "! input1.isNull()");
  EXPECT_EQ(conditionOf([&] { DifferenceNode<Rgba> node(source, none); }), "! input2.isNull()");
  EXPECT_TRUE(source->getOutputs().empty());

  RCShdPtr<IpScanlinePipe> const gain = new GainNode<Rgba>(source, 1.f);
  RCShdPtr<IpDestNode> const dest = new IpDestNode(gain);
  EXPECT_EQ(conditionOf([&] { gain->setOutputDelay(-1); }), "size >= 0");
  EXPECT_EQ(conditionOf([&] { source->setExtraLinesBuffered(-1); }), "size >= 0");
  EXPECT_EQ(conditionOf([&] { dest->getFillColor(); }), "false");
  // No ring before a run.
  EXPECT_EQ(conditionOf([&] { gain->getOutputScanline(0, static_cast<float*>(nullptr)); }),
            "! _outputCacheAlpha.isNull()");
  dest->setDstRegion(FULL);
  EXPECT_EQ(conditionOf([&] { dest->processOutputScanline(H); }), "_dstRegion.y1() <= y && y < _dstRegion.y2()");

  int polls = 0;
  ScopedPollHook const hook([&] { ++polls; });
  IxTile const out = makeSentinelTile();
  IxWriteGuard dst(out);
  dest->setDstRegion(GeRectangle<int>(0, W, 2, 2));
  dest->process(dst);
  EXPECT_EQ(polls, 0);
  EXPECT_TRUE(source->getDstRegion().isEmpty());
  expectImage(out, GeRectangle<int>(), [](int, int, int) { return 0.f; });
}

}  // namespace

}  // namespace OrnTest
