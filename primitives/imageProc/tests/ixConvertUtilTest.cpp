#include <orn/primitives/imageProc/ixConvertUtil.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/ixPixelComp.h>

#include <gtest/gtest.h>

#include <xmmintrin.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>
#include <string>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;

float const NaN = std::numeric_limits<float>::quiet_NaN();

IxPixelFormat format(IxPixelFormat::Comps comps, IxPixelFormat::Depth depth) { return IxPixelFormat(comps, depth); }

// Row converters run under the thread mode of the image package: round to nearest, exceptions
// masked, flush-to-zero and denormals-are-zero on.
class IxConvertUtilTest : public ::testing::Test {
protected:
  void SetUp() override {
    _saved = _mm_getcsr();
    _mm_setcsr((_saved & ~0x6000u) | 0x9FC0u);
  }
  void TearDown() override { _mm_setcsr(_saved); }

  static bool isFlushToZeroOn() { return (_mm_getcsr() & 0x8000u) != 0; }

private:
  unsigned _saved = 0;
};

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

TEST_F(IxConvertUtilTest, ComponentMappingOfReads) {
  alignas(16) std::uint8_t a8[4] = {0, 51, 255, 7};
  alignas(16) std::uint8_t rgb8[6] = {10, 20, 30, 40, 50, 60};
  alignas(16) std::uint8_t rgba8[8] = {1, 2, 3, 4, 5, 6, 7, 8};
  auto const u8 = [](int v) { return float(v) * 0.003921569f; };

  Rgba colors[4];
  float alphas[4];
  IxConvertUtil::readFrom(colors, a8, 4, format(IxPixelFormat::ALPHA, IxPixelFormat::UINT8));
  EXPECT_EQ(colors[1], Rgba(0.f, 0.f, 0.f, u8(51)));
  EXPECT_EQ(colors[2], Rgba(0.f, 0.f, 0.f, u8(255)));
  IxConvertUtil::readFrom(alphas, a8, 4, format(IxPixelFormat::ALPHA, IxPixelFormat::UINT8));
  EXPECT_EQ(alphas[3], u8(7));

  IxConvertUtil::readFrom(colors, rgb8, 2, format(IxPixelFormat::RGB, IxPixelFormat::UINT8));
  EXPECT_EQ(colors[0], Rgba(u8(10), u8(20), u8(30), 1.f));
  EXPECT_EQ(colors[1], Rgba(u8(40), u8(50), u8(60), 1.f));

  IxConvertUtil::readFrom(colors, rgba8, 2, format(IxPixelFormat::RGBA, IxPixelFormat::UINT8));
  EXPECT_EQ(colors[1], Rgba(u8(5), u8(6), u8(7), u8(8)));
  IxConvertUtil::readFrom(alphas, rgba8, 2, format(IxPixelFormat::RGBA, IxPixelFormat::UINT8));
  EXPECT_EQ(alphas[0], u8(4));
  EXPECT_EQ(alphas[1], u8(8));

  alignas(16) Half::Bits rgba16[4] = {0x3C00, 0x3800, 0x0001, 0x7C00};
  IxConvertUtil::readFrom(colors, reinterpret_cast<unsigned char*>(rgba16), 1,
                          format(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16));
  EXPECT_EQ(colors[0], Rgba(1.f, 0.5f, 5.9604645e-8f, 65536.f));
  IxConvertUtil::readFrom(alphas, reinterpret_cast<unsigned char*>(rgba16), 1,
                          format(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16));
  EXPECT_EQ(alphas[0], 65536.f);

  alignas(16) float rgb32[6] = {-1.f, 2.f, 3.5f, 4.f, 5.f, 6.f};
  IxConvertUtil::readFrom(colors, reinterpret_cast<unsigned char*>(rgb32), 2,
                          format(IxPixelFormat::RGB, IxPixelFormat::FLOAT32));
  EXPECT_EQ(colors[0], Rgba(-1.f, 2.f, 3.5f, 1.f));
  EXPECT_EQ(colors[1], Rgba(4.f, 5.f, 6.f, 1.f));
  alignas(16) float a32[2] = {7.f, -8.f};
  IxConvertUtil::readFrom(colors, reinterpret_cast<unsigned char*>(a32), 2,
                          format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32));
  EXPECT_EQ(colors[1], Rgba(0.f, 0.f, 0.f, -8.f));
}

