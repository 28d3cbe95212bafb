#include <orn/primitives/imageProc/ixScanlineImp.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixPixelComp.h>
#include <orn/pluginAPI/ixSingleTileFetcher.h>
#include <orn/pluginAPI/ixTilePtrVectorFetcher.h>
#include <orn/primitives/imageProc/ixTilingUtil.h>

#include "ixScanlineTestUtil.h"

#include <complex>
#include <cstdint>
#include <cstring>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;
using Pad = IxScanlineTypes;

class IxScanlineImpTest : public IxScanlineTestBase {};

IxTile makeTile(IxPixelFormat::Comps comps, IxPixelFormat::Depth depth, int x1, int x2, int y1, int y2) {
  return IxTile(IxPixelFormat(comps, depth), GeRectangle<int>(x1, x2, y1, y2), Rgba());
}

template <class Storage>
Storage* pixelAt(IxTile const& tile, int x, int y, int comp = 0) {
  GeRectangle<int> const& r = tile.getPixelRegion();
  unsigned char* row = tile.getBaseAddress() + std::ptrdiff_t(y - r.y1()) * tile.getRowBytes();
  return reinterpret_cast<Storage*>(row) + std::ptrdiff_t(x - r.x1()) * tile.getPixelFormat().getComps() + comp;
}

// A one-component float tile whose pixel (x, y) holds 100 y + x.
IxTile makeCoordinateTile(int x1, int x2, int y1, int y2) {
  IxTile tile = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32, x1, x2, y1, y2);
  for (int y = y1; y < y2; ++y)
    for (int x = x1; x < x2; ++x) *pixelAt<float>(tile, x, y) = float(100 * y + x);
  return tile;
}

// Passes requests on to another fetcher, counting them and keeping the last row asked for.
class CountingFetcher : public IxScanlineTypes::TileFetcher {
public:
  explicit CountingFetcher(IxScanlineTypes::TileFetcher& inner) : _inner(inner) {}
  void getRegion(GeRectangle<int>& out) override { _inner.getRegion(out); }
  IxReadGuard const& getTile(int x, int y) override {
    ++nbGetTile;
    lastY = y;
    return _inner.getTile(x, y);
  }
  int nbGetTile = 0;
  int lastY = 0;

private:
  IxScanlineTypes::TileFetcher& _inner;
};

}  // namespace

TEST_F(IxScanlineImpTest, BuffersAreAlignedAndSizedWithSlack) {
  EXPECT_EQ(IxScanlineImp<float>::computeBufferSize(1), 272u);          // 4 + 256 -> 16
  EXPECT_EQ(IxScanlineImp<Rgba>::computeBufferSize(3), 304u);           // 48 + 256
  EXPECT_EQ(IxScanlineImp<std::complex<float>>::computeBufferSize(3), 288u);  // 24 + 256 -> 16

  for (int width : {1, 17, 100}) {
    for (int start : {-7, 5}) {
      IxScanline<float> line(GeInterval<int>(start, start + width), IxPaddingPolicy<float>(Pad::PADDING_COLOR, 0.f));
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(line.getBegin()) % 16, 0u);
      EXPECT_EQ(line.getEnd() - line.getBegin(), width);
      EXPECT_EQ(&line[start], line.getBegin());
      EXPECT_EQ(&line[start + width - 1], line.getEnd() - 1);
      // The whole buffer, slack included, is writable.
      std::memset(line.getBegin(), 0, IxScanlineImp<float>::computeBufferSize(width));
    }
  }
  IxScanline<Rgba> empty(GeInterval<int>(4, 4), IxPaddingPolicy<Rgba>(Pad::PADDING_COLOR, Rgba()));
  EXPECT_EQ(empty.getBegin(), empty.getEnd());

  // Caller memory: position x is pixels[x - min].
  Rgba pixels[3];
  IxScanline<Rgba> over(GeInterval<int>(10, 13), pixels, IxPaddingPolicy<Rgba>(Pad::NOOP, Rgba()));
  EXPECT_EQ(over.getBegin(), pixels);
  EXPECT_EQ(&over[12], pixels + 2);
}

