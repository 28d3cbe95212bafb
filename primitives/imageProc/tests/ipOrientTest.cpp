#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipOrient.h>

#include <functional>

#include "ipOperatorTestUtil.h"

using namespace OrnTest;

namespace {

// Where source pixel (i, j) of a w x h source lands, counted from the destination's corner, for
// each flip without and with transpose: the table of the header, written out independently.
std::pair<int, int> landing(bool transpose, int flip, int i, int j, int w, int h) {
  if (!transpose) {
    bool const reverseX = flip == 1 || flip == 2, reverseY = flip == 0 || flip == 2;
    return {reverseX ? w - 1 - i : i, reverseY ? h - 1 - j : j};
  }
  // The destination is h wide and w high.
  bool const reverseX = flip == 1 || flip == 2, reverseY = flip == 1 || flip == 3;
  return {reverseX ? h - 1 - j : j, reverseY ? w - 1 - i : i};
}

void expectOriented(IxTile const& dst, IxTile const& src, bool transpose, int flip) {
  GeRectangle<int> const& s = src.getPixelRegion();
  GeRectangle<int> const& d = dst.getPixelRegion();
  for (int j = 0; j < s.getHeight(); ++j)
    for (int i = 0; i < s.getWidth(); ++i) {
      auto [x, y] = landing(transpose, flip, i, j, s.getWidth(), s.getHeight());
      for (int c = 0; c < src.getPixelFormat().getComps(); ++c)
        ASSERT_EQ(getRaw(dst, d.x1() + x, d.y1() + y, c), getRaw(src, s.x1() + i, s.y1() + j, c))
            << "source " << i << "," << j;
    }
}

}  // namespace

TEST(IpOrient, EveryFlipWithAndWithoutTransposeInEveryFormat) {
  // 37 x 21 crosses the bands and blocks of the transposing walk with partial ones.
  GeRectangle<int> const srcRegion(-5, 32, 3, 24), same(0, 37, 0, 21), turned(7, 28, -2, 35);
  for (int comps : {1, 3, 4})
    for (IxPixelFormat::Depth depth : DEPTHS)
      for (bool transpose : {false, true})
        for (int flip = 0; flip < 4; ++flip) {
          SCOPED_TRACE(testing::Message() << comps << " " << depth << " transpose " << transpose << " flip " << flip);
          IxTile const src = makeTile(comps, depth, srcRegion);
          fillPattern(src, 1);
          IxTile const dst = makeTile(comps, depth, transpose ? turned : same);
          ipOrient(IxWriteGuard(dst), IxReadGuard(src), transpose, IpFlip(flip));
          expectOriented(dst, src, transpose, flip);
        }
}

TEST(IpOrient, RotationsAndRotateFlipComposeAsTurnThenFlip) {
  IxTile const src = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 3, 0, 2));
  fillPattern(src, 2);
  // Quarter turns on the y-down grid: (i, j) -> (j, h - 1 - i) for 90, where h = 3.
  IxTile const turned = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 2, 0, 3));
  ipRotate(IxWriteGuard(turned), IxReadGuard(src), IP_ROTATE_90);
  for (int c = 0; c < 4; ++c) {
    EXPECT_EQ(getRaw(turned, 0, 2, c), getRaw(src, 0, 0, c));
    EXPECT_EQ(getRaw(turned, 1, 0, c), getRaw(src, 2, 1, c));
  }
  IxTile const twice = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 3, 0, 2));
  IxTile const half = copyOf(twice);
  ipRotate(IxWriteGuard(twice), IxReadGuard(turned), IP_ROTATE_90);
  ipRotate(IxWriteGuard(half), IxReadGuard(src), IP_ROTATE_180);
  EXPECT_EQ(snapshot(twice), snapshot(half));

  // ipRotateFlip(r, f) is the turn r followed by the flip f of the turned image.
  for (int r = 0; r < 4; ++r)
    for (int f = 0; f < 4; ++f) {
      SCOPED_TRACE(testing::Message() << "rotate " << r << " flip " << f);
      GeRectangle<int> const region = r % 2 ? GeRectangle<int>(0, 2, 0, 3) : GeRectangle<int>(0, 3, 0, 2);
      IxTile const step = makeTile(4, IxPixelFormat::UINT8, region), expected = copyOf(step), actual = copyOf(step);
      ipRotate(IxWriteGuard(step), IxReadGuard(src), IpRotate(r));
      ipFlip(IxWriteGuard(expected), IxReadGuard(step), IpFlip(f));
      ipRotateFlip(IxWriteGuard(actual), IxReadGuard(src), IpRotate(r), IpFlip(f));
      EXPECT_EQ(snapshot(actual), snapshot(expected));
    }
}

TEST(IpOrient, FormatAndDimensionsCheckedBeforeAnyPixelChanges) {
  IxTile const src = makeTile(3, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 3, 0, 2));
  IxTile const dst = makeTile(3, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 3, 0, 2));
  IxTile const dst8 = makeTile(3, IxPixelFormat::UINT8, GeRectangle<int>(0, 3, 0, 2));
  fillPattern(src, 1);
  fillPattern(dst, 2);
  std::vector<std::uint32_t> const before = snapshot(dst);
  EXPECT_EQ(failedCondition([&] { ipFlip(IxWriteGuard(dst8), IxReadGuard(src), IP_FLIP_X); }),
            "dst.getTile().getPixelFormat() == src.getTile().getPixelFormat()");
  // A quarter turn needs the transposed dimensions.
  EXPECT_EQ(failedCondition([&] { ipRotate(IxWriteGuard(dst), IxReadGuard(src), IP_ROTATE_90); }),
            "d.getWidth() == s.getHeight() && d.getHeight() == s.getWidth()");
  EXPECT_EQ(snapshot(dst), before);
  EXPECT_THROW(ipFlip(IxWriteGuard(dst), IxReadGuard(src), IpFlip(4)), AssertionsEx::ExProgramAborted);
  EXPECT_EQ(snapshot(dst), before);
}
