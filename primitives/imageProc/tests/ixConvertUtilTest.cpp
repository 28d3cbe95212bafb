#include <orn/primitives/imageProc/ixConvertUtil.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/ixPixelComp.h>

#include "ixScanlineTestUtil.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;

float const NaN = std::numeric_limits<float>::quiet_NaN();

IxPixelFormat format(IxPixelFormat::Comps comps, IxPixelFormat::Depth depth) { return IxPixelFormat(comps, depth); }

class IxConvertUtilTest : public IxScanlineTestBase {};

// 2.5 / 255 scales back to exactly 2.5: the value on which the two 8-bit rounding rules differ.
float tie(float k) {
  float const v = k / 255.f;
  EXPECT_EQ(v * 255.f, k);
  return v;
}

// A float whose half is denormal and lies three quarters of the way between the halves 0x200 and
// 0x201. The correctly rounded store gives 0x201; the per-pixel rule shifts and truncates to 0x200.
float const DENORMAL_HALF_INPUT = std::bit_cast<float>((112u << 23) | 0x2FFFu);

}  // namespace

TEST_F(IxConvertUtilTest, ReadsMapComponentsFromAnyOffset) {
  // Tiles of every layout and depth, from aligned and unaligned starts, long enough for blocks.
  alignas(16) std::uint8_t bytes[4 * 4 * 40 + 16];
  for (std::size_t i = 0; i < sizeof bytes; ++i) bytes[i] = std::uint8_t(i * 37 + 11);
  for (IxPixelFormat::Depth depth : {IxPixelFormat::UINT8, IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32}) {
    int const compSize = depth / 8;
    for (IxPixelFormat::Comps comps : {IxPixelFormat::ALPHA, IxPixelFormat::RGB, IxPixelFormat::RGBA}) {
      // Four-component float rows must be 16-byte aligned.
      for (int offset : {0, comps == IxPixelFormat::RGBA && depth == IxPixelFormat::FLOAT32 ? 16 : compSize}) {
        unsigned char const* src = bytes + offset;
        auto const comp = [&](int i, int c) {
          unsigned char const* p = src + (i * comps + c) * compSize;
          float v;
          Half::Bits h;
          std::memcpy(&v, p, 4);
          std::memcpy(&h, p, 2);
          return depth == IxPixelFormat::UINT8 ? IxPixelCompUInt8::toFloat(*p)
                                               : (depth == IxPixelFormat::FLOAT16 ? Half::toFloat(h) : v);
        };
        alignas(16) Rgba colors[40];
        float alphas[40];
        IxConvertUtil::readFrom(colors, src, 40, format(comps, depth));
        IxConvertUtil::readFrom(alphas, src, 40, format(comps, depth));
        for (int i = 0; i < 40; ++i) {
          Rgba const expected = comps == IxPixelFormat::ALPHA ? Rgba(0.f, 0.f, 0.f, comp(i, 0))
                                : comps == IxPixelFormat::RGB ? Rgba(comp(i, 0), comp(i, 1), comp(i, 2), 1.f)
                                                              : Rgba(comp(i, 0), comp(i, 1), comp(i, 2), comp(i, 3));
          ASSERT_EQ(std::memcmp(&colors[i], &expected, sizeof expected), 0) << depth << ' ' << comps << ' ' << i;
          ASSERT_EQ(std::bit_cast<std::uint32_t>(alphas[i]), std::bit_cast<std::uint32_t>(expected.a)) << i;
        }
      }
    }
  }
}

TEST_F(IxConvertUtilTest, RgbTilesReadIntoFloatAsOneWithoutBeingRead) {
  // A null source would crash any converter that looks at the tile.
  for (IxPixelFormat::Depth depth : {IxPixelFormat::UINT8, IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32}) {
    float line[5] = {0.f, 0.f, 0.f, 0.f, 0.f};
    IxConvertUtil::readFrom(line, nullptr, 5, format(IxPixelFormat::RGB, depth));
    for (float v : line) EXPECT_EQ(v, 1.f);
  }
}

