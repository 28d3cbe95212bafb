#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipColorMatrix.h>

#include <cmath>
#include <random>

namespace {

using namespace Orn;
using Rgb = CoRgbColorTyped<float>;
using M = IpColorMatrix;

double const THIRD_TURN = 2.0 * 3.14159265358979323846 / 3.0;
double const WEIGHTS[3] = {0.2126, 0.7152, 0.0722};

// Column-vector products of both storages, in double.
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

void expectColour(Colour const& expected, Colour const& actual, double tolerance = 1e-6) {
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(expected.c[i], actual.c[i], tolerance) << "channel " << i;
}
void expectNear(GeLinearMatrix3<float> const& expected, GeLinearMatrix3<float> const& actual, double tolerance) {
  for (int i = 0; i < 9; ++i) EXPECT_NEAR(expected.getData()[i], actual.getData()[i], tolerance) << i;
}

std::vector<Colour> randomColours() {
  std::mt19937 rng(17);
  std::uniform_real_distribution<double> unit(-0.5, 1.5);
  std::vector<Colour> colours(50);
  for (Colour& c : colours) c = Colour{{unit(rng), unit(rng), unit(rng)}};
  return colours;
}

TEST(IpColorMatrix, SaturationScaleOffsetContrastAndRewire) {
  EXPECT_EQ(GeLinearMatrix3<float>(), M::makeSaturation(1.0f));
  EXPECT_EQ(M::makeToLuminance(), M::makeSaturation(0.0f));
  EXPECT_EQ(0.7152f, M::makeToLuminance()(2, 1));
  // Any saturation keeps luminance and moves each channel away from it by the factor, unclamped.
  for (float s : {2.0f, 0.3f, -1.0f})
    for (Colour const& c : randomColours()) {
      double const l = luminance(c);
      expectColour(Colour{{l + s * (c.c[0] - l), l + s * (c.c[1] - l), l + s * (c.c[2] - l)}},
                   apply(M::makeSaturation(s), c));
    }

  Colour const c{{0.1, 0.5, 0.8}};
  expectColour(Colour{{0.2, -2.0, 0.4}}, apply(M::makeScale(Rgb(2, -4, 0.5f)), c));
  expectColour(Colour{{0.2, 0.7, 1.1}}, apply(M::makeOffset(Rgb(0.1f, 0.2f, 0.3f)), c));
  EXPECT_EQ(GeAffineMatrix3<float>(), M::makeContrast(1.0f));
  expectColour(Colour{{0.5, 0.5, 0.5}}, apply(M::makeContrast(0.0f), c), 0.0);
  expectColour(Colour{{-0.3, 0.5, 1.1}}, apply(M::makeContrast(2.0f), c));
  // Each channel pivots on its own pivot.
  GeAffineMatrix3<float> const pivoted = M::makeContrast(Rgb(3, 0.5f, -1), Rgb(0.2f, 0.4f, 0.6f));
  expectColour(Colour{{0.2, 0.4, 0.6}}, apply(pivoted, Colour{{0.2, 0.4, 0.6}}));
  expectColour(Colour{{-0.1, 0.45, 0.4}}, apply(pivoted, c));

  EXPECT_EQ(GeAffineMatrix3<float>(), M::makeRewire(M::REWIRE_RED, M::REWIRE_GREEN, M::REWIRE_BLUE));
  expectColour(Colour{{0.9, 0.5, 0.2}}, apply(M::makeRewire(M::REWIRE_INVERT, M::REWIRE_INVERT, M::REWIRE_INVERT), c));
  expectColour(Colour{{0.8, 0.5, 0.1}}, apply(M::makeRewire(M::REWIRE_BLUE, M::REWIRE_GREEN, M::REWIRE_RED), c));
  expectColour(Colour{{luminance(c), 0.0, 0.2}}, apply(M::makeRewire(M::REWIRE_LUMINANCE, M::REWIRE_ZERO, M::REWIRE_INVERT), c));
  expectColour(Colour{{0.1, 0.0, 0.1}}, apply(M::makeRewire(M::REWIRE_RED, M::IpRewire(9), M::REWIRE_RED), c));
}

TEST(IpColorMatrix, HueRotationsTurnAboutTheGreyAxis) {
  expectNear(GeLinearMatrix3<float>(), M::makeHueRotation(0.0f), 1e-6);
  expectNear(GeLinearMatrix3<float>(), M::makeLumPreservingHueRotation(0.0f), 1e-6);
  for (float angle : {0.5f, 2.0f, -1.2f}) {
    GeLinearMatrix3<float> const plain = M::makeHueRotation(angle);
    GeLinearMatrix3<float> const kept = M::makeLumPreservingHueRotation(angle);
    expectColour(Colour{{0.7, 0.7, 0.7}}, apply(plain, Colour{{0.7, 0.7, 0.7}}));
    expectColour(Colour{{1, 1, 1}}, apply(kept, Colour{{1, 1, 1}}));
    // The plain one is a rotation; the other keeps every colour's luminance.
    expectNear(GeLinearMatrix3<float>(), plain * plain.computeTranspose(), 1e-6);
    for (Colour const& c : randomColours()) EXPECT_NEAR(luminance(c), luminance(apply(kept, c)), 2e-6);
  }
  // A third of a turn permutes the primaries, so luminance changes.
  Colour const red = apply(M::makeHueRotation(float(THIRD_TURN)), Colour{{1, 0, 0}});
  EXPECT_NEAR(0.0, red.c[0], 1e-5);
  EXPECT_NEAR(1.0, std::max(red.c[1], red.c[2]), 1e-5);
  EXPECT_NEAR(0.0, std::min(red.c[1], red.c[2]), 1e-5);
  // The luminance-keeping turn does turn, and two turns add up.
  Colour const turned = apply(M::makeLumPreservingHueRotation(1.0f), Colour{{1, 0, 0}});
  EXPECT_GT(std::fabs(turned.c[1] - turned.c[2]), 0.1);
  expectNear(M::makeLumPreservingHueRotation(1.1f), M::makeLumPreservingHueRotation(0.4f) * M::makeLumPreservingHueRotation(0.7f), 1e-5);
}

TEST(IpColorMatrix, ColorBalanceMovesWhiteKeepingLuminance) {
  expectNear(GeLinearMatrix3<float>(), M::makeColorBalance(Rgb(1, 1, 1)), 1e-6);
  expectNear(GeLinearMatrix3<float>(), M::makeColorBalance(0.0f, 0.0f), 1e-6);
  GeLinearMatrix3<float> const m = M::makeColorBalance(Rgb(1.0f, 0.8f, 0.6f));
  // White takes the colour's chromaticity at white's luminance; black stays.
  double const lift = 1.0 - luminance(Colour{{1.0, 0.8, 0.6}});
  expectColour(Colour{{1.0 + lift, 0.8 + lift, 0.6 + lift}}, apply(m, Colour{{1, 1, 1}}), 2e-6);
  expectColour(Colour{{0, 0, 0}}, apply(m, Colour{{0, 0, 0}}), 0.0);
  for (Colour const& c : randomColours()) EXPECT_NEAR(luminance(c), luminance(apply(m, c)), 2e-6);
  // Hue in radians and saturation: the colour HSV (degrees, saturation, 1).
  expectNear(M::makeColorBalance(Rgb(1.0f, 0.5f, 0.5f)), M::makeColorBalance(0.0f, 0.5f), 1e-6);
  expectNear(M::makeColorBalance(Rgb(0, 1, 0)), M::makeColorBalance(float(THIRD_TURN), 1.0f), 1e-5);
}

}  // namespace
