#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipColorMatrix.h>

#include <cmath>
#include <random>

namespace {

using namespace Orn;
using Rgb = CoRgbColorTyped<float>;

double const PI = 3.14159265358979323846;
double const WEIGHTS[3] = {0.2126, 0.7152, 0.0722};

// The column-vector products of both storages, in double.
struct Colour {
  double c[3];
};
Colour apply(GeLinearMatrix3<float> const& m, Colour const& v) {
  Colour out{};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) out.c[i] += double(m(i, j)) * v.c[j];
  return out;
}
Colour apply(GeAffineMatrix3<float> const& m, Colour const& v) {
  Colour out{};
  for (int i = 0; i < 3; ++i) {
    out.c[i] = m.getData()[12 + i];
    for (int j = 0; j < 3; ++j) out.c[i] += double(m.getData()[4 * j + i]) * v.c[j];
  }
  return out;
}
double luminance(Colour const& v) { return WEIGHTS[0] * v.c[0] + WEIGHTS[1] * v.c[1] + WEIGHTS[2] * v.c[2]; }

void expectColour(Colour const& expected, Colour const& actual, double tolerance) {
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(expected.c[i], actual.c[i], tolerance) << "channel " << i;
}
void expectNearIdentity(GeLinearMatrix3<float> const& m, double tolerance) {
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) EXPECT_NEAR(i == j ? 1.0 : 0.0, m(i, j), tolerance) << i << ' ' << j;
}

std::vector<Colour> randomColours(int n) {
  std::mt19937 rng(17);
  std::uniform_real_distribution<double> unit(-0.5, 1.5);
  std::vector<Colour> colours(n);
  for (Colour& c : colours) c = Colour{{unit(rng), unit(rng), unit(rng)}};
  return colours;
}

TEST(IpColorMatrix, LuminanceSaturationAndScale) {
  GeLinearMatrix3<float> const lum = IpColorMatrix::makeToLuminance();
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) EXPECT_EQ(float(WEIGHTS[j]), lum(i, j));
  EXPECT_EQ(GeLinearMatrix3<float>(), IpColorMatrix::makeSaturation(1.0f));
  EXPECT_EQ(lum, IpColorMatrix::makeSaturation(0.0f));

  // Any saturation keeps greys and luminance, and moves colours away from their grey by s.
  for (float s : {2.0f, 0.3f, -1.0f}) {
    GeLinearMatrix3<float> const m = IpColorMatrix::makeSaturation(s);
    for (Colour const& c : randomColours(50)) {
      Colour const out = apply(m, c);
      double const l = luminance(c);
      EXPECT_NEAR(l, luminance(out), 1e-6);
      for (int i = 0; i < 3; ++i) EXPECT_NEAR(l + s * (c.c[i] - l), out.c[i], 1e-6);
    }
  }
  // Not clamped: over-saturation has negative off-diagonal elements.
  EXPECT_LT(IpColorMatrix::makeSaturation(2.0f)(0, 1), 0.0f);

  expectColour(Colour{{1.0, -1.0, 1.5}}, apply(IpColorMatrix::makeScale(Rgb(2, -4, 0.5f)), Colour{{0.5, 0.25, 3}}),
               0.0);
  GeAffineMatrix3<float> const offset = IpColorMatrix::makeOffset(Rgb(0.1f, 0.2f, 0.3f));
  EXPECT_EQ(0.2f, offset.getData()[13]);
  expectColour(Colour{{0.6, 0.2, 1.3}}, apply(offset, Colour{{0.5, 0, 1}}), 1e-7);
}

TEST(IpColorMatrix, ContrastPivots) {
  EXPECT_EQ(GeAffineMatrix3<float>(), IpColorMatrix::makeContrast(1.0f));
  for (Colour const& c : randomColours(10)) expectColour(Colour{{0.5, 0.5, 0.5}}, apply(IpColorMatrix::makeContrast(0.0f), c), 0.0);
  GeAffineMatrix3<float> const twice = IpColorMatrix::makeContrast(2.0f);
  expectColour(Colour{{0.5, 1.0, -0.5}}, apply(twice, Colour{{0.5, 0.75, 0}}), 1e-7);

  Rgb const pivot(0.2f, 0.4f, 0.6f);
  GeAffineMatrix3<float> const m = IpColorMatrix::makeContrast(Rgb(3, 0.5f, -1), pivot);
  expectColour(Colour{{0.2, 0.4, 0.6}}, apply(m, Colour{{0.2, 0.4, 0.6}}), 1e-7);
  expectColour(Colour{{0.5, 0.45, 0.5}}, apply(m, Colour{{0.3, 0.5, 0.7}}), 1e-6);
  // The single-value form is the pivot form about mid-grey.
  GeAffineMatrix3<float> const mid = IpColorMatrix::makeContrast(Rgb(1.7f, 1.7f, 1.7f), Rgb(0.5f, 0.5f, 0.5f));
  for (int i = 0; i < 16; ++i) EXPECT_NEAR(mid.getData()[i], IpColorMatrix::makeContrast(1.7f).getData()[i], 1e-7);
}

