#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipNegative.h>

#include <array>
#include <cstring>
#include <map>
#include <tuple>

#include "ixPixelLoopTestUtil.h"

using namespace Orn;
using namespace OrnTest;

namespace {

IxPixelFormat::Comps const COMPS[] = {IxPixelFormat::ALPHA, IxPixelFormat::RGB, IxPixelFormat::RGBA};
IxPixelFormat::Depth const DEPTHS[] = {IxPixelFormat::UINT8, IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32};

std::uint32_t negativeOf(IxPixelFormat::Depth depth, std::uint32_t raw) {
  switch (depth) {
    case IxPixelFormat::UINT8:
      return 255 - raw;
    case IxPixelFormat::FLOAT16:
      return Half::fromFloat(1.f - Half::toFloat(Half::Bits(raw)));
    default:
      return std::bit_cast<std::uint32_t>(1.f - std::bit_cast<float>(raw));
  }
}

using Pixels = std::map<std::tuple<int, int, int>, std::uint32_t>;

Pixels pixelsOf(IxTile const& tile) {
  Pixels pixels;
  GeRectangle<int> const& r = tile.getPixelRegion();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x)
      for (int c = 0; c < tile.getPixelFormat().getComps(); ++c) pixels[{x, y, c}] = getRaw(tile, x, y, c);
  return pixels;
}

// dst holds the negative of before's (x - dx, y - dy) inside dstRegion and before's own pixels
// elsewhere.
void expectNegative(IxTile const& dst, Pixels const& dstBefore, Pixels const& srcBefore,
                    GeRectangle<int> const& dstRegion, int dx, int dy) {
  for (auto const& [at, raw] : pixelsOf(dst)) {
    auto const [x, y, c] = at;
    std::uint32_t const expected = dstRegion.contains(x, y)
                                       ? negativeOf(dst.getPixelFormat().getDepth(), srcBefore.at({x - dx, y - dy, c}))
                                       : dstBefore.at(at);
    ASSERT_EQ(raw, expected) << "pixel " << x << "," << y << " comp " << c;
  }
}

}  // namespace

TEST(IpNegative, EveryFormatTileToTileAndInPlace) {
  GeRectangle<int> const region(-3, 2, -2, 1);
  for (IxPixelFormat::Comps comps : COMPS)
    for (IxPixelFormat::Depth depth : DEPTHS) {
      SCOPED_TRACE(testing::Message() << "comps " << comps << " depth " << depth);
      // A source with a stride of its own, and a destination that keeps its outer pixels.
      IxTile const src = makeTile(comps, depth, region, 320);
      IxTile const dst = makeTile(comps, depth, GeRectangle<int>(-4, 3, -3, 2));
      fillPattern(src, 1);
      fillPattern(dst, 2);
      Pixels const srcBefore = pixelsOf(src), dstBefore = pixelsOf(dst);
      GeRectangle<int> const dstRegion(-4, 1, -3, 0);
      ipNegative(IxWriteGuard(dst), IxReadGuard(src), &dstRegion, nullptr);
      expectNegative(dst, dstBefore, srcBefore, dstRegion, -1, -1);
      EXPECT_EQ(pixelsOf(src), srcBefore);

      IxTile const other = makeTile(comps, depth, region);
      fillPattern(other, 3);
      Pixels const otherBefore = pixelsOf(other);
      ipNegative(IxWriteGuard(other), IxReadGuard(other), nullptr, nullptr);
      expectNegative(other, otherBefore, otherBefore, region, 0, 0);
      GeRectangle<int> const part(-2, 0, -1, 1);
      Pixels const once = pixelsOf(other);
      ipNegative(IxWriteGuard(other), IxReadGuard(other), &part, &part);
      expectNegative(other, once, once, part, 0, 0);
    }
  // Known values: alpha is negated too, halves round through the exact conversions.
  IxTile const tile = makeTile(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 1, 0, 1));
  for (int c = 0; c < 4; ++c) setRaw(tile, 0, 0, c, Half::fromFloat(std::array{0.25f, 1.f, -2.f, 0.1f}[c]));
  ipNegative(IxWriteGuard(tile), IxReadGuard(tile), nullptr, nullptr);
  EXPECT_EQ(getRaw(tile, 0, 0, 0), 0x3A00u);  // 0.75
  EXPECT_EQ(getRaw(tile, 0, 0, 1), 0x0000u);
  EXPECT_EQ(getRaw(tile, 0, 0, 2), 0x4200u);  // 3.0
  EXPECT_EQ(getRaw(tile, 0, 0, 3), 0x3B33u);  // 0.9 from 1 - 0.0999756
}

