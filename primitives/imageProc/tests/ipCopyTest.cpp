// Whole-pixel moves: copy, zoom, format change, and the text form of ipPrint.

#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipCopy.h>
#include <orn/primitives/imageProc/ipFormatChange.h>
#include <orn/primitives/imageProc/ipPrint.h>
#include <orn/primitives/imageProc/ipZoom.h>

#include <sstream>

#include "ipOperatorTestUtil.h"

using namespace OrnTest;

TEST(IpCopy, CopiesRegionsOrReportsThatItCannot) {
  IxTile const src = makeTile(3, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 5, 0, 4));
  IxTile const dst = makeTile(3, IxPixelFormat::FLOAT16, GeRectangle<int>(-2, 4, -2, 4));
  fillPattern(src, 1);
  fillPattern(dst, 2);
  IxTile const before = copyOf(dst);
  GeRectangle<int> const from(1, 4, 1, 3), to(-2, 1, 0, 2);
  EXPECT_TRUE(ipCopy(IxWriteGuard(dst), IxReadGuard(src), &to, &from));
  for (int y = -2; y < 4; ++y)
    for (int x = -2; x < 4; ++x)
      for (int c = 0; c < 3; ++c)
        EXPECT_EQ(getRaw(dst, x, y, c), to.contains(x, y) ? getRaw(src, x + 3, y + 1, c) : getRaw(before, x, y, c));

  IxTile const copied = copyOf(dst);
  IxTile const other = makeTile(4, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 5, 0, 4));
  GeRectangle<int> const bigger(1, 5, 1, 3), outside(3, 6, 0, 2);
  EXPECT_FALSE(ipCopy(IxWriteGuard(dst), IxReadGuard(other), &to, &from));      // components
  EXPECT_FALSE(ipCopy(IxWriteGuard(dst), IxReadGuard(src), &to, &bigger));      // sizes
  EXPECT_FALSE(ipCopy(IxWriteGuard(dst), IxReadGuard(src), &outside, &from));   // outside dst
  EXPECT_FALSE(ipCopy(IxWriteGuard(dst), IxReadGuard(src), nullptr, nullptr));  // 6x6 from 5x4
  EXPECT_EQ(snapshot(dst), snapshot(copied));

  // Within one memory, down and to the right: every source pixel is read before it is overwritten.
  IxTile const tile = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 6, 0, 6));
  fillPattern(tile, 3);
  IxTile const original = copyOf(tile);
  GeRectangle<int> const a(0, 4, 0, 4), b(1, 5, 2, 6);
  EXPECT_TRUE(ipCopy(IxWriteGuard(tile), IxReadGuard(tile), &b, &a));
  for (int y = 2; y < 6; ++y)
    for (int x = 1; x < 5; ++x) EXPECT_EQ(getRaw(tile, x, y, 2), getRaw(original, x - 1, y - 2, 2));
  EXPECT_TRUE(ipCopy(IxWriteGuard(tile), IxReadGuard(tile), &a, &b));
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 4; ++x) EXPECT_EQ(getRaw(tile, x, y, 1), getRaw(original, x, y, 1));
}

TEST(IpZoom, NearestPixelUnderEachCentre) {
  IxTile const src = makeTile(1, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 4, 0, 2));
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 4; ++x) setValue(src, x, y, 0, float(10 * y + x));
  // Down by two in x and up by two in y: columns 1 and 3 (centres 1 and 3), rows 0, 0, 1, 1.
  IxTile const dst = makeTile(1, IxPixelFormat::FLOAT32, GeRectangle<int>(5, 7, 5, 9));
  ipZoom(IxWriteGuard(dst), IxReadGuard(src), nullptr, nullptr);
  std::vector<float> values;
  for (int y = 5; y < 9; ++y)
    for (int x = 5; x < 7; ++x) values.push_back(getValue(dst, x, y, 0));
  EXPECT_EQ(values, (std::vector<float>{1, 3, 1, 3, 11, 13, 11, 13}));
  // 2x2 onto 1x3: the centre column 1 of 2 is source column 2; row centres 1/3, 1 and 5/3 fall
  // in rows 0, 1, 1.
  GeRectangle<int> const from(1, 3, 0, 2), to(5, 6, 5, 8);
  ipZoom(IxWriteGuard(dst), IxReadGuard(src), &to, &from);
  EXPECT_EQ(getValue(dst, 5, 5, 0), 2.f);
  EXPECT_EQ(getValue(dst, 5, 6, 0), 12.f);
  EXPECT_EQ(getValue(dst, 5, 7, 0), 12.f);
  EXPECT_EQ(getValue(dst, 6, 5, 0), 3.f);
  GeRectangle<int> const outside(3, 6, 0, 1);
  EXPECT_EQ(failedCondition([&] { ipZoom(IxWriteGuard(dst), IxReadGuard(src), nullptr, &outside); }),
            "src.getPixelRegion().contains( srcRegion )");
}

TEST(IpFormatChange, ConvertsThroughTheRowRules) {
  IxTile const src = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 3, 0, 2));
  fillPattern(src, 1);
  IxTile const dst = makeTile(3, IxPixelFormat::FLOAT32, GeRectangle<int>(-1, 3, 0, 2));
  fillPattern(dst, 2);
  IxTile const before = copyOf(dst);
  GeRectangle<int> const region(1, 3, 0, 2);
  ipFormatChange(IxWriteGuard(dst), IxReadGuard(src), &region);
  for (int y = 0; y < 2; ++y)
    for (int x = -1; x < 3; ++x)
      for (int c = 0; c < 3; ++c)
        EXPECT_EQ(getValue(dst, x, y, c),
                  x >= 1 ? float(getRaw(src, x, y, c)) * 0.003921569f : getValue(before, x, y, c));
  // Back to bytes: the round trip is exact, and an alpha tile takes the alpha channel.
  IxTile const alpha = makeTile(1, IxPixelFormat::UINT8, GeRectangle<int>(0, 3, 0, 2));
  ipFormatChange(IxWriteGuard(alpha), IxReadGuard(src), nullptr);
  for (int x = 0; x < 3; ++x) EXPECT_EQ(getRaw(alpha, x, 1, 0), getRaw(src, x, 1, 3));
  EXPECT_EQ(failedCondition([&] { ipFormatChange(IxWriteGuard(dst), IxReadGuard(src), nullptr); }),
            "src.getPixelRegion().contains( region )");
}

TEST(IpPrint, BothFormsWalkTheClippedRegion) {
  IxTile const tile = makeTile(3, IxPixelFormat::UINT8, GeRectangle<int>(0, 3, 0, 2));
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 3; ++x)
      for (int c = 0; c < 3; ++c) setRaw(tile, x, y, c, std::uint32_t(100 * c + 10 * y + x));
  GeRectangle<int> const region(1, 5, 0, 2);
  std::ostringstream rows, pixels;
  ipPrint(rows, IxReadGuard(tile), "t", &region);
  EXPECT_EQ(rows.str(), "t: 3 x 8 bits, region [1, 3) x [0, 2)\ny 0: 1 101 201 | 2 102 202\ny 1: 11 111 211 | 12 112 212\n");
  ipPrint(IxReadGuard(tile), pixels, "t", &region);
  EXPECT_NE(pixels.str().find("\n(2, 1) = 12 112 212\n"), std::string::npos);
}