TEST_F(IxConvertUtilTest, RgbTilesReadIntoFloatAsOneWithoutBeingRead) {
  // A null source would crash any converter that looks at the tile.
  for (IxPixelFormat::Depth depth : {IxPixelFormat::UINT8, IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32}) {
    float line[5] = {0.f, 0.f, 0.f, 0.f, 0.f};
    IxConvertUtil::readFrom(line, nullptr, 5, format(IxPixelFormat::RGB, depth));
    for (float v : line) EXPECT_EQ(v, 1.f);
  }
}

TEST_F(IxConvertUtilTest, ComponentMappingOfWrites) {
  alignas(16) Rgba colors[2] = {Rgba(1.f, 0.f, 0.5f, 0.2f), Rgba(0.f, 1.f, 2.f, -3.f)};
  alignas(16) std::uint8_t bytes[8] = {};
  IxConvertUtil::writeTo(bytes, colors, 2, format(IxPixelFormat::RGB, IxPixelFormat::UINT8));
  // 127.5 is a tie: the block arithmetic would give 128 as well, both sides agree here.
  EXPECT_EQ(bytes[0], 255);
  EXPECT_EQ(bytes[1], 0);
  EXPECT_EQ(bytes[2], 128);
  EXPECT_EQ(bytes[3], 0);
  EXPECT_EQ(bytes[4], 255);
  EXPECT_EQ(bytes[5], 255);

  std::memset(bytes, 0xAB, sizeof bytes);
  IxConvertUtil::writeTo(bytes, colors, 2, format(IxPixelFormat::ALPHA, IxPixelFormat::UINT8));
  EXPECT_EQ(bytes[0], 51);  // 0.2 * 255 = 51
  EXPECT_EQ(bytes[1], 0);
  EXPECT_EQ(bytes[2], 0xAB);

  alignas(16) float floats[8] = {};
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(floats), colors, 2,
                         format(IxPixelFormat::RGB, IxPixelFormat::FLOAT32));
  EXPECT_EQ(floats[2], 0.5f);
  EXPECT_EQ(floats[5], 2.f);  // not clamped
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(floats), colors, 2,
                         format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32));
  EXPECT_EQ(floats[0], 0.2f);
  EXPECT_EQ(floats[1], -3.f);

  alignas(16) Half::Bits halves[8] = {};
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(halves), colors, 2,
                         format(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16));
  EXPECT_EQ(halves[0], 0x3C00);
  EXPECT_EQ(halves[2], 0x3800);
  EXPECT_EQ(halves[3], Half::fromFloat(0.2f));
  EXPECT_EQ(halves[7], 0xC200);  // -3

  alignas(16) float line[3] = {0.25f, 1.f, 70000.f};
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(halves), line, 3,
                         format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT16));
  EXPECT_EQ(halves[0], 0x3400);
  EXPECT_EQ(halves[1], 0x3C00);
  EXPECT_EQ(halves[2], 0x7BFF);
}

TEST_F(IxConvertUtilTest, UnsupportedFormatsAbortOrAssert) {
  alignas(16) unsigned char tile[64] = {};
  float line[4] = {};
  alignas(16) Rgba colors[4];
  std::complex<float> complexLine[4];

  // A float line writes one-component tiles only.
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
  EXPECT_THROW(IxConvertUtil::readFrom(line, tile, 4, format(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX)),
               AssertionsEx::ExProgramAborted);
  EXPECT_THROW(IxConvertUtil::writeTo(tile, colors, 4, format(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX)),
               AssertionsEx::ExProgramAborted);

  try {
    IxConvertUtil::readFrom(complexLine, tile, 4, format(IxPixelFormat::RGBA, IxPixelFormat::COMPLEX));
    ADD_FAILURE();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "srcFormat.getComps() == IxPixelFormat::ALPHA");
  }
  try {
    IxConvertUtil::readFrom(complexLine, tile, 4, format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32));
    ADD_FAILURE();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "srcFormat.getDepth() == IxPixelFormat::COMPLEX");
  }
  try {
    IxConvertUtil::writeTo(tile, complexLine, 4, format(IxPixelFormat::ALPHA, IxPixelFormat::UINT8));
    ADD_FAILURE();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "dstFormat.getDepth() == IxPixelFormat::COMPLEX");
  }
}

