#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipNegative.h>

#include <array>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;

namespace {

std::uint32_t negativeOf(IxPixelFormat::Depth depth, std::uint32_t raw) {
  switch (depth) {
    case IxPixelFormat::UINT8: return 255 - raw;
    case IxPixelFormat::FLOAT16: return Half::fromFloat(1.f - Half::toFloat(Half::Bits(raw)));
    default: return std::bit_cast<std::uint32_t>(1.f - std::bit_cast<float>(raw));
  }
}

// Runs ipNegative and checks that dst holds, inside dstRegion, the negative of the source pixel
// (x - dx, y - dy) as it was before, and its own old pixels elsewhere.
void expectNegative(IxTile const& dst, IxTile const& src, GeRectangle<int> const* dstRegion,
                    GeRectangle<int> const* srcRegion, int dx, int dy) {
  IxTile const dstBefore = copyOf(dst), srcBefore = copyOf(src);
  ipNegative(IxWriteGuard(dst), IxReadGuard(src), dstRegion, srcRegion);
  GeRectangle<int> const& r = dst.getPixelRegion();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x)
      for (int c = 0; c < dst.getPixelFormat().getComps(); ++c)
        ASSERT_EQ(getRaw(dst, x, y, c),
                  (dstRegion ? *dstRegion : r).contains(x, y)
                      ? negativeOf(dst.getPixelFormat().getDepth(), getRaw(srcBefore, x - dx, y - dy, c))
                      : getRaw(dstBefore, x, y, c))
            << "pixel " << x << "," << y << " comp " << c;
}

}  // namespace

TEST(IpNegative, EveryFormatTileToTileAndInPlace) {
  GeRectangle<int> const region(-3, 2, -2, 1), dstRegion(-4, 1, -3, 0), part(-2, 0, -1, 1);
  for (int comps : {1, 3, 4})
    for (IxPixelFormat::Depth depth : DEPTHS) {
      SCOPED_TRACE(testing::Message() << "comps " << comps << " depth " << depth);
      IxTile const src = makeTile(comps, depth, region, 320);  // a stride of its own
      IxTile const dst = makeTile(comps, depth, GeRectangle<int>(-4, 3, -3, 2));
      fillPattern(src, 1);
      fillPattern(dst, 2);
      expectNegative(dst, src, &dstRegion, nullptr, -1, -1);
      expectNegative(src, src, nullptr, nullptr, 0, 0);
      expectNegative(src, src, &part, &part, 0, 0);
    }
  // Alpha is negated too, and halves round through the exact conversions.
  IxTile const tile = makeTile(4, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 1, 0, 1));
  for (int c = 0; c < 4; ++c) setRaw(tile, 0, 0, c, Half::fromFloat(std::array{0.25f, 1.f, -2.f, 0.1f}[c]));
  ipNegative(IxWriteGuard(tile), IxReadGuard(tile), nullptr, nullptr);
  EXPECT_EQ(snapshot(tile), (std::vector<std::uint32_t>{0x3A00, 0x0000, 0x4200, 0x3B33}));  // 0.9 from 1 - 0.0999756
}

TEST(IpNegative, OverlappingRegionsOfOneMemoryReadEverySourcePixelFirst) {
  GeRectangle<int> const src(1, 5, 1, 4);
  std::pair<int, int> const shifts[] = {{1, 1}, {1, 0}, {-1, -1}, {-1, 0}, {1, -1}, {-1, 1}};
  for (IxPixelFormat::Depth depth : DEPTHS)
    for (auto [dx, dy] : shifts) {
      SCOPED_TRACE(testing::Message() << "depth " << depth << " shift " << dx << "," << dy);
      IxTile const tile = makeTile(4, depth, GeRectangle<int>(0, 6, 0, 5));
      fillPattern(tile, 4);
      GeRectangle<int> const dst(src.x1() + dx, src.x2() + dx, src.y1() + dy, src.y2() + dy);
      expectNegative(tile, tile, &dst, &src, dx, dy);
    }
  // One memory under two strides: the destination's rows run ahead of the tighter source's, or
  // behind the wider one's.
  GeRectangle<int> const region(0, 4, 0, 3);
  for (int dstStride : {64, 128}) {
    IxTile const block = makeTile(3, IxPixelFormat::UINT8, region, 128);
    std::memset(block.getMemory()->getData(), 0x5A, block.getMemory()->getSize());
    IxTile const srcView = block.createView(block.getPixelFormat(), region, 192 - dstStride);
    fillPattern(srcView, 5);
    expectNegative(block.createView(block.getPixelFormat(), region, dstStride), srcView, nullptr, nullptr, 0, 0);
  }
}

TEST(IpNegative, RefusesMixedFormatsAndComplexTilesWithoutWriting) {
  GeRectangle<int> const region(0, 3, 0, 2);
  IxTile const dst = makeTile(4, IxPixelFormat::UINT8, region);
  fillPattern(dst, 6);
  std::vector<std::uint32_t> const before = snapshot(dst);
  try {
    ipNegative(IxWriteGuard(dst), IxReadGuard(makeTile(3, IxPixelFormat::UINT8, region)), nullptr, nullptr);
    ADD_FAILURE() << "mixed formats accepted";
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "dst.getTile().getPixelFormat() == src.getTile().getPixelFormat()");
  }
  EXPECT_EQ(snapshot(dst), before);
  // In place and through a view of another stride, the two roads both refuse.
  IxTile const complex = makeTile(1, IxPixelFormat::COMPLEX, region);
  fillPattern(complex, 6);
  std::vector<std::uint32_t> const complexBefore = snapshot(complex);
  for (IxTile const& src : {complex, complex.createView(complex.getPixelFormat(), region, 32)})
    EXPECT_THROW(ipNegative(IxWriteGuard(complex), IxReadGuard(src), nullptr, nullptr), AssertionsEx::ExProgramAborted);
  EXPECT_EQ(snapshot(complex), complexBefore);
}

// Wide half rows go through the vector conversions; every half pattern, denormals and exponent 31
// included, must come out as the per-pixel rule gives it, tile to tile and in place.
TEST(IpNegative, EveryHalfPatternThroughWideRows) {
  GeRectangle<int> const region(0, 128, 0, 128);
  IxTile const src = makeTile(4, IxPixelFormat::FLOAT16, region);
  for (int y = 0; y < 128; ++y)
    for (int x = 0; x < 128; ++x)
      for (int c = 0; c < 4; ++c) setRaw(src, x, y, c, std::uint32_t((y * 128 + x) * 4 + c));
  IxTile const dst = makeTile(4, IxPixelFormat::FLOAT16, region);
  expectNegative(dst, src, nullptr, nullptr, 0, 0);
  expectNegative(src, src, nullptr, nullptr, 0, 0);
}
