#include <orn/pluginAPI/ixPixelFormat.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixTile.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/pluginAPI/pxRequestMgr.h>

#include <orn/base/except/assertions.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

using namespace Orn;

namespace {

std::string conditionOf(auto&& call) {
  try {
    call();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    return e.getCondition();
  }
  return "<no raise>";
}

CoRgbaColorTyped<float> const black(0, 0, 0, 0);

}  // namespace

TEST(IxPixelFormat, ChecksAndEquality) {
  IxPixelFormat const rgba8(IxPixelFormat::RGBA, IxPixelFormat::UINT8, Rational(1, 1));
  EXPECT_EQ(rgba8.getSize(), 4);
  EXPECT_EQ(IxPixelFormat(IxPixelFormat::RGB, IxPixelFormat::FLOAT16).getSize(), 6);
  EXPECT_EQ(IxPixelFormat(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX).getSize(), 8);
  // Channel order is not compared; a value-equal aspect ratio is equal.
  EXPECT_EQ(rgba8, IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::UINT8, Rational(2, 2), 1));
  EXPECT_NE(rgba8, IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::UINT8, Rational(2, 1)));
  EXPECT_NE(rgba8, IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32));

  EXPECT_EQ(conditionOf([] { IxPixelFormat(IxPixelFormat::Comps(2), IxPixelFormat::UINT8); }),
            "_comps == ALPHA || _comps == RGB || _comps == RGBA");
  EXPECT_EQ(conditionOf([] { IxPixelFormat(IxPixelFormat::RGB, IxPixelFormat::Depth(12)); }),
            "_depth == UINT8 || _depth == FLOAT16 || _depth == FLOAT32 || _depth == COMPLEX");
  for (Rational bad : {Rational(0, 1), Rational(-1, 2), Rational(0, 0)})
    EXPECT_NE(conditionOf([&] { IxPixelFormat(IxPixelFormat::RGB, IxPixelFormat::UINT8, bad); })
                  .find("aspectRatio.getFloat()"),
              std::string::npos);
  // Positive infinity passes, as does any positive finite value.
  EXPECT_NO_THROW(IxPixelFormat(IxPixelFormat::RGB, IxPixelFormat::UINT8, Rational(1, 0)));
  EXPECT_NO_THROW(IxPixelFormat(IxPixelFormat::RGB, IxPixelFormat::UINT8, Rational(1, 1000000)));
}

TEST(IxTile, StrideAlignmentAndAddressing) {
  IxPixelFormat const rgb16(IxPixelFormat::RGB, IxPixelFormat::FLOAT16);
  GeRectangle<int> const region(-5, 6, -3, 4);  // 11 x 7, negative origin
  IxTile tile(rgb16, region, CoRgbaColorTyped<float>(1, 0, 0, 1));
  ASSERT_TRUE(tile.isValid());
  EXPECT_FALSE(tile.isEmpty());
  EXPECT_EQ(tile.getRowBytes() % 64, 0);
  EXPECT_GE(tile.getRowBytes(), 11 * 6);
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(tile.getBaseAddress()) % 64, 0u);
  EXPECT_EQ(tile.getFillColor(), CoRgbaColorTyped<float>(1, 0, 0, 1));

  IxWriteGuard const write(tile);
  IxReadGuard const read(write);
  EXPECT_EQ(write.getBaseAddress(), tile.getBaseAddress());
  EXPECT_EQ(read.getBaseAddress(), write.getBaseAddress());
  // Pixel (x1, y1) through the origin formula is the base address; so is every other pixel.
  auto at = [&](int x, int y) {
    return read.getOriginAddress() + std::int64_t(y) * tile.getRowBytes() + std::int64_t(x) * 6;
  };
  EXPECT_EQ(at(-5, -3), read.getBaseAddress());
  EXPECT_EQ(at(5, 3), read.getBaseAddress() + 6 * tile.getRowBytes() + 10 * 6);

  // Copies share the memory; a tile of its own does not.
  IxTile const copy = tile;
  EXPECT_TRUE(copy == tile);
  EXPECT_FALSE(IxTile(rgb16, region, black) == tile);
}

TEST(IxTile, GivenStridesViewsAndInvalidTiles) {
  IxPixelFormat const a8(IxPixelFormat::ALPHA, IxPixelFormat::UINT8);
  IxTile padded(a8, GeRectangle<int>(0, 10, 0, 3), black, 13);
  EXPECT_EQ(padded.getRowBytes(), 13);
  // Negative stride: rows stored bottom up, base is still pixel (x1, y1).
  IxTile flipped(a8, GeRectangle<int>(0, 10, 0, 3), black, -16);
  IxWriteGuard const g(flipped);
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 10; ++x) g.getOriginAddress()[std::int64_t(y) * -16 + x] = std::uint8_t(10 * y + x);
  EXPECT_EQ(g.getBaseAddress()[0], 0);
  EXPECT_EQ(g.getBaseAddress()[-16 * 2 + 9], 29);

  // A view over the same block with another stride and format.
  IxTile const view = padded.createView(a8, GeRectangle<int>(0, 5, 0, 6), 6);
  EXPECT_TRUE(view == padded);
  EXPECT_EQ(view.getRowBytes(), 6);
  EXPECT_THROW(padded.createView(a8, GeRectangle<int>(0, 10, 0, 4), 13), AssertionsEx::ExAssertionFailed);
  EXPECT_THROW(padded.createView(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32),
                                 GeRectangle<int>(0, 10, 0, 3), 13),
               AssertionsEx::ExAssertionFailed);
  EXPECT_EQ(conditionOf([] { IxTile(IxPixelFormat(IxPixelFormat::RGB, IxPixelFormat::UINT8), GeRectangle<int>(0, 4, 0, 2), black, 8); }),
            "isEmpty() || stride >= rowSize");

  IxTile const invalid;
  EXPECT_FALSE(invalid.isValid());
  EXPECT_EQ(conditionOf([&] { invalid.getPixelRegion(); }), "isValid()");
  EXPECT_EQ(conditionOf([&] { invalid.getRowBytes(); }), "isValid()");
  IxReadGuard const none;
  EXPECT_EQ(none.getBaseAddress(), nullptr);

  // A region with x1 == x2 is empty whatever its height.
  EXPECT_TRUE(IxTile(a8, GeRectangle<int>(3, 3, 0, 100), black).isEmpty());
}

TEST(PxRequestMgr, HookIsCalledUntilRemoved) {
  int calls = 0;
  PxRequestMgr::getInstance().poll();
  PxRequestMgr::setPollHook([&] { ++calls; });
  PxRequestMgr::getInstance().poll();
  PxRequestMgr::getInstance().poll();
  PxRequestMgr::setPollHook({});
  PxRequestMgr::getInstance().poll();
  EXPECT_EQ(calls, 2);
  PxRequestMgr::setPollHook([] { throw std::runtime_error("abandon"); });
  EXPECT_THROW(PxRequestMgr::getInstance().poll(), std::runtime_error);
  PxRequestMgr::setPollHook({});
}
