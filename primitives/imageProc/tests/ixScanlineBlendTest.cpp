#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ixScanlineBlend.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "../src/ixScanlineBlendPaths.h"
#include "ixScanlineTestUtil.h"

using namespace Orn;

namespace {

using Rgb = CoRgbColorTyped<float>;
using Rgba = CoRgbaColorTyped<float>;
using Op = IxScanlineBlend::BlendOp;

float const INF = std::numeric_limits<float>::infinity();
float const NaN = std::numeric_limits<float>::quiet_NaN();

class IxScanlineBlendTest : public IxScanlineTestBase {
protected:
  void SetUp() override {
    IxScanlineTestBase::SetUp();
    IxScanlineBlend::initialize();
  }
};

float blend(Op op, float a, float b) { return IxScanlineBlend(op).blend(a, b); }
Rgb blend(Op op, Rgb const& a, Rgb const& b) { return IxScanlineBlend(op).blend(a, b); }

// Same bits, or both NaN.
bool sameValue(float x, float y) {
  return (std::isnan(x) && std::isnan(y)) || std::bit_cast<std::uint32_t>(x) == std::bit_cast<std::uint32_t>(y);
}

bool isHsv(int op) { return op >= IxScanlineBlend::BLEND_HUE; }

TEST_F(IxScanlineBlendTest, EachModeOnTwoPairsOfValues) {
  // Results worked by hand from each mode's formula for (a, b) = (0.25, 0.75) and (0.75, 0.5).
  struct Row {
    Op op;
    float first;
    float second;
  };
  Row const rows[] = {
      {IxScanlineBlend::BLEND_NORMAL, 0.25f, 0.75f},
      {IxScanlineBlend::BLEND_AVERAGE, 0.5f, 0.625f},
      {IxScanlineBlend::BLEND_ADD, 1.0f, 1.25f},
      {IxScanlineBlend::BLEND_SUBTRACT, 0.5f, -0.25f},
      {IxScanlineBlend::BLEND_DARKEN, 0.25f, 0.5f},
      {IxScanlineBlend::BLEND_MULTIPLY, 0.1875f, 0.375f},
      {IxScanlineBlend::BLEND_COLOR_BURN, 0.0f, 1.0f / 3.0f},
      {IxScanlineBlend::BLEND_LINEAR_BURN, 0.0f, 0.25f},
      {IxScanlineBlend::BLEND_LIGHTEN, 0.75f, 0.75f},
      {IxScanlineBlend::BLEND_SCREEN, 0.8125f, 0.875f},
      {IxScanlineBlend::BLEND_COLOR_DODGE, 1.0f, 2.0f},
      {IxScanlineBlend::BLEND_LINEAR_DODGE, 1.0f, 1.0f},
      {IxScanlineBlend::BLEND_SPOTLIGHT, 0.375f, 0.75f},
      {IxScanlineBlend::BLEND_SPOTLIGHT_BLEND, 0.9375f, 0.875f},
      {IxScanlineBlend::BLEND_OVERLAY, 0.625f, 0.75f},
      {IxScanlineBlend::BLEND_SOFT_LIGHT, 0.65625f, 0.25f + 0.5f * 0.70710678f},
      {IxScanlineBlend::BLEND_HARD_LIGHT, 0.375f, 0.75f},
      {IxScanlineBlend::BLEND_PIN_LIGHT, 0.25f, 0.75f},
      {IxScanlineBlend::BLEND_HARD_MIX, 0.0f, 1.0f},
      {IxScanlineBlend::BLEND_DIFFERENCE, 0.5f, 0.25f},
      {IxScanlineBlend::BLEND_EXCLUSION, 0.625f, 0.5f},
  };
  ASSERT_EQ(std::size(rows), std::size_t(IxScanlineBlend::BLEND_HUE));
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    Row const& row = rows[i];
    ASSERT_EQ(row.op, Op(i));
    SCOPED_TRACE(IxScanlineBlend::getBlendOpName(row.op));
    EXPECT_FLOAT_EQ(blend(row.op, 0.25f, 0.75f), row.first);
    EXPECT_FLOAT_EQ(blend(row.op, 0.75f, 0.5f), row.second);
    // The RGB form is the same formula per channel, with a and b kept apart.
    Rgb const c = blend(row.op, Rgb(0.25f, 0.75f, 0.25f), Rgb(0.75f, 0.5f, 0.75f));
    EXPECT_FLOAT_EQ(c.r, row.first);
    EXPECT_FLOAT_EQ(c.g, blend(row.op, 0.75f, 0.5f));
    EXPECT_FLOAT_EQ(c.b, row.first);
  }
  // Pin Light falls back to b when a is on the wrong side of it.
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_PIN_LIGHT, 0.75f, 0.875f), 0.875f);
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_PIN_LIGHT, 0.25f, 0.125f), 0.125f);
}

