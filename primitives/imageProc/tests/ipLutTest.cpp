// ipLutApply in its three forms and ipLutGammaApply.

#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipLut.h>
#include <orn/primitives/imageProc/ipLutGamma.h>
#include <orn/primitives/imageProc/ixLutUtils.h>

#include <cmath>
#include <random>

#include "../src/ipLutPaths.h"
#include "ipOperatorTestUtil.h"

using namespace OrnTest;

namespace {

GeRectangle<int> const REGION(0, 4, 0, 2);

IxPixelFormat formatOf(IxPixelFormat::Depth depth) { return IxPixelFormat(IxPixelFormat::RGBA, depth); }

// An 8-bit table with entry i = f(i).
template <class F>
IxGenericLut byteTable(F f) {
  IxGenericLut lut(formatOf(IxPixelFormat::UINT8), formatOf(IxPixelFormat::UINT8));
  for (int i = 0; i < 256; ++i) static_cast<std::uint8_t*>(lut.getTable())[i] = std::uint8_t(f(i));
  return lut;
}

// A float-indexed table of the output depth with entry i = f(i / 16383).
template <class F>
IxGenericLut floatTable(IxPixelFormat::Depth out, F f) {
  IxGenericLut lut(formatOf(out), formatOf(IxPixelFormat::FLOAT32));
  for (int i = 0; i < 16384; ++i) {
    float const v = f(float(i) / 16383.f);
    if (out == IxPixelFormat::FLOAT32) static_cast<float*>(lut.getTable())[i] = v;
    if (out == IxPixelFormat::FLOAT16) static_cast<Half::Bits*>(lut.getTable())[i] = Half::fromFloat(v);
    if (out == IxPixelFormat::UINT8) static_cast<std::uint8_t*>(lut.getTable())[i] = std::uint8_t(v);
  }
  return lut;
}

// Sets the wide loops of the lookup-table operators for the scope of a test.
class ScopedWide {
 public:
  explicit ScopedWide(bool enabled) : _previous(IpLutPaths::setWideEnabled(enabled)) {}
  ~ScopedWide() { IpLutPaths::setWideEnabled(_previous); }

 private:
  bool const _previous;
};

}  // namespace

TEST(IpLut, ByteTablesAndTheAlphaOfEachForm) {
  IxTile const src = makeTile(4, IxPixelFormat::UINT8, REGION), dst = makeTile(4, IxPixelFormat::UINT8, REGION);
  fillPattern(src, 1);
  IxGenericLut const invert = byteTable([](int i) { return 255 - i; });
  IxGenericLut const same = byteTable([](int i) { return i; });
  // One table: every component, alpha too.
  ipLutApply(IxWriteGuard(dst), IxReadGuard(src), invert, nullptr, nullptr);
  for (int c = 0; c < 4; ++c) EXPECT_EQ(getRaw(dst, 2, 1, c), 255 - getRaw(src, 2, 1, c));
  // Three tables: alpha is only carried over.
  ipLutApply(IxWriteGuard(dst), IxReadGuard(src), invert, same, invert, nullptr, nullptr);
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 4; ++x) {
      EXPECT_EQ(getRaw(dst, x, y, 0), 255 - getRaw(src, x, y, 0));
      EXPECT_EQ(getRaw(dst, x, y, 1), getRaw(src, x, y, 1));
      EXPECT_EQ(getRaw(dst, x, y, 3), getRaw(src, x, y, 3));
    }
  // A call of a million components and more maps bytes in pairs when the wide loop is off; the
  // result is the same.
  IxTile const big = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 1023, 0, 257));
  fillPattern(big, 4);
  IxGenericLut const scramble = byteTable([](int i) { return (i * 37 + 11) & 0xFF; });
  for (bool const wide : {true, false}) {
    ScopedWide const scope(wide);
    IxTile const bigOut = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 1023, 0, 257));
    ipLutApply(IxWriteGuard(bigOut), IxReadGuard(big), scramble, nullptr, nullptr);
    for (int y = 0; y < 257; y += 64)
      for (int x = 0; x < 1023; ++x)
        for (int c = 0; c < 4; ++c) ASSERT_EQ(getRaw(bigOut, x, y, c), (getRaw(big, x, y, c) * 37 + 11) & 0xFF);
  }
  // Three components, and a region clipped to the tiles.
  IxTile const rgb = makeTile(3, IxPixelFormat::UINT8, REGION), rgbOut = makeTile(3, IxPixelFormat::UINT8, REGION);
  fillPattern(rgb, 2);
  fillPattern(rgbOut, 3);
  IxTile const before = copyOf(rgbOut);
  GeRectangle<int> const part(2, 9, -1, 1);
  ipLutApply(IxWriteGuard(rgbOut), IxReadGuard(rgb), invert, &part, &part);
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 4; ++x)
      for (int c = 0; c < 3; ++c)
        EXPECT_EQ(getRaw(rgbOut, x, y, c), x >= 2 && y < 1 ? 255 - getRaw(rgb, x, y, c) : getRaw(before, x, y, c));
}

