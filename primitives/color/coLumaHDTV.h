#pragma once
// Luma standard of high-definition television (Rec. 709 weights) for CoYPbPrColorT.

namespace Orn {

struct CoLumaHDTV {
  // Rows y, pb, pr over columns r, g, b.
  static constexpr float FROM_RGB[3][3] = {
      {0.2126f, 0.7152f, 0.0722f}, {-0.1145721f, -0.3854279f, 0.5f}, {0.5f, -0.4541529f, -0.0458471f}};
  // Rows r, g, b over columns y, pb, pr.
  static constexpr float TO_RGB[3][3] = {
      {1.0000001f, 0.0f, 1.5748f}, {1.0000001f, -0.1873243f, -0.4681243f}, {1.0f, 1.8556001f, 0.0f}};
};

}  // namespace Orn
