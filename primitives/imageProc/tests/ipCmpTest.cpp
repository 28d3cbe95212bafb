#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipCmp.h>

#include <cmath>
#include <limits>

#include "ipOperatorTestUtil.h"

using namespace OrnTest;

namespace {

bool floatsCompareEqual(float a, float b) {
  IxTile const ta = makeTile(1, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1));
  IxTile const tb = copyOf(ta);
  setValue(ta, 0, 0, 0, a);
  setValue(tb, 0, 0, 0, b);
  return ipCmp(IxReadGuard(ta), IxReadGuard(tb), nullptr, nullptr);
}

}  // namespace

TEST(IpCmp, IdentityShortcutFormatsAndRegions) {
  IxTile const a = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 4, 0, 3));
  fillPattern(a, 1);
  GeRectangle<int> const small(0, 1, 0, 1), large(0, 3, 0, 3);
  // The same tile is equal to itself even over regions of different sizes.
  EXPECT_TRUE(ipCmp(IxReadGuard(a), IxReadGuard(a), &small, &large));
  IxTile const b = copyOf(a);
  EXPECT_TRUE(ipCmp(IxReadGuard(a), IxReadGuard(b), nullptr, nullptr));
  EXPECT_FALSE(ipCmp(IxReadGuard(a), IxReadGuard(b), &small, &large));
  // Equal bytes under another aspect ratio, depth or component count are unequal.
  IxPixelFormat const wide(IxPixelFormat::RGBA, IxPixelFormat::UINT8, Rational(2, 1));
  IxTile const wideCopy(wide, a.getPixelRegion(), a.getFillColor());
  std::memcpy(wideCopy.getBaseAddress(), a.getBaseAddress(), std::size_t(a.getRowBytes()) * 3);
  EXPECT_FALSE(ipCmp(IxReadGuard(a), IxReadGuard(wideCopy), nullptr, nullptr));
  EXPECT_TRUE(ipCmp(IxReadGuard(a), IxReadGuard(wideCopy.createView(a.getPixelFormat(), a.getPixelRegion(),
                                                                        a.getRowBytes())), nullptr, nullptr));
  // One byte off anywhere in the region makes the images unequal; outside it, it does not matter.
  setRaw(b, 3, 2, 1, (getRaw(b, 3, 2, 1) + 1) & 0xFF);
  EXPECT_FALSE(ipCmp(IxReadGuard(a), IxReadGuard(b), nullptr, nullptr));
  EXPECT_TRUE(ipCmp(IxReadGuard(a), IxReadGuard(b), &large, &large));
  // Shifted regions compare the pixels they cover.
  IxTile const shifted = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(10, 14, 20, 23));
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 4; ++x)
      for (int c = 0; c < 4; ++c) setRaw(shifted, x + 10, y + 20, c, getRaw(a, x, y, c));
  EXPECT_TRUE(ipCmp(IxReadGuard(a), IxReadGuard(shifted), nullptr, nullptr));
}

TEST(IpCmp, HalfComparesValuesAndFloatAllowsOneEpsilon) {
  IxTile const h = makeTile(3, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 1, 0, 1));
  IxTile const h2 = copyOf(h);
  setRaw(h, 0, 0, 0, 0x0000);
  setRaw(h2, 0, 0, 0, 0x8000);  // -0 equals +0 as a value
  EXPECT_TRUE(ipCmp(IxReadGuard(h), IxReadGuard(h2), nullptr, nullptr));
  setRaw(h2, 0, 0, 2, 0x3C01);  // one half ulp above 1 is not 1
  setRaw(h, 0, 0, 2, 0x3C00);
  EXPECT_FALSE(ipCmp(IxReadGuard(h), IxReadGuard(h2), nullptr, nullptr));

  float const one = 1.f;
  float const next = std::nextafter(one, 2.f);
  EXPECT_TRUE(floatsCompareEqual(one, next));
  EXPECT_TRUE(floatsCompareEqual(next, one));
  EXPECT_FALSE(floatsCompareEqual(one, std::nextafter(next, 2.f)));
  EXPECT_TRUE(floatsCompareEqual(-1000.f, std::nextafter(-1000.f, 0.f)));
  EXPECT_FALSE(floatsCompareEqual(0.f, 1e-30f));
  float const inf = std::numeric_limits<float>::infinity();
  EXPECT_TRUE(floatsCompareEqual(inf, inf));
  EXPECT_FALSE(floatsCompareEqual(inf, -inf));
  EXPECT_FALSE(floatsCompareEqual(std::numeric_limits<float>::max(), inf));
  EXPECT_FALSE(floatsCompareEqual(std::nanf(""), std::nanf("")));
}