TEST_F(IxScanlineBlendTest, ThresholdsAndOrderOfArguments) {
  // Strict thresholds: a == 0.5 is neither above nor below (a + b == 1 in Hard Mix: first row).
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_PIN_LIGHT, 0.5f, 0.25f), 0.25f);
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_PIN_LIGHT, 0.5f, 0.75f), 0.75f);
  // Soft Light at a = 0.5 takes the branch without the square root, so a negative b stays finite.
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_SOFT_LIGHT, 0.5f, -0.25f), -0.25f);

  EXPECT_EQ(blend(IxScanlineBlend::BLEND_SUBTRACT, 0.25f, 1.0f), 0.75f);
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_SUBTRACT, 1.0f, 0.25f), -0.75f);

  // No clamping except where the mode says so.
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_ADD, 2.0f, 3.0f), 5.0f);
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_AVERAGE, 2.0f, 3.0f), 2.5f);
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_MULTIPLY, 2.0f, 3.0f), 6.0f);
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_SPOTLIGHT, 2.0f, 3.0f), 12.0f);
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_SPOTLIGHT_BLEND, 2.0f, 3.0f), 9.0f);
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_LINEAR_DODGE, 2.0f, 3.0f), 1.0f);
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_LINEAR_BURN, -1.0f, 0.5f), 0.0f);
  EXPECT_EQ(blend(IxScanlineBlend::BLEND_DIFFERENCE, 2.0f, -3.0f), 5.0f);
}

TEST_F(IxScanlineBlendTest, ScreenPassesHighValuesOfBAndRoundsOnce) {
  Op const screen = IxScanlineBlend::BLEND_SCREEN;
  for (float a : {0.3f, 5.0f, -1.0f, 0.0f}) EXPECT_EQ(blend(screen, a, 2.0f), 2.0f);
  EXPECT_EQ(blend(screen, 7.0f, 1.0f), 1.0f);
  EXPECT_EQ(blend(screen, 0.5f, 0.5f), 0.75f);
  // The exact result 0.7 + 0.3 * 0.3 of these floats rounds to 0.79f; float steps would give
  // the float below it.
  EXPECT_EQ(blend(screen, 0.3f, 0.7f), 0.79f);
  EXPECT_EQ(blend(screen, 0.7f, 0.3f), 0.79f);
  // Negative b has no cap: b + a (1 - b).
  EXPECT_EQ(blend(screen, 0.5f, -1.0f), 0.0f);
}

TEST_F(IxScanlineBlendTest, DivisionsAndRootsLetInfinitiesAndNaNsThrough) {
  Op const dodge = IxScanlineBlend::BLEND_COLOR_DODGE;
  EXPECT_EQ(blend(dodge, 1.0f, 0.5f), INF);
  EXPECT_EQ(blend(dodge, 1.0f, -0.5f), -INF);
  EXPECT_TRUE(std::isnan(blend(dodge, 1.0f, 0.0f)));
  EXPECT_EQ(blend(dodge, 3.0f, 1.0f), -0.5f);

  Op const burn = IxScanlineBlend::BLEND_COLOR_BURN;
  for (float b : {0.0f, 0.5f, 1.0f, -3.0f, INF, NaN}) {
    EXPECT_EQ(blend(burn, 0.0f, b), 0.0f) << b;
    EXPECT_EQ(blend(burn, -0.0f, b), 0.0f) << b;
  }
  for (float a : {1e-20f, -1e-20f, -3.0f, 0.5f, INF}) EXPECT_EQ(blend(burn, a, 1.0f), 1.0f) << a;
  // Only an exact zero counts as zero: a tiny negative a divides.
  EXPECT_FLOAT_EQ(blend(burn, -1e-30f, 0.5f), 5e29f);
  EXPECT_FLOAT_EQ(blend(burn, 1e-30f, 0.5f), -5e29f);
  EXPECT_EQ(blend(burn, INF, 0.5f), 1.0f);
  EXPECT_TRUE(std::isnan(blend(burn, NaN, 0.5f)));
  EXPECT_TRUE(std::isnan(blend(burn, INF, INF)));

  Op const soft = IxScanlineBlend::BLEND_SOFT_LIGHT;
  EXPECT_TRUE(std::isnan(blend(soft, 0.75f, -0.25f)));
  EXPECT_EQ(blend(soft, 0.25f, -0.5f), -0.125f);
}

