// ipLutColorMatrix and ipLutGammaColorMatrix.

#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipLutColorMatrix.h>
#include <orn/primitives/imageProc/ipLutGammaColorMatrix.h>

#include <cmath>
#include <random>

#include "../src/ipLutPaths.h"
#include "ipOperatorTestUtil.h"

using namespace OrnTest;

namespace {

IxPixelFormat formatOf(IxPixelFormat::Depth depth) { return IxPixelFormat(IxPixelFormat::RGBA, depth); }

IxGenericLut identity8() {
  IxGenericLut lut(formatOf(IxPixelFormat::UINT8), formatOf(IxPixelFormat::UINT8));
  for (int i = 0; i < 256; ++i) static_cast<std::uint8_t*>(lut.getTable())[i] = std::uint8_t(i);
  return lut;
}

IxGenericLut identityFloat() {
  IxGenericLut lut(formatOf(IxPixelFormat::FLOAT32), formatOf(IxPixelFormat::FLOAT32));
  for (int i = 0; i < 16384; ++i) static_cast<float*>(lut.getTable())[i] = float(i) / 16383.f;
  return lut;
}

// A colour matrix written for column vectors: element (row i, column j) of rows, translation in
// column 3, alpha element at (3, 3). Stored the library's way, (i, j) at data index 4j + i.
GeProjectiveMatrix3<float> colourMatrix(float const (&rows)[4][4]) {
  GeProjectiveMatrix3<float> m;
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j) m.getData()[4 * j + i] = rows[i][j];
  return m;
}

// Sets the wide loops of the lookup-table operators for the scope of a test.
class ScopedWide {
 public:
  explicit ScopedWide(bool enabled) : _previous(IpLutPaths::setWideEnabled(enabled)) {}
  ~ScopedWide() { IpLutPaths::setWideEnabled(_previous); }

 private:
  bool const _previous;
};

// A stored byte of the 8-bit matrix path: truncation to a 32-bit integer (out of range and NaN
// giving the lowest integer), then saturation to 0..255.
std::uint32_t storedByte(float v) {
  if (!(v > -2147483648.f && v < 2147483648.f)) return 0;
  return std::uint32_t(std::clamp(std::int64_t(v), std::int64_t(0), std::int64_t(255)));
}

float const MIX[4][4] = {{0.5f, 0.25f, 0.f, 0.1f}, {0.f, 1.f, -0.5f, 0.f}, {1.f, 0.f, 2.f, -0.25f}, {0.f, 0.f, 0.f, 0.5f}};

}  // namespace

TEST(IpLutColorMatrix, IdentityGivesTheInputExactlyInEveryByteLayout) {
  GeProjectiveMatrix3<float> const identity;
  IxGenericLut const lut = identity8();
  for (int comps : {3, 4}) {
    // An odd width leaves a last pixel out of the pairs of the four-component path.
    IxTile const src = makeTile(comps, IxPixelFormat::UINT8, GeRectangle<int>(0, 17, 0, 16));
    for (int y = 0; y < 16; ++y)
      for (int x = 0; x < 17; ++x)
        for (int c = 0; c < comps; ++c) setRaw(src, x, y, c, std::uint32_t((x * 16 + y + 85 * c) & 0xFF));
    IxTile const one = copyOf(src), three = copyOf(src);
    fillPattern(one, 1);
    fillPattern(three, 2);
    ipLutColorMatrix(IxWriteGuard(one), IxReadGuard(src), identity, lut, nullptr, nullptr);
    ipLutColorMatrix(IxWriteGuard(three), IxReadGuard(src), identity, lut, lut, lut, nullptr, nullptr);
    EXPECT_EQ(snapshot(one), snapshot(src)) << comps;
    EXPECT_EQ(snapshot(three), snapshot(src)) << comps;
  }
}

