#pragma once
// One row of pixels in a float form (T = float, CoRgbaColorTyped<float>, std::complex<float>),
// read from tiles of any depth and layout with padding outside them, and written back.
//
// The pixels are contiguous: image position x lies at getOrigin() + x, for x in getInterval().
// The reading and writing are done by an implementation object that a factory makes; the
// factories are installed when the image processing package starts (IxScanlineImpFactories).

#include <orn/base/containers/vector.h>
#include <orn/base/geometryBase/geInterval.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixPaddingPolicy.h>
#include <orn/pluginAPI/ixPixelFormat.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixScanlineTypes.h>
#include <orn/pluginAPI/ixWriteGuard.h>

#include <complex>
#include <type_traits>

namespace Orn {

class IxScanlineImpFactories;
template <class T>
class IxScanlineImp;

template <class T>
class IxScanline {
public:
  // ALPHA FLOAT32, RGBA FLOAT32 or ALPHA COMPLEX, by T.
  static const IxPixelFormat PIXEL_FORMAT;
  // Owned buffers start on this many bytes.
  static constexpr int MIN_LINE_ALIGN = 16;

  // Owns a buffer for the interval; the policy serves both axes.
  IxScanline(GeInterval<int> const& interval, IxPaddingPolicy<T> const& padding);
  // Works on the caller's memory: image position x is pixels[x - interval.min].
  IxScanline(GeInterval<int> const& interval, T* pixels, IxPaddingPolicy<T> const& padding);
  // A view on row y of a one-component float tile, over the tile's x extent. Its padding is
  // PADDING_COLOR with fill 0.
  IxScanline(IxWriteGuard const& guard, int y)
    requires std::is_same_v<T, float>;
  ~IxScanline();

  // The implementation keeps a reference to its scanline: scanlines stay where they are made.
  IxScanline(IxScanline const&) = delete;
  IxScanline& operator=(IxScanline const&) = delete;

  // Fill the whole interval from row y of the source tiles, padding outside them.
  void readFrom(IxReadGuard const& guard, int y) { _imp->readFrom(guard, y); }
  void readFrom(Vector<IxReadGuard> const& guards, int y) { _imp->readFrom(guards, y); }
  void readFrom(IxScanlineTypes::TileFetcher& fetcher, int y) { _imp->readFrom(fetcher, y); }
  // Stores the whole interval to row y of the tile, whose x extent must contain it.
  void writeTo(IxWriteGuard const& guard, int y) const { _imp->writeTo(guard, y); }

  GeInterval<int> const& getInterval() const { return _interval; }
  T* getBegin() { return _begin; }
  T const* getBegin() const { return _begin; }
  T* getEnd() { return _end; }
  T const* getEnd() const { return _end; }
  // The address that image position 0 would have; only positions of the interval may be used.
  T* getOrigin() { return _origin; }
  T const* getOrigin() const { return _origin; }
  T& operator[](int x) { return _origin[x]; }
  T const& operator[](int x) const { return _origin[x]; }

  IxPaddingPolicy<T> const& getPaddingPolicyX() const { return _paddingX; }
  IxPaddingPolicy<T> const& getPaddingPolicyY() const { return _paddingY; }
  void setPaddingPolicyX(IxPaddingPolicy<T> const& padding) { _paddingX = padding; }
  void setPaddingPolicyY(IxPaddingPolicy<T> const& padding) { _paddingY = padding; }

private:
  // The reading and writing behind a scanline.
  class Imp {
  public:
    virtual void readFrom(IxScanlineTypes::TileFetcher& fetcher, int y) = 0;
    virtual void readFrom(Vector<IxReadGuard> const& guards, int y) = 0;
    virtual void readFrom(IxReadGuard const& guard, int y) = 0;
    virtual void writeTo(IxWriteGuard const& guard, int y) const = 0;
    virtual ~Imp() = default;
    // The 16-byte aligned buffer; null when the implementation owns none.
    virtual T* getBuffer() = 0;
  };
  using ImplementationFactory = Imp* (*)(int nbPixels, IxScanline<T>& instance);

  friend class IxScanlineImpFactories;
  friend class IxScanlineImp<T>;

  static void setImplementationFactory(ImplementationFactory factory);
  // Makes the implementation for nbPixels owned pixels (0 for none) and sets the addresses.
  void initialize(int nbPixels, T* pixels);

  static ImplementationFactory _implementationFactory;

  GeInterval<int> _interval;
  IxPaddingPolicy<T> _paddingX;
  IxPaddingPolicy<T> _paddingY;
  T* _begin;
  T* _end;
  T* _origin;
  Imp* _imp;
};

extern template class IxScanline<float>;
extern template class IxScanline<CoRgbaColorTyped<float>>;
extern template class IxScanline<std::complex<float>>;

}  // namespace Orn