TEST_F(IxConvertUtilTest, WritesMapComponents) {
  // Colour lines to float and 8-bit tiles; half and 8-bit values are checked further down.
  alignas(16) Rgba colors[2] = {Rgba(1.f, 0.f, 0.5f, 0.2f), Rgba(0.f, 1.f, 2.f, -3.f)};
  alignas(16) float floats[7] = {9.f, 9.f, 9.f, 9.f, 9.f, 9.f, 9.f};
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(floats), colors, 2,
                         format(IxPixelFormat::RGB, IxPixelFormat::FLOAT32));
  float const rgb32[7] = {1.f, 0.f, 0.5f, 0.f, 1.f, 2.f, 9.f};  // not clamped; alpha dropped
  EXPECT_EQ(std::memcmp(floats, rgb32, sizeof rgb32), 0);
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(floats), colors, 2,
                         format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32));
  EXPECT_EQ(floats[0], 0.2f);
  EXPECT_EQ(floats[1], -3.f);
  std::uint8_t bytes[4] = {7, 7, 7, 7};
  IxConvertUtil::writeTo(bytes, colors, 1, format(IxPixelFormat::RGB, IxPixelFormat::UINT8));
  EXPECT_EQ(bytes[2], 128);
  EXPECT_EQ(bytes[3], 7);
  // Float lines to half tiles, per pixel.
  alignas(16) float line[3] = {0.25f, 1.f, 70000.f};
  alignas(16) Half::Bits halves[3];
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(halves), line, 3,
                         format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT16));
  Half::Bits const a16[3] = {0x3400, 0x3C00, 0x7BFF};
  EXPECT_EQ(std::memcmp(halves, a16, sizeof a16), 0);
}

TEST_F(IxConvertUtilTest, UnsupportedFormatsAbortOrAssert) {
  alignas(16) unsigned char tile[64] = {};
  float line[4] = {};
  std::complex<float> complexLine[4];

  // A float line writes one-component tiles only; the dispatch aborts under its own name.
  for (IxPixelFormat::Comps comps : {IxPixelFormat::RGB, IxPixelFormat::RGBA}) {
    for (IxPixelFormat::Depth depth : {IxPixelFormat::UINT8, IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32}) {
      try {
        IxConvertUtil::writeTo(tile, line, 4, format(comps, depth));
        ADD_FAILURE() << "float write to comps " << comps << " depth " << depth;
      } catch (AssertionsEx::ExProgramAborted const& e) {
        EXPECT_STREQ(e.getFile(), "ixConvertUtil");
        EXPECT_STREQ(e.getMessage(), "");
      }
    }
  }
  EXPECT_EQ(conditionOf([&] {
              IxConvertUtil::readFrom(complexLine, tile, 4, format(IxPixelFormat::RGBA, IxPixelFormat::COMPLEX));
            }),
            "srcFormat.getComps() == IxPixelFormat::ALPHA");
  EXPECT_EQ(conditionOf([&] {
              IxConvertUtil::readFrom(complexLine, tile, 4, format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32));
            }),
            "srcFormat.getDepth() == IxPixelFormat::COMPLEX");
  EXPECT_EQ(conditionOf([&] {
              IxConvertUtil::writeTo(tile, complexLine, 4, format(IxPixelFormat::ALPHA, IxPixelFormat::UINT8));
            }),
            "dstFormat.getDepth() == IxPixelFormat::COMPLEX");
}

TEST_F(IxConvertUtilTest, EightBitStoresRoundByStage) {
  float const v = tie(2.5f);
  IxPixelFormat const a8 = format(IxPixelFormat::ALPHA, IxPixelFormat::UINT8);
  IxPixelFormat const rgb8 = format(IxPixelFormat::RGB, IxPixelFormat::UINT8);

  alignas(16) Rgba colors[64];
  for (Rgba& c : colors) c = Rgba(v, v, v, v);
  alignas(16) std::uint8_t tile[256];

  // 17 aligned pixels: a block of 16 rounds half to even, the last pixel rounds half up.
  IxConvertUtil::writeTo(tile, colors, 17, a8);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(tile[i], 2) << i;
  EXPECT_EQ(tile[16], 3);
  IxConvertUtil::writeTo(tile, colors, 17, rgb8);
  for (int i = 0; i < 48; ++i) EXPECT_EQ(tile[i], 2) << i;
  for (int i = 48; i < 51; ++i) EXPECT_EQ(tile[i], 3) << i;

  // An odd destination: 15 pixels lead in one at a time, then one block, then the tail.
  IxConvertUtil::writeTo(tile + 1, colors, 40, a8);
  for (int i = 0; i < 40; ++i) EXPECT_EQ(tile[1 + i], (i >= 15 && i < 31) ? 2 : 3) << i;

  // A source that no step brings onto a 16-byte boundary: every pixel goes by the per-pixel rule.
  alignas(16) float shifted[4 * 41];
  Rgba* const misaligned = reinterpret_cast<Rgba*>(shifted + 1);
  for (int i = 0; i < 40; ++i) misaligned[i] = Rgba(v, v, v, v);
  IxConvertUtil::writeTo(tile, misaligned, 40, a8);
  for (int i = 0; i < 40; ++i) EXPECT_EQ(tile[i], 3) << i;

  // A float line never takes the block rule, aligned or not.
  alignas(16) float alphas[40];
  for (float& a : alphas) a = v;
  alphas[20] = 0.5f;
  alphas[21] = NaN;
  IxConvertUtil::writeTo(tile, alphas, 40, a8);
  for (int i = 0; i < 40; ++i) EXPECT_EQ(tile[i], i == 20 ? 128 : (i == 21 ? 0 : 3)) << i;
}

