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

// Element (row i, column j) of a colour matrix in the column-vector sense.
float at(GeAffineMatrix3<float> const& m, int i, int j) { return m.getData()[4 * j + i]; }

Triple apply(GeAffineMatrix3<float> const& m, Triple const& v) {
  float const in[3] = {v.a, v.b, v.c};
  float out[3];
  for (int i = 0; i < 3; ++i) out[i] = at(m, i, 0) * in[0] + at(m, i, 1) * in[1] + at(m, i, 2) * in[2] + at(m, i, 3);
  return {out[0], out[1], out[2]};
}

TEST(CoColorConversionTest, MatrixTableAgainstPublishedCoefficients) {
  using CC = CoColorConversion;
  GeAffineMatrix3<float> m;
  // Rec. 709: the luma row, and Pb = (B - Y) / 1.8556, Pr = (R - Y) / 1.5748.
  ASSERT_TRUE(CC::getConversionMatrix(CC::RGB, CC::YPBPR_709, &m));
  double const k709[3] = {0.2126, 0.7152, 0.0722};
  for (int j = 0; j < 3; ++j) {
    EXPECT_NEAR(k709[j], at(m, 0, j), 1e-7);
    EXPECT_NEAR(((j == 2) - k709[j]) / 1.8556, at(m, 1, j), 1e-7);
    EXPECT_NEAR(((j == 0) - k709[j]) / 1.5748, at(m, 2, j), 1e-7);
    EXPECT_EQ(0.0f, at(m, j, 3));
  }
  // Storage: (row 1, column 2) at index 9, and the last row of the 4x4 block is (0, 0, 0, 1).
  EXPECT_EQ(0.5f, m.getData()[9]);
  EXPECT_EQ(1.0f, m.getData()[15]);
  EXPECT_EQ(0.0f, m.getData()[3]);

  // Rec. 601 likewise, with 1.772 and 1.402.
  ASSERT_TRUE(CC::getConversionMatrix(CC::RGB, CC::YPBPR_601, &m));
  double const k601[3] = {0.299, 0.587, 0.114};
  for (int j = 0; j < 3; ++j) {
    EXPECT_NEAR(k601[j], at(m, 0, j), 1e-7);
    EXPECT_NEAR(((j == 2) - k601[j]) / 1.772, at(m, 1, j), 1e-7);
    EXPECT_NEAR(((j == 0) - k601[j]) / 1.402, at(m, 2, j), 1e-7);
  }

  // NTSC YIQ and the sRGB primaries to XYZ, as usually printed to four decimals.
  ASSERT_TRUE(CC::getConversionMatrix(CC::RGB, CC::YIQ, &m));
  double const yiq[3][3] = {{0.299, 0.587, 0.114}, {0.5959, -0.2746, -0.3213}, {0.2115, -0.5227, 0.3112}};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) EXPECT_NEAR(yiq[i][j], at(m, i, j), 2e-4) << i << ' ' << j;
  ASSERT_TRUE(CC::getConversionMatrix(CC::RGB, CC::XYZ, &m));
  double const xyz[3][3] = {{0.4124, 0.3576, 0.1805}, {0.2126, 0.7152, 0.0722}, {0.0193, 0.1192, 0.9505}};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) EXPECT_NEAR(xyz[i][j], at(m, i, j), 2e-4) << i << ' ' << j;
  // RGB white is the D65 white point.
  Triple const white = apply(m, {1, 1, 1});
  EXPECT_NEAR(0.95047, white.a, 1e-4);
  EXPECT_NEAR(1.0, white.b, 1e-4);
  EXPECT_NEAR(1.08883, white.c, 3e-4);

  // CMY is the complement both ways.
  ASSERT_TRUE(CC::getConversionMatrix(CC::RGB, CC::CMY, &m));
  Triple const cmy = apply(m, {0.2f, 0.5f, 1.0f});
  EXPECT_FLOAT_EQ(0.8f, cmy.a);
  EXPECT_FLOAT_EQ(0.5f, cmy.b);
  EXPECT_FLOAT_EQ(0.0f, cmy.c);
  float r, g, b;
  ASSERT_TRUE(CC::convert(CC::CMY, CC::RGB, cmy.a, cmy.b, cmy.c, &r, &g, &b));
  EXPECT_FLOAT_EQ(0.2f, r);
  EXPECT_FLOAT_EQ(0.5f, g);
  EXPECT_FLOAT_EQ(1.0f, b);
}

