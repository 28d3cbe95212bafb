#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipColorBlend.h>
#include <orn/primitives/imageProc/ipColorBlendConst.h>

#include <string>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;

namespace {

using Rgb = CoRgbColorTyped<float>;

float valueOf(IxTile const& tile, int x, int y, int c) {
  std::uint32_t const raw = getRaw(tile, x, y, c);
  switch (tile.getPixelFormat().getDepth()) {
    case IxPixelFormat::UINT8: return float(raw) / 255.0f;
    case IxPixelFormat::FLOAT16: return Half::toFloat(Half::Bits(raw));
    default: return std::bit_cast<float>(raw);
  }
}

void fill(IxTile const& tile, float v) {
  GeRectangle<int> const& r = tile.getPixelRegion();
  IxPixelFormat::Depth const depth = tile.getPixelFormat().getDepth();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x)
      for (int c = 0; c < tile.getPixelFormat().getComps(); ++c)
        setRaw(tile, x, y, c,
               depth == IxPixelFormat::UINT8     ? std::uint32_t(v * 255.0f + 0.5f)
               : depth == IxPixelFormat::FLOAT16 ? Half::fromFloat(v)
                                                 : std::bit_cast<std::uint32_t>(v));
}

IxPixel<IxPixelCompFloat32, 4> makeColour(float r, float g, float b, float a) {
  IxPixel<IxPixelCompFloat32, 4> p;
  float const values[4] = {r, g, b, a};
  for (int c = 0; c < 4; ++c) p[c].value = values[c];
  return p;
}

TEST(IpColorBlend, EmptyMatteKeepsFullMattePaintsAndPartialMatteMixes) {
  float const lum = 0.2126f * 0.25f + 0.7152f * 0.5f + 0.0722f * 1.0f;
  GeRectangle<int> const region(0, 5, 0, 2);
  for (IxPixelFormat::Depth depth : DEPTHS)
    for (int comps = 1; comps <= 4; ++comps) {
      SCOPED_TRACE(testing::Message() << "depth " << depth << " comps " << comps);
      // Two components through a view of a wider tile.
      IxTile const wide = makeTile(comps == 2 ? 4 : comps, depth, region);
      IxTile const dst = comps == 2 ? wide.createView(makeTwoComponentFormat(depth), region, wide.getRowBytes()) : wide;
      IxTile const matte = makeTile(1, depth, region);
      fill(matte, 0.0f);
      fillPattern(dst, 5);
      std::vector<std::uint32_t> const before = snapshot(dst);
      ipColorBlend(IxWriteGuard(dst), IxReadGuard(matte), Rgb(0.25f, 0.5f, 1.0f), nullptr, nullptr);
      EXPECT_EQ(before, snapshot(dst));

      fill(matte, 1.0f);
      ipColorBlend(IxWriteGuard(dst), IxReadGuard(matte), Rgb(0.25f, 0.5f, 1.0f), nullptr, nullptr);
      float const painted[4] = {comps < 3 ? lum : 0.25f, comps < 3 ? 1.0f : 0.5f, 1.0f, 1.0f};
      for (int c = 0; c < comps; ++c) EXPECT_NEAR(painted[c], valueOf(dst, 4, 1, c), 1.0f / 255.0f) << c;

      // A quarter: c (1 - w) + colour w, 8 bits truncated (0.75 * 1 + 0.25 * 0.25 = 0.8125: 207.19).
      fill(dst, 1.0f);
      fill(matte, 0.25f);
      ipColorBlend(IxWriteGuard(dst), IxReadGuard(matte), Rgb(0.25f, -1.0f, 3.0f), nullptr, nullptr);
      if (comps >= 3) EXPECT_NEAR(0.8125f, valueOf(dst, 0, 0, 0), depth == IxPixelFormat::UINT8 ? 0.001f : 1e-3f);
      if (comps >= 3 && depth != IxPixelFormat::UINT8) EXPECT_NEAR(1.5f, valueOf(dst, 0, 0, 2), 1e-3f);
      if (comps == 4) EXPECT_NEAR(1.0f, valueOf(dst, 0, 0, 3), 1e-3f);
    }
}

