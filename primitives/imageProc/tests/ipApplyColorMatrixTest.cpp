#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipApplyColorMatrix.h>
#include <orn/primitives/imageProc/ipColorMatrix.h>

#include <cmath>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;

namespace {

// A matrix with every element distinct; the projective terms that must be ignored are large.
GeProjectiveMatrix3<float> makeProjective(float alphaScale) {
  GeProjectiveMatrix3<float> m;
  float const colour[3][4] = {{0.9f, 0.2f, -0.1f, 0.05f}, {-0.3f, 1.1f, 0.25f, -0.1f}, {0.15f, -0.2f, 0.8f, 0.2f}};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 4; ++j) m.getData()[4 * j + i] = colour[i][j];
  m.getData()[3] = 7.0f;  // last row, projective terms
  m.getData()[7] = -5.0f;
  m.getData()[11] = 3.0f;
  m.getData()[15] = alphaScale;
  return m;
}

// Element (row i, column j) and translation t_i in the column-vector sense.
double element(GeProjectiveMatrix3<float> const& m, int i, int j) { return m.getData()[4 * j + i]; }

float valueOf(IxTile const& tile, int x, int y, int c) {
  std::uint32_t const raw = getRaw(tile, x, y, c);
  switch (tile.getPixelFormat().getDepth()) {
    case IxPixelFormat::UINT8: return float(raw);
    case IxPixelFormat::FLOAT16: return Half::toFloat(Half::Bits(raw));
    default: return std::bit_cast<float>(raw);
  }
}

// Float and half tiles against the matrix product in double.
void expectTransformed(IxTile const& dst, IxTile const& src, GeProjectiveMatrix3<float> const& m, double tolerance) {
  GeRectangle<int> const& r = dst.getPixelRegion();
  int const comps = dst.getPixelFormat().getComps();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x) {
      for (int i = 0; i < 3; ++i) {
        double expected = element(m, i, 3);
        for (int j = 0; j < 3; ++j) expected += element(m, i, j) * valueOf(src, x, y, j);
        ASSERT_NEAR(expected, valueOf(dst, x, y, i), tolerance * (1.0 + std::fabs(expected))) << x << ',' << y << ' ' << i;
      }
      if (comps == 4) ASSERT_NEAR(valueOf(src, x, y, 3) * m(3, 3), valueOf(dst, x, y, 3), tolerance);
    }
}

TEST(IpApplyColorMatrix, FloatAndHalfFollowTheMatrixWithoutClamp) {
  GeProjectiveMatrix3<float> const m = makeProjective(0.5f);
  for (IxPixelFormat::Depth depth : {IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32})
    for (int comps : {3, 4})
      for (int width : {1, 2, 7}) {
        SCOPED_TRACE(testing::Message() << "depth " << depth << " comps " << comps << " width " << width);
        GeRectangle<int> const region(-2, width - 2, 3, 6);
        IxTile const src = makeTile(comps, depth, region), dst = makeTile(comps, depth, region);
        fillPattern(src, 1);
        ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), m, nullptr, nullptr);
        expectTransformed(dst, src, m, depth == IxPixelFormat::FLOAT16 ? 1e-3 : 1e-6);
      }

  // Values beyond 0..1 pass unclamped.
  IxTile const src = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1));
  IxTile const dst = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1));
  for (int c = 0; c < 4; ++c) setRaw(src, 0, 0, c, std::bit_cast<std::uint32_t>(2.0f));
  ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), IpColorMatrix::makeSaturation(3.0f), nullptr, nullptr);
  for (int c = 0; c < 4; ++c) EXPECT_FLOAT_EQ(2.0f, valueOf(dst, 0, 0, c));
  ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), GeLinearMatrix3<float>(-1, 0, 0, 0, 1, 0, 0, 0, 1), nullptr,
                     nullptr);
  EXPECT_EQ(-2.0f, valueOf(dst, 0, 0, 0));
}

TEST(IpApplyColorMatrix, LinearFormCopiesAlphaBitForBit) {
  GeLinearMatrix3<float> const swap(0, 0, 1, 0, 1, 0, 1, 0, 0);
  for (IxPixelFormat::Depth depth : DEPTHS) {
    SCOPED_TRACE(testing::Message() << "depth " << depth);
    GeRectangle<int> const region(0, 5, 0, 2);
    IxTile const src = makeTile(4, depth, region), dst = makeTile(4, depth, region);
    fillPattern(src, 2);
    // NaN alphas with a payload, which any arithmetic could change.
    std::uint32_t const nan = depth == IxPixelFormat::FLOAT16 ? 0x7E01u : 0x7FC00123u;
    if (depth != IxPixelFormat::UINT8) setRaw(src, 1, 0, 3, nan);
    ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), swap, nullptr, nullptr);
    for (int y = 0; y < 2; ++y)
      for (int x = 0; x < 5; ++x) {
        EXPECT_EQ(getRaw(src, x, y, 2), getRaw(dst, x, y, 0));
        EXPECT_EQ(getRaw(src, x, y, 1), getRaw(dst, x, y, 1));
        EXPECT_EQ(getRaw(src, x, y, 0), getRaw(dst, x, y, 2));
        EXPECT_EQ(getRaw(src, x, y, 3), getRaw(dst, x, y, 3));
      }
  }
}

