#include <orn/pluginAPI/ixScanlineUtil.h>

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

#include "ixScanlineTestUtil.h"

#include <algorithm>
#include <complex>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;
using FloatLine = IxScanline<float>;
using RgbaLine = IxScanline<Rgba>;

class IxScanlineUtilTest : public IxScanlineTestBase {
protected:
  static IxPaddingPolicy<float> floatPad() { return IxPaddingPolicy<float>(IxScanlineTypes::NOOP, 0.f); }
  static IxPaddingPolicy<Rgba> rgbaPad() { return IxPaddingPolicy<Rgba>(IxScanlineTypes::NOOP, Rgba()); }
};

}  // namespace

TEST_F(IxScanlineUtilTest, ArithmeticOverWholeLinesAndSubIntervals) {
  FloatLine a(GeInterval<int>(-2, 4), floatPad());
  FloatLine b(GeInterval<int>(-3, 5), floatPad());
  FloatLine out(GeInterval<int>(-2, 4), floatPad());
  for (int x = -2; x < 4; ++x) a[x] = float(x);
  for (int x = -3; x < 5; ++x) b[x] = 10.f * x;

  IxScanlineUtil::addScanlines(out, a, b, nullptr);
  for (int x = -2; x < 4; ++x) EXPECT_EQ(out[x], 11.f * x);
  IxScanlineUtil::subtractScanlines(out, a, b, nullptr);
  for (int x = -2; x < 4; ++x) EXPECT_EQ(out[x], -9.f * x);

  IxScanlineUtil::set(out, 5.f);
  GeInterval<int> const part(0, 2);
  IxScanlineUtil::accumulateScanline(out, b, &part);
  float const accumulated[] = {5.f, 5.f, 5.f, 15.f, 5.f, 5.f};
  for (int x = -2; x < 4; ++x) EXPECT_EQ(out[x], accumulated[x + 2]) << x;
  IxScanlineUtil::copy(out, a, &part);
  EXPECT_EQ(out[1], 1.f);
  EXPECT_EQ(out[2], 5.f);

  // Output and input may be one line.
  IxScanlineUtil::addScanlines(a, a, a);
  EXPECT_EQ(a[3], 6.f);

  // Colours go component by component.
  RgbaLine c(GeInterval<int>(0, 2), rgbaPad());
  RgbaLine d(GeInterval<int>(0, 2), rgbaPad());
  IxScanlineUtil::set(c, Rgba(1.f, 2.f, 3.f, 4.f));
  IxScanlineUtil::set(d, Rgba(0.5f, -1.f, 0.f, 8.f));
  IxScanlineUtil::subtractScanlines(c, c, d);
  EXPECT_EQ(c[1], Rgba(0.5f, 3.f, 3.f, -4.f));
}

TEST_F(IxScanlineUtilTest, IntervalsMustLieInsideEveryLine) {
  FloatLine a(GeInterval<int>(0, 4), floatPad());
  FloatLine b(GeInterval<int>(1, 4), floatPad());
  EXPECT_THROW(IxScanlineUtil::addScanlines(a, a, b, nullptr), AssertionsEx::ExAssertionFailed);
  GeInterval<int> const beyond(2, 5);
  EXPECT_THROW(IxScanlineUtil::set(a, 0.f, &beyond), AssertionsEx::ExAssertionFailed);
}

TEST_F(IxScanlineUtilTest, PremultiplicationKeepsTransparentColours) {
  RgbaLine line(GeInterval<int>(5, 8), rgbaPad());
  Rgba const colours[3] = {Rgba(0.5f, 1.f, 2.f, 0.5f), Rgba(0.25f, 0.5f, 1.f, 0.f), Rgba(1.f, 1.f, 1.f, 2.f)};
  std::copy(colours, colours + 3, line.getBegin());
  RgbaLine premultiplied(GeInterval<int>(5, 8), rgbaPad());
  IxScanlineUtil::multiplyByAlpha(premultiplied, line);
  EXPECT_EQ(premultiplied[5], Rgba(0.25f, 0.5f, 1.f, 0.5f));
  EXPECT_EQ(premultiplied[6], Rgba(0.f, 0.f, 0.f, 0.f));
  EXPECT_EQ(premultiplied[7], Rgba(2.f, 2.f, 2.f, 2.f));

  IxScanlineUtil::divideByAlpha(line);
  EXPECT_EQ(line[5], Rgba(1.f, 2.f, 4.f, 0.5f));
  EXPECT_EQ(line[6], Rgba(0.25f, 0.5f, 1.f, 0.f));
  EXPECT_EQ(line[7], Rgba(0.5f, 0.5f, 0.5f, 2.f));
}

TEST_F(IxScanlineUtilTest, ConvolutionAppliesTheKernelAsWritten) {
  FloatLine in(GeInterval<int>(-1, 6), floatPad());
  for (int x = -1; x < 6; ++x) in[x] = float(1 << (x + 1));  // 1, 2, 4, ... 64
  FloatLine out(GeInterval<int>(0, 5), floatPad());
  float const kernel[3] = {1.f, 10.f, 100.f};
  IxScanlineUtil::convolve1D(out, in, kernel, 3, nullptr);
  // out[x] = in[x - 1] + 10 in[x] + 100 in[x + 1]
  for (int x = 0; x < 5; ++x) EXPECT_EQ(out[x], in[x - 1] + 10.f * in[x] + 100.f * in[x + 1]) << x;

  // The input must reach a radius beyond the interval on both sides.
  FloatLine wideOut(GeInterval<int>(-1, 5), floatPad());
  EXPECT_THROW(IxScanlineUtil::convolve1D(wideOut, in, kernel, 3, nullptr), AssertionsEx::ExAssertionFailed);
  EXPECT_THROW(IxScanlineUtil::convolve1D(out, in, kernel, 2, nullptr), AssertionsEx::ExAssertionFailed);

  RgbaLine colorsIn(GeInterval<int>(0, 5), rgbaPad());
  for (int x = 0; x < 5; ++x) colorsIn[x] = Rgba(float(x), 0.f, 1.f, float(x * x));
  RgbaLine colorsOut(GeInterval<int>(0, 5), rgbaPad());
  float const five[5] = {0.f, 0.f, 1.f, 0.f, 2.f};
  GeInterval<int> const centre(2, 3);
  IxScanlineUtil::convolve1D(colorsOut, colorsIn, five, 5, &centre);
  EXPECT_EQ(colorsOut[2], Rgba(2.f + 8.f, 0.f, 3.f, 4.f + 32.f));
}
