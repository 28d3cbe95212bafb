#include <orn/primitives/imageProc/ixPixelConversion.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/half.h>
#include <orn/pluginAPI/ixReadGuard.h>

#include "ixScanlineTestUtil.h"

#include <bit>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;

class IxPixelConversionTest : public IxScanlineTestBase {};

IxTile makeTile(IxPixelFormat::Comps comps, IxPixelFormat::Depth depth, GeRectangle<int> const& region,
                int rowBytes = 0, Rgba const& fill = Rgba(0.f, 0.f, 0.f, 1.f)) {
  IxPixelFormat const format(comps, depth);
  return rowBytes ? IxTile(format, region, fill, rowBytes) : IxTile(format, region, fill);
}

unsigned char* compAt(IxTile const& tile, int x, int y, int c) {
  GeRectangle<int> const& r = tile.getPixelRegion();
  IxPixelFormat const& f = tile.getPixelFormat();
  return tile.getBaseAddress() + std::ptrdiff_t(y - r.y1()) * tile.getRowBytes() +
         std::ptrdiff_t(x - r.x1()) * f.getSize() + c * (f.getDepth() / 8);
}

// The 8-bit store of the display conversion, stated directly: v * 255 in single precision,
// NaN and everything above 255 to 255, then rounded half to even and clamped below at 0.
std::uint8_t displayByte(float v) {
  float const w = v * 255.f;
  if (std::isnan(w) || w >= 255.f) return 255;
  float const r = std::nearbyint(w);  // the default mode: to nearest, ties to even
  return r <= 0.f ? 0 : std::uint8_t(r);
}

// Component c of a source pixel as the conversion sees it.
float sourceValue(IxTile const& tile, int x, int y, int c) {
  unsigned char const* p = compAt(tile, x, y, c);
  switch (tile.getPixelFormat().getDepth()) {
    case IxPixelFormat::UINT8: return *p / 255.f;
    case IxPixelFormat::FLOAT16: {
      Half::Bits h;
      std::memcpy(&h, p, 2);
      return Half::toFloat(h);
    }
    default: {
      float v;
      std::memcpy(&v, p, 4);
      return v;
    }
  }
}

// The B, G, R, A bytes expected for a source pixel.
void expectedPixel(IxTile const& src, int x, int y, std::uint8_t out[4]) {
  IxPixelFormat::Comps const comps = src.getPixelFormat().getComps();
  if (comps == IxPixelFormat::ALPHA) {
    out[0] = out[1] = out[2] = 0;
    out[3] = src.getPixelFormat().getDepth() == IxPixelFormat::UINT8 ? *compAt(src, x, y, 0)
                                                                     : displayByte(sourceValue(src, x, y, 0));
    return;
  }
  out[0] = displayByte(sourceValue(src, x, y, 2));
  out[1] = displayByte(sourceValue(src, x, y, 1));
  out[2] = displayByte(sourceValue(src, x, y, 0));
  out[3] = comps == IxPixelFormat::RGB ? 255 : displayByte(sourceValue(src, x, y, 3));
}

// Random bytes for 8-bit tiles; for the others values from -0.5 to 1.5 with some exact ties of
// the 8-bit rounding, some NaNs and some large values.
void fillRandom(IxTile const& tile, unsigned seed) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<float> uniform(-0.5f, 1.5f);
  GeRectangle<int> const& r = tile.getPixelRegion();
  IxPixelFormat const& f = tile.getPixelFormat();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x)
      for (int c = 0; c < f.getComps(); ++c) {
        unsigned char* p = compAt(tile, x, y, c);
        unsigned const kind = rng() % 10;
        float v = uniform(rng);
        if (kind == 0) v = float(rng() % 128 * 2 + 1) * 0.5f / 255.f;
        if (kind == 1) v = std::numeric_limits<float>::quiet_NaN();
        if (kind == 2) v = 1e10f;
        if (f.getDepth() == IxPixelFormat::UINT8) {
          *p = std::uint8_t(rng());
        } else if (f.getDepth() == IxPixelFormat::FLOAT16) {
          Half::Bits const h = Half::fromFloat(v);
          std::memcpy(p, &h, 2);
        } else {
          std::memcpy(p, &v, 4);
        }
      }
}

void expectConverted(IxTile const& src, IxTile const& dst) {
  GeRectangle<int> const& r = src.getPixelRegion();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x) {
      std::uint8_t expected[4];
      expectedPixel(src, x, y, expected);
      for (int c = 0; c < 4; ++c) {
        ASSERT_EQ(*compAt(dst, x, y, c), expected[c])
            << "comps " << src.getPixelFormat().getComps() << " depth " << src.getPixelFormat().getDepth() << " at ("
            << x << ", " << y << ") byte " << c << " source " << sourceValue(src, x, y, c < 3 ? 2 - c : 3);
      }
    }
}

std::string abortMessageOf(IxTile const& tile) {
  try {
    IxPixelConversion::convertToBGRA8(tile);
  } catch (AssertionsEx::ExProgramAborted const& e) {
    return e.getMessage();
  }
  return "no abort";
}

}  // namespace

