#include <orn/primitives/imageProc/ixTilingUtil.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixPixelUtil.h>
#include <orn/primitives/imageProc/ixConvertUtil.h>

#include <algorithm>
#include <complex>
#include <cstdint>

namespace Orn {

namespace {

using Rgba = CoRgbaColorTyped<float>;

// Remainder of a negative offset u (u < 0) counted from the top of a range of length L.
inline int negativeRemainder(int u, int length) { return length + (u + 1) % length - 1; }

void fillRun(float* p, int count, float value) { std::fill(p, p + count, value); }
void fillRun(Rgba* p, int count, Rgba const& value) { std::fill(p, p + count, value); }
void fillRun(std::complex<float>* p, int count, std::complex<float> const& value) { std::fill(p, p + count, value); }

// Address of pixel (x, y) of a guard's tile, from the base address. Integer arithmetic: y is not
// checked against the tile in every mode.
unsigned char const* pixelAddress(IxReadGuard const& guard, int x, int y) {
  GeRectangle<int> const& region = guard.getPixelRegion();
  std::int64_t const offset = std::int64_t(y - region.y1()) * guard.getTile().getRowBytes() +
                              std::int64_t(x - region.x1()) * guard.getTile().getPixelFormat().getSize();
  return reinterpret_cast<unsigned char const*>(reinterpret_cast<std::uintptr_t>(guard.getBaseAddress()) +
                                                std::uintptr_t(offset));
}

// The pixel that repeats beyond an edge, in the line's own form.
template <class T>
T edgePixel(IxReadGuard const& guard, int x, int y);

template <>
float edgePixel<float>(IxReadGuard const& guard, int x, int y) {
  return IxPixelUtil::getPixelColor(guard, x, y).a;
}

template <>
Rgba edgePixel<Rgba>(IxReadGuard const& guard, int x, int y) {
  return IxPixelUtil::getPixelColor(guard, x, y);
}

// Complex pixels have no colour form: the edge pixel is read as it is stored.
template <>
std::complex<float> edgePixel<std::complex<float>>(IxReadGuard const& guard, int x, int y) {
  ORN_ASSERT(guard.getPixelRegion().contains( x, y ));
  std::complex<float> value;
  IxConvertUtil::readFrom(&value, pixelAddress(guard, x, y), 1, guard.getTile().getPixelFormat());
  return value;
}

// The tile that covers column x of row y. A fetcher that answers a tile beside the column would
// make runs of no length.
IxReadGuard const& tileAt(IxScanlineTypes::TileFetcher& fetcher, int x, int y) {
  IxReadGuard const& guard = fetcher.getTile(x, y);
  ORN_ASSERT_TEXT(guard.getPixelRegion().getSlab(0).contains(x),
                  "fetcher.getTile( x, y ).getPixelRegion().getSlab( 0 ).contains( x )");
  return guard;
}

// Converts count pixels of row y from tile column tileX on into line positions dst onward.
template <class T>
void convertRun(T* dst, IxReadGuard const& guard, int tileX, int y, int count) {
  IxConvertUtil::readFrom(dst, pixelAddress(guard, tileX, y), unsigned(count), guard.getTile().getPixelFormat());
}

}  // namespace

int IxTilingUtil::mapPeriodic(int p, int lo, int hi) {
  int const length = hi - lo;
  int const u = p - lo;
  return lo + (u >= 0 ? u % length : negativeRemainder(u, length));
}

int IxTilingUtil::mapMirror(int p, int lo, int hi, bool& reversed) {
  int const length = hi - lo;
  int const u = p - lo;
  if (u >= 0) {
    int const k = u / length;
    int const r = u % length;
    reversed = (k % 2) != 0;
    return reversed ? hi - 1 - r : lo + r;
  }
  int const k = (u + 1) / length;
  int const r = negativeRemainder(u, length);
  reversed = (k % 2) == 0;
  return reversed ? hi - 1 - r : lo + r;
}

template <class T>
void IxTilingUtil::readLine(T* origin, GeInterval<int> const& interval, int y, IxScanlineTypes::TileFetcher& fetcher,
                            IxPaddingPolicy<T> const& paddingPolicyX, IxPaddingPolicy<T> const& paddingPolicyY) {
  T const& fillColor = paddingPolicyX.getFillColor();
  ORN_ASSERT(fillColor == paddingPolicyY.getFillColor());
  int const X1 = interval.min;
  int const X2 = interval.max;
  if (X2 <= X1) return;
  // Positions are taken from the first pixel: the origin itself usually lies outside the row.
  T* const begin = reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(origin) +
                                        std::uintptr_t(std::intptr_t(X1) * std::intptr_t(sizeof(T))));
  auto const at = [begin, X1](int x) { return begin + (x - X1); };