TEST_F(IxScanlineImpTest, NoopReadsAcrossTilesOfDifferentFormats) {
  // Row 1 over [0, 12): an 8-bit alpha tile, a half RGBA tile and a float RGB tile side by side.
  IxTile a8 = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::UINT8, 0, 4, 0, 2);
  IxTile rgba16 = makeTile(IxPixelFormat::RGBA, IxPixelFormat::FLOAT16, 4, 8, 0, 2);
  IxTile rgb32 = makeTile(IxPixelFormat::RGB, IxPixelFormat::FLOAT32, 8, 12, 0, 2);
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 4; ++x) *pixelAt<std::uint8_t>(a8, x, y) = std::uint8_t(10 * y + x);
    for (int x = 4; x < 8; ++x)
      for (int c = 0; c < 4; ++c) *pixelAt<Half::Bits>(rgba16, x, y, c) = Half::fromFloat(float(y * 10 + x) + 0.25f * c);
    for (int x = 8; x < 12; ++x)
      for (int c = 0; c < 3; ++c) *pixelAt<float>(rgb32, x, y, c) = float(-(y * 10 + x)) - c;
  }
  Vector<IxReadGuard> guards = {IxReadGuard(a8), IxReadGuard(rgba16), IxReadGuard(rgb32)};

  IxScanline<Rgba> colors(GeInterval<int>(1, 11), IxPaddingPolicy<Rgba>(Pad::NOOP, Rgba()));
  colors.readFrom(guards, 1);
  for (int x = 1; x < 4; ++x) EXPECT_EQ(colors[x], Rgba(0.f, 0.f, 0.f, IxPixelCompUInt8::toFloat(10 + x))) << x;
  for (int x = 4; x < 8; ++x) EXPECT_EQ(colors[x], Rgba(10.f + x, 10.25f + x, 10.5f + x, 10.75f + x)) << x;
  for (int x = 8; x < 11; ++x) EXPECT_EQ(colors[x], Rgba(-10.f - x, -11.f - x, -12.f - x, 1.f)) << x;

  // Beyond the tiles: the pixels copied before the failure are in place.
  IxScanline<float> wide(GeInterval<int>(2, 14), IxPaddingPolicy<float>(Pad::NOOP, 0.f));
  for (int x = 2; x < 14; ++x) wide[x] = -1.f;
  EXPECT_EQ(conditionOf([&] { wide.readFrom(guards, 1); }),
            "Source tiles must cover the scanline region in NOOP padding mode.");
  EXPECT_EQ(wide[3], IxPixelCompUInt8::toFloat(13));
  EXPECT_EQ(wide[11], 1.f);
  EXPECT_EQ(wide[12], -1.f);
}

TEST_F(IxScanlineImpTest, NoopLeavesTheRowUnchecked) {
  // The fetcher's region stops at row 2, but the memory behind it goes on: a NOOP read of row 5
  // asks the fetcher for row 5 and reads it.
  IxTile big = makeCoordinateTile(0, 8, 0, 8);
  IxTile view = big.createView(big.getPixelFormat(), GeRectangle<int>(0, 8, 0, 2), big.getRowBytes());
  IxSingleTileFetcher single{IxReadGuard(view)};
  CountingFetcher counting(single);
  IxScanline<float> line(GeInterval<int>(2, 6), IxPaddingPolicy<float>(Pad::NOOP, 0.f));
  line.readFrom(counting, 5);
  EXPECT_EQ(counting.lastY, 5);
  for (int x = 2; x < 6; ++x) EXPECT_EQ(line[x], 500.f + x);
}

TEST_F(IxScanlineImpTest, EmptySourcesFillInEveryMode) {
  Vector<IxReadGuard const*> none;
  IxTilePtrVectorFetcher emptyFetcher(none);
  IxTile emptyTile = makeTile(IxPixelFormat::RGBA, IxPixelFormat::UINT8, 3, 3, 0, 5);
  for (int mode = 0; mode <= 4; ++mode) {
    IxPaddingPolicy<Rgba> const padding(Pad::PaddingType(mode), Rgba(0.1f, 0.2f, 0.3f, 0.4f));
    IxScanline<Rgba> line(GeInterval<int>(-3, 5), padding);
    line.readFrom(emptyFetcher, 2);
    for (int x = -3; x < 5; ++x) EXPECT_EQ(line[x], padding.getFillColor()) << mode;
    IxScanline<float> alpha(GeInterval<int>(0, 3), IxPaddingPolicy<float>(Pad::PaddingType(mode), 7.f));
    alpha.readFrom(IxReadGuard(emptyTile), 1);
    for (int x = 0; x < 3; ++x) EXPECT_EQ(alpha[x], 7.f) << mode;
  }
}