TEST(IpApplyColorMatrix, EightBitsTruncateAndSaturate) {
  // Every byte value through the identity, in both forms, comes back exactly.
  for (int comps : {3, 4}) {
    GeRectangle<int> const region(0, 64, 0, 4);
    IxTile const src = makeTile(comps, IxPixelFormat::UINT8, region), dst = makeTile(comps, IxPixelFormat::UINT8, region);
    for (int y = 0; y < 4; ++y)
      for (int x = 0; x < 64; ++x)
        for (int c = 0; c < comps; ++c) setRaw(src, x, y, c, (y * 64 + x + 85 * c) % 256);
    ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), GeLinearMatrix3<float>(), nullptr, nullptr);
    EXPECT_EQ(snapshot(src), snapshot(dst));
    ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), GeProjectiveMatrix3<float>(), nullptr, nullptr);
    EXPECT_EQ(snapshot(src), snapshot(dst));
  }

  // A translation of 0.5 adds 127.5 before truncation; scales truncate rather than round;
  // results saturate at both ends; alpha is scaled by the bottom right element.
  GeProjectiveMatrix3<float> m;
  m(0, 0) = 0.5f;                       // red halves
  m(1, 1) = -1.0f;                      // green goes negative
  m.getData()[14] = 0.5f;               // blue + 127.5
  m(3, 3) = 0.5f;                       // alpha halves
  struct Case {
    std::uint32_t in[4];
    std::uint32_t out[4];
  } const cases[] = {{{3, 0, 10, 255}, {1, 0, 137, 127}},
                     {{255, 200, 200, 3}, {127, 0, 255, 1}},
                     {{254, 1, 0, 0}, {127, 0, 127, 0}}};
  for (int comps : {3, 4}) {
    // Widths that leave every remainder of the blocks of four.
    for (int width : {3, 6, 9}) {
      GeRectangle<int> const region(0, width, 0, 1);
      IxTile const src = makeTile(comps, IxPixelFormat::UINT8, region);
      IxTile const dst = makeTile(comps, IxPixelFormat::UINT8, region);
      for (int x = 0; x < width; ++x)
        for (int c = 0; c < comps; ++c) setRaw(src, x, 0, c, cases[x % 3].in[c]);
      ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), m, nullptr, nullptr);
      for (int x = 0; x < width; ++x)
        for (int c = 0; c < comps; ++c)
          EXPECT_EQ(cases[x % 3].out[c], getRaw(dst, x, 0, c)) << "comps " << comps << " pixel " << x << " comp " << c;
    }
  }
}

TEST(IpApplyColorMatrix, EightBitsAgreeWithTheProductInTheByteRange) {
  GeProjectiveMatrix3<float> const m = makeProjective(0.75f);
  GeRectangle<int> const region(0, 37, 0, 5);
  IxTile const src = makeTile(4, IxPixelFormat::UINT8, region), dst = makeTile(4, IxPixelFormat::UINT8, region);
  fillPattern(src, 3);
  ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), m, nullptr, nullptr);
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 37; ++x)
      for (int i = 0; i < 4; ++i) {
        double v = i == 3 ? 0.75 * getRaw(src, x, y, 3) : 255.0 * element(m, i, 3);
        for (int j = 0; j < 3 && i < 3; ++j) v += element(m, i, j) * getRaw(src, x, y, j);
        double const expected = std::min(255.0, std::max(0.0, std::trunc(v)));
        double const distance = std::fabs(v - std::round(v));
        // Rounding in single precision may only matter right at an integer.
        if (distance > 1e-3) ASSERT_EQ(expected, getRaw(dst, x, y, i)) << x << ',' << y << ' ' << i << ' ' << v;
        else ASSERT_NEAR(expected, getRaw(dst, x, y, i), 1.0);
      }
}

