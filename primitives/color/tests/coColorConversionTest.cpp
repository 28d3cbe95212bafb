#include <orn/primitives/color/coColorConversion.h>

#include <orn/primitives/color/coHsvColor.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace Orn {
namespace {

using CC = CoColorConversion;

struct Triple {
  float a, b, c;
};

void expectNear(Triple const& expected, Triple const& actual, float tolerance) {
  EXPECT_NEAR(expected.a, actual.a, tolerance);
  EXPECT_NEAR(expected.b, actual.b, tolerance);
  EXPECT_NEAR(expected.c, actual.c, tolerance);
}

// Element (row i, column j) of a colour matrix in the column-vector sense.
float at(GeAffineMatrix3<float> const& m, int i, int j) { return m.getData()[4 * j + i]; }

Triple apply(GeAffineMatrix3<float> const& m, Triple const& v) {
  float out[3];
  for (int i = 0; i < 3; ++i) out[i] = at(m, i, 0) * v.a + at(m, i, 1) * v.b + at(m, i, 2) * v.c + at(m, i, 3);
  return {out[0], out[1], out[2]};
}

TEST(CoColorConversionTest, SafeDivisionBoundsAndSigns) {
  float const max = std::numeric_limits<float>::max();
  float const cases[][3] = {{0, 0, 0},       {-0.0f, 5, 0},       {1, 0, max},        {-1, 0, -max},
                            {1, -2, -0.5f},  {-1, -2, 0.5f},      {1e30f, 1e-30f, max}, {1e30f, -1e-30f, -max},
                            {6, 3, 2}};
  for (auto const& c : cases) EXPECT_EQ(c[2], CC::safeDivide(c[0], c[1])) << c[0] << " / " << c[1];
  EXPECT_TRUE(std::isnan(CC::safeDivide(std::nanf(""), 2.0f)));
}

TEST(CoColorConversionTest, HsvAndHlsKnownValuesAndRoundTrips) {
  struct Case {
    Triple rgb, hsv, hls;
  } const cases[] = {
      {{1, 0, 0}, {0, 1, 1}, {0, 0.5f, 1}},
      {{0.5f, 0.5f, 0.5f}, {0, 0, 0.5f}, {0, 0.5f, 0}},
      {{0.2f, 0.4f, 0.6f}, {210, 2.0f / 3.0f, 0.6f}, {210, 0.4f, 0.5f}},
      {{0.9f, 0.7f, 0.5f}, {30, 0.4f / 0.9f, 0.9f}, {30, 0.7f, 2.0f / 3.0f}},
      {{1, 0, 0.5f}, {330, 1, 1}, {330, 0.5f, 1}},
  };
  for (Case const& c : cases) {
    Triple hsv, hls, rgb;
    CC::convertRGBToHSV(c.rgb.a, c.rgb.b, c.rgb.c, &hsv.a, &hsv.b, &hsv.c);
    expectNear(c.hsv, hsv, 1e-4f);
    convertRGBToHLS(c.rgb.a, c.rgb.b, c.rgb.c, &hls.a, &hls.b, &hls.c);
    expectNear(c.hls, hls, 1e-4f);
    convertHLSToRGB(c.hls.a + 720.0f, c.hls.b, c.hls.c, &rgb.a, &rgb.b, &rgb.c);  // hues wrap
    expectNear(c.rgb, rgb, 1e-5f);
  }

  std::mt19937 rng(5);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 1000; ++i) {
    Triple const rgb{unit(rng), unit(rng), unit(rng)};
    Triple hsv, hls, back;
    convertRGBToHSV(rgb.a, rgb.b, rgb.c, &hsv.a, &hsv.b, &hsv.c);
    CoHsvColor const hsvColour(CoRgbColorTyped<float>(rgb.a, rgb.b, rgb.c));
    EXPECT_NEAR(hsvColour.h, hsv.a, 1e-3f);
    convertHSVToRGB(hsv.a, hsv.b, hsv.c, &back.a, &back.b, &back.c);
    expectNear(rgb, back, 2e-6f);
    convertRGBToHLS(rgb.a, rgb.b, rgb.c, &hls.a, &hls.b, &hls.c);
    ASSERT_TRUE(hls.a >= 0.0f && hls.a < 360.0f);
    convertHLSToRGB(hls.a, hls.b, hls.c, &back.a, &back.b, &back.c);
    expectNear(rgb, back, 1e-5f);
  }
}