TEST_F(IxScanlineBlendTest, HsvModesMixHueSaturationAndValue) {
  auto expectRgb = [](Rgb const& c, float r, float g, float b) {
    EXPECT_NEAR(c.r, r, 1e-6f);
    EXPECT_NEAR(c.g, g, 1e-6f);
    EXPECT_NEAR(c.b, b, 1e-6f);
  };
  // Hue of a (red, 0 degrees) with saturation 0.75 and value 0.8 of b.
  expectRgb(blend(IxScanlineBlend::BLEND_HUE, Rgb(1, 0, 0), Rgb(0.2f, 0.4f, 0.8f)), 0.8f, 0.2f, 0.2f);
  // Saturation 0.5 of a; hue 210 and value 1 of b.
  expectRgb(blend(IxScanlineBlend::BLEND_SATURATION, Rgb(1, 0.5f, 0.5f), Rgb(0, 0.5f, 1)), 0.5f, 0.75f, 1.0f);
  // Hue 210 and saturation 1 of a; value 0.5 of b.
  expectRgb(blend(IxScanlineBlend::BLEND_COLOR, Rgb(0, 0.5f, 1), Rgb(0.5f, 0.25f, 0.25f)), 0.0f, 0.25f, 0.5f);
  // Value 0.5 of a; hue 0 and saturation 1 of b.
  expectRgb(blend(IxScanlineBlend::BLEND_VALUE, Rgb(0.25f, 0.5f, 0.125f), Rgb(1, 0, 0)), 0.5f, 0.0f, 0.0f);

  // The saturation and value read on their own give a grey the value 0.
  Rgb const grey(0.5f, 0.5f, 0.5f);
  expectRgb(blend(IxScanlineBlend::BLEND_VALUE, grey, Rgb(1, 0, 0)), 0, 0, 0);
  expectRgb(blend(IxScanlineBlend::BLEND_COLOR, Rgb(0, 0.5f, 1), grey), 0, 0, 0);
  expectRgb(blend(IxScanlineBlend::BLEND_HUE, Rgb(0, 0.5f, 1), grey), 0, 0, 0);
  // Saturation takes only the (zero) saturation of a grey a; b's value comes through.
  expectRgb(blend(IxScanlineBlend::BLEND_SATURATION, grey, Rgb(0.2f, 0.4f, 0.8f)), 0.8f, 0.8f, 0.8f);
  // A grey b in Saturation goes through the full conversion: hue 0 and its own level.
  expectRgb(blend(IxScanlineBlend::BLEND_SATURATION, Rgb(1, 0, 0), grey), 0.5f, 0.0f, 0.0f);

  // On single values the HSV modes return a, as Normal does.
  for (int op = IxScanlineBlend::BLEND_HUE; op < IxScanlineBlend::NB_BLEND_OPS; ++op)
    EXPECT_EQ(blend(Op(op), 0.25f, 0.75f), 0.25f);
}

