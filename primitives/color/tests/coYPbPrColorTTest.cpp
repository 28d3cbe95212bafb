#include <orn/primitives/color/coYPbPrColorT.h>

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace Orn {
namespace {

using Rgb = CoRgbColorTyped<float>;

// Forward rows of a Y'PbPr standard from its red and blue luma weights.
void makeTextbookRows(double kr, double kb, double rows[3][3]) {
  double const kg = 1.0 - kr - kb;
  double const rowsValues[3][3] = {{kr, kg, kb},
                                   {-kr / (2.0 * (1.0 - kb)), -kg / (2.0 * (1.0 - kb)), 0.5},
                                   {0.5, -kg / (2.0 * (1.0 - kr)), -kb / (2.0 * (1.0 - kr))}};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) rows[i][j] = rowsValues[i][j];
}

void invert(double const m[3][3], double inv[3][3]) {
  double const det = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                     m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                     m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      int const r0 = (j + 1) % 3, r1 = (j + 2) % 3, c0 = (i + 1) % 3, c1 = (i + 2) % 3;
      inv[i][j] = (m[r0][c0] * m[r1][c1] - m[r0][c1] * m[r1][c0]) / det;
    }
  }
}

template <class L>
void expectTables(double kr, double kb, double forwardTolerance) {
  double textbook[3][3];
  makeTextbookRows(kr, kb, textbook);
  double forward[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) {
      EXPECT_NEAR(textbook[i][j], L::FROM_RGB[i][j], forwardTolerance) << i << ' ' << j;
      forward[i][j] = L::FROM_RGB[i][j];
    }
  // The inverse is that of the forward rows as they are stored.
  double inverse[3][3];
  invert(forward, inverse);
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) EXPECT_NEAR(inverse[i][j], L::TO_RGB[i][j], 2e-6) << i << ' ' << j;
}

TEST(CoYPbPrColorTTest, TablesMatchTheLumaWeightsOfEachStandard) {
  expectTables<CoLumaHDTV>(0.2126, 0.0722, 1e-7);
  // The standard-definition chroma rows are rounded to three decimals.
  expectTables<CoLumaNTSC>(0.299, 0.114, 5e-4);
  // The luma rows themselves are exact.
  EXPECT_EQ(0.299f, CoLumaNTSC::FROM_RGB[0][0]);
  EXPECT_EQ(0.0722f, CoLumaHDTV::FROM_RGB[0][2]);
}

template <class L>
void expectConversions() {
  // White is full luma without colour difference; pure blue and red reach +0.5 on their axis.
  CoYPbPrColorT<L> const white(Rgb(1, 1, 1));
  EXPECT_NEAR(1.0f, white.y, 1e-6f);
  EXPECT_NEAR(0.0f, white.pb, 1e-6f);
  EXPECT_NEAR(0.0f, white.pr, 1e-6f);
  EXPECT_FLOAT_EQ(0.5f, CoYPbPrColorT<L>(Rgb(0, 0, 1)).pb);
  EXPECT_FLOAT_EQ(0.5f, CoYPbPrColorT<L>(Rgb(1, 0, 0)).pr);

  CoYPbPrColorT<L> set;
  set.setWithRgb(Rgb(0.3f, 0.6f, 0.1f));
  EXPECT_EQ(CoYPbPrColorT<L>(Rgb(0.3f, 0.6f, 0.1f)), set);

  std::mt19937 rng(3);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 500; ++i) {
    Rgb const rgb(unit(rng), unit(rng), unit(rng));
    Rgb const back = CoYPbPrColorT<L>(rgb).convertToRgb();
    EXPECT_NEAR(rgb.r, back.r, 2e-6f);
    EXPECT_NEAR(rgb.g, back.g, 2e-6f);
    EXPECT_NEAR(rgb.b, back.b, 2e-6f);
  }

  CoYPbPrColorT<L> const original(0.1f, -1.0f / 3.0f, 0.7f);
  std::stringstream text;
  original.dump(text);
  CoYPbPrColorT<L> read;
  read.read(text);
  EXPECT_EQ(original, read);
}

TEST(CoYPbPrColorTTest, ConversionsRoundTripInBothStandards) {
  expectConversions<CoLumaHDTV>();
  expectConversions<CoLumaNTSC>();
}

}  // namespace
}  // namespace Orn