TEST(IpColorMatrix, Rewire) {
  using M = IpColorMatrix;
  EXPECT_EQ(GeAffineMatrix3<float>(), M::makeRewire(M::REWIRE_RED, M::REWIRE_GREEN, M::REWIRE_BLUE));
  Colour const c{{0.1, 0.5, 0.8}};
  expectColour(Colour{{0.9, 0.5, 0.2}}, apply(M::makeRewire(M::REWIRE_INVERT, M::REWIRE_INVERT, M::REWIRE_INVERT), c),
               1e-7);
  expectColour(Colour{{0.8, 0.5, 0.1}}, apply(M::makeRewire(M::REWIRE_BLUE, M::REWIRE_GREEN, M::REWIRE_RED), c), 0.0);
  // Each row is set on its own: luminance, constant zero, inverse; unknown values are zero too.
  expectColour(Colour{{luminance(c), 0.0, 0.2}},
               apply(M::makeRewire(M::REWIRE_LUMINANCE, M::REWIRE_ZERO, M::REWIRE_INVERT), c), 1e-7);
  expectColour(Colour{{0.5, 0.0, 0.5}}, apply(M::makeRewire(M::REWIRE_GREEN, M::IpRewire(9), M::REWIRE_GREEN), c), 0.0);
  expectColour(Colour{{0.1, 0.1, 0.8}}, apply(M::makeRewire(M::REWIRE_RED, M::REWIRE_RED, M::REWIRE_BLUE), c), 0.0);
}

TEST(IpColorMatrix, HueRotationTurnsAboutTheGreyAxis) {
  expectNearIdentity(IpColorMatrix::makeHueRotation(0.0f), 1e-6);
  for (float angle : {0.3f, 1.0f, -2.5f}) {
    GeLinearMatrix3<float> const m = IpColorMatrix::makeHueRotation(angle);
    expectColour(Colour{{0.7, 0.7, 0.7}}, apply(m, Colour{{0.7, 0.7, 0.7}}), 1e-6);
    // A rotation: orthogonal with determinant 1.
    expectNearIdentity(m * m.computeTranspose(), 1e-6);
    EXPECT_NEAR(1.0, m.getDeterminant(), 1e-6);
  }
  // A third of a turn permutes the primaries, so luminance is not kept.
  Colour const red = apply(IpColorMatrix::makeHueRotation(float(2.0 * PI / 3.0)), Colour{{1, 0, 0}});
  bool const toGreen = std::fabs(red.c[1] - 1.0) < 1e-5 && std::fabs(red.c[0]) < 1e-5 && std::fabs(red.c[2]) < 1e-5;
  bool const toBlue = std::fabs(red.c[2] - 1.0) < 1e-5 && std::fabs(red.c[0]) < 1e-5 && std::fabs(red.c[1]) < 1e-5;
  EXPECT_TRUE(toGreen || toBlue) << red.c[0] << ' ' << red.c[1] << ' ' << red.c[2];
}

TEST(IpColorMatrix, LuminancePreservingHueRotation) {
  expectNearIdentity(IpColorMatrix::makeLumPreservingHueRotation(0.0f), 1e-6);
  for (float angle : {0.5f, 2.0f, -1.2f, 3.1f}) {
    GeLinearMatrix3<float> const m = IpColorMatrix::makeLumPreservingHueRotation(angle);
    expectColour(Colour{{1, 1, 1}}, apply(m, Colour{{1, 1, 1}}), 1e-6);
    for (Colour const& c : randomColours(50)) EXPECT_NEAR(luminance(c), luminance(apply(m, c)), 2e-6);
  }
  // It does turn the hue, and two turns add up.
  Colour const red = apply(IpColorMatrix::makeLumPreservingHueRotation(1.0f), Colour{{1, 0, 0}});
  EXPECT_GT(std::fabs(red.c[1] - red.c[2]), 0.1);
  GeLinearMatrix3<float> const twice =
      IpColorMatrix::makeLumPreservingHueRotation(0.4f) * IpColorMatrix::makeLumPreservingHueRotation(0.7f);
  GeLinearMatrix3<float> const once = IpColorMatrix::makeLumPreservingHueRotation(1.1f);
  for (int i = 0; i < 9; ++i) EXPECT_NEAR(once.getData()[i], twice.getData()[i], 1e-5);
}

TEST(IpColorMatrix, ColorBalanceMovesWhiteKeepingLuminance) {
  expectNearIdentity(IpColorMatrix::makeColorBalance(Rgb(1, 1, 1)), 1e-6);
  expectNearIdentity(IpColorMatrix::makeColorBalance(0.0f, 0.0f), 1e-6);

  Colour const warm{{1.0, 0.8, 0.6}};
  GeLinearMatrix3<float> const m = IpColorMatrix::makeColorBalance(Rgb(1.0f, 0.8f, 0.6f));
  // White takes the colour's chromaticity at white's luminance.
  double const lift = 1.0 - luminance(warm);
  expectColour(Colour{{1.0 + lift, 0.8 + lift, 0.6 + lift}}, apply(m, Colour{{1, 1, 1}}), 2e-6);
  for (Colour const& c : randomColours(50)) EXPECT_NEAR(luminance(c), luminance(apply(m, c)), 2e-6);
  // Black stays black: the shear is proportional to luminance.
  expectColour(Colour{{0, 0, 0}}, apply(m, Colour{{0, 0, 0}}), 0.0);

  // Hue in radians and saturation: the colour of HSV (degrees, saturation, 1).
  GeLinearMatrix3<float> const fromHue = IpColorMatrix::makeColorBalance(0.0f, 0.5f);
  GeLinearMatrix3<float> const fromColour = IpColorMatrix::makeColorBalance(Rgb(1.0f, 0.5f, 0.5f));
  for (int i = 0; i < 9; ++i) EXPECT_NEAR(fromColour.getData()[i], fromHue.getData()[i], 1e-6);
  GeLinearMatrix3<float> const green = IpColorMatrix::makeColorBalance(float(2.0 * PI / 3.0), 1.0f);
  GeLinearMatrix3<float> const greenColour = IpColorMatrix::makeColorBalance(Rgb(0, 1, 0));
  for (int i = 0; i < 9; ++i) EXPECT_NEAR(greenColour.getData()[i], green.getData()[i], 1e-5);
}

}  // namespace
