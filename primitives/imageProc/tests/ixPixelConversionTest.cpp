#include <orn/primitives/imageProc/ixPixelConversion.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/half.h>

#include "ixScanlineTestUtil.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;
using Format = IxPixelFormat;

class IxPixelConversionTest : public IxScanlineTestBase {};

IxTile makeTile(Format::Comps comps, Format::Depth depth, GeRectangle<int> const& region, int rowBytes) {
  return IxTile(Format(comps, depth), region, Rgba(0.f, 0.f, 0.f, 1.f), rowBytes);
}

unsigned char* compAt(IxTile const& tile, int x, int y, int c) {
  GeRectangle<int> const& r = tile.getPixelRegion();
  return tile.getBaseAddress() + std::ptrdiff_t(y - r.y1()) * tile.getRowBytes() +
         std::ptrdiff_t(x - r.x1()) * tile.getPixelFormat().getSize() + c * (tile.getPixelFormat().getDepth() / 8);
}

// The display byte stated directly: v * 255 in single precision, NaN and everything from 255 up
// to 255, rounded half to even (the default mode), negatives to 0.
std::uint8_t displayByte(float v) {
  float const w = v * 255.f;
  if (std::isnan(w) || w >= 255.f) return 255;
  return w <= 0.f ? 0 : std::uint8_t(std::nearbyint(w));
}

float valueAt(IxTile const& tile, int x, int y, int c) {
  unsigned char const* p = compAt(tile, x, y, c);
  Half::Bits h;
  float f;
  std::memcpy(&h, p, 2);
  std::memcpy(&f, p, 4);
  return tile.getPixelFormat().getDepth() == Format::FLOAT16 ? Half::toFloat(h) : f;
}

// Random bytes in 8-bit tiles; elsewhere values from -0.5 to 1.5 with exact ties of the 8-bit
// rounding, NaNs and large values among them.
void fillRandom(IxTile const& tile, unsigned seed) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<float> uniform(-0.5f, 1.5f);
  GeRectangle<int> const& r = tile.getPixelRegion();
  Format const& f = tile.getPixelFormat();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x)
      for (int c = 0; c < f.getComps(); ++c) {
        unsigned const kind = rng() % 10;
        float const v = kind == 0   ? float(rng() % 128 * 2 + 1) * 0.5f / 255.f
                        : kind == 1 ? std::numeric_limits<float>::quiet_NaN()
                        : kind == 2 ? 1e10f
                                    : uniform(rng);
        Half::Bits const h = Half::fromFloat(v);
        std::uint8_t const byte = std::uint8_t(rng());
        std::memcpy(compAt(tile, x, y, c), f.getDepth() == Format::UINT8 ? static_cast<void const*>(&byte)
                                           : f.getDepth() == Format::FLOAT16 ? static_cast<void const*>(&h)
                                                                             : static_cast<void const*>(&v),
                    std::size_t(f.getDepth() / 8));
      }
}

