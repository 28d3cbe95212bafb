#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipAdd.h>
#include <orn/primitives/imageProc/ipSubtract.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;

namespace {

// Component c of a pixel as the float scanlines see it: a one-component pixel as (0, 0, 0, v),
// an RGB pixel with alpha 1.
float valueAt(IxTile const& tile, int x, int y, int c) {
  int const comps = tile.getPixelFormat().getComps();
  if (comps == 1 && c < 3) return 0.f;
  if (comps == 3 && c == 3) return 1.f;
  std::uint32_t const raw = getRaw(tile, x, y, comps == 1 ? 0 : c);
  switch (tile.getPixelFormat().getDepth()) {
    case IxPixelFormat::UINT8: return IxPixelCompUInt8::toFloat(std::uint8_t(raw));
    case IxPixelFormat::FLOAT16: return Half::toFloat(Half::Bits(raw));
    default: return std::bit_cast<float>(raw);
  }
}

std::uint32_t stored(IxPixelFormat::Depth depth, float v) {
  switch (depth) {
    // Sums of bytes land within rounding noise of a whole byte, away from any tie.
    case IxPixelFormat::UINT8: return std::uint32_t(std::clamp(std::lround(v * 255.f), 0l, 255l));
    case IxPixelFormat::FLOAT16: return Half::fromFloat(v);
    default: return std::bit_cast<std::uint32_t>(v);
  }
}

// Runs the operator over region and checks every pixel of dst against the sum or difference of
// the sources inside it, and against its old contents outside.
void expectCombined(IxTile const& dst, IxTile const& a, IxTile const& b, GeRectangle<int> const& region, bool add) {
  fillPattern(dst, 0);
  fillPattern(a, 1);
  fillPattern(b, 2);
  std::vector<std::uint32_t> const before = snapshot(dst);
  GeRectangle<int> const* rgn = region == dst.getPixelRegion() ? nullptr : &region;
  (add ? ipAdd : ipSubtract)(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(b), rgn);
  GeRectangle<int> const& r = dst.getPixelRegion();
  int const comps = dst.getPixelFormat().getComps();
  std::size_t i = 0;
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x)
      for (int c = 0; c < comps; ++c, ++i) {
        std::uint32_t expected = before[i];
        if (region.contains(x, y)) {
          int const channel = comps == 1 ? 3 : c;
          float const va = valueAt(a, x, y, channel), vb = valueAt(b, x, y, channel);
          expected = stored(dst.getPixelFormat().getDepth(), add ? va + vb : va - vb);
        }
        ASSERT_EQ(getRaw(dst, x, y, c), expected) << x << "," << y << " comp " << c << (add ? " add" : " subtract");
      }
}

class IpAdd : public testing::Test {
 protected:
  void SetUp() override { IxScanlineImpFactories::install(); }
};

}  // namespace

TEST_F(IpAdd, SameLayoutsInEveryDepth) {
  GeRectangle<int> const region(-2, 3, 1, 4);
  for (int comps : {1, 3, 4})
    for (IxPixelFormat::Depth depth : DEPTHS)
      for (bool add : {true, false}) {
        SCOPED_TRACE(testing::Message() << "comps " << comps << " depth " << depth);
        IxTile const dst = makeTile(comps, depth, GeRectangle<int>(-3, 4, 0, 5));
        IxTile const a = makeTile(comps, depth, region, 256);
        IxTile const b = makeTile(comps, depth, GeRectangle<int>(-2, 5, -1, 4));
        expectCombined(dst, a, b, region, add);
        expectCombined(a, dst, b, region, add);  // null region: the whole destination
      }
}

TEST_F(IpAdd, MixedLayoutsAndDepthsGoThroughRgba) {
  GeRectangle<int> const region(0, 5, 0, 2);
  for (IxPixelFormat::Depth depth : DEPTHS)
    for (bool add : {true, false}) {
      SCOPED_TRACE(testing::Message() << "depth " << depth);
      IxTile const alpha = makeTile(1, depth, region);
      IxTile const rgba = makeTile(4, depth, region);
      IxTile const rgb = makeTile(3, IxPixelFormat::FLOAT32, region);
      expectCombined(makeTile(4, depth, region), alpha, rgba, region, add);
      expectCombined(makeTile(4, depth, region), rgba, alpha, region, add);
      expectCombined(makeTile(1, depth, region), alpha, rgba, region, add);
      expectCombined(makeTile(4, IxPixelFormat::FLOAT32, region), rgb, alpha, region, add);
    }
}

TEST_F(IpAdd, RegionMustLieInEveryTileCheckedInOrder) {
  IxTile const big = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 8, 0, 8));
  IxTile const small = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 4, 0, 4));
  GeRectangle<int> const inSmall(1, 3, 1, 3), inBig(2, 6, 2, 6), outside(6, 9, 0, 2);
  for (auto op : {ipAdd, ipSubtract}) {
    fillPattern(big, 3);
    std::vector<std::uint32_t> const before = snapshot(big);
    auto failure = [op](IxTile const& d, IxTile const& a, IxTile const& b, GeRectangle<int> const* rgn) {
      try {
        op(IxWriteGuard(d), IxReadGuard(a), IxReadGuard(b), rgn);
      } catch (AssertionsEx::ExAssertionFailed const& e) {
        return std::string(e.getCondition());
      }
      return std::string();
    };
    EXPECT_EQ(failure(big, big, big, &outside), "dst.getPixelRegion().contains( dstRgn )");
    EXPECT_EQ(failure(big, small, small, &inBig), "srcA.getPixelRegion().contains( dstRgn )");
    EXPECT_EQ(failure(big, small, small, nullptr), "srcA.getPixelRegion().contains( dstRgn )");
    EXPECT_EQ(failure(big, big, small, &inBig), "srcB.getPixelRegion().contains( dstRgn )");
    EXPECT_EQ(snapshot(big), before);
    EXPECT_EQ(failure(small, big, big, nullptr), "");
    EXPECT_EQ(failure(big, small, small, &inSmall), "");
  }
}
