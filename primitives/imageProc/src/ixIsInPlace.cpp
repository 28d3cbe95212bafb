#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixIsInPlace.h>

namespace Orn {

bool ixIsInPlace(IxTile const& dst, IxTile const& src, GeRectangle<int> const* dstRegion,
                 GeRectangle<int> const* srcRegion, IxPixelIterBase::Order& dstOrder,
                 IxPixelIterBase::Order& srcOrder) {
  using Base = IxPixelIterBase;
  if (!(dst == src)) return false;

  GeRectangle<int> const d = dstRegion ? *dstRegion : dst.getPixelRegion();
  GeRectangle<int> const s = srcRegion ? *srcRegion : src.getPixelRegion();
  ORN_ASSERT_TEXT(d.getDimensions() == s.getDimensions(), "dstRegion.getDimensions() == srcRegion.getDimensions()");

  bool inPlace = d == s;
  if (inPlace && dst.getRowBytes() != src.getRowBytes()) {
    // One memory under two strides: with the source's rows packed tighter, the destination's rows
    // run ahead of the source's, so the walk goes backwards through both.
    inPlace = false;
    if (src.getRowBytes() < dst.getRowBytes()) {
      Base::Order const reversed =
          Base::makeOrder(true, !Base::isIterOrderXPositive(dstOrder), !Base::isIterOrderYPositive(dstOrder));
      dstOrder = reversed;
      srcOrder = reversed;
    }
  }

  // A deliberately wide test: it only decides whether the orders are looked at, and saying yes
  // too often is safe.
  bool const overlap = d.x2() > s.x1() || (d.x1() < s.x2() && d.y2() > s.y1()) || s.y2() > d.y1();
  if (inPlace || !overlap) return inPlace;

  ORN_ASSERT_TEXT(dstOrder == srcOrder, "dstOrder == srcOrder");
  if (!Base::isIterOrderHorizontalMinor(dstOrder))
    Assertions::throwAssertionFailed(__FILE__, __LINE__, "IxPixelIterBase::isIterOrderHorizontalMinor( dstOrder )");

  bool const xPositive = Base::isIterOrderXPositive(dstOrder);
  bool const yPositive = Base::isIterOrderYPositive(dstOrder);
  if (s.y1() < d.y1()) {
    // The source starts above: walk rows from the bottom so that no source row is overwritten
    // before it has been read.
    dstOrder = srcOrder = Base::makeOrder(true, xPositive, !yPositive);
  } else if (s.y1() == d.y1() && s.x1() < d.x1()) {
    // Same rows, source to the left: walk each row from the right.
    dstOrder = srcOrder = Base::makeOrder(true, !xPositive, yPositive);
  }
  return inPlace;
}

}  // namespace Orn