TEST(IpLut, PowerStageWorksOnZeroTo255AndWrapsBytes) {
  IxTile const src = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 1, 0, 1)), dst = copyOf(src);
  std::uint32_t const in[] = {17, 0, 200, 3};
  for (int c = 0; c < 4; ++c) setRaw(src, 0, 0, c, in[c]);
  IxGenericLut const same = byteTable([](int i) { return i; });
  // 17^2 = 289 keeps 33; 200^2 * 1 = 40000 keeps 64; 3^2 = 9. Alpha goes through the stage too.
  ipLutApply(IxWriteGuard(dst), IxReadGuard(src), same, 2.f, 1.f, nullptr, nullptr);
  EXPECT_EQ(snapshot(dst), (std::vector<std::uint32_t>{33, 0, 64, 9}));
  // Gamma 1 and gain 1 give the table back; gain 1/255 with gamma 2 folds the range back: 200^2 / 255
  // = 156.86.
  ipLutApply(IxWriteGuard(dst), IxReadGuard(src), same, 1.f, 1.f, nullptr, nullptr);
  EXPECT_EQ(snapshot(dst), snapshot(src));
  // Per channel, alpha carried over: -2 * 17 = -34 wraps to 222.
  ipLutGammaApply(IxWriteGuard(dst), IxReadGuard(src), same, same, same, 1.f, 2.f, 2.f, -2.f, 1.f, 1.f / 255.f,
                  nullptr, nullptr);
  EXPECT_EQ(snapshot(dst), (std::vector<std::uint32_t>{222, 0, 156, 3}));
}

TEST(IpLut, FloatTablesExtrapolateAndThePowerStageClipsNegatives) {
  IxTile const src = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1));
  float const in[] = {2.f, -1.f, 0.25f, 0.5f};
  for (int c = 0; c < 4; ++c) setValue(src, 0, 0, c, in[c]);
  // The table 2v - 0.5 continues its slope beyond 0..1.
  IxTile const dst = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1));
  IxGenericLut const line = floatTable(IxPixelFormat::FLOAT32, [](float v) { return 2.f * v - 0.5f; });
  ipLutApply(IxWriteGuard(dst), IxReadGuard(src), line, nullptr, nullptr);
  float const expected[] = {3.5f, -2.5f, 0.f, 0.5f};
  for (int c = 0; c < 4; ++c) EXPECT_NEAR(getValue(dst, 0, 0, c), expected[c], 1e-3f) << c;
  // Gamma 1, gain 1: the same except that values <= 0 become 0.
  ipLutApply(IxWriteGuard(dst), IxReadGuard(src), line, 1.f, 1.f, nullptr, nullptr);
  float const clipped[] = {3.5f, 0.f, 0.f, 0.5f};
  for (int c = 0; c < 4; ++c) EXPECT_NEAR(getValue(dst, 0, 0, c), clipped[c], 1e-3f) << c;
  // Half entries are read as their values and stored by rounding.
  IxTile const dstHalf = makeTile(4, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 1, 0, 1));
  ipLutApply(IxWriteGuard(dstHalf), IxReadGuard(src), floatTable(IxPixelFormat::FLOAT16, [](float v) { return v / 3.f; }),
             nullptr, nullptr);
  EXPECT_EQ(getRaw(dstHalf, 0, 0, 3), Half::fromFloat(Half::toFloat(Half::fromFloat(8191.5f / 16383.f / 3.f))));
  // Float to bytes: the table yields 0..255, stored truncated and clamped; alpha in depth only.
  IxTile const dst8 = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 1, 0, 1));
  IxGenericLut const scale = floatTable(IxPixelFormat::UINT8, [](float v) { return std::floor(v * 255.f); });
  ipLutApply(IxWriteGuard(dst8), IxReadGuard(src), scale, scale, scale, nullptr, nullptr);
  EXPECT_EQ(snapshot(dst8), (std::vector<std::uint32_t>{255, 0, 63, 128}));  // 0.5 * 255 + 0.5 = 128
  // Bytes to float: alpha times 0.003921569.
  IxTile const src8 = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 1, 0, 1));
  setRaw(src8, 0, 0, 3, 51);
  IxTile const dstF = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1));
  IxGenericLut const toFloat(formatOf(IxPixelFormat::FLOAT32), formatOf(IxPixelFormat::UINT8));
  ipLutApply(IxWriteGuard(dstF), IxReadGuard(src8), toFloat, toFloat, toFloat, nullptr, nullptr);
  EXPECT_EQ(getValue(dstF, 0, 0, 3), 51.f * 0.003921569f);
}