TEST_F(IxConvertUtilTest, ComplexRowsCopyEightBytesPerPixel) {
  std::complex<float> const in[3] = {{1.f, -2.f}, {3.5f, 4.f}, {NaN, 0.f}};
  alignas(16) unsigned char tile[24] = {};
  IxConvertUtil::writeTo(tile + 0, in, 3, format(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX));
  EXPECT_EQ(std::memcmp(tile, in, 24), 0);
  std::complex<float> out[3];
  IxConvertUtil::readFrom(out, tile, 3, format(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX));
  EXPECT_EQ(std::memcmp(out, in, 24), 0);
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
  IxConvertUtil::writeTo(tile, alphas, 40, a8);
  for (int i = 0; i < 40; ++i) EXPECT_EQ(tile[i], i == 20 ? 128 : 3) << i;
}

TEST_F(IxConvertUtilTest, EightBitBlockRuleOnNaNAndSaturation) {
  IxPixelFormat const a8 = format(IxPixelFormat::ALPHA, IxPixelFormat::UINT8);
  alignas(16) Rgba colors[17];
  alignas(16) std::uint8_t tile[32];
  float const values[] = {NaN, 300.f, -5.f, 1e30f, -std::numeric_limits<float>::infinity(), tie(3.5f)};
  // Block rule, per-pixel rule.
  int const expected[][2] = {{255, 0}, {255, 255}, {0, 0}, {255, 255}, {0, 0}, {4, 4}};
  for (int k = 0; k < 6; ++k) {
    for (Rgba& c : colors) c = Rgba(0.f, 0.f, 0.f, values[k]);
    IxConvertUtil::writeTo(tile, colors, 17, a8);
    EXPECT_EQ(tile[0], expected[k][0]) << values[k];
    EXPECT_EQ(tile[15], expected[k][0]) << values[k];
    EXPECT_EQ(tile[16], expected[k][1]) << values[k];
  }

  float alphas[3] = {NaN, 300.f, -5.f};
  IxConvertUtil::writeTo(tile, alphas, 3, a8);
  EXPECT_EQ(tile[0], 0);
  EXPECT_EQ(tile[1], 255);
  EXPECT_EQ(tile[2], 0);
}

TEST_F(IxConvertUtilTest, RgbaEightBitStoresUseBlockArithmeticEverywhere) {
  IxPixelFormat const rgba8 = format(IxPixelFormat::RGBA, IxPixelFormat::UINT8);
  alignas(16) Rgba colors[70];
  for (int i = 0; i < 70; ++i) colors[i] = Rgba(tie(2.5f), tie(1.5f), NaN, i % 2 ? 0.5f : tie(0.5f));
  alignas(16) std::uint8_t tile[4 * 72];
  // Aligned, and shifted by one byte so that no stage lines up.
  for (int offset : {0, 1}) {
    std::memset(tile, 0, sizeof tile);
    IxConvertUtil::writeTo(tile + offset, colors, 70, rgba8);
    for (int i = 0; i < 70; ++i) {
      std::uint8_t const* p = tile + offset + 4 * i;
      EXPECT_EQ(p[0], 2) << i;
      EXPECT_EQ(p[1], 2) << i;
      EXPECT_EQ(p[2], 255) << i;
      EXPECT_EQ(p[3], i % 2 ? 128 : 0) << i;
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
  for (int i = 0; i < 8; ++i) EXPECT_EQ(tile[i], 0x201) << i;
  EXPECT_EQ(tile[8], 0x200);
  EXPECT_FALSE(isFlushToZeroOn());

  // Four-component halves go in blocks of two pixels; one pixel in front of a 16-byte boundary
  // leads in by itself.
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(tile + 4), colors, 4, rgba16);
  Half::Bits const leadIn[4] = {0x200, 0x3C00, 0xFBFF, 0x200};
  Half::Bits const block[4] = {0x201, 0x3C00, 0xFBFF, 0x201};
  for (int c = 0; c < 4; ++c) {
    EXPECT_EQ(tile[4 + c], leadIn[c]) << c;
    EXPECT_EQ(tile[8 + c], block[c]) << c;
    EXPECT_EQ(tile[12 + c], block[c]) << c;
    EXPECT_EQ(tile[16 + c], leadIn[c]) << c;
  }
}

TEST_F(IxConvertUtilTest, HalfBlockStoresAgreeOnNormalsAndOverflow) {
  IxPixelFormat const rgb16 = format(IxPixelFormat::RGB, IxPixelFormat::FLOAT16);
  float const values[] = {0.f,
                          -0.f,
                          1.f,
                          1.f + std::ldexp(1.f, -11),
                          -(1.f + std::ldexp(1.f, -11)),
                          65504.f,
                          65519.f,
                          1e10f,
                          -1e10f,
                          std::numeric_limits<float>::infinity(),
                          NaN,
                          -NaN,
                          std::ldexp(1.f, -14),
                          0.1f,
                          -3.14159f,
                          1000.5f};
  alignas(16) Rgba colors[16];
  for (int i = 0; i < 16; ++i) colors[i] = Rgba(values[i], values[15 - i], values[i], 0.f);
  alignas(16) Half::Bits tile[48];
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(tile), colors, 16, rgb16);
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(tile[3 * i], Half::fromFloat(values[i])) << values[i];
    EXPECT_EQ(tile[3 * i + 1], Half::fromFloat(values[15 - i])) << values[15 - i];
  }
  EXPECT_EQ(tile[3 * 7], 0x7BFF);
  EXPECT_EQ(tile[3 * 8], 0xFBFF);
}

