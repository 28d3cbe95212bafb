#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipDifference.h>

#include "ipOperatorTestUtil.h"

using namespace OrnTest;

namespace {

GeRectangle<int> const PIXEL(0, 1, 0, 1);

struct Settings {
  bool use[4] = {true, true, true, true};
  float range[4] = {1.f, 1.f, 1.f, 1.f};
  float tolerance[4] = {0.f, 0.f, 0.f, 0.f};
  float scale = 1.f;
};

// The key of one pixel pair, read from every component of the destination (which must agree).
float keyOf(IxPixelFormat::Depth depth, int comps, std::vector<float> const& a, std::vector<float> const& b,
            Settings const& s) {
  IxTile const ta = makeTile(comps, depth, PIXEL), tb = makeTile(comps, depth, PIXEL), dst = makeTile(comps, depth, PIXEL);
  for (int c = 0; c < comps; ++c) setValue(ta, 0, 0, c, a[c]), setValue(tb, 0, 0, c, b[c]);
  ipDifference(IxWriteGuard(dst), IxReadGuard(ta), IxReadGuard(tb), s.use[0], s.use[1], s.use[2], s.use[3], s.range[0],
               s.range[1], s.range[2], s.range[3], s.tolerance[0], s.tolerance[1], s.tolerance[2], s.tolerance[3],
               s.scale, nullptr, nullptr, nullptr);
  for (int c = 1; c < comps; ++c) EXPECT_EQ(getRaw(dst, 0, 0, c), getRaw(dst, 0, 0, 0)) << "component " << c;
  return getValue(dst, 0, 0, 0);
}

}  // namespace

TEST(IpDifference, EightBitGainThresholdAndSaturation) {
  using D = IxPixelFormat;
  Settings s;
  s.scale = 0.5f;  // gain 0.5 * 256 = 128: the key is about half the difference
  EXPECT_EQ(keyOf(D::UINT8, 4, {100, 0, 0, 0}, {0, 0, 0, 0}, s), 50.f);  // (128 * 100 + 128) >> 8
  // The worst channel wins, alpha included.
  EXPECT_EQ(keyOf(D::UINT8, 4, {10, 0, 90, 0}, {0, 60, 0, 200}, s), 100.f);
  // 10 percent gives the threshold floor(2.55 * 10 + 0.5) = 26 in double precision.
  s.tolerance[0] = 10.f;
  EXPECT_EQ(keyOf(D::UINT8, 3, {26, 0, 0}, {0, 0, 0}, s), 0.f);
  EXPECT_EQ(keyOf(D::UINT8, 3, {27, 0, 0}, {0, 0, 0}, s), 14.f);
  // One component uses the settings of channel 0 only.
  EXPECT_EQ(keyOf(D::UINT8, 1, {26}, {0}, s), 0.f);
  // Range 0: gain 65280, so any difference above the threshold saturates.
  Settings zero;
  zero.range[1] = 0.f;
  EXPECT_EQ(keyOf(D::UINT8, 3, {0, 1, 0}, {0, 0, 0}, zero), 255.f);
  // A product that overflows 32 bits counts as 255; one just below does not.
  Settings huge;
  huge.scale = 65536.f;  // gain 2^24
  EXPECT_EQ(keyOf(D::UINT8, 3, {200, 0, 0}, {0, 0, 0}, huge), 255.f);
  huge.scale = 512.f;  // gain 2^17: 100 * 2^17 >> 8 = 51200, clamped to 255
  EXPECT_EQ(keyOf(D::UINT8, 3, {100, 0, 0}, {0, 0, 0}, huge), 255.f);
  // A cleared flag sets the threshold to the whole range: nothing reaches beyond it.
  Settings off;
  off.use[0] = off.use[1] = off.use[2] = off.use[3] = false;
  EXPECT_EQ(keyOf(D::UINT8, 4, {255, 0, 255, 0}, {0, 255, 0, 255}, off), 0.f);
}

TEST(IpDifference, FloatKeysAreNotClampedAndClearedFlagsStillReportLargeDifferences) {
  for (IxPixelFormat::Depth depth : {IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32}) {
    SCOPED_TRACE(depth);
    Settings s;
    s.range[0] = 0.5f;  // gain 2
    EXPECT_EQ(keyOf(depth, 3, {0.75f, 0.f, 0.f}, {0.25f, 0.f, 0.f}, s), 1.f);
    EXPECT_EQ(keyOf(depth, 3, {-1.f, 0.f, 0.f}, {1.f, 0.f, 0.f}, s), 4.f);
    // 50 percent: a difference of exactly 0.5 is within it.
    s.tolerance[1] = 50.f;
    EXPECT_EQ(keyOf(depth, 3, {0.f, 0.5f, 0.f}, {0.f, 0.f, 0.f}, s), 0.f);
    EXPECT_EQ(keyOf(depth, 3, {0.f, 0.75f, 0.f}, {0.f, 0.f, 0.f}, s), 0.75f);
    Settings off;
    off.use[0] = off.use[1] = off.use[2] = off.use[3] = false;
    EXPECT_EQ(keyOf(depth, 4, {0.f, 0.f, 0.f, 0.f}, {1.f, 1.f, 1.f, 1.f}, off), 0.f);
    EXPECT_EQ(keyOf(depth, 4, {0.f, 2.5f, 0.f, 0.f}, {1.f, 1.f, 1.f, 1.f}, off), 1.5f);
  }
}
