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

void setValue(IxTile const& tile, int x, int y, int c, float v) {
  switch (tile.getPixelFormat().getDepth()) {
    case IxPixelFormat::UINT8: setRaw(tile, x, y, c, std::uint32_t(v * 255.0f + 0.5f)); break;
    case IxPixelFormat::FLOAT16: setRaw(tile, x, y, c, Half::fromFloat(v)); break;
    default: setRaw(tile, x, y, c, std::bit_cast<std::uint32_t>(v));
  }
}

// dst with 1 to 4 components (2 through a view of a wider tile).
IxTile makeDst(int comps, IxPixelFormat::Depth depth, GeRectangle<int> const& region) {
  if (comps != 2) return makeTile(comps, depth, region);
  IxTile const wide = makeTile(4, depth, region);
  return wide.createView(makeTwoComponentFormat(depth), region, wide.getRowBytes());
}

TEST(IpColorBlend, EmptyMatteKeepsAndFullMattePaints) {
  Rgb const colour(0.25f, 0.5f, 1.0f);
  float const lum = 0.2126f * 0.25f + 0.7152f * 0.5f + 0.0722f * 1.0f;
  GeRectangle<int> const region(0, 5, 0, 2);
  for (IxPixelFormat::Depth depth : DEPTHS)
    for (int comps = 1; comps <= 4; ++comps) {
      SCOPED_TRACE(testing::Message() << "depth " << depth << " comps " << comps);
      IxTile const dst = makeDst(comps, depth, region);
      IxTile const matte = makeTile(1, depth, region);
      for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 5; ++x) setRaw(matte, x, y, 0, 0);
      fillPattern(dst, 5);
      std::vector<std::uint32_t> const before = snapshot(dst);
      ipColorBlend(IxWriteGuard(dst), IxReadGuard(matte), colour, nullptr, nullptr);
      EXPECT_EQ(before, snapshot(dst));

      for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 5; ++x) setValue(matte, x, y, 0, 1.0f);
      ipColorBlend(IxWriteGuard(dst), IxReadGuard(matte), colour, nullptr, nullptr);
      float const expected[4] = {comps < 3 ? lum : 0.25f, comps < 3 ? 1.0f : 0.5f, 1.0f, 1.0f};
      // 8 bits truncate: 0.25 * 255 = 63.75 gives 63.
      float const tolerance = depth == IxPixelFormat::UINT8 ? 1.0f / 255.0f : 1e-3f;
      for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 5; ++x)
          for (int c = 0; c < comps; ++c) EXPECT_NEAR(expected[c], valueOf(dst, x, y, c), tolerance) << c;
      if (depth == IxPixelFormat::UINT8 && comps >= 3) EXPECT_EQ(63u, getRaw(dst, 0, 0, 0));
    }
}