TEST_F(IxConvertUtilTest, HalfReadsMatchTheExactConversionForEveryPattern) {
  // All 65536 patterns, from an aligned and an unaligned start, through every layout.
  std::vector<Half::Bits> storage(65536 + 16);
  Half::Bits* const tile = storage.data() + (8 - reinterpret_cast<std::uintptr_t>(storage.data()) % 16 / 2) % 8;
  for (unsigned i = 0; i < 65536; ++i) tile[i] = Half::Bits(i * 40503u);  // odd factor: a permutation
  std::vector<Rgba> colors(65536 / 3 + 1);
  std::vector<float> alphas(65536);
  auto const same = [](float a, float b) { return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b); };
  for (int offset : {0, 1}) {
    unsigned char const* src = reinterpret_cast<unsigned char const*>(tile + offset);
    unsigned const n1 = 65536 - offset;
    IxConvertUtil::readFrom(alphas.data(), src, n1, format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT16));
    for (unsigned i = 0; i < n1; ++i) ASSERT_TRUE(same(alphas[i], Half::toFloat(tile[offset + i]))) << i;
    for (IxPixelFormat::Comps comps : {IxPixelFormat::ALPHA, IxPixelFormat::RGB, IxPixelFormat::RGBA}) {
      unsigned const n = (65536 - offset) / comps / 3;  // a third of the patterns each pass
      for (unsigned part = 0; part < 3; ++part) {
        unsigned char const* partSrc = src + std::size_t(part) * n * comps * 2;
        IxConvertUtil::readFrom(colors.data(), partSrc, n, format(comps, IxPixelFormat::FLOAT16));
        Half::Bits const* h = reinterpret_cast<Half::Bits const*>(partSrc);
        for (unsigned i = 0; i < n; ++i) {
          Rgba const& c = colors[i];
          if (comps == IxPixelFormat::ALPHA) {
            ASSERT_TRUE(same(c.a, Half::toFloat(h[i])) && c.r == 0.f) << i;
          } else {
            ASSERT_TRUE(same(c.r, Half::toFloat(h[comps * i])) && same(c.g, Half::toFloat(h[comps * i + 1])) &&
                        same(c.b, Half::toFloat(h[comps * i + 2])))
                << i;
            ASSERT_TRUE(same(c.a, comps == IxPixelFormat::RGB ? 1.f : Half::toFloat(h[comps * i + 3]))) << i;
          }
        }
      }
    }
  }
}