TEST(CoColorConversionTest, MatrixTableAgainstPublishedCoefficients) {
  GeAffineMatrix3<float> m;
  // Y'PbPr: the luma row, Pb = (B - Y) / 2 (1 - kb), Pr = (R - Y) / 2 (1 - kr).
  for (auto [space, kr, kb] : {std::tuple{CC::YPBPR_601, 0.299, 0.114}, std::tuple{CC::YPBPR_709, 0.2126, 0.0722}}) {
    ASSERT_TRUE(CC::getConversionMatrix(CC::RGB, space, &m));
    double const k[3] = {kr, 1.0 - kr - kb, kb};
    for (int j = 0; j < 3; ++j) {
      EXPECT_NEAR(k[j], at(m, 0, j), 1e-7);
      EXPECT_NEAR(((j == 2) - k[j]) / (2.0 * (1.0 - kb)), at(m, 1, j), 1e-7);
      EXPECT_NEAR(((j == 0) - k[j]) / (2.0 * (1.0 - kr)), at(m, 2, j), 1e-7);
    }
  }
  EXPECT_EQ(0.5f, m.getData()[9]);  // (row 1, column 2) is stored at index 9

  // NTSC YIQ and sRGB to XYZ, as usually printed to four decimals.
  double const yiq[3][3] = {{0.299, 0.587, 0.114}, {0.5959, -0.2746, -0.3213}, {0.2115, -0.5227, 0.3112}};
  double const xyz[3][3] = {{0.4124, 0.3576, 0.1805}, {0.2126, 0.7152, 0.0722}, {0.0193, 0.1192, 0.9505}};
  for (auto [space, table] : {std::pair{CC::YIQ, yiq}, std::pair{CC::XYZ, xyz}}) {
    ASSERT_TRUE(CC::getConversionMatrix(CC::RGB, space, &m));
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j) EXPECT_NEAR(table[i][j], at(m, i, j), 2e-4) << space << ": " << i << ' ' << j;
  }
  expectNear({0.95047f, 1.0f, 1.08883f}, apply(m, {1, 1, 1}), 3e-4f);  // RGB white is D65

  // CMY is the complement both ways.
  float r, g, b;
  ASSERT_TRUE(CC::convert(CC::RGB, CC::CMY, 0.2f, 0.5f, 1.0f, &r, &g, &b));
  expectNear({0.8f, 0.5f, 0.0f}, {r, g, b}, 1e-7f);
  ASSERT_TRUE(CC::convert(CC::CMY, CC::RGB, r, g, b, &r, &g, &b));
  expectNear({0.2f, 0.5f, 1.0f}, {r, g, b}, 1e-7f);
}

TEST(CoColorConversionTest, MatrixPairsInvertEachOtherAndUnknownPairsGiveIdentity) {
  for (CC::ColorSpaces space : {CC::CMY, CC::YPBPR_601, CC::YPBPR_709, CC::YIQ, CC::XYZ}) {
    GeAffineMatrix3<float> to, from;
    ASSERT_TRUE(CC::getConversionMatrix(CC::RGB, space, &to));
    ASSERT_TRUE(CC::getConversionMatrix(space, CC::RGB, &from));
    for (Triple const& c : {Triple{1, 0, 0}, Triple{0, 1, 0}, Triple{0, 0, 1}, Triple{0.3f, 0.6f, 0.9f}})
      expectNear(c, apply(from, apply(to, c)), 2e-5f);
  }
  std::pair<int, int> const unknown[] = {{2, 3}, {0, 0}, {0, 4}, {5, 0}, {0, 8}, {7, 6}};
  for (auto [from, to] : unknown) {
    GeAffineMatrix3<float> m(GeLinearMatrix3<float>(2, 0, 0, 0, 2, 0, 0, 0, 2));
    EXPECT_FALSE(CC::getConversionMatrix(CC::ColorSpaces(from), CC::ColorSpaces(to), &m)) << from << ' ' << to;
    EXPECT_EQ(GeAffineMatrix3<float>(), m);
  }
}

