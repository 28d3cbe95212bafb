#include <orn/pluginAPI/coRgbColorTyped.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>

#include <gtest/gtest.h>

namespace Orn {
namespace {

TEST(CoRgbColorArithmeticTest, ComponentWiseOperations) {
  using Rgba = CoRgbaColorTyped<float>;
  EXPECT_EQ(Rgba(0, 0, 0, 0), Rgba::ZERO);
  Rgba const x(1, 2, 3, 4);
  Rgba const y(0.5f, -1, 8, 2);
  EXPECT_EQ(Rgba(1.5f, 1, 11, 6), x + y);
  EXPECT_EQ(Rgba(0.5f, 3, -5, 2), x - y);
  EXPECT_EQ(Rgba(0.5f, 1, 1.5f, 2), x * 0.5f);
  Rgba z = x;
  z += y;
  z -= x;
  EXPECT_EQ(y, z);
  z *= 2.0f;
  EXPECT_EQ(Rgba(1, -2, 16, 4), z);

  using Rgb = CoRgbColorTyped<float>;
  Rgb const p(1, 2, 3);
  Rgb const q(4, 4, -4);
  EXPECT_EQ(Rgb(5, 6, -1), p + q);
  EXPECT_EQ(Rgb(-3, -2, 7), p - q);
  EXPECT_EQ(Rgb(3, 6, 9), p * 3.0f);
  Rgb w = p;
  w += q;
  w -= p;
  w *= 0.25f;
  EXPECT_EQ(Rgb(1, 1, -1), w);
}

}  // namespace
}  // namespace Orn
