#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ixPixelLoopCompDepth.h>
#include <orn/primitives/imageProc/ixPixelLoopCompDepthConst.h>

#include <stdexcept>
#include <utility>
#include <vector>

#include "ixPixelLoopTestUtil.h"

using namespace Orn;
using namespace OrnTest;
using Order = IxPixelIterBase::Order;

namespace {

// Pixels of the float tiles below hold (x + 50) * 100 + (y + 50).
struct WalkArgs : IxPixelFunctorArgs {
  std::vector<std::pair<int, int>>* visited = nullptr;
  int* nbLive = nullptr;
  float value = 0.f;
};

template <class Dst, class Src>
class Recorder : public IxPixelFunctor<Dst, Src> {
 public:
  explicit Recorder(WalkArgs const& args) : _visited(args.visited), _nbLive(args.nbLive), _value(args.value) {
    ++*_nbLive;
  }
  ~Recorder() override { --*_nbLive; }
  void operator()(Dst& dst, Src&) {
    int const code = int(dst[0].get());
    _visited->emplace_back(code / 100 - 50, code % 100 - 50);
    if constexpr (!std::is_const_v<Dst>) dst[0].set(_value);
  }

 private:
  std::vector<std::pair<int, int>>* _visited;
  int* _nbLive;
  float _value;
};

IxTile makeCodedTile(GeRectangle<int> const& region) {
  IxTile tile = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32, region, 64);
  for (int y = region.y1(); y < region.y2(); ++y)
    for (int x = region.x1(); x < region.x2(); ++x)
      setRaw(tile, x, y, 0, std::bit_cast<std::uint32_t>(float((x + 50) * 100 + y + 50)));
  return tile;
}

struct Walk {
  std::vector<std::pair<int, int>> visited;
  int nbPolls = 0;
};

Walk walkConst(IxTile const& tile, GeRectangle<int> const* region, Order order) {
  Walk walk;
  int nbLive = 0;
  WalkArgs args;
  args.visited = &walk.visited;
  args.nbLive = &nbLive;
  ScopedPollHook hook([&] { ++walk.nbPolls; });
  ixPixelLoopCompDepthConst<Recorder>(IxReadGuard(tile), region, order, args);
  EXPECT_EQ(nbLive, 0);
  return walk;
}

struct OrderRow {
  Order order;
  bool horizontal, xUp, yUp;
};
OrderRow const ORDERS[] = {{IxPixelIterBase::ORDER_H_XPOS_YPOS, true, true, true},
                           {IxPixelIterBase::ORDER_H_XPOS_YNEG, true, true, false},
                           {IxPixelIterBase::ORDER_H_XNEG_YPOS, true, false, true},
                           {IxPixelIterBase::ORDER_H_XNEG_YNEG, true, false, false},
                           {IxPixelIterBase::ORDER_V_XPOS_YPOS, false, true, true},
                           {IxPixelIterBase::ORDER_V_XNEG_YPOS, false, false, true},
                           {IxPixelIterBase::ORDER_V_XPOS_YNEG, false, true, false},
                           {IxPixelIterBase::ORDER_V_XNEG_YNEG, false, false, false}};

}  // namespace

TEST(IxPixelIterBase, OrderTestsFollowTheTableAndRejectLargeValues) {
  for (OrderRow const& row : ORDERS) {
    EXPECT_EQ(IxPixelIterBase::isIterOrderHorizontalMinor(row.order), row.horizontal) << row.order;
    EXPECT_EQ(IxPixelIterBase::isIterOrderXPositive(row.order), row.xUp) << row.order;
    EXPECT_EQ(IxPixelIterBase::isIterOrderYPositive(row.order), row.yUp) << row.order;
    EXPECT_EQ(IxPixelIterBase::makeOrder(row.horizontal, row.xUp, row.yUp), row.order);
  }
  for (int value : {64, 68, 1 << 20, -1}) {
    EXPECT_FALSE(IxPixelIterBase::isIterOrderHorizontalMinor(Order(value)));
    EXPECT_FALSE(IxPixelIterBase::isIterOrderXPositive(Order(value)));
    EXPECT_FALSE(IxPixelIterBase::isIterOrderYPositive(Order(value)));
  }
}

