#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ixCineonUtil.h>
#include <orn/primitives/imageProc/ixGenericLut.h>
#include <orn/primitives/imageProc/ixLutUtils.h>

#include <cmath>
#include <sstream>

#include "ipOperatorTestUtil.h"

using namespace OrnTest;

namespace {

IxPixelFormat formatOf(IxPixelFormat::Depth depth) { return IxPixelFormat(IxPixelFormat::RGBA, depth); }

// A float-indexed float table: entries 0 and 1 are 0 and 1, the last two 5 and 7, the others
// climb by 1 / 1000 per entry from entry 1.
IxGenericLut makeFloatTable() {
  IxGenericLut lut(formatOf(IxPixelFormat::FLOAT32), formatOf(IxPixelFormat::FLOAT32));
  float* t = static_cast<float*>(lut.getTable());
  for (int i = 0; i < 16384; ++i) t[i] = 1.f + float(i - 1) / 1000.f;
  t[0] = 0.f;
  t[16382] = 5.f;
  t[16383] = 7.f;
  return lut;
}

}  // namespace

TEST(IxGenericLut, TrailersFollowTheEntriesOfAllNinePairsAndCopiesAreDeep) {
  struct Index {
    IxPixelFormat::Depth depth;
    int nbEntries;
  };
  for (Index in : {Index{IxPixelFormat::UINT8, 256}, Index{IxPixelFormat::FLOAT16, 8192}, Index{IxPixelFormat::FLOAT32, 16384}})
    for (IxPixelFormat::Depth out : DEPTHS) {
      SCOPED_TRACE(testing::Message() << out << " from " << in.depth);
      // Tiles of different component counts: only depths count.
      IxGenericLut const lut(makeTile(1, out, GeRectangle<int>(0, 1, 0, 1)), makeTile(3, in.depth, GeRectangle<int>(0, 1, 0, 1)));
      EXPECT_EQ(lut.getNbEntries(), in.nbEntries);
      unsigned char const* trailer = static_cast<unsigned char const*>(lut.getTable()) + in.nbEntries * (out / 8);
      if (in.depth == IxPixelFormat::UINT8) {
        std::int32_t bounds[2];
        std::memcpy(bounds, trailer, 8);
        EXPECT_EQ(bounds[0], 0);
        EXPECT_EQ(bounds[1], 255);
      } else {
        float bounds[2];
        std::memcpy(bounds, trailer, 8);
        EXPECT_EQ(bounds[0], 0.f);
        EXPECT_EQ(bounds[1], float(in.nbEntries - 1));
      }
    }
  IxGenericLut lut(formatOf(IxPixelFormat::UINT8), formatOf(IxPixelFormat::UINT8));
  IxLutUtils::fillLinearTable(lut, 1.f, 0.f);
  IxGenericLut copy(lut);
  EXPECT_NE(copy.getTable(), lut.getTable());
  static_cast<std::uint8_t*>(copy.getTable())[7] = 99;
  EXPECT_EQ(static_cast<std::uint8_t const*>(lut.getTable())[7], 7);
  lut = copy;
  EXPECT_EQ(static_cast<std::uint8_t const*>(lut.getTable())[7], 99);
  EXPECT_EQ(std::memcmp(lut.getTable(), copy.getTable(), 264), 0);

  IxPixelFormat const complex(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX);
  EXPECT_THROW(IxGenericLut(complex, formatOf(IxPixelFormat::UINT8)), AssertionsEx::ExProgramAborted);
  EXPECT_THROW(IxGenericLut(formatOf(IxPixelFormat::FLOAT32), complex), AssertionsEx::ExProgramAborted);
}

TEST(IxGenericLut, DumpNamesEachIndexUnlessIndexedByHalves) {
  IxGenericLut lut(formatOf(IxPixelFormat::UINT8), formatOf(IxPixelFormat::UINT8));
  IxLutUtils::fillLinearTable(lut, 0.5f, 0.f);
  std::ostringstream out;
  lut.dump(out);
  std::string const text = out.str();
  EXPECT_EQ(text.substr(0, 35), "lut(      0 ) = 0\nlut(      1 ) = 0");
  EXPECT_NE(text.find("\nlut(    255 ) = 127\n"), std::string::npos);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 256);
  IxGenericLut const halves(formatOf(IxPixelFormat::FLOAT32), formatOf(IxPixelFormat::FLOAT16));
  std::ostringstream none;
  EXPECT_EQ(failedCondition([&] { halves.dump(none); }), "Not implemented yet");
  EXPECT_EQ(none.str(), "");
}