TEST_F(IxScanlineImpTest, PaddingColorFillsAroundTheTiles) {
  IxTile tile = makeCoordinateTile(2, 5, 1, 3);
  IxSingleTileFetcher single{IxReadGuard(tile)};
  CountingFetcher counting(single);
  IxScanline<float> line(GeInterval<int>(0, 8), IxPaddingPolicy<float>(Pad::PADDING_COLOR, -1.f));

  // A row outside: the whole line is fill and no tile is asked for.
  line.readFrom(counting, 3);
  for (int x = 0; x < 8; ++x) EXPECT_EQ(line[x], -1.f);
  line.readFrom(counting, 0);
  EXPECT_EQ(counting.nbGetTile, 0);
  EXPECT_EQ(line[4], -1.f);

  line.readFrom(counting, 2);
  float const expected[] = {-1.f, -1.f, 202.f, 203.f, 204.f, -1.f, -1.f, -1.f};
  for (int x = 0; x < 8; ++x) EXPECT_EQ(line[x], expected[x]) << x;
  EXPECT_EQ(counting.nbGetTile, 1);

}

TEST_F(IxScanlineImpTest, RepeatEdgeTakesTheNearestPixel) {
  // A one-pixel region: every position and every row take that pixel.
  IxTile dot = makeTile(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32, 5, 6, 3, 4);
  *reinterpret_cast<Rgba*>(dot.getBaseAddress()) = Rgba(0.5f, 0.25f, 2.f, 0.75f);
  IxScanline<Rgba> colors(GeInterval<int>(0, 10), IxPaddingPolicy<Rgba>(Pad::PADDING_REPEAT_EDGE, Rgba()));
  for (int y : {-4, 3, 9}) {
    colors.readFrom(IxReadGuard(dot), y);
    for (int x = 0; x < 10; ++x) EXPECT_EQ(colors[x], Rgba(0.5f, 0.25f, 2.f, 0.75f)) << x << ' ' << y;
  }

  // A float line fills with the edge pixel's alpha, 1 for an RGB tile.
  IxTile rgb = makeTile(IxPixelFormat::RGB, IxPixelFormat::UINT8, 2, 4, 0, 2);
  std::memset(rgb.getBaseAddress(), 0, std::size_t(rgb.getRowBytes()) * 2);
  IxScanline<float> alphas(GeInterval<int>(-2, 7), IxPaddingPolicy<float>(Pad::PADDING_REPEAT_EDGE, 0.f));
  alphas.readFrom(IxReadGuard(rgb), 5);
  for (int x = -2; x < 7; ++x) EXPECT_EQ(alphas[x], 1.f) << x;

  // Clamped per axis.
  IxTile coords = makeCoordinateTile(2, 5, 1, 3);
  IxScanline<float> line(GeInterval<int>(0, 7), IxPaddingPolicy<float>(Pad::PADDING_REPEAT_EDGE, 0.f));
  line.readFrom(IxReadGuard(coords), 8);
  float const expected[] = {202.f, 202.f, 202.f, 203.f, 204.f, 204.f, 204.f};
  for (int x = 0; x < 7; ++x) EXPECT_EQ(line[x], expected[x]) << x;
}