TEST(IpLutColorMatrix, BytesScaleTheTranslationTruncateAndClamp) {
  IxTile const src = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 2, 0, 1)), dst = copyOf(src);
  std::uint32_t const pixels[2][4] = {{10, 100, 40, 200}, {255, 0, 128, 7}};
  for (int x = 0; x < 2; ++x)
    for (int c = 0; c < 4; ++c) setRaw(src, x, 0, c, pixels[x][c]);
  IxGenericLut const lut = identity8();
  // The 3x3 block applies to 0..255 as it is, the translation is times 255, the sums truncated
  // and clamped: red 0.5 r + 0.25 g + 25.5, green g - 0.5 b, blue r + 2 b - 63.75, alpha a / 2.
  ipLutColorMatrix(IxWriteGuard(dst), IxReadGuard(src), colourMatrix(MIX), lut, nullptr, nullptr);
  for (int x = 0; x < 2; ++x) {
    float const r = float(pixels[x][0]), g = float(pixels[x][1]), b = float(pixels[x][2]), a = float(pixels[x][3]);
    float const expected[] = {0.5f * r + 0.25f * g + 25.5f, g - 0.5f * b, r + 2.f * b - 63.75f, 0.5f * a};
    for (int c = 0; c < 4; ++c)
      EXPECT_EQ(getRaw(dst, x, 0, c), std::uint32_t(std::clamp(std::trunc(expected[c]), 0.f, 255.f)))
          << "pixel " << x << " comp " << c;
  }
  // A translation of 0.5 adds 127.5; alpha's element 0 clears alpha. With one table alpha goes
  // through it; with three it does not.
  float const shift[4][4] = {{1, 0, 0, 0.5f}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 0}};
  IxGenericLut halve(lut);
  for (int i = 0; i < 256; ++i) static_cast<std::uint8_t*>(halve.getTable())[i] = std::uint8_t(i / 2);
  ipLutColorMatrix(IxWriteGuard(dst), IxReadGuard(src), colourMatrix(shift), lut, nullptr, nullptr);
  EXPECT_EQ(snapshot(dst), (std::vector<std::uint32_t>{137, 100, 40, 0, 255, 0, 128, 0}));
  float const keep[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
  ipLutColorMatrix(IxWriteGuard(dst), IxReadGuard(src), colourMatrix(keep), halve, nullptr, nullptr);
  EXPECT_EQ(getRaw(dst, 0, 0, 3), 100u);
  ipLutColorMatrix(IxWriteGuard(dst), IxReadGuard(src), colourMatrix(keep), halve, halve, halve, nullptr, nullptr);
  EXPECT_EQ(getRaw(dst, 0, 0, 3), 200u);
  EXPECT_EQ(getRaw(dst, 0, 0, 1), 50u);
}

TEST(IpLutColorMatrix, FloatIsNotClampedAndHalfSourcesAreRefused) {
  IxTile const src = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1)), dst = copyOf(src);
  float const in[] = {0.8f, 0.4f, 0.9f, 0.6f};
  for (int c = 0; c < 4; ++c) setValue(src, 0, 0, c, in[c]);
  ipLutColorMatrix(IxWriteGuard(dst), IxReadGuard(src), colourMatrix(MIX), identityFloat(), nullptr, nullptr);
  float const expected[] = {0.5f * 0.8f + 0.25f * 0.4f + 0.1f, 0.4f - 0.5f * 0.9f, 0.8f + 2.f * 0.9f - 0.25f, 0.3f};
  for (int c = 0; c < 4; ++c) EXPECT_NEAR(getValue(dst, 0, 0, c), expected[c], 1e-5f) << c;

  IxTile const half = makeTile(3, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 1, 0, 1)), halfOut = copyOf(half);
  IxGenericLut const halfLut(formatOf(IxPixelFormat::FLOAT16), formatOf(IxPixelFormat::FLOAT16));
  GeProjectiveMatrix3<float> const identity;
  std::string const refusal = "!\"Not implemented yet\"";
  EXPECT_EQ(failedCondition([&] {
              ipLutColorMatrix(IxWriteGuard(halfOut), IxReadGuard(half), identity, halfLut, nullptr, nullptr);
            }),
            refusal);
  EXPECT_EQ(failedCondition([&] {
              ipLutGammaColorMatrix(IxWriteGuard(halfOut), IxReadGuard(half), identity, halfLut, halfLut, halfLut, 1.f,
                                    1.f, 1.f, 1.f, 1.f, 1.f, nullptr, nullptr);
            }),
            refusal);
  // Mixed formats are refused on entry.
  EXPECT_EQ(failedCondition([&] {
              ipLutColorMatrix(IxWriteGuard(dst), IxReadGuard(half), identity, halfLut, nullptr, nullptr);
            }),
            "dst.getTile().getPixelFormat() == src.getTile().getPixelFormat()");
}

