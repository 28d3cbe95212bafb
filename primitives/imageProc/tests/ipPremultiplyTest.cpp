#include <orn/primitives/imageProc/ipPremultiply.h>
#include <orn/primitives/imageProc/ipUnpremultiply.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

#include <orn/base/except/assertions.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <string>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;

namespace {

using Rgba = CoRgbaColorTyped<float>;

void setPixel(IxTile const& tile, int x, int y, Rgba const& c) {
  for (int i = 0; i < 4; ++i) setRaw(tile, x, y, i, std::bit_cast<std::uint32_t>(c[i]));
}

Rgba getPixel(IxTile const& tile, int x, int y) {
  Rgba c;
  for (int i = 0; i < 4; ++i) c[i] = std::bit_cast<float>(getRaw(tile, x, y, i));
  return c;
}

std::string failedCondition(auto&& call) {
  try {
    call();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    return e.getCondition();
  }
  return "";
}

float const quietNan = std::numeric_limits<float>::quiet_NaN();

}  // namespace

TEST(IpPremultiply, FloatRowsGiveTheSameResultAtEveryPositionOfTheRow) {
  // 37 pixels and a stride of its own: lead-in, blocks of four and tail all meet the same pixel.
  GeRectangle<int> const region(3, 40, 0, 3);
  IxTile const src = makeTile(4, IxPixelFormat::FLOAT32, region, 37 * 16 + 16);
  IxTile const dst = makeTile(4, IxPixelFormat::FLOAT32, region, 37 * 16 + 48);
  Rgba const straight(0.3f, -0.7f, 1.9f, 0.37f);
  for (int y = 0; y < 3; ++y)
    for (int x = 3; x < 40; ++x) setPixel(src, x, y, straight);
  ipPremultiply(IxWriteGuard(dst), IxReadGuard(src));
  Rgba const expected(0.3f * 0.37f, -0.7f * 0.37f, 1.9f * 0.37f, 0.37f);
  for (int y = 0; y < 3; ++y)
    for (int x = 3; x < 40; ++x) ASSERT_EQ(getPixel(dst, x, y), expected) << x << "," << y;

  // Back again: close to the straight colour, not exact, and the same at every position.
  IxTile const back = makeTile(4, IxPixelFormat::FLOAT32, region);
  ipUnpremultiply(IxWriteGuard(back), IxReadGuard(dst));
  Rgba const first = getPixel(back, 3, 0);
  for (int i = 0; i < 4; ++i) EXPECT_NEAR(first[i], straight[i], 2e-6f * std::fabs(straight[i]));
  for (int y = 0; y < 3; ++y)
    for (int x = 3; x < 40; ++x) ASSERT_EQ(getPixel(back, x, y), first);

  // Pixels that all differ, alphas under the threshold, negative, infinite and NaN among them: each
  // result has the bits of the same pixel unpremultiplied alone.
  float const alphas[] = {0.37f, 5e-9f, -0.5f, 1.f, std::numeric_limits<float>::infinity(), quietNan, 2e-8f, 0.f, 3.f};
  for (int y = 0; y < 3; ++y)
    for (int x = 3; x < 40; ++x)
      setPixel(src, x, y, Rgba(0.1f * float(x), -0.03f * float(y + x), quietNan, alphas[(x + y) % 9]));
  ipUnpremultiply(IxWriteGuard(back), IxReadGuard(src));
  IxTile const one = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1));
  IxTile const alone = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1));
  for (int y = 0; y < 3; ++y)
    for (int x = 3; x < 40; ++x) {
      setPixel(one, 0, 0, getPixel(src, x, y));
      ipUnpremultiply(IxWriteGuard(alone), IxReadGuard(one));
      for (int i = 0; i < 4; ++i) ASSERT_EQ(getRaw(back, x, y, i), getRaw(alone, 0, 0, i)) << x << "," << y << "," << i;
    }
}

