#include <orn/primitives/color/coColorConversion.h>

#include <orn/primitives/color/coHsvColor.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace Orn {
namespace {

constexpr float MAX_FLOAT = std::numeric_limits<float>::max();

struct Triple {
  float a;
  float b;
  float c;
};

TEST(CoColorConversionTest, SafeDivisionBoundsAndSigns) {
  EXPECT_EQ(0.0f, CoColorConversion::safeDivide(0.0f, 0.0f));
  EXPECT_EQ(0.0f, CoColorConversion::safeDivide(-0.0f, 5.0f));
  EXPECT_EQ(MAX_FLOAT, CoColorConversion::safeDivide(1.0f, 0.0f));
  EXPECT_EQ(-MAX_FLOAT, CoColorConversion::safeDivide(-1.0f, 0.0f));
  EXPECT_EQ(-0.5f, CoColorConversion::safeDivide(1.0f, -2.0f));
  EXPECT_EQ(0.5f, CoColorConversion::safeDivide(-1.0f, -2.0f));
  EXPECT_EQ(MAX_FLOAT, CoColorConversion::safeDivide(1e30f, 1e-30f));
  EXPECT_EQ(-MAX_FLOAT, CoColorConversion::safeDivide(1e30f, -1e-30f));
  EXPECT_EQ(2.0f, CoColorConversion::safeDivide(6.0f, 3.0f));
  EXPECT_TRUE(std::isnan(CoColorConversion::safeDivide(std::nanf(""), 2.0f)));
}

TEST(CoColorConversionTest, HsvOfSeparateFloatsMatchesTheColourClass) {
  float h, s, v;
  CoColorConversion::convertRGBToHSV(0.2f, 0.4f, 0.6f, &h, &s, &v);
  EXPECT_FLOAT_EQ(210.0f, h);
  EXPECT_FLOAT_EQ(2.0f / 3.0f, s);
  EXPECT_EQ(0.6f, v);
  CoColorConversion::convertRGBToHSV(1.0f, 0.0f, 0.5f, &h, &s, &v);
  EXPECT_FLOAT_EQ(330.0f, h);
  CoColorConversion::convertRGBToHSV(0.7f, 0.7f, 0.7f, &h, &s, &v);
  EXPECT_EQ(0.0f, h);
  EXPECT_EQ(0.0f, s);

  std::mt19937 rng(11);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 1000; ++i) {
    CoRgbColorTyped<float> const rgb(unit(rng), unit(rng), unit(rng));
    CoHsvColor const hsv(rgb);
    convertRGBToHSV(rgb.r, rgb.g, rgb.b, &h, &s, &v);
    EXPECT_NEAR(hsv.h, h, 1e-3f);
    EXPECT_EQ(hsv.s, s);
    EXPECT_EQ(hsv.v, v);
    float r, g, b;
    convertHSVToRGB(h, s, v, &r, &g, &b);
    EXPECT_NEAR(rgb.r, r, 2e-6f);
    EXPECT_NEAR(rgb.g, g, 2e-6f);
    EXPECT_NEAR(rgb.b, b, 2e-6f);
  }
}

TEST(CoColorConversionTest, HlsKnownValuesAndRoundTrip) {
  struct Case {
    Triple rgb;
    Triple hls;
  } const cases[] = {
      {{1, 0, 0}, {0, 0.5f, 1}},          {{0.5f, 0.5f, 0.5f}, {0, 0.5f, 0}},
      {{0.2f, 0.4f, 0.6f}, {210, 0.4f, 0.5f}}, {{0.9f, 0.7f, 0.5f}, {30, 0.7f, 2.0f / 3.0f}},
      {{0, 1, 0}, {120, 0.5f, 1}},        {{0.25f, 0, 0.25f}, {300, 0.125f, 1}},
  };
  for (Case const& c : cases) {
    float h, l, s;
    CoColorConversion::convertRGBToHLS(c.rgb.a, c.rgb.b, c.rgb.c, &h, &l, &s);
    EXPECT_NEAR(c.hls.a, h, 1e-4f);
    EXPECT_FLOAT_EQ(c.hls.b, l);
    EXPECT_NEAR(c.hls.c, s, 1e-6f);
    float r, g, b;
    CoColorConversion::convertHLSToRGB(c.hls.a, c.hls.b, c.hls.c, &r, &g, &b);
    EXPECT_NEAR(c.rgb.a, r, 1e-6f);
    EXPECT_NEAR(c.rgb.b, g, 1e-6f);
    EXPECT_NEAR(c.rgb.c, b, 1e-6f);
  }

  // Hues outside one turn wrap.
  float r0, g0, b0, r1, g1, b1;
  convertHLSToRGB(30.0f, 0.6f, 0.5f, &r0, &g0, &b0);
  convertHLSToRGB(390.0f, 0.6f, 0.5f, &r1, &g1, &b1);
  EXPECT_NEAR(r0, r1, 1e-6f);
  EXPECT_NEAR(g0, g1, 1e-6f);
  EXPECT_NEAR(b0, b1, 1e-6f);
  convertHLSToRGB(-330.0f, 0.6f, 0.5f, &r1, &g1, &b1);
  EXPECT_NEAR(r0, r1, 1e-5f);
  EXPECT_NEAR(g0, g1, 1e-5f);
  EXPECT_NEAR(b0, b1, 1e-5f);

  std::mt19937 rng(5);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 1000; ++i) {
    float const r = unit(rng), g = unit(rng), b = unit(rng);
    float h, l, s, r2, g2, b2;
    convertRGBToHLS(r, g, b, &h, &l, &s);
    ASSERT_GE(h, 0.0f);
    ASSERT_LT(h, 360.0f);
    convertHLSToRGB(h, l, s, &r2, &g2, &b2);
    EXPECT_NEAR(r, r2, 1e-5f);
    EXPECT_NEAR(g, g2, 1e-5f);
    EXPECT_NEAR(b, b2, 1e-5f);
  }
}

}  // namespace
}  // namespace Orn