TEST_F(IxPixelConversionTest, RefusesEightBitColourAndUnknownFormats) {
  GeRectangle<int> const region(0, 16, 0, 2);
  EXPECT_EQ(abortMessageOf(makeTile(IxPixelFormat::RGB, IxPixelFormat::UINT8, region)),
            "Should not convert from RGB8 to BGRA8, no performance gain!");
  EXPECT_EQ(abortMessageOf(makeTile(IxPixelFormat::RGBA, IxPixelFormat::UINT8, region)),
            "Should not convert from RGBA8 to BGRA8, no performance gain!");
  EXPECT_EQ(abortMessageOf(makeTile(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX, region)), "");

  EXPECT_EQ(conditionOf([] { IxPixelConversion::convertToBGRA8(IxTile()); }), "src.isValid()");
  IxTile const empty = makeTile(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32, GeRectangle<int>(3, 3, 0, 4));
  EXPECT_EQ(conditionOf([&] { IxPixelConversion::convertToBGRA8(empty); }), "!src.isEmpty()");
}

TEST_F(IxPixelConversionTest, StoredPixelCountMustFitTheBlocks) {
  struct Case {
    IxPixelFormat::Comps comps;
    IxPixelFormat::Depth depth;
    int multiple;
  };
  Case const cases[] = {{IxPixelFormat::ALPHA, IxPixelFormat::UINT8, 16},  {IxPixelFormat::ALPHA, IxPixelFormat::FLOAT16, 8},
                        {IxPixelFormat::RGB, IxPixelFormat::FLOAT16, 8},   {IxPixelFormat::RGBA, IxPixelFormat::FLOAT16, 2},
                        {IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32, 4}, {IxPixelFormat::RGB, IxPixelFormat::FLOAT32, 4}};
  for (Case const& c : cases) {
    int const pixelSize = IxPixelFormat(c.comps, c.depth).getSize();
    // One stored row of half the multiple: the count is short of it, whatever the height. Two
    // rows of it make exactly one multiple.
    int const width = c.multiple / 2;
    IxTile const shortRows = makeTile(c.comps, c.depth, GeRectangle<int>(0, width, 0, 1), width * pixelSize);
    EXPECT_EQ(conditionOf([&] { IxPixelConversion::convertToBGRA8(shortRows); }),
              "nbPixels % " + std::to_string(c.multiple) + " == 0");
    IxTile const fitting = makeTile(c.comps, c.depth, GeRectangle<int>(0, width, 0, 2), width * pixelSize);
    fillRandom(fitting, 3);
    IxTile const dst = IxPixelConversion::convertToBGRA8(fitting);
    expectConverted(fitting, dst);
    // The stride gap counts: three pixels in rows of four stored pixels fit a multiple of 4.
    if (c.multiple == 4) {
      IxTile const gaps = makeTile(c.comps, c.depth, GeRectangle<int>(0, 3, 0, 1), 4 * pixelSize);
      EXPECT_NO_THROW(IxPixelConversion::convertToBGRA8(gaps));
    }
  }
  // Float RGBA takes any count.
  for (int width : {1, 3, 5, 7}) {
    IxTile const src = makeTile(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32, GeRectangle<int>(0, width, 0, 1), width * 16);
    fillRandom(src, unsigned(width));
    expectConverted(src, IxPixelConversion::convertToBGRA8(src));
  }
}

TEST_F(IxPixelConversionTest, ResultIsBgraWithTheSourcePixelStride) {
  Rgba const fill(0.25f, 0.5f, 0.75f, 0.125f);
  GeRectangle<int> const region(-5, 12, 7, 11);
  IxPixelFormat const halfFormat(IxPixelFormat::RGB, IxPixelFormat::FLOAT16, Rational(4096, 3112));
  // 17 RGB half pixels in rows of 24 stored pixels: the result keeps 24 pixels a row.
  IxTile const src(halfFormat, region, fill, 24 * 6);
  fillRandom(src, 7);
  IxTile const dst = IxPixelConversion::convertToBGRA8(src);
  IxPixelFormat const& f = dst.getPixelFormat();
  EXPECT_EQ(f.getComps(), IxPixelFormat::RGBA);
  EXPECT_EQ(f.getDepth(), IxPixelFormat::UINT8);
  EXPECT_EQ(f.getChannelOrder(), 1);
  EXPECT_EQ(f.getAspectRatio().getNumerator(), 4096);
  EXPECT_EQ(f.getAspectRatio().getDenominator(), 3112);
  EXPECT_EQ(dst.getPixelRegion(), region);
  EXPECT_EQ(dst.getRowBytes(), 24 * 4);
  EXPECT_EQ(dst.getFillColor(), fill);
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(dst.getBaseAddress()) % 16, 0u);
  expectConverted(src, dst);
}

