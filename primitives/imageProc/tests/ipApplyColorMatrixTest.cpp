#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ipApplyColorMatrix.h>
#include <orn/primitives/imageProc/ipColorMatrix.h>
#include <orn/primitives/color/coAffineMatrixTyped.h>

#include <cmath>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;

namespace {

// Colour element (row i, column j) at 4 j + i, translation at 12 + i; the projective terms of the
// last row are set large, as they must be ignored.
GeProjectiveMatrix3<float> makeMatrix(float const (&colour)[3][4], float alphaScale) {
  GeProjectiveMatrix3<float> m;
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 4; ++j) m.getData()[4 * j + i] = colour[i][j];
  m.getData()[3] = 7.0f;
  m.getData()[7] = -5.0f;
  m.getData()[11] = 3.0f;
  m(3, 3) = alphaScale;
  return m;
}
float const AWKWARD[3][4] = {{0.7131f, 0.3317f, -0.1093f, 0.0417f},
                             {-0.2213f, 0.9173f, 0.3711f, -0.0731f},
                             {0.1371f, -0.2719f, 1.1353f, 0.0133f}};

float valueOf(IxTile const& tile, int x, int y, int c) {
  std::uint32_t const raw = getRaw(tile, x, y, c);
  switch (tile.getPixelFormat().getDepth()) {
    case IxPixelFormat::UINT8: return float(raw);
    case IxPixelFormat::FLOAT16: return Half::toFloat(Half::Bits(raw));
    default: return std::bit_cast<float>(raw);
  }
}

TEST(IpApplyColorMatrix, FloatAndHalfFollowTheMatrixUnclamped) {
  GeProjectiveMatrix3<float> const m = makeMatrix(AWKWARD, 0.5f);
  for (IxPixelFormat::Depth depth : {IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32})
    for (int comps : {3, 4})
      for (int width : {1, 2, 7}) {
        SCOPED_TRACE(testing::Message() << "depth " << depth << " comps " << comps << " width " << width);
        GeRectangle<int> const region(-2, width - 2, 3, 6);
        IxTile const src = makeTile(comps, depth, region), dst = makeTile(comps, depth, region);
        fillPattern(src, 1);
        ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), m, nullptr, nullptr);
        double const tolerance = depth == IxPixelFormat::FLOAT16 ? 1e-3 : 1e-6;
        for (int y = 3; y < 6; ++y)
          for (int x = -2; x < width - 2; ++x) {
            for (int i = 0; i < 3; ++i) {
              double expected = AWKWARD[i][3];
              for (int j = 0; j < 3; ++j) expected += AWKWARD[i][j] * valueOf(src, x, y, j);
              ASSERT_NEAR(expected, valueOf(dst, x, y, i), tolerance * (1.0 + std::fabs(expected)));
            }
            if (comps == 4) ASSERT_NEAR(0.5 * valueOf(src, x, y, 3), valueOf(dst, x, y, 3), tolerance);
          }
      }
  // Far beyond 0..1 and negative: nothing is clamped.
  IxTile const src = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1));
  IxTile const dst = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 1, 0, 1));
  for (int c = 0; c < 4; ++c) setRaw(src, 0, 0, c, std::bit_cast<std::uint32_t>(2.0f + float(c)));
  ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), GeLinearMatrix3<float>(-1, 0, 0, 0, 3, 0, 0, 0, 1), nullptr,
                     nullptr);
  EXPECT_EQ(-2.0f, valueOf(dst, 0, 0, 0));
  EXPECT_EQ(9.0f, valueOf(dst, 0, 0, 1));
}

TEST(IpApplyColorMatrix, LinearFormCopiesAlphaBitForBit) {
  GeLinearMatrix3<float> const swap(0, 0, 1, 0, 1, 0, 1, 0, 0);
  for (IxPixelFormat::Depth depth : DEPTHS) {
    SCOPED_TRACE(testing::Message() << "depth " << depth);
    GeRectangle<int> const region(0, 5, 0, 2);
    IxTile const src = makeTile(4, depth, region), dst = makeTile(4, depth, region);
    fillPattern(src, 2);
    // A NaN alpha with a payload, which arithmetic could change.
    if (depth != IxPixelFormat::UINT8) setRaw(src, 1, 0, 3, depth == IxPixelFormat::FLOAT16 ? 0x7E01u : 0x7FC00123u);
    ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), swap, nullptr, nullptr);
    for (int y = 0; y < 2; ++y)
      for (int x = 0; x < 5; ++x)
        for (int c = 0; c < 4; ++c) EXPECT_EQ(getRaw(src, x, y, c == 3 || c == 1 ? c : 2 - c), getRaw(dst, x, y, c));
  }
}