TEST(IpApplyColorMatrix, InPlaceRegionsAndPixelByPixelWalksGiveTheSameResult) {
  GeProjectiveMatrix3<float> const m = makeProjective(1.5f);
  for (IxPixelFormat::Depth depth : DEPTHS)
    for (int comps : {3, 4}) {
      SCOPED_TRACE(testing::Message() << "depth " << depth << " comps " << comps);
      GeRectangle<int> const region(0, 11, 0, 3);
      IxTile const tile = makeTile(comps, depth, region);
      fillPattern(tile, 4);
      IxTile const original = copyOf(tile);

      // Out of place over the whole tile: the reference.
      IxTile const reference = makeTile(comps, depth, region);
      ipApplyColorMatrix(IxWriteGuard(reference), IxReadGuard(original), m, nullptr, nullptr);

      // In place over the same region.
      IxTile const same = copyOf(original);
      ipApplyColorMatrix(IxWriteGuard(same), IxReadGuard(same), m, nullptr, nullptr);
      EXPECT_EQ(snapshot(reference), snapshot(same));

      // Shifted right by one within the same memory: the walk runs backwards, pixel by pixel.
      GeRectangle<int> const dstRegion(1, 11, 0, 3), srcRegion(0, 10, 0, 3);
      IxTile const shifted = copyOf(original);
      ipApplyColorMatrix(IxWriteGuard(shifted), IxReadGuard(shifted), m, &dstRegion, &srcRegion);
      for (int y = 0; y < 3; ++y) {
        for (int c = 0; c < comps; ++c) EXPECT_EQ(getRaw(original, 0, y, c), getRaw(shifted, 0, y, c));
        for (int x = 1; x < 11; ++x)
          for (int c = 0; c < comps; ++c)
            ASSERT_EQ(getRaw(reference, x - 1, y, c), getRaw(shifted, x, y, c)) << x << ',' << y << ' ' << c;
      }
    }
}

TEST(IpApplyColorMatrix, EightBitLinesAgreeWithPixelByPixelLookups) {
  // Awkward elements, so that products and sums round: any fused or reordered arithmetic in the
  // line form shows as a byte that differs from the table's.
  GeProjectiveMatrix3<float> m;
  float const colour[3][4] = {{0.7131f, 0.3317f, -0.1093f, 0.0417f},
                              {-0.2213f, 0.9173f, 0.3711f, -0.0731f},
                              {0.1371f, -0.2719f, 1.1353f, 0.0133f}};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 4; ++j) m.getData()[4 * j + i] = colour[i][j];
  m(3, 3) = 0.7071f;
  for (int comps : {3, 4}) {
    int const width = 259;
    GeRectangle<int> const region(0, width, 0, 16);
    IxTile const original = makeTile(comps, IxPixelFormat::UINT8, region);
    std::uint32_t state = 12345;
    for (int y = 0; y < 16; ++y)
      for (int x = 0; x < width; ++x)
        for (int c = 0; c < comps; ++c) {
          state = state * 1664525u + 1013904223u;
          setRaw(original, x, y, c, state >> 24);
        }
    IxTile const lines = makeTile(comps, IxPixelFormat::UINT8, region);
    ipApplyColorMatrix(IxWriteGuard(lines), IxReadGuard(original), m, nullptr, nullptr);
    // In place, source left of the destination: walked backwards one pixel at a time.
    GeRectangle<int> const dstRegion(1, width, 0, 16), srcRegion(0, width - 1, 0, 16);
    IxTile const pixels = copyOf(original);
    ipApplyColorMatrix(IxWriteGuard(pixels), IxReadGuard(pixels), m, &dstRegion, &srcRegion);
    for (int y = 0; y < 16; ++y)
      for (int x = 1; x < width; ++x)
        for (int c = 0; c < comps; ++c)
          ASSERT_EQ(getRaw(lines, x - 1, y, c), getRaw(pixels, x, y, c)) << comps << ": " << x << ',' << y << ' ' << c;
  }
}

TEST(IpApplyColorMatrix, EightBitEntriesAreRoundedBeforeTheyAreSummed) {
  // 0.036 scaled to bytes, times 250, is just below 9 and rounds to 9 in single precision; the
  // translation scales to exactly -8. The table's entry is the rounded 9, so the sum is 1; a fused
  // multiply-add would see 0.99999 and truncate it to 0.
  GeProjectiveMatrix3<float> m;
  m(0, 0) = 0.036f;
  m.getData()[12] = -0.0313725508749485f;
  for (int comps : {3, 4}) {
    GeRectangle<int> const region(0, 9, 0, 1);
    IxTile const src = makeTile(comps, IxPixelFormat::UINT8, region), dst = makeTile(comps, IxPixelFormat::UINT8, region);
    for (int x = 0; x < 9; ++x)
      for (int c = 0; c < comps; ++c) setRaw(src, x, 0, c, 250);
    ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), m, nullptr, nullptr);
    for (int x = 0; x < 9; ++x) EXPECT_EQ(1u, getRaw(dst, x, 0, 0)) << comps << ": " << x;
  }
}

TEST(IpApplyColorMatrix, OtherComponentCountsAbort) {
  for (int comps : {1}) {
    IxTile const tile = makeTile(comps, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 2, 0, 2));
    EXPECT_THROW(ipApplyColorMatrix(IxWriteGuard(tile), IxReadGuard(tile), GeLinearMatrix3<float>(), nullptr, nullptr),
                 AssertionsEx::ExProgramAborted);
  }
  IxTile const complex(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::COMPLEX), GeRectangle<int>(0, 2, 0, 2),
                       CoRgbaColorTyped<float>());
  EXPECT_THROW(ipApplyColorMatrix(IxWriteGuard(complex), IxReadGuard(complex), GeLinearMatrix3<float>(), nullptr, nullptr),
               AssertionsEx::ExProgramAborted);
}

}  // namespace
