#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ixPixelLoopCompDepth.h>
#include <orn/primitives/imageProc/ixPixelLoopCompDepthConst.h>

#include <stdexcept>
#include <utility>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;
using Order = IxPixelIterBase::Order;
using Coords = std::vector<std::pair<int, int>>;

namespace {

// Pixels of the float tiles below hold (x + 50) * 100 + (y + 50); the functor notes the pixels it
// is given, overwrites them when it may, and counts the live functors.
struct WalkArgs : IxPixelFunctorArgs {
  Coords* visited;
  int* nbLive;
};

template <class Dst, class Src>
class Recorder : public IxPixelFunctor<Dst, Src> {
 public:
  explicit Recorder(WalkArgs const& args) : _args(args) { ++*_args.nbLive; }
  ~Recorder() override { --*_args.nbLive; }
  void operator()(Dst& dst, Src&) {
    int const code = int(dst[0].get());
    _args.visited->emplace_back(code / 100 - 50, code % 100 - 50);
    if constexpr (!std::is_const_v<Dst>) dst[0].set(-1.f);
  }

 private:
  WalkArgs _args;
};

IxTile makeCodedTile(GeRectangle<int> const& region) {
  IxTile tile = makeTile(1, IxPixelFormat::FLOAT32, region, 64);
  for (int y = region.y1(); y < region.y2(); ++y)
    for (int x = region.x1(); x < region.x2(); ++x)
      setRaw(tile, x, y, 0, std::bit_cast<std::uint32_t>(float((x + 50) * 100 + y + 50)));
  return tile;
}

// The pixels visited and the polls made by a read-only walk.
std::pair<Coords, int> walk(IxTile const& tile, GeRectangle<int> const* region, Order order) {
  std::pair<Coords, int> result(Coords(), 0);
  int nbLive = 0;
  WalkArgs args;
  args.visited = &result.first;
  args.nbLive = &nbLive;
  ScopedPollHook hook([&] { ++result.second; });
  ixPixelLoopCompDepthConst<Recorder>(IxReadGuard(tile), region, order, args);
  EXPECT_EQ(nbLive, 0);
  return result;
}

struct OrderRow {
  int order;
  bool horizontal, xUp, yUp;
};
OrderRow const ORDERS[] = {{0, true, true, true},   {1, true, true, false},  {2, true, false, true},
                           {3, true, false, false}, {4, false, true, true},  {5, false, false, true},
                           {6, false, true, false}, {7, false, false, false}};

}  // namespace

TEST(IxPixelIter, EveryOrderStartsAtItsCornerAndWalksItsSequence) {
  EXPECT_EQ(IxPixelIterBase::ORDER_V_XNEG_YPOS, 5);
  EXPECT_EQ(IxPixelIterBase::ORDER_V_XPOS_YNEG, 6);
  for (int value : {64, 68, 1 << 20, -1}) {
    EXPECT_FALSE(IxPixelIterBase::isIterOrderHorizontalMinor(Order(value)));
    EXPECT_FALSE(IxPixelIterBase::isIterOrderXPositive(Order(value)));
    EXPECT_FALSE(IxPixelIterBase::isIterOrderYPositive(Order(value)));
  }
  GeRectangle<int> const region(-1, 2, 0, 2);  // three columns, two rows, inside the tile
  IxTile const tile = makeCodedTile(GeRectangle<int>(-2, 4, -1, 3));
  for (OrderRow const& row : ORDERS) {
    SCOPED_TRACE(testing::Message() << "order " << row.order);
    Order const order = Order(row.order);
    EXPECT_EQ(IxPixelIterBase::isIterOrderHorizontalMinor(order), row.horizontal);
    EXPECT_EQ(IxPixelIterBase::makeOrder(row.horizontal, row.xUp, row.yUp), order);
    std::vector<int> const xs = row.xUp ? std::vector{-1, 0, 1} : std::vector{1, 0, -1};
    std::vector<int> const ys = row.yUp ? std::vector{0, 1} : std::vector{1, 0};
    Coords expected;
    for (int major : (row.horizontal ? ys : xs))
      for (int minor : (row.horizontal ? xs : ys))
        expected.push_back(row.horizontal ? std::make_pair(minor, major) : std::make_pair(major, minor));
    EXPECT_EQ(walk(tile, &region, order), std::make_pair(expected, row.horizontal ? 2 : 3));

    IxPixelIter<IxPixel<IxPixelCompFloat32, 1> const> const iter(IxReadGuard(tile), &region, order);
    int const xStep = row.xUp ? 4 : -4, yStep = row.yUp ? 64 : -64;
    EXPECT_EQ(iter.getMajorStep(), row.horizontal ? yStep : xStep);
    EXPECT_EQ(iter.getMinorStep(), row.horizontal ? xStep : yStep);
    EXPECT_EQ(iter.getMajorCount(), row.horizontal ? 2 : 3);
    EXPECT_EQ(iter.getLineAddress(), compAddress(tile, xs[0], ys[0], 0));
  }
}