TEST_F(IxScanlineBlendTest, IntervalsAreCheckedInOrder) {
  IxPaddingPolicy<float> const pad(IxScanlineTypes::NOOP, 0.f);
  IxScanline<float> wide(GeInterval<int>(0, 10), pad);
  IxScanline<float> narrow(GeInterval<int>(2, 6), pad);
  IxScanline<float> other(GeInterval<int>(0, 10), pad);
  IxScanlineBlend const add(IxScanlineBlend::BLEND_ADD);
  GeInterval<int> const span(1, 5);
  EXPECT_EQ(conditionOf([&] { add.blend(narrow, narrow, narrow, &span); }), "dst.getInterval().contains( dstInterval )");
  EXPECT_EQ(conditionOf([&] { add.blend(wide, narrow, narrow, &span); }), "srcA.getInterval().contains( dstInterval )");
  EXPECT_EQ(conditionOf([&] { add.blend(wide, other, narrow, &span); }), "srcB.getInterval().contains( dstInterval )");
  // A null interval is dst's whole interval, here wider than the sources.
  EXPECT_EQ(conditionOf([&] { add.blend(wide, other, narrow, nullptr); }), "srcB.getInterval().contains( dstInterval )");

  // Positions are absolute: x reads x of both sources, even with different intervals.
  for (int x = 0; x < 10; ++x) {
    wide[x] = -1.f;
    other[x] = float(x);
  }
  for (int x = 2; x < 6; ++x) narrow[x] = 100.f * x;
  GeInterval<int> const inside(3, 5);
  add.blend(wide, other, narrow, &inside);
  for (int x = 0; x < 10; ++x) EXPECT_EQ(wide[x], inside.contains(x) ? 101.f * x : -1.f) << x;
}

// Values that exercise every branch and the special cases of the formulas.
std::vector<float> randomValues(std::mt19937& rng, int n) {
  float const specials[] = {0.0f, -0.0f, 1.0f, 0.5f, -1.0f, 2.0f, INF, -INF, NaN, 1e-30f, -1e-30f, 1e-40f, 0.25f};
  std::uniform_real_distribution<float> unit(-0.5f, 1.5f);
  std::uniform_int_distribution<int> pick(0, 3 * int(std::size(specials)));
  std::vector<float> values(static_cast<std::size_t>(n));
  for (float& v : values) {
    int const k = pick(rng);
    v = k < int(std::size(specials)) ? specials[k] : unit(rng);
  }
  return values;
}

// Every mode on float and RGBA scanlines of random values, at every alignment, against the
// single-value and RGB forms.
void checkScanlinesAgainstScalar() {
  std::mt19937 rng(1234);
  int const n = 67;
  // Caller buffers with a spare float in front, so each start offset sees another alignment.
  std::vector<float> bufA(n + 4), bufB(n + 4), bufD(n + 4);
  std::vector<Rgba> rgbaA(n), rgbaB(n), rgbaD(n);
  IxPaddingPolicy<float> const pad(IxScanlineTypes::NOOP, 0.f);
  IxPaddingPolicy<Rgba> const padRgba(IxScanlineTypes::NOOP, Rgba());
  for (int op = 0; op < IxScanlineBlend::NB_BLEND_OPS; ++op) {
    IxScanlineBlend const mode{Op(op)};
    SCOPED_TRACE(IxScanlineBlend::getBlendOpName(Op(op)));
    for (int shift = 0; shift < 4; ++shift) {
      GeInterval<int> const xs(-5, n - 5);
      IxScanline<float> a(xs, bufA.data() + shift, pad);
      IxScanline<float> b(xs, bufB.data() + (3 - shift), pad);
      IxScanline<float> d(xs, bufD.data() + shift / 2, pad);
      std::vector<float> const va = randomValues(rng, n), vb = randomValues(rng, n);
      for (int i = 0; i < n; ++i) {
        a[xs.min + i] = va[std::size_t(i)];
        b[xs.min + i] = vb[std::size_t(i)];
        d[xs.min + i] = 42.f;
      }
      GeInterval<int> const part(xs.min + shift, xs.max - 1);
      mode.blend(d, a, b, &part);
      for (int x = xs.min; x < xs.max; ++x) {
        float const expected = part.contains(x) ? (isHsv(op) ? a[x] : mode.blend(a[x], b[x])) : 42.f;
        ASSERT_TRUE(sameValue(d[x], expected)) << "x " << x << " a " << a[x] << " b " << b[x] << " got " << d[x];
      }
    }
    // RGBA: the first pixel of the range on either half of a 32-byte line, and an odd count.
    for (int start : {0, 1, 2})
      for (bool alpha : {false, true}) {
        GeInterval<int> const xs(10, 10 + n);
        IxScanline<Rgba> a(xs, rgbaA.data(), padRgba);
        IxScanline<Rgba> b(xs, rgbaB.data(), padRgba);
        IxScanline<Rgba> d(xs, rgbaD.data(), padRgba);
        std::vector<float> const va = randomValues(rng, 4 * n), vb = randomValues(rng, 4 * n);
        for (int i = 0; i < n; ++i) {
          std::size_t const k = 4 * std::size_t(i);
          rgbaA[std::size_t(i)] = Rgba(va[k], va[k + 1], va[k + 2], va[k + 3]);
          rgbaB[std::size_t(i)] = Rgba(vb[k], vb[k + 1], vb[k + 2], vb[k + 3]);
          rgbaD[std::size_t(i)] = Rgba(42.f, 42.f, 42.f, float(i));
        }
        GeInterval<int> const part(xs.min + start, xs.max - start);
        mode.blend(d, a, b, start == 0 ? nullptr : &part, alpha);
        for (int x = xs.min; x < xs.max; ++x) {
          float const previousAlpha = float(x - xs.min);
          if (!part.contains(x)) {
            ASSERT_TRUE(d[x].r == 42.f && d[x].g == 42.f && d[x].b == 42.f && d[x].a == previousAlpha) << "x " << x;
            continue;
          }
          Rgb const c = mode.blend(Rgb(a[x].r, a[x].g, a[x].b), Rgb(b[x].r, b[x].g, b[x].b));
          float const expectedAlpha = alpha ? b[x].a : previousAlpha;
          ASSERT_TRUE(sameValue(d[x].r, c.r) && sameValue(d[x].g, c.g) && sameValue(d[x].b, c.b) &&
                      sameValue(d[x].a, expectedAlpha))
              << "x " << x << " start " << start;
        }
      }
  }
}