// Every pixel of src's region against its expected B, G, R, A bytes.
void expectConverted(IxTile const& src, IxTile const& dst) {
  GeRectangle<int> const& r = src.getPixelRegion();
  Format const& f = src.getPixelFormat();
  for (int y = r.y1(); y < r.y2(); ++y)
    for (int x = r.x1(); x < r.x2(); ++x) {
      std::uint8_t expected[4] = {0, 0, 0, 255};
      if (f.getComps() == Format::ALPHA)
        expected[3] = f.getDepth() == Format::UINT8 ? *compAt(src, x, y, 0) : displayByte(valueAt(src, x, y, 0));
      else
        for (int c = 0; c < f.getComps(); ++c) expected[c == 3 ? 3 : 2 - c] = displayByte(valueAt(src, x, y, c));
      for (int c = 0; c < 4; ++c)
        ASSERT_EQ(*compAt(dst, x, y, c), expected[c])
            << "comps " << f.getComps() << " depth " << f.getDepth() << " at (" << x << ", " << y << ") byte " << c;
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

TEST_F(IxPixelConversionTest, RefusalsAndPreconditions) {
  GeRectangle<int> const region(0, 16, 0, 2);
  EXPECT_EQ(abortMessageOf(makeTile(Format::RGB, Format::UINT8, region, 64)),
            "Should not convert from RGB8 to BGRA8, no performance gain!");
  EXPECT_EQ(abortMessageOf(makeTile(Format::RGBA, Format::UINT8, region, 64)),
            "Should not convert from RGBA8 to BGRA8, no performance gain!");
  EXPECT_EQ(abortMessageOf(makeTile(Format::ALPHA, Format::COMPLEX, region, 128)), "");
  EXPECT_EQ(conditionOf([] { IxPixelConversion::convertToBGRA8(IxTile()); }), "src.isValid()");
  IxTile const empty = makeTile(Format::RGBA, Format::FLOAT32, GeRectangle<int>(3, 3, 0, 4), 64);
  EXPECT_EQ(conditionOf([&] { IxPixelConversion::convertToBGRA8(empty); }), "!src.isEmpty()");
}

TEST_F(IxPixelConversionTest, StoredPixelCountMustFitTheBlocks) {
  struct Case {
    Format::Comps comps;
    Format::Depth depth;
    int multiple;
  };
  for (Case const& c : {Case{Format::ALPHA, Format::UINT8, 16}, Case{Format::ALPHA, Format::FLOAT16, 8},
                        Case{Format::RGB, Format::FLOAT16, 8}, Case{Format::RGBA, Format::FLOAT16, 2},
                        Case{Format::ALPHA, Format::FLOAT32, 4}, Case{Format::RGB, Format::FLOAT32, 4},
                        Case{Format::RGBA, Format::FLOAT32, 1}}) {
    int const size = Format(c.comps, c.depth).getSize();
    // Rows of half the multiple: one row falls short, two rows fit.
    int const width = std::max(1, c.multiple / 2);
    if (c.multiple > 1) {
      IxTile const shortRun = makeTile(c.comps, c.depth, GeRectangle<int>(0, width, 0, 1), width * size);
      EXPECT_EQ(conditionOf([&] { IxPixelConversion::convertToBGRA8(shortRun); }),
                "nbPixels % " + std::to_string(c.multiple) + " == 0");
    }
    for (int height : {2, 3}) {
      if (height * width % c.multiple != 0) continue;
      IxTile const fitting = makeTile(c.comps, c.depth, GeRectangle<int>(0, width, 0, height), width * size);
      fillRandom(fitting, unsigned(height * c.multiple));
      expectConverted(fitting, IxPixelConversion::convertToBGRA8(fitting));
    }
  }
}

TEST_F(IxPixelConversionTest, BgraTileWithTheSourcePixelStride) {
  // 17 pixels in rows of 24 stored ones, for every supported layout; the result keeps 24 pixels
  // a row, the region, aspect ratio and fill colour.
  Rgba const fill(0.25f, 0.5f, 0.75f, 0.125f);
  GeRectangle<int> const region(-5, 12, 7, 15);
  unsigned seed = 0;
  for (Format::Depth depth : {Format::UINT8, Format::FLOAT16, Format::FLOAT32})
    for (Format::Comps comps : {Format::ALPHA, Format::RGB, Format::RGBA}) {
      if (depth == Format::UINT8 && comps != Format::ALPHA) continue;
      Format const format(comps, depth, Rational(4096, 3112));
      IxTile const src(format, region, fill, 24 * format.getSize());
      fillRandom(src, ++seed);
      IxTile const dst = IxPixelConversion::convertToBGRA8(src);
      Format const& f = dst.getPixelFormat();
      EXPECT_TRUE(f.getComps() == Format::RGBA && f.getDepth() == Format::UINT8 && f.getChannelOrder() == 1);
      EXPECT_EQ(f.getAspectRatio().getNumerator(), 4096);
      EXPECT_EQ(f.getAspectRatio().getDenominator(), 3112);
      EXPECT_EQ(dst.getPixelRegion(), region);
      EXPECT_EQ(dst.getRowBytes(), 24 * 4);
      EXPECT_EQ(dst.getFillColor(), fill);
      expectConverted(src, dst);
    }
  // A stride gap after the last row that lies beyond the tile's memory.
  IxTile const wide = makeTile(Format::RGBA, Format::FLOAT16, GeRectangle<int>(0, 5, 0, 3), 8 * 62);
  fillRandom(wide, 11);
  expectConverted(wide, IxPixelConversion::convertToBGRA8(wide));
}

TEST_F(IxPixelConversionTest, RoundsTiesToEvenAndSaturates) {
  // Bytes B, G, R, A of float RGBA pixels: 2.5 and 3.5 go to the even 2 and 4, 127.5 to 128.
  float const tie25 = 2.5f / 255.f;
  float const tie35 = 3.5f / 255.f;
  ASSERT_TRUE(tie25 * 255.f == 2.5f && tie35 * 255.f == 3.5f);
  float const NaN = std::numeric_limits<float>::quiet_NaN();
  float const values[3][4] = {{tie25, tie35, 0.5f, 1.f}, {-5.f, 300.f, NaN, 0.f}, {-0.f, 1e-30f, 0.99f, -NaN}};
  std::uint8_t const expected[3][4] = {{128, 4, 2, 255}, {255, 255, 0, 0}, {252, 0, 0, 255}};
  IxTile const src = makeTile(Format::RGBA, Format::FLOAT32, GeRectangle<int>(0, 3, 0, 1), 48);
  std::memcpy(src.getBaseAddress(), values, sizeof values);
  IxTile const dst = IxPixelConversion::convertToBGRA8(src);
  EXPECT_EQ(std::memcmp(dst.getBaseAddress(), expected, sizeof expected), 0);

  // Half alpha: 0.5 is 127.5, to 128; infinity and NaN read as large numbers; denormals, whatever
  // they widen to, and the smallest normal give 0; 2^-8, 2^-7, 2^-6 scale to 0.996, 1.99, 3.98.
  Half::Bits const halves[16] = {0x3800, 0x3C00, 0xBC00, 0x7C00, 0x7E00, 0xFC00, 0x0001, 0x03FF,
                                 0x8001, 0x0400, 0x0000, 0x8000, 0x4000, 0x1C00, 0x2000, 0x2400};
  std::uint8_t const halfBytes[16] = {128, 255, 0, 255, 255, 0, 0, 0, 0, 0, 0, 0, 255, 1, 2, 4};
  IxTile const alpha16 = makeTile(Format::ALPHA, Format::FLOAT16, GeRectangle<int>(0, 16, 0, 1), 32);
  std::memcpy(alpha16.getBaseAddress(), halves, sizeof halves);
  IxTile const out16 = IxPixelConversion::convertToBGRA8(alpha16);
  for (int x = 0; x < 16; ++x) {
    std::uint32_t word;
    std::memcpy(&word, compAt(out16, x, 0, 0), 4);
    EXPECT_EQ(word, std::uint32_t(halfBytes[x]) << 24) << std::hex << halves[x];
  }
}
