#include <orn/primitives/imageProc/ixRollingScanlineBuffer.h>

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixScanlineCacheImp.h>

#include "ixScanlineTestUtil.h"

#include <cstdlib>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;
using Pad = IxScanlineTypes;

class IxRollingScanlineBufferTest : public IxScanlineTestBase {
protected:
  void SetUp() override {
    IxScanlineTestBase::SetUp();
    IxScanlineCacheImpFactories::install();
  }
};

// A one-component float tile over [0, 6) x [0, 5) whose pixel (x, y) holds 10 y + x.
IxTile makeSource() {
  IxTile const tile(IxPixelFormat(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32), GeRectangle<int>(0, 6, 0, 5), Rgba());
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 6; ++x)
      reinterpret_cast<float*>(tile.getBaseAddress() + y * tile.getRowBytes())[x] = float(10 * y + x);
  return tile;
}

// Doubles each row and counts the rows it sees.
class Doubler : public IxRollingScanlineBuffer<float>::Functor {
public:
  void operator()(IxScanline<float>& out, IxScanline<float> const& in) override {
    ++nbCalls;
    for (int x = in.getInterval().min; x < in.getInterval().max; ++x) out[x] = 2.f * in[x];
  }
  int nbCalls = 0;
};

}  // namespace

// Runs in a process of its own, where no test has installed the factories yet.
TEST(IxRollingScanlineBufferNoFactoryTest, RaisesWithoutFactory) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        std::string const condition = conditionOf([] {
          IxRollingScanlineBuffer<float> buffer(Vector<IxReadGuard>(), GeRectangle<int>(0, 4, 0, 4), 3,
                                                IxPaddingPolicy<float>(Pad::NOOP, 0.f), nullptr);
        });
        std::exit(condition == "_implementationFactory" ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST_F(IxRollingScanlineBufferTest, WindowOfThreeRollsDownThroughTheFunctor) {
  Vector<IxReadGuard> const tiles{IxReadGuard(makeSource())};
  GeRectangle<int> const region(1, 5, 0, 5);
  Doubler doubler;
  IxRollingScanlineBuffer<float> buffer(tiles, region, 3, IxPaddingPolicy<float>(Pad::NOOP, 1.f), &doubler);

  IxScanline<float> const* previous[3] = {};
  for (int y = 0; y < 5; ++y) {
    IxScanline<float> const* const* lines = buffer.getNext();
    IxRollingScanlineBuffer<float>::Accessor const around(lines, 1);
    for (int k = -1; k <= 1; ++k) {
      // Rows above the first and below the last repeat the edge row.
      int const row = std::clamp(y + k, 0, 4);
      EXPECT_EQ(around[k].getInterval(), GeInterval<int>(1, 5));
      for (int x = 1; x < 5; ++x) {
        ASSERT_EQ(*around(x, k), 2.f * float(10 * row + x)) << "row " << y << " line " << k;
        ASSERT_EQ(around(x, k), &(*lines[k + 1])[x]);
      }
    }
    if (y > 0) {
      // The oldest line was refilled and moved to the end; the others moved up one place.
      EXPECT_EQ(lines[0], previous[1]);
      EXPECT_EQ(lines[1], previous[2]);
      EXPECT_EQ(lines[2], previous[0]);
    }
    std::copy(lines, lines + 3, previous);
    // Each row passes through the functor once, as it enters.
    EXPECT_EQ(doubler.nbCalls, 3 + y);
  }
}

TEST_F(IxRollingScanlineBufferTest, SingleLinesAndColourPadding) {
  Vector<IxReadGuard> const tiles{IxReadGuard(makeSource())};

  // One line per window.
  IxRollingScanlineBuffer<float> single(tiles, GeRectangle<int>(0, 6, 2, 5), 1, IxPaddingPolicy<float>(Pad::NOOP, 0.f),
                                        nullptr);
  for (int y = 2; y < 5; ++y) EXPECT_EQ((*single.getNext()[0])[3], float(10 * y + 3));

  // Colour lines from an 8-bit tile, padded with the fill colour outside it in both axes.
  IxTile const colours(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::UINT8), GeRectangle<int>(0, 2, 0, 1), Rgba());
  std::fill(colours.getBaseAddress(), colours.getBaseAddress() + 8, 255);
  Rgba const fill(0.f, 0.5f, 0.f, 1.f);
  IxRollingScanlineBuffer<Rgba> padded(Vector<IxReadGuard>{IxReadGuard(colours)}, GeRectangle<int>(-1, 3, 0, 1), 3,
                                       IxPaddingPolicy<Rgba>(Pad::PADDING_COLOR, fill), nullptr);
  IxScanline<Rgba> const* const* lines = padded.getNext();
  for (int x = -1; x < 3; ++x) {
    EXPECT_EQ((*lines[0])[x], fill);
    EXPECT_EQ((*lines[1])[x], x == 0 || x == 1 ? Rgba(1.f, 1.f, 1.f, 1.f) : fill) << x;
    EXPECT_EQ((*lines[2])[x], fill);
  }
}