TEST(CoColorConversionTest, MatrixPairsInvertEachOtherAndUnknownPairsGiveIdentity) {
  using CC = CoColorConversion;
  for (CC::ColorSpaces space : {CC::CMY, CC::YPBPR_601, CC::YPBPR_709, CC::YIQ, CC::XYZ}) {
    GeAffineMatrix3<float> to, from;
    ASSERT_TRUE(CC::getConversionMatrix(CC::RGB, space, &to));
    ASSERT_TRUE(CC::getConversionMatrix(space, CC::RGB, &from));
    for (Triple const& c : {Triple{1, 0, 0}, Triple{0, 1, 0}, Triple{0, 0, 1}, Triple{0.3f, 0.6f, 0.9f}}) {
      Triple const back = apply(from, apply(to, c));
      EXPECT_NEAR(c.a, back.a, 2e-5f) << space;
      EXPECT_NEAR(c.b, back.b, 2e-5f) << space;
      EXPECT_NEAR(c.c, back.c, 2e-5f) << space;
    }
  }

  GeAffineMatrix3<float> m(GeLinearMatrix3<float>(2, 0, 0, 0, 2, 0, 0, 0, 2));
  EXPECT_FALSE(CC::getConversionMatrix(CC::YPBPR_601, CC::YPBPR_709, &m));
  EXPECT_EQ(GeAffineMatrix3<float>(), m);
  EXPECT_FALSE(CC::getConversionMatrix(CC::RGB, CC::RGB, &m));
  EXPECT_FALSE(CC::getConversionMatrix(CC::RGB, CC::ColorSpaces(4), &m));
  EXPECT_FALSE(CC::getConversionMatrix(CC::ColorSpaces(5), CC::RGB, &m));
  EXPECT_FALSE(CC::getConversionMatrix(CC::RGB, CC::ColorSpaces(8), &m));
  EXPECT_EQ(GeAffineMatrix3<float>(), m);
  float a = 7, b = 7, c = 7;
  EXPECT_FALSE(CC::convert(CC::XYZ, CC::YIQ, 1, 1, 1, &a, &b, &c));
  EXPECT_EQ(7.0f, a);
}

TEST(CoColorConversionTest, LabAndLuvOfKnownColours) {
  using CC = CoColorConversion;
  EXPECT_EQ(0x3F7350A4u, std::bit_cast<std::uint32_t>(CC::getWhiteX()));
  EXPECT_EQ(1.0f, CC::getWhiteY());
  EXPECT_EQ(0x3F8B619Eu, std::bit_cast<std::uint32_t>(CC::getWhiteZ()));

  // The white point is L = 100 without chroma.
  float L, a, b, u, v;
  CC::convertXYZToLab(CC::getWhiteX(), CC::getWhiteY(), CC::getWhiteZ(), &L, &a, &b);
  EXPECT_NEAR(100.0f, L, 1e-4f);
  EXPECT_NEAR(0.0f, a, 1e-4f);
  EXPECT_NEAR(0.0f, b, 1e-4f);
  CC::convertXYZToLuv(CC::getWhiteX(), CC::getWhiteY(), CC::getWhiteZ(), &L, &u, &v);
  EXPECT_NEAR(100.0f, L, 1e-4f);
  EXPECT_NEAR(0.0f, u, 1e-3f);
  EXPECT_NEAR(0.0f, v, 1e-3f);

  // sRGB red, whose published coordinates are Lab (53.24, 80.09, 67.20) and Luv (53.24, 175.0, 37.8).
  float x, y, z;
  ASSERT_TRUE(CC::convert(CC::RGB, CC::XYZ, 1, 0, 0, &x, &y, &z));
  CC::convertXYZToLab(x, y, z, &L, &a, &b);
  EXPECT_NEAR(53.24f, L, 0.02f);
  EXPECT_NEAR(80.09f, a, 0.05f);
  EXPECT_NEAR(67.20f, b, 0.05f);
  CC::convertXYZToLuv(x, y, z, &L, &u, &v);
  EXPECT_NEAR(53.24f, L, 0.02f);
  EXPECT_NEAR(175.0f, u, 0.2f);
  EXPECT_NEAR(37.76f, v, 0.2f);

  // The linear segment near black: L = 903.3 Y.
  CC::convertXYZToLab(0.004f, 0.005f, 0.006f, &L, &a, &b);
  EXPECT_NEAR(903.3f * 0.005f, L, 1e-3f);

  // Black both ways, through the bounded division.
  CC::convertXYZToLuv(0, 0, 0, &L, &u, &v);
  EXPECT_NEAR(0.0f, L, 1e-5f);
  CC::convertLuvToXYZ(0, 0, 0, &x, &y, &z);
  EXPECT_EQ(0.0f, x);
  EXPECT_EQ(0.0f, y);
  EXPECT_EQ(0.0f, z);
}

TEST(CoColorConversionTest, LabAndLuvRoundTrip) {
  std::mt19937 rng(9);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 1000; ++i) {
    // Include the dark end, where both branches meet.
    float const scale = i % 4 == 0 ? 0.01f : 1.0f;
    float const x = scale * unit(rng), y = scale * unit(rng) + 1e-4f, z = scale * unit(rng);
    float p, q, r, x2, y2, z2;
    convertXYZToLab(x, y, z, &p, &q, &r);
    convertLabToXYZ(p, q, r, &x2, &y2, &z2);
    EXPECT_NEAR(x, x2, 1e-5f + 1e-5f * x);
    EXPECT_NEAR(y, y2, 1e-5f + 1e-5f * y);
    EXPECT_NEAR(z, z2, 1e-5f + 1e-5f * z);
    convertXYZToLuv(x, y, z, &p, &q, &r);
    convertLuvToXYZ(p, q, r, &x2, &y2, &z2);
    EXPECT_NEAR(x, x2, 1e-4f * (1.0f + x / y));
    EXPECT_NEAR(y, y2, 1e-5f + 1e-5f * y);
    EXPECT_NEAR(z, z2, 1e-4f * (1.0f + z / y));
  }
}

}  // namespace
}  // namespace Orn