TEST(IpColorBlend, PartialMatteMixesAndEightBitsTruncateWithoutClamp) {
  GeRectangle<int> const region(0, 3, 0, 1);
  IxTile const dst = makeTile(4, IxPixelFormat::UINT8, region);
  IxTile const matte = makeTile(1, IxPixelFormat::UINT8, region);
  std::uint32_t const old[3][4] = {{200, 10, 0, 100}, {255, 255, 255, 255}, {0, 0, 0, 0}};
  std::uint32_t const m[3] = {128, 255, 51};
  for (int x = 0; x < 3; ++x) {
    setRaw(matte, x, 0, 0, m[x]);
    for (int c = 0; c < 4; ++c) setRaw(dst, x, 0, c, old[x][c]);
  }
  ipColorBlend(IxWriteGuard(dst), IxReadGuard(matte), Rgb(0.25f, 1.5f, -0.5f), nullptr, nullptr);
  // m = 128: old * 127/255 + colour * 128, truncated: 200 -> 99.6 + 32 = 131.6.
  EXPECT_EQ(131u, getRaw(dst, 0, 0, 0));
  EXPECT_EQ(196u, getRaw(dst, 0, 0, 1));  // 4.98 + 192
  EXPECT_EQ(192u, getRaw(dst, 0, 0, 2));  // -64 keeps its low eight bits
  EXPECT_EQ(177u, getRaw(dst, 0, 0, 3));  // 49.8 + 128
  // Full matte: colours beyond 0..1 are not clamped, only the low eight bits are kept.
  EXPECT_EQ(63u, getRaw(dst, 1, 0, 0));
  EXPECT_EQ(382u % 256u, getRaw(dst, 1, 0, 1));
  EXPECT_EQ(255u, getRaw(dst, 1, 0, 3));
  // m = 51 (0.2) on zeros: only the colour term, 0.25 * 51 = 12.75.
  EXPECT_EQ(12u, getRaw(dst, 2, 0, 0));
  EXPECT_EQ(51u, getRaw(dst, 2, 0, 3));

  // Float: c (1 - w) + colour w, unclamped.
  IxTile const fdst = makeTile(3, IxPixelFormat::FLOAT32, region);
  IxTile const fmatte = makeTile(1, IxPixelFormat::FLOAT32, region);
  for (int x = 0; x < 3; ++x) {
    setValue(fmatte, x, 0, 0, 0.25f * float(x + 1));
    for (int c = 0; c < 3; ++c) setValue(fdst, x, 0, c, 0.5f);
  }
  GeRectangle<int> const part(1, 3, 0, 1);
  ipColorBlend(IxWriteGuard(fdst), IxReadGuard(fmatte), Rgb(1.0f, 0.0f, 3.0f), &part, &part);
  EXPECT_EQ(0.5f, valueOf(fdst, 0, 0, 0));  // outside the region
  EXPECT_FLOAT_EQ(0.75f, valueOf(fdst, 1, 0, 0));
  EXPECT_FLOAT_EQ(0.25f, valueOf(fdst, 1, 0, 1));
  EXPECT_FLOAT_EQ(1.75f, valueOf(fdst, 1, 0, 2));
  EXPECT_FLOAT_EQ(2.375f, valueOf(fdst, 2, 0, 2));
}

TEST(IpColorBlend, MatteMustBeOneComponentOfTheSameDepth) {
  GeRectangle<int> const region(0, 2, 0, 2);
  IxTile const dst = makeTile(4, IxPixelFormat::FLOAT32, region);
  try {
    ipColorBlend(IxWriteGuard(dst), IxReadGuard(makeTile(1, IxPixelFormat::UINT8, region)), Rgb(), nullptr, nullptr);
    FAIL() << "no assertion";
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_NE(std::string::npos,
              std::string(e.getReason()).find("dstImage.getTile().getPixelFormat().getDepth() == "
                                              "alphaImage.getTile().getPixelFormat().getDepth()"));
  }
  try {
    ipColorBlend(IxWriteGuard(dst), IxReadGuard(makeTile(3, IxPixelFormat::FLOAT32, region)), Rgb(), nullptr, nullptr);
    FAIL() << "no assertion";
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_NE(std::string::npos, std::string(e.getReason()).find("alphaImage.getTile().getPixelFormat().getComps() == 1"));
  }
}

IxPixel<IxPixelCompFloat32, 4> makeColour(float r, float g, float b, float a) {
  IxPixel<IxPixelCompFloat32, 4> p;
  p[0].value = r;
  p[1].value = g;
  p[2].value = b;
  p[3].value = a;
  return p;
}

