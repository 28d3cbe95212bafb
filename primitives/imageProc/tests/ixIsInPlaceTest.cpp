#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ixIsInPlace.h>

#include <string>

#include "ixPixelLoopTestUtil.h"

using namespace Orn;
using namespace OrnTest;
using Order = IxPixelIterBase::Order;

namespace {

struct Result {
  bool inPlace = false;
  Order dstOrder, srcOrder;
  std::string failedCondition;
};

Result check(IxTile const& dst, IxTile const& src, GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion,
             int dstOrder, int srcOrder) {
  Result r;
  r.dstOrder = Order(dstOrder);
  r.srcOrder = Order(srcOrder);
  try {
    r.inPlace = ixIsInPlace(dst, src, dstRegion, srcRegion, r.dstOrder, r.srcOrder);
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    r.failedCondition = e.getCondition();
  }
  return r;
}

void expectOrders(Result const& r, int dstOrder, int srcOrder) {
  EXPECT_FALSE(r.inPlace);
  EXPECT_EQ(r.failedCondition, "");
  EXPECT_EQ(int(r.dstOrder), dstOrder);
  EXPECT_EQ(int(r.srcOrder), srcOrder);
}

}  // namespace

TEST(IxIsInPlace, DifferentTilesAndIdenticalWalks) {
  IxTile const a = makeTile(IxPixelFormat::RGBA, IxPixelFormat::UINT8, GeRectangle<int>(0, 8, 0, 6));
  IxTile const b = makeTile(IxPixelFormat::RGBA, IxPixelFormat::UINT8, GeRectangle<int>(0, 8, 0, 6));
  // Other memory: no look at the regions, however different, nor at the orders.
  GeRectangle<int> const small(0, 1, 0, 1);
  expectOrders(check(a, b, &small, nullptr, 5, 2), 5, 2);
  // Same pixels, same region, same stride.
  IxTile const copy = a;
  GeRectangle<int> const region(1, 4, 2, 5);
  Result r = check(a, copy, nullptr, nullptr, 3, 6);
  EXPECT_TRUE(r.inPlace);
  EXPECT_EQ(r.dstOrder, 3);
  EXPECT_EQ(r.srcOrder, 6);
  EXPECT_TRUE(check(a, copy, &region, &region, 0, 0).inPlace);
  // Regions of different sizes over one memory raise.
  GeRectangle<int> const wider(1, 5, 2, 5);
  EXPECT_EQ(check(a, a, &wider, &region, 0, 0).failedCondition,
            "dstRegion.getDimensions() == srcRegion.getDimensions()");
}

TEST(IxIsInPlace, DifferentStridesOverOneMemoryReverseOnlyForTheTighterSource) {
  GeRectangle<int> const region(0, 4, 0, 3);
  IxTile const wide = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32, region, 128);
  IxTile const tight = wide.createView(wide.getPixelFormat(), region, 64);
  ASSERT_TRUE(wide == tight);
  // Source rows packed tighter: the full reverse of the destination's order, as rows.
  expectOrders(check(wide, tight, nullptr, nullptr, 0, 0), 3, 3);
  expectOrders(check(wide, tight, nullptr, nullptr, 1, 6), 2, 2);
  expectOrders(check(wide, tight, nullptr, nullptr, 6, 0), 2, 2);
  // Source rows further apart: forward is safe, the orders stay, and they must agree.
  expectOrders(check(tight, wide, nullptr, nullptr, 2, 2), 2, 2);
  EXPECT_EQ(check(tight, wide, nullptr, nullptr, 0, 1).failedCondition, "dstOrder == srcOrder");
}

TEST(IxIsInPlace, OverlappingRegionsOfOneTileGetSafeOrders) {
  IxTile const tile = makeTile(IxPixelFormat::RGB, IxPixelFormat::FLOAT16, GeRectangle<int>(-4, 4, -3, 3));
  GeRectangle<int> const src(-3, 0, -2, 1);
  GeRectangle<int> const below(-3, 0, -1, 2), right(-2, 1, -2, 1), left(-4, -1, -2, 1), upRight(-2, 1, -3, 0);
  // Source above the destination: rows from the bottom, x run kept.
  expectOrders(check(tile, tile, &below, &src, 0, 0), 1, 1);
  expectOrders(check(tile, tile, &below, &src, 2, 2), 3, 3);
  // Same rows, source to the left: each row from the right, y run kept.
  expectOrders(check(tile, tile, &right, &src, 0, 0), 2, 2);
  expectOrders(check(tile, tile, &right, &src, 1, 1), 3, 3);
  // Source below, or on the same rows to the right: forward walks are safe.
  expectOrders(check(tile, tile, &src, &below, 0, 0), 0, 0);
  expectOrders(check(tile, tile, &left, &src, 0, 0), 0, 0);
  expectOrders(check(tile, tile, &upRight, &src, 0, 0), 0, 0);
  // Overlapping walks must agree and be horizontal minor.
  EXPECT_EQ(check(tile, tile, &below, &src, 0, 1).failedCondition, "dstOrder == srcOrder");
  EXPECT_EQ(check(tile, tile, &below, &src, 4, 4).failedCondition,
            "IxPixelIterBase::isIterOrderHorizontalMinor( dstOrder )");
  // The overlap test is wide: disjoint regions still count when the source ends below the
  // destination's top...
  GeRectangle<int> const far(1, 4, 1, 4);
  EXPECT_EQ(check(tile, tile, &src, &far, 7, 7).failedCondition,
            "IxPixelIterBase::isIterOrderHorizontalMinor( dstOrder )");
  // ...and only rows of no height side by side escape it.
  GeRectangle<int> const flatLeft(-4, -2, 0, 0), flatRight(0, 2, 0, 0);
  expectOrders(check(tile, tile, &flatLeft, &flatRight, 7, 7), 7, 7);
}