TEST(IpLutGammaColorMatrix, StagesRunLookupPowerMatrixAndBytesClamp) {
  IxTile const src = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 1, 0, 1)), dst = copyOf(src);
  std::uint32_t const in[] = {17, 128, 0, 100};
  for (int c = 0; c < 4; ++c) setRaw(src, 0, 0, c, in[c]);
  GeProjectiveMatrix3<float> const identity;
  IxGenericLut const lut = identity8();
  // Gamma 2 on 0..255: 17 gives 289, clamped to 255 (where the apply form would wrap to 33).
  // Alpha also goes through the power stage with one table: 100^2 = 10000 clamps to 255.
  ipLutGammaColorMatrix(IxWriteGuard(dst), IxReadGuard(src), identity, lut, 2.f, 1.f, nullptr, nullptr);
  EXPECT_EQ(snapshot(dst), (std::vector<std::uint32_t>{255, 255, 0, 255}));
  // Per channel, with the gain folding the range back: 128^2 / 255 = 64.25. Alpha is carried
  // through the matrix only. The power comes before the matrix: red 17^1 * 2 = 34 feeds blue.
  float const swap[4][4] = {{0, 0, 0, 0}, {0, 1, 0, 0}, {1, 0, 0, 0}, {0, 0, 0, 1}};
  ipLutGammaColorMatrix(IxWriteGuard(dst), IxReadGuard(src), colourMatrix(swap), lut, lut, lut, 1.f, 2.f, 0.5f, 2.f,
                        1.f / 255.f, 1.f, nullptr, nullptr);
  EXPECT_EQ(snapshot(dst), (std::vector<std::uint32_t>{0, 64, 34, 100}));

  // Float: negative table values are clipped by the power stage before the matrix.
  IxTile const fsrc = makeTile(3, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1)), fdst = copyOf(fsrc);
  float const fin[] = {-0.5f, 0.25f, 2.f};
  for (int c = 0; c < 3; ++c) setValue(fsrc, 0, 0, c, fin[c]);
  ipLutGammaColorMatrix(IxWriteGuard(fdst), IxReadGuard(fsrc), identity, identityFloat(), 2.f, 3.f, nullptr, nullptr);
  EXPECT_EQ(getValue(fdst, 0, 0, 0), 0.f);
  EXPECT_NEAR(getValue(fdst, 0, 0, 1), 3.f * 0.0625f, 1e-5f);
  EXPECT_NEAR(getValue(fdst, 0, 0, 2), 12.f, 1e-3f);
}