TEST(IpNegative, OverlappingRegionsOfOneMemoryReadEverySourcePixelFirst) {
  GeRectangle<int> const tileRegion(0, 6, 0, 5), src(1, 5, 1, 4);
  struct Shift {
    int dx, dy;
  };
  for (IxPixelFormat::Depth depth : DEPTHS)
    for (Shift shift : {Shift{1, 1}, Shift{1, 0}, Shift{-1, -1}, Shift{-1, 0}, Shift{1, -1}, Shift{-1, 1}}) {
      SCOPED_TRACE(testing::Message() << "depth " << depth << " shift " << shift.dx << "," << shift.dy);
      IxTile const tile = makeTile(IxPixelFormat::RGBA, depth, tileRegion);
      fillPattern(tile, 4);
      Pixels const before = pixelsOf(tile);
      GeRectangle<int> const dst(src.x1() + shift.dx, src.x2() + shift.dx, src.y1() + shift.dy, src.y2() + shift.dy);
      ipNegative(IxWriteGuard(tile), IxReadGuard(tile), &dst, &src);
      expectNegative(tile, before, before, dst, shift.dx, shift.dy);
    }
  // One memory under two strides: the destination's rows run ahead of the tighter source's, or
  // behind the wider one's.
  GeRectangle<int> const region(0, 4, 0, 3);
  for (int dstStride : {64, 128}) {
    IxTile const block = makeTile(IxPixelFormat::RGB, IxPixelFormat::UINT8, region, 128);
    IxTile const dst = block.createView(block.getPixelFormat(), region, dstStride);
    IxTile const src = block.createView(block.getPixelFormat(), region, 192 - dstStride);
    std::memset(block.getMemory()->getData(), 0x5A, block.getMemory()->getSize());
    fillPattern(src, 5);
    Pixels const srcBefore = pixelsOf(src), dstBefore = pixelsOf(dst);
    ipNegative(IxWriteGuard(dst), IxReadGuard(src), nullptr, nullptr);
    expectNegative(dst, dstBefore, srcBefore, region, 0, 0);
  }
}

TEST(IpNegative, RefusesMixedFormatsAndComplexTilesWithoutWriting) {
  GeRectangle<int> const region(0, 3, 0, 2);
  IxTile const dst = makeTile(IxPixelFormat::RGBA, IxPixelFormat::UINT8, region);
  fillPattern(dst, 6);
  Pixels const before = pixelsOf(dst);
  try {
    ipNegative(IxWriteGuard(dst), IxReadGuard(makeTile(IxPixelFormat::RGB, IxPixelFormat::UINT8, region)), nullptr,
               nullptr);
    ADD_FAILURE() << "mixed formats accepted";
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "dst.getTile().getPixelFormat() == src.getTile().getPixelFormat()");
  }
  EXPECT_EQ(pixelsOf(dst), before);
  IxTile const complex = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX, region);
  fillPattern(complex, 6);
  std::vector<std::uint32_t> const complexBefore = snapshot(complex);
  EXPECT_THROW(ipNegative(IxWriteGuard(complex), IxReadGuard(complex), nullptr, nullptr),
               AssertionsEx::ExProgramAborted);
  EXPECT_THROW(ipNegative(IxWriteGuard(complex), IxReadGuard(complex.createView(complex.getPixelFormat(), region, 32)),
                          nullptr, nullptr),
               AssertionsEx::ExProgramAborted);
  EXPECT_EQ(snapshot(complex), complexBefore);
}