TEST(IpUnpremultiply, ThresholdNonFiniteLanesAndBackground) {
  GeRectangle<int> const region(0, 6, 0, 1);
  IxTile const src = makeTile(4, IxPixelFormat::FLOAT32, region);
  setPixel(src, 0, 0, Rgba(0.2f, 0.3f, 0.4f, 0.f));     // alpha 0: black
  setPixel(src, 1, 0, Rgba(0.2f, 0.3f, 0.4f, 5e-9f));   // under the threshold: black, alpha kept
  setPixel(src, 2, 0, Rgba(0.2f, 0.3f, 0.9f, 0.5f));    // a colour above alpha is not clamped
  setPixel(src, 3, 0, Rgba(0.2f, 0.3f, 0.4f, -0.5f));   // a negative alpha divides as it stands
  setPixel(src, 4, 0, Rgba(quietNan, 0.3f, 0.4f, 0.5f));     // NaN goes to 0
  setPixel(src, 5, 0, Rgba(0.2f, 0.3f, 0.4f, 2e-8f));   // just above the threshold
  IxTile const dst = makeTile(4, IxPixelFormat::FLOAT32, region);
  ipUnpremultiply(IxWriteGuard(dst), IxReadGuard(src));

  EXPECT_EQ(getPixel(dst, 0, 0), Rgba(0, 0, 0, 0));
  Rgba const tiny = getPixel(dst, 1, 0);
  EXPECT_EQ(tiny.r, 0.f);
  EXPECT_EQ(tiny.b, 0.f);
  EXPECT_NEAR(tiny.a, 5e-9f, 1e-15f);
  Rgba const half = getPixel(dst, 2, 0);
  EXPECT_NEAR(half.b, 1.8f, 1e-6f);
  EXPECT_NEAR(half.a, 0.5f, 1e-7f);
  EXPECT_NEAR(getPixel(dst, 3, 0).g, -0.6f, 1e-6f);
  EXPECT_EQ(getPixel(dst, 4, 0).r, 0.f);
  EXPECT_NEAR(getPixel(dst, 4, 0).g, 0.6f, 1e-6f);
  EXPECT_NEAR(getPixel(dst, 5, 0).r, 1e7f, 10.f);

  // Over a background: x (pixel - (1 - a) background); alpha 0 gives a colour of 0.
  IxTile const over = makeTile(4, IxPixelFormat::FLOAT32, region);
  ipUnpremultiply(IxWriteGuard(over), IxReadGuard(src), CoRgbColorTyped<float>(0.1f, 0.2f, 0.3f));
  EXPECT_EQ(getPixel(over, 0, 0).r, 0.f);
  EXPECT_EQ(getPixel(over, 0, 0).b, 0.f);
  EXPECT_NEAR(getPixel(over, 2, 0).b, (0.9f - 0.5f * 0.3f) / 0.5f, 1e-6f);
}

TEST(IpPremultiply, OtherDepthsGoThroughScanlinesAndTilesWithoutAlphaCopy) {
  IxScanlineImpFactories::install();
  GeRectangle<int> const region(0, 2, 0, 1);
  IxTile const src8 = makeTile(4, IxPixelFormat::UINT8, region);
  for (int c = 0; c < 4; ++c) setRaw(src8, 0, 0, c, std::array{200u, 100u, 50u, 128u}[c]);
  for (int c = 0; c < 4; ++c) setRaw(src8, 1, 0, c, std::array{10u, 255u, 0u, 0u}[c]);
  IxTile const dst8 = makeTile(4, IxPixelFormat::UINT8, region);
  ipPremultiply(IxWriteGuard(dst8), IxReadGuard(src8));
  // 200/255 * 128/255 * 255 = 100.39 and so on; alpha unchanged; alpha 0 gives black.
  EXPECT_EQ(snapshot(dst8), (std::vector<std::uint32_t>{100, 50, 25, 128, 0, 0, 0, 0}));

  IxTile const srcHalf = makeTile(4, IxPixelFormat::FLOAT16, region);
  for (int c = 0; c < 4; ++c) setRaw(srcHalf, 0, 0, c, Half::fromFloat(std::array{0.5f, 1.f, 2.f, 0.25f}[c]));
  IxTile const dstHalf = makeTile(4, IxPixelFormat::FLOAT16, region);
  ipUnpremultiply(IxWriteGuard(dstHalf), IxReadGuard(srcHalf));
  for (int c = 0; c < 4; ++c)
    EXPECT_EQ(getRaw(dstHalf, 0, 0, c), Half::fromFloat(std::array{2.f, 4.f, 8.f, 0.25f}[c])) << c;

  for (int comps : {1, 3}) {
    IxTile const src = makeTile(comps, IxPixelFormat::UINT8, region);
    fillPattern(src, 3);
    IxTile const dst = makeTile(comps, IxPixelFormat::UINT8, region);
    ipPremultiply(IxWriteGuard(dst), IxReadGuard(src));
    EXPECT_EQ(snapshot(dst), snapshot(src));
  }
}

TEST(IpPremultiply, RefusesBeforeWriting) {
  IxTile const src = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 4, 0, 4));
  IxTile const other = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 4, 0, 4));
  IxTile const big = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 5, 0, 4));
  fillPattern(big, 1);
  std::vector<std::uint32_t> const before = snapshot(big);
  EXPECT_EQ(failedCondition([&] { ipPremultiply(IxWriteGuard(other), IxReadGuard(src)); }),
            "format == src.getTile().getPixelFormat()");
  EXPECT_EQ(failedCondition([&] { ipUnpremultiply(IxWriteGuard(big), IxReadGuard(src)); }),
            "srcRgn.contains( dstRgn )");
  EXPECT_EQ(snapshot(big), before);
}