TEST(IxPixelIter, RegionsAreClippedToTheTileAndEmptyLinesStillPoll) {
  IxTile const tile = makeCodedTile(GeRectangle<int>(-2, 3, -1, 2));
  Order const order = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  auto [visited, nbPolls] = walk(tile, nullptr, order);
  EXPECT_EQ(visited.size(), 15u);
  EXPECT_EQ(visited.back(), std::make_pair(2, 1));
  EXPECT_EQ(nbPolls, 3);
  GeRectangle<int> const overhanging(0, 10, -5, 1);
  EXPECT_EQ(walk(tile, &overhanging, order),
            std::make_pair(Coords{{0, -1}, {1, -1}, {2, -1}, {0, 0}, {1, 0}, {2, 0}}, 2));
  // Beside the tile in x, the overlapping rows remain as empty lines; above it, or empty, nothing.
  GeRectangle<int> const right(5, 8, 0, 2), above(0, 2, -10, -5), empty(1, 1, 0, 2);
  EXPECT_EQ(walk(tile, &right, order), std::make_pair(Coords(), 2));
  EXPECT_EQ(walk(tile, &above, order), std::make_pair(Coords(), 0));
  EXPECT_EQ(walk(tile, &empty, order), std::make_pair(Coords(), 0));
  // An empty request lands on the tile's corner.
  IxPixelIter<IxPixel<IxPixelCompFloat32, 1> const> const iter(IxReadGuard(tile), &empty,
                                                               IxPixelIterBase::ORDER_V_XNEG_YNEG);
  EXPECT_EQ(iter.getMajorCount(), 0);
  EXPECT_EQ(iter.getLineAddress(), compAddress(tile, -3, -2, 0));
  // Empty tiles: no height, no line; no width, empty lines (the functor comes and goes in walk()).
  EXPECT_EQ(walk(makeCodedTile(GeRectangle<int>(0, 5, 3, 3)), nullptr, order), std::make_pair(Coords(), 0));
  EXPECT_EQ(walk(makeCodedTile(GeRectangle<int>(2, 2, 0, 3)), &overhanging, order), std::make_pair(Coords(), 3));
}

TEST(IxPixelIter, ThrowingPollStopsBetweenLinesWithEarlierLinesWritten) {
  IxTile const tile = makeCodedTile(GeRectangle<int>(0, 3, 0, 4));
  Coords visited;
  int nbLive = 0, nbPolls = 0;
  WalkArgs args;
  args.visited = &visited;
  args.nbLive = &nbLive;
  {
    ScopedPollHook hook([&] {
      if (++nbPolls == 2) throw std::runtime_error("cancelled");
    });
    EXPECT_THROW(ixPixelLoopCompDepth<Recorder>(IxWriteGuard(tile), nullptr, Order(0), args), std::runtime_error);
  }
  EXPECT_EQ(nbLive, 0);
  EXPECT_EQ(visited.size(), 6u);
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 3; ++x)
      EXPECT_EQ(std::bit_cast<float>(getRaw(tile, x, y, 0)), y < 2 ? -1.f : float((x + 50) * 100 + y + 50));
  PxRequestMgr::getInstance().poll();  // the hook is gone
  EXPECT_EQ(nbPolls, 2);
}
