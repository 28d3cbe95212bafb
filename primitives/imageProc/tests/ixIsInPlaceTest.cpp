#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ixIsInPlace.h>

#include <string>
#include <tuple>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;

namespace {

// In place, the orders afterwards, and the condition of a failed assertion.
using Outcome = std::tuple<bool, int, int, std::string>;

Outcome check(IxTile const& dst, IxTile const& src, GeRectangle<int> const* dstRegion,
              GeRectangle<int> const* srcRegion, int dstOrder, int srcOrder) {
  auto d = IxPixelIterBase::Order(dstOrder), s = IxPixelIterBase::Order(srcOrder);
  try {
    bool const inPlace = ixIsInPlace(dst, src, dstRegion, srcRegion, d, s);
    return {inPlace, d, s, ""};
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    return {false, d, s, e.getCondition()};
  }
}

Outcome orders(int dstOrder, int srcOrder) { return {false, dstOrder, srcOrder, ""}; }
Outcome failed(int dstOrder, int srcOrder, char const* condition) { return {false, dstOrder, srcOrder, condition}; }

char const* const HORIZONTAL = "IxPixelIterBase::isIterOrderHorizontalMinor( dstOrder )";
char const* const SAME_ORDER = "dstOrder == srcOrder";

}  // namespace

TEST(IxIsInPlace, DifferentTilesAndIdenticalWalks) {
  IxTile const a = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 8, 0, 6));
  IxTile const b = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 8, 0, 6));
  GeRectangle<int> const small(0, 1, 0, 1), region(1, 4, 2, 5), wider(1, 5, 2, 5);
  // Other memory: neither the regions, however different, nor the orders are looked at.
  EXPECT_EQ(check(a, b, &small, nullptr, 5, 2), orders(5, 2));
  // Same pixels, same region, same stride.
  EXPECT_EQ(check(a, IxTile(a), nullptr, nullptr, 3, 6), Outcome(true, 3, 6, ""));
  EXPECT_EQ(check(a, a, &region, &region, 0, 0), Outcome(true, 0, 0, ""));
  EXPECT_EQ(check(a, a, &wider, &region, 0, 0), failed(0, 0, "dstRegion.getDimensions() == srcRegion.getDimensions()"));
}

TEST(IxIsInPlace, DifferentStridesOverOneMemoryReverseOnlyForTheTighterSource) {
  GeRectangle<int> const region(0, 4, 0, 3);
  IxTile const wide = makeTile(1, IxPixelFormat::FLOAT32, region, 128);
  IxTile const tight = wide.createView(wide.getPixelFormat(), region, 64);
  // Source rows packed tighter: the full reverse of the destination's order, as rows.
  EXPECT_EQ(check(wide, tight, nullptr, nullptr, 0, 0), orders(3, 3));
  EXPECT_EQ(check(wide, tight, nullptr, nullptr, 1, 6), orders(2, 2));
  EXPECT_EQ(check(wide, tight, nullptr, nullptr, 6, 0), orders(2, 2));
  // Source rows further apart: forward is safe, the orders stay, and they must agree.
  EXPECT_EQ(check(tight, wide, nullptr, nullptr, 2, 2), orders(2, 2));
  EXPECT_EQ(check(tight, wide, nullptr, nullptr, 0, 1), failed(0, 1, SAME_ORDER));
}

TEST(IxIsInPlace, OverlappingRegionsOfOneTileGetSafeOrders) {
  IxTile const tile = makeTile(3, IxPixelFormat::FLOAT16, GeRectangle<int>(-4, 4, -3, 3));
  GeRectangle<int> const src(-3, 0, -2, 1);
  GeRectangle<int> const below(-3, 0, -1, 2), right(-2, 1, -2, 1), left(-4, -1, -2, 1), upRight(-2, 1, -3, 0);
  // Source above the destination: rows from the bottom, x run kept.
  EXPECT_EQ(check(tile, tile, &below, &src, 0, 0), orders(1, 1));
  EXPECT_EQ(check(tile, tile, &below, &src, 2, 2), orders(3, 3));
  // Same rows, source to the left: each row from the right, y run kept.
  EXPECT_EQ(check(tile, tile, &right, &src, 0, 0), orders(2, 2));
  EXPECT_EQ(check(tile, tile, &right, &src, 1, 1), orders(3, 3));
  // Source below, or on the same rows to the right: forward walks are safe.
  EXPECT_EQ(check(tile, tile, &src, &below, 0, 0), orders(0, 0));
  EXPECT_EQ(check(tile, tile, &left, &src, 0, 0), orders(0, 0));
  EXPECT_EQ(check(tile, tile, &upRight, &src, 0, 0), orders(0, 0));
  // Overlapping walks must agree and be horizontal minor.
  EXPECT_EQ(check(tile, tile, &below, &src, 0, 1), failed(0, 1, SAME_ORDER));
  EXPECT_EQ(check(tile, tile, &below, &src, 4, 4), failed(4, 4, HORIZONTAL));
  // The overlap test is wide: disjoint regions count when the source ends below the
  // destination's top, and only rows of no height side by side escape it.
  GeRectangle<int> const far(1, 4, 1, 4), flatLeft(-4, -2, 0, 0), flatRight(0, 2, 0, 0);
  EXPECT_EQ(check(tile, tile, &src, &far, 7, 7), failed(7, 7, HORIZONTAL));
  EXPECT_EQ(check(tile, tile, &flatLeft, &flatRight, 7, 7), orders(7, 7));
}
