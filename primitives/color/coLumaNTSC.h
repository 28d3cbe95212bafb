#pragma once
// Luma standard of standard-definition television (Rec. 601 weights) for CoYPbPrColorT. The
// chroma rows are rounded to three decimals and the inverse is that of the rounded rows, hence its
// small terms where the exact inverse has zeros.

namespace Orn {

struct CoLumaNTSC {
  // Rows y, pb, pr over columns r, g, b.
  static constexpr float FROM_RGB[3][3] = {{0.299f, 0.587f, 0.114f}, {-0.169f, -0.331f, 0.5f}, {0.5f, -0.419f, -0.081f}};
  // Rows r, g, b over columns y, pb, pr.
  static constexpr float TO_RGB[3][3] = {{1.0f, -0.0009267401f, 1.4016868f},
                                         {1.0f, -0.3436954f, -0.71416897f},
                                         {1.0f, 1.7721604f, 0.0009902503f}};
};

}  // namespace Orn