TEST_F(IxScanlineImpTest, MirrorDoublesTheEdgePixels) {
  // [0, 3) split in two tiles, so that reversed runs cross tile edges.
  IxTile left = makeCoordinateTile(0, 2, 0, 3);
  IxTile right = makeCoordinateTile(2, 3, 0, 3);
  Vector<IxReadGuard> guards = {IxReadGuard(left), IxReadGuard(right)};
  IxScanline<float> line(GeInterval<int>(-6, 8), IxPaddingPolicy<float>(Pad::PADDING_MIRROR, 0.f));
  int const columns[] = {0, 1, 2, 2, 1, 0, 0, 1, 2, 2, 1, 0, 0, 1};
  // Rows -1 and 3 mirror to 0 and 2; row 4 to 1.
  int const rows[][2] = {{-1, 0}, {3, 2}, {4, 1}, {-3, 2}};
  for (auto const& row : rows) {
    line.readFrom(guards, row[0]);
    for (int x = -6; x < 8; ++x) EXPECT_EQ(line[x], float(100 * row[1] + columns[x + 6])) << x << ' ' << row[0];
  }

  bool reversed = false;
  EXPECT_EQ(IxTilingUtil::mapMirror(-1, 0, 3, reversed), 0);
  EXPECT_TRUE(reversed);
  EXPECT_EQ(IxTilingUtil::mapMirror(7, 5, 6, reversed), 5);
}

TEST_F(IxScanlineImpTest, PeriodicRepeatsTheRegion) {
  EXPECT_EQ(IxTilingUtil::mapPeriodic(9, 10, 13), 12);
  EXPECT_EQ(IxTilingUtil::mapPeriodic(13, 10, 13), 10);
  EXPECT_EQ(IxTilingUtil::mapPeriodic(-2, 10, 13), 10);
  IxTile tile = makeCoordinateTile(10, 13, 4, 6);
  IxScanline<float> line(GeInterval<int>(-2, 17), IxPaddingPolicy<float>(Pad::PADDING_PERIODIC, 0.f));
  line.readFrom(IxReadGuard(tile), 7);  // row 7 is row 5
  for (int x = -2; x < 17; ++x) EXPECT_EQ(line[x], float(500 + 10 + ((x - 10) % 3 + 3) % 3)) << x;
}

TEST_F(IxScanlineImpTest, OverlappingTilesFirstWinsAtEachRunStart) {
  IxTile under = makeCoordinateTile(0, 6, 0, 2);
  IxTile over = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32, 2, 4, 0, 2);
  for (int x = 2; x < 4; ++x) *pixelAt<float>(over, x, 1) = -float(x);
  Vector<IxReadGuard> const overFirst = {IxReadGuard(over), IxReadGuard(under)};
  Vector<IxReadGuard> const underFirst = {IxReadGuard(under), IxReadGuard(over)};

  // A run goes on to the end of the tile it starts in.
  IxScanline<float> line(GeInterval<int>(2, 6), IxPaddingPolicy<float>(Pad::NOOP, 0.f));
  line.readFrom(overFirst, 1);
  float const expected[] = {-2.f, -3.f, 104.f, 105.f};
  for (int x = 2; x < 6; ++x) EXPECT_EQ(line[x], expected[x - 2]) << x;
  line.readFrom(underFirst, 1);
  for (int x = 2; x < 6; ++x) EXPECT_EQ(line[x], 100.f + x) << x;
}

TEST_F(IxScanlineImpTest, ReadFailures) {
  IxTile tile = makeCoordinateTile(0, 4, 0, 4);
  IxScanline<float> line(GeInterval<int>(0, 4), IxPaddingPolicy<float>(Pad::PADDING_COLOR, 0.f));
  line.setPaddingPolicyY(IxPaddingPolicy<float>(Pad::PADDING_COLOR, 1.f));
  EXPECT_EQ(conditionOf([&] { line.readFrom(IxReadGuard(tile), 0); }), "fillColor == paddingPolicyY.getFillColor()");

  // An x padding type beyond the known ones leaves the line as it is.
  line.setPaddingPolicyY(IxPaddingPolicy<float>(Pad::PADDING_REPEAT_EDGE, 0.f));
  line.setPaddingPolicyX(IxPaddingPolicy<float>(Pad::PaddingType(5), 0.f));
  for (int x = 0; x < 4; ++x) line[x] = 42.f;
  line.readFrom(IxReadGuard(tile), 1);
  for (int x = 0; x < 4; ++x) EXPECT_EQ(line[x], 42.f);

  IxScanline<float> noop(GeInterval<int>(0, 2), IxPaddingPolicy<float>(Pad::NOOP, 0.f));
  EXPECT_EQ(conditionOf([&] { noop.readFrom(IxReadGuard(IxTile()), 0); }), "isValid()");

  // A complex line reads complex tiles only.
  IxScanline<std::complex<float>> complexLine(GeInterval<int>(0, 2),
                                              IxPaddingPolicy<std::complex<float>>(Pad::NOOP, 0.f));
  EXPECT_EQ(conditionOf([&] { complexLine.readFrom(IxReadGuard(tile), 0); }),
            "srcFormat.getDepth() == IxPixelFormat::COMPLEX");
}

