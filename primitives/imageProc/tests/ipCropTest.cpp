#include <orn/primitives/imageProc/ipCrop.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixSingleTileFetcher.h>
#include <orn/pluginAPI/ixTilePtrVectorFetcher.h>
#include <orn/pluginAPI/ixWriteGuard.h>

#include "ixPixelLoopTestUtil.h"
#include "ixScanlineTestUtil.h"

#include <bit>
#include <cstdint>
#include <cstring>

using namespace Orn;

namespace {

using Rgba = CoRgbaColorTyped<float>;
using Pad = IxScanlineTypes;

class IpCropTest : public IxScanlineTestBase {};

IxPixelFormat const RGBA8(IxPixelFormat::RGBA, IxPixelFormat::UINT8);
IxPixelFormat const RGBA32(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32);
IxPixelFormat const ALPHA8(IxPixelFormat::ALPHA, IxPixelFormat::UINT8);

// The source image: columns [0, 8), rows [0, 3), cut into an 8-bit tile (x < 4) and a float tile
// (x >= 4). Component c of pixel (x, y) is the byte code(x, y, c), stored in the float tile as
// code / 255, which an 8-bit store turns back into the byte.
int code(int x, int y, int c) { return 10 + 30 * y + 3 * x + c; }

struct Source {
  Source()
      : left(RGBA8, GeRectangle<int>(0, 4, 0, 3), Rgba()),
        right(RGBA32, GeRectangle<int>(4, 8, 0, 3), Rgba()),
        leftGuard(left),
        rightGuard(right),
        fetcher(Vector<IxReadGuard const*>{&leftGuard, &rightGuard}) {
    for (int y = 0; y < 3; ++y)
      for (int c = 0; c < 4; ++c) {
        for (int x = 0; x < 4; ++x) OrnTest::setRaw(left, x, y, c, std::uint32_t(code(x, y, c)));
        for (int x = 4; x < 8; ++x) OrnTest::setRaw(right, x, y, c, std::bit_cast<std::uint32_t>(code(x, y, c) / 255.f));
      }
  }
  IxTile left, right;
  IxReadGuard leftGuard, rightGuard;
  IxTilePtrVectorFetcher fetcher;
};

// Where position p of an axis over [lo, hi) reads from; -1 for the fill colour.
int sourceOf(Pad::PaddingType type, int p, int lo, int hi) {
  int const length = hi - lo;
  if (p >= lo && p < hi) return p;
  switch (type) {
    case Pad::PADDING_COLOR: return -1;
    case Pad::PADDING_REPEAT_EDGE: return p < lo ? lo : hi - 1;
    case Pad::PADDING_PERIODIC: return lo + ((p - lo) % length + length) % length;
    default: {
      // Mirror: the region and its reverse, repeated.
      int const t = ((p - lo) % (2 * length) + 2 * length) % (2 * length);
      return t < length ? lo + t : hi - 1 - (t - length);
    }
  }
}

Pad::PaddingType const PADDINGS[] = {Pad::PADDING_COLOR, Pad::PADDING_REPEAT_EDGE, Pad::PADDING_PERIODIC,
                                     Pad::PADDING_MIRROR};

}  // namespace

TEST_F(IpCropTest, PadsEveryWayAcrossTilesOfDifferentFormats) {
  Source source;
  // The fill colour's bytes by the 8-bit store: 51, 102, 153, 204.
  Rgba const fill(0.2f, 0.4f, 0.6f, 0.8f);
  std::uint32_t const fillBytes[4] = {51, 102, 153, 204};
  GeRectangle<int> const region(-11, 20, -5, 8);
  for (Pad::PaddingType padX : PADDINGS) {
    for (Pad::PaddingType padY : PADDINGS) {
      IxTile const dst(RGBA8, region, fill);
      ipCrop(IxWriteGuard(dst), source.fetcher, RGBA8, padX, padY);
      for (int y = region.y1(); y < region.y2(); ++y)
        for (int x = region.x1(); x < region.x2(); ++x) {
          int const sx = sourceOf(padX, x, 0, 8);
          int const sy = sourceOf(padY, y, 0, 3);
          for (int c = 0; c < 4; ++c) {
            std::uint32_t const expected = sx < 0 || sy < 0 ? fillBytes[c] : std::uint32_t(code(sx, sy, c));
            ASSERT_EQ(OrnTest::getRaw(dst, x, y, c), expected)
                << "padding x " << padX << " y " << padY << " at (" << x << ", " << y << ") comp " << c;
          }
        }
    }
  }
}