TEST(IxPixelIter, EveryOrderStartsAtItsCornerAndWalksItsSequence) {
  GeRectangle<int> const tileRegion(-2, 4, -1, 3);
  GeRectangle<int> const region(-1, 2, 0, 3);  // three columns, three rows, inside the tile
  IxTile const tile = makeCodedTile(tileRegion);
  for (OrderRow const& row : ORDERS) {
    std::vector<int> xs, ys;
    for (int i = 0; i < 3; ++i) {
      xs.push_back(row.xUp ? region.x1() + i : region.x2() - 1 - i);
      ys.push_back(row.yUp ? region.y1() + i : region.y2() - 1 - i);
    }
    std::vector<std::pair<int, int>> expected;
    for (int major : (row.horizontal ? ys : xs))
      for (int minor : (row.horizontal ? xs : ys))
        expected.push_back(row.horizontal ? std::make_pair(minor, major) : std::make_pair(major, minor));
    Walk const walk = walkConst(tile, &region, row.order);
    EXPECT_EQ(walk.visited, expected) << "order " << row.order;
    EXPECT_EQ(walk.nbPolls, 3);

    IxPixelIter<IxPixel<IxPixelCompFloat32, 1> const> const iter(IxReadGuard(tile), &region, row.order);
    int const xStep = row.xUp ? 4 : -4, yStep = row.yUp ? 64 : -64;
    EXPECT_EQ(iter.getMajorStep(), row.horizontal ? yStep : xStep);
    EXPECT_EQ(iter.getMinorStep(), row.horizontal ? xStep : yStep);
    EXPECT_EQ(iter.getMajorCount(), 3);
    EXPECT_EQ(iter.getMinorCount(), 3);
    EXPECT_EQ(iter.getLineAddress(), pixelAddress(tile, xs[0], ys[0]));
  }
}

TEST(IxPixelIter, RegionsAreClippedToTheTile) {
  GeRectangle<int> const tileRegion(-2, 3, -1, 2);
  IxTile const tile = makeCodedTile(tileRegion);
  Order const order = IxPixelIterBase::ORDER_H_XPOS_YPOS;

  Walk walk = walkConst(tile, nullptr, order);
  EXPECT_EQ(walk.visited.size(), 15u);
  EXPECT_EQ(walk.visited.front(), std::make_pair(-2, -1));
  EXPECT_EQ(walk.visited.back(), std::make_pair(2, 1));

  GeRectangle<int> const overhanging(0, 10, -5, 1);
  walk = walkConst(tile, &overhanging, order);
  EXPECT_EQ(walk.visited, (std::vector<std::pair<int, int>>{{0, -1}, {1, -1}, {2, -1}, {0, 0}, {1, 0}, {2, 0}}));
  EXPECT_EQ(walk.nbPolls, 2);

  // Beside the tile in x: rows overlap, so each of them is an empty line, polled once.
  GeRectangle<int> const right(5, 8, 0, 2);
  walk = walkConst(tile, &right, order);
  EXPECT_TRUE(walk.visited.empty());
  EXPECT_EQ(walk.nbPolls, 2);
  // Above the tile, and an empty request inside it: no line at all.
  GeRectangle<int> const above(0, 2, -10, -5), empty(1, 1, 0, 2);
  for (GeRectangle<int> const* region : {&above, &empty}) {
    walk = walkConst(tile, region, order);
    EXPECT_TRUE(walk.visited.empty());
    EXPECT_EQ(walk.nbPolls, 0);
  }
  // An empty request is placed at the tile's corner, even in a walk that counts columns.
  IxPixelIter<IxPixel<IxPixelCompFloat32, 1> const> const iter(IxReadGuard(tile), &empty,
                                                               IxPixelIterBase::ORDER_V_XPOS_YPOS);
  EXPECT_EQ(iter.getMajorCount(), 0);
  EXPECT_EQ(iter.getLineAddress(), pixelAddress(tile, -2, -1));
}

TEST(IxPixelIter, EmptyTilesRunNoPixelAndPollOncePerLine) {
  // Zero height: no line, no poll; the functor still comes and goes (checked in walkConst).
  Walk walk = walkConst(makeCodedTile(GeRectangle<int>(0, 5, 3, 3)), nullptr, IxPixelIterBase::ORDER_H_XPOS_YPOS);
  EXPECT_TRUE(walk.visited.empty());
  EXPECT_EQ(walk.nbPolls, 0);
  // Zero width, positive height: three empty lines.
  walk = walkConst(makeCodedTile(GeRectangle<int>(2, 2, 0, 3)), nullptr, IxPixelIterBase::ORDER_H_XNEG_YNEG);
  EXPECT_TRUE(walk.visited.empty());
  EXPECT_EQ(walk.nbPolls, 3);
}

TEST(IxPixelLoop, ThrowingPollStopsBetweenLinesWithEarlierLinesWritten) {
  GeRectangle<int> const region(0, 3, 0, 4);
  IxTile const tile = makeCodedTile(region);
  std::vector<std::pair<int, int>> visited;
  int nbLive = 0, nbPolls = 0;
  WalkArgs args;
  args.visited = &visited;
  args.nbLive = &nbLive;
  args.value = -1.f;
  {
    ScopedPollHook hook([&] {
      if (++nbPolls == 2) throw std::runtime_error("cancelled");
    });
    EXPECT_THROW(ixPixelLoopCompDepth<Recorder>(IxWriteGuard(tile), nullptr, IxPixelIterBase::ORDER_H_XPOS_YPOS, args),
                 std::runtime_error);
  }
  EXPECT_EQ(nbLive, 0);
  EXPECT_EQ(visited.size(), 6u);
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 3; ++x)
      EXPECT_EQ(std::bit_cast<float>(getRaw(tile, x, y, 0)), y < 2 ? -1.f : float((x + 50) * 100 + y + 50));
  // The hook is gone: polls no longer count.
  PxRequestMgr::getInstance().poll();
  EXPECT_EQ(nbPolls, 2);
}