TEST_F(IxPixelConversionTest, ExactBytesForEveryDepthAndLayout) {
  struct Case {
    IxPixelFormat::Comps comps;
    IxPixelFormat::Depth depth;
  };
  Case const cases[] = {{IxPixelFormat::ALPHA, IxPixelFormat::UINT8},  {IxPixelFormat::ALPHA, IxPixelFormat::FLOAT16},
                        {IxPixelFormat::RGB, IxPixelFormat::FLOAT16},  {IxPixelFormat::RGBA, IxPixelFormat::FLOAT16},
                        {IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32}, {IxPixelFormat::RGB, IxPixelFormat::FLOAT32},
                        {IxPixelFormat::RGBA, IxPixelFormat::FLOAT32}};
  unsigned seed = 0;
  for (Case const& c : cases) {
    // Rows of 64 pixels are whole 64-byte multiples in every layout; rows of 37 leave a gap,
    // which is whole pixels except in the RGB layouts.
    for (int width : {64, 37}) {
      IxTile const src = makeTile(c.comps, c.depth, GeRectangle<int>(3, 3 + width, -2, 6));
      if (src.getRowBytes() % src.getPixelFormat().getSize() != 0) continue;
      fillRandom(src, ++seed);
      expectConverted(src, IxPixelConversion::convertToBGRA8(src));
    }
  }
}

TEST_F(IxPixelConversionTest, RoundsTiesToEvenAndSaturates) {
  // Float RGBA: one pixel per case, bytes B, G, R, A.
  float const tie25 = 2.5f / 255.f;
  float const tie35 = 3.5f / 255.f;
  ASSERT_EQ(tie25 * 255.f, 2.5f);
  ASSERT_EQ(tie35 * 255.f, 3.5f);
  float const NaN = std::numeric_limits<float>::quiet_NaN();
  float const values[][4] = {{tie25, tie35, 0.5f, 1.f}, {-5.f, 300.f, NaN, 0.f}, {-0.f, 1e-30f, 0.99f, -NaN}};
  std::uint8_t const expected[][4] = {{128, 4, 2, 255}, {255, 255, 0, 0}, {252, 0, 0, 255}};
  IxTile const src = makeTile(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 3, 0, 1));
  for (int x = 0; x < 3; ++x) std::memcpy(compAt(src, x, 0, 0), values[x], 16);
  IxTile const dst = IxPixelConversion::convertToBGRA8(src);
  for (int x = 0; x < 3; ++x)
    for (int c = 0; c < 4; ++c) EXPECT_EQ(*compAt(dst, x, 0, c), expected[x][c]) << x << " " << c;

  // Halves: 0.5 is 127.5, which rounds to the even 128; infinity and NaN read as large numbers
  // and saturate; negatives give 0; denormals and the smallest normal give 0.
  Half::Bits const halves[16] = {0x3800, 0x3C00, 0xBC00, 0x7C00, 0x7E00, 0xFC00, 0x0001, 0x03FF,
                                 0x8001, 0x0400, 0x0000, 0x8000, 0x4000, 0x1C00, 0x2000, 0x2400};
  // The last three are 2^-8, 2^-7 and 2^-6: 255 times them is 0.996, 1.99 and 3.98.
  std::uint8_t const halfBytes[16] = {128, 255, 0, 255, 255, 0, 0, 0, 0, 0, 0, 0, 255, 1, 2, 4};
  IxTile const alpha16 = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 16, 0, 1));
  std::memcpy(compAt(alpha16, 0, 0, 0), halves, sizeof halves);
  IxTile const out16 = IxPixelConversion::convertToBGRA8(alpha16);
  for (int x = 0; x < 16; ++x) {
    EXPECT_EQ(*compAt(out16, x, 0, 3), halfBytes[x]) << std::hex << halves[x];
    EXPECT_EQ(*compAt(out16, x, 0, 0), 0);
  }

  // 8-bit alpha: every value comes back unchanged in the alpha byte.
  IxTile const alpha8 = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::UINT8, GeRectangle<int>(0, 256, 0, 1));
  for (int x = 0; x < 256; ++x) *compAt(alpha8, x, 0, 0) = std::uint8_t(x);
  IxTile const out8 = IxPixelConversion::convertToBGRA8(alpha8);
  for (int x = 0; x < 256; ++x) {
    std::uint32_t word;
    std::memcpy(&word, compAt(out8, x, 0, 0), 4);
    EXPECT_EQ(word, std::uint32_t(x) << 24);
  }
}

TEST_F(IxPixelConversionTest, StrideGapsBeyondTheSourceMemory) {
  // A wide caller stride: the gap after the last row is not part of the tile's memory, yet the
  // run covers it. The pixels of the region still come out right (and nothing outside the
  // memory is touched, which the sanitiser builds check).
  IxTile const src = makeTile(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 5, 0, 3), 8 * 62);
  fillRandom(src, 11);
  IxTile const dst = IxPixelConversion::convertToBGRA8(src);
  EXPECT_EQ(dst.getRowBytes(), 62 * 4);
  expectConverted(src, dst);

  IxTile const alpha = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::UINT8, GeRectangle<int>(0, 1, 0, 5), 64);
  fillRandom(alpha, 12);
  expectConverted(alpha, IxPixelConversion::convertToBGRA8(alpha));
}