TEST_F(IxScanlineImpTest, ComplexLinesRoundTripWithPadding) {
  using Complex = std::complex<float>;
  IxTile tile = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX, 0, 3, 0, 1);
  auto* pixels = reinterpret_cast<Complex*>(tile.getBaseAddress());
  for (int x = 0; x < 3; ++x) pixels[x] = Complex(float(x), -float(x));
  IxScanline<Complex> line(GeInterval<int>(-1, 5), IxPaddingPolicy<Complex>(Pad::PADDING_REPEAT_EDGE, 0.f));
  line.readFrom(IxReadGuard(tile), 0);
  Complex const expected[] = {{0, 0}, {0, 0}, {1, -1}, {2, -2}, {2, -2}, {2, -2}};
  for (int x = -1; x < 5; ++x) EXPECT_EQ(line[x], expected[x + 1]) << x;
  IxScanline<Complex> inside(GeInterval<int>(2, 3), IxPaddingPolicy<Complex>(Pad::NOOP, 0.f));
  inside[2] = {9.f, 10.f};
  inside.writeTo(IxWriteGuard(tile), 0);
  EXPECT_EQ(pixels[1], Complex(1.f, -1.f));
  EXPECT_EQ(pixels[2], Complex(9.f, 10.f));
}

TEST_F(IxScanlineImpTest, WritesStayInsideTheTileRow) {
  IxTile tile = makeTile(IxPixelFormat::RGBA, IxPixelFormat::UINT8, 10, 20, 5, 8);
  std::memset(tile.getBaseAddress(), 0, std::size_t(tile.getRowBytes()) * 3);
  IxWriteGuard guard(tile);

  IxScanline<Rgba> tooWide(GeInterval<int>(9, 15), IxPaddingPolicy<Rgba>(Pad::NOOP, Rgba()));
  EXPECT_EQ(conditionOf([&] { tooWide.writeTo(guard, 6); }),
            "dst.getPixelRegion().getSlab( 0 ).contains( _instance.getInterval() )");

  IxScanline<Rgba> inside(GeInterval<int>(12, 15), IxPaddingPolicy<Rgba>(Pad::NOOP, Rgba()));
  for (int x = 12; x < 15; ++x) inside[x] = Rgba(1.f, 0.f, 1.f, 1.f);
  inside.writeTo(guard, 6);
  for (int x = 10; x < 20; ++x) {
    bool const written = x >= 12 && x < 15;
    EXPECT_EQ(*pixelAt<std::uint8_t>(tile, x, 6, 0), written ? 255 : 0) << x;
    EXPECT_EQ(*pixelAt<std::uint8_t>(tile, x, 6, 3), written ? 255 : 0) << x;
    EXPECT_EQ(*pixelAt<std::uint8_t>(tile, x, 5, 0), 0) << x;
    EXPECT_EQ(*pixelAt<std::uint8_t>(tile, x, 7, 0), 0) << x;
  }

}

TEST_F(IxScanlineImpTest, FloatViewOnATileRow) {
  IxTile tile = makeCoordinateTile(3, 9, 2, 5);
  IxWriteGuard guard(tile);
  IxScanline<float> view(guard, 4);
  EXPECT_EQ(view.getInterval(), GeInterval<int>(3, 9));
  EXPECT_EQ(view[3], 403.f);
  view[8] = -1.f;
  EXPECT_EQ(*pixelAt<float>(tile, 8, 4), -1.f);

  IxTile rgba = makeTile(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32, 0, 2, 0, 2);
  EXPECT_THROW(IxScanline<float>(IxWriteGuard(rgba), 0), AssertionsEx::ExAssertionFailed);
  EXPECT_THROW(IxScanline<float>(guard, 5), AssertionsEx::ExAssertionFailed);
}