TEST_F(IpCropTest, LineFormFollowsTheGivenFormat) {
  Source source;
  GeRectangle<int> const region(-2, 10, 1, 2);
  // An alpha line: the sources' alpha, the fill colour's alpha outside.
  IxTile const alpha(ALPHA8, region, Rgba(1.f, 1.f, 1.f, 0.6f));
  ipCrop(IxWriteGuard(alpha), source.fetcher, ALPHA8, Pad::PADDING_COLOR, Pad::PADDING_COLOR);
  for (int x = region.x1(); x < region.x2(); ++x)
    EXPECT_EQ(OrnTest::getRaw(alpha, x, 1, 0), x < 0 || x >= 8 ? 153u : std::uint32_t(code(x, 1, 3))) << x;

  // An alpha line cannot fill a colour tile.
  IxTile const colour(RGBA8, region, Rgba());
  EXPECT_THROW(ipCrop(IxWriteGuard(colour), source.fetcher, ALPHA8, Pad::PADDING_COLOR, Pad::PADDING_COLOR),
               AssertionsEx::ExProgramAborted);
}

TEST_F(IpCropTest, EmptyFetcherNoopRowsAndPolling) {
  // No tiles: the whole region is the fill colour, even with NOOP padding.
  IxTilePtrVectorFetcher empty{Vector<IxReadGuard const*>()};
  IxTile const filled(RGBA8, GeRectangle<int>(0, 5, 0, 2), Rgba(0.f, 1.f, 0.f, 1.f));
  ipCrop(IxWriteGuard(filled), empty, RGBA8, Pad::NOOP, Pad::NOOP);
  for (int x = 0; x < 5; ++x) {
    EXPECT_EQ(OrnTest::getRaw(filled, x, 1, 0), 0u);
    EXPECT_EQ(OrnTest::getRaw(filled, x, 1, 1), 255u);
  }

  // NOOP inside the tiles copies; one poll per row.
  Source source;
  GeRectangle<int> const inside(1, 7, 0, 3);
  IxTile const copy(RGBA8, inside, Rgba());
  int nbPolls = 0;
  {
    OrnTest::ScopedPollHook hook([&] { ++nbPolls; });
    ipCrop(IxWriteGuard(copy), source.fetcher, RGBA8, Pad::NOOP, Pad::NOOP);
  }
  EXPECT_EQ(nbPolls, 3);
  for (int y = 0; y < 3; ++y)
    for (int x = 1; x < 7; ++x) EXPECT_EQ(OrnTest::getRaw(copy, x, y, 2), std::uint32_t(code(x, y, 2)));

  // NOOP in x over a region wider than the tiles raises on the first row; nothing is stored
  // for that row, and the dst keeps what it had.
  IxTile const wide(RGBA8, GeRectangle<int>(-1, 8, 0, 2), Rgba());
  OrnTest::fillPattern(wide, 5);
  std::vector<std::uint32_t> const before = OrnTest::snapshot(wide);
  EXPECT_EQ(conditionOf([&] { ipCrop(IxWriteGuard(wide), source.fetcher, RGBA8, Pad::NOOP, Pad::PADDING_COLOR); }),
            "Source tiles must cover the scanline region in NOOP padding mode.");
  EXPECT_EQ(OrnTest::snapshot(wide), before);
}