TEST_F(IxConvertUtilTest, BlockStoresFollowTheirRulesOnRandomValues) {
  // Values around the 8-bit steps, exact ties among them, and ordinary half-float values.
  std::mt19937 random(7);
  std::uniform_int_distribution<int> step(-20, 275);
  std::uniform_real_distribution<float> unit(-1.f, 1.f);
  alignas(16) Rgba colors[64];
  for (Rgba& c : colors)
    for (int k = 0; k < 4; ++k) c[k] = (float(step(random)) + (random() % 4 ? unit(random) : 0.5f)) / 255.f;

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
  alignas(16) Half::Bits halves[4 * 64];
  for (IxPixelFormat::Comps comps : {IxPixelFormat::ALPHA, IxPixelFormat::RGB, IxPixelFormat::RGBA}) {
    IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(halves), colors, 64, format(comps, IxPixelFormat::FLOAT16));
    for (int i = 0; i < 64 * comps; ++i) {
      float const v = comps == IxPixelFormat::ALPHA ? colors[i].a : colors[i / comps][i % comps];
      ASSERT_EQ(halves[i], Half::fromFloat(v)) << i;
    }
  }
}

TEST_F(IxConvertUtilTest, EightBitReadsMatchThePerPixelRuleFromAnyOffset) {
  alignas(16) std::uint8_t tile[4 * 40 + 16];
  for (int i = 0; i < 4 * 40 + 16; ++i) tile[i] = std::uint8_t(i * 37 + 11);
  for (int offset : {0, 1, 5}) {
    alignas(16) Rgba colors[40];
    float alphas[40];
    IxConvertUtil::readFrom(colors, tile + offset, 40, format(IxPixelFormat::ALPHA, IxPixelFormat::UINT8));
    IxConvertUtil::readFrom(alphas + 1, tile + offset, 39, format(IxPixelFormat::ALPHA, IxPixelFormat::UINT8));
    for (int i = 0; i < 40; ++i) EXPECT_EQ(colors[i].a, IxPixelCompUInt8::toFloat(tile[offset + i])) << i;
    for (int i = 0; i < 39; ++i) EXPECT_EQ(alphas[1 + i], IxPixelCompUInt8::toFloat(tile[offset + i])) << i;
    IxConvertUtil::readFrom(colors, tile + offset, 40, format(IxPixelFormat::RGB, IxPixelFormat::UINT8));
    for (int i = 0; i < 40; ++i) {
      EXPECT_EQ(colors[i].r, IxPixelCompUInt8::toFloat(tile[offset + 3 * i])) << i;
      EXPECT_EQ(colors[i].b, IxPixelCompUInt8::toFloat(tile[offset + 3 * i + 2])) << i;
      EXPECT_EQ(colors[i].a, 1.f);
    }
    IxConvertUtil::readFrom(colors, tile + offset, 40, format(IxPixelFormat::RGBA, IxPixelFormat::UINT8));
    for (int i = 0; i < 40; ++i) EXPECT_EQ(colors[i].g, IxPixelCompUInt8::toFloat(tile[offset + 4 * i + 1])) << i;
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

  try {
    IxConvertUtil::readFrom(back, reinterpret_cast<unsigned char*>(tile) + 4, 2, rgba32);
    ADD_FAILURE();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "dst % 16 == 0 && src % 16 == 0");
  }
  EXPECT_THROW(IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(tile) + 8, colors, 2, rgba32),
               AssertionsEx::ExAssertionFailed);
  // Reading only the alpha needs no alignment.
  float alphas[2];
  IxConvertUtil::readFrom(alphas, reinterpret_cast<unsigned char*>(tile) + 16, 2, rgba32);
  EXPECT_EQ(alphas[1], 1e30f);

  // One- and three-component float rows from unaligned addresses, into and out of blocks.
  alignas(16) float plane[3 * 21];
  for (int i = 0; i < 3 * 21; ++i) plane[i] = float(i) * 0.5f;
  IxConvertUtil::readFrom(back, reinterpret_cast<unsigned char*>(plane + 1), 20,
                          format(IxPixelFormat::RGB, IxPixelFormat::FLOAT32));
  for (int i = 0; i < 20; ++i) EXPECT_EQ(back[i], Rgba(plane[1 + 3 * i], plane[2 + 3 * i], plane[3 + 3 * i], 1.f));
  alignas(16) float out[24] = {};
  IxConvertUtil::writeTo(reinterpret_cast<unsigned char*>(out + 2), plane, 21,
                         format(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32));
  for (int i = 0; i < 21; ++i) EXPECT_EQ(out[2 + i], plane[i]);
  EXPECT_EQ(out[23], 0.f);
}
