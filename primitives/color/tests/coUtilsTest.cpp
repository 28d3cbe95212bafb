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

TEST(CoUtilsTest, AutoColorPaletteLuminanceAndConstruction) {
  struct Case {
    int index;
    bool reverse;
    Rgb rgb;
  } const cases[] = {{0, false, Rgb(1, 0, 0)},      {1, false, Rgb(1, 0.6f, 0)},  // 36 degrees
                     {5, false, Rgb(0, 1, 1)},      {10, false, Rgb(0.75f, 0, 0)}, {20, false, Rgb(0.5f, 0, 0)},
                     {30, false, Rgb(1, 0, 0)},     {0, true, Rgb(0.5f, 0, 0)},   {20, true, Rgb(1, 0, 0)},
                     {-5, false, Rgb(0, 1, 1)},     // the remainder keeps its sign: hue -180
                     {-15, false, Rgb(1, 0, 0)},    {-23, false, Rgb(1, 0, 0)}};
  for (Case const& c : cases) {
    SCOPED_TRACE(c.index);
    expectRgbNear(c.rgb, CoUtils::getAutoColor(c.index, c.reverse));
  }

  expectRgbNear(Rgb(0.1f, 0.2f, 0.3f), CoUtils::calcLuminance(Rgb(0.2f, 0.4f, 0.6f), -0.5f));
  EXPECT_EQ(CoHsvColor(120, 0.5f, 0.25f), CoUtils::constructHsv(120, 0.5f, 0.25f, CoTypes::HSV_SPACE));
  EXPECT_FLOAT_EQ(120.0f, CoUtils::constructHsv(0, 1, 0, CoTypes::RGB_SPACE).h);
  EXPECT_EQ(Rgb(0.2f, 0.3f, 0.4f), CoUtils::constructRgb(0.2f, 0.3f, 0.4f, CoTypes::RGB_SPACE));
  expectRgbNear(Rgb(0, 0, 1), CoUtils::constructRgb(240, 1, 1, CoTypes::HSV_SPACE));
}

TEST(CoTypesTest, NamesParseExactlyWithDefaults) {
  struct Case {
    char const* text;
    int value;
  } const cases[] = {{"RED", 0},       {"GREEN", 1}, {"BLUE", 2}, {"NB_RGB_COMPONENTS", 3}, {"LUMINANCE", 3},
                     {"HUE", 0},       {"SAT", 1},   {"VALUE", 2}, {"NB_HSV_COMPONENTS", 3}, {"luminance", 0},
                     {"BLUE ", 0},     {"", 0}};
  for (Case const& c : cases) EXPECT_EQ(c.value, int(CoTypes::colorComponentFromText(c.text))) << c.text;
  EXPECT_EQ(CoTypes::HSV_SPACE, CoTypes::colorSpaceFromText("HSV_SPACE"));
  EXPECT_EQ(CoTypes::RGB_SPACE, CoTypes::colorSpaceFromText("hsv_space"));
}

}  // namespace
}  // namespace Orn