TEST(IpLut, HalfSourcesAndMismatchedTablesAreRefusedBeforeAnyPixelChanges) {
  IxTile const half = makeTile(4, IxPixelFormat::FLOAT16, REGION), dst = makeTile(4, IxPixelFormat::FLOAT32, REGION);
  fillPattern(half, 1);
  fillPattern(dst, 2);
  std::vector<std::uint32_t> const before = snapshot(dst);
  IxGenericLut const lut(formatOf(IxPixelFormat::FLOAT32), formatOf(IxPixelFormat::FLOAT16));
  std::string const refusal = "!\"Not implemented yet\"";
  EXPECT_EQ(failedCondition([&] { ipLutApply(IxWriteGuard(dst), IxReadGuard(half), lut, nullptr, nullptr); }), refusal);
  EXPECT_EQ(failedCondition([&] { ipLutApply(IxWriteGuard(dst), IxReadGuard(half), lut, lut, lut, nullptr, nullptr); }),
            refusal);
  EXPECT_EQ(failedCondition([&] { ipLutApply(IxWriteGuard(dst), IxReadGuard(half), lut, 1.f, 1.f, nullptr, nullptr); }),
            refusal);
  EXPECT_EQ(failedCondition([&] {
              ipLutGammaApply(IxWriteGuard(dst), IxReadGuard(half), lut, lut, lut, 1.f, 1.f, 1.f, 1.f, 1.f, 1.f, nullptr,
                              nullptr);
            }),
            refusal);
  EXPECT_EQ(snapshot(dst), before);
  // An empty region processes no pixel and so raises nothing.
  GeRectangle<int> const empty(1, 1, 0, 2);
  EXPECT_EQ(failedCondition([&] { ipLutApply(IxWriteGuard(dst), IxReadGuard(half), lut, &empty, nullptr); }), "");
  // A table must have dst's depth as output and src's as input.
  IxTile const src32 = makeTile(4, IxPixelFormat::FLOAT32, REGION);
  EXPECT_EQ(failedCondition([&] { ipLutApply(IxWriteGuard(dst), IxReadGuard(src32), lut, nullptr, nullptr); }),
            "lut.getOutputDepth() == dst.getTile().getPixelFormat().getDepth() && "
            "lut.getInputDepth() == src.getTile().getPixelFormat().getDepth()");
  EXPECT_EQ(snapshot(dst), before);
}

// Rows of every length up to a few blocks of the wide loop, at odd byte addresses, with a stride
// wider than the row, in place and not: the bytes are the table's entries on every loop.
TEST(IpLut, ByteRowsOfAnyLengthAndAddressMatchTheTableOnEveryLoop) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> byte(0, 255);
  IxGenericLut const lut = byteTable([&](int) { return byte(random); });
  std::uint8_t const* const table = static_cast<std::uint8_t const*>(lut.getTable());
  for (bool const wide : {true, false}) {
    ScopedWide const scope(wide);
    for (int comps : {1, 3, 4}) {
      GeRectangle<int> const tileRegion(0, 80, 0, 3);
      int const rowBytes = 80 * comps + 13;
      IxTile const src = makeTile(comps, IxPixelFormat::UINT8, tileRegion, rowBytes);
      for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 80; ++x)
          for (int c = 0; c < comps; ++c) setRaw(src, x, y, c, std::uint32_t(byte(random)));
      for (int x1 = 0; x1 < 4; ++x1)
        for (int width = 0; x1 + width <= 80; width += (width < 20 ? 1 : 7)) {
          GeRectangle<int> const part(x1, x1 + width, 1, 3);
          IxTile const dst = makeTile(comps, IxPixelFormat::UINT8, tileRegion, rowBytes);
          fillPattern(dst, width);
          IxTile const before = copyOf(dst);
          ipLutApply(IxWriteGuard(dst), IxReadGuard(src), lut, &part, &part);
          for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 80; ++x)
              for (int c = 0; c < comps; ++c) {
                bool const inside = x >= x1 && x < x1 + width && y >= 1;
                ASSERT_EQ(getRaw(dst, x, y, c), inside ? table[getRaw(src, x, y, c)] : getRaw(before, x, y, c))
                    << wide << " " << comps << " " << x1 << " " << width << " " << x << " " << y;
              }
        }
      // In place: each byte is read before its result is written.
      IxTile const inPlace = copyOf(src);
      ipLutApply(IxWriteGuard(inPlace), IxReadGuard(inPlace), lut, nullptr, nullptr);
      for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 80; ++x)
          for (int c = 0; c < comps; ++c) ASSERT_EQ(getRaw(inPlace, x, y, c), table[getRaw(src, x, y, c)]);
    }
  }
}