TEST(IpColorBlend, EightBitsTruncateWithoutClampAndMatteChecks) {
  GeRectangle<int> const region(0, 2, 0, 1);
  IxTile const dst = makeTile(4, IxPixelFormat::UINT8, region), matte = makeTile(1, IxPixelFormat::UINT8, region);
  std::uint32_t const old[2][4] = {{200, 10, 0, 100}, {255, 255, 255, 255}};
  for (int x = 0; x < 2; ++x) {
    setRaw(matte, x, 0, 0, x == 0 ? 128 : 255);
    for (int c = 0; c < 4; ++c) setRaw(dst, x, 0, c, old[x][c]);
  }
  ipColorBlend(IxWriteGuard(dst), IxReadGuard(matte), Rgb(0.25f, 1.5f, -0.5f), nullptr, nullptr);
  // m = 128: old * 127/255 + colour * 128, truncated; out-of-range results keep their low 8 bits.
  std::uint32_t const expected[2][4] = {{131, 196, 256 - 64, 177}, {63, 382 % 256, 256 - 127, 255}};
  for (int x = 0; x < 2; ++x)
    for (int c = 0; c < 4; ++c) EXPECT_EQ(expected[x][c], getRaw(dst, x, 0, c)) << x << ' ' << c;

  auto expectAssertion = [&](IxTile const& alpha, std::string const& text) {
    try {
      ipColorBlend(IxWriteGuard(dst), IxReadGuard(alpha), Rgb(), nullptr, nullptr);
      ADD_FAILURE() << "no assertion";
    } catch (AssertionsEx::ExAssertionFailed const& e) {
      EXPECT_NE(std::string::npos, std::string(e.getReason()).find(text)) << e.getReason();
    }
  };
  expectAssertion(makeTile(1, IxPixelFormat::FLOAT32, region),
                  "dstImage.getTile().getPixelFormat().getDepth() == alphaImage.getTile().getPixelFormat().getDepth()");
  expectAssertion(makeTile(3, IxPixelFormat::UINT8, region), "alphaImage.getTile().getPixelFormat().getComps() == 1");
}

TEST(IpColorBlendConst, WeightOnTheOldValueInEveryDepth) {
  GeRectangle<int> const region(0, 4, 0, 3), part(1, 3, 1, 2);
  float const lum = 0.2126f + 0.7152f * 0.5f;
  for (IxPixelFormat::Depth depth : {IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32})
    for (int comps : {1, 3, 4}) {
      SCOPED_TRACE(testing::Message() << "depth " << depth << " comps " << comps);
      IxTile const dst = makeTile(comps, depth, region);
      fill(dst, 0.5f);
      ipColorBlendConst(IxWriteGuard(dst), 0.25f, makeColour(1.0f, 0.5f, 0.0f, 2.0f), &part);
      float const target[4] = {comps == 1 ? lum : 1.0f, 0.5f, 0.0f, 2.0f};
      for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x)
          for (int c = 0; c < comps; ++c)
            EXPECT_NEAR(part.contains(x, y) ? 0.125f + target[c] * 0.75f : 0.5f, valueOf(dst, x, y, c), 1e-3f);
    }

  // 8 bits: 0.5 added, then truncated and clamped.
  IxTile const dst = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 2, 0, 1));
  std::uint32_t const old[2][4] = {{100, 101, 255, 0}, {0, 7, 255, 255}};
  std::uint32_t const expected[2][4] = {{114, 51, 255, 0}, {64, 4, 255, 0}};  // 113.75, 50.5 (rounds up), ...
  for (int x = 0; x < 2; ++x)
    for (int c = 0; c < 4; ++c) setRaw(dst, x, 0, c, old[x][c]);
  ipColorBlendConst(IxWriteGuard(dst), 0.5f, makeColour(0.5f, 0.0f, 2.0f, -1.0f), nullptr);
  for (int x = 0; x < 2; ++x)
    for (int c = 0; c < 4; ++c) EXPECT_EQ(expected[x][c], getRaw(dst, x, 0, c)) << x << ' ' << c;
  // One component takes the luminance (0.2126 * 255 = 54.2); two components abort.
  IxTile const grey = makeTile(1, IxPixelFormat::UINT8, GeRectangle<int>(0, 1, 0, 1));
  ipColorBlendConst(IxWriteGuard(grey), 0.0f, makeColour(1.0f, 0.0f, 0.0f, 1.0f), nullptr);
  EXPECT_EQ(54u, getRaw(grey, 0, 0, 0));
  IxTile const wide = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 2, 0, 2));
  IxTile const two = wide.createView(makeTwoComponentFormat(IxPixelFormat::FLOAT32), wide.getPixelRegion(), wide.getRowBytes());
  EXPECT_THROW(ipColorBlendConst(IxWriteGuard(two), 0.5f, makeColour(0, 0, 0, 0), nullptr), AssertionsEx::ExProgramAborted);
}

}  // namespace