TEST(IxGenericLut, FloatLookupInterpolatesAndExtendsTheEndSegments) {
  IxGenericLut const lut = makeFloatTable();
  auto const& table = lut.getLut<IxPixelCompFloat32, IxPixelCompFloat32>();
  EXPECT_EQ(table.lookup(1.f), 7.f);                       // u = 16383: the top entry plus nothing
  EXPECT_EQ(table.lookup(0.f), 0.f);
  EXPECT_FLOAT_EQ(table.lookup(0.5f / 16383.f), 0.5f);      // halfway between entries 0 and 1
  EXPECT_FLOAT_EQ(table.lookup(1.f + 1.f / 16383.f), 9.f);  // the last segment's slope of 2, once more
  EXPECT_FLOAT_EQ(table.lookup(2.f), 7.f + 16383.f * 2.f);
  // Below 0 the first segment (slope 1 per entry) extends: through the lower branch beyond one
  // entry, through the middle one with a negative fraction within it.
  EXPECT_FLOAT_EQ(table.lookup(-0.5f), -8191.5f);
  EXPECT_FLOAT_EQ(table.lookup(-0.25f / 16383.f), -0.25f);
  EXPECT_TRUE(std::isnan(table.lookup(std::nanf(""))));

  // Byte entries read as 0..255, half entries as their values.
  IxGenericLut bytes(formatOf(IxPixelFormat::UINT8), formatOf(IxPixelFormat::FLOAT32));
  std::uint8_t* b = static_cast<std::uint8_t*>(bytes.getTable());
  b[0] = 10;
  b[1] = 20;
  EXPECT_FLOAT_EQ((bytes.getLut<IxPixelCompUInt8, IxPixelCompFloat32>().lookup(0.25f / 16383.f)), 12.5f);
  IxGenericLut halves(formatOf(IxPixelFormat::FLOAT16), formatOf(IxPixelFormat::UINT8));
  static_cast<Half::Bits*>(halves.getTable())[3] = Half::fromFloat(-0.75f);
  EXPECT_EQ((halves.getLut<IxPixelCompFloat16, IxPixelCompUInt8>().lookup(3)), -0.75f);
}

TEST(IxLutUtils, GammaAndLinearFillsOfByteTables) {
  IxGenericLut lut(formatOf(IxPixelFormat::UINT8), formatOf(IxPixelFormat::UINT8));
  std::uint8_t const* t = static_cast<std::uint8_t const*>(lut.getTable());
  IxLutUtils::fillGammaTable(lut, 1.f);
  for (int i = 0; i < 256; ++i) ASSERT_EQ(t[i], i);
  // sqrt(i / 255) * 255 + 0.5: 0, 16.47, 128.25, 255.5 (clamped).
  IxLutUtils::fillGammaTable(lut, 2.f);
  EXPECT_EQ(t[0], 0);
  EXPECT_EQ(t[1], 16);
  EXPECT_EQ(t[64], 128);
  EXPECT_EQ(t[255], 255);
  // i * i / 255 + 0.5: 16 gives 1.50, 128 gives 64.75.
  IxLutUtils::fillGammaTable(lut, 0.5f);
  EXPECT_EQ(t[16], 1);
  EXPECT_EQ(t[128], 64);
  EXPECT_EQ(failedCondition([&] { IxLutUtils::fillGammaTable(lut, 0.f); }),
            "gamma > std::numeric_limits<float>::min()");
  // i * 2 - 127.5, clamped: 0, 72.5, 255.
  IxLutUtils::fillLinearTable(lut, 2.f, -0.5f);
  EXPECT_EQ(t[0], 0);
  EXPECT_EQ(t[100], 72);
  EXPECT_EQ(t[200], 255);
  IxGenericLut wide(formatOf(IxPixelFormat::FLOAT32), formatOf(IxPixelFormat::UINT8));
  EXPECT_THROW(IxLutUtils::fillGammaTable(wide, 2.f), AssertionsEx::ExProgramAborted);
  EXPECT_THROW(IxLutUtils::fillLinearTable(wide, 1.f, 0.f), AssertionsEx::ExProgramAborted);
}

TEST(IxCineonUtil, CurvesMeetTheWhiteReferenceAndInvertEachOther) {
  double const g = 0.6, w = 685.0, l = 0.9;
  double a, b, c, a2, b2, c2;
  IxCineonUtil::computeCinToLinCoeffs(a, b, c, g, w, l);
  EXPECT_NEAR(b, 0.002 / 0.6 * std::log2(10.0), 1e-15);
  EXPECT_NEAR(a * std::pow(2.0, b * w) + c, l, 1e-12);
  IxCineonUtil::computeLinToCinCoeffs(a2, b2, c2, g, w, l);
  EXPECT_TRUE(b2 == 0.0 && std::signbit(b2));
  for (double code : {95.0, 400.0, 1023.0}) {
    double const linear = a * std::pow(2.0, b * code) + c;
    EXPECT_NEAR(a2 * std::log2(linear + b2) + c2, code, 1e-9);
  }
  // The normalised pair: code w / 1023 is white.
  IxCineonUtil::computeLogToLinCoeffs(a, b, c, g, w, l);
  EXPECT_NEAR(a * std::pow(2.0, b * w / 1023.0) + c, l, 1e-12);
  IxCineonUtil::computeLinToLogCoeffs(a2, b2, c2, g, w, l);
  EXPECT_NEAR(a2 * std::log2(l + b2) + c2, w / 1023.0, 1e-12);
  // The film gamma is floored at 0.1.
  double a0, b0, c0, a1, b1, c1;
  IxCineonUtil::computeCinToLinCoeffs(a0, b0, c0, 0.0, w, l);
  IxCineonUtil::computeCinToLinCoeffs(a1, b1, c1, 0.1, w, l);
  EXPECT_EQ(a0, a1);
  EXPECT_EQ(b0, b1);
}
