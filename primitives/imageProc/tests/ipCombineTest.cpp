// Channel operators: combine, separate, combine with alpha, and the constant fill.

#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipCombine.h>
#include <orn/primitives/imageProc/ipCombineRGBWithA.h>
#include <orn/primitives/imageProc/ipSeparate.h>
#include <orn/primitives/imageProc/ipSet.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

#include "ipOperatorTestUtil.h"

using namespace OrnTest;

namespace {

GeRectangle<int> const REGION(0, 3, 0, 2);

}  // namespace

TEST(IpCombine, CopiesFourPlanesRawAndChecksDepthsThenComps) {
  for (IxPixelFormat::Depth depth : DEPTHS) {
    IxTile planes[4] = {makeTile(1, depth, REGION), makeTile(1, depth, REGION), makeTile(1, depth, REGION),
                        makeTile(1, depth, REGION)};
    for (int p = 0; p < 4; ++p) fillPattern(planes[p], p);
    IxTile const dst = makeTile(4, depth, REGION);
    ipCombine(IxWriteGuard(dst), IxReadGuard(planes[0]), IxReadGuard(planes[1]), IxReadGuard(planes[2]),
              IxReadGuard(planes[3]), nullptr, nullptr, nullptr, nullptr, nullptr);
    for (int y = 0; y < 2; ++y)
      for (int x = 0; x < 3; ++x)
        for (int c = 0; c < 4; ++c) EXPECT_EQ(getRaw(dst, x, y, c), getRaw(planes[c], x, y, 0));
  }
  IxTile const a8 = makeTile(1, IxPixelFormat::UINT8, REGION), a32 = makeTile(1, IxPixelFormat::FLOAT32, REGION);
  IxTile const rgba8 = makeTile(4, IxPixelFormat::UINT8, REGION), rgb8 = makeTile(3, IxPixelFormat::UINT8, REGION);
  fillPattern(rgba8, 3);
  std::vector<std::uint32_t> const before = snapshot(rgba8);
  auto combine = [](IxTile const& d, IxTile const& r, IxTile const& g, IxTile const& b, IxTile const& a) {
    return failedCondition([&] {
      ipCombine(IxWriteGuard(d), IxReadGuard(r), IxReadGuard(g), IxReadGuard(b), IxReadGuard(a), nullptr, nullptr,
                nullptr, nullptr, nullptr);
    });
  };
  std::string const depths =
      "dst.getTile().getPixelFormat().getDepth() == srcR.getTile().getPixelFormat().getDepth() && "
      "srcR.getTile().getPixelFormat().getDepth() == srcG.getTile().getPixelFormat().getDepth() && "
      "srcG.getTile().getPixelFormat().getDepth() == srcB.getTile().getPixelFormat().getDepth()";
  std::string const comps =
      "dst.getTile().getPixelFormat().getComps() == 4 && srcR.getTile().getPixelFormat().getComps() == 1 && "
      "srcG.getTile().getPixelFormat().getComps() == 1 && srcB.getTile().getPixelFormat().getComps() == 1 && "
      "srcA.getTile().getPixelFormat().getComps() == 1";
  EXPECT_EQ(combine(rgba8, a8, a8, a32, a8), depths);
  EXPECT_EQ(combine(rgb8, a8, a8, a8, a8), comps);
  EXPECT_EQ(combine(rgba8, a8, a8, a8, rgb8), comps);
  EXPECT_EQ(snapshot(rgba8), before);
  // Alpha's depth is not compared.
  EXPECT_EQ(combine(rgba8, a8, a8, a8, a8), "");
}

TEST(IpSeparate, WritesTheChosenChannelsAndZeroesTheOthers) {
  for (IxPixelFormat::Depth depth : DEPTHS)
    for (int comps : {3, 4}) {
      IxTile const src = makeTile(1, depth, REGION), dst = makeTile(comps, depth, REGION);
      fillPattern(src, 1);
      unsigned const masks[] = {0x1, 0x2, 0x4, 0x8, 0xF};
      for (int which = 0; which < 5; ++which) {
        fillPattern(dst, 2);  // nothing of the old pixels survives
        ipSeparate(IxWriteGuard(dst), IxReadGuard(src), Separate(which), nullptr, nullptr);
        for (int y = 0; y < 2; ++y)
          for (int x = 0; x < 3; ++x)
            for (int c = 0; c < comps; ++c)
              EXPECT_EQ(getRaw(dst, x, y, c), (masks[which] >> c) & 1u ? getRaw(src, x, y, 0) : 0u)
                  << depth << " " << comps << " which " << which << " comp " << c;
      }
    }
  IxTile const a8 = makeTile(1, IxPixelFormat::UINT8, REGION), a16 = makeTile(1, IxPixelFormat::FLOAT16, REGION);
  IxTile const rgba8 = makeTile(4, IxPixelFormat::UINT8, REGION);
  auto separate = [](IxTile const& d, IxTile const& s) {
    return failedCondition([&] { ipSeparate(IxWriteGuard(d), IxReadGuard(s), SEPARATE_ALL, nullptr, nullptr); });
  };
  EXPECT_EQ(separate(rgba8, a16), "dstImage.getTile().getPixelFormat().getDepth() == srcImage.getTile().getPixelFormat().getDepth()");
  EXPECT_EQ(separate(a8, a8), "dstNbComp >= 3");
  EXPECT_EQ(separate(rgba8, rgba8), "srcImage.getTile().getPixelFormat().getComps() == 1");
}

