#pragma once
// The implementation behind IxScanline<T>: an aligned buffer, reads through the tiling walk with
// padding, writes through the row converters.

#include <orn/pluginAPI/ixScanline.h>

#include <cstddef>
#include <memory>

namespace Orn {

template <class T>
class IxScanlineImp : public IxScanline<T>::Imp {
public:
  using Base = typename IxScanline<T>::Imp;

  // Owns a buffer for nbPixels pixels, none when nbPixels is 0.
  IxScanlineImp(int nbPixels, IxScanline<T>& instance);
  ~IxScanlineImp() override;

  void readFrom(IxScanlineTypes::TileFetcher& fetcher, int y) override;
  void readFrom(Vector<IxReadGuard> const& guards, int y) override;
  void readFrom(IxReadGuard const& guard, int y) override;
  void writeTo(IxWriteGuard const& dst, int y) const override;
  T* getBuffer() override { return _buffer; }

  // Buffer bytes for nbPixels pixels: nbPixels times the pixel size plus 256 bytes of slack for
  // vector accesses past the end, rounded up to a common multiple of the pixel size and 16.
  static std::size_t computeBufferSize(int nbPixels);

  // The factory installed for IxScanline<T>.
  static Base* create(int nbPixels, IxScanline<T>& instance);

private:
  std::unique_ptr<unsigned char[]> _allocation;
  T* _buffer;
  IxScanline<T>& _instance;
};

// Installs the factories of IxScanline<float>, IxScanline<CoRgbaColorTyped<float>> and
// IxScanline<std::complex<float>>. Called by the image processing package at start-up, before
// any scanline is made; calling it again changes nothing.
class IxScanlineImpFactories {
public:
  static void install();
};

extern template class IxScanlineImp<float>;
extern template class IxScanlineImp<CoRgbaColorTyped<float>>;
extern template class IxScanlineImp<std::complex<float>>;

}  // namespace Orn