TEST_F(IxScanlineBlendTest, ScanlinesGiveTheScalarResults) {
  // The wide loops where the processor has them, then the SSE2 loops.
  bool const wide = IxScanlineBlendPaths::isWideAvailable();
  IxScanlineBlendPaths::setWideEnabled(true);
  EXPECT_EQ(IxScanlineBlendPaths::isWideEnabled(), wide);
  checkScanlinesAgainstScalar();
  IxScanlineBlendPaths::setWideEnabled(false);
  EXPECT_FALSE(IxScanlineBlendPaths::isWideEnabled());
  checkScanlinesAgainstScalar();
  IxScanlineBlendPaths::setWideEnabled(true);
}

TEST_F(IxScanlineBlendTest, InputPolicyListsTheModes) {
  char const* const names[] = {"Normal",      "Average",    "Add",         "Subtract",   "Darken",
                               "Multiply",    "Color Burn", "Linear Burn", "Lighten",    "Screen",
                               "Color Dodge", "Linear Dodge", "Spotlight", "Spotlight Blend", "Overlay",
                               "Soft Light",  "Hard Light", "Pin Light",   "Hard Mix",   "Difference",
                               "Exclusion",   "Hue",        "Saturation",  "Color",      "Value"};
  RCShdPtr<PiEnumPolicy const> const all =
      IxScanlineBlend::createInputPolicy(true, IxScanlineBlend::BLEND_SCREEN, true);
  ASSERT_EQ(all->getNbPairs(), 25);
  for (int i = 0; i < 25; ++i) {
    EXPECT_EQ(all->getValue(i), i);
    EXPECT_EQ(all->getName(i), LiString(names[i]));
    EXPECT_STREQ(IxScanlineBlend::getBlendOpName(Op(i)), names[i]);
  }
  EXPECT_EQ(all->getDefaultValue(), IxScanlineBlend::BLEND_SCREEN);
  EXPECT_TRUE(all->isAnimatable());

  RCShdPtr<PiEnumPolicy const> const plain =
      IxScanlineBlend::createInputPolicy(false, IxScanlineBlend::BLEND_HUE, false);
  ASSERT_EQ(plain->getNbPairs(), 21);
  EXPECT_EQ(plain->getName(20), LiString("Exclusion"));
  EXPECT_EQ(plain->getDefaultValue(), IxScanlineBlend::BLEND_HUE);
  EXPECT_FALSE(plain->isAnimatable());
}

}  // namespace