TEST(IpCombineRGBWithA, ColourOfOneTileAlphaOfAnother) {
  IxScanlineImpFactories::install();
  IxTile const rgb = makeTile(4, IxPixelFormat::UINT8, REGION), alpha = makeTile(1, IxPixelFormat::UINT8, REGION);
  IxTile const dst = makeTile(4, IxPixelFormat::UINT8, REGION);
  fillPattern(rgb, 1);
  fillPattern(alpha, 2);
  ipCombineRGBWithA(IxWriteGuard(dst), IxReadGuard(rgb), IxReadGuard(alpha));
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 3; ++x) {
      for (int c = 0; c < 3; ++c) EXPECT_EQ(getRaw(dst, x, y, c), getRaw(rgb, x, y, c));
      EXPECT_EQ(getRaw(dst, x, y, 3), getRaw(alpha, x, y, 0));
    }
  // Mixed depths go through float: an RGB alpha source gives 1, a source that misses gives 0.
  IxTile const dstFloat = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 4, 0, 2));
  IxTile const opaque = makeTile(3, IxPixelFormat::FLOAT16, REGION);
  ipCombineRGBWithA(IxWriteGuard(dstFloat), IxReadGuard(rgb), IxReadGuard(opaque));
  EXPECT_EQ(getValue(dstFloat, 1, 1, 0), float(getRaw(rgb, 1, 1, 0)) * 0.003921569f);
  EXPECT_EQ(getValue(dstFloat, 1, 1, 3), 1.f);
  EXPECT_EQ(getValue(dstFloat, 3, 1, 3), 0.f);
  EXPECT_EQ(getValue(dstFloat, 3, 1, 1), 0.f);
}

TEST(IpSet, RoundsBytesOnceAndKeepsTheChannelsOfTheTile) {
  IxTile const rgba = makeTile(4, IxPixelFormat::UINT8, REGION), rgb = makeTile(3, IxPixelFormat::FLOAT16, REGION);
  IxTile const alpha = makeTile(1, IxPixelFormat::FLOAT32, REGION);
  GeRectangle<int> const part(1, 9, 1, 9);  // clipped to the tile
  fillPattern(rgba, 1);
  std::vector<std::uint32_t> const before = snapshot(rgba);
  // 0.5 * 255 + 0.5 = 128; 1.2 clamps to 255; -0.1 clamps to 0; 0.001 gives 0.755, truncated to 0.
  ipSet(IxWriteGuard(rgba), CoRgbaColorTyped<float>(0.5f, 1.2f, -0.1f, 0.001f), &part);
  std::uint32_t const stored[] = {128, 255, 0, 0};
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 3; ++x)
      for (int c = 0; c < 4; ++c)
        EXPECT_EQ(getRaw(rgba, x, y, c), x >= 1 && y >= 1 ? stored[c]
                                                          : before[std::size_t((y * 3 + x) * 4 + c)]);
  IxPixel<IxPixelCompFloat32, 4> colour;
  for (int c = 0; c < 4; ++c) colour[c].value = 0.25f * float(c + 1);
  ipSet(IxWriteGuard(rgb), colour, nullptr);
  ipSet(IxWriteGuard(alpha), colour, nullptr);
  std::vector<std::uint32_t> halves;
  for (int i = 0; i < 6; ++i)
    for (float f : {0.25f, 0.5f, 0.75f}) halves.push_back(Half::fromFloat(f));
  EXPECT_EQ(snapshot(rgb), halves);
  EXPECT_EQ(snapshot(alpha), std::vector<std::uint32_t>(6, std::bit_cast<std::uint32_t>(1.f)));
}