TEST_F(IxConvertUtilTest, RgbaEightBitStoresUseBlockArithmeticEverywhere) {
  alignas(16) Rgba colors[70];
  for (int i = 0; i < 70; ++i) colors[i] = Rgba(tie(2.5f), tie(1.5f), NaN, i % 2 ? 0.5f : tie(0.5f));
  alignas(16) std::uint8_t tile[4 * 72];
  // Aligned, and shifted by one byte so that no stage lines up.
  for (int offset : {0, 1}) {
    std::memset(tile, 0, sizeof tile);
    IxConvertUtil::writeTo(tile + offset, colors, 70, format(IxPixelFormat::RGBA, IxPixelFormat::UINT8));
    for (int i = 0; i < 70; ++i) {
      std::uint8_t const expected[4] = {2, 2, 255, std::uint8_t(i % 2 ? 128 : 0)};
      EXPECT_EQ(std::memcmp(tile + offset + 4 * i, expected, 4), 0) << i;
    }
    EXPECT_EQ(tile[offset + 4 * 70], 0);
  }
}

TEST_F(IxConvertUtilTest, HalfStoresRoundDenormalsByStage) {
  IxPixelFormat const a16 = format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT16);
  IxPixelFormat const rgba16 = format(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16);
  ASSERT_EQ(Half::fromFloat(DENORMAL_HALF_INPUT), 0x200);

  alignas(16) Rgba colors[9];
  for (Rgba& c : colors) c = Rgba(DENORMAL_HALF_INPUT, 1.f, -1e10f, DENORMAL_HALF_INPUT);
  alignas(16) Half::Bits tile[40];

  // Fewer pixels than a block: per pixel only, and flush-to-zero stays on.
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(tile), colors, 7, a16);
  EXPECT_EQ(tile[0], 0x200);
  EXPECT_TRUE(isFlushToZeroOn());

  // Nine aligned pixels: a block of 8, then one by the per-pixel rule. The block leaves
  // flush-to-zero off for the thread.
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(tile), colors, 9, a16);
  Half::Bits const nine[9] = {0x201, 0x201, 0x201, 0x201, 0x201, 0x201, 0x201, 0x201, 0x200};
  EXPECT_EQ(std::memcmp(tile, nine, sizeof nine), 0);
  EXPECT_FALSE(isFlushToZeroOn());

  // Four-component halves go in blocks of two pixels; one pixel in front of a 16-byte boundary
  // leads in by itself.
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(tile + 4), colors, 4, rgba16);
  Half::Bits const expected[16] = {0x200, 0x3C00, 0xFBFF, 0x200, 0x201, 0x3C00, 0xFBFF, 0x201,
                                   0x201, 0x3C00, 0xFBFF, 0x201, 0x200, 0x3C00, 0xFBFF, 0x200};
  EXPECT_EQ(std::memcmp(tile + 4, expected, sizeof expected), 0);
}

TEST_F(IxConvertUtilTest, HalfBlockReadsMatchTheExactConversionForEveryPattern) {
  alignas(16) static Half::Bits tile[65536];
  for (unsigned i = 0; i < 65536; ++i) tile[i] = Half::Bits(i);
  std::vector<Rgba> colors(65536);
  IxConvertUtil::readFrom(colors.data(), reinterpret_cast<unsigned char*>(tile), 65536,
                          format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT16));
  for (unsigned i = 0; i < 65536; ++i)
    ASSERT_EQ(std::bit_cast<std::uint32_t>(colors[i].a), std::bit_cast<std::uint32_t>(Half::toFloat(tile[i]))) << i;
  IxConvertUtil::readFrom(colors.data(), reinterpret_cast<unsigned char*>(tile), 65536 / 4,
                          format(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16));
  for (unsigned i = 0; i < 65536; ++i)
    ASSERT_EQ(std::bit_cast<std::uint32_t>(colors[i / 4][i % 4]), std::bit_cast<std::uint32_t>(Half::toFloat(tile[i])));
}

