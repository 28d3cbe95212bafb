#include <orn/pluginAPI/ixPixelUtil.h>
#include <orn/pluginAPI/ixScanline.h>
#include <orn/pluginAPI/ixSingleTileFetcher.h>
#include <orn/pluginAPI/ixSingleTilePtrFetcher.h>
#include <orn/pluginAPI/ixTilePtrVectorFetcher.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/half.h>

#include <gtest/gtest.h>

#include <complex>
#include <cstdint>
#include <string>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;

IxTile makeTile(IxPixelFormat::Comps comps, IxPixelFormat::Depth depth, int x1, int x2, int y1, int y2) {
  return IxTile(IxPixelFormat(comps, depth), GeRectangle<int>(x1, x2, y1, y2), Rgba());
}

}  // namespace

TEST(IxTileFetcher, VectorFetcherBoundsAndFirstCoveringTile) {
  IxReadGuard a(makeTile(IxPixelFormat::ALPHA, IxPixelFormat::UINT8, 0, 4, 0, 2));
  IxReadGuard b(makeTile(IxPixelFormat::RGB, IxPixelFormat::FLOAT32, 2, 8, 1, 5));
  IxReadGuard empty(makeTile(IxPixelFormat::RGB, IxPixelFormat::FLOAT32, -10, -10, 0, 50));
  IxTilePtrVectorFetcher fetcher(Vector<IxReadGuard const*>{&empty, &a, &b});
  GeRectangle<int> region;
  fetcher.getRegion(region);
  EXPECT_EQ(region, GeRectangle<int>(0, 8, 0, 5));

  EXPECT_EQ(&fetcher.getTile(3, 1), &a);
  EXPECT_EQ(&fetcher.getTile(4, 1), &b);
  IxTilePtrVectorFetcher reversed(Vector<IxReadGuard const*>{&b, &a});
  EXPECT_EQ(&reversed.getTile(3, 1), &b);
  // Inside the bounding box but in no tile.
  EXPECT_THROW(fetcher.getTile(6, 0), AssertionsEx::ExAssertionFailed);

  IxTilePtrVectorFetcher none{Vector<IxReadGuard const*>()};
  none.getRegion(region);
  EXPECT_TRUE(region.isEmpty());

  IxSingleTilePtrFetcher byAddress(&b);
  EXPECT_EQ(&byAddress.getTile(-100, 100), &b);
}

TEST(IxPixelUtil, PixelColorsByLayout) {
  IxTile rgb16 = makeTile(IxPixelFormat::RGB, IxPixelFormat::FLOAT16, -3, -1, 0, 1);
  Half::Bits* h = reinterpret_cast<Half::Bits*>(rgb16.getBaseAddress());
  h[3] = 0x3C00;
  h[4] = 0x7C00;
  h[5] = 0x0001;
  EXPECT_EQ(IxPixelUtil::getPixelColor(IxReadGuard(rgb16), -2, 0), Rgba(1.f, 65536.f, 5.9604645e-8f, 1.f));

  IxTile a8 = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::UINT8, 10, 12, 5, 7);
  a8.getBaseAddress()[a8.getRowBytes() + 1] = 51;  // (11, 6)
  EXPECT_EQ(IxPixelUtil::getPixelColor(IxReadGuard(a8), 11, 6), Rgba(0.f, 0.f, 0.f, 51.f * 0.003921569f));
  EXPECT_THROW(IxPixelUtil::getPixelColor(IxReadGuard(a8), 12, 6), AssertionsEx::ExAssertionFailed);
  IxTile complexTile = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX, 0, 1, 0, 1);
  EXPECT_THROW(IxPixelUtil::getPixelColor(IxReadGuard(complexTile), 0, 0), AssertionsEx::ExProgramAborted);
}

// This library alone installs no scanline implementation: making a scanline says so.
TEST(IxScanline, WithoutImplementationFactoryRaises) {
  try {
    IxScanline<float> line(GeInterval<int>(0, 4), IxPaddingPolicy<float>(IxScanlineTypes::PADDING_COLOR, 0.f));
    ADD_FAILURE();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_NE(std::string(e.getCondition()).find("IxScanlineImpFactories::install"), std::string::npos);
  }
  EXPECT_EQ(IxScanline<CoRgbaColorTyped<float>>::PIXEL_FORMAT.getSize(), 16);
  EXPECT_EQ(IxScanline<std::complex<float>>::PIXEL_FORMAT.getDepth(), IxPixelFormat::COMPLEX);
}
