#include <orn/primitives/color/coHsvColor.h>

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <sstream>

namespace Orn {
namespace {

using Rgb = CoRgbColorTyped<float>;

void expectRgbNear(Rgb const& expected, Rgb const& actual, float tolerance = 1e-6f) {
  EXPECT_NEAR(expected.r, actual.r, tolerance);
  EXPECT_NEAR(expected.g, actual.g, tolerance);
  EXPECT_NEAR(expected.b, actual.b, tolerance);
}

TEST(CoHsvColorTest, KnownColoursGreysAndNegativeComponents) {
  struct Case {
    Rgb rgb;
    CoHsvColor hsv;
  } const cases[] = {{Rgb(1, 0, 0), {0, 1, 1}},       {Rgb(1, 1, 0), {60, 1, 1}},        {Rgb(0, 1, 1), {180, 1, 1}},
                     {Rgb(1, 0, 1), {300, 1, 1}},     {Rgb(0.5f, 0.25f, 0), {30, 1, 0.5f}}, {Rgb(1, 0, 0.5f), {330, 1, 1}},
                     {Rgb(0.4f, 0.4f, 0.4f), {0, 0, 0.4f}}, {Rgb(0, 0, 0), {0, 0, 0}},
                     {Rgb(1, -1, 0), {330, 2, 1}}};  // negative components lift s above 1
  for (Case const& c : cases) {
    CoHsvColor const hsv(c.rgb);
    EXPECT_FLOAT_EQ(c.hsv.h, hsv.h) << c.rgb.r << ' ' << c.rgb.g << ' ' << c.rgb.b;
    EXPECT_FLOAT_EQ(c.hsv.s, hsv.s);
    EXPECT_EQ(c.hsv.v, hsv.v);
  }
  // No saturation, or a negative one, is a grey of the value whatever the hue.
  EXPECT_EQ(Rgb(0.3f, 0.3f, 0.3f), CoHsvColor(100, 0, 0.3f).convertToRgb());
  EXPECT_EQ(Rgb(0.3f, 0.3f, 0.3f), CoHsvColor(100, -0.5f, 0.3f).convertToRgb());
}

TEST(CoHsvColorTest, HueWrapsIntoOneTurn) {
  EXPECT_EQ(Rgb(1, 0, 0), CoHsvColor(360, 1, 1).convertToRgb());
  EXPECT_EQ(Rgb(1, 0, 0), CoHsvColor(720, 1, 1).convertToRgb());
  expectRgbNear(Rgb(1, 0, 0.5f), CoHsvColor(-30, 1, 1).convertToRgb());
  expectRgbNear(Rgb(1, 0, 0), CoHsvColor(-1e-9f, 1, 1).convertToRgb());  // wraps to 360, red again
  CoHsvColor(std::numeric_limits<float>::infinity(), 1, 1).convertToRgb();  // no crash
  CoHsvColor(std::numeric_limits<float>::quiet_NaN(), 1, 1).convertToRgb();
}

TEST(CoHsvColorTest, RoundTripSaturationValueOnlyAndText) {
  std::mt19937 rng(7);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 2000; ++i) {
    Rgb const rgb(unit(rng), unit(rng), unit(rng));
    CoHsvColor const hsv(rgb);
    ASSERT_TRUE(hsv.h >= 0.0f && hsv.h < 360.0f);
    expectRgbNear(rgb, hsv.convertToRgb(), 2e-6f);
    CoHsvColor svOnly(123.0f, 9.0f, 9.0f);
    svOnly.convertFromRgbToSvOnly(rgb);
    EXPECT_EQ(CoHsvColor(123.0f, hsv.s, hsv.v), svOnly);
  }
  // A grey keeps its level through convertFromRgb, but not through the reduced route.
  CoHsvColor grey(45.0f, 9.0f, 9.0f);
  grey.convertFromRgbToSvOnly(Rgb(0.5f, 0.5f, 0.5f));
  EXPECT_EQ(grey, CoHsvColor(45.0f, 0.0f, 0.0f));
  EXPECT_EQ(CoHsvColor(Rgb(0.5f, 0.5f, 0.5f)).v, 0.5f);
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