// The 8-bit path on random tables, matrices and pixels, against the sums written out here: the
// matrix copy scaled to 0..255 on both sides, each channel summed as red term plus (green term plus
// (blue term plus 0)), alpha as the alpha element times the alpha value. Rows of every length
// around the 16-pixel blocks of the wide loop, at shifted starts, with a stride, in place, on both
// loops; a matrix whose sums overflow the integers is only compared between the two loops.
TEST(IpLutColorMatrix, BytePathMatchesItsSumsOnEveryLoop) {
  std::mt19937 random(11);
  std::uniform_int_distribution<int> byte(0, 255);
  std::uniform_real_distribution<float> element(-1.5f, 1.5f);
  IxGenericLut tables[3] = {identity8(), identity8(), identity8()};
  for (IxGenericLut& lut : tables)
    for (int i = 0; i < 256; ++i) static_cast<std::uint8_t*>(lut.getTable())[i] = std::uint8_t(byte(random));
  GeRectangle<int> const tileRegion(0, 40, 0, 3);
  for (int trial = 0; trial < 4; ++trial) {
    float rows[4][4] = {};
    for (int i = 0; i < 4; ++i)
      for (int j = 0; j < 4; ++j) rows[i][j] = element(random);
    if (trial == 2) {
      // Red is 102 plus two terms about half a unit in the last place of 102, of opposite signs:
      // whether a sum stays at 102 or drops below depends on the order of the additions.
      float const tiny[4] = {0.f, 1.4e-8f, -2.4e-8f, 0.4f};
      std::copy(tiny, tiny + 4, rows[0]);
    }
    bool const overflow = trial == 3;
    if (overflow) rows[1][2] = 3e7f;
    GeProjectiveMatrix3<float> const matrix = colourMatrix(rows);
    float m[3][4];  // the translation in column 3
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 4; ++j) m[i][j] = j < 3 ? (rows[i][j] * 255.f) * 0.003921569f : rows[i][3] * 255.f;
    for (int comps : {3, 4}) {
      IxTile const src = makeTile(comps, IxPixelFormat::UINT8, tileRegion, 40 * comps + 12);
      for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 40; ++x)
          for (int c = 0; c < comps; ++c) setRaw(src, x, y, c, std::uint32_t(byte(random)));
      for (bool const oneTable : {true, false}) {
        auto lookup = [&](int c, std::uint32_t v) {
          return float(static_cast<std::uint8_t const*>(tables[oneTable ? 0 : c].getTable())[v]);
        };
        auto expected = [&](int x, int y, int c) {
          float const l[3] = {lookup(0, getRaw(src, x, y, 0)), lookup(1, getRaw(src, x, y, 1)),
                              lookup(2, getRaw(src, x, y, 2))};
          if (c < 3) return storedByte((m[c][0] * l[0] + m[c][3]) + ((m[c][1] * l[1]) + ((m[c][2] * l[2]) + 0.f)));
          std::uint32_t const a = getRaw(src, x, y, 3);
          return storedByte(rows[3][3] * (oneTable ? lookup(0, a) : float(a)));
        };
        auto run = [&](IxTile const& dst, IxTile const& in, GeRectangle<int> const* part) {
          if (oneTable)
            ipLutColorMatrix(IxWriteGuard(dst), IxReadGuard(in), matrix, tables[0], part, part);
          else
            ipLutColorMatrix(IxWriteGuard(dst), IxReadGuard(in), matrix, tables[0], tables[1], tables[2], part, part);
        };
        for (int x1 = 0; x1 < 3; ++x1)
          for (int width = 0; x1 + width <= 40; width += (width < 34 ? 1 : 5)) {
            GeRectangle<int> const part(x1, x1 + width, 1, 3);
            std::vector<std::uint32_t> outputs[2];
            for (bool const wide : {true, false}) {
              ScopedWide const scope(wide);
              IxTile const dst = makeTile(comps, IxPixelFormat::UINT8, tileRegion, 40 * comps + 12);
              fillPattern(dst, width);
              IxTile const before = copyOf(dst);
              run(dst, src, &part);
              outputs[wide] = snapshot(dst);
              for (int y = 0; y < 3; ++y)
                for (int x = 0; x < 40; ++x)
                  for (int c = 0; c < comps; ++c) {
                    bool const inside = x >= x1 && x < x1 + width && y >= 1;
                    if (inside && overflow) continue;
                    ASSERT_EQ(getRaw(dst, x, y, c), inside ? expected(x, y, c) : getRaw(before, x, y, c))
                        << trial << " " << comps << " " << oneTable << " " << wide << " " << x << " " << c;
                  }
            }
            ASSERT_EQ(outputs[0], outputs[1]) << trial << " " << comps << " " << oneTable << " " << width;
          }
        // In place, every pixel read before it is written.
        IxTile const inPlace = copyOf(src);
        run(inPlace, inPlace, nullptr);
        for (int y = 0; y < 3; ++y)
          for (int x = 0; x < 40; ++x)
            for (int c = 0; c < comps && !overflow; ++c) ASSERT_EQ(getRaw(inPlace, x, y, c), expected(x, y, c));
      }
    }
  }
}
