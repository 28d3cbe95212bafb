#include <orn/primitives/color/coHsvColor.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <sstream>

namespace Orn {
namespace {

using Rgb = CoRgbColorTyped<float>;

void expectRgbNear(Rgb const& expected, Rgb const& actual, float tolerance) {
  EXPECT_NEAR(expected.r, actual.r, tolerance);
  EXPECT_NEAR(expected.g, actual.g, tolerance);
  EXPECT_NEAR(expected.b, actual.b, tolerance);
}

TEST(CoHsvColorTest, PrimariesAndSecondariesSitAtMultiplesOfSixtyDegrees) {
  struct Case {
    Rgb rgb;
    float h;
  } const cases[] = {{Rgb(1, 0, 0), 0},   {Rgb(1, 1, 0), 60},  {Rgb(0, 1, 0), 120},
                     {Rgb(0, 1, 1), 180}, {Rgb(0, 0, 1), 240}, {Rgb(1, 0, 1), 300}};
  for (Case const& c : cases) {
    CoHsvColor const hsv(c.rgb);
    EXPECT_FLOAT_EQ(c.h, hsv.h) << c.rgb.r << ' ' << c.rgb.g << ' ' << c.rgb.b;
    EXPECT_EQ(1.0f, hsv.s);
    EXPECT_EQ(1.0f, hsv.v);
    EXPECT_EQ(c.rgb, hsv.convertToRgb());
  }
  // Orange at half value: hue 30, full saturation.
  CoHsvColor const orange(Rgb(0.5f, 0.25f, 0.0f));
  EXPECT_FLOAT_EQ(30.0f, orange.h);
  EXPECT_FLOAT_EQ(1.0f, orange.s);
  EXPECT_EQ(0.5f, orange.v);
  // Hue just below red, from the blue side.
  CoHsvColor const rose(Rgb(1.0f, 0.0f, 0.5f));
  EXPECT_FLOAT_EQ(330.0f, rose.h);
}

TEST(CoHsvColorTest, GreysAndNegativeComponents) {
  CoHsvColor grey(Rgb(0.4f, 0.4f, 0.4f));
  EXPECT_EQ(CoHsvColor(0, 0, 0.4f), grey);
  CoHsvColor const black(Rgb(0, 0, 0));
  EXPECT_EQ(CoHsvColor(0, 0, 0), black);
  EXPECT_FALSE(std::isnan(black.s));

  // Negative components lift saturation above 1.
  CoHsvColor const wide(Rgb(1.0f, -1.0f, 0.0f));
  EXPECT_FLOAT_EQ(2.0f, wide.s);
  EXPECT_EQ(1.0f, wide.v);

  // No saturation, or negative saturation, is a grey of the value whatever the hue.
  EXPECT_EQ(Rgb(0.3f, 0.3f, 0.3f), CoHsvColor(100, 0, 0.3f).convertToRgb());
  EXPECT_EQ(Rgb(0.3f, 0.3f, 0.3f), CoHsvColor(100, -0.5f, 0.3f).convertToRgb());
}

TEST(CoHsvColorTest, HueWrapsIntoOneTurn) {
  EXPECT_EQ(Rgb(1, 0, 0), CoHsvColor(360, 1, 1).convertToRgb());
  EXPECT_EQ(Rgb(1, 0, 0), CoHsvColor(720, 1, 1).convertToRgb());
  expectRgbNear(Rgb(1, 0, 0.5f), CoHsvColor(-30, 1, 1).convertToRgb(), 1e-6f);
  expectRgbNear(CoHsvColor(330, 1, 1).convertToRgb(), CoHsvColor(-390, 1, 1).convertToRgb(), 1e-6f);
  // A hue a hair below zero wraps to the top of the turn, which is red again.
  expectRgbNear(Rgb(1, 0, 0), CoHsvColor(-1e-9f, 1, 1).convertToRgb(), 1e-6f);
  // Unusable hues give no crash.
  CoHsvColor(std::numeric_limits<float>::infinity(), 1, 1).convertToRgb();
  CoHsvColor(std::numeric_limits<float>::quiet_NaN(), 1, 1).convertToRgb();
}

TEST(CoHsvColorTest, RoundTripAndSaturationValueOnly) {
  std::mt19937 rng(7);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 2000; ++i) {
    Rgb const rgb(unit(rng), unit(rng), unit(rng));
    CoHsvColor const hsv(rgb);
    ASSERT_GE(hsv.h, 0.0f);
    ASSERT_LT(hsv.h, 360.0f);
    expectRgbNear(rgb, hsv.convertToRgb(), 2e-6f);

    CoHsvColor svOnly(123.0f, 9.0f, 9.0f);
    svOnly.convertFromRgbToSvOnly(rgb);
    EXPECT_EQ(123.0f, svOnly.h);
    EXPECT_EQ(hsv.s, svOnly.s);
    EXPECT_EQ(hsv.v, svOnly.v);
  }
}

TEST(CoHsvColorTest, DumpReadRoundTripKeepsBits) {
  CoHsvColor const original(1.0f / 3.0f, 0.1f, 1e-7f);
  std::stringstream text;
  text.precision(2);  // the stream's setting must not lose digits
  original.dump(text);
  CoHsvColor back;
  back.read(text);
  EXPECT_EQ(original, back);
}

}  // namespace
}  // namespace Orn
