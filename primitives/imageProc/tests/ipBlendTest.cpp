#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipBlend.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

#include <bit>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;

namespace {

using Rgba = CoRgbaColorTyped<float>;

float floatAt(IxTile const& tile, int x, int y, int c) { return std::bit_cast<float>(getRaw(tile, x, y, c)); }

// Component c of (x, y) as the blend reads it: the stored value inside the tile, its fill
// colour outside.
float readPadded(IxTile const& tile, int x, int y, int c) {
  if (tile.getPixelRegion().contains(GePoint2<int>(x, y))) return floatAt(tile, x, y, c);
  return tile.getFillColor()[c];
}

// The weight at (x, y): a one-component matte's value, or an RGBA matte's alpha.
float weightAt(IxTile const& matte, int x, int y) {
  if (!matte.getPixelRegion().contains(GePoint2<int>(x, y))) return matte.getFillColor().a;
  return floatAt(matte, x, y, matte.getPixelFormat().getComps() == 1 ? 0 : 3);
}

void expectBlended(IxTile const& dst, IxTile const& a, IxTile const& b, IxTile const& matte) {
  GeRectangle<int> const& r = dst.getPixelRegion();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x) {
      float const w = weightAt(matte, x, y);
      for (int c = 0; c < 4; ++c) {
        float const va = readPadded(a, x, y, c);
        float const vb = readPadded(b, x, y, c);
        ASSERT_EQ(floatAt(dst, x, y, c), vb + (va - vb) * w) << x << "," << y << " c" << c;
      }
    }
}

IxTile floatTile(IxPixelFormat::Comps comps, GeRectangle<int> const& region, Rgba const& fill, int seed) {
  IxTile const tile(IxPixelFormat(comps, IxPixelFormat::FLOAT32), region, fill);
  fillPattern(tile, seed);
  return tile;
}

TEST(IpBlendTest, MixesByAOneComponentMatteWithFillsOutside) {
  IxScanlineImpFactories::install();
  // The three sources cover different parts of dst, which also has a row outside all of them.
  IxTile const a = floatTile(IxPixelFormat::RGBA, GeRectangle<int>(0, 4, 0, 3), Rgba(1, 0, 0.5f, 1), 1);
  IxTile const b = floatTile(IxPixelFormat::RGBA, GeRectangle<int>(1, 6, 0, 3), Rgba(0, 0.5f, 0.25f, 0), 2);
  IxTile const matte = floatTile(IxPixelFormat::ALPHA, GeRectangle<int>(0, 3, 1, 4), Rgba(9, 9, 9, 0.25f), 3);
  IxTile const out(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32), GeRectangle<int>(-1, 6, -1, 4),
                   Rgba(5, 5, 5, 5));
  IxWriteGuard guard(out);
  ipBlend(guard, IxReadGuard(a), IxReadGuard(b), IxReadGuard(matte));
  // (a.fill - b.fill) * matte fill alpha + b.fill.
  EXPECT_EQ(guard.getTile().getFillColor(), Rgba(0.25f, 0.375f, 0.3125f, 0.25f));
  expectBlended(out, a, b, matte);
  // Some weights of the pattern are negative: the mix extrapolates there, unclamped.
  bool negativeWeight = false;
  for (int y = 1; y < 4; ++y)
    for (int x = 0; x < 3; ++x) negativeWeight |= floatAt(matte, x, y, 0) < 0.f;
  EXPECT_TRUE(negativeWeight);
}

TEST(IpBlendTest, FourComponentMatteWeighsByItsAlpha) {
  IxScanlineImpFactories::install();
  GeRectangle<int> const region(2, 9, 0, 2);
  IxTile const a = floatTile(IxPixelFormat::RGBA, region, Rgba(), 4);
  IxTile const b = floatTile(IxPixelFormat::RGBA, region, Rgba(), 5);
  IxTile const matte = floatTile(IxPixelFormat::RGBA, GeRectangle<int>(2, 6, 0, 2), Rgba(0.5f, 0.5f, 0.5f, 0.75f), 6);
  IxTile const out(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32), region, Rgba());
  IxWriteGuard guard(out);
  ipBlend(guard, IxReadGuard(a), IxReadGuard(b), IxReadGuard(matte));
  expectBlended(out, a, b, matte);
  EXPECT_EQ(guard.getTile().getFillColor(), Rgba(0, 0, 0, 0));

  // A matte whose colour says nothing: only its alpha counts.
  IxTile const zeroAlpha(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32), region, Rgba());
  for (int y = 0; y < 2; ++y)
    for (int x = 2; x < 9; ++x)
      for (int c = 0; c < 4; ++c) setRaw(zeroAlpha, x, y, c, std::bit_cast<std::uint32_t>(c == 3 ? 0.f : 1.f));
  ipBlend(guard, IxReadGuard(a), IxReadGuard(b), IxReadGuard(zeroAlpha));
  EXPECT_EQ(snapshot(out), snapshot(b));
}

TEST(IpBlendTest, NeedsAValidDestination) {
  IxScanlineImpFactories::install();
  IxTile const a = floatTile(IxPixelFormat::RGBA, GeRectangle<int>(0, 2, 0, 2), Rgba(), 1);
  IxWriteGuard invalid;
  try {
    ipBlend(invalid, IxReadGuard(a), IxReadGuard(a), IxReadGuard(a));
    FAIL() << "no assertion";
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "isValid()");
  }
}

}  // namespace