TEST_F(IxConvertUtilTest, BlockStoresFollowTheirRulesOnRandomValues) {
  // Values around the 8-bit steps, exact ties among them, and ordinary half-float values.
  std::mt19937 random(7);
  std::uniform_int_distribution<int> step(-20, 275);
  std::uniform_real_distribution<float> unit(-1.f, 1.f);
  alignas(16) Rgba colors[64];
  for (Rgba& c : colors)
    for (int k = 0; k < 4; ++k) c[k] = (float(step(random)) + (random() % 4 ? unit(random) : 0.5f)) / 255.f;
  // Saturation and NaN, in blocks and in the tail of the three-component row.
  colors[3] = colors[35] = Rgba(NaN, 300.f, -5.f, NaN);
  colors[4] = colors[36] = Rgba(1e30f, -std::numeric_limits<float>::infinity(), tie(3.5f), 1e30f);

  // The 8-bit block rule with the library's rounding: to nearest, ties to even.
  auto const blockRule = [](float v) {
    float const w = std::isnan(v) ? 255.f : std::min(v * 255.f, 255.f);
    return w <= -0.5f ? 0 : int(std::nearbyint(w));
  };
  alignas(16) std::uint8_t bytes[4 * 64];
  IxConvertUtil::writeTo(bytes, colors, 64, format(IxPixelFormat::RGBA, IxPixelFormat::UINT8));
  for (int i = 0; i < 64 * 4; ++i) ASSERT_EQ(bytes[i], blockRule(colors[i / 4][i % 4])) << i;
  IxConvertUtil::writeTo(bytes, colors, 40, format(IxPixelFormat::RGB, IxPixelFormat::UINT8));
  for (int i = 0; i < 40 * 3; ++i) {
    float const v = colors[i / 3][i % 3];
    ASSERT_EQ(bytes[i], i < 32 * 3 ? blockRule(v) : IxPixelCompUInt8::fromFloat(v)) << i;
  }
  IxConvertUtil::writeTo(bytes, colors, 64, format(IxPixelFormat::ALPHA, IxPixelFormat::UINT8));
  for (int i = 0; i < 64; ++i) ASSERT_EQ(bytes[i], blockRule(colors[i].a)) << i;

  // Half block stores agree with the exact conversion wherever the result is a normal half.
  std::uniform_real_distribution<float> exponent(-14.f, 17.f);
  for (Rgba& c : colors)
    for (int k = 0; k < 4; ++k) c[k] = std::copysign(std::exp2(exponent(random)), unit(random));
  // Overflow saturates alike, infinities and NaNs included.
  colors[0] = Rgba(1e10f, -1e10f, NaN, -std::numeric_limits<float>::infinity());
  colors[9] = Rgba(65504.f, 65519.f, -NaN, 1.f + std::ldexp(1.f, -11));
  alignas(16) Half::Bits halves[4 * 64];
  for (IxPixelFormat::Comps comps : {IxPixelFormat::ALPHA, IxPixelFormat::RGB, IxPixelFormat::RGBA}) {
    IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(halves), colors, 64, format(comps, IxPixelFormat::FLOAT16));
    for (int i = 0; i < 64 * comps; ++i) {
      float const v = comps == IxPixelFormat::ALPHA ? colors[i].a : colors[i / comps][i % comps];
      ASSERT_EQ(halves[i], Half::fromFloat(v)) << i;
    }
  }
}

TEST_F(IxConvertUtilTest, FloatRowsCopyAndFourComponentRowsMustBeAligned) {
  IxPixelFormat const rgba32 = format(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32);
  alignas(16) Rgba colors[31];
  for (int i = 0; i < 31; ++i) colors[i] = Rgba(float(i), -float(i), NaN, 1e30f);
  alignas(16) Rgba tile[32];
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(tile), colors, 31, rgba32);
  EXPECT_EQ(std::memcmp(tile, colors, sizeof colors), 0);
  alignas(16) Rgba back[31];
  IxConvertUtil::readFrom(back, reinterpret_cast<unsigned char*>(tile), 31, rgba32);
  EXPECT_EQ(std::memcmp(back, colors, sizeof colors), 0);

  EXPECT_EQ(conditionOf([&] { IxConvertUtil::readFrom(back, reinterpret_cast<unsigned char*>(tile) + 4, 2, rgba32); }),
            "dst % 16 == 0 && src % 16 == 0");
  EXPECT_THROW(IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(tile) + 8, colors, 2, rgba32),
               AssertionsEx::ExAssertionFailed);
  // Float lines copy into one-component float tiles, into and out of blocks.
  alignas(16) float plane[21];
  for (int i = 0; i < 21; ++i) plane[i] = float(i) * 0.5f;
  alignas(16) float out[24] = {};
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(out + 2), plane, 21,
                         format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32));
  EXPECT_EQ(std::memcmp(out + 2, plane, sizeof plane), 0);
  EXPECT_EQ(out[23], 0.f);
}
