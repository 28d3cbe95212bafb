#include <orn/primitives/color/coYPbPrColorT.h>

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace Orn {
namespace {

using Rgb = CoRgbColorTyped<float>;

// Y'PbPr rows from the red and blue luma weights: Pb = (B - Y) / (2 (1 - kb)), Pr likewise.
template <class L>
void expectStandard(double kr, double kb, double chromaTolerance) {
  SCOPED_TRACE(kr);
  double const kg = 1.0 - kr - kb;
  double const rows[3][3] = {{kr, kg, kb},
                             {-kr / (2.0 * (1.0 - kb)), -kg / (2.0 * (1.0 - kb)), 0.5},
                             {0.5, -kg / (2.0 * (1.0 - kr)), -kb / (2.0 * (1.0 - kr))}};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) EXPECT_NEAR(rows[i][j], L::FROM_RGB[i][j], i == 0 ? 3e-8 : chromaTolerance);
  // The inverse is that of the stored rows: their product is the identity.
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) {
      double sum = 0.0;
      for (int k = 0; k < 3; ++k) sum += double(L::TO_RGB[i][k]) * L::FROM_RGB[k][j];
      EXPECT_NEAR(i == j ? 1.0 : 0.0, sum, 3e-7) << i << ' ' << j;
    }

  CoYPbPrColorT<L> const white(Rgb(1, 1, 1));
  EXPECT_NEAR(1.0f, white.y, 1e-6f);
  EXPECT_NEAR(0.0f, white.pb, 1e-6f);
  EXPECT_NEAR(0.0f, white.pr, 1e-6f);
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

TEST(CoYPbPrColorTTest, BothStandardsMatchTheirLumaWeightsAndRoundTrip) {
  expectStandard<CoLumaHDTV>(0.2126, 0.0722, 1e-7);
  expectStandard<CoLumaNTSC>(0.299, 0.114, 5e-4);  // chroma rows rounded to three decimals
}

}  // namespace
}  // namespace Orn