TEST(IpColorBlendConst, WeightOnTheOldValue) {
  GeRectangle<int> const region(0, 4, 0, 3), part(1, 3, 1, 2);
  IxPixel<IxPixelCompFloat32, 4> const colour = makeColour(1.0f, 0.5f, 0.0f, 2.0f);
  float const lum = 0.2126f + 0.7152f * 0.5f;
  for (IxPixelFormat::Depth depth : {IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32})
    for (int comps : {1, 3, 4}) {
      SCOPED_TRACE(testing::Message() << "depth " << depth << " comps " << comps);
      IxTile const dst = makeTile(comps, depth, region);
      for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x)
          for (int c = 0; c < comps; ++c) setValue(dst, x, y, c, 0.5f);
      ipColorBlendConst(IxWriteGuard(dst), 0.25f, colour, &part);
      float const target[4] = {comps == 1 ? lum : 1.0f, 0.5f, 0.0f, 2.0f};
      for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x)
          for (int c = 0; c < comps; ++c) {
            float const expected = part.contains(x, y) ? 0.5f * 0.25f + target[c] * 0.75f : 0.5f;
            EXPECT_NEAR(expected, valueOf(dst, x, y, c), 1e-3f) << x << ',' << y << ' ' << c;
          }
    }
}

TEST(IpColorBlendConst, EightBitsRoundAndClamp) {
  GeRectangle<int> const region(0, 3, 0, 1);
  IxTile const dst = makeTile(4, IxPixelFormat::UINT8, region);
  std::uint32_t const old[3][4] = {{100, 101, 255, 0}, {0, 7, 255, 255}, {3, 4, 5, 6}};
  for (int x = 0; x < 3; ++x)
    for (int c = 0; c < 4; ++c) setRaw(dst, x, 0, c, old[x][c]);
  ipColorBlendConst(IxWriteGuard(dst), 0.5f, makeColour(0.5f, 0.0f, 2.0f, -1.0f), nullptr);
  EXPECT_EQ(114u, getRaw(dst, 0, 0, 0));  // 50 + 63.75 + 0.5
  EXPECT_EQ(51u, getRaw(dst, 0, 0, 1));   // 50.5 + 0.5: halves round up
  EXPECT_EQ(255u, getRaw(dst, 0, 0, 2));  // 127.5 + 255 clamps
  EXPECT_EQ(0u, getRaw(dst, 0, 0, 3));    // -127.5 clamps
  EXPECT_EQ(64u, getRaw(dst, 1, 0, 0));   // 63.75 + 0.5
  EXPECT_EQ(0u, getRaw(dst, 1, 0, 3));    // 127.5 - 127.5

  // Weight 1 keeps every byte; weight 0 paints the colour.
  IxTile const keep = makeTile(3, IxPixelFormat::UINT8, region);
  fillPattern(keep, 6);
  std::vector<std::uint32_t> const before = snapshot(keep);
  ipColorBlendConst(IxWriteGuard(keep), 1.0f, makeColour(0.3f, 0.6f, 0.9f, 1.0f), nullptr);
  EXPECT_EQ(before, snapshot(keep));
  ipColorBlendConst(IxWriteGuard(keep), 0.0f, makeColour(0.2f, 0.6f, 1.0f, 0.0f), nullptr);
  EXPECT_EQ(51u, getRaw(keep, 2, 0, 0));
  EXPECT_EQ(153u, getRaw(keep, 2, 0, 1));
  EXPECT_EQ(255u, getRaw(keep, 2, 0, 2));

  // A one-component tile takes the luminance: 0.2126 * 255 = 54.2.
  IxTile const grey = makeTile(1, IxPixelFormat::UINT8, region);
  ipColorBlendConst(IxWriteGuard(grey), 0.0f, makeColour(1.0f, 0.0f, 0.0f, 1.0f), nullptr);
  EXPECT_EQ(54u, getRaw(grey, 0, 0, 0));
}

TEST(IpColorBlendConst, TwoComponentsAbort) {
  IxTile const two = makeDst(2, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 2, 0, 2));
  EXPECT_THROW(ipColorBlendConst(IxWriteGuard(two), 0.5f, makeColour(0, 0, 0, 0), nullptr),
               AssertionsEx::ExProgramAborted);
}

}  // namespace
