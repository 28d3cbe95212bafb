#include <orn/pluginAPI/coRgbColorTyped.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>

#include <gtest/gtest.h>

namespace Orn {
namespace {

TEST(CoRgbColorArithmeticTest, ComponentWiseOperations) {
  using Rgba = CoRgbaColorTyped<float>;
  EXPECT_EQ(Rgba(0, 0, 0, 0), Rgba::ZERO);
  Rgba const x(1, 2, 3, 4), y(0.5f, -1, 8, 2);
  EXPECT_EQ(Rgba(1.5f, 1, 11, 6), x + y);
  EXPECT_EQ(Rgba(0.5f, 3, -5, 2), x - y);
  Rgba z = x;
  (z += y) -= Rgba(0, 0, 0, 1);
  EXPECT_EQ(Rgba(3, 2, 22, 10), (z *= 2.0f) * 1.0f);

  using Rgb = CoRgbColorTyped<float>;
  Rgb w(1, 2, 3);
  (w += Rgb(4, 4, -4)) -= Rgb(1, 2, 3);
  EXPECT_EQ(Rgb(3, 4, -4), (w *= 0.5f) * 2.0f - Rgb(1, 0, 0));
}

}  // namespace
}  // namespace Orn