TEST(IpApplyColorMatrix, EightBitsTruncateAndSaturate) {
  // Red halves (truncated), green goes negative, blue gets 0.5 (127.5 in bytes), alpha halves.
  float const colour[3][4] = {{0.5f, 0, 0, 0}, {0, -1, 0, 0}, {0, 0, 1, 0.5f}};
  struct Case {
    std::uint32_t in[4], out[4];
  } const cases[] = {{{3, 0, 10, 255}, {1, 0, 137, 127}}, {{255, 200, 200, 3}, {127, 0, 255, 1}},
                     {{254, 1, 0, 0}, {127, 0, 127, 0}}};
  for (int comps : {3, 4})
    for (int width : {3, 6, 9}) {  // every remainder of the blocks of four
      GeRectangle<int> const region(0, width, 0, 1);
      IxTile const src = makeTile(comps, IxPixelFormat::UINT8, region);
      IxTile const dst = makeTile(comps, IxPixelFormat::UINT8, region);
      for (int x = 0; x < width; ++x)
        for (int c = 0; c < comps; ++c) setRaw(src, x, 0, c, cases[x % 3].in[c]);
      ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), makeMatrix(colour, 0.5f), nullptr, nullptr);
      for (int x = 0; x < width; ++x)
        for (int c = 0; c < comps; ++c) EXPECT_EQ(cases[x % 3].out[c], getRaw(dst, x, 0, c)) << comps << ": " << x << ' ' << c;

      // 0.036 in bytes, times 250, is just below 9 and rounds to 9; the translation is exactly
      // -8 in bytes. Entries are rounded before they are summed, so the result is 1 (fusing the
      // multiply and add would give 0.99999 and 0).
      float const rounding[3][4] = {{0.036f, 0, 0, -0.0313725508749485f}, {0, 1, 0, 0}, {0, 0, 1, 0}};
      for (int x = 0; x < width; ++x) setRaw(src, x, 0, 0, 250);
      ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), makeMatrix(rounding, 1.0f), nullptr, nullptr);
      for (int x = 0; x < width; ++x) EXPECT_EQ(1u, getRaw(dst, x, 0, 0)) << comps << ": " << x;
    }
}

TEST(IpApplyColorMatrix, WholeLinesPixelWalksAndInPlaceAgreeBitForBit) {
  GeProjectiveMatrix3<float> const m = makeMatrix(AWKWARD, 0.7071f);
  for (IxPixelFormat::Depth depth : DEPTHS)
    for (int comps : {3, 4}) {
      SCOPED_TRACE(testing::Message() << "depth " << depth << " comps " << comps);
      int const width = 259;
      GeRectangle<int> const region(0, width, 0, 8);
      IxTile const original = makeTile(comps, depth, region);
      fillPattern(original, 4);
      if (depth == IxPixelFormat::UINT8) {
        std::uint32_t state = 12345;  // every byte value, in no order
        for (int y = 0; y < 8; ++y)
          for (int x = 0; x < width; ++x)
            for (int c = 0; c < comps; ++c) setRaw(original, x, y, c, (state = state * 1664525u + 1013904223u) >> 24);
      }
      IxTile const lines = makeTile(comps, depth, region);
      if (depth == IxPixelFormat::UINT8) {  // the identity gives every byte back exactly
        ipApplyColorMatrix(IxWriteGuard(lines), IxReadGuard(original), GeProjectiveMatrix3<float>(), nullptr, nullptr);
        EXPECT_EQ(snapshot(original), snapshot(lines));
      }
      ipApplyColorMatrix(IxWriteGuard(lines), IxReadGuard(original), m, nullptr, nullptr);

      IxTile const same = copyOf(original);
      ipApplyColorMatrix(IxWriteGuard(same), IxReadGuard(same), m, nullptr, nullptr);
      EXPECT_EQ(snapshot(lines), snapshot(same));

      // In place with the source one pixel to the left: walked backwards, pixel by pixel.
      GeRectangle<int> const dstRegion(1, width, 0, 8), srcRegion(0, width - 1, 0, 8);
      IxTile const shifted = copyOf(original);
      ipApplyColorMatrix(IxWriteGuard(shifted), IxReadGuard(shifted), m, &dstRegion, &srcRegion);
      for (int y = 0; y < 8; ++y)
        for (int x = 0; x < width; ++x)
          for (int c = 0; c < comps; ++c)
            ASSERT_EQ(getRaw(x == 0 ? original : lines, x == 0 ? 0 : x - 1, y, c), getRaw(shifted, x, y, c))
                << x << ',' << y << ' ' << c;
    }
}

