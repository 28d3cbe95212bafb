#pragma once
// Orders in which a pixel loop walks a region, and the clipping of a requested region to a tile.
// A walk has a major direction (the outer loop, one step per line) and a minor direction (the
// inner loop, one step per pixel).

#include <orn/base/geometryBase/geRectangle.h>

#include <algorithm>
#include <cstdint>

namespace Orn {

class IxPixelIterBase {
 public:
  // H orders walk rows (x minor), V orders walk columns (y minor). POS runs upward, NEG downward.
  // 5 and 6 do not follow the pattern of 1 and 2: the bit masks below encode the table.
  enum Order : std::int32_t {
    ORDER_H_XPOS_YPOS = 0,
    ORDER_H_XPOS_YNEG = 1,
    ORDER_H_XNEG_YPOS = 2,
    ORDER_H_XNEG_YNEG = 3,
    ORDER_V_XPOS_YPOS = 4,
    ORDER_V_XNEG_YPOS = 5,
    ORDER_V_XPOS_YNEG = 6,
    ORDER_V_XNEG_YNEG = 7
  };

  // Orders 0 to 3. Orders of 64 or more test false here and in the two tests below.
  static bool isIterOrderHorizontalMinor(Order order) { return testBit(0x0F, order); }
  // x runs upward: orders 0, 1, 4, 6.
  static bool isIterOrderXPositive(Order order) { return testBit(0x53, order); }
  // y runs upward: orders 0, 2, 4, 5.
  static bool isIterOrderYPositive(Order order) { return testBit(0x35, order); }

  // The order with the given minor direction and runs.
  static Order makeOrder(bool horizontalMinor, bool xPositive, bool yPositive) {
    if (horizontalMinor) return Order((xPositive ? 0 : 2) + (yPositive ? 0 : 1));
    if (yPositive) return xPositive ? ORDER_V_XPOS_YPOS : ORDER_V_XNEG_YPOS;
    return xPositive ? ORDER_V_XPOS_YNEG : ORDER_V_XNEG_YNEG;
  }
  // The horizontal-minor order with the runs of the given order.
  static Order makeHorizontalOrder(Order order) {
    return makeOrder(true, isIterOrderXPositive(order), isIterOrderYPositive(order));
  }

  // The region a loop walks for a requested region on a tile. Null means the whole tile. A tile
  // region that is empty is kept as it is; an empty request becomes an empty region at the tile's
  // corner; otherwise each axis is clipped so that min <= max and both lie in the tile where the
  // request overlaps it (a request beside the tile collapses to zero extent).
  static GeRectangle<int> clipRegion(GeRectangle<int> const& tileRegion, GeRectangle<int> const* region) {
    if (!region) return tileRegion;
    if (tileRegion.isEmpty()) return tileRegion;
    if (region->isEmpty()) return GeRectangle<int>(tileRegion.x1(), tileRegion.x1(), tileRegion.y1(), tileRegion.y1());
    int const x1 = std::max(region->x1(), tileRegion.x1());
    int const x2 = std::max(x1, std::min(region->x2(), tileRegion.x2()));
    int const y1 = std::max(region->y1(), tileRegion.y1());
    int const y2 = std::max(y1, std::min(region->y2(), tileRegion.y2()));
    return GeRectangle<int>(x1, x2, y1, y2);
  }

 private:
  // The masks are 64 bits wide; negative orders read as large unsigned values.
  static bool testBit(std::uint64_t mask, Order order) {
    std::uint32_t const value = std::uint32_t(order);
    return value < 64 && ((mask >> value) & 1u) != 0;
  }
};

}  // namespace Orn
