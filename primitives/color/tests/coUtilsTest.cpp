#include <orn/primitives/color/coUtils.h>

#include <gtest/gtest.h>

namespace Orn {
namespace {

using Rgb = CoRgbColorTyped<float>;

void expectRgbNear(Rgb const& expected, Rgb const& actual) {
  EXPECT_NEAR(expected.r, actual.r, 1e-6f);
  EXPECT_NEAR(expected.g, actual.g, 1e-6f);
  EXPECT_NEAR(expected.b, actual.b, 1e-6f);
}

TEST(CoUtilsTest, AutoColorPaletteCyclesHuesThenBrightness) {
  expectRgbNear(Rgb(1, 0, 0), CoUtils::getAutoColor(0, false));
  expectRgbNear(Rgb(1, 0.6f, 0), CoUtils::getAutoColor(1, false));  // 36 degrees
  expectRgbNear(Rgb(0, 1, 1), CoUtils::getAutoColor(5, false));     // 180 degrees
  expectRgbNear(Rgb(0.75f, 0, 0), CoUtils::getAutoColor(10, false));
  expectRgbNear(Rgb(0.5f, 0, 0), CoUtils::getAutoColor(20, false));
  EXPECT_EQ(CoUtils::getAutoColor(0, false), CoUtils::getAutoColor(30, false));
  EXPECT_EQ(CoUtils::getAutoColor(17, true), CoUtils::getAutoColor(77, true));
  // Reversed, the brightness runs from dark to bright.
  expectRgbNear(Rgb(0.5f, 0, 0), CoUtils::getAutoColor(0, true));
  expectRgbNear(Rgb(1, 0, 0), CoUtils::getAutoColor(20, true));
  // Negative indices: the remainder keeps its sign.
  expectRgbNear(Rgb(0, 1, 1), CoUtils::getAutoColor(-5, false));  // hue -180 is 180
  expectRgbNear(Rgb(1, 0, 0), CoUtils::getAutoColor(-15, false));
  expectRgbNear(Rgb(1, 0, 0), CoUtils::getAutoColor(-23, false));
}

TEST(CoUtilsTest, LuminanceScalingAndConstruction) {
  expectRgbNear(Rgb(0.1f, 0.2f, 0.3f), CoUtils::calcLuminance(Rgb(0.2f, 0.4f, 0.6f), 0.5f));
  expectRgbNear(Rgb(0.1f, 0.2f, 0.3f), CoUtils::calcLuminance(Rgb(0.2f, 0.4f, 0.6f), -0.5f));

  EXPECT_EQ(CoHsvColor(120, 0.5f, 0.25f), CoUtils::constructHsv(120, 0.5f, 0.25f, CoTypes::HSV_SPACE));
  CoHsvColor const fromRgb = CoUtils::constructHsv(0, 1, 0, CoTypes::RGB_SPACE);
  EXPECT_FLOAT_EQ(120.0f, fromRgb.h);
  EXPECT_EQ(1.0f, fromRgb.s);
  EXPECT_EQ(Rgb(0.2f, 0.3f, 0.4f), CoUtils::constructRgb(0.2f, 0.3f, 0.4f, CoTypes::RGB_SPACE));
  expectRgbNear(Rgb(0, 0, 1), CoUtils::constructRgb(240, 1, 1, CoTypes::HSV_SPACE));
}

TEST(CoTypesTest, NamesParseExactlyWithDefaults) {
  struct Case {
    char const* text;
    int value;
  } const cases[] = {{"RED", 0},       {"GREEN", 1},    {"BLUE", 2},  {"NB_RGB_COMPONENTS", 3},
                     {"LUMINANCE", 3}, {"HUE", 0},      {"SAT", 1},   {"VALUE", 2},
                     {"NB_HSV_COMPONENTS", 3}, {"luminance", 0}, {"BLUE ", 0}, {"", 0}};
  for (Case const& c : cases) EXPECT_EQ(c.value, int(CoTypes::colorComponentFromText(c.text))) << c.text;
  EXPECT_EQ(CoTypes::HSV_SPACE, CoTypes::colorSpaceFromText("HSV_SPACE"));
  EXPECT_EQ(CoTypes::RGB_SPACE, CoTypes::colorSpaceFromText("RGB_SPACE"));
  EXPECT_EQ(CoTypes::RGB_SPACE, CoTypes::colorSpaceFromText("hsv_space"));
  EXPECT_EQ(1, int(CoTypes::HSV_SPACE));
}

}  // namespace
}  // namespace Orn