TEST(IpApplyColorMatrix, OneColourThroughAnAffineMatrixGivesThePixelBits) {
  CoRgbaColorTyped<float> const colours[] = {
      {0.25f, 0.5f, 0.75f, 0.5f}, {-1.5f, 3.25f, 0.1f, 2.0f}, {0.3f, 0.3f, 0.3f, 0.0f}, {1e-3f, 7.0f, -0.2f, 1.0f}};
  CoAffineMatrixTyped<float> const matrices[] = {
      IpColorMatrix::makeContrast(CoRgbColorTyped<float>(1.5f, 0.5f, 2.0f), CoRgbColorTyped<float>(0.2f, 0.5f, 0.7f)),
      IpColorMatrix::makeRewire(IpColorMatrix::REWIRE_LUMINANCE, IpColorMatrix::REWIRE_INVERT, IpColorMatrix::REWIRE_RED),
      IpColorMatrix::makeOffset(CoRgbColorTyped<float>(0.1f, -0.2f, 0.3f))};
  // Meaning: contrast around a pivot per channel, and a rewire of luminance, complement and red.
  CoRgbaColorTyped<float> const c = colours[1];
  CoRgbaColorTyped<float> const contrasted = coApplyColorMatrix(matrices[0], c);
  EXPECT_NEAR(contrasted.r, 1.5f * (c.r - 0.2f) + 0.2f, 1e-5);
  EXPECT_NEAR(contrasted.b, 2.0f * (c.b - 0.7f) + 0.7f, 1e-5);
  EXPECT_EQ(contrasted.a, c.a);
  CoRgbColorTyped<float> const rewired = coApplyColorMatrix(matrices[1], CoRgbColorTyped<float>(c.r, c.g, c.b));
  EXPECT_NEAR(rewired.r, 0.2126f * c.r + 0.7152f * c.g + 0.0722f * c.b, 1e-5);
  EXPECT_NEAR(rewired.g, 1.0f - c.g, 1e-6);
  EXPECT_EQ(rewired.b, c.r);

  // Bit for bit what the tile operator gives a float pixel.
  IxTile const src = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 4, 0, 1));
  IxTile const dst = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 4, 0, 1));
  for (int x = 0; x < 4; ++x)
    for (int i = 0; i < 4; ++i) setRaw(src, x, 0, i, std::bit_cast<std::uint32_t>(colours[x][i]));
  for (CoAffineMatrixTyped<float> const& m : matrices) {
    ipApplyColorMatrix(IxWriteGuard(dst), IxReadGuard(src), GeProjectiveMatrix3<float>(m), nullptr, nullptr);
    for (int x = 0; x < 4; ++x) {
      CoRgbaColorTyped<float> const expected = coApplyColorMatrix(m, colours[x]);
      for (int i = 0; i < 4; ++i) ASSERT_EQ(std::bit_cast<std::uint32_t>(expected[i]), getRaw(dst, x, 0, i));
    }
  }
}

TEST(IpApplyColorMatrix, OtherFormatsAbort) {
  IxTile const alpha = makeTile(1, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 2, 0, 2));
  EXPECT_THROW(ipApplyColorMatrix(IxWriteGuard(alpha), IxReadGuard(alpha), GeLinearMatrix3<float>(), nullptr, nullptr),
               AssertionsEx::ExProgramAborted);
  IxTile const complex(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::COMPLEX), GeRectangle<int>(0, 2, 0, 2),
                       CoRgbaColorTyped<float>());
  EXPECT_THROW(ipApplyColorMatrix(IxWriteGuard(complex), IxReadGuard(complex), GeLinearMatrix3<float>(), nullptr, nullptr),
               AssertionsEx::ExProgramAborted);
}

}  // namespace