  GeRectangle<int> region;
  fetcher.getRegion(region);
  if (region.getWidth() <= 0 || region.getHeight() <= 0) {
    fillRun(begin, X2 - X1, fillColor);
    return;
  }

  // The source row.
  int const yLo = region.y1();
  int const yHi = region.y2();
  switch (paddingPolicyY.getPaddingType()) {
    case IxScanlineTypes::PADDING_COLOR:
      if (y < yLo || y >= yHi) {
        fillRun(begin, X2 - X1, fillColor);
        return;
      }
      break;
    case IxScanlineTypes::PADDING_REPEAT_EDGE:
      y = std::clamp(y, yLo, yHi - 1);
      break;
    case IxScanlineTypes::PADDING_PERIODIC:
      y = mapPeriodic(y, yLo, yHi);
      break;
    case IxScanlineTypes::PADDING_MIRROR: {
      bool reversed;
      y = mapMirror(y, yLo, yHi, reversed);
      break;
    }
    default:
      // NOOP: the reader vouches for the row.
      break;
  }

  IxScanlineTypes::PaddingType const padX = paddingPolicyX.getPaddingType();
  if (padX < IxScanlineTypes::PADDING_COLOR || padX > IxScanlineTypes::NOOP) return;

  int const lo = region.x1();
  int const hi = region.x2();
  int x = X1;
  while (x < X2) {
    bool const inside = x >= lo && x < hi;
    if (!inside) {
      switch (padX) {
        case IxScanlineTypes::NOOP:
          ORN_ASSERT_TEXT(inside, "Source tiles must cover the scanline region in NOOP padding mode.");
          break;
        case IxScanlineTypes::PADDING_COLOR:
          if (x < lo) {
            int const end = std::min(lo, X2);
            fillRun(at(x), end - x, fillColor);
            x = end;
          } else {
            fillRun(at(x), X2 - x, fillColor);
            x = X2;
          }
          continue;
        case IxScanlineTypes::PADDING_REPEAT_EDGE: {
          int const edge = x < lo ? lo : hi - 1;
          int const end = x < lo ? std::min(lo, X2) : X2;
          fillRun(at(x), end - x, edgePixel<T>(fetcher.getTile(edge, y), edge, y));
          x = end;
          continue;
        }
        default:
          break;
      }
    }
    switch (padX) {
      case IxScanlineTypes::PADDING_PERIODIC: {
        int const mapped = mapPeriodic(x, lo, hi);
        IxReadGuard const& guard = tileAt(fetcher, mapped, y);
        int const count = std::min(guard.getPixelRegion().x2() - mapped, X2 - x);
        convertRun(at(x), guard, mapped, y, count);
        x += count;
        break;
      }
      case IxScanlineTypes::PADDING_MIRROR: {
        bool reversed;
        int const mapped = mapMirror(x, lo, hi, reversed);
        IxReadGuard const& guard = tileAt(fetcher, mapped, y);
        if (!reversed) {
          int const count = std::min(guard.getPixelRegion().x2() - mapped, X2 - x);
          convertRun(at(x), guard, mapped, y, count);
          x += count;
        } else {
          // Read the run in memory order, ending at the mapped column, then turn it around.
          int const count = std::min(mapped + 1 - guard.getPixelRegion().x1(), X2 - x);
          convertRun(at(x), guard, mapped + 1 - count, y, count);
          std::reverse(at(x), at(x) + count);
          x += count;
        }
        break;
      }
      default: {
        // Inside the region, for the other modes: a run up to the tile's end.
        IxReadGuard const& guard = tileAt(fetcher, x, y);
        int const count = std::min(guard.getPixelRegion().x2(), X2) - x;
        convertRun(at(x), guard, x, y, count);
        x += count;
        break;
      }
    }
  }
}

template void IxTilingUtil::readLine<float>(float*, GeInterval<int> const&, int, IxScanlineTypes::TileFetcher&,
                                            IxPaddingPolicy<float> const&, IxPaddingPolicy<float> const&);
template void IxTilingUtil::readLine<CoRgbaColorTyped<float>>(CoRgbaColorTyped<float>*, GeInterval<int> const&, int,
                                                              IxScanlineTypes::TileFetcher&,
                                                              IxPaddingPolicy<CoRgbaColorTyped<float>> const&,
                                                              IxPaddingPolicy<CoRgbaColorTyped<float>> const&);
template void IxTilingUtil::readLine<std::complex<float>>(std::complex<float>*, GeInterval<int> const&, int,
                                                          IxScanlineTypes::TileFetcher&,
                                                          IxPaddingPolicy<std::complex<float>> const&,
                                                          IxPaddingPolicy<std::complex<float>> const&);

}  // namespace Orn
