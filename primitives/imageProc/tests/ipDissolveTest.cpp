#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipDissolve.h>

#include "ipOperatorTestUtil.h"

using namespace OrnTest;

namespace {

GeRectangle<int> const REGION(0, 3, 0, 2);

}  // namespace

TEST(IpDissolve, EndFactorsGiveEitherSourceExactlyInEveryFormat) {
  for (int comps : {1, 3, 4})
    for (IxPixelFormat::Depth depth : DEPTHS) {
      SCOPED_TRACE(testing::Message() << "comps " << comps << " depth " << depth);
      IxTile const a = makeTile(comps, depth, REGION), b = makeTile(comps, depth, REGION);
      IxTile const dst = makeTile(comps, depth, REGION);
      fillPattern(a, 1);
      fillPattern(b, 2);
      ipDissolve(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(b), 1.f, nullptr, nullptr, nullptr);
      EXPECT_EQ(snapshot(dst), snapshot(a));
      ipDissolve(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(b), 0.f, nullptr, nullptr, nullptr);
      EXPECT_EQ(snapshot(dst), snapshot(b));
    }
}

TEST(IpDissolve, BytesTruncateAndWrapWithoutClamp) {
  IxTile const a = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 1, 0, 1));
  IxTile const b = copyOf(a), dst = copyOf(a);
  std::uint32_t const av[] = {1, 200, 10, 255}, bv[] = {2, 0, 0, 255};
  for (int c = 0; c < 4; ++c) setRaw(a, 0, 0, c, av[c]), setRaw(b, 0, 0, c, bv[c]);
  // 0.5 of 1 and 2 is 1.5, stored as 1; alpha mixes like a colour.
  ipDissolve(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(b), 0.5f, nullptr, nullptr, nullptr);
  EXPECT_EQ(snapshot(dst), (std::vector<std::uint32_t>{1, 100, 5, 255}));
  // Factor 2: 2 * 200 = 400 keeps its low byte (144); 2 * 10 - 0 = 20; 2 * 1 - 2 = 0;
  // 255 * 2 - 255 = 255.
  ipDissolve(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(b), 2.f, nullptr, nullptr, nullptr);
  EXPECT_EQ(snapshot(dst), (std::vector<std::uint32_t>{0, 144, 20, 255}));
  // Factor -1: -10 truncates to -10, whose low byte is 246; -1 + 2 * 2 = 3.
  ipDissolve(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(b), -1.f, nullptr, nullptr, nullptr);
  EXPECT_EQ(snapshot(dst), (std::vector<std::uint32_t>{3, 56, 246, 255}));
}

TEST(IpDissolve, FormatsAreCheckedFirstAndRegionsCutToTheirCommonSize) {
  IxTile const a = makeTile(3, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 4, 0, 4));
  IxTile const b = makeTile(3, IxPixelFormat::FLOAT32, GeRectangle<int>(10, 12, 10, 13));
  IxTile const dst = makeTile(3, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 5, 0, 5));
  IxTile const other = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 4, 0, 4));
  fillPattern(a, 1);
  fillPattern(b, 2);
  fillPattern(dst, 3);
  IxTile const before = copyOf(dst);
  char const* const condition =
      "dst.getTile().getPixelFormat() == src0.getTile().getPixelFormat() && "
      "dst.getTile().getPixelFormat() == src1.getTile().getPixelFormat()";
  EXPECT_EQ(failedCondition([&] {
              ipDissolve(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(other), 0.5f, nullptr, nullptr, nullptr);
            }),
            condition);
  EXPECT_EQ(snapshot(dst), snapshot(before));

  // a's region clips to 3x3 at (1, 1), b's whole tile is 2x3: the walk covers 2x3 pixels.
  GeRectangle<int> const dstRegion(1, 5, 1, 5), aRegion(1, 9, 1, 9);
  ipDissolve(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(b), 0.f, &dstRegion, &aRegion, nullptr);
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 5; ++x)
      for (int c = 0; c < 3; ++c) {
        bool const inside = x >= 1 && x < 3 && y >= 1 && y < 4;
        EXPECT_EQ(getRaw(dst, x, y, c), inside ? getRaw(b, x + 9, y + 9, c) : getRaw(before, x, y, c));
      }
}