TEST(CoColorConversionTest, LabAndLuvKnownValuesAndRoundTrips) {
  EXPECT_EQ(0x3F7350A4u, std::bit_cast<std::uint32_t>(CC::getWhiteX()));
  EXPECT_EQ(1.0f, CC::getWhiteY());
  EXPECT_EQ(0x3F8B619Eu, std::bit_cast<std::uint32_t>(CC::getWhiteZ()));

  Triple lab, luv, xyz;
  CC::convertXYZToLab(CC::getWhiteX(), CC::getWhiteY(), CC::getWhiteZ(), &lab.a, &lab.b, &lab.c);
  expectNear({100, 0, 0}, lab, 1e-4f);
  CC::convertXYZToLuv(CC::getWhiteX(), CC::getWhiteY(), CC::getWhiteZ(), &luv.a, &luv.b, &luv.c);
  expectNear({100, 0, 0}, luv, 1e-3f);
  // sRGB red: Lab (53.24, 80.09, 67.20), Luv (53.24, 175.0, 37.76) as published.
  ASSERT_TRUE(CC::convert(CC::RGB, CC::XYZ, 1, 0, 0, &xyz.a, &xyz.b, &xyz.c));
  CC::convertXYZToLab(xyz.a, xyz.b, xyz.c, &lab.a, &lab.b, &lab.c);
  expectNear({53.24f, 80.09f, 67.20f}, lab, 0.05f);
  CC::convertXYZToLuv(xyz.a, xyz.b, xyz.c, &luv.a, &luv.b, &luv.c);
  expectNear({53.24f, 175.0f, 37.76f}, luv, 0.2f);
  // The linear segment near black: L = 903.3 Y.
  CC::convertXYZToLab(0.004f, 0.005f, 0.006f, &lab.a, &lab.b, &lab.c);
  EXPECT_NEAR(903.3f * 0.005f, lab.a, 1e-3f);
  // Black back from Luv, through the bounded division.
  CC::convertLuvToXYZ(0, 0, 0, &xyz.a, &xyz.b, &xyz.c);
  EXPECT_TRUE(xyz.a == 0.0f && xyz.b == 0.0f && xyz.c == 0.0f);

  std::mt19937 rng(9);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 1000; ++i) {
    float const scale = i % 4 == 0 ? 0.01f : 1.0f;  // the dark end, where both branches meet
    Triple const in{scale * unit(rng), scale * unit(rng) + 1e-4f, scale * unit(rng)};
    Triple back;
    convertXYZToLab(in.a, in.b, in.c, &lab.a, &lab.b, &lab.c);
    convertLabToXYZ(lab.a, lab.b, lab.c, &back.a, &back.b, &back.c);
    expectNear(in, back, 2e-5f);
    convertXYZToLuv(in.a, in.b, in.c, &luv.a, &luv.b, &luv.c);
    convertLuvToXYZ(luv.a, luv.b, luv.c, &back.a, &back.b, &back.c);
    EXPECT_NEAR(in.a, back.a, 1e-4f * (1.0f + in.a / in.b));
    EXPECT_NEAR(in.b, back.b, 2e-5f);
    EXPECT_NEAR(in.c, back.c, 1e-4f * (1.0f + in.c / in.b));
  }
}

}  // namespace
}  // namespace Orn
